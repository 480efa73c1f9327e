#pragma once

#include "platform/Plateforme.h"

#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>

class EtiquetteElidee;
class EtiquetteLien;

/// The line at the foot of a window that says quietly what its last command has done, with a link
/// to what has come of it. It stays until the next command of the window, a minute at most.
class CompteRendu : public QWidget {
  Q_OBJECT

 public:
  /// What a line leads to.
  struct Lien {
    QString texte;                        ///< what a click does, for the user
    QString document;                     ///< a file, a folder or an address that the desktop opens
    std::function<void()> commande = {};  ///< done instead
  };
  /// The link to the folder that holds a file.
  static Lien AuDossier(const QString &fichier);

  explicit CompteRendu(QWidget *parent = nullptr);

  /// Before the first line, and before the commands of `fenetre` are connected: each item of its
  /// menus and each button of its bars ends the line, and may say its own after that.
  void Relier(const Plateforme &plateforme, QWidget &fenetre);

  /// The names of its two labels, where the window has another one.
  void Nommer(const QString &texte, const QString &lien);

  /// Shows a line in the place of the last one, and has it read out where the desktop reads. What
  /// does not fit is cut in its middle, the link never.
  void Dire(const QString &texte, const Lien &lien,
            std::chrono::milliseconds duree = std::chrono::minutes(1));
  void Dire(const QString &texte) { Dire(texte, {}); }
  void Effacer();

 signals:
  /// It says something, or nothing any more.
  void Dit(bool quelqueChose);

 private:
  EtiquetteElidee *texte_;
  EtiquetteLien *lien_;
  const Plateforme *plateforme_ = nullptr;
  Lien suite_;
  std::unique_ptr<QObject> duree_;  ///< of the line: its end dies with it
};
