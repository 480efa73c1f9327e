#include "address/ChampsAdresse.h"

#include "address/ChaineAdresse.h"
#include "address/FrmCP.h"
#include "address/NormePostale.h"
#include "address/Titres.h"
#include "address/Villes.h"
#include "ui/DebutVisible.h"
#include "ui/FondAuFocus.h"
#include "ui/Garde.h"
#include "ui/PropositionAuFocus.h"
#include "ui/Theme.h"
#include "ui_ChampsAdresse.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kCode = 5, kPays = 6;
constexpr qsizetype kLongueurCode = 5;

/// Quiet, and read well on the grounds of a field, with the focus or without.
QColor EncreDEcart(const QWidget *champ) {
  return EstSombre(champ->palette()) ? QColor(255, 185, 94) : QColor(138, 69, 0);
}

}  // namespace

ChampsAdresse::ChampsAdresse(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ChampsAdresse>()) {
  ui_->setupUi(this);
  txt_ = {ui_->Txt_0, ui_->Txt_1, ui_->Txt_2, ui_->Txt_3, ui_->Txt_4, ui_->Txt_5, ui_->Txt_6};
  // Nothing of a stored line is cut by being shown.
  for (QLineEdit *champ : findChildren<QLineEdit *>())
    champ->setMaxLength(std::numeric_limits<int>::max());
  for (QLineEdit *champ : Lignes()) new DebutVisible(champ);
  ui_->Opt_0->setChecked(true);
}

ChampsAdresse::~ChampsAdresse() = default;

void ChampsAdresse::Relier(Boites &boites, Base &base, const QString &appPath, int gris,
                           const QString &imageFrancaise) {
  boites_ = &boites;
  base_ = &base;
  appPath_ = appPath;
  ui_->CboTitre->Relier(boites, appPath, ui_->Txt_0);
  ui_->CboVille->Relier(boites, base, ui_->Txt_5);
  for (QLineEdit *champ : Lignes()) {
    fonds_.append(new FondAuFocus(champ, gris));
    connect(champ, &QLineEdit::textChanged, this, &ChampsAdresse::Changee);
  }
  connect(ui_->Opt_0, &QRadioButton::toggled, this, &ChampsAdresse::Changee);
  SuivreCode();
  ui_->Image3->setObjectName(imageFrancaise);

  connect(ui_->CmdCP, &QPushButton::clicked, this, Garde(boites, [this](bool) { ChercherCode(); }));
  connect(ui_->CmdPurge, &QToolButton::clicked, this, [&boites] {
    boites.Information(
        u"Chaque nouvelle entrée, écrite dans le zone de saisie de la liste,\n"
        "est systématiquement enregistrée quand on déroule la liste.\n\n"
        "Pour supprimer une entrée de la liste déroulante, il faut :\n\n"
        "o - La sélectionner,\n"
        "o - Puis appuyer sur le bouton SUPPR (ou DEL) du clavier."_s);
  });
  const std::array<QAbstractButton *, 4> ordres{ui_->Opt_0, ui_->Opt_1, ui_->Image3, ui_->Image2};
  for (std::size_t i = 0; i < ordres.size(); ++i)
    connect(ordres[i], &QAbstractButton::clicked, this,
            [this, option = OptionDe(static_cast<int>(i % 2))] { ChoisirOption(option); });
}

void ChampsAdresse::ProposerNom(std::function<QString()> nom) {
  nomPropose_ = new PropositionAuFocus(ui_->Txt_0, [this, nom = std::move(nom)] {
    const QString titre = ui_->Txt_0->text();
    if (!titre.isEmpty() && !RemplacerTitre(titre, Titres(), u""_s).isEmpty()) return QString();
    const QString propose = nom();
    return propose.isEmpty() || titre.isEmpty() ? propose : titre.trimmed() + u' ' + propose;
  });
}

QStringList ChampsAdresse::Titres() const {
  return ui_->CboTitre->Titres();
}

bool ChampsAdresse::NomSeulementPropose() const {
  return nomPropose_ != nullptr && nomPropose_->EstIntacte();
}

void ChampsAdresse::SuivreCode() {
  const QLineEdit *code = ui_->Txt_5;
  connect(code, &QLineEdit::textEdited, this, [this](const QString &texte) {
    if (texte.size() == kLongueurCode) ProposerVilles();
  });
  // Those of other countries are of any length.
  connect(code, &QLineEdit::editingFinished, this, [this, code] {
    if (code->isModified() && code->text().size() != kLongueurCode) ProposerVilles();
  });
}

void ChampsAdresse::ProposerVilles() {
  const QString code = ui_->Txt_5->text();
  ui_->CboVille->Proposer(code.isEmpty() ? QStringList() : VillesDuCode(*base_, appPath_, code));
}

void ChampsAdresse::SuivreNorme() {
  connect(this, &ChampsAdresse::Changee, this, &ChampsAdresse::MarquerEcarts);
  MarquerEcarts();
}

