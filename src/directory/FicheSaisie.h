#pragma once

#include "storage/Lignes.h"

#include <QString>

#include <array>

/// What the editor hands over. `NomSaisi` is at the same time the mark of acceptance: empty after a
/// cancel.
struct FicheSaisie {
  QString NomSaisi;
  QString MailSaisi, WebSaisi;
  QString TelSaisi, FaxSaisi, PortableSaisi, TelTravailSaisi;
  QString CategoriesSaisies;
  QString DDNSaisie;
  std::array<QString, 5> LigneSaisie;
  QString CodePostalSaisi, VilleSaisie, PaysSaisi;
  quint8 OptionSaisie = 0;
  bool RougeTelSaisi = false, RougeTravailSaisi = false;
  QString DataProtSaisie;
  bool AjoutAlerte = false;
  QString PhotoSaisie;

  /// Puts the values into a record; the others of its fields stay.
  void Reporter(Correspondant &fiche) const {
    fiche.NomVelmira = NomSaisi;
    fiche.Mail = MailSaisi;
    fiche.Web = WebSaisi;
    fiche.Tel = TelSaisi;
    fiche.Fax = FaxSaisi;
    fiche.Portable = PortableSaisi;
    fiche.TelTravail = TelTravailSaisi;
    fiche.Categories = CategoriesSaisies;
    fiche.DDN = DDNSaisie;
    fiche.Ligne1 = LigneSaisie[0];
    fiche.Ligne2 = LigneSaisie[1];
    fiche.Ligne3 = LigneSaisie[2];
    fiche.Ligne4 = LigneSaisie[3];
    fiche.Ligne5 = LigneSaisie[4];
    fiche.CodePostal = CodePostalSaisi;
    fiche.Ville = VilleSaisie;
    fiche.Pays = PaysSaisi;
    fiche.OptionAdresse = OptionSaisie;
    fiche.ListeRougeTel = RougeTelSaisi;
    fiche.ListeRougeTravail = RougeTravailSaisi;
    fiche.DataProt = DataProtSaisie;
    fiche.Photo = PhotoSaisie;
  }
};
