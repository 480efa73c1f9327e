#pragma once
// Message boxes and pickers. Each call waits for the user's answer.

#include <QString>
#include <QStringList>

#include <optional>

class Boites {
 public:
  enum class Genre { Simple, Information, Attention, Critique };
  enum class Reponse { Oui, Non };
  enum class Choix { Oui, Non, Annuler };

  /// Red, green and blue, 0 to 255.
  struct Couleur {
    int rouge = 0, vert = 0, bleu = 0;
    friend bool operator==(const Couleur &, const Couleur &) = default;
  };

  virtual ~Boites() = default;

  /// A message with the one button OK. `Simple` has no icon.
  virtual void Message(Genre genre, const QString &titre, const QString &texte) = 0;

  /// Oui or Non; closing the box counts as Non. `defaut` is the button that Enter presses.
  virtual Reponse Question(const QString &titre, const QString &texte,
                           Reponse defaut = Reponse::Oui) = 0;

  struct ReponseEnFrappe {
    Reponse reponse = Reponse::Non;
    QString suite;  ///< what has been typed since the question was asked
  };
  /// The same in the middle of typing: what is typed answers nothing, with or without the box in
  /// front, and is handed back. Enter, Escape, Alt with a letter and the mouse answer.
  virtual ReponseEnFrappe QuestionEnFrappe(const QString &titre, const QString &texte) = 0;

  /// OK or Annuler; false for Annuler and for closing the box.
  virtual bool Confirmation(const QString &titre, const QString &texte) = 0;

  /// A line of text; `defaut` is proposed. Nothing when the user cancels; an empty one is an
  /// answer.
  virtual std::optional<QString> Saisie(const QString &titre, const QString &invite,
                                        const QString &defaut) = 0;

  /// Oui, Non or Annuler; closing the box counts as Annuler.
  virtual Choix QuestionAnnulable(const QString &titre, const QString &texte) = 0;

  /// A file that exists, picked from `dossier` on; `filtre` names the kinds of files as
  /// "Images (*.jpg *.bmp)". Empty when the user cancels.
  virtual QString Fichier(const QString &invite, const QString &dossier, const QString &filtre) = 0;
  /// The same of several; none when the user cancels.
  virtual QStringList Fichiers(const QString &invite, const QString &dossier,
                               const QString &filtre) = 0;

  /// A file to be written, `propose` at first; a name without an ending gets that of `propose`. Of
  /// one that exists the user has agreed to its end. Empty when he cancels.
  virtual QString FichierAEcrire(const QString &invite, const QString &propose,
                                 const QString &filtre) = 0;

  /// A colour; `depart` is the present one. Nothing when the user cancels.
  virtual std::optional<Couleur> ChoixCouleur(const Couleur &depart) = 0;

  /// The default error box: what failed, in the words of whatever failed.
  virtual void Erreur(const QString &texte) = 0;

  /// A folder of the file system without a trailing separator; empty when the user cancels.
  virtual QString Dossier(const QString &invite) = 0;

  void Information(const QString &texte) { Message(Genre::Information, Titre(), texte); }
  void Attention(const QString &texte) { Message(Genre::Attention, Titre(), texte); }
  void Critique(const QString &texte) { Message(Genre::Critique, Titre(), texte); }

  /// The title of a box that has none of its own.
  static QString Titre() { return QStringLiteral("Velmira"); }
};
