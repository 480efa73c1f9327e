#pragma once

#include "envelope/SuiviTirage.h"
#include "envelope/Tirage.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QList>
#include <QStringList>

#include <memory>

/// A run of envelopes, one for each address.
struct SerieEnveloppes {
  QString titre;  ///< the category that was ticked whole, or "sélection"
  QList<Destinataire> destinataires;
  QStringList sansAdresse;  ///< whose envelope was wanted, and who have no address
  /// They go as one document, and only after a question; the printer takes its own time for each.
  bool dUnTrait = false;
};

/// Prints such runs. On paper their envelopes come four seconds apart so that the printer can
/// follow: a small window tells how far it is, pauses and stops it; nothing else can be started
/// meanwhile. A run to "PDF" is one file, made at once. A long run asks before it starts. One that
/// ends before its end says who is left, prints the rest, or keeps it to be offered again, also by
/// the next start of the program.
class ImpressionMultiple {
 public:
  ImpressionMultiple(Session &session, ZonesEnveloppe &zones, Tirage &tirage, QWidget *fenetre)
      : session_(session), zones_(zones), tirage_(tirage), fenetre_(fenetre) {}

  /// False unless all has been printed.
  bool Imprimer(const SerieEnveloppes &serie);

  /// Offers the rest of runs that ended before their end, the last one first; nothing where the
  /// user takes up none.
  std::unique_ptr<SuiviTirage> ChoisirReste();
  /// Prints it as the run was: its format, its sender and its comment, which go again after it.
  /// False unless all has been printed.
  bool Reprendre(SuiviTirage &suivi);

 private:
  bool Confirmer(const QString &appareil, const SerieEnveloppes &serie);
  /// Asks before a run goes on elsewhere than where it has begun.
  bool ConfirmerSuite(const QString &appareil, const EtatTirage &etat);
  /// Prints what is left of a run, again and again as long as its user wants the rest. False where
  /// there is a rest at the end.
  bool Mener(SuiviTirage &suivi, QString appareil);
  FinEnvoi Tirer(SuiviTirage &suivi, const QString &appareil);
  FinEnvoi TirerDUnTrait(SuiviTirage &suivi, const QString &appareil);
  FinEnvoi TirerUneAUne(SuiviTirage &suivi, const QString &appareil);
  void Ecrire(const Destinataire &destinataire);

  Session &session_;
  ZonesEnveloppe &zones_;
  Tirage &tirage_;
  QWidget *fenetre_;
};
