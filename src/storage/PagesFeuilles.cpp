#include "storage/PagesFeuilles.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kEntete = 100;  // of the file, in front of what the first page holds
constexpr int kFeuille = 0x0D, kNoeud = 0x05;
constexpr qsizetype kPlusPetitePage = 512, kPageUsuelle = 4096;

template <typename Nombre>
Nombre Lire(QByteArrayView octets, qsizetype place) {
  return qFromBigEndian<Nombre>(octets.data() + place);
}

/// Walks bytes from the front; behind a first one that is missing nothing more is given.
class Lecteur {
 public:
  Lecteur(QByteArrayView octets, qsizetype place) : octets_(octets), place_(place) {}

  qsizetype Place() const { return place_; }
  bool Bon() const { return bon_; }

  /// Seven bits a byte, the highest first, at most nine bytes, whose last gives eight.
  qint64 Varint() {
    quint64 valeur = 0;
    for (int i = 0; i < 9; ++i) {
      if (place_ < 0 || place_ >= octets_.size()) break;
      const auto octet = static_cast<quint8>(octets_[place_++]);
      if (i == 8) return static_cast<qint64>(valeur << 8 | octet);
      valeur = valeur << 7 | (octet & 0x7F);
      if ((octet & 0x80) == 0) return static_cast<qint64>(valeur);
    }
    bon_ = false;
    return 0;
  }

 private:
  QByteArrayView octets_;
  qsizetype place_;
  bool bon_ = true;
};

/// How many bytes a field of this serial type takes; -1 for one that there is not.
qint64 Longueur(qint64 type) {
  static constexpr std::array<qint64, 12> kFixes{0, 1, 2, 3, 4, 6, 8, 8, 0, 0, -1, -1};
  if (type < 0) return -1;
  return type < 12 ? kFixes[static_cast<std::size_t>(type)] : (type - 12) / 2;
}

qint64 Entier(QByteArrayView octets) {
  quint64 valeur = octets.isEmpty() || static_cast<qint8>(octets.front()) >= 0 ? 0 : ~quint64{0};
  for (const char octet : octets) valeur = valeur << 8 | static_cast<quint8>(octet);
  return static_cast<qint64>(valeur);
}

/// Null for what cannot be read; `entier` becomes false then.
QVariant Champ(qint64 type, QByteArrayView octets, bool complet, bool &entier) {
  const bool texte = type >= 13 && type % 2 == 1;
  if (!complet && !texte) {
    entier = false;
    return {};
  }
  if (texte) {
    QString valeur = QString::fromUtf8(octets);
    const qsizetype avant = valeur.size();
    valeur.remove(QChar(0));  // what has been zeroed: no text of ours holds one
    entier = entier && complet && valeur.size() == avant;
    return valeur;
  }
  if (type == 0) return {};
  if (type == 7) return std::bit_cast<double>(Lire<quint64>(octets, 0));
  if (type == 8 || type == 9) return type - 8;
  if (type < 7) return Entier(octets);
  return octets.toByteArray();
}

/// The fields of a row from as much of it as was found; nothing when they do not make the `total`
/// of bytes that it is said to have.
std::optional<QVariantList> Champs(QByteArrayView octets, qint64 total, bool &entier) {
  Lecteur lecteur(octets, 0);
  const qint64 entete = lecteur.Varint();
  if (!lecteur.Bon() || entete < 1 || entete > octets.size()) return std::nullopt;
  QList<qint64> types;
  qint64 place = entete;
  while (lecteur.Bon() && lecteur.Place() < entete) {
    types.append(lecteur.Varint());
    const qint64 longueur = Longueur(types.constLast());
    if (longueur < 0 || longueur > total - place) return std::nullopt;
    place += longueur;
  }
  if (!lecteur.Bon() || lecteur.Place() != entete || place != total) return std::nullopt;

  QVariantList champs;
  place = entete;
  for (const qint64 type : types) {
    const qint64 longueur = Longueur(type), la = std::max<qint64>(octets.size() - place, 0);
    const qint64 lus = std::min(longueur, la);
    champs.append(Champ(type, lus > 0 ? octets.sliced(place, lus) : QByteArrayView(),
                        lus == longueur, entier));
    place += longueur;
  }
  return champs;
}

