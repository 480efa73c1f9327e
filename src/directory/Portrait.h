#pragma once

#include <QByteArray>
#include <QLabel>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

/// The picture of a correspondent, as large as the label's maximum size allows.
class Portrait : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  /// False when the file is no picture that can be read here; nothing is shown then. An empty path
  /// shows nothing, and is no failure.
  bool Montrer(const QString &chemin);
  /// The same of what such a file would hold.
  bool Montrer(const QByteArray &octets);

  /// Never, though its text may be broken: it would make a form that scrolls higher than it needs.
  bool hasHeightForWidth() const override { return false; }

 signals:
  /// Files or addresses have been dropped on it; only where the label accepts drops. Emitted once
  /// the drop is over.
  void Depose(const QList<QUrl> &adresses);

 protected:
  void showEvent(QShowEvent *evenement) override;
  void dragEnterEvent(QDragEnterEvent *evenement) override;
  void dropEvent(QDropEvent *evenement) override;

 private:
  /// The room for the picture, in pixels of the screen.
  QSize Cadre() const;
  void Dessiner();

  std::function<std::optional<QByteArray>()> lire_;  ///< the picture that is shown; null for none
  QSize cadre_;                                      ///< it was made for
};
