#include "directory/PanneauFiche.h"

#include "address/NomsProposes.h"
#include "ui/CouleurNumero.h"
#include "ui/DispositionFluide.h"
#include "ui/EchelleProgramme.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui/Montrable.h"
#include "ui/TexteExact.h"
#include "ui_PanneauFiche.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPartGauche = 3, kPartDroite = 2;  // of a wide record

/// Whole, but for what would hold up the window.
QString AdresseMontrable(const QString &adresse) {
  constexpr qsizetype kCaracteres = 100'000;
  const QString debut = Montrable(adresse, kCaracteres);
  return debut.size() < adresse.size() ? debut + u"\n..."_s : debut;
}

/// Gives a control its place even while it is hidden.
void GarderPlace(QWidget *controle, bool garde = true) {
  QSizePolicy politique = controle->sizePolicy();
  politique.setRetainSizeWhenHidden(garde);
  controle->setSizePolicy(politique);
}

void EtreAussiLargeQueSonTexte(QWidget *etiquette) {
  etiquette->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

/// By a sign too, for whom the colour says nothing.
void MarquerListeRouge(QLabel *numero, QWidget *marque, bool rouge) {
  marque->setVisible(rouge && !numero->isHidden());
  numero->setAccessibleDescription(rouge ? u"Liste rouge"_s : u""_s);
}

/// Puts a part of the record into a column, or across the whole panel.
void Poser(QWidget &partie, QBoxLayout *colonne, int place, QGridLayout &grille, int rangee) {
  if (colonne != nullptr)
    colonne->insertWidget(place, &partie);
  else
    grille.addWidget(&partie, rangee, 0, 1, 2);
}

void NePlusEtreUnLien(QWidget &lien) {
  lien.setAttribute(Qt::WA_TransparentForMouseEvents);
  lien.setFocusPolicy(Qt::NoFocus);
}

/// The portrait's column takes what the address under it needs, or the portrait alone.
void PartagerColonnes(QGridLayout &grille, bool large) {
  grille.setColumnStretch(0, large ? kPartGauche : 1);
  grille.setColumnStretch(1, large ? kPartDroite : 0);
}

}  // namespace

PanneauFiche::PanneauFiche(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::PanneauFiche>()) {
  ui_->setupUi(this);
  constexpr int kLargeur = 276;
  ui_->Colonne->addStrut(kLargeur);  // a bound of the widget would hold below what lies in it
  cmdTel_ = {ui_->CmdTel_0, ui_->CmdTel_1, ui_->CmdTel_2};
  for (QToolButton *bouton : cmdTel_) bouton->setIcon(Icone(u"call-start"));
  Grandir(ui_->LblName, 1.6, true);
  Grandir(ui_->LblInitiales, 3);
  PreparerAccueil();
  for (QWidget *numero :
       {static_cast<QWidget *>(ui_->Lblphone), static_cast<QWidget *>(ui_->LblPhoneT),
        static_cast<QWidget *>(ui_->LblPort), static_cast<QWidget *>(ui_->LblFax)})
    EtreAussiLargeQueSonTexte(numero);
  // The two parts of the numbers in one column, wherever they stand.
  const std::initializer_list<QLabel *> libelles{
      ui_->LblDomicile, ui_->LblTravail, ui_->LblPortable,  ui_->LblTelecopie,
      ui_->LblCourriel, ui_->LblSite,    ui_->LblCategories};
  int largeur = 0;
  for (const QLabel *libelle : libelles) largeur = std::max(largeur, libelle->sizeHint().width());
  for (QLabel *libelle : libelles) {
    libelle->setMinimumWidth(largeur);
    GarderTaille(libelle);
  }
  constexpr int kLettres = 130;  // the eye finds no way over a wider gap
  ui_->FondFiche->setMaximumWidth(kLettres * fontMetrics().averageCharWidth());
  GarderTaille(ui_->FondFiche);
  constexpr int kLignesAdresse = 8;  // the title, and six of an address
  ui_->CadreAdresse->setMinimumHeight(kLignesAdresse * fontMetrics().lineSpacing());
  GarderTaille(ui_->CadreAdresse);
  GarderPlace(ui_->CadreAdresse);
  (new DispositionFluide(ui_->Categories))->setSpacing(4);
  ui_->mnuCopierAdresse->setIcon(Icone(u"edit-copy"));
  ui_->CmdCopierAdresse->setDefaultAction(ui_->mnuCopierAdresse);
  addAction(ui_->mnuCopierAdresse);
  PartagerColonnes(*ui_->Fiche, false);
  Colorier();
  Brancher();
  ui_->TxtComments->installEventFilter(this);
  Vider();
}

