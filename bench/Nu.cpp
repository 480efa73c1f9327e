#include "Nu.h"

#include <QAbstractListModel>
#include <QBuffer>
#include <QCollator>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QFormLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSqlError>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class ModeleNu : public QAbstractListModel {
 public:
  ModeleNu(std::vector<LigneNue> lignes, QObject *parent)
      : QAbstractListModel(parent), lignes_(std::move(lignes)) {}
  int rowCount(const QModelIndex &parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(lignes_.size());
  }
  QVariant data(const QModelIndex &index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return lignes_[static_cast<std::size_t>(index.row())].texte;
  }

 private:
  std::vector<LigneNue> lignes_;
};

}  // namespace

void Lancer(QSqlQuery &requete) {
  if (!requete.exec()) qFatal("%s", qPrintable(requete.lastError().text()));
}

BaseNue::BaseNue(const QString &chemin)
    : connexion_(QSqlDatabase::addDatabase(u"QSQLITE"_s, u"nue"_s)) {
  connexion_.setDatabaseName(chemin);
  if (!connexion_.open()) qFatal("%s", qPrintable(connexion_.lastError().text()));
}

BaseNue::~BaseNue() {
  connexion_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(u"nue"_s);
}

std::vector<LigneNue> BaseNue::Lister(const QString &categorie) const {
  QCollator ordre(QLocale(QLocale::French, QLocale::France));
  ordre.setCaseSensitivity(Qt::CaseInsensitive);
  const QString cherchee = u'*' + categorie + u'*';
  struct Triable {
    QCollatorSortKey cle;
    LigneNue ligne;
  };
  std::vector<Triable> triables;
  QSqlQuery requete = Preparer(
      uR"(SELECT "Index", "NomVelmira", "Categories", "DataProt" FROM "Adresse" ORDER BY "Index")"_s);
  Lancer(requete);
  while (requete.next()) {
    const qint64 index = requete.value(0).toLongLong();
    const QString nom = requete.value(1).toString().left(25).trimmed();
    const QString categories = requete.value(2).toString();
    if (!requete.value(3).toString().isEmpty()) continue;
    if (!categorie.isEmpty() && !categories.contains(cherchee)) continue;
    triables.push_back({ordre.sortKey(nom), {nom, index}});
  }
  std::stable_sort(triables.begin(), triables.end(),
                   [](const Triable &a, const Triable &b) { return a.cle < b.cle; });
  std::vector<LigneNue> lignes;
  lignes.reserve(triables.size());
  for (Triable &triable : triables) lignes.push_back(std::move(triable.ligne));
  return lignes;
}

QList<qint64> BaseNue::Chercher(const QString &texte) const {
  const QStringList mots = texte.split(u' ');
  const QString un =
      uR"(("NomVelmira" || ' ' || "Ligne1" || ' ' || "Ligne2" || ' ' || "Ligne3" || ' ' || "Ville" ||
        ' ' || "CodePostal" || ' ' || "Tel" || ' ' || "Portable" || ' ' || "Mail" || ' ' ||
        "Commentaires" || ' ' || "Categories" || ' ' || "DDN") LIKE ?)"_s;
  QSqlQuery requete = Preparer(uR"(SELECT "Index" FROM "Adresse" WHERE )"_s +
                               QStringList(mots.size(), un).join(u" AND "_s));
  for (const QString &mot : mots) requete.addBindValue(u'%' + mot + u'%');
  Lancer(requete);
  QList<qint64> trouves;
  while (requete.next()) trouves.append(requete.value(0).toLongLong());
  return trouves;
}

QStringList BaseNue::Categories() const {
  QSqlQuery requete =
      Preparer(uR"(SELECT DISTINCT "Categories" FROM "Adresse" WHERE "Categories"<>'')"_s);
  Lancer(requete);
  QStringList categories;
  while (requete.next())
    for (const QString &nom : requete.value(0).toString().split(u'*', Qt::SkipEmptyParts))
      if (!categories.contains(nom)) categories.append(nom);
  return categories;
}

void BaseNue::Renommer(const QString &ancienne, const QString &nouvelle) {
  Executer(u"BEGIN IMMEDIATE"_s);
  std::vector<std::pair<qint64, QString>> touchees;
  QSqlQuery lecture = Preparer(
      uR"(SELECT "Index", "Categories" FROM "Adresse" WHERE instr("Categories", ?) > 0)"_s);
  lecture.addBindValue(ancienne);
  Lancer(lecture);
  while (lecture.next())
    touchees.emplace_back(lecture.value(0).toLongLong(), lecture.value(1).toString());
  QSqlQuery ecriture = Preparer(uR"(UPDATE "Adresse" SET "Categories"=? WHERE "Index"=?)"_s);
  for (auto &[index, categories] : touchees) {
    ecriture.addBindValue(categories.replace(ancienne, nouvelle));
    ecriture.addBindValue(index);
    Lancer(ecriture);
  }
  Executer(u"COMMIT"_s);
}

void BaseNue::EcrireNom(qint64 index, const QString &nom) {
  Executer(u"BEGIN IMMEDIATE"_s);
  QSqlQuery ecriture = Preparer(uR"(UPDATE "Adresse" SET "NomVelmira"=? WHERE "Index"=?)"_s);
  ecriture.addBindValue(nom);
  ecriture.addBindValue(index);
  Lancer(ecriture);
  Executer(u"COMMIT"_s);
}

QSqlQuery BaseNue::Preparer(const QString &texte) const {
  QSqlQuery requete(connexion_);
  requete.setForwardOnly(true);
  if (!requete.prepare(texte)) qFatal("%s", qPrintable(requete.lastError().text()));
  return requete;
}

