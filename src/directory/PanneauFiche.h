#pragma once

#include "storage/Lignes.h"

#include <QWidget>

#include <array>
#include <memory>
#include <optional>

class QAction;
class QToolButton;

namespace Ui {
class PanneauFiche;
}

/// The record on display: what the record says, and nothing where it says nothing. Each thing has
/// its place for every record; where the panel is narrow the address stands under the numbers.
class PanneauFiche : public QWidget {
  Q_OBJECT

 public:
  /// What the settings and the rules make of a record.
  struct Affichage {
    QString age;      ///< age, birth date or nothing
    QString avenir;   ///< the next birthday or nothing
    QString fete;     ///< the name day or nothing
    QString adresse;  ///< lines as on the envelope
    Qt::Alignment alignementAdresse = Qt::AlignLeft;
  };

  explicit PanneauFiche(QWidget *parent = nullptr);
  ~PanneauFiche() override;

  /// What is said while no record is on display.
  enum class Invitation { Rien, Choisir, Commencer };
  /// Whether it is another one than before.
  bool Inviter(Invitation invitation);
  /// The focus goes to the first thing to do in an empty directory.
  void ViserPremier();

  void Vider();
  /// All but the notes and the portrait.
  void Montrer(const Correspondant &fiche, const Affichage &affichage);
  /// Gives false when the file is no picture; the frame is then empty. An empty path is no failure.
  bool MontrerPhoto(const QString &chemin);
  /// The same of what the picture's file would hold.
  bool MontrerPhoto(const QByteArray &octets);
  /// Says in the place of the portrait that it cannot be read; until the next one is shown.
  void AnnoncerPhotoAbsente(const QString &chemin);

  /// The imported address is shown in the place of the address.
  void MontrerAdresseImportee(bool importee);
  void MettreAdresseEnGras(bool gras);
  /// Size in points of the notes' font.
  void ChangerTaillePolice(int points);
  /// A record that is only looked at: nothing of it is a link, and its notes take no typing.
  void MettreEnLecture();
  /// Whether the numbers have their dial buttons.
  void ActiverNumerotation(bool active);

  /// Opens the notes for entry.
  void MontrerNotes(const QString &notes);
  /// To the letter where they have not been changed.
  QString Notes() const;
  /// Something has been typed into the notes since they were shown or last taken.
  bool NotesModifiees() const;
  void NotesPrises();
  void PrendreFocusNotes();

  /// Copies the address that is shown; of use only while there is one. It acts by its keys
  /// wherever the focus is in the window.
  QAction *ActionCopierAdresse() const;

 signals:
  void NotesQuittees();
  /// A dial button beside a number.
  void AppelDemande(const QString &numero);
  void CourrielDemande(const QString &adresse);
  void SiteDemande(const QString &adresse);
  /// A category of the record.
  void CategorieDemandee(const QString &categorie);
  /// What an empty directory begins with.
  void PremierDemande();
  void ImportDemande();

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;
  void changeEvent(QEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;

 private:
  void Brancher();
  void PreparerAccueil();
  void Colorier();
  void ColorierNumeros();
  void MontrerCategories(const QString &categories);
  /// Of a portrait that could be read, or not.
  bool MontrerPortrait(bool lue, bool vide);
  void CopierAdresse();
  /// Hides what is empty.
  void MajAffichage();
  void MajAccueil();
  /// What the numbers, the links need to be read whole.
  int LargeurNumeros() const;
  int LargeurLiens() const;
  /// Gives the parts of the record their places: wide, the address stands beside the numbers;
  /// narrow, it stands under them; tight, the portrait has only the dates beside it.
  void Disposer();

  std::unique_ptr<Ui::PanneauFiche> ui_;
  std::array<QToolButton *, 3> cmdTel_{};
  Invitation invitation_ = Invitation::Rien;
  bool montree_ = false;  ///< a record is on display
  enum class Disposition { Large, Etroite, Serree };
  std::optional<Disposition> disposition_;
  bool rougeTel_ = false, rougeTravail_ = false;
  bool adresseImportee_ = false;
  bool numerotation_ = false;
  bool lecture_ = false;
};
