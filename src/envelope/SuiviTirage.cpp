#include "envelope/SuiviTirage.h"

#include "directory/Protection.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString Dossier(const QString &appPath) {
  return appPath + u"/Tirages"_s;
}

QJsonObject VersJson(const AdresseComposee &adresse) {
  return {{u"chaine"_s, adresse.chaine}, {u"option"_s, static_cast<int>(adresse.optionCP)}};
}

AdresseComposee Adresse(const QJsonValue &valeur) {
  return {valeur[u"chaine"].toString(), OptionDe(valeur[u"option"].toInt())};
}

QJsonObject VersJson(const EtatEnveloppe &enveloppe) {
  return {{u"largeur"_s, enveloppe.LargeurEnv.valeur},
          {u"hauteur"_s, enveloppe.HauteurEnv.valeur},
          {u"expediteur"_s, VersJson(enveloppe.ExpediteurCourant)},
          {u"commentaire"_s, enveloppe.Commentaire},
          {u"gras"_s, enveloppe.CommentaireGras},
          {u"souligne"_s, enveloppe.CommentaireSouligne}};
}

EtatEnveloppe Enveloppe(const QJsonValue &valeur) {
  EtatEnveloppe enveloppe;
  enveloppe.LargeurEnv = Millimetres(valeur[u"largeur"].toDouble(kLongueurDL.valeur));
  enveloppe.HauteurEnv = Millimetres(valeur[u"hauteur"].toDouble(kHauteurDL.valeur));
  enveloppe.ExpediteurCourant = Adresse(valeur[u"expediteur"]);
  enveloppe.Commentaire = valeur[u"commentaire"].toString();
  enveloppe.CommentaireGras = valeur[u"gras"].toBool();
  enveloppe.CommentaireSouligne = valeur[u"souligne"].toBool();
  return enveloppe;
}

QStringList Textes(const QJsonValue &valeur) {
  QStringList textes;
  for (const QJsonValue texte : valeur.toArray()) textes.append(texte.toString());
  return textes;
}

QByteArray Octets(const EtatTirage &etat) {
  QJsonArray destinataires;
  for (const Destinataire &d : etat.destinataires)
    destinataires.append(
        QJsonObject{{u"cle"_s, d.cle}, {u"nom"_s, d.nom}, {u"adresse"_s, VersJson(d.adresse)}});
  const QJsonObject tirage{
      {u"titre"_s, etat.titre},
      {u"base"_s, etat.base},
      {u"appareil"_s, etat.appareil},
      {u"debut"_s, etat.debut.toString(Qt::ISODate)},
      {u"dUnTrait"_s, etat.dUnTrait},
      {u"enveloppe"_s, VersJson(etat.enveloppe)},
      {u"destinataires"_s, destinataires},
      {u"sansAdresse"_s, QJsonArray::fromStringList(etat.sansAdresse)},
      {u"disparus"_s, QJsonArray::fromStringList(etat.disparus)},
      {u"faites"_s, etat.faites},
      {u"incertaine"_s, etat.incertaine},
  };
  return QJsonDocument(tirage).toJson();
}

/// Nothing where it is not a file of ours, or the run is at its end.
std::optional<EtatTirage> Lire(const QString &chemin) {
  const QJsonDocument lu = QJsonDocument::fromJson(LireSiPossible(chemin).value_or(QByteArray()));
  EtatTirage etat;
  etat.titre = lu[u"titre"].toString();
  etat.base = lu[u"base"].toString();
  etat.appareil = lu[u"appareil"].toString();
  etat.debut = QDateTime::fromString(lu[u"debut"].toString(), Qt::ISODate);
  etat.dUnTrait = lu[u"dUnTrait"].toBool();
  etat.enveloppe = Enveloppe(lu[u"enveloppe"]);
  for (const QJsonValue d : lu[u"destinataires"].toArray())
    etat.destinataires.append(
        {d[u"cle"].toInteger(), d[u"nom"].toString(), Adresse(d[u"adresse"])});
  etat.sansAdresse = Textes(lu[u"sansAdresse"]);
  etat.disparus = Textes(lu[u"disparus"]);
  etat.faites = lu[u"faites"].toInteger();
  etat.incertaine = lu[u"incertaine"].toBool();
  if (etat.faites < 0 || etat.Restantes() <= 0) return std::nullopt;
  return etat;
}

