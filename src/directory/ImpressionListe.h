#pragma once
// The list of correspondents on paper: plain lines, one under the other, page after page. A line
// that is wider than the page goes on in the next one: broken behind " - ", else at a blank, else,
// in a word that is wider than the page, at the sign.

#include "platform/Imprimante.h"
#include "storage/Imprimantes.h"
#include "storage/Lignes.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

/// Which lines of a record are printed beside its name.
struct ChoixListe {
  bool domicile = true, travail = true, portable = true, fax = true;
  bool mail = true, web = true, adresse = true;

  friend bool operator==(const ChoixListe &, const ChoixListe &) = default;
};

/// What stands around the records.
struct CadreListe {
  QString NomPerso;
  qsizetype nombre = 0;  ///< of the correspondents in the list
  QDateTime instant;     ///< of the printing
};

/// A line of the list; one without text only takes its height.
struct LigneListe {
  QString texte;
  Police police;

  friend bool operator==(const LigneListe &, const LigneListe &) = default;
};

std::vector<LigneListe> LignesTete(const CadreListe &cadre);
std::vector<LigneListe> LignesFiche(const Correspondant &fiche, const ChoixListe &choix);
std::vector<LigneListe> LignesPied(const CadreListe &cadre);

/// Gives the correspondent of a place in the list, from 0; nothing ends the printing.
using LectureListe = std::function<std::optional<Correspondant>(qsizetype rang)>;

/// A printed list.
struct ListeImprimee {
  FinImpression fin = {};
  QString appareil = {};  ///< name of the printer
  int pages = 0;
};

/// Prints the list on the system's default printer; each correspondent is read when its turn has
/// come. Corrected where that was chosen for this printer. `Echouee` also where it was given up:
/// then, and when `lire` throws, nothing of it is printed. Throws `Erreur` where no printer
/// answers. Needs no window and no event loop, so that any thread may run it; `arret` ends its
/// waiting for the system.
ListeImprimee ImprimerListe(Imprimante &imprimante, const Imprimantes &imprimantes,
                            const CadreListe &cadre, const ChoixListe &choix,
                            const LectureListe &lire, const std::stop_token &arret = {});
