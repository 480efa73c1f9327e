#pragma once

#include "envelope/Envoi.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"
#include "ui/Travail.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class CommandesCommentaire;
class CompteRendu;

/// Prints the envelopes that the zones hold, beside the windows.
class Tirage {
 public:
  /// `fait` tells where the last printing has gone, or that it failed.
  Tirage(Session &session, const Imprimantes &imprimantes, ZonesEnveloppe &zones,
         CommandesCommentaire &commentaire, CompteRendu &fait)
      : session_(session),
        imprimantes_(imprimantes),
        zones_(zones),
        commentaire_(commentaire),
        fait_(fait) {}

  /// Prints what the zones hold. False where it failed, and, with a message, while the printer has
  /// not been told how it takes an envelope.
  bool Imprimer();

  /// The printer of the settings; where it is gone, the one printed on last, else the default one.
  /// Nothing, with a message, where nothing can be printed now.
  std::optional<QString> Appareil();

  /// What the zones hold, as an envelope to be printed.
  Pli Contenu() const { return {zones_.Etat(), zones_.Contenu()}; }

  /// Prints them on this printer, as one document, which bears the title of their run where they
  /// are several. A comment that is meant for one printing alone goes with it.
  FinEnvoi Envoyer(const QString &appareil, const QString &titre, const std::vector<Pli> &plis,
                   const Travail &travail);
  /// A work before which the progress stands.
  Travail Devant() const;

  /// Tells how many envelopes went where, none perhaps, and who was meant and has no address.
  void Dire(const FinImpression &fin, qsizetype nombre, const QStringList &sansAdresse);

  /// Tells how far a run came.
  void DireArret(const QString &constat);

  /// What was told of the last printing is told no longer.
  void Oublier();

 private:
  void MontrerEchec(const FinEnvoi &fin, const QString &appareil);

  Session &session_;
  const Imprimantes &imprimantes_;
  ZonesEnveloppe &zones_;
  CommandesCommentaire &commentaire_;
  CompteRendu &fait_;
  QString courante_;  ///< the printer that was printed on last; empty before
};
