#pragma once

#include "platform/Boites.h"

#include <QStringList>

#include <functional>

/// Boxes that nobody sees: each is noted as its first line, and none may ask.
class BoitesMuettes : public Boites {
 public:
  QStringList vues;
  QString dossier;                        ///< what a picker of folders gives
  std::function<void()> pendant = [] {};  ///< done while a box is shown

  void Message(Genre, const QString &, const QString &texte) override { Noter(texte); }
  void Erreur(const QString &texte) override { Noter(QStringLiteral("erreur : ") + texte); }
  Reponse Question(const QString &, const QString &texte, Reponse) override {
    Noter(QStringLiteral("question : ") + texte);
    return Reponse::Non;
  }
  bool Confirmation(const QString &, const QString &texte) override {
    Noter(QStringLiteral("confirmation : ") + texte);
    return false;
  }
  std::optional<QString> Saisie(const QString &, const QString &, const QString &) override {
    return std::nullopt;
  }
  Choix QuestionAnnulable(const QString &, const QString &) override { return Choix::Annuler; }
  QString Fichier(const QString &, const QString &, const QString &) override { return {}; }
  std::optional<Couleur> ChoixCouleur(const Couleur &) override { return std::nullopt; }
  QString Dossier(const QString &) override { return dossier; }

 private:
  void Noter(const QString &texte) {
    vues.append(texte.section(u'\n', 0, 0));
    const auto action = pendant;  // it may put another in its place
    action();
  }
};
