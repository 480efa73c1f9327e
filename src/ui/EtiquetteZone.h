#pragma once

#include "platform/Imprimante.h"

#include <QWidget>

/// A text zone of the envelope: lines of text in the font and alignment in which they are printed,
/// drawn at the scale of the picture that it lies on. What it holds is what is printed.
class EtiquetteZone : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString text READ text WRITE setText)
  Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)

 public:
  explicit EtiquetteZone(QWidget *parent = nullptr);

  /// Lines separated by line feeds.
  const QString &text() const { return texte_; }
  /// Each "*" starts a new line.
  void setText(const QString &texte);

  Qt::Alignment alignment() const { return alignement_; }
  void setAlignment(Qt::Alignment alignement);

  /// The font in points; `font()` gives it too.
  void ChangerPolice(const Police &police);

  /// Pixels of the picture for a millimetre of the envelope. The zone takes the size of its text.
  void ChangerEchelle(double pixelsParMillimetre);

  /// Where the paper is, in pixels of the zone; without it all is paper. What is written beyond it
  /// is shown in another ink.
  void ChangerPapier(const QRect &papier);

  QSize sizeHint() const override { return taille_; }

 protected:
  void paintEvent(QPaintEvent *evenement) override;

 private:
  void Mesurer();
  void Ecrire(QPainter &dessin, const QColor &encre) const;

  QString texte_;
  Qt::Alignment alignement_ = Qt::AlignLeft;
  Police police_{QStringLiteral("Arial"), 10, false, false};
  double echelle_ = 1;
  QSize taille_;
  QRect papier_;  ///< empty where all is paper
};
