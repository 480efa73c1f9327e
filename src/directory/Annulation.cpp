#include "directory/Annulation.h"

#include "directory/Protection.h"
#include "platform/Enumeration.h"
#include "platform/Erreurs.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"
#include "ui/RepriseDuChamp.h"
#include "ui/Travail.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Sens = Historique::Sens;

/// A command's name in a menu. Cut within the name of a person, it keeps both quotes.
QString Abrege(QString nom) {
  constexpr qsizetype kDebut = 45, kFin = 15;
  if (nom.size() > kDebut + kFin) nom = nom.left(kDebut) + u'…' + nom.right(kFin);
  return nom.replace(u'&', u"&&"_s);
}

/// At the foot of a window that has no line of its own; as high as nothing until it says something.
CompteRendu *FaireLigne(const Plateforme &plateforme, QWidget &fenetre) {
  auto *ligne = new CompteRendu(&fenetre);
  ligne->Relier(plateforme, fenetre);
  ligne->hide();
  QObject::connect(ligne, &CompteRendu::Dit, ligne, &QWidget::setVisible);
  fenetre.layout()->addWidget(ligne);
  return ligne;
}

}  // namespace

Annulation::Annulation(Session &session, Fenetre fenetre)
    : QObject(fenetre.fenetre),
      session_(session),
      fenetre_(std::move(fenetre)),
      fait_(fenetre_.fait != nullptr ? *fenetre_.fait
                                     : *FaireLigne(session.plateforme, *fenetre_.fenetre)),
      annuler_(FaireAction(u"mnuAnnuler"_s, Qt::CTRL | Qt::Key_Z, Sens::Annuler)),
      retablir_(FaireAction(u"mnuRetablir"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Sens::Retablir)) {
  for (QWidget *champ : fenetre_.fenetre->findChildren<QWidget *>())
    if (champ->inherits("QLineEdit") || champ->inherits("QPlainTextEdit"))
      champ->installEventFilter(this);
  connect(&session_.base.LHistorique(), &Historique::Change, this, [this] {
    Accorder();
    DireTropGrande();
  });
  Accorder();
}

QAction *Annulation::FaireAction(const QString &nom, const QKeySequence &touche, Sens sens) {
  auto *action = new QAction(fenetre_.fenetre);
  action->setObjectName(nom);
  action->setShortcut(touche);
  action->setAutoRepeat(false);
  fenetre_.fenetre->addAction(action);
  connect(action, &QAction::triggered, &fait_, &CompteRendu::Effacer);
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(action, [this, sens] { Reprendre(sens); });
  return action;
}

void Annulation::Accorder() {
  const Historique &historique = session_.base.LHistorique();
  const QString &tropGrande = historique.TropGrande();
  const auto accorder = [&](QAction *action, const QString &verbe, Sens sens) {
    const Etape *etape = historique.Prochaine(sens);
    action->setEnabled(etape != nullptr);
    action->setText(etape == nullptr ? verbe : verbe + u" : "_s + Abrege(etape->nom));
  };
  accorder(annuler_, u"Ann&uler"_s, Sens::Annuler);
  accorder(retablir_, u"Ré&tablir"_s, Sens::Retablir);
  if (!tropGrande.isEmpty())
    annuler_->setText(u"Ann&uler : %1 (trop volumineux)"_s.arg(Abrege(tropGrande)));
}

void Annulation::DireTropGrande() {
  const QString &tropGrande = session_.base.LHistorique().TropGrande();
  if (!tropGrande.isEmpty()) fait_.Dire(u"Trop volumineux pour être annulé : "_s + tropGrande);
}

void Annulation::Reprendre(Sens sens) {
  if (fenetre_.avant && !fenetre_.avant()) return;
  Historique &historique = session_.base.LHistorique();
  const Etape *etape = historique.Prochaine(sens);
  if (etape == nullptr) return;
  const auto reprise =
      Travail(fenetre_.fenetre, sens == Sens::Annuler ? u"Annulation"_s : u"Rétablissement"_s)
          .Executer(session_.base, [&](Base &base, const Avance &avance) {
            return ::Reprendre(base, *etape, historique.Masques(), avance);
          });
  if (!reprise) return;
  if (!reprise->inverse.fichiers.empty())
    Ignorer(
        [this] { session_.reglages.SeparateurTel = LireSeparateurTel(session_.dossiers.AppPath); });
  historique.Passer(sens, *reprise);
  if (fenetre_.apres) fenetre_.apres(reprise->fiche);
  Dire(sens, *reprise);
}

void Annulation::Dire(Sens sens, const Reprise &reprise) {
  const QString fait = sens == Sens::Annuler ? u"Annulé : "_s : u"Rétabli : "_s;
  const bool rien = reprise.inverse.EstVide(), partie = !reprise.laissees.isEmpty();
  fait_.Dire((rien ? u"Rien n'a changé : "_s : fait) + reprise.inverse.nom +
             (partie && !rien ? u" (en partie)"_s : QString()));
  if (!partie) return;
  QStringList noms;
  for (const Laissee &laissee : reprise.laissees) noms.append(u"- "_s + Nommer(laissee));
  noms.removeDuplicates();
  session_.plateforme.boites.Information(
      (sens == Sens::Annuler ? u"Annulation : "_s : u"Rétablissement : "_s) + reprise.inverse.nom +
      u".\n\nCe qui suit a été modifié entre-temps, et reste donc tel quel :\n"_s +
      Abreger(noms).join(u'\n'));
}

QString Annulation::Nommer(const Laissee &laissee) const {
  const bool fiche = laissee.table == QString::fromUtf16(Table<Correspondant>::nom);
  if (laissee.table == QString::fromUtf16(Table<Evenement>::nom)) return u"une alerte"_s;
  if (laissee.nom.isEmpty()) return fiche ? u"une fiche supprimée"_s : u"un élément supprimé"_s;
  // Whom the list hides is not named here either.
  if (fiche && !EstVisible(laissee.protection, session_.plateforme.utilisateur))
    return u"une fiche protégée"_s;
  return laissee.nom;
}

bool Annulation::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::ShortcutOverride) {
    const auto &touche = *static_cast<const QKeyEvent *>(evenement);
    const QKeySequence combinaison(touche.keyCombination());
    if ((combinaison == annuler_->shortcut() || combinaison == retablir_->shortcut()) &&
        !RepriseDuChamp(objet, touche)) {
      evenement->ignore();  // the field takes it, with or without something to take back
      return true;
    }
  }
  return QObject::eventFilter(objet, evenement);
}
