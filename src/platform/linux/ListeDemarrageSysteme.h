#pragma once

#include "platform/ListeDemarrage.h"

/// The user's autostart folder: an entry is a file "Velmira-NAME.desktop".
class ListeDemarrageSysteme : public ListeDemarrage {
 public:
  void Ajouter(const QString &nom, const QString &programme, const QString &argument) override;
  void Retirer(const QString &nom) override;
};
