#include "storage/Images.h"

#include "storage/Moteur.h"

#include <QSqlError>

#include <map>

// The header shows these parts of the engine only where they are asked for.
#define SQLITE_ENABLE_SESSION 1
#define SQLITE_ENABLE_PREUPDATE_HOOK 1
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCle = 0;  // ordinal of the key in every table

/// The ordinals of what a row is called by, and of its mark of protection.
struct Noms {
  std::size_t nom;
  std::optional<std::size_t> protection;
};

std::optional<Noms> NomsDe(const QString &table) {
  static const std::map<QString, Noms> kNoms{
      {QString::fromUtf16(Table<Correspondant>::nom),
       {Ordinal(&Correspondant::NomVelmira), Ordinal(&Correspondant::DataProt)}},
      {QString::fromUtf16(Table<Expediteur>::nom), {Ordinal(&Expediteur::Ligne1), {}}},
      {QString::fromUtf16(Table<VilleCode>::nom), {Ordinal(&VilleCode::Ville), {}}},
      {QString::fromUtf16(Table<TypeAlerte>::nom), {Ordinal(&TypeAlerte::Type_alerte), {}}},
      {QString::fromUtf16(Table<PersonneAlerte>::nom), {Ordinal(&PersonneAlerte::Nom), {}}}};
  const auto noms = kNoms.find(table);
  return noms == kNoms.end() ? std::nullopt : std::optional(noms->second);
}

QString Texte(sqlite3_value *valeur) {
  const auto *octets = valeur == nullptr ? nullptr : sqlite3_value_text(valeur);
  return octets == nullptr ? QString() : QString::fromUtf8(reinterpret_cast<const char *>(octets));
}

/// One change of a set of images.
struct Changement {
  QString table;
  int operation = 0;

  explicit Changement(sqlite3_changeset_iter *ici) {
    const char *nom = nullptr;
    int colonnes = 0, indirect = 0;
    sqlite3changeset_op(ici, &nom, &colonnes, &operation, &indirect);
    table = QString::fromUtf8(nom);
  }
};

/// The row that stands in the way as it is, else what the change knows of it.
QString Valeur(sqlite3_changeset_iter *ici, int rencontre, std::size_t ordinal) {
  const int colonne = static_cast<int>(ordinal);
  sqlite3_value *valeur = nullptr;
  if (rencontre == SQLITE_CHANGESET_DATA || rencontre == SQLITE_CHANGESET_CONFLICT)
    sqlite3changeset_conflict(ici, colonne, &valeur);
  if (valeur == nullptr) sqlite3changeset_new(ici, colonne, &valeur);
  if (valeur == nullptr) sqlite3changeset_old(ici, colonne, &valeur);
  return Texte(valeur);
}

int Rencontrer(void *laissees, int rencontre, sqlite3_changeset_iter *ici) {
  const Changement changement(ici);
  // What was to go has gone.
  if (rencontre == SQLITE_CHANGESET_NOTFOUND && changement.operation == SQLITE_DELETE)
    return SQLITE_CHANGESET_OMIT;
  Laissee laissee{changement.table, {}, {}};
  const auto noms = NomsDe(changement.table);
  if (noms && rencontre != SQLITE_CHANGESET_NOTFOUND) {
    laissee.nom = Valeur(ici, rencontre, noms->nom);
    if (noms->protection) laissee.protection = Valeur(ici, rencontre, *noms->protection);
  }
  static_cast<QList<Laissee> *>(laissees)->append(laissee);
  return SQLITE_CHANGESET_OMIT;
}

}  // namespace

SuiviImages::SuiviImages(const Base &base) {
  if (sqlite3session_create(base.connexion_->Poignee(), "main", &suivi_) != SQLITE_OK)
    suivi_ = nullptr;
  else
    sqlite3session_attach(suivi_, nullptr);
}

SuiviImages::~SuiviImages() {
  if (suivi_ != nullptr) sqlite3session_delete(suivi_);
}

std::optional<QByteArray> SuiviImages::Images() {
  int taille = 0;
  void *octets = nullptr;
  if (suivi_ == nullptr || sqlite3session_changeset(suivi_, &taille, &octets) != SQLITE_OK)
    return std::nullopt;
  QByteArray images(static_cast<const char *>(octets), taille);
  sqlite3_free(octets);
  return images;
}

QList<Laissee> Renverser(const Base &base, const QByteArray &images) {
  QList<Laissee> laissees;
  sqlite3 *moteur = base.connexion_->Poignee();
  // The engine reads what it is given, whatever its signature says.
  const int code = sqlite3changeset_apply_v2(
      moteur, static_cast<int>(images.size()), const_cast<char *>(images.constData()), nullptr,
      Rencontrer, &laissees, nullptr, nullptr, SQLITE_CHANGESETAPPLY_INVERT);
  if (code != SQLITE_OK)
    throw ErreurMoteur(QSqlError({}, QString::fromUtf8(sqlite3_errmsg(moteur)),
                                 QSqlError::StatementError, QString::number(code)),
                       base.Chemin());
  return laissees;
}

QList<Cle> FichesEcrites(const QByteArray &images, qsizetype plafond) {
  QList<Cle> fiches;
  sqlite3_changeset_iter *ici = nullptr;
  if (sqlite3changeset_start(&ici, static_cast<int>(images.size()),
                             const_cast<char *>(images.constData())) != SQLITE_OK)
    return fiches;
  while (fiches.size() < plafond && sqlite3changeset_next(ici) == SQLITE_ROW) {
    const Changement changement(ici);
    sqlite3_value *cle = nullptr;
    if (changement.operation == SQLITE_INSERT)
      sqlite3changeset_new(ici, kCle, &cle);
    else if (changement.operation == SQLITE_UPDATE)
      sqlite3changeset_old(ici, kCle, &cle);
    if (cle != nullptr && changement.table == QString::fromUtf16(Table<Correspondant>::nom))
      fiches.append(sqlite3_value_int64(cle));
  }
  sqlite3changeset_finalize(ici);
  return fiches;
}
