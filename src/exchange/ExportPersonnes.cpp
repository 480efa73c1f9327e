#include "exchange/ExportPersonnes.h"

#include "address/NomsProposes.h"
#include "directory/Categories.h"
#include "directory/FichierPhoto.h"
#include "directory/Protection.h"
#include "exchange/ColonnesCsv.h"
#include "exchange/Contact.h"
#include "exchange/LecteurCartes.h"
#include "exchange/LecteurCsv.h"
#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "platform/Saisie.h"
#include "storage/Tables.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;

/// A text as the value of a property. CR is written in those of our own only.
QByteArray Echapper(QString texte, bool propre = false) {
  texte.replace(u'\\', u"\\\\"_s).replace(u',', u"\\,"_s).replace(u';', u"\\;"_s);
  if (propre)
    texte.replace(u'\r', u"\\r"_s);
  else
    texte.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
  return texte.replace(u'\n', u"\\n"_s).toUtf8();
}

/// A line in pieces of at most 75 bytes that cut no character, each but the first behind a blank.
QByteArray Plier(const QByteArray &ligne) {
  constexpr qsizetype kLargeur = 75;
  QByteArray pliee;
  for (qsizetype debut = 0; debut < ligne.size();) {
    qsizetype fin = std::min(debut + kLargeur - (debut > 0), ligne.size());
    while (fin < ligne.size() && (static_cast<uchar>(ligne[fin]) & 0xC0) == 0x80) --fin;
    if (debut > 0) pliee += "\r\n ";
    pliee += ligne.sliced(debut, fin - debut);
    debut = fin;
  }
  return pliee + "\r\n";
}

struct NomCompose {
  QString famille, prenom, prefixe, suffixe;
};

/// The parts of a name, where the names of list and envelope tell them; otherwise all is the
/// family's.
NomCompose Composer(const L &fiche) {
  const QStringList mots = fiche.NomVelmira.simplified().split(u' ');
  const QString ligne = fiche.Ligne1.trimmed().isEmpty() ? NomPourEnveloppe(fiche.NomVelmira)
                                                         : fiche.Ligne1.simplified();
  for (qsizetype n = 1; n < mots.size(); ++n) {
    const QString famille = mots.first(n).join(u' '), prenom = mots.mid(n).join(u' ');
    const QString nom = u' ' + prenom + u' ' + famille + u' ';
    const QString bordee = u' ' + ligne + u' ';
    if (const qsizetype place = bordee.indexOf(nom); place >= 0)
      return {famille, prenom, bordee.first(place).trimmed(),
              bordee.sliced(place + nom.size()).trimmed()};
  }
  return {.famille = fiche.NomVelmira, .prenom = {}, .prefixe = {}, .suffixe = {}};
}

class Carte {
 public:
  Carte(const L &fiche, FormatExport format) : f_(fiche), quatre_(format == FormatExport::Cartes4) {
    lignes_ = {quatre_ ? "VERSION:4.0" : "VERSION:3.0"};
    Nommer();
    Adresser();
    Ecrire("TEL" + Type("home"), f_.Tel);
    Ecrire("TEL" + Type("work"), f_.TelTravail);
    Ecrire("TEL" + Type("cell"), f_.Portable);
    Ecrire("TEL" + Type("fax"), f_.Fax);
    Ecrire("EMAIL", f_.Mail);
    Ecrire("URL", f_.Web);
    if (const QDate date = DateSaisie(f_.DDN); date.isValid())
      Ecrire("BDAY", date.toString(quatre_ ? u"yyyyMMdd"_s : u"yyyy-MM-dd"_s));
    Ecrire("NOTE", f_.Commentaires);
    Classer();
  }

  /// The columns that come back otherwise.
  void Completer(const UsagesReprise &usages) {
    const L relue = LireCarte(lignes_, usages).fiche;
    for (std::size_t i = 1; i < kNombreColonnes<L>; ++i)
      if (const QString texte = EcrireColonne(f_, i); texte != EcrireColonne(relue, i))
        lignes_.append(NomPropre(i) + ':' + Echapper(texte, true));
  }

