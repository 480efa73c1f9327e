#include "alerts/NotesMemora.h"

#include "platform/Fichiers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QJsonObject Objet(const NoteMemora &note) {
  return {{u"numero"_s, note.numero},
          {u"texte"_s, note.texte},
          {u"place"_s,
           QJsonArray{note.place.x(), note.place.y(), note.place.width(), note.place.height()}},
          {u"couleur"_s, note.couleur},
          {u"points"_s, note.points},
          {u"montree"_s, note.montree}};
}

bool EstCouleur(const QString &texte) {
  return texte.size() == 7 && texte.startsWith(u'#') &&
         std::all_of(texte.cbegin() + 1, texte.cend(),
                     [](QChar c) { return u"0123456789abcdefABCDEF"_s.contains(c); });
}

NoteMemora Note(const QJsonObject &objet) {
  constexpr int kPetit = 6, kGrand = 72;
  NoteMemora note;
  note.numero = objet[u"numero"_s].toInt();
  note.texte = objet[u"texte"_s].toString();
  const QJsonArray place = objet[u"place"_s].toArray();
  note.place = {place.at(0).toInt(), place.at(1).toInt(), place.at(2).toInt(), place.at(3).toInt()};
  if (const QString couleur = objet[u"couleur"_s].toString(); EstCouleur(couleur))
    note.couleur = couleur;
  note.points = std::clamp(objet[u"points"_s].toInt(note.points), kPetit, kGrand);
  note.montree = objet[u"montree"_s].toBool(true);
  return note;
}

/// A name that none bears yet.
QString NomAEcart(const QString &chemin) {
  QString nom = chemin + u".illisible"_s;
  for (int i = 2; EstPresent(nom); ++i) nom = chemin + u".illisible%1"_s.arg(i);
  return nom;
}

}  // namespace

NotesMemora::NotesMemora(const QString &appPath) : chemin_(appPath + u"/MemoraNotes.json"_s) {
  if (const auto octets = LireFichier(chemin_)) Lire(*octets);
}

void NotesMemora::Lire(const QByteArray &octets) {
  const QJsonDocument document = QJsonDocument::fromJson(octets);
  if (!document.isArray()) {
    ecarte_ = NomAEcart(chemin_);
    RenommerFichier(chemin_, ecarte_);
    return;
  }
  const QJsonArray notes = document.array();
  for (const auto valeur : notes) {
    NoteMemora note = Note(valeur.toObject());
    note.numero = NumeroLibre();
    if (PeutAjouter()) notes_.append(note);
  }
}

int NotesMemora::NumeroLibre() const {
  int numero = 1;
  while (std::ranges::any_of(notes_, [&](const NoteMemora &n) { return n.numero == numero; }))
    ++numero;
  return numero;
}

void NotesMemora::Ecrire(const QList<NoteMemora> &notes) {
  enRetard_ = true;
  QJsonArray tableau;
  for (const NoteMemora &note : notes) tableau.append(Objet(note));
  RemplacerFichier(chemin_, QJsonDocument(tableau).toJson());
  notes_ = notes;
  enRetard_ = false;
}

NoteMemora NotesMemora::Ajouter() {
  NoteMemora note;
  note.numero = NumeroLibre();
  Ecrire(notes_ + QList{note});
  return note;
}

void NotesMemora::Changer(const NoteMemora &note) {
  const auto place = std::ranges::find(notes_, note.numero, &NoteMemora::numero);
  if (place == notes_.end() || (*place == note && !enRetard_)) return;
  *place = note;
  Ecrire(notes_);
}

void NotesMemora::Supprimer(int numero) {
  const auto place = std::ranges::find(notes_, numero, &NoteMemora::numero);
  if (place == notes_.end()) return;
  const NoteMemora supprimee = *place;
  QList<NoteMemora> reste = notes_;
  reste.removeOne(supprimee);
  Ecrire(reste);
  supprimee_ = supprimee;
}

NoteMemora NotesMemora::Rendre() {
  NoteMemora note = *supprimee_;
  note.numero = NumeroLibre();
  Ecrire(notes_ + QList{note});
  supprimee_.reset();
  return note;
}
