#include "platform/linux/BoitesSysteme.h"

#include "platform/linux/Frappe.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon Icone(Boites::Genre genre) {
  switch (genre) {
    case Boites::Genre::Information:
      return QMessageBox::Information;
    case Boites::Genre::Attention:
      return QMessageBox::Warning;
    case Boites::Genre::Critique:
      return QMessageBox::Critical;
    case Boites::Genre::Simple:
      break;
  }
  return QMessageBox::NoIcon;
}

/// Whether a box can stand before a window that is not active.
bool PeutPorter(const QWidget *fenetre) {
  return fenetre->isVisible() &&
         (fenetre->windowType() == Qt::Window || fenetre->windowType() == Qt::Dialog);
}

/// The window in front; behind a box that has just been closed none is active yet. One that has
/// been minimised would take its box along.
QWidget *Devant() {
  QWidget *devant = QApplication::activeWindow();
  if (devant == nullptr) devant = QApplication::activeModalWidget();
  if (devant == nullptr) {
    const auto fenetres = QApplication::topLevelWidgets();
    const auto trouvee = std::ranges::find_if(fenetres, PeutPorter);
    if (trouvee != fenetres.end()) devant = *trouvee;
  }
  return devant != nullptr && !devant->isMinimized() ? devant : nullptr;
}

/// No line begins with a sign that French sets apart by a blank, or ends behind an opening quote.
QString Insecable(QString texte) {
  static const QRegularExpression kBlanc(u" (?=[:;!?»])|(?<=«) "_s);
  return texte.replace(kBlanc, QString(QChar::Nbsp));
}

/// Makes a question with Oui and Non of a box.
void Interroger(QMessageBox &boite, Boites::Reponse defaut) {
  boite.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  boite.setDefaultButton(defaut == Boites::Reponse::Oui ? QMessageBox::Yes : QMessageBox::No);
  boite.setEscapeButton(QMessageBox::No);
}

/// The texts hold what users have typed: nothing in them is markup.
void Preparer(QMessageBox &boite) {
  boite.setTextFormat(Qt::PlainText);
  boite.setText(Insecable(boite.text()));
}

}  // namespace

void BoitesSysteme::Message(Genre genre, const QString &titre, const QString &texte) {
  QMessageBox boite(Icone(genre), titre, texte, QMessageBox::Ok, Devant());
  Preparer(boite);
  boite.exec();
}

Boites::Reponse BoitesSysteme::Question(const QString &titre, const QString &texte,
                                        Reponse defaut) {
  QMessageBox boite(QMessageBox::Question, titre, texte, {}, Devant());
  Preparer(boite);
  Interroger(boite, defaut);
  return boite.exec() == QMessageBox::Yes ? Reponse::Oui : Reponse::Non;
}

Boites::ReponseEnFrappe BoitesSysteme::QuestionEnFrappe(const QString &titre,
                                                        const QString &texte) {
  QMessageBox boite(QMessageBox::Question, titre, texte, {}, Devant());
  Preparer(boite);
  Interroger(boite, Reponse::Oui);
  // Of a modal box the window behind it would lose the keys that still come to it.
  boite.setModal(false);
  const Frappe frappe(boite);
  QEventLoop boucle;
  QObject::connect(&boite, &QDialog::finished, &boucle, &QEventLoop::quit);
  boite.show();
  boucle.exec();
  const bool oui = boite.result() == QMessageBox::Yes;
  return {oui ? Reponse::Oui : Reponse::Non, frappe.Texte()};
}

std::optional<QString> BoitesSysteme::Saisie(const QString &titre, const QString &invite,
                                             const QString &defaut) {
  bool validee = false;
  const QString texte =
      QInputDialog::getText(Devant(), titre, invite, QLineEdit::Normal, defaut, &validee);
  return validee ? std::optional(texte) : std::nullopt;
}

Boites::Choix BoitesSysteme::QuestionAnnulable(const QString &titre, const QString &texte) {
  QMessageBox boite(QMessageBox::Question, titre, texte,
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, Devant());
  Preparer(boite);
  boite.setDefaultButton(QMessageBox::Cancel);
  switch (boite.exec()) {
    case QMessageBox::Yes:
      return Choix::Oui;
    case QMessageBox::No:
      return Choix::Non;
    default:
      return Choix::Annuler;
  }
}

bool BoitesSysteme::Confirmation(const QString &titre, const QString &texte) {
  QMessageBox boite(QMessageBox::Question, titre, texte, QMessageBox::Ok | QMessageBox::Cancel,
                    Devant());
  Preparer(boite);
  return boite.exec() == QMessageBox::Ok;
}

QString BoitesSysteme::Fichier(const QString &invite, const QString &dossier,
                               const QString &filtre) {
  return QFileDialog::getOpenFileName(Devant(), invite, dossier, filtre);
}

QStringList BoitesSysteme::Fichiers(const QString &invite, const QString &dossier,
                                    const QString &filtre) {
  // Of a folder that is missing the toolkit would offer the name as that of a file.
  const QString depart = QFileInfo(dossier).isDir() ? dossier : QDir::homePath();
  return QFileDialog::getOpenFileNames(Devant(), invite, depart, filtre);
}

QString BoitesSysteme::FichierAEcrire(const QString &invite, const QString &propose,
                                      const QString &filtre) {
  const QFileInfo fichier(propose);
  QFileDialog dialogue(Devant(), invite, fichier.path(), filtre);
  dialogue.setAcceptMode(QFileDialog::AcceptSave);
  dialogue.setDefaultSuffix(fichier.suffix());
  dialogue.selectFile(fichier.fileName());
  return dialogue.exec() == QDialog::Accepted ? dialogue.selectedFiles().value(0) : QString();
}

std::optional<Boites::Couleur> BoitesSysteme::ChoixCouleur(const Couleur &depart) {
  const QColor choisie =
      QColorDialog::getColor(QColor(depart.rouge, depart.vert, depart.bleu), Devant());
  if (!choisie.isValid()) return std::nullopt;
  return Couleur{choisie.red(), choisie.green(), choisie.blue()};
}

void BoitesSysteme::Erreur(const QString &texte) {
  Message(Genre::Critique, Titre(), texte);
}

QString BoitesSysteme::Dossier(const QString &invite) {
  const QString choisi = QFileDialog::getExistingDirectory(Devant(), invite, QDir::homePath());
  return choisi.isEmpty() ? choisi : QDir::cleanPath(choisi);
}
