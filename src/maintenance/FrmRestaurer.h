#pragma once

#include "maintenance/ModeleEcarts.h"
#include "session/Session.h"
#include "storage/Sauvegardes.h"
#include "ui/CompteRendu.h"
#include "ui/LectureACote.h"

#include <QDialog>

#include <functional>
#include <memory>

class QTreeWidgetItem;

namespace Ui {
class FrmRestaurer;
}

/// The copies of the base with what has changed since each of them, and their return into the base
/// at work: of the correspondents that are ticked, or of the whole. The base as it is gets a copy
/// of its own before. What the copies hold is read beside the window.
class FrmRestaurer : public QDialog {
  Q_OBJECT

 public:
  /// What the program does for it.
  struct Autour {
    std::function<void()> avant;  ///< before anything is written: what was typed is saved
    std::function<void()> apres;  ///< once it has been
    /// Closes the program and starts it anew, on a base that could not be opened before.
    std::function<void()> relancer;
    CompteRendu &fait;
  };

  FrmRestaurer(Session &session, Autour autour, QWidget *parent);
  ~FrmRestaurer() override;

 private:
  void Brancher();
  void Remplir();
  void Ajouter(const Sauvegarde &sauvegarde, const QString &date, const QString &motif);
  /// Counts the correspondents of one copy after the other.
  void CompterSuivante();
  void Choisir();
  void Comparer();
  void RecevoirEcarts();
  /// Runs a step of the comparison; a failure is shown in the place of the outcome.
  void Essayer(const std::function<void()> &etape);
  void Montrer(const Comparaison &comparaison);
  void MontrerSansBase();
  void MontrerPanne(const QString &panne);
  void MajBoutons();
  void ChoisirFichier();
  void ReprendreFiches();
  void RestaurerBase();
  /// Keeps a copy of the base, then runs a restoration on it beside the window, as a command of
  /// that name.
  template <typename Tache>
  auto Executer(const QString &nom, const Tache &tache);
  /// Puts the copy in the place of a base that cannot be opened, of which the file is kept.
  void RemplacerBase(const QString &chemin);
  void Conclure(const QString &fait);
  /// Whom the user may see.
  Visibilite Visible() const;
  /// The path of the one that is selected; empty for none.
  QString Choisie() const;

  Session &session_;
  Autour autour_;
  std::unique_ptr<Ui::FrmRestaurer> ui_;
  ModeleEcarts ecarts_;
  QString comparee_;      ///< of which the differences are shown, or being read
  bool entiere_ = false;  ///< they are shown, and the whole can be restored
  int comptee_ = 0;       ///< line of the one that is being counted
  LectureACote<qsizetype> compte_;
  LectureACote<Comparaison> comparaison_;
};
