#include "directory/Portrait.h"

#include "directory/FichierPhoto.h"

#include <QBuffer>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImageReader>
#include <QMimeData>

namespace {

/// A picture that fits a frame; none for what is no picture.
QImage LireImage(std::optional<QByteArray> octets, const QSize &cadre) {
  if (!octets) return {};
  QBuffer contenu(&*octets);
  QImageReader lecteur(&contenu);
  lecteur.setAutoTransform(true);
  // Where the format allows it, no more is decoded than is shown.
  if (const QSize entiere = lecteur.size(); entiere.isValid())
    lecteur.setScaledSize(entiere.scaled(cadre, Qt::KeepAspectRatio).expandedTo({1, 1}));
  const QImage image = lecteur.read();
  return image.isNull() ? image
                        : image.scaled(cadre, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

QSize Portrait::Cadre() const {
  return (maximumSize() - 2 * QSize(frameWidth(), frameWidth())) * devicePixelRatioF();
}

bool Portrait::Montrer(const QString &chemin) {
  lire_ = nullptr;
  if (!chemin.isEmpty()) lire_ = [chemin] { return LirePhoto(chemin); };
  Dessiner();
  return chemin.isEmpty() || lire_;
}

bool Portrait::Montrer(const QByteArray &octets) {
  lire_ = [octets] { return octets; };
  Dessiner();
  return bool(lire_);
}

void Portrait::Dessiner() {
  cadre_ = Cadre();
  QImage image;
  if (lire_) image = LireImage(lire_(), cadre_);
  if (image.isNull()) lire_ = nullptr;
  image.setDevicePixelRatio(devicePixelRatioF());
  setPixmap(QPixmap::fromImage(image));
}

void Portrait::showEvent(QShowEvent *evenement) {
  QLabel::showEvent(evenement);
  // The window has been scaled since.
  if (lire_ && cadre_ != Cadre()) Dessiner();
}

void Portrait::dragEnterEvent(QDragEnterEvent *evenement) {
  if (!evenement->mimeData()->hasUrls()) return;
  evenement->setDropAction(Qt::CopyAction);
  evenement->accept();
}

void Portrait::dropEvent(QDropEvent *evenement) {
  evenement->setDropAction(Qt::CopyAction);
  evenement->accept();
  // Later: a box now would hold up the program that the picture comes from.
  QMetaObject::invokeMethod(
      this, [this, adresses = evenement->mimeData()->urls()] { emit Depose(adresses); },
      Qt::QueuedConnection);
}
