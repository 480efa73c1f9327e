#pragma once

#include <QObject>
#include <QString>

class QKeyEvent;
class QWidget;

/// Holds the keyboard and the mouse of the program to a box, as long as both live: what is typed,
/// in whichever window, is gathered and answers nothing; the other windows get neither keys nor
/// clicks. Another box that comes in front meanwhile is let alone.
class Frappe : public QObject {
 public:
  explicit Frappe(const QWidget &boite);

  /// What has been typed, and not been taken back.
  const QString &Texte() const { return texte_; }

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  bool EstDeLaBoite(const QObject &objet) const;
  bool Prendre(const QKeyEvent &touche);

  const QWidget &boite_;
  QString texte_;
};
