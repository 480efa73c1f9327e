#include "exchange/FrmExport.h"

#include "address/Titres.h"
#include "directory/Categories.h"
#include "directory/ListeVelmiras.h"
#include "platform/Enregistrable.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"
#include "ui/Theme.h"
#include "ui/Travail.h"
#include "ui_FrmExport.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>
#include <cstddef>

using namespace Qt::StringLiterals;

namespace {

QString Section() {
  return u"Export"_s;
}

QString Fin(FormatExport format) {
  return format == FormatExport::Tableau ? u".csv"_s : u".vcf"_s;
}

QString Filtre(FormatExport format) {
  return format == FormatExport::Tableau ? u"Tableaux (*.csv)"_s : u"Cartes de visite (*.vcf)"_s;
}

}  // namespace

FrmExport::FrmExport(Session &session, const ListeVelmiras &liste, CompteRendu &fait,
                     QWidget *parent)
    : QDialog(parent),
      session_(session),
      fait_(fait),
      ui_(std::make_unique<Ui::FrmExport>()),
      etat_(session.dossiers.AppPath, u"Etat.ini"_s) {
  ui_->setupUi(this);
  for (QWidget *mot : QWidgetList{ui_->LblF_0, ui_->LblF_1, ui_->LblF_2, ui_->LblPropre})
    Colorer(mot, EncreDiscrete(palette()));
  formats_ = {ui_->OptF_0, ui_->OptF_1, ui_->OptF_2};
  const int retenu = etat_.Nombre(Section(), u"Format"_s, 0);
  formats_[retenu > 0 && retenu < 3 ? static_cast<std::size_t>(retenu) : 0]->setChecked(true);

  const QStringList categories = CategoriesAuChoix(session_.base);
  ui_->CboCat->addItems(categories);
  const qsizetype montree = categories.indexOf(liste.Categorie());
  ui_->CboCat->setCurrentIndex(std::max(static_cast<int>(montree), 0));
  Lister(ui_->CboCat->currentText());
  if (liste.Arbre().Modele().CochesMontrees()) Reprendre(liste.Arbre().Coches());
  Compter();
  Brancher();
}

FrmExport::~FrmExport() = default;

void FrmExport::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CboCat, &QComboBox::textActivated, &FrmExport::Lister);
  connect(&ui_->TV->Modele(), &QAbstractItemModel::dataChanged, this, &FrmExport::Compter);
  connect(ui_->TV, &ArbreVelmiras::Frappee, this, [this](const QString &lettre) {
    if (const auto noeud = ui_->TV->Modele().Commencant(lettre); noeud.isValid())
      ui_->TV->setCurrentIndex(noeud);
  });
  brancher(ui_->CmdExporter, &FrmExport::Exporter);
  connect(ui_->CmdAnn, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmExport::Reprendre(const QList<Cle> &coches) {
  ModeleListe &modele = ui_->TV->Modele();
  modele.CocherTous(false);
  for (const Cle cle : coches)
    if (const QModelIndex noeud = modele.Enfant(cle); noeud.isValid()) modele.Basculer(noeud);
}

std::vector<NoeudListe> FrmExport::Lire(const QString &categorie) const {
  return ListerVelmiras(TableAdresse(session_.base),
                        {categorie, {}, session_.plateforme.utilisateur});
}

bool FrmExport::EstSansPersonne() const {
  return ui_->TV->Modele().NombreEnfants() == 0 && Lire(ToutesCategories()).empty();
}

void FrmExport::Lister(const QString &categorie) {
  ui_->TV->Remplir(categorie.toUpper(), Lire(categorie));
  ui_->TV->MontrerCoches(true);
  ui_->TV->CocherTous(true);
  Compter();
}

void FrmExport::Compter() {
  const qsizetype coches = ui_->TV->Coches().size();
  const qsizetype tous = ui_->TV->Modele().NombreEnfants();
  ui_->LblNombre->setText(tous == 0     ? u"Cette catégorie ne contient personne."_s
                          : coches == 0 ? u"Cochez au moins un correspondant."_s
                                        : u"%1 coché(s) sur %2"_s.arg(coches).arg(tous));
  ui_->CmdExporter->setEnabled(coches > 0);
}

FormatExport FrmExport::Format() const {
  const auto choisi = std::ranges::find_if(formats_, &QRadioButton::isChecked);
  return static_cast<FormatExport>(choisi - formats_.begin());
}

QString FrmExport::Propose() const {
  const QString la = etat_.Texte(Section(), u"Dossier"_s);
  const QString dossier = !la.isEmpty() && QFileInfo(la).isDir()
                              ? la
                              : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QList<Cle> coches = ui_->TV->Coches();
  const QString categorie = ui_->CboCat->currentText();
  const QString quoi = coches.size() == 1 ? Texte(ui_->TV->Modele().Enfant(coches.constFirst()))
                       : categorie == ToutesCategories() ? Boites::Titre()
                                                         : Boites::Titre() + u' ' + categorie;
  const QString jour = session_.plateforme.horloge.Maintenant().toString(u"yyyy-MM-dd"_s);
  return dossier + u'/' + DebutNomFichier(quoi + u' ' + jour) + Fin(Format());
}

DemandeExport FrmExport::Demande(const QString &chemin) const {
  const QList<Cle> coches = ui_->TV->Coches();
  DemandeExport demande{
      .chemin = chemin,
      .format = Format(),
      .categorie = ui_->CboCat->currentText(),
      .cochees = {},
      .utilisateur = session_.plateforme.utilisateur,
      .usages = {session_.reglages.SeparateurTel, TitresLus(session_.dossiers.AppPath)}};
  if (coches.size() < ui_->TV->Modele().NombreEnfants())
    demande.cochees = QSet<Cle>(coches.begin(), coches.end());
  return demande;
}

void FrmExport::Exporter() {
  Boites &boites = session_.plateforme.boites;
  const QString chemin =
      boites.FichierAEcrire(windowTitle().trimmed(), Propose(), Filtre(Format()));
  if (chemin.isEmpty()) return;
  if (QFileInfo(chemin) == QFileInfo(session_.base.Chemin())) {
    boites.Attention(
        u"Ce fichier est votre répertoire lui-même.\nDonnez un autre nom à celui que "
        "vous voulez écrire."_s);
    return;
  }
  const BilanExport bilan =
      Travail(this, u"Exportation"_s)
          .Executer(session_.base, [demande = Demande(chemin)](Base &base, const Avance &avance) {
            return ExporterPersonnes(base, demande, avance);
          });
  if (bilan.arrete) {
    boites.Information(u"Exportation arrêtée : le fichier n'a pas été écrit."_s);
    return;
  }
  Retenir(chemin);
  accept();
  fait_.Dire(u"%1 correspondant(s) exporté(s) dans "_s.arg(bilan.ecrits) +
                 QDir::toNativeSeparators(chemin),
             CompteRendu::AuDossier(chemin));
  boites.Information(TexteBilan(bilan, chemin));
}

void FrmExport::Retenir(const QString &chemin) {
  Preferences::Valeurs valeurs{{u"Format"_s, QString::number(static_cast<int>(Format()))}};
  if (const QString dossier = QFileInfo(chemin).absolutePath(); EstEnregistrable(dossier))
    valeurs.append({u"Dossier"_s, dossier});
  Ignorer([&] { etat_.Ecrire(Section(), valeurs); });
}