void PanneauFiche::PreparerAccueil() {
  constexpr int kIcone = 64;
  PoserIcone(ui_->IcoAccueil, IconeProgramme(), kIcone);
  Grandir(ui_->LblBienvenue, 1.6, true);
  ui_->CmdPremier->setIcon(Icone(u"contact-new"));
  ui_->CmdImporter->setIcon(Icone(u"document-import"));
  const int air = fontMetrics().height();
  for (QPushButton *bouton : {ui_->CmdPremier, ui_->CmdImporter}) {
    bouton->setMinimumSize(bouton->sizeHint().width() + 2 * air, 5 * air / 2);
    GarderTaille(bouton);
  }
}

void PanneauFiche::Colorier() {
  const QColor discrete = EncreDiscrete(palette());
  const QColor lien = lecture_ ? palette().color(QPalette::WindowText) : EncreLien(palette());
  for (QWidget *libelle : std::initializer_list<QWidget *>{
           ui_->LblAge, ui_->LblAVenir, ui_->LblFete, ui_->LblDomicile, ui_->LblTravail,
           ui_->LblPortable, ui_->LblTelecopie, ui_->LblCourriel, ui_->LblSite, ui_->LblCategories,
           ui_->LblTitreAdresse, ui_->LblAccueil})
    Colorer(libelle, discrete);
  for (QLabel *etiquette :
       QList<QLabel *>{ui_->LblMail, ui_->LblWeb} + ui_->Categories->findChildren<QLabel *>())
    Colorer(etiquette, lien);
  ColorierNumeros();
}

void PanneauFiche::ColorierNumeros() {
  const QColor ordinaire = CouleurNumero(false, palette()), rouge = CouleurNumero(true, palette());
  Colorer(ui_->Lblphone, rougeTel_ ? rouge : ordinaire);
  Colorer(ui_->LblPhoneT, rougeTravail_ ? rouge : ordinaire);
  for (QWidget *numero : std::initializer_list<QWidget *>{ui_->LblPort, ui_->LblFax})
    Colorer(numero, ordinaire);
  for (QWidget *marque : std::initializer_list<QWidget *>{ui_->LblRougeTel, ui_->LblRougeTravail})
    Colorer(marque, rouge);
}

void PanneauFiche::changeEvent(QEvent *evenement) {
  QWidget::changeEvent(evenement);
  if (evenement->type() == QEvent::PaletteChange) Colorier();
}

void PanneauFiche::Brancher() {
  const std::array<QLabel *, 3> numeros{ui_->Lblphone, ui_->LblPhoneT, ui_->LblPort};
  for (std::size_t i = 0; i < cmdTel_.size(); ++i)
    connect(cmdTel_[i], &QToolButton::clicked, this,
            [this, numero = numeros[i]] { emit AppelDemande(numero->text()); });
  connect(ui_->LblMail, &QLabel::linkActivated, this, &PanneauFiche::CourrielDemande);
  connect(ui_->LblWeb, &QLabel::linkActivated, this, &PanneauFiche::SiteDemande);
  connect(ui_->mnuCopierAdresse, &QAction::triggered, this, &PanneauFiche::CopierAdresse);
  connect(ui_->CmdPremier, &QPushButton::clicked, this, &PanneauFiche::PremierDemande);
  connect(ui_->CmdImporter, &QPushButton::clicked, this, &PanneauFiche::ImportDemande);
}

PanneauFiche::~PanneauFiche() = default;

QAction *PanneauFiche::ActionCopierAdresse() const {
  return ui_->mnuCopierAdresse;
}

void PanneauFiche::CopierAdresse() {
  QLabel *adresse = adresseImportee_ ? ui_->LblAdresseR : ui_->LblAdresse;
  Copier(*adresse, adresse->text());
}

bool PanneauFiche::Inviter(Invitation invitation) {
  const bool autre = std::exchange(invitation_, invitation) != invitation;
  MajAccueil();
  return autre;
}

void PanneauFiche::ViserPremier() {
  ui_->CmdPremier->setFocus();
}

void PanneauFiche::MajAccueil() {
  const bool vide = invitation_ == Invitation::Commencer;
  ui_->Page->setVisible(montree_);
  ui_->Accueil->setVisible(!montree_);
  ui_->LblAccueil->setText(vide ? u"Votre répertoire est vide."_s
                           : invitation_ == Invitation::Choisir
                               ? u"Choisissez un correspondant dans la liste."_s
                               : u""_s);
  ui_->IcoAccueil->setVisible(vide);
  ui_->LblBienvenue->setVisible(vide);
  ui_->Commencer->setVisible(vide);
}

void PanneauFiche::Vider() {
  Montrer({}, {});
  MontrerPhoto(QString());
  MontrerNotes({});
  ui_->TxtComments->setReadOnly(true);
}

