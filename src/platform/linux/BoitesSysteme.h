#pragma once

#include "platform/Boites.h"

/// The toolkit's boxes and pickers, modal to the active window.
class BoitesSysteme : public Boites {
 public:
  void Message(Genre genre, const QString &titre, const QString &texte) override;
  Reponse Question(const QString &titre, const QString &texte, Reponse defaut) override;
  ReponseEnFrappe QuestionEnFrappe(const QString &titre, const QString &texte) override;
  std::optional<QString> Saisie(const QString &titre, const QString &invite,
                                const QString &defaut) override;
  bool Confirmation(const QString &titre, const QString &texte) override;
  Choix QuestionAnnulable(const QString &titre, const QString &texte) override;
  QString Fichier(const QString &invite, const QString &dossier, const QString &filtre) override;
  QStringList Fichiers(const QString &invite, const QString &dossier,
                       const QString &filtre) override;
  QString FichierAEcrire(const QString &invite, const QString &propose,
                         const QString &filtre) override;
  std::optional<Couleur> ChoixCouleur(const Couleur &depart) override;
  void Erreur(const QString &texte) override;
  QString Dossier(const QString &invite) override;
};