/// What of a row lies on its leaf page itself.
qsizetype PartLocale(qint64 total, qsizetype taille) {
  const qsizetype plus = taille - 35;
  if (total <= plus) return static_cast<qsizetype>(total);
  const qsizetype moins = (taille - 12) * 32 / 255 - 23;
  const qsizetype part = moins + static_cast<qsizetype>((total - moins) % (taille - 4));
  return part <= plus ? part : moins;
}

/// How many rows a file gives by pages of this size.
qsizetype Rendement(QByteArrayView fichier, qsizetype taille) {
  const PagesFeuilles pages(fichier, taille);
  qsizetype lignes = 0;
  for (PagesFeuilles::Numero page = 1; page <= pages.Nombre(); ++page)
    lignes += pages.LireFeuille(page).lignes.size();
  return lignes;
}

/// Whether the header tells this size, as many pages as the file has, and a first page that makes
/// sense.
bool EstSure(QByteArrayView fichier, qsizetype taille) {
  if (qsizetype{Lire<quint32>(fichier, 28)} * taille != fichier.size()) return false;
  const auto noms = PagesFeuilles(fichier, taille).LireFeuille(1);
  return !noms.lignes.isEmpty() && noms.illisibles == 0;
}

}  // namespace

PagesFeuilles::PagesFeuilles(QByteArrayView fichier, qsizetype taille)
    : fichier_(fichier), taille_(taille) {}

PagesFeuilles::Numero PagesFeuilles::Nombre() const {
  return static_cast<Numero>(fichier_.size() / taille_);
}

QByteArrayView PagesFeuilles::Page(Numero page) const {
  if (page < 1 || page > Nombre()) return {};
  return fichier_.sliced((qsizetype{page} - 1) * taille_, taille_);
}

QByteArrayView PagesFeuilles::ArbreDe(Numero page, qsizetype &debut) const {
  debut = page == 1 ? kEntete : 0;
  return Page(page);
}

PagesFeuilles::Genre PagesFeuilles::GenreDe(Numero page) const {
  qsizetype debut = 0;
  const QByteArrayView octets = ArbreDe(page, debut);
  if (octets.isEmpty()) return Genre::Autre;
  if (octets[debut] == kFeuille) return Genre::Feuille;
  return octets[debut] == kNoeud ? Genre::Noeud : Genre::Autre;
}

QByteArray PagesFeuilles::Debordement(Numero page, qsizetype reste) const {
  QByteArray octets;
  QSet<Numero> vues;
  while (reste > 0 && !vues.contains(page)) {
    vues.insert(page);
    const QByteArrayView suite = Page(page);
    if (suite.isEmpty()) break;
    const Numero suivante = Lire<Numero>(suite, 0);
    const qsizetype part = std::min(reste, taille_ - 4);
    // The chain ends with the row: one that ends before, or goes on, is none of this row.
    if ((reste > part) != (suivante != 0)) break;
    octets.append(suite.sliced(4, part));
    reste -= part;
    page = suivante;
  }
  return octets;
}

std::optional<EnregistrementLu> PagesFeuilles::LireCellule(QByteArrayView page,
                                                           qsizetype &place) const {
  Lecteur lecteur(page, place);
  const qint64 total = lecteur.Varint();
  EnregistrementLu ligne;
  ligne.cle = lecteur.Varint();
  if (!lecteur.Bon() || total < 1 || total > fichier_.size()) return std::nullopt;
  const qsizetype locale = PartLocale(total, taille_);
  const qsizetype apres = locale < total ? 4 : 0;
  if (locale + apres > page.size() - lecteur.Place()) return std::nullopt;
  QByteArray octets = page.sliced(lecteur.Place(), locale).toByteArray();
  if (apres > 0)
    octets += Debordement(Lire<Numero>(page, lecteur.Place() + locale),
                          static_cast<qsizetype>(total) - locale);
  auto champs = Champs(octets, total, ligne.entier);
  if (!champs) return std::nullopt;
  ligne.champs = *std::move(champs);
  place = lecteur.Place() + locale + apres;
  return ligne;
}