  QByteArray Octets(const std::optional<PhotoImportee> &photo) const {
    QByteArray octets("BEGIN:VCARD\r\n");
    for (const QByteArray &ligne : lignes_) octets += Plier(ligne);
    if (photo) octets += Plier(LignePhoto(*photo));
    return octets + "END:VCARD\r\n";
  }

 private:
  QByteArray Type(const QByteArray &type) const {
    return ";TYPE=" + (quatre_ ? type : type.toUpper());
  }

  void Ecrire(const QByteArray &nom, const QString &valeur) {
    if (!valeur.isEmpty()) lignes_.append(nom + ':' + Echapper(valeur));
  }

  void Nommer() {
    const NomCompose nom = Composer(f_);
    lignes_.append("N:" + Echapper(nom.famille) + ';' + Echapper(nom.prenom) + ";;" +
                   Echapper(nom.prefixe) + ';' + Echapper(nom.suffixe));
    lignes_.append("FN:" + Echapper((nom.prenom + u' ' + nom.famille).trimmed()));
  }

  void Adresser() {
    QStringList rue;
    for (const QString &ligne : {f_.Ligne2, f_.Ligne3, f_.Ligne4, f_.Ligne5})
      if (!ligne.isEmpty()) rue.append(ligne);
    if (rue.isEmpty() && (f_.CodePostal + f_.Ville + f_.Pays).isEmpty()) return;
    lignes_.append("ADR" + Type("home") + ":;;" + Echapper(rue.join(u'\n')) + ';' +
                   Echapper(f_.Ville) + ";;" + Echapper(f_.CodePostal) + ';' + Echapper(f_.Pays));
  }

  void Classer() {
    QByteArrayList noms;
    for (const QString &nom : NomsCategories(f_.Categories)) noms.append(Echapper(nom));
    if (!noms.isEmpty()) lignes_.append("CATEGORIES:" + noms.join(','));
  }

  QByteArray LignePhoto(const PhotoImportee &photo) const {
    const QByteArray genre = photo.genre == u"jpg"_s ? "jpeg" : photo.genre.toLatin1();
    const QByteArray tete = quatre_ ? "PHOTO:data:image/" + genre + ";base64,"
                                    : "PHOTO;ENCODING=b;TYPE=" + genre.toUpper() + ':';
    return tete + photo.octets.toBase64();
  }

  const L &f_;
  const bool quatre_;
  QByteArrayList lignes_;  ///< between BEGIN and END
};

QByteArray Ligne(const QStringList &cellules) {
  QByteArray ligne;
  for (const QString &cellule : cellules) {
    const bool citer = std::ranges::any_of(
        cellule, [](QChar c) { return c.isSpace() || QStringView(u";\",").contains(c); });
    if (!ligne.isEmpty() || &cellule != &cellules.front()) ligne += ';';
    ligne += (citer ? u'"' + QString(cellule).replace(u'"', u"\"\""_s) + u'"' : cellule).toUtf8();
  }
  return ligne + "\r\n";
}

/// What an export goes through with the file open.
class Sortie {
 public:
  Sortie(const QString &chemin, const QString &provisoire) : chemin_(chemin), fichier_(provisoire) {
    errno = 0;
    Exiger(fichier_.open(QIODevice::WriteOnly));
  }
  void Ecrire(const QByteArray &octets) { Exiger(fichier_.write(octets) == octets.size()); }
  void Finir() { Exiger(fichier_.flush()); }

 private:
  void Exiger(bool reussi) const {
    if (!reussi)
      throw EchecSysteme(
          u"Le fichier « %1 » n'a pas pu être écrit"_s.arg(QDir::toNativeSeparators(chemin_)),
          u"Ce qui était enregistré est intact."_s, errno);
  }

  const QString &chemin_;
  QFile fichier_;
};

/// Ends the writing of a file that is not to be.
struct Arret {};

std::optional<PhotoImportee> PhotoDe(const L &fiche) {
  constexpr qsizetype kMaximum = 16 << 20;
  const auto octets = LirePhoto(fiche.Photo);
  const QString genre = octets ? GenreImage(*octets) : QString();
  if (genre.isEmpty() || octets->size() > kMaximum) return std::nullopt;
  return PhotoImportee{*octets, genre};
}

