#pragma once

#include <QString>

class Boites;
class ListeVelmiras;

/// Where a category is on display, asks whether it alone is to be taken or the list of all; for
/// all, that list is put on display. `titre` is the box's, `verbe` what is to be done with the
/// list.
void ChoisirEtendue(Boites &boites, ListeVelmiras &liste, const QString &titre,
                    const QString &verbe);
