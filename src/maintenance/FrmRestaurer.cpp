#include "maintenance/FrmRestaurer.h"

#include "directory/Protection.h"
#include "platform/Enumeration.h"
#include "platform/Erreurs.h"
#include "session/SauvegardePrealable.h"
#include "storage/Historique.h"
#include "storage/Tables.h"
#include "storage/TransfertBase.h"
#include "ui/Brancheur.h"
#include "ui/Sablier.h"
#include "ui/Travail.h"
#include "ui_FrmRestaurer.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDate = 0, kMotif = 1, kTaille = 2, kNombre = 3;

QString TexteDate(const Sauvegarde &sauvegarde, const QLocale &langue, const QString &heure) {
  const QDate jour = sauvegarde.quand.date();
  const QString date = langue.dayName(jour.dayOfWeek(), QLocale::ShortFormat) + u' ' +
                       jour.toString(u"dd/MM/yyyy"_s);
  return sauvegarde.motif == MotifSauvegarde::Jour ? date
                                                   : date + sauvegarde.quand.time().toString(heure);
}

/// The dates of copies, with the seconds where the minutes do not tell them apart.
QStringList TextesDates(const QList<Sauvegarde> &sauvegardes, const QLocale &langue) {
  QStringList dates;
  for (const Sauvegarde &sauvegarde : sauvegardes)
    dates.append(TexteDate(sauvegarde, langue, u" HH:mm"_s));
  const QStringList minutes = dates;
  for (qsizetype i = 0; i < minutes.size(); ++i)
    if (minutes.count(minutes[i]) > 1) dates[i] = TexteDate(sauvegardes[i], langue, u" HH:mm:ss"_s);
  return dates;
}

void AlignerNombres(QTreeWidgetItem &ligne) {
  for (const int colonne : {kTaille, kNombre})
    ligne.setTextAlignment(colonne, Qt::AlignRight | Qt::AlignVCenter);
}

/// As wide as what stands in it, and a little more.
void Elargir(QTreeView &vue, int colonne) {
  vue.resizeColumnToContents(colonne);
  vue.setColumnWidth(colonne, vue.columnWidth(colonne) + 2 * vue.fontMetrics().averageCharWidth());
}

/// "2 supprimés, 1 modifié"; empty where nobody has changed.
QString TexteEcarts(const Comparaison &comparaison) {
  QStringList textes;
  const auto ajouter = [&](EcartFiche ecart, const QString &un, const QString &plusieurs) {
    if (const auto nombre = comparaison.Nombre(ecart); nombre > 0)
      textes.append(Compter(nombre, un, plusieurs));
  };
  ajouter(EcartFiche::Supprimee, u"supprimé"_s, u"supprimés"_s);
  ajouter(EcartFiche::Modifiee, u"modifié"_s, u"modifiés"_s);
  ajouter(EcartFiche::Ajoutee, u"ajouté"_s, u"ajoutés"_s);
  return textes.join(u", ");
}

}  // namespace

FrmRestaurer::FrmRestaurer(Session &session, Autour autour, QWidget *parent)
    : QDialog(parent),
      session_(session),
      autour_(std::move(autour)),
      ui_(std::make_unique<Ui::FrmRestaurer>()) {
  ui_->setupUi(this);
  ui_->TVEcarts->setModel(&ecarts_);
  ui_->Partage->setSizes({540, 420});
  for (QHeaderView *titres : {ui_->LstSauvegardes->header(), ui_->TVEcarts->header()})
    titres->setSectionsMovable(false);
  ui_->LstSauvegardes->header()->setStretchLastSection(false);
  ui_->LstSauvegardes->header()->setSectionResizeMode(kMotif, QHeaderView::Stretch);
  AlignerNombres(*ui_->LstSauvegardes->headerItem());
  Brancher();
  Remplir();
}

FrmRestaurer::~FrmRestaurer() = default;

