#include "storage/Requete.h"

#include "storage/Moteur.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

Requete::Requete(Base &base, const QString &texte)
    : base_(base), texte_(texte), requete_(base.Preparer(texte)) {
  ++base_.auTravail_;
}

Requete::~Requete() {
  --base_.auTravail_;
  if (liee_ || requete_->lastError().isValid()) return;
  // Reset: a statement that stands on a row would keep its lock.
  requete_->finish();
  base_.Garder(texte_, std::move(requete_));
}

Requete &Requete::Lier(const QString &valeur) {
  requete_->addBindValue(valeur.isNull() ? QVariant(QMetaType(QMetaType::QString))
                                         : QVariant(valeur));
  liee_ = true;
  return *this;
}

Requete &Requete::Lier(qint64 valeur) {
  requete_->addBindValue(valeur);
  liee_ = true;
  return *this;
}

void Requete::Echouer() {
  const ErreurBase erreur = ErreurMoteur(requete_->lastError(), base_.Chemin());
  base_.NoterEchec(erreur);
  throw erreur;
}

void Requete::Lancer() {
  base_.ExigerTransaction();
  if (!requete_->exec()) Echouer();
  lancee_ = true;
  liee_ = false;
}

qint64 Requete::Executer() {
  Lancer();
  return requete_->numRowsAffected();
}

bool Requete::Suivante() {
  if (!lancee_) Lancer();
  base_.ExigerTransaction();
  if (requete_->next()) return true;
  // The end of the rows and a page that cannot be read both end here; only the error tells.
  if (requete_->lastError().isValid()) Echouer();
  return false;
}

QString Requete::Texte(int colonne) const {
  return requete_->value(colonne).toString();
}

qint64 Requete::Entier(int colonne) const {
  return requete_->value(colonne).toLongLong();
}

bool Requete::Nul(int colonne) const {
  return requete_->isNull(colonne);
}

qint64 Requete::CleAjoutee() const {
  return requete_->lastInsertId().toLongLong();
}
