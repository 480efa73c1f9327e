#include "directory/CommandesAppel.h"

#include "directory/Liens.h"
#include "directory/PanneauFiche.h"
#include "ui/Brancheur.h"
#include "ui/Montrable.h"

#include <QRegularExpression>
#include <QScopeGuard>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kRaccrocher("ATH\r");

QByteArray CommandeModem(const QString &numero) {
  return "ATDT " + numero.toLatin1() + ";\r";
}

QString TexteAppel(const QString &numero, const QString &compose, bool entier) {
  const QString texte = u"Composition du numéro "_s + numero;
  return entier ? texte : texte + u"\n\nLe modem ne recevra que : "_s + compose;
}

QString TexteEchec(const QString &numero, const ReponseModem &reponse) {
  return u"L'appel du numéro %1 a échoué : %2 (réponse du modem : %3).\n"
         "La ligne est raccrochée. Vous pouvez recommencer l'appel."_s.arg(numero, reponse.raison,
                                                                           reponse.mot);
}

/// The number of a port in a typed text; a number may bear decimals that are nought.
std::optional<quint8> PortSaisi(const QString &texte) {
  static const QRegularExpression kPort(u"^\\s*\\+?([0-9]+)([.,]0*)?\\s*$"_s);
  const int port = kPort.match(texte).captured(1).toInt();  // 0 where it is none
  if (port < 1 || port > std::numeric_limits<quint8>::max()) return std::nullopt;
  return static_cast<quint8>(port);
}

}  // namespace

CommandesAppel::CommandesAppel(Session &session, const Actions &actions, PanneauFiche &fiche,
                               QObject *parent)
    : QObject(parent), session_(session), actions_(actions), fiche_(fiche) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions_.mnuTel, &CommandesAppel::BasculerNumerotation);
  brancher(actions_.mnuMasquerTel, &CommandesAppel::Masquer);
  for (std::size_t i = 0; i < actions_.mnuCom.size(); ++i)
    brancher(actions_.mnuCom[i], [this, i] { ChoisirPort(i); });
  brancher(actions_.mnuVolume, [this] { session_.plateforme.coquille.ReglerSon(); });
  brancher(actions_.mnuADSL, [this] {
    session_.plateforme.coquille.Ouvrir(session_.dossiers.AppPath + u"/VelmiraADSL.pdf"_s);
  });
  brancher(&fiche_, &PanneauFiche::AppelDemande, &CommandesAppel::AppelerFiche);
  brancher(&fiche_, &PanneauFiche::CourrielDemande,
           [this](const QString &adresse) { OuvrirLien(adresse, LienCourriel(adresse)); });
  brancher(&fiche_, &PanneauFiche::SiteDemande,
           [this](const QString &texte) { OuvrirLien(texte, LienSite(texte)); });
}

void CommandesAppel::Appliquer() {
  ReglagesPlomex &plomex = session_.reglages.plomex;
  if (plomex.Telephone) plomex.IcoMenu = false;  // what is in use is not hidden
  MajPort();
  MajVisibles();
}

void CommandesAppel::Demander() {
  Boites &boites = session_.plateforme.boites;
  if (!session_.reglages.plomex.Telephone) {
    boites.Information(
        u"Cette fonction de numérotation doit être activée dans le menu 'Options'.\n"
        "_____________________________\n"
        "Si vous ne désirez pas l'activer, il vous est possible de masquer les icônes et menus en "
        "rapport avec elle."_s);
    return;
  }
  const QString reponse = boites
                              .Saisie(Boites::Titre(),
                                      u"Inscrire le numéro de téléphone à appeler,\n"
                                      "ou l'adresse émail à velmiraer :"_s,
                                      u""_s)
                              .value_or(u""_s);
  if (reponse.isEmpty()) return;
  if (EstNumero(reponse, session_.reglages.SeparateurTel))
    Composer(reponse);
  else if (reponse.contains(u'@'))
    session_.plateforme.coquille.Ouvrir(u"mailto:"_s + reponse);
  else
    boites.Information(u"Mauvaise adresse émail !"_s);
}

void CommandesAppel::AppelerFiche(const QString &numero) {
  if (NumeroAComposer(numero, session_.reglages.SeparateurTel).isEmpty())
    session_.plateforme.boites.Critique(u"Pas de numéro valide"_s);
  else
    Composer(numero);
}

void CommandesAppel::OuvrirLien(const QString &texte, const std::optional<QString> &lien) {
  if (lien)
    session_.plateforme.coquille.Ouvrir(*lien);
  else
    session_.plateforme.boites.Information(
        u"« %1 » n'a pas été ouvert : depuis une fiche ne s'ouvrent qu'une page web "
        "(http ou https) et une adresse de courriel, sans rien d'autre. La fiche n'a pas changé, "
        "et vous pouvez la corriger."_s.arg(Montrable(texte, 200)));
}

