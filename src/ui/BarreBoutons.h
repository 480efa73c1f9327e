#pragma once

#include <QList>
#include <QToolButton>
#include <QWidget>

/// One button of a bar.
struct DescriptionBouton {
  const char16_t *icone;     ///< freedesktop name
  const char16_t *texte;     ///< what it does; its accessible name
  bool actif;                ///< its command exists
  bool finDeGroupe = false;  ///< a gap follows
};

/// A row of image buttons, addressed by index.
class BarreBoutons : public QWidget {
  Q_OBJECT

 public:
  explicit BarreBoutons(QWidget *parent = nullptr);

  /// Makes the buttons, named `nom` + "_" + index. With `legendes` each bears its text.
  void Remplir(const QString &nom, const QList<DescriptionBouton> &descriptions, bool legendes);

  QToolButton *Bouton(int index) const { return boutons_.at(index); }

 signals:
  void Clique(int index);
  /// The mouse or the focus is on a button; -1 when it has left them.
  void Survole(int index);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QList<QToolButton *> boutons_;
};
