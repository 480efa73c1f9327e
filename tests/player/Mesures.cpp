#include "player/Mesures.h"

#include "ui/Echelle.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t kFenetre[] = u", window", kPolice[] = u", font";

bool EstSurPapier(const QWidget *widget) {
  for (; widget != nullptr; widget = widget->parentWidget())
    if (widget->property("enMillimetres").toBool()) return true;
  return false;
}

/// Of the form or of the code, not of the inside of a control of the toolkit.
bool Compte(const QWidget &widget, const QWidget &fenetre) {
  return widget.window() == &fenetre && !widget.objectName().isEmpty() &&
         !widget.objectName().startsWith(u"qt_"_s) && !EstSurPapier(&widget) &&
         qobject_cast<const QMenuBar *>(&widget) == nullptr;
}

void MesurerControle(const QString &lui, const QWidget &widget, Mesures &mesures) {
  const auto noter = [&](const char16_t *quoi, int longueur) {
    if (longueur > 0 && longueur < QWIDGETSIZE_MAX)
      mesures[lui + QString::fromUtf16(quoi)] = longueur;
  };
  mesures[lui + QString::fromUtf16(kPolice)] = widget.font().pointSizeF();
  noter(u", smallest width", widget.minimumWidth());
  noter(u", smallest height", widget.minimumHeight());
  noter(u", largest width", widget.maximumWidth());
  noter(u", largest height", widget.maximumHeight());
  if (const auto *bouton = qobject_cast<const QAbstractButton *>(&widget))
    noter(u", icon", bouton->iconSize().height());
  if (const auto *etiquette = qobject_cast<const QLabel *>(&widget))
    noter(u", picture", etiquette->pixmap(Qt::ReturnByValue).height());
  if (const QLayout *disposition = widget.layout()) {
    noter(u", gap", disposition->spacing());
    noter(u", margin", disposition->contentsMargins().left());
  }
}

/// A window that is as large as what it holds is not exactly so many times as large: boxes and
/// frames are the style's. Letters grow in whole pixels where their font is hinted.
bool EstBonne(const QString &quoi, double dessin, double agrandie, double echelle) {
  if (quoi.endsWith(kFenetre))
    return agrandie >= dessin * (1 + (echelle - 1) * 0.6) && agrandie <= dessin * echelle * 1.1;
  if (quoi.endsWith(kPolice))
    return std::abs(agrandie - PointsAEchelle(dessin, echelle)) <= 1;  // lists have whole points
  const double voulue = dessin * echelle;
  return std::abs(agrandie - voulue) <= 1 + voulue * 0.1;  // where it is a text's
}

}  // namespace

void Mesurer(const QString &nom, const QWidget &fenetre, Mesures &mesures) {
  if (EstSurPapier(&fenetre)) return;
  const QString elle = nom + u": "_s + fenetre.objectName();
  bool papier = false;
  for (const QWidget *widget : fenetre.findChildren<QWidget *>()) {
    papier |= EstSurPapier(widget);
    if (Compte(*widget, fenetre))
      MesurerControle(elle + u'/' + widget->objectName(), *widget, mesures);
  }
  if (papier) return;  // which makes a part of its size
  mesures[elle + u" width"_s + QString::fromUtf16(kFenetre)] = fenetre.width();
  mesures[elle + u" height"_s + QString::fromUtf16(kFenetre)] = fenetre.height();
}

QStringList MalAEchelle(const Mesures &dessin, const Mesures &agrandie, double echelle) {
  QStringList fautes;
  for (const auto &[quoi, taille] : dessin.asKeyValueRange()) {
    const double trouvee = agrandie.value(quoi, -1);
    if (!EstBonne(quoi, taille, trouvee, echelle))
      fautes.append(u"%1: %2 expected, %3 found"_s.arg(quoi).arg(taille * echelle).arg(trouvee));
  }
  fautes.sort();
  return fautes;
}
