#pragma once

#include "address/MiseEnLignes.h"
#include "envelope/EtatEnveloppe.h"
#include "envelope/MiseEnPage.h"
#include "session/Session.h"
#include "storage/Historique.h"
#include "storage/Lignes.h"

class VueEnveloppe;

/// The two text zones of the envelope window, and the addresses that stand in them.
class ZonesEnveloppe {
 public:
  ZonesEnveloppe(Session &session, EtatEnveloppe &etat, VueEnveloppe *vue)
      : session_(session), etat_(etat), vue_(vue) {}

  const EtatEnveloppe &Etat() const { return etat_; }
  /// Format, sender and comment are those of another time; what is prepared stays.
  void Prendre(const EtatEnveloppe &etat);

  /// The address becomes the current one; an empty one leaves the zone in its empty state. `fiche`
  /// is the key of the correspondent whom it was read of; 0 for an address that is nobody's.
  void EcrireAdresse(const AdresseComposee &adresse, Cle fiche = 0);
  /// Reads that correspondent again, and shows the address where it has changed. Whoever has been
  /// deleted or hidden meanwhile leaves it as it is. Throws `ErreurBase`.
  void Actualiser();
  /// The zone takes lines that have been formatted before: an envelope of a run.
  void EcrireLignesAdresse(const LignesAdresse &lignes);
  /// The empty state: a zone that holds it prints nothing.
  void ViderAdresse();

  /// What the address zone shows, to be shown again after others.
  struct AdresseMontree {
    LignesAdresse lignes;
    Cle fiche = 0;  ///< the correspondent whom it was read of
  };
  const AdresseMontree &Montree() const { return montree_; }
  void Remontrer(const AdresseMontree &montree);
  bool EstVide() const;

  /// A comment was meant for the address before.
  void OublierCommentaire() { etat_.Commentaire.clear(); }

  /// The sender becomes the current one, and is shown unless none is ever printed. `cle` is the key
  /// of its row, 0 for none.
  void EcrireExpediteur(const AdresseComposee &expediteur, Cle cle);
  /// The sender becomes the current one; what the zone shows stays until it is formatted anew.
  void RetenirExpediteur(const AdresseComposee &expediteur, Cle cle);
  /// What has become of a row: an empty address of one that has been deleted. The zone follows
  /// where it shows this sender.
  void SuivreExpediteur(const AdresseComposee &expediteur, Cle cle);
  /// Rows have been taken back: shows those anew that stand in the zones. `defaut` is the file of
  /// the default sender where that has come back too, else null: he takes the place of the one who
  /// was it until now, and of no other. Throws as `Actualiser` and `ChargerExpediteur` do.
  void Reprendre(const FichierSuivi *defaut);
  /// Takes the default sender, if there is one. Throws `ErreurFichier` and `ErreurBase`.
  void ChargerExpediteur();

  /// Formats both zones anew, where they are not empty.
  void Reformater();
  /// Fonts, alignments and places by the settings and the format.
  void Disposer();

  /// What is printed, the comment as the run allows it.
  ContenuEnveloppe Contenu() const;

 private:
  /// Nothing is shown while none is ever printed.
  void MontrerExpediteur(const AdresseComposee &expediteur, Cle cle);
  void MontrerLignes(const LignesAdresse &lignes);

  Session &session_;
  EtatEnveloppe &etat_;
  VueEnveloppe *vue_;
  AdresseComposee adresse_;   ///< the current one; an empty string for none
  AdresseMontree montree_;    ///< what the zone shows of it, or of another
  Cle expediteur_ = 0;        ///< row of the current sender
  Cle expediteurMontre_ = 0;  ///< row of the sender that the zone shows
};
