#include "directory/PanneauFiche.h"

#include "ui/CouleurNumero.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui/Montrable.h"
#include "ui/TexteExact.h"
#include "ui_PanneauFiche.h"

#include <QEvent>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Whole, but for what would hold up the window.
QString AdresseMontrable(const QString &adresse) {
  constexpr qsizetype kCaracteres = 100'000;
  const QString debut = Montrable(adresse, kCaracteres);
  return debut.size() < adresse.size() ? debut + u"\n..."_s : debut;
}

}  // namespace

PanneauFiche::PanneauFiche(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::PanneauFiche>()) {
  ui_->setupUi(this);
  cmdTel_ = {ui_->CmdTel_0, ui_->CmdTel_1, ui_->CmdTel_2};
  for (QToolButton *bouton : cmdTel_) bouton->setIcon(Icone(u"call-start"));
  Grandir(ui_->LblName, 1.6, true);
  for (QWidget *etiquette :
       {static_cast<QWidget *>(ui_->LblPort), static_cast<QWidget *>(ui_->LblFax)})
    Colorer(etiquette, CouleurNumero(false, palette()));
  for (QWidget *lien : {static_cast<QWidget *>(ui_->LblMail), static_cast<QWidget *>(ui_->LblWeb)})
    Colorer(lien, palette().color(QPalette::Link));
  const std::array<QLabel *, 3> numeros{ui_->Lblphone, ui_->LblPhoneT, ui_->LblPort};
  for (std::size_t i = 0; i < cmdTel_.size(); ++i)
    connect(cmdTel_[i], &QToolButton::clicked, this,
            [this, numero = numeros[i]] { emit AppelDemande(numero->text()); });
  connect(ui_->LblMail, &QLabel::linkActivated, this, &PanneauFiche::CourrielDemande);
  connect(ui_->LblWeb, &QLabel::linkActivated, this, &PanneauFiche::SiteDemande);
  ui_->TxtComments->installEventFilter(this);
  Vider();
}

PanneauFiche::~PanneauFiche() = default;

void PanneauFiche::Vider() {
  Montrer({}, {});
  MontrerPhoto({});
  MontrerNotes({});
  ui_->TxtComments->setReadOnly(true);
}

void PanneauFiche::Montrer(const Correspondant &fiche, const Affichage &affichage) {
  ui_->LblName->setText(fiche.NomVelmira);
  ui_->LblAge->setText(affichage.age);
  ui_->Lblphone->setText(fiche.Tel);
  ui_->LblPhoneT->setText(fiche.TelTravail);
  ui_->LblPort->setText(fiche.Portable);
  ui_->LblFax->setText(fiche.Fax);
  ui_->LblMail->setText(fiche.Mail);
  ui_->LblWeb->setText(fiche.Web);
  Colorer(ui_->Lblphone, CouleurNumero(fiche.ListeRougeTel, palette()));
  Colorer(ui_->LblPhoneT, CouleurNumero(fiche.ListeRougeTravail, palette()));
  ui_->LblAdresse->setText(AdresseMontrable(affichage.adresse));
  ui_->LblAdresse->setAlignment(affichage.alignementAdresse | Qt::AlignTop);
  ui_->LblAdresseR->setText(AdresseMontrable(fiche.AdresseImportee));
  MajAffichage();
}

bool PanneauFiche::MontrerPhoto(const QString &chemin) {
  const bool lue = ui_->Img->Montrer(chemin);
  const bool montree = lue && !chemin.isEmpty();
  ui_->Img->setVisible(montree);
  ui_->Shp->setVisible(montree);
  ui_->LblSansPhoto->hide();
  return lue;
}

void PanneauFiche::AnnoncerPhotoAbsente(const QString &chemin) {
  ui_->LblSansPhoto->setToolTip(
      u"<p>La photo « %1 » ne peut pas être lue ici pour le moment.</p>"_s.arg(
          chemin.toHtmlEscaped()));
  ui_->LblSansPhoto->show();
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

void PanneauFiche::ActiverNumerotation(bool active) {
  numerotation_ = active;
  MajAffichage();
}

void PanneauFiche::MontrerNotes(const QString &notes) {
  MontrerTexte(*ui_->TxtComments, notes);
  ui_->TxtComments->setReadOnly(false);
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
    ligne.valeur->setVisible(rempli);
    ligne.libelle->setVisible(rempli);
    if (ligne.bouton != nullptr) ligne.bouton->setVisible(rempli && numerotation_);
  }
  ui_->LblAdresse->setVisible(!adresseImportee_ && !ui_->LblAdresse->text().isEmpty());
  ui_->LblAdresseR->setVisible(adresseImportee_ && !ui_->LblAdresseR->text().isEmpty());
  ui_->CadreAdresse->setVisible(!ui_->LblAdresse->isHidden() || !ui_->LblAdresseR->isHidden());
}