/// The lock of a file; none where another run of the program has it. A run that was killed has none
/// any more.
std::unique_ptr<QLockFile> Verrouiller(const QString &chemin) {
  auto verrou = std::make_unique<QLockFile>(chemin + u".verrou"_s);
  verrou->setStaleLockTime(0);
  return verrou->tryLock(0) ? std::move(verrou) : nullptr;
}

}  // namespace

void RelireRestants(EtatTirage &etat, const TableAdresse &table, const QString &utilisateur) {
  QList<Destinataire> relus = etat.destinataires.mid(0, etat.faites);
  const QList<Destinataire> restants = etat.destinataires.mid(etat.faites);
  for (Destinataire d : restants) {
    const auto fiche = table.Lire(d.cle);
    const bool visible = fiche && EstVisible(fiche->DataProt, utilisateur);
    if (visible) {
      d.nom = fiche->NomVelmira;
      const AdresseComposee adresse = ComposerAdresse(AdresseSaisie::De(*fiche));
      d.modifiee = adresse != std::exchange(d.adresse, adresse);
    }
    if (visible && !AdresseVide(d.adresse.chaine)) {
      relus.append(d);
      continue;
    }
    (visible ? etat.sansAdresse : etat.disparus).append(d.nom);
    if (d.cle == restants.first().cle && !etat.EstUnDocument()) etat.incertaine = false;
  }
  etat.destinataires = relus;
}

SuiviTirage::SuiviTirage(const QString &appPath, EtatTirage etat) : etat_(std::move(etat)) {
  Ignorer([&] {
    CreerDossier(Dossier(appPath), Acces::Prive);
    const QString debut = Dossier(appPath) + etat_.debut.toString(u"/yyyyMMdd-HHmmss"_s);
    QString chemin;
    for (int numero = 1; chemin.isEmpty(); ++numero)
      if (const QString nom = u"%1-%2.json"_s.arg(debut).arg(numero);
          CreerFichier(nom, Octets(etat_)))
        chemin = nom;
    verrou_ = Verrouiller(chemin);
    chemin_ = chemin;
  });
}

SuiviTirage::SuiviTirage(QString chemin, std::unique_ptr<QLockFile> verrou, EtatTirage etat)
    : chemin_(std::move(chemin)), verrou_(std::move(verrou)), etat_(std::move(etat)) {}

SuiviTirage::~SuiviTirage() = default;

std::unique_ptr<SuiviTirage> SuiviTirage::Interrompu(const QString &appPath, const QString &base) {
  const QDir dossier(Dossier(appPath));
  for (const QString &nom : dossier.entryList({u"*.json"_s}, QDir::Files, QDir::Time)) {
    const QString chemin = dossier.filePath(nom);
    auto verrou = Verrouiller(chemin);
    if (verrou == nullptr) continue;
    auto etat = Lire(chemin);
    if (!etat || etat->base != base) continue;
    return std::unique_ptr<SuiviTirage>(
        new SuiviTirage(chemin, std::move(verrou), std::move(*etat)));
  }
  return nullptr;
}

void SuiviTirage::Noter(const EtatTirage &etat) {
  etat_ = etat;
  Ecrire();
}

void SuiviTirage::NoterFaites(qsizetype faites, const EtatEnveloppe &enveloppe) {
  etat_.faites = faites;
  etat_.enveloppe = enveloppe;
  etat_.incertaine = false;
  Ecrire();
}

void SuiviTirage::NoterIncertaine(bool incertaine) {
  etat_.incertaine = incertaine;
  Ecrire();
}

void SuiviTirage::Ecrire() {
  if (!EstGarde()) return;
  if (etat_.Restantes() == 0) return Oublier();
  try {
    RemplacerFichier(chemin_, Octets(etat_));
  } catch (const Erreur &) {
    Oublier();  // what it says is no longer true
  }
}

void SuiviTirage::Oublier() {
  if (!EstGarde()) return;
  Ignorer([this] { EffacerFichier(chemin_); });
  chemin_.clear();
  verrou_.reset();
}
