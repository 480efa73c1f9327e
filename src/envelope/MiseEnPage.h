#pragma once
// Where every line of an envelope stands on the paper. All lengths in millimetres.

#include "envelope/EtatEnveloppe.h"
#include "platform/Imprimante.h"
#include "storage/Avance.h"
#include "storage/Imprimantes.h"
#include "storage/Reglages.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <stop_token>
#include <vector>

/// A line of text; its place is that of its left end and its top.
struct LignePlacee {
  QString texte;
  Millimetres x, y;
  Police police;
};

/// Top left corner of the address zone on the envelope: defined on the DL reference, 220 by 110 mm,
/// and stretched to the format.
Point OrigineAdresse(const ReglagesPlomex &plomex, const EtatEnveloppe &etat);

/// Top left corner of the sender zone: only its height follows the format.
Point OrigineExpediteur(const ReglagesPlomex &plomex, const EtatEnveloppe &etat);

/// The corner of the printable area, in millimetres of the envelope: what is taken off a place on
/// the envelope to have its place on the page.
Point OriginePage(const ReglagesPlomex &plomex, const EtatEnveloppe &etat);

/// The right end of the comment stands so far from the right end of the envelope.
inline constexpr Millimetres kRetraitCommentaire(40);

Police PoliceAdresse(const ReglagesPlomex &plomex);
Police PoliceExpediteur(const ReglagesPlomex &plomex);

/// What the two zones of an envelope hold, lines separated by line feeds, and whether the comment
/// goes with them.
struct ContenuEnveloppe {
  QString expediteur;
  QString adresse;
  bool commentaire = false;
  bool paysPresent = false;  ///< the address ends with a country
};

/// What goes on the page, in places counted from the corner of the printable area: comment, sender,
/// address, line by line. Blank lines take their height and are left out. Text is neither wrapped
/// nor cut.
///
/// `coin` stands for an envelope that is the paper itself: places are counted from its corner then,
/// the tray moves nothing, and what would begin before `coin`, where printing begins, begins there.
std::vector<LignePlacee> MettreEnPage(const ReglagesPlomex &plomex, const EtatEnveloppe &etat,
                                      const ContenuEnveloppe &contenu, const MesureTexte &mesure,
                                      std::optional<Point> coin = {});

/// A millimetre of the preview stands for so many of the envelope.
inline constexpr double kReductionApercu = 1.18;

/// The same for the preview, in millimetres of its picture, counted from the envelope's corner.
/// Fonts are not reduced with the places; the sender's is a point smaller, and its horizontal place
/// is that of the print.
std::vector<LignePlacee> MettreEnApercu(const ReglagesPlomex &plomex, const EtatEnveloppe &etat,
                                        const ContenuEnveloppe &contenu, const MesureTexte &mesure);

void EcrireLignes(const std::vector<LignePlacee> &lignes, Feuille &feuille);

/// Whether a comment is set, and allowed in the run that is under way.
bool CommentaireImprime(const ReglagesRTColor &rtcolor, const EtatEnveloppe &etat);

/// Whether the printer has been told how it takes an envelope.
bool ImpressionConfiguree(const ReglagesPlomex &plomex);

/// The paper on which an envelope is printed.
Papier PapierPour(const ReglagesPlomex &plomex, PapierEnveloppe choix, const Taille &enveloppe);

/// An envelope as it is printed: what its zones hold, in the state that goes with it.
struct Pli {
  EtatEnveloppe etat;
  ContenuEnveloppe contenu;
};

/// How a printing goes.
struct Conduite {
  QString titre{};  ///< of the run, where there are several envelopes
  Avance avance = [](qsizetype, qsizetype) { return true; };
  std::stop_token arret{};  ///< ends the waiting for the system
};

/// Prints a document of one page for each envelope on the device of this name, on the paper and
/// with the correction that `imprimantes` has for it, or nothing where `avance` asks to stop; it is
/// asked for the last time before the document is handed over. Their format is the first one's. The
/// document bears the addressee, or the title of the run. Throws `Erreur` where the device cannot
/// be had. Needs no window, so that any thread may run it.
std::optional<FinImpression> ImprimerPlis(Imprimante &imprimante, const QString &appareil,
                                          const ReglagesPlomex &plomex,
                                          const Imprimantes &imprimantes,
                                          const std::vector<Pli> &plis,
                                          const Conduite &conduite = {});
