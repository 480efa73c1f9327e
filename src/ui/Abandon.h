#pragma once

class Boites;
class QWidget;

/// Whether a window may go with what has been typed in it: asks where a field has been typed in
/// since the program has filled it. For Escape and the close box; a button that says so needs no
/// question. What was given up is asked about no more.
bool PeutAbandonner(Boites &boites, QWidget &fenetre);

/// The same for a window that knows by itself whether anything would be lost.
bool PeutAbandonner(Boites &boites, bool saisi);