PagesFeuilles::Feuille PagesFeuilles::LireFeuille(Numero page) const {
  Feuille feuille;
  if (GenreDe(page) != Genre::Feuille) return feuille;
  qsizetype debut = 0;
  const QByteArrayView octets = ArbreDe(page, debut);
  const qsizetype places = debut + 8, annoncees = Lire<quint16>(octets, debut + 3);
  const bool plausible = annoncees <= (taille_ - places) / 6;  // what the smallest row takes
  const qsizetype nombre = std::min(annoncees, (taille_ - places) / 2);
  for (qsizetype i = 0; i < nombre; ++i) {
    qsizetype place = Lire<quint16>(octets, places + 2 * i);
    const auto ligne =
        place >= places ? LireCellule(octets, place) : std::optional<EnregistrementLu>();
    if (ligne)
      feuille.lignes.append(*ligne);
    else if (plausible)
      ++feuille.illisibles;
    else
      break;  // behind the last row there is anything
  }
  return feuille;
}

QList<EnregistrementLu> PagesFeuilles::Fouiller(Numero page, const Admission &admettre) const {
  QList<EnregistrementLu> lignes;
  const QByteArrayView octets = Page(page);
  for (qsizetype place = 0; place < octets.size();) {
    qsizetype fin = place;
    const auto ligne = LireCellule(octets, fin);
    const bool admise = ligne && admettre(*ligne);
    if (admise) lignes.append(*ligne);
    place = admise ? fin : place + 1;
  }
  return lignes;
}

QList<PagesFeuilles::Branche> PagesFeuilles::LireNoeud(Numero page) const {
  QList<Branche> branches;
  if (GenreDe(page) != Genre::Noeud) return branches;
  qsizetype debut = 0;
  const QByteArrayView octets = ArbreDe(page, debut);
  const qsizetype places = debut + 12;
  const qsizetype nombre =
      std::min<qsizetype>(Lire<quint16>(octets, debut + 3), (taille_ - places) / 2);
  for (qsizetype i = 0; i < nombre; ++i) {
    const qsizetype place = Lire<quint16>(octets, places + 2 * i);
    if (place < places || place > taille_ - 5) continue;
    Lecteur lecteur(octets, place + 4);
    const qint64 cle = lecteur.Varint();
    if (lecteur.Bon()) branches.append({Lire<Numero>(octets, place), cle});
  }
  branches.append({Lire<Numero>(octets, debut + 8), std::nullopt});
  return branches;
}

QSet<PagesFeuilles::Numero> PagesFeuilles::Libres() const {
  QSet<Numero> libres;
  if (Nombre() == 0) return libres;
  Numero tronc = Lire<Numero>(fichier_, 32);
  while (!libres.contains(tronc) && GenreDe(tronc) == Genre::Autre) {
    const QByteArrayView octets = Page(tronc);
    if (octets.isEmpty()) break;
    libres.insert(tronc);
    const qsizetype nombre = std::min<qsizetype>(Lire<Numero>(octets, 4), taille_ / 4 - 2);
    for (qsizetype i = 0; i < nombre; ++i) libres.insert(Lire<Numero>(octets, 8 + 4 * i));
    tronc = Lire<Numero>(octets, 0);
  }
  return libres;
}

qsizetype TaillePages(QByteArrayView fichier) {
  QList<qsizetype> tailles{kPageUsuelle};
  for (qsizetype taille = kPlusPetitePage; taille <= 65536; taille *= 2)
    if (taille != kPageUsuelle) tailles.append(taille);
  if (fichier.size() >= kEntete) {
    const qsizetype dite = Lire<quint16>(fichier, 16);
    const qsizetype taille = dite == 1 ? 65536 : dite;
    if (tailles.removeOne(taille)) tailles.prepend(taille);
    if (tailles.constFirst() == taille && EstSure(fichier, taille)) return taille;
  }
  qsizetype meilleure = tailles.constFirst(), plus = -1;
  for (const qsizetype taille : tailles) {
    const qsizetype lignes = Rendement(fichier, taille);
    if (lignes > plus) plus = lignes, meilleure = taille;
  }
  return meilleure;
}
