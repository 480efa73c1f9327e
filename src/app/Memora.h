#pragma once
// One run of the sticky notes.

#include "alerts/NotesMemora.h"
#include "platform/Boites.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <map>
#include <memory>

class FrmNote;

class Memora : public QObject {
  Q_OBJECT

 public:
  /// Reads the notes. Throws `ErreurFichier`.
  Memora(Boites &boites, const QString &appPath);
  ~Memora() override;

  /// Shows what was shown before, and nothing else; `toutes` shows every note, a new one where
  /// there is none.
  void Commencer(bool toutes);

 signals:
  void Termine();

 protected:
  /// The end of the session would close the notes one by one, and so hide them.
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void FaireMenu();
  void FaireMenuCouleurs();
  void FaireMenuTailles();
  QAction *Ajouter(const QString &nom, const QString &texte, void (Memora::*commande)());
  /// The menu of the icon and of the notes speaks of the note that was at the front last.
  void MajMenu();
  void Ouvrir(const NoteMemora &note);
  void MontrerMenu(int numero, QPoint place, QMenu *texte);

  void Nouvelle();
  void Masquer();
  void MasquerNote(int numero);
  void ToutMontrer();
  void AutreCouleur();
  void Supprimer();
  void Rendre();
  void Quitter();

  /// Puts a note into the file. A failure is told once, until one succeeds.
  void Garder(const NoteMemora &note);
  /// Without an icon nobody could bring hidden notes back.
  void FinirSiInvisible();
  /// Null where there is none.
  FrmNote *Active() const;

  Boites &boites_;
  NotesMemora notes_;
  std::map<int, std::unique_ptr<FrmNote>> fenetres_;
  int active_ = 0;
  bool echecDit_ = false;
  QMenu menu_;
  QMenu *couleurs_ = nullptr, *tailles_ = nullptr;
  QAction *mnuNouveau_ = nullptr, *mnuMasquer_ = nullptr, *mnuSupprimer_ = nullptr,
          *mnuRendre_ = nullptr;
  QSystemTrayIcon icone_;
};
