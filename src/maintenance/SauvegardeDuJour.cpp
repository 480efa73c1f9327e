#include "maintenance/SauvegardeDuJour.h"

#include "platform/Erreurs.h"
#include "session/SauvegardePrealable.h"
#include "storage/Preferences.h"

#include <QApplication>
#include <QFileInfo>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

SauvegardeDuJour::SauvegardeDuJour(Session &session, QObject *parent)
    : QObject(parent), session_(session) {
  Planifier(5s);
}

void SauvegardeDuJour::Planifier(std::chrono::milliseconds delai) {
  attente_ = std::make_unique<QObject>();
  session_.plateforme.horloge.Apres(delai, attente_.get(), [this] { Tenter(); });
}

void SauvegardeDuJour::Tenter() {
  Planifier(1h);
  // Who may only read the base leaves its copies to the others.
  const bool sienne = session_.base.Ouverte() && QFileInfo(session_.base.Chemin()).isWritable();
  if (copie_.EnCours() || !sienne) return;
  copie_.Lancer(
      this,
      [lieux = LesSauvegardes(session_),
       maintenant = session_.plateforme.horloge.Maintenant()](const std::stop_token &arret) {
        return Sauvegarder(lieux, maintenant, MotifSauvegarde::Jour, arret);
      },
      [this] { Recevoir(); });
}

void SauvegardeDuJour::Recevoir() {
  try {
    const SauvegardeFaite faite = copie_.Prendre();
    if (!faite.panne.isEmpty())
      Annoncer(
          faite.panne +
          u"\n\nEn attendant, la sauvegarde du jour est faite à côté de la base de données."_s);
  } catch (const ErreurBase &erreur) {
    if (erreur.Genre() == GenreErreur::Occupee)
      Planifier(5min);
    else
      Annoncer(erreur.Texte());
  } catch (const Erreur &erreur) {
    Annoncer(erreur.Texte());
  }
}

void SauvegardeDuJour::Annoncer(const QString &panne) {
  if (QApplication::activeModalWidget() != nullptr) {
    session_.plateforme.horloge.Apres(10s, this, [this, panne] { Annoncer(panne); });
    return;
  }
  const QString section = u"Sauvegardes"_s, cle = u"EchecDit"_s;
  const QString jour = session_.plateforme.horloge.Maintenant().date().toString(Qt::ISODate);
  Preferences etat(session_.dossiers.AppPath, u"Etat.ini"_s);
  if (etat.Texte(section, cle) == jour) return;
  Ignorer([&] { etat.Ecrire(section, {{cle, jour}}); });
  session_.plateforme.boites.Attention(
      u"La sauvegarde du jour n'a pas pu être faite à l'endroit prévu.\n\n"_s + panne);
}
