#pragma once

#include "address/ChaineAdresse.h"
#include "envelope/MiseEnPage.h"
#include "session/Session.h"

class VueEnveloppe;

/// The two text zones of the envelope window, and the addresses of the session that stand in them.
class ZonesEnveloppe {
 public:
  ZonesEnveloppe(Session &session, VueEnveloppe *vue) : session_(session), vue_(vue) {}

  /// The address becomes the current one; an empty one leaves the zone in its empty state.
  void EcrireAdresse(const AdresseComposee &adresse);
  /// Shows the current address.
  void MontrerAdresse();
  /// The zone takes lines that have been formatted before: an envelope of a run.
  void EcrireLignesAdresse(const QString &lignes);
  /// The empty state: a zone that holds it prints nothing.
  void ViderAdresse();

  /// The sender becomes the current one, and is shown unless none is ever printed.
  void EcrireExpediteur(const AdresseComposee &expediteur);
  /// Takes the default sender, if there is one. Throws `ErreurFichier` and `ErreurBase`.
  void ChargerExpediteur();

  /// Formats both zones anew, where they are not empty.
  void Reformater();
  /// Fonts, alignments and places by the settings and the format.
  void Disposer();

  /// What is printed, the comment as the run allows it.
  ContenuEnveloppe Contenu() const;

 private:
  QString Formatee(bool destinataire);

  Session &session_;
  VueEnveloppe *vue_;
};

/// The lines of an address that is not the current one, as the settings format it. `etat` takes
/// what the formatting leaves behind.
QString FormaterAdresse(const AdresseComposee &adresse, const ReglagesPlomex &plomex,
                        EtatEnveloppe &etat);