void FrmRestaurer::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->LstSauvegardes, &QTreeWidget::currentItemChanged, &FrmRestaurer::Choisir);
  connect(&ecarts_, &ModeleEcarts::Coche, this, &FrmRestaurer::MajBoutons);
  brancher(ui_->ChkTout, [this](bool coche) { ecarts_.CocherTout(coche); });
  brancher(ui_->CmdAutre, &FrmRestaurer::ChoisirFichier);
  brancher(ui_->CmdFiches, &FrmRestaurer::ReprendreFiches);
  brancher(ui_->CmdTout, &FrmRestaurer::RestaurerBase);
  connect(ui_->CmdFermer, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmRestaurer::Remplir() {
  const LieuxSauvegardes lieux = LesSauvegardes(session_);
  ui_->LblOu->setText(
      u"Une copie de la base de données est faite chaque jour, et avant les commandes qui la "
      "changent beaucoup, %1."_s.arg(lieux.ailleurs.isEmpty()
                                         ? u"dans le répertoire « Sauvegardes » à côté d'elle"_s
                                         : u"dans « %1 »"_s.arg(QDir::toNativeSeparators(
                                               DossierSauvegardes(lieux.ailleurs)))) +
      (lieux.EstAbsent() ? u" Ce répertoire est introuvable en ce moment : la clé ou le disque qui "
                           "le porte n'est pas branché."_s
                         : u""_s));
  ui_->LstSauvegardes->clear();
  const QList<Sauvegarde> sauvegardes = ListerSauvegardes(lieux);
  const QStringList dates = TextesDates(sauvegardes, session_.plateforme.langue);
  for (qsizetype i = 0; i < sauvegardes.size(); ++i)
    Ajouter(sauvegardes[i], dates[i], TexteMotif(sauvegardes[i].motif));
  for (const int colonne : {kDate, kTaille, kNombre}) Elargir(*ui_->LstSauvegardes, colonne);
  comptee_ = 0;
  if (!compte_.EnCours()) CompterSuivante();
  ui_->LstSauvegardes->setCurrentItem(ui_->LstSauvegardes->topLevelItem(0));
  Choisir();
}

void FrmRestaurer::Ajouter(const Sauvegarde &sauvegarde, const QString &date,
                           const QString &motif) {
  auto *ligne = new QTreeWidgetItem(
      ui_->LstSauvegardes, {date, motif,
                            session_.plateforme.langue.formattedDataSize(
                                sauvegarde.octets, 1, QLocale::DataSizeTraditionalFormat)});
  ligne->setData(kDate, Qt::UserRole, sauvegarde.chemin);
  ligne->setToolTip(kDate, QDir::toNativeSeparators(sauvegarde.chemin));
  AlignerNombres(*ligne);
}

void FrmRestaurer::CompterSuivante() {
  const QTreeWidgetItem *ligne = ui_->LstSauvegardes->topLevelItem(comptee_);
  if (ligne == nullptr) return;
  const QString chemin = ligne->data(kDate, Qt::UserRole).toString();
  compte_.Lancer(
      this,
      [chemin, visible = Visible()](const std::stop_token &) {
        return CompterFiches(chemin, visible);
      },
      [this, chemin] {
        QString nombre = u"illisible"_s;
        Ignorer([&] { nombre = QString::number(compte_.Prendre()); });
        QTreeWidgetItem *comptee = ui_->LstSauvegardes->topLevelItem(comptee_);
        if (comptee != nullptr && comptee->data(kDate, Qt::UserRole) == chemin) {
          comptee->setText(kNombre, nombre);
          ++comptee_;
        }
        CompterSuivante();
      });
}

QString FrmRestaurer::Choisie() const {
  const QTreeWidgetItem *ligne = ui_->LstSauvegardes->currentItem();
  return ligne == nullptr ? QString() : ligne->data(kDate, Qt::UserRole).toString();
}

Visibilite FrmRestaurer::Visible() const {
  return [utilisateur = session_.plateforme.utilisateur](const QString &dataProt) {
    return EstVisible(dataProt, utilisateur);
  };
}

void FrmRestaurer::Choisir() {
  entiere_ = false;
  ecarts_.Montrer({});
  ui_->ChkTout->setChecked(false);
  if (Choisie().isEmpty())
    MontrerPanne(u"Il n'y a pas encore de sauvegarde."_s);
  else if (session_.base.Ouverte())
    Comparer();
  else
    MontrerSansBase();
}

void FrmRestaurer::Comparer() {
  ui_->LblEcarts->setText(u"Comparaison en cours…"_s);
  if (comparaison_.EnCours()) return;  // the one that is chosen by then comes next
  comparee_ = Choisie();
  const auto comparer = [chemin = comparee_, visible = Visible()](Base &base,
                                                                  const std::stop_token &arret) {
    return ComparerSauvegarde(base, chemin, visible, arret);
  };
  Essayer([&] {
    if (TableAdresse(session_.base).EstGrande()) {
      comparaison_.Lancer(this, session_.base, comparer, [this] { RecevoirEcarts(); });
    } else {
      Base base;  // what is attached to it goes with it
      base.Ouvrir(session_.base.Chemin());
      Montrer(comparer(base, {}));
    }
  });
}

void FrmRestaurer::Essayer(const std::function<void()> &etape) {
  try {
    etape();
  } catch (const Erreur &erreur) {
    MontrerPanne(erreur.Texte());
  }
}

void FrmRestaurer::RecevoirEcarts() {
  Essayer([this] {
    const Comparaison comparaison = comparaison_.Prendre();
    if (comparee_ == Choisie()) Montrer(comparaison);
  });
  if (comparee_ != Choisie()) Choisir();
}

void FrmRestaurer::Montrer(const Comparaison &comparaison) {
  const QString ecarts = TexteEcarts(comparaison);
  const QString autres = comparaison.autres
                             ? u" Les expéditeurs, les villes ou les alertes ont changé aussi."_s
                             : u""_s;
  ui_->LblEcarts->setText((ecarts.isEmpty()
                               ? u"Depuis cette sauvegarde, aucun correspondant n'a changé."_s
                               : u"Depuis cette sauvegarde : %1."_s.arg(ecarts)) +
                          autres);
  entiere_ = !ecarts.isEmpty() || comparaison.autres;
  ecarts_.Montrer(comparaison.fiches);
  Elargir(*ui_->TVEcarts, 0);
  MajBoutons();
}

void FrmRestaurer::MontrerSansBase() {
  comparee_ = Choisie();
  entiere_ = true;
  MontrerPanne(
      u"La base de données ne peut pas être ouverte : elle peut être remplacée par cette "
      "sauvegarde."_s);
}

void FrmRestaurer::MontrerPanne(const QString &panne) {
  ui_->LblEcarts->setText(panne);
  MajBoutons();
}

void FrmRestaurer::MajBoutons() {
  const bool cochees = !ecarts_.Cochees().isEmpty();
  ui_->CmdFiches->setEnabled(cochees);
  ui_->CmdTout->setEnabled(entiere_);
  ui_->ChkTout->setEnabled(ecarts_.rowCount() > 0);
}

void FrmRestaurer::ChoisirFichier() {
  const QString chemin = session_.plateforme.boites.Fichier(u"Choisissez une sauvegarde"_s,
                                                            QFileInfo(Choisie()).absolutePath(),
                                                            u"Bases de données (*.mdb)"_s);
  if (chemin.isEmpty()) return;
  const QFileInfo fichier(chemin);
  Ajouter({chemin, fichier.lastModified(), MotifSauvegarde::Jour, fichier.size()},
          fichier.fileName(), fichier.lastModified().toString(u"dd/MM/yyyy"_s));
  ui_->LstSauvegardes->setCurrentItem(
      ui_->LstSauvegardes->topLevelItem(ui_->LstSauvegardes->topLevelItemCount() - 1));
  if (!compte_.EnCours()) CompterSuivante();
}

template <typename Tache>
auto FrmRestaurer::Executer(const QString &nom, const Tache &tache) {
  autour_.avant();
  const Acte acte(session_.base, nom);
  return Travail(this, u"Restauration"_s)
      .Executer(session_.base, [&, lieux = LesSauvegardes(session_),
                                maintenant = session_.plateforme.horloge.Maintenant()](
                                   Base &base, const Avance &avance) {
        Sauvegarder(lieux, maintenant, MotifSauvegarde::Restauration);
        return tache(base, avance);
      });
}

void FrmRestaurer::ReprendreFiches() {
  const QList<FicheEcartee> choisies = ecarts_.Cochees();
  const QString chemin = comparee_;
  const QStringList laissees =
      Executer(u"reprise de fiches d'une sauvegarde"_s,
               [&](Base &base, const Avance &) { return RestaurerFiches(base, chemin, choisies); });
  Conclure(Compter(choisies.size() - laissees.size(), u"fiche reprise d'une sauvegarde"_s,
                   u"fiches reprises d'une sauvegarde"_s));
  if (!laissees.isEmpty())
    session_.plateforme.boites.Attention(
        u"Un autre utilisateur vient de modifier ces correspondants, qui restent tels qu'ils "
        "sont :\n\n"_s +
        Abreger(laissees).join(u'\n'));
}

void FrmRestaurer::RestaurerBase() {
  const QString chemin = comparee_;
  const QString date = ui_->LstSauvegardes->currentItem()->text(kDate);
  if (session_.plateforme.boites.Question(
          Boites::Titre(),
          u"Remettre toute la base de données dans l'état de la sauvegarde « %1 » ?\n\n"
          "Ce qui a été ajouté ou modifié depuis, par tous les utilisateurs, n'y sera plus. La "
          "base actuelle est d'abord copiée : vous pourrez y revenir par cette même fenêtre."_s.arg(
              date),
          Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  if (!session_.base.Ouverte()) return RemplacerBase(chemin);
  const bool faite = Executer(
      u"restauration d'une sauvegarde"_s,
      [&](Base &base, const Avance &avance) { return RestaurerTout(base, chemin, avance); });
  Conclure(faite ? u"Base de données restaurée : %1"_s.arg(date)
                 : u"Restauration arrêtée : rien n'a été changé."_s);
}

void FrmRestaurer::RemplacerBase(const QString &chemin) {
  const QString base = session_.dossiers.Base();
  if (!SauverAvant(session_, this, MotifSauvegarde::Restauration, base)) return;
  Travail(this, u"Restauration"_s).Executer([&](const Avance &) {
    TransfererBase(chemin, base);
    return true;
  });
  session_.plateforme.boites.Information(
      u"La base de données a été remplacée par la sauvegarde.\nLe programme va être relancé."_s);
  reject();
  autour_.relancer();
}

void FrmRestaurer::Conclure(const QString &fait) {
  autour_.apres();
  autour_.fait.Dire(fait);
  Remplir();
}