void CommandesAppel::Composer(const QString &numero) {
  Boites &boites = session_.plateforme.boites;
  if (finAppel_ != nullptr) {
    boites.Information(
        u"Un appel est déjà en cours.\nPour raccrocher, décochez « Utiliser la numérotation "
        "téléphonique » dans le menu 'Options'."_s);
    return;
  }
  const QString &separateur = session_.reglages.SeparateurTel;
  const QString compose = NumeroAComposer(numero, separateur);
  if (!boites.Confirmation(Boites::Titre(),
                           TexteAppel(numero, compose, EstNumero(numero, separateur))))
    return;
  PortSerie &port = session_.plateforme.port;
  const quint8 numeroPort = session_.reglages.rtcolor.PortCom;
  if (!port.Ouvrir(numeroPort)) {
    boites.Information(u"COM"_s + QString::number(numeroPort) +
                       u" n'est pas disponible. Utilisez le menu Port communication pour "
                       "sélectionner un autre port de communication."_s);
    return;
  }
  port.Ecrire(CommandeModem(compose));
  ConduireAppel(compose);
}

void CommandesAppel::ConduireAppel(const QString &numero) {
  Boites &boites = session_.plateforme.boites;
  bool fini = false;
  finAppel_ = &fini;
  const auto raccrocher = qScopeGuard([&] {
    if (!fini) Raccrocher();
  });
  const auto reponse = AttendreModem(fini);
  if (fini) return;
  if (reponse && reponse->decroche) {
    boites.Information(u"Appuyez sur le bouton OK pour raccrocher."_s);
    return;
  }
  const bool vivant = session_.plateforme.port.Vivant();
  Raccrocher();
  if (reponse)
    boites.Information(TexteEchec(numero, *reponse));
  else if (!vivant)
    boites.Information(u"La liaison avec le modem a été interrompue : l'appel est terminé."_s);
}

std::optional<ReponseModem> CommandesAppel::AttendreModem(const bool &fini) {
  PortSerie &port = session_.plateforme.port;
  QByteArray recu;
  std::optional<ReponseModem> reponse;
  session_.plateforme.horloge.AttendreQue([&] {
    if (fini) return true;
    recu += port.Lire();
    reponse = LireReponse(recu);
    return reponse || !port.Vivant();
  });
  return reponse;
}

void CommandesAppel::Raccrocher() {
  if (!finAppel_) return;
  *std::exchange(finAppel_, nullptr) = true;
  PortSerie &port = session_.plateforme.port;
  port.Ecrire(kRaccrocher.toByteArray());
  port.Fermer();
}

void CommandesAppel::ChoisirPort(std::size_t choix) {
  if (choix + 1 < actions_.mnuCom.size())
    ChangerPort(static_cast<quint8>(choix + 1));
  else
    DemanderPort();
}

void CommandesAppel::DemanderPort() {
  MajPort();  // until another port is told, the mark stays with the old one
  Boites &boites = session_.plateforme.boites;
  const QString reponse =
      boites.Saisie(Boites::Titre(), u"Indiquez le numéro du port :"_s, u""_s).value_or(u""_s);
  if (reponse.isEmpty()) return;
  if (const auto port = PortSaisi(reponse))
    ChangerPort(*port);
  else
    boites.Information(u"Valeur non conforme !"_s);
}

void CommandesAppel::ChangerPort(quint8 port) {
  session_.reglages.rtcolor.PortCom = port;
  MajPort();
  EcrireRTColor(session_.dossiers.AppPath, session_.reglages.rtcolor);
}

void CommandesAppel::MajPort() {
  const std::size_t autre = actions_.mnuCom.size() - 1;
  const std::size_t port = session_.reglages.rtcolor.PortCom;
  const std::size_t choix = port >= 1 && port <= autre ? port - 1 : autre;
  for (std::size_t i = 0; i < actions_.mnuCom.size(); ++i)
    actions_.mnuCom[i]->setChecked(i == choix);
}

void CommandesAppel::BasculerNumerotation(bool active) {
  ReglagesPlomex &plomex = session_.reglages.plomex;
  plomex.Telephone = active;
  if (active)
    plomex.IcoMenu = false;
  else
    Raccrocher();
  MajVisibles();
  if (!active &&
      session_.plateforme.boites.Question(
          Boites::Titre(),
          u"Voulez-vous masquer les icônes et menus en rapport avec la numérotation ?"_s) ==
          Boites::Reponse::Oui)
    Masquer(true);
}

void CommandesAppel::Masquer(bool masque) {
  session_.reglages.plomex.IcoMenu = masque;
  MajVisibles();
}

void CommandesAppel::MajVisibles() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  actions_.mnuTel->setChecked(plomex.Telephone);
  actions_.mnuMasquerTel->setChecked(plomex.IcoMenu);
  actions_.mnuMasquerTel->setEnabled(!plomex.Telephone);
  actions_.mnuPort->setVisible(!plomex.IcoMenu);
  actions_.mnuVolume->setVisible(!plomex.IcoMenu);
  fiche_.ActiverNumerotation(plomex.Telephone);
  emit Montree(!plomex.IcoMenu);
}