void ChampsAdresse::MarquerEcarts() {
  constexpr qsizetype kVille = 6;  // in the order of the window, behind the code
  const auto remarques = RemarquesNorme(Adresse());
  const QList<QLineEdit *> lignes = Lignes();
  for (qsizetype i = 0; i < lignes.size(); ++i) {
    const QString &remarque = remarques[static_cast<std::size_t>(i < kVille ? i : i - 1)];
    QWidget *champ = i == kVille ? static_cast<QWidget *>(ui_->CboVille) : lignes[i];
    if (champ->toolTip() == remarque) continue;
    champ->setToolTip(remarque);
    lignes[i]->setToolTip(remarque);
    champ->setAccessibleDescription(remarque);
    fonds_[i]->Encrer(remarque.isEmpty() ? QColor() : EncreDEcart(this));
  }
}

void ChampsAdresse::CocherOption(OptionCP option) {
  (option == OptionCP::CodeDevant ? ui_->Opt_0 : ui_->Opt_1)->setChecked(true);
}

void ChampsAdresse::ChoisirOption(OptionCP option) {
  CocherOption(option);
  emit OptionChoisie(option);
}

void ChampsAdresse::Montrer(const AdresseSaisie &adresse) {
  for (std::size_t i = 0; i < adresse.lignes.size(); ++i) txt_[i]->setText(adresse.lignes[i]);
  txt_[kCode]->setText(adresse.codePostal);
  txt_[kPays]->setText(adresse.pays);
  ui_->CboVille->Montrer(adresse.ville);
  ui_->CboTitre->setCurrentIndex(0);
  CocherOption(adresse.optionCP);
}

void ChampsAdresse::Vider() {
  AdresseSaisie vide;
  vide.optionCP = Adresse().optionCP;
  Montrer(vide);
}

AdresseSaisie ChampsAdresse::Adresse() const {
  AdresseSaisie adresse;
  for (std::size_t i = 0; i < adresse.lignes.size(); ++i) adresse.lignes[i] = txt_[i]->text();
  adresse.codePostal = txt_[kCode]->text();
  adresse.ville = ui_->CboVille->currentText();
  adresse.pays = txt_[kPays]->text();
  adresse.optionCP = ui_->Opt_0->isChecked() ? OptionCP::CodeDevant : OptionCP::VilleDevant;
  return adresse;
}

QList<QLineEdit *> ChampsAdresse::Lignes() const {
  QList<QLineEdit *> lignes(txt_.begin(), txt_.end());
  lignes.insert(kPays, ui_->CboVille->lineEdit());  // in the order of the window
  return lignes;
}

bool ChampsAdresse::Accepter() {
  ui_->CboTitre->Finir();
  AdresseSaisie sansNom = Adresse();
  sansNom.lignes[0].clear();
  if (nomPropose_ != nullptr && AdresseVide(ComposerAdresse(sansNom).chaine))
    nomPropose_->Retirer();
  QLineEdit *premier = nullptr;
  for (QLineEdit *champ : Lignes()) {
    const QString propre = SansSeparateurs(champ->text());
    if (propre == champ->text()) continue;
    champ->setText(propre);
    if (premier == nullptr) premier = champ;
  }
  if (premier == nullptr) return true;
  boites_->Information(
      u"Les caractères « $ » et « * » sont interdits dans une adresse.\n"
      "Ils en ont été retirés : vérifiez l'adresse, puis validez de nouveau."_s);
  premier->setFocus();
  return false;
}

void ChampsAdresse::Verrouiller(bool verrouille) {
  for (QLineEdit *champ : txt_) champ->setReadOnly(verrouille);
  ui_->CboVille->Verrouiller(verrouille);
  const std::array<QWidget *, 5> autres{ui_->CmdCP, ui_->Opt_0, ui_->Opt_1, ui_->Image3,
                                        ui_->Image2};
  for (QWidget *autre : autres) autre->setEnabled(!verrouille);
}

void ChampsAdresse::MontrerTitres(bool montres) {
  const std::array<QWidget *, 3> titres{ui_->LblTitre, ui_->CboTitre, ui_->CmdPurge};
  for (QWidget *titre : titres) titre->setVisible(montres);
}

QWidget *ChampsAdresse::PremierVide() const {
  if (ui_->Txt_0->text().isEmpty()) return ui_->Txt_0;
  if (ui_->Txt_5->text().isEmpty()) return ui_->Txt_5;
  if (ui_->CboVille->currentText().isEmpty()) return ui_->CboVille;
  return nullptr;
}

void ChampsAdresse::PrendreFocus() {
  ui_->Txt_0->setFocus();
}

void ChampsAdresse::ChercherCode() {
  FrmCP dialogue(*boites_, appPath_, window());
  const bool accepte = dialogue.exec() == QDialog::Accepted;
  // What comes next is to look at the town, or to type the code oneself.
  (dialogue.Choix() ? static_cast<QWidget *>(ui_->CboVille) : ui_->Txt_5)->setFocus();
  if (!accepte || !dialogue.Choix()) return;
  ui_->Txt_5->setText(dialogue.Choix()->Code());
  ui_->CboVille->setEditText(dialogue.Choix()->Ville());
}