void PanneauFiche::Montrer(const Correspondant &fiche, const Affichage &affichage) {
  ui_->LblName->setText(fiche.NomVelmira);
  ui_->LblAge->setText(affichage.age);
  ui_->LblAVenir->setText(affichage.avenir);
  ui_->LblFete->setText(affichage.fete);
  ui_->LblInitiales->setText(Initiales(fiche.NomVelmira));
  ui_->Lblphone->setText(fiche.Tel);
  ui_->LblPhoneT->setText(fiche.TelTravail);
  ui_->LblPort->setText(fiche.Portable);
  ui_->LblFax->setText(fiche.Fax);
  ui_->LblMail->setText(fiche.Mail);
  ui_->LblWeb->setText(fiche.Web);
  rougeTel_ = fiche.ListeRougeTel;
  rougeTravail_ = fiche.ListeRougeTravail;
  ColorierNumeros();
  ui_->LblAdresse->setText(AdresseMontrable(affichage.adresse));
  ui_->LblAdresse->setAlignment(affichage.alignementAdresse | Qt::AlignTop);
  ui_->LblAdresseR->setText(AdresseMontrable(fiche.AdresseImportee));
  MontrerCategories(fiche.Categories);
  montree_ = fiche.Index != 0;
  MajAffichage();  // first: on a page that is seen each change lays it out anew
  MajAccueil();
}

void PanneauFiche::MontrerCategories(const QString &categories) {
  const QStringList noms = categories.split(u'*', Qt::SkipEmptyParts);
  QLayout *rang = ui_->Categories->layout();
  while (QLayoutItem *element = rang->takeAt(0)) {
    element->widget()->hide();
    element->widget()->deleteLater();  // its click may be what has led here
    delete element;
  }
  QWidget *precedent = ui_->LblWeb;
  for (const QString &nom : noms) {
    auto *lien = new EtiquetteLien(ui_->Categories);
    lien->setObjectName(u"LblCategorie_%1"_s.arg(rang->count()));
    lien->setText(nom);
    if (lecture_)
      NePlusEtreUnLien(*lien);
    else
      lien->setToolTip(u"Afficher cette catégorie"_s);
    Colorer(lien, lecture_ ? palette().color(QPalette::WindowText) : EncreLien(palette()));
    connect(lien, &QLabel::linkActivated, this, &PanneauFiche::CategorieDemandee);
    rang->addWidget(lien);
    setTabOrder(precedent, lien);
    precedent = lien;
    lien->show();
  }
  ui_->LblCategories->setVisible(!noms.isEmpty());
}

bool PanneauFiche::MontrerPhoto(const QString &chemin) {
  return MontrerPortrait(ui_->Img->Montrer(chemin), chemin.isEmpty());
}

bool PanneauFiche::MontrerPhoto(const QByteArray &octets) {
  return MontrerPortrait(ui_->Img->Montrer(octets), false);
}

bool PanneauFiche::MontrerPortrait(bool lue, bool vide) {
  const bool montree = lue && !vide;
  ui_->Img->setVisible(montree);
  ui_->Shp->setVisible(montree);
  ui_->LblSansPhoto->hide();
  ui_->LblInitiales->setVisible(!montree);
  return lue;
}

void PanneauFiche::AnnoncerPhotoAbsente(const QString &chemin) {
  ui_->LblSansPhoto->setToolTip(
      u"<p>La photo « %1 » ne peut pas être lue ici pour le moment.</p>"_s.arg(
          chemin.toHtmlEscaped()));
  ui_->LblSansPhoto->show();
  ui_->LblInitiales->hide();
}

void PanneauFiche::MontrerAdresseImportee(bool importee) {
  adresseImportee_ = importee;
  MajAffichage();
}

void PanneauFiche::MettreAdresseEnGras(bool gras) {
  for (QLabel *etiquette : {ui_->LblAdresse, ui_->LblAdresseR}) {
    QFont font = etiquette->font();
    font.setBold(gras);
    etiquette->setFont(font);
  }
}

void PanneauFiche::ChangerTaillePolice(int points) {
  QFont font = this->font();
  font.setPointSize(points);
  ui_->TxtComments->setFont(font);
}

void PanneauFiche::MettreEnLecture() {
  lecture_ = true;
  ui_->TxtComments->setReadOnly(true);
  for (QWidget *lien : {ui_->LblMail, ui_->LblWeb}) NePlusEtreUnLien(*lien);
  Colorier();
}

void PanneauFiche::ActiverNumerotation(bool active) {
  numerotation_ = active;
  MajAffichage();
  Disposer();
}

void PanneauFiche::MontrerNotes(const QString &notes) {
  MontrerTexte(*ui_->TxtComments, notes);
  ui_->TxtComments->setReadOnly(lecture_);
}

