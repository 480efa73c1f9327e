#pragma once

#include "envelope/FormatsEnveloppe.h"
#include "envelope/MiseEnPage.h"

#include <QWidget>

class EtiquetteZone;
class QLabel;

/// The envelope in its true proportions, with its text zones where they are printed.
class VueEnveloppe : public QWidget {
  Q_OBJECT

 public:
  explicit VueEnveloppe(QWidget *parent = nullptr);

  EtiquetteZone *Adresse() const { return adresse_; }
  EtiquetteZone *Expediteur() const { return expediteur_; }
  QLabel *Commentaire() const { return commentaire_; }

  /// The format, and the top left corners of the zones on it.
  void Disposer(Millimetres largeur, Millimetres hauteur, Point adresse, Point expediteur);

  QSize sizeHint() const override { return {640, 360}; }
  QSize minimumSizeHint() const override { return {320, 200}; }

 protected:
  void resizeEvent(QResizeEvent *evenement) override;
  void paintEvent(QPaintEvent *evenement) override;

 private:
  void Placer();
  double Pixels(Millimetres longueur) const { return longueur.valeur * echelle_; }
  QPoint Pixels(Point point) const;

  EtiquetteZone *expediteur_;
  EtiquetteZone *adresse_;
  QLabel *commentaire_;  ///< tells that a comment is set
  Millimetres largeur_ = kLongueurDL, hauteur_ = kHauteurDL;
  Point origineAdresse_, origineExpediteur_;
  QRect papier_;
  double echelle_ = 1;  // pixels for a millimetre
};
