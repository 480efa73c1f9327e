#include "player/Lecture.h"

#include "player/Echec.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextDocumentFragment>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

QString SansMarque(const QString &texte) {
  QString sans;
  for (qsizetype i = 0; i < texte.size(); ++i) {
    if (texte[i] == u'&' && ++i == texte.size()) break;
    sans += texte[i];
  }
  return sans;
}

QString TexteEtiquette(const QLabel &etiquette) {
  const QString texte = etiquette.text();
  const bool riche = etiquette.textFormat() == Qt::RichText ||
                     (etiquette.textFormat() == Qt::AutoText && Qt::mightBeRichText(texte));
  if (riche) return QTextDocumentFragment::fromHtml(texte).toPlainText();
  return etiquette.buddy() != nullptr ? SansMarque(texte) : texte;
}

const QWidget *Widget(const Controle &controle) {
  Exiger(controle.widget != nullptr, u"%1 is a menu item"_s.arg(controle.nom));
  return controle.widget;
}

}  // namespace

QString Texte(const Controle &controle) {
  if (controle.action != nullptr) return SansMarque(controle.action->text());
  if (controle.widget == controle.fenetre) return controle.fenetre->windowTitle();
  if (const auto *etiquette = controle.En<QLabel>()) return TexteEtiquette(*etiquette);
  if (const auto *bouton = controle.En<QAbstractButton>()) return SansMarque(bouton->text());
  if (const auto *champ = controle.En<QLineEdit>()) return champ->text();
  if (const auto *combo = controle.En<QComboBox>()) return combo->currentText();
  if (const auto *notes = controle.En<QPlainTextEdit>()) return notes->toPlainText();
  if (const auto *notes = controle.En<QTextEdit>()) return notes->toPlainText();
  if (const auto *groupe = controle.En<QGroupBox>()) return SansMarque(groupe->title());
  if (const auto *menu = controle.En<QMenu>()) return SansMarque(menu->title());
  const QVariant texte = controle.widget->property("text");
  Exiger(texte.isValid(), u"%1 has no text"_s.arg(controle.nom));
  return texte.toString();
}

bool EstVisible(const Controle &controle) {
  if (controle.action != nullptr) return controle.action->isVisible();
  if (controle.widget == controle.fenetre) return controle.fenetre->isVisible();
  return controle.widget->isVisibleTo(controle.fenetre);
}

bool EstActif(const Controle &controle) {
  return controle.action != nullptr ? controle.action->isEnabled() : controle.widget->isEnabled();
}

bool EstCoche(const Controle &controle) {
  const auto *bouton = controle.En<QAbstractButton>();
  const auto *groupe = controle.En<QGroupBox>();
  const bool cochable = (controle.action != nullptr && controle.action->isCheckable()) ||
                        (bouton != nullptr && bouton->isCheckable()) ||
                        (groupe != nullptr && groupe->isCheckable());
  Exiger(cochable, u"%1 cannot be ticked"_s.arg(controle.nom));
  if (controle.action != nullptr) return controle.action->isChecked();
  return bouton != nullptr ? bouton->isChecked() : groupe->isChecked();
}

QFont PoliceDe(const Controle &controle) {
  return controle.action != nullptr ? controle.action->font() : controle.widget->font();
}

QColor CouleurTexte(const Controle &controle) {
  const QWidget *widget = Widget(controle);
  return widget->palette().color(widget->foregroundRole());
}

QColor CouleurFond(const Controle &controle) {
  const QWidget *widget = Widget(controle);
  return widget->palette().color(widget->backgroundRole());
}

QString Alignement(const Controle &controle) {
  const QVariant alignement = Widget(controle)->property("alignment");
  Exiger(alignement.isValid(), u"%1 has no alignment"_s.arg(controle.nom));
  const auto valeur = alignement.value<Qt::Alignment>();
  if (valeur.testFlag(Qt::AlignRight)) return u"droite"_s;
  return valeur.testFlag(Qt::AlignHCenter) ? u"centre"_s : u"gauche"_s;
}
