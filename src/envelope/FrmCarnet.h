#pragma once

#include "address/ChaineAdresse.h"
#include "directory/Liste.h"
#include "envelope/SuiviTirage.h"
#include "session/Session.h"
#include "storage/Lignes.h"

#include <QDialog>
#include <QSet>

#include <memory>

class QListWidget;
class Repertoire;

namespace Ui {
class FrmCarnet;
}

/// The address book: an addressee picked from the directory by category and name, or several that
/// are ticked for a run of envelopes.
class FrmCarnet : public QDialog {
  Q_OBJECT

 public:
  enum class Mode { Un, Plusieurs };

  /// `categorie` is the index of the category chosen last, and is kept up.
  FrmCarnet(Session &session, Repertoire &repertoire, Mode mode, int &categorie, QWidget *parent);
  ~FrmCarnet() override;

  /// For a dialog for several: ticks all in a category, and in any that is chosen from here on;
  /// `montres` stand for it where it is none of the book's, but what a search has found.
  void CocherCategorie(const QString &categorie, const QList<NoeudListe> &montres);

  /// The address that was picked, once a dialog for one has been accepted.
  const AdresseComposee &Adresse() const { return adresse_; }
  /// Key of the chosen name, 0 for none.
  Cle Choisi() const;

  /// Who was ticked, in the order of the list, and what they are together: the category where all
  /// of it was ticked, else "sélection".
  const QList<Destinataire> &Destinataires() const { return destinataires_; }
  const QString &Titre() const { return titre_; }
  /// Where a whole category was ticked: who is in it and has no address.
  const QStringList &SansAdresse() const { return sansAdresse_; }

 public slots:
  /// The directory gets its selection back.
  void reject() override;

 protected:
  void showEvent(QShowEvent *evenement) override;

 private:
  void Brancher();
  void RemplirCategories();
  void ChoisirCategorie(int rang);
  void RemplirNoms();
  void CocherTout(Qt::CheckState etat);
  void Compter();
  void MontrerAdresse();
  void Ouvrir();
  void OuvrirPlusieurs();
  QStringList ChercherSansAdresse() const;
  void Modifier();
  void Supprimer();
  QListWidget *Noms() const;
  QSet<Cle> Coches() const;
  QString Categorie() const;

  Session &session_;
  Repertoire &repertoire_;
  Mode mode_;
  int &categorie_;
  std::unique_ptr<Ui::FrmCarnet> ui_;
  Cle selection_;  ///< of the directory when the book was opened
  AdresseComposee adresse_;
  QList<Destinataire> destinataires_;
  QString titre_;
  QStringList sansAdresse_;
  bool entieres_ = false;      ///< a category is ticked when it is chosen
  QList<NoeudListe> montres_;  ///< what the directory had found, until a category is chosen
};
