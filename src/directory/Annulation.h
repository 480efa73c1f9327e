#pragma once

#include "session/Session.h"
#include "storage/Historique.h"

#include <QKeySequence>
#include <QObject>

#include <functional>

class CompteRendu;
class QAction;
class QWidget;

/// The two commands of a window that take the user's last command back and do it again, with their
/// keys. A text field that has something to take back itself keeps the key.
class Annulation : public QObject {
  Q_OBJECT

 public:
  /// What the window gives to the commands.
  struct Fenetre {
    QWidget *fenetre;
    std::function<bool()> avant = {};  ///< what was typed is written; false: not now
    /// Shows what the table has now; the key is that of the one correspondent that has come back or
    /// changed, 0 for none and several.
    std::function<void(Cle)> apres = {};
    CompteRendu *fait = nullptr;  ///< says what was done; null: one is laid at the foot
  };

  /// Once the window has its fields, and its line is ready; it has a layout where it has no line.
  Annulation(Session &session, Fenetre fenetre);

  QAction *mnuAnnuler() const { return annuler_; }
  QAction *mnuRetablir() const { return retablir_; }

  /// Takes back, or does again, what is next. What others have changed since is left out, and told.
  void Reprendre(Historique::Sens sens);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QAction *FaireAction(const QString &nom, const QKeySequence &touche, Historique::Sens sens);
  /// The items say what they would do.
  void Accorder();
  void DireTropGrande();
  void Dire(Historique::Sens sens, const Reprise &reprise);
  QString Nommer(const Laissee &laissee) const;

  Session &session_;
  Fenetre fenetre_;
  CompteRendu &fait_;
  QAction *annuler_;
  QAction *retablir_;
};
