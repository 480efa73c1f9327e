#pragma once

#include "platform/Coquille.h"

/// The desktop's default programs, programs of their own, and the user's desktop folder, where a
/// link is an entry of the desktop. A program is started in its own folder and outlives this one.
class CoquilleSysteme : public Coquille {
 public:
  using Coquille::Lancer;
  bool Lancer(const QString &programme, const QStringList &arguments) override;
  bool PeutLancer(const QString &programme) const override;
  void RelancerProgramme() override;
  void ReglerSon() override;
  bool LienExiste(const QString &nom) const override;
  void CreerLien(const QString &nom, const QString &programme) override;

 protected:
  /// Takes what the desktop's launcher ends with. One that goes on has opened: where there is no
  /// desktop, it ends with the program that it has started.
  bool OuvrirSurLeBureau(const QString &document) override;
};
