#pragma once

#include "session/Session.h"
#include "storage/Sauvegardes.h"
#include "ui/LectureACote.h"

#include <QObject>

#include <memory>

/// The copy of each day: looked for some seconds after the start, and every hour in a program that
/// stays open; made beside the windows. A failure is told once a day, when no dialog is open; a
/// base that another program keeps busy is tried again.
class SauvegardeDuJour : public QObject {
  Q_OBJECT

 public:
  SauvegardeDuJour(Session &session, QObject *parent);

  /// Makes it where the day has none, in the folder that is chosen now.
  void Tenter();
  /// Whether it is being made.
  bool EnCours() const { return copie_.EnCours(); }

 private:
  void Planifier(std::chrono::milliseconds delai);
  void Recevoir();
  void Annoncer(const QString &panne);

  Session &session_;
  std::unique_ptr<QObject> attente_;  ///< of the next try: a new one dies with the one before
  LectureACote<SauvegardeFaite> copie_;
};