QList<Cle> Choisir(const TableAdresse &table, const DemandeExport &demande, BilanExport &bilan) {
  QList<Cle> cles;
  const bool toutes = demande.categorie.isEmpty() || demande.categorie == ToutesCategories();
  table.PourChaque([&](EntreeListe &&entree) {
    const bool voulue = (toutes || EstDansCategorie(entree.Categories, demande.categorie)) &&
                        (!demande.cochees || demande.cochees->contains(entree.Index));
    if (!voulue) return;
    if (EstVisible(entree.DataProt, demande.utilisateur))
      cles.append(entree.Index);
    else
      ++bilan.caches;
  });
  return cles;
}

QByteArray Ecrire(const L &fiche, const DemandeExport &demande, BilanExport &bilan) {
  if (demande.format == FormatExport::Tableau) return EcrireLigne(fiche);
  const auto photo = fiche.Photo.isEmpty() ? std::nullopt : PhotoDe(fiche);
  if (!photo && !fiche.Photo.isEmpty()) ++bilan.sansPhoto;
  return EcrireCarte(fiche, photo, demande.format, demande.usages);
}

}  // namespace

QByteArray EcrireCarte(const L &fiche, const std::optional<PhotoImportee> &photo,
                       FormatExport format, const UsagesReprise &usages) {
  Carte carte(fiche, format);
  carte.Completer(usages);
  return carte.Octets(photo);
}

QByteArray EcrireLigne(const L &fiche) {
  QStringList cellules;
  for (const std::size_t ordinal : OrdreColonnes()) cellules.append(EcrireCellule(fiche, ordinal));
  return Ligne(cellules);
}

QByteArray EcrireEntetes() {
  QStringList entetes;
  for (const std::size_t ordinal : OrdreColonnes()) entetes.append(EntetePropre(ordinal));
  return Ligne(entetes);
}

BilanExport ExporterPersonnes(Base &base, const DemandeExport &demande, const Avance &avance) {
  constexpr qsizetype kBloc = 100;  // records between two tellings of the progress
  const TableAdresse table(base);
  BilanExport bilan;
  const QList<Cle> cles = Choisir(table, demande, bilan);
  const auto remplir = [&](const QString &provisoire) {
    Sortie sortie(demande.chemin, provisoire);
    if (demande.format == FormatExport::Tableau) sortie.Ecrire("\xEF\xBB\xBF" + EcrireEntetes());
    for (qsizetype i = 0; i < cles.size(); ++i) {
      if (i % kBloc == 0 && !avance(i, cles.size())) throw Arret();
      const auto fiche = table.Lire(cles[i]);
      if (!fiche) continue;
      sortie.Ecrire(Ecrire(*fiche, demande, bilan));
      ++bilan.ecrits;
    }
    sortie.Finir();
  };
  try {
    RemplacerFichierPar(demande.chemin, remplir);
  } catch (const Arret &) {
    bilan.arrete = true;
  }
  return bilan;
}

QString TexteBilan(const BilanExport &bilan, const QString &chemin) {
  const auto compter = [](qsizetype nombre, const QString &un, const QString &plusieurs) {
    return nombre > 1 ? plusieurs.arg(nombre) : un;
  };
  QString texte = compter(bilan.ecrits, u"Un correspondant a été écrit"_s,
                          u"%1 correspondants ont été écrits"_s) +
                  u" dans le fichier « %1 »."_s.arg(QDir::toNativeSeparators(chemin));
  if (bilan.caches > 0)
    texte += compter(bilan.caches,
                     u"\n\nUn correspondant masqué, que la liste ne montre pas, n'y est pas."_s,
                     u"\n\n%1 correspondants masqués, que la liste ne montre pas, n'y sont pas."_s);
  if (bilan.sansPhoto > 0)
    texte += compter(
        bilan.sansPhoto, u"\n\nUne photo n'a pas pu être lue : la fiche est partie sans elle."_s,
        u"\n\n%1 photos n'ont pas pu être lues : les fiches sont parties sans elles."_s);
  return texte +
         u"\n\nCe que ce format ne prévoit pas, comme la liste rouge ou la protection, y est sous "
         "des noms propres à Velmira (X-VELMIRA dans une carte) : les autres programmes "
         "l'ignorent, "
         "Velmira le reprend."_s;
}
