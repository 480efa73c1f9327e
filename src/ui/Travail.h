#pragma once

#include "storage/Avance.h"
#include "storage/Base.h"

#include <QString>

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

class QWidget;

/// A long work beside the windows: it runs in a thread of its own, and the command that needs its
/// outcome waits for it:
///
///     const auto octets = Travail(fenetre, u"Exportation"_s)
///         .Executer(session_.base, [](Base &base, const Avance &avance) {
///           return ExporterVelmiras(base, avance);
///         });
///
/// The windows go on painting and take no input: for half a second it is held back under the
/// hourglass, then `FrmAvancement` stands before them, which shows the progress and lets the user
/// stop.
class Travail {
 public:
  /// `titre` names the work.
  Travail(QWidget *fenetre, const QString &titre) : fenetre_(fenetre), titre_(titre) {}

  /// Gives what `tache` gives, and throws what it throws, once its thread has ended. `tache` gets a
  /// connection of its own to the file of `base`, closed where that one is closed, and what it
  /// tells its progress to. It touches neither a window nor what belongs to one. When the program
  /// ends meanwhile, it is asked to stop and waited for.
  template <typename Tache>
  auto Executer(const Base &base, const Tache &tache) const {
    return Executer([&, chemin = base.Chemin()](const Avance &avance) {
      Base connexion;
      connexion.Ouvrir(chemin);
      return tache(connexion, avance);
    });
  }

  /// The same of a work that needs no database.
  template <typename Tache>
  auto Executer(const Tache &tache) const {
    std::optional<std::invoke_result_t<Tache, const Avance &>> resultat;
    Lancer([&](const Avance &avance) { resultat.emplace(tache(avance)); });
    return std::move(*resultat);
  }

 private:
  void Lancer(const std::function<void(const Avance &)> &tache) const;

  QWidget *fenetre_;
  QString titre_;
};
