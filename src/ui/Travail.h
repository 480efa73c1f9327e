#pragma once

#include "platform/Abandons.h"
#include "storage/Avance.h"
#include "storage/Base.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <type_traits>
#include <utility>

class QWidget;
class TravailDeFond;

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
  /// Waits for a work and lets events pass, until it has ended or has been given up.
  using Attente = std::function<void(TravailDeFond &)>;

  /// `titre` names the work.
  Travail(QWidget *fenetre, const QString &titre) : fenetre_(fenetre), titre_(titre) {}

  /// A work that has a window of its own, which waits for it in the place of `FrmAvancement`.
  explicit Travail(Attente attente) : attente_(std::move(attente)) {}

  /// Gives what `tache` gives, and throws what it throws, once its thread has ended. `tache` gets a
  /// connection of its own to the file of `base`, closed where that one is closed, and what it
  /// tells its progress to. What it writes is a part of the command that is under way there. It
  /// touches neither a window nor what belongs to one. When the program ends meanwhile, it is asked
  /// to stop and waited for.
  template <typename Tache>
  auto Executer(const Base &base, const Tache &tache) const {
    return Executer([&, chemin = base.Chemin()](const Avance &avance) {
      Base connexion;
      connexion.Ouvrir(chemin);
      connexion.Joindre(base);
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

  /// The same of a work that may hang in the system, which `tache` is also given the wish to stop
  /// for. Who stops it is free half a second later: nothing where it does not obey, and it is left
  /// to its thread. So `tache` owns what it uses, but for what stays as long as `abandons` counts.
  template <typename Tache>
  auto ExecuterOuLaisser(const Abandons &abandons, const Tache &tache) const {
    using Resultat = std::invoke_result_t<Tache, const Avance &, const std::stop_token &>;
    const auto resultat = std::make_shared<std::optional<Resultat>>();
    const bool fini = LancerOuLaisser(
        abandons, [resultat, tache](const Avance &avance, const std::stop_token &arret) {
          resultat->emplace(tache(avance, arret));
        });
    return fini ? std::move(*resultat) : std::nullopt;
  }

 private:
  using Tache = std::function<void(const Avance &, const std::stop_token &)>;
  void Lancer(const std::function<void(const Avance &)> &tache) const;
  bool LancerOuLaisser(const Abandons &abandons, const Tache &tache) const;

  QWidget *fenetre_ = nullptr;
  QString titre_;
  Attente attente_;
};
