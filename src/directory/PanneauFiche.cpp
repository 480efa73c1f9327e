#include "directory/PanneauFiche.h"

#include "ui/CouleurNumero.h"
#include "ui/Icones.h"
#include "ui/Montrable.h"
#include "ui/TexteExact.h"
#include "ui_PanneauFiche.h"

#include <QEvent>
#include <QImageReader>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCotePhoto = 150;

/// What fits the frame of an address.
QString AdresseMontrable(const QString &adresse) {
  constexpr qsizetype kLignes = 12, kCaracteres = 120;
  return LignesMontrables(adresse, kLignes, kCaracteres).join(u'\n');
}

}  // namespace

PanneauFiche::PanneauFiche(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::PanneauFiche>()) {
  ui_->setupUi(this);
  cmdTel_ = {ui_->CmdTel_0, ui_->CmdTel_1, ui_->CmdTel_2};
  for (QToolButton *bouton : cmdTel_) bouton->setIcon(Icone(u"call-start"));
  QFont grand = ui_->LblName->font();
  grand.setPointSizeF(grand.pointSizeF() * 1.6);
  grand.setBold(true);
  ui_->LblName->setFont(grand);
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
  QImage image;
  if (!chemin.isEmpty()) {
    QImageReader lecteur(chemin);
    lecteur.setAutoTransform(true);
    const QSize cadre = QSize(kCotePhoto, kCotePhoto) * devicePixelRatioF();
    if (lecteur.size().isValid())
      lecteur.setScaledSize(lecteur.size().scaled(cadre, Qt::KeepAspectRatio));
    image = lecteur.read();
    if (!image.isNull()) image = image.scaled(cadre, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(devicePixelRatioF());
  }
  ui_->Img->setPixmap(QPixmap::fromImage(image));
  ui_->Img->setVisible(!image.isNull());
  ui_->Shp->setVisible(!image.isNull());
  return chemin.isEmpty() || !image.isNull();
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
