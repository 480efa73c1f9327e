#pragma once

#include "platform/Boites.h"

#include <QStringList>

/// Boxes that nobody sees: errors are noted, and nothing is agreed to.
class BoitesMuettes : public Boites {
 public:
  QStringList vues;

  void Message(Genre, const QString &, const QString &) override {}
  void Erreur(const QString &texte) override { vues.append(QStringLiteral("erreur : ") + texte); }
  Reponse Question(const QString &, const QString &, Reponse) override { return Reponse::Non; }
  ReponseEnFrappe QuestionEnFrappe(const QString &, const QString &) override { return {}; }
  bool Confirmation(const QString &, const QString &) override { return false; }
  std::optional<QString> Saisie(const QString &, const QString &, const QString &) override {
    return {};
  }
  Choix QuestionAnnulable(const QString &, const QString &) override { return Choix::Annuler; }
  QString Fichier(const QString &, const QString &, const QString &) override { return {}; }
  QStringList Fichiers(const QString &, const QString &, const QString &) override { return {}; }
  QString FichierAEcrire(const QString &, const QString &, const QString &) override { return {}; }
  std::optional<Couleur> ChoixCouleur(const Couleur &) override { return {}; }
  QString Dossier(const QString &) override { return {}; }
};