void BaseNue::Executer(const QString &texte) {
  QSqlQuery requete = Preparer(texte);
  Lancer(requete);
}

FenetreNue::FenetreNue(const BaseNue &base) : liste_(new QTreeView(this)) {
  liste_->setUniformRowHeights(true);
  liste_->setModel(new ModeleNu(base.Lister(), liste_));
  setCentralWidget(liste_);
  resize(900, 600);
}

FicheNue::FicheNue(const BaseNue &base)
    : base_(base), adresse_(new QLabel), notes_(new QPlainTextEdit) {
  auto *colonne = new QFormLayout(this);
  colonne->setSizeConstraint(QLayout::SetNoConstraint);
  for (const auto &nom : {u"Nom"_s, u"Naissance"_s, u"Domicile"_s, u"Travail"_s, u"Portable"_s,
                          u"Fax"_s, u"E-mail"_s, u"Site"_s})
    colonne->addRow(nom, etiquettes_.emplace_back(new QLabel));
  adresse_->setWordWrap(true);
  adresse_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  colonne->addRow(u"Adresse"_s, adresse_);
  colonne->addRow(u"Notes"_s, notes_);
  resize(620, 600);
}

void FicheNue::Montrer(qint64 index) {
  QSqlQuery requete = base_.Preparer(
      uR"(SELECT "NomVelmira", "DDN", "Tel", "TelTravail", "Portable", "Fax", "Mail", "Web",)"
      uR"( "Ligne1", "Ligne2", "Ligne3", "CodePostal" || ' - ' || "Ville", "Commentaires")"
      uR"( FROM "Adresse" WHERE "Index"=?)"_s);
  requete.addBindValue(index);
  Lancer(requete);
  if (!requete.next()) qFatal("the record is missing");
  int colonne = 0;
  for (QLabel *etiquette : etiquettes_) etiquette->setText(requete.value(colonne++).toString());
  QStringList adresse;
  for (int ligne = 0; ligne < 4; ++ligne) adresse.append(requete.value(colonne++).toString());
  adresse_->setText(adresse.join(u'\n'));
  notes_->setPlainText(requete.value(colonne).toString());
}

RechercheNue::RechercheNue(const BaseNue &base)
    : lignes_(base.Lister()),
      saisie_(new QLineEdit),
      liste_(new FenetreNue(base)),
      fiche_(new FicheNue(base)) {
  hauts_.reserve(lignes_.size());
  for (const LigneNue &ligne : lignes_) hauts_.push_back(ligne.texte.toUpper());
  liste_->setMenuWidget(saisie_);
  addWidget(liste_);
  addWidget(fiche_);
  resize(900, 600);
  connect(saisie_, &QLineEdit::textEdited, this, [this](const QString &debut) {
    const int ligne = Chercher(debut);
    if (ligne < 0) return;
    liste_->Liste().setCurrentIndex(liste_->Liste().model()->index(ligne, 0));
    fiche_->Montrer(lignes_[static_cast<std::size_t>(ligne)].index);
  });
}

int RechercheNue::Chercher(const QString &debut) const {
  const QString haut = debut.toUpper();
  const auto trouve = std::find_if(hauts_.begin(), hauts_.end(),
                                   [&](const QString &nom) { return nom.startsWith(haut); });
  return trouve == hauts_.end() ? -1 : static_cast<int>(trouve - hauts_.begin());
}

QStringList ChercherOctets(const QByteArray &fichier, const QByteArray &texte) {
  const auto minuscule = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  QStringList trouvees;
  for (auto debut = fichier.begin(); debut != fichier.end();) {
    const auto fin = std::find(debut, fichier.end(), '\n');
    if (std::search(debut, fin, texte.begin(), texte.end(),
                    [&](char a, char b) { return minuscule(a) == b; }) != fin) {
      const auto longueur = fin - debut - (fin != debut && *(fin - 1) == '\r' ? 1 : 0);
      trouvees.append(QString::fromLatin1(debut, longueur));
    }
    debut = fin == fichier.end() ? fin : fin + 1;
  }
  return trouvees;
}

bool EcrirePdfNu(const QString &chemin, const QStringList &expediteur, const QStringList &adresse) {
  QBuffer contenu;
  contenu.open(QIODevice::WriteOnly);
  {
    QPdfWriter pdf(&contenu);
    pdf.setResolution(1200);
    pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()));
    QPainter dessin(&pdf);
    const auto ecrire = [&](const QStringList &lignes, int points, double x, double y) {
      QFont font(u"Arial"_s);
      font.setPointSize(points);
      dessin.setFont(font);
      const QFontMetricsF mesures(font, &pdf);
      for (const QString &ligne : lignes) {
        dessin.drawText(QPointF(x, y), ligne);
        y += mesures.lineSpacing();
      }
    };
    ecrire(expediteur, 8, 100, 400);
    ecrire(adresse, 10, 4000, 2600);
  }
  QSaveFile fichier(chemin);
  return fichier.open(QIODevice::WriteOnly) &&
         fichier.write(contenu.data()) == contenu.data().size() && Terminer(fichier);
}

bool Terminer(QSaveFile &fichier) {
  if (!fichier.flush() || ::fsync(fichier.handle()) != 0 || !fichier.commit()) return false;
  const int dossier =
      ::open(QFile::encodeName(QFileInfo(fichier.fileName()).absolutePath()).constData(),
             O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool synchronise = dossier >= 0 && ::fsync(dossier) == 0;
  if (dossier >= 0) ::close(dossier);
  return synchronise;
}
