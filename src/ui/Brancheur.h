#pragma once

#include "ui/Garde.h"

#include <QAbstractButton>
#include <QAction>

#include <functional>
#include <type_traits>

/// Connects what the user sets off to the commands of one object, each of them guarded (`Garde`),
/// for as long as that object lives:
///
///     const Brancheur brancher(boites, this);
///     brancher(ui_->CmdQuitter, &FrmCP::Prendre);
///     brancher(ui_->mnuMasquer, [this](bool masquer) { Masquer(masquer); });
///     brancher(ui_->CboCat, &QComboBox::activated, [this](int rang) { Choisir(rang); });
///
/// A command is a function object or a method of the object. It takes all that the signal gives, or
/// nothing.
template <typename Contexte>
class Brancheur {
 public:
  Brancheur(Boites &boites, Contexte *contexte) : boites_(boites), contexte_(contexte) {}

  template <typename Commande>
  void operator()(const QAction *action, Commande commande) const {
    (*this)(action, &QAction::triggered, commande);
  }

  template <typename Commande>
  void operator()(const QAbstractButton *bouton, Commande commande) const {
    (*this)(bouton, &QAbstractButton::clicked, commande);
  }

  template <typename Emetteur, typename Signal, typename Commande>
  void operator()(const Emetteur *emetteur, Signal signal, Commande commande) const {
    QObject::connect(emetteur, signal, contexte_,
                     Garde(boites_, [liee = Liee(commande)](const auto &...valeurs) {
                       Appeler(liee, valeurs...);
                     }));
  }

 private:
  /// A method with its object.
  template <typename Commande>
  auto Liee(Commande commande) const {
    if constexpr (std::is_member_function_pointer_v<Commande>)
      return std::bind_front(commande, contexte_);
    else
      return commande;
  }

  template <typename Commande, typename... Valeurs>
  static void Appeler(const Commande &commande, const Valeurs &...valeurs) {
    if constexpr (std::is_invocable_v<const Commande &, const Valeurs &...>)
      commande(valeurs...);
    else
      commande();
  }

  Boites &boites_;
  Contexte *contexte_;
};
