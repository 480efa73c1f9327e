#pragma once

#include "session/Session.h"
#include "storage/SourceJet.h"

#include <QObject>

#include <functional>
#include <memory>

class QAction;
class QWidget;

/// The commands of the menu "Options" that concern the database as a whole: the form of the
/// telephone numbers, the folder, the copy to another folder, repair and recovery by companions.
class CommandesBase : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuLiaison, *mnuChemin, *mnuTransfert, *mnuRepComp, *mnuRecup;
  };

  /// What the directory window and the program give to the commands.
  struct Programme {
    std::function<void()> afficherRacine;  ///< selects the first node of the tree and clicks it
    /// Closes the program as its close box does, and then does what it is given; when the closing
    /// fails, that is told and nothing follows.
    std::function<void(std::function<void()>)> fermerPuis;
    std::function<bool()> enregistrer;  ///< writes what a closing writes; false: it is refused
    std::function<void()> terminer;     ///< ends the program at once; nothing more is written
  };

  CommandesBase(Session &session, const Actions &actions, Programme programme, QWidget *fenetre);

  /// Starts the companion that repairs the base, which is closed by now. Throws `ErreurFichier`
  /// where it cannot be started; so does the first, before anything is closed.
  static void ExigerReparation(const Session &session);
  static void LancerReparation(const Session &session);

 private:
  void ChangerLiaison();
  void ChangerChemin();
  void Transferer();
  void Reparer();
  void Recuperer();

  void EnregistrerLiaison(const QString &separateur);
  /// After a rewriting that was not done: the numbers bear the old separator still. Never throws.
  void RendreLiaison(const QString &ancien);
  /// Gives all numbers the new separator. False when the user has stopped it, and throws when it
  /// fails: none has changed then.
  bool Reformater(const QString &ancien, const QString &separateur);

  /// One choice of the folder; false when it has to be made again.
  bool ChoisirChemin();
  /// Makes a data folder where the user wants it, and records it. False when none is wanted.
  bool CreerDossierBase();
  /// Records the local folder for want of a choice. False when the choice is to be made again.
  bool Renoncer();
  /// Throws `ErreurFichier` for a path that cannot be stored too.
  void EnregistrerChemin(const QString &chemin);
  /// A data folder for the copy; empty, with the message that says so, when the procedure ends.
  QString DossierATransferer(const QString &invite);
  /// Copies the database of one folder over that of another. False when that fails, which has been
  /// told.
  bool Copier(const QString &source, const QString &destination);
  /// Reads an older database in the Jet format. Nothing when the user does without what is damaged.
  std::unique_ptr<SourceJet> LireJet(const QString &base);
  /// Puts a database into the place of another, with this program's own one closed meanwhile; `jet`
  /// where it was read as an older one. Throws what `TransfererBase` throws.
  void Remplacer(const QString &base, SourceJet *jet, const QString &destination);
  bool Accepte(const QString &question, Boites::Reponse defaut = Boites::Reponse::Oui);

  Session &session_;
  Programme programme_;
  QWidget *fenetre_;
};
