#include "player/Lecture.h"

#include "player/Echec.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextDocumentFragment>
#include <QTextEdit>

#include <algorithm>
#include <cstdlib>

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
  Exiger(controle.widget != nullptr, controle.Sinon(u"a widget"_s));
  return controle.widget;
}

/// The colours of a style sheet change with the state of the widget and are seen in its picture
/// alone: the ground is what most of it shows.
QColor FondPeint(const QImage &image) {
  QHash<QRgb, int> nombres;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) ++nombres[image.pixel(x, y)];
  const auto plus = std::max_element(nombres.cbegin(), nombres.cend());
  return plus == nombres.cend() ? QColor() : QColor(plus.key());
}

/// The colour of the text is the one that differs most from the ground.
QColor TextePeint(const QImage &image) {
  const QColor fond = FondPeint(image);
  QColor texte = fond;
  int ecart = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor point = image.pixelColor(x, y);
      const int autre = std::abs(point.red() - fond.red()) +
                        std::abs(point.green() - fond.green()) +
                        std::abs(point.blue() - fond.blue());
      if (autre <= ecart) continue;
      ecart = autre;
      texte = point;
    }
  return texte;
}

/// The middle of the widget as it is painted, without its frame.
QImage Milieu(QWidget *widget) {
  constexpr int kCadre = 6;
  return widget->grab(widget->rect().adjusted(kCadre, kCadre, -kCadre, -kCadre)).toImage();
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
  if (const auto *mois = controle.En<QCalendarWidget>())
    return mois->selectedDate().toString(u"dd/MM/yyyy"_s);
  if (const auto *menu = controle.En<QMenu>()) return SansMarque(menu->title());
  const QVariant texte = controle.widget->property("text");
  Exiger(texte.isValid(), controle.Sinon(u"what has a text"_s));
  return texte.toString();
}

bool EstVisible(const Controle &controle) {
  if (controle.action != nullptr) return controle.action->isVisible();
  if (controle.widget == controle.fenetre) return controle.fenetre->isVisible();
  if (const auto *menu = controle.En<QMenu>()) return menu->menuAction()->isVisible();
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
  Exiger(cochable, controle.Sinon(u"what can be ticked"_s));
  if (controle.action != nullptr) return controle.action->isChecked();
  return bouton != nullptr ? bouton->isChecked() : groupe->isChecked();
}

QFont PoliceDe(const Controle &controle) {
  return controle.action != nullptr ? controle.action->font() : controle.widget->font();
}

QColor CouleurTexte(const Controle &controle) {
  const QWidget *widget = Widget(controle);
  if (widget->testAttribute(Qt::WA_StyleSheet)) return TextePeint(Milieu(controle.widget));
  return widget->palette().color(widget->foregroundRole());
}

QColor CouleurFond(const Controle &controle) {
  const QWidget *widget = Widget(controle);
  if (widget->testAttribute(Qt::WA_StyleSheet)) return FondPeint(Milieu(controle.widget));
  return widget->palette().color(widget->backgroundRole());
}

QString AlignementDe(const Controle &controle) {
  const QVariant alignement = Widget(controle)->property("alignment");
  Exiger(alignement.isValid(), controle.Sinon(u"what has an alignment"_s));
  const auto valeur = alignement.value<Qt::Alignment>();
  if (valeur.testFlag(Qt::AlignRight)) return u"droite"_s;
  return valeur.testFlag(Qt::AlignHCenter) ? u"centre"_s : u"gauche"_s;
}