QString PanneauFiche::Notes() const {
  return TexteExact(*ui_->TxtComments);
}

bool PanneauFiche::NotesModifiees() const {
  return ui_->TxtComments->document()->isModified();
}

void PanneauFiche::NotesPrises() {
  ui_->TxtComments->document()->setModified(false);
}

void PanneauFiche::PrendreFocusNotes() {
  ui_->TxtComments->setFocus();
}

bool PanneauFiche::eventFilter(QObject *objet, QEvent *evenement) {
  if (objet == ui_->TxtComments && evenement->type() == QEvent::FocusOut) emit NotesQuittees();
  return QWidget::eventFilter(objet, evenement);
}

void PanneauFiche::MajAffichage() {
  struct Ligne {
    QLabel *valeur;
    QLabel *libelle;
    QToolButton *bouton;
  };
  const std::array<Ligne, 6> lignes{{{ui_->Lblphone, ui_->LblDomicile, cmdTel_[0]},
                                     {ui_->LblPhoneT, ui_->LblTravail, cmdTel_[1]},
                                     {ui_->LblPort, ui_->LblPortable, cmdTel_[2]},
                                     {ui_->LblFax, ui_->LblTelecopie, nullptr},
                                     {ui_->LblMail, ui_->LblCourriel, nullptr},
                                     {ui_->LblWeb, ui_->LblSite, nullptr}}};
  for (const Ligne &ligne : lignes) {
    const bool rempli = !ligne.valeur->text().isEmpty();
    for (QWidget *controle : {ligne.valeur, ligne.libelle}) {
      GarderPlace(controle);
      controle->setVisible(rempli);
    }
    if (ligne.bouton == nullptr) continue;
    GarderPlace(ligne.bouton, numerotation_);
    ligne.bouton->setVisible(rempli && numerotation_);
  }
  MarquerListeRouge(ui_->Lblphone, ui_->LblRougeTel, rougeTel_);
  MarquerListeRouge(ui_->LblPhoneT, ui_->LblRougeTravail, rougeTravail_);
  ui_->LblAdresse->setVisible(!adresseImportee_ && !ui_->LblAdresse->text().isEmpty());
  ui_->LblAdresseR->setVisible(adresseImportee_ && !ui_->LblAdresseR->text().isEmpty());
  const bool adresse = !ui_->LblAdresse->isHidden() || !ui_->LblAdresseR->isHidden();
  ui_->CadreAdresse->setVisible(adresse);
  ui_->mnuCopierAdresse->setEnabled(adresse && montree_);
}

void PanneauFiche::resizeEvent(QResizeEvent *evenement) {
  QWidget::resizeEvent(evenement);
  Disposer();
}

int PanneauFiche::LargeurNumeros() const {
  const QWidget &bouton = *cmdTel_[0], &marque = *ui_->LblRougeTel;
  return ui_->LblDomicile->minimumWidth() + ui_->GrilleNumeros->horizontalSpacing() +
         fontMetrics().horizontalAdvance(u"00 00 00 00 00"_s) + ui_->Rang0->spacing() +
         marque.sizeHint().width() + (numerotation_ ? bouton.sizeHint().width() : 0);
}

int PanneauFiche::LargeurLiens() const {
  constexpr int kLettres = 32;  // of a longer mail address
  return ui_->LblCourriel->minimumWidth() + ui_->GrilleLiens->horizontalSpacing() +
         kLettres * fontMetrics().averageCharWidth();
}

void PanneauFiche::Disposer() {
  const int libre = width() - style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this) -
                    ui_->Colonne->contentsMargins().left() -
                    ui_->Colonne->contentsMargins().right() - ui_->Fiche->horizontalSpacing();
  const int portrait = ui_->CadrePortrait->minimumWidth();
  const int gauche = libre * kPartGauche / (kPartGauche + kPartDroite);
  const Disposition voulue = gauche >= std::max(LargeurNumeros(), LargeurLiens())
                                 ? Disposition::Large
                             : libre - portrait >= LargeurNumeros() ? Disposition::Etroite
                                                                    : Disposition::Serree;
  if (voulue == disposition_) return;
  disposition_ = voulue;
  const bool large = voulue == Disposition::Large;
  Poser(*ui_->LblName, large ? ui_->ColonneEntete : nullptr, 0, *ui_->Fiche, 0);
  Poser(*ui_->Numeros, voulue == Disposition::Serree ? nullptr : ui_->Gauche, 1, *ui_->Fiche, 2);
  Poser(*ui_->Liens, large ? ui_->Gauche : nullptr, 2, *ui_->Fiche, 3);
  Poser(*ui_->CadreAdresse, large ? ui_->Droite : nullptr, 1, *ui_->Fiche, 4);
  PartagerColonnes(*ui_->Fiche, large);
}
