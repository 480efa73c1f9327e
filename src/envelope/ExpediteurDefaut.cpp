#include "envelope/ExpediteurDefaut.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "storage/Tables.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kChiffre = 3;         // the digit and its line end
constexpr qsizetype kFin = 2 + kChiffre;  // the same with the line end of the first line

/// The form with the digit has the first line's end five characters before its own end.
bool ALeChiffre(const QString &texte) {
  return texte.size() >= kFin && texte[texte.size() - kFin] == u'\r';
}

/// The file has a "?" for every character that its code page lacks; the sender's row has them.
QString ChaineEntiere(const QString &chaine, Base &base) {
  if (!chaine.contains(u'?') || !base.Ouverte()) return chaine;
  for (const Expediteur &expediteur : TableExpediteur(base).Tous()) {
    const QString entiere = ComposerAdresse(AdresseSaisie::De(expediteur)).chaine;
    if (expediteur.ParDefaut && DepuisPageDeCode(VersPageDeCode(entiere)) == chaine) return entiere;
  }
  return chaine;
}

}  // namespace

QString CheminDefaut(const QString &appPath) {
  return appPath + u"/Defaut.ini"_s;
}

void EcrireExpediteurDefaut(const QString &appPath, const AdresseComposee &expediteur) {
  RemplacerFichier(CheminDefaut(appPath),
                   VersPageDeCode(expediteur.chaine + u"\r\n"_s +
                                  QString::number(Nombre(expediteur.optionCP)) + u"\r\n"_s));
}

FichierDefaut::~FichierDefaut() {
  if (!touche_) return;
  Ignorer([this] {
    if (avant_)
      RemplacerFichier(CheminDefaut(appPath_), *avant_);
    else
      EffacerFichier(CheminDefaut(appPath_));
  });
}

/// What fails here undoes the transaction, which the user cannot know of a file.
template <typename Ecriture>
void FichierDefaut::Remplacer(Ecriture &&ecriture) {
  try {
    avant_ = LireFichier(CheminDefaut(appPath_));
    touche_ = true;
    ecriture();
  } catch (const ErreurFichier &erreur) {
    throw ErreurFichier(
        u"Les expéditeurs n'ont pas changé : le fichier de l'expéditeur par défaut n'a pas pu "
        "suivre.\n\n"_s +
        erreur.Texte());
  }
}

void FichierDefaut::Suivre(const Expediteur &defaut) {
  Remplacer([&] {
    if (defaut.Index != 0)
      EcrireExpediteurDefaut(appPath_, ComposerAdresse(AdresseSaisie::De(defaut)));
    else if (avant_)
      EffacerFichier(CheminDefaut(appPath_));
  });
}

void FichierDefaut::ChoisirAucun() {
  Remplacer([this] { EcrireExpediteurDefaut(appPath_, {}); });
}

std::optional<AdresseComposee> LireExpediteurDefaut(const QString &appPath, Base &base) {
  const QString chemin = CheminDefaut(appPath);
  const auto octets = LireSiPossible(chemin);
  if (!octets) return std::nullopt;
  const QString texte = DepuisPageDeCode(*octets);
  if (!texte.contains(u'$')) {
    EffacerFichier(chemin);
    if (base.Ouverte()) TableExpediteur(base).OublierDefaut();
    return std::nullopt;
  }
  if (!ALeChiffre(texte)) {
    const QString ligne = texte.left(std::max<qsizetype>(0, texte.size() - 2));
    RemplacerFichier(chemin, VersPageDeCode(ligne + u"\r\n0\r\n"_s));
    return LireExpediteurDefaut(appPath, base);
  }
  QString chaine = texte.chopped(kFin);
  Ignorer([&] { chaine = ChaineEntiere(chaine, base); });
  return AdresseComposee{chaine, OptionDe(texte.right(kChiffre).trimmed().toInt())};
}

Cle CleExpediteur(const AdresseComposee &expediteur, Base &base) {
  const TableExpediteur table(base);
  const Cle defaut = table.Defaut();
  const QByteArray cherchee = VersPageDeCode(expediteur.chaine);
  Cle pareil = 0;
  for (const Expediteur &e : table.Tous()) {
    if (VersPageDeCode(ComposerAdresse(AdresseSaisie::De(e)).chaine) != cherchee) continue;
    if (e.Index == defaut) return defaut;
    if (pareil == 0) pareil = e.Index;
  }
  return pareil != 0 ? pareil : defaut;
}
