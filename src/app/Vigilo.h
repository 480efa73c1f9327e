#pragma once
// One run of the companion of the alerts.

#include "alerts/Vigilance.h"
#include "platform/Boites.h"
#include "platform/Coquille.h"
#include "platform/Horloge.h"
#include "platform/Notifications.h"
#include "storage/Reglages.h"
#include "ui/EntreePresse.h"

#include <QLocale>
#include <QObject>
#include <QStringList>

#include <memory>

class EchelleProgramme;
class FrmVigilo;
class PlacesFenetres;

class Vigilo : public QObject {
  Q_OBJECT

 public:
  /// Who has started it.
  enum class Depart {
    Session,    ///< the desktop at log-on: what fails is tried again, and told to nobody
    Programme,  ///< Velmira: a window where something is to be told
    Voulu,      ///< its user: a window in any case
  };
  /// What the words of its command line tell.
  static Depart DepartDe(const QStringList &mots);

  struct Moyens {
    Boites &boites;
    Horloge &horloge;
    Coquille &coquille;
    Notifications &notifications;
    QString utilisateur;  ///< log-on name
    QLocale langue;
  };

  Vigilo(const Moyens &moyens, const QString &appPath, Depart depart);
  ~Vigilo() override;

  /// Reads the events, tells what is to be told or ends; the database that was chosen is tried
  /// again for two minutes at log-on where it cannot be read. Nothing of it is open while the
  /// window is there.
  void Commencer();

  /// Another start: shows the window, or tries at once where there is none yet.
  void Reprendre(Depart depart);

 signals:
  /// The end, with the status of the program.
  void Termine(int statut);

 private:
  void Lire();
  /// At log-on a share may not be there yet. False when it is waited for no longer.
  bool Patienter();
  void Echouer(const QString &texte);
  void Montrer();
  void Ouvrir();
  void Annoncer();
  void SuivreLeJour();
  void NoterVues(const QList<Alerte> &alertes);
  void Demander(const QString &nom, bool enveloppe);
  /// The window has been closed, or none was needed: what it showed has been told.
  void Finir();
  QDate Aujourdhui() const { return moyens_.horloge.Maintenant().date(); }

  Moyens moyens_;
  QString appPath_;
  Depart depart_;
  int essais_ = 0;
  QDate jour_;  ///< for which it was read
  Reglages reglages_;
  EvenementsLus lus_;
  MemoireAlertes memoire_;
  bool memoireLue_ = false;  ///< without it nothing is written
  Vigilance vigilance_;
  EntreePresse entree_;
  std::unique_ptr<PlacesFenetres> places_;
  std::unique_ptr<EchelleProgramme> echelle_;
  std::unique_ptr<FrmVigilo> fenetre_;
};
