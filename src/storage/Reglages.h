#pragma once
// The settings: small text files in the application folder, one set for all users of a computer.
//
// Reading never fails: a file, a key or a value that cannot be read leaves what stood there before.
// Writing replaces the whole file and throws `ErreurFichier`. A number that is none of an enum's,
// or neither yes nor no, is kept and written back as it stands.

#include "platform/Millimetres.h"

#include <QString>
#include <QStringList>

#include <optional>

/// A yes or no that its file keeps as a number.
class Drapeau {
 public:
  constexpr Drapeau() = default;
  constexpr Drapeau(bool leve) : nombre_(leve ? 1 : 0) {}  // NOLINT(google-explicit-constructor)
  static constexpr Drapeau DepuisNombre(quint8 nombre) {
    Drapeau drapeau;
    drapeau.nombre_ = nombre;
    return drapeau;
  }

  /// Yes: the number is 1.
  constexpr operator bool() const { return nombre_ == 1; }  // NOLINT(google-explicit-constructor)
  /// No: the number is 0. Any other is neither.
  constexpr bool EstNul() const { return nombre_ == 0; }
  constexpr quint8 Nombre() const { return nombre_; }

 private:
  quint8 nombre_ = 0;
};

/// How the sheet lies in the tray.
enum class OrientationFeuille : quint8 { NonConfiguree = 0, Portrait = 1, Paysage = 2 };

/// Landscape: which end of the envelope is printed first.
enum class BordImprime : quint8 { NonConfigure = 0, Gauche = 1, Droit = 2 };

/// Where the envelope lies in the tray.
enum class PositionEnveloppe : quint8 { NonConfiguree = 0, Haut = 1, Milieu = 2, Bas = 3 };

/// Of the lines of a text zone.
enum class Alignement : qint16 { Gauche = 0, Droite = 1, Centre = 2 };

/// What the record says of the birth date.
enum class AffichageNaissance : quint8 { Date = 0, Age = 1, Rien = 2 };

/// `Plomex.ini`. Sizes in points; margins are whole millimetres in the file.
struct ReglagesPlomex {
  QString Imprimante;  ///< device name
  OrientationFeuille Orientation = {};
  ::BordImprime BordImprime = {};
  ::PositionEnveloppe PositionEnveloppe = {};
  QString PoliceA, PoliceE;  ///< fonts of the addressee, of the sender
  qint16 TailleA = 0, TailleE = 0;
  Drapeau GrasA = false, GrasE = false;  ///< whole block in bold
  Drapeau NePas = false;                 ///< never print a sender
  Drapeau SautLigne = false;             ///< a blank line after every address line
  Drapeau SautDLigne = false;            ///< a blank line before the last line
  Drapeau GrasDLigne = false;            ///< last line in bold
  Drapeau SautPLigne = false;            ///< a blank line after the first line
  Drapeau GrasPLigne = false;            ///< first line in bold
  Millimetres MargeHaute;                ///< a greater value moves the print down
  Millimetres MargeDroite;               ///< a greater value moves the print to the right
  qint16 Raccourci = 0;                  ///< key that prints, see Raccourci.h
  Drapeau Minimise = false;              ///< minimise the window after printing
  Millimetres MargeMAX, MargeMAY;        ///< fine shift of the address zone, on the DL reference
  Millimetres MargeMEX, MargeMEY;        ///< fine shift of the sender zone
  Alignement AlignE = {}, AlignA = {};
  bool Adresse = false;    ///< show the imported addresses
  bool Enveloppe = false;  ///< open on the envelope window
  bool AdresseEnGras = false;
  bool TaillePoliceTV1 = false, TaillePoliceTV2 = false;  ///< list font of 9, of 10 points
  bool Telephone = false;                                 ///< dialling is in use
  bool IcoMenu = false;                                   ///< what belongs to dialling is hidden
  bool NonLu = false;                                     ///< see `Reglages`
};

/// `RTColor.ini`: one record.
struct ReglagesRTColor {
  qint16 CouleurR = 225, CouleurV = 150, CouleurB = 70;
  QString NomPerso = QStringLiteral("Utilisateur");
  quint8 PortCom = 1;
  qint32 TailleFenetre = 9000;  ///< twips; 9000 is the design size
  Drapeau OuvrirSurFavoris = false;
  Drapeau MenuClicDroit = false;
  ::AffichageNaissance AffichageNaissance = {};
  Drapeau AnnulerCommentaire = false;   ///< the comment is dropped after each printing
  Drapeau InterdireCommentaire = true;  ///< the comment is left out of multiple printing
  qint16 VitesseTransition = 0;         ///< milliseconds
  Drapeau EffetVisuel = false;
  Drapeau FondUni = false;  ///< 0 gradient, otherwise plain
  bool NonLu = false;       ///< see `Reglages`
};

/// `Memora.ini`: how the companion of the sticky notes starts. At most one is set.
struct ReglagesMemora {
  Drapeau LancerAuDemarrage = false;
  Drapeau AssocierAlertes = false;
  bool NonLu = false;  ///< see `Reglages`
};

/// `Alarme.ini`: when the companion of the alerts starts.
struct ReglagesAlarme {
  Drapeau AlerteAvecWindows = false;
  Drapeau AlerteAvecProgramme = false;
  Drapeau AlerteDivers = false;
  bool NonLu = false;  ///< see `Reglages`
};

/// `Alarme.ini` of an older version: five values.
struct AncienneAlarme {
  quint8 JoursAvance = 0;  ///< days of notice, one number for all events
  ReglagesAlarme alarme;
};

/// Nothing when the file is missing or has the present form. A value that makes no sense is 0.
/// Throws `ErreurFichier` when the file is there and cannot be read.
std::optional<AncienneAlarme> LireAncienneAlarme(const QString &appPath);

/// `Sauvan.cfg`, written by the recovery of older products' data.
struct ReglagesSauvan {
  Drapeau RecuperationFaite = false;
  Drapeau AdressesPresentes = false;  ///< there are imported addresses to show
};

/// Which lines of an address the postal norm writes in capitals, its country always.
enum class CapitalesNorme : quint8 { DerniereLigne = 0, TroisDernieres = 1, Toutes = 2 };

/// How an address is written by the postal norm (see address/NormePostale.h); in `Preferences.ini`.
struct ReglagesNorme {
  bool Active = false;
  CapitalesNorme Capitales = CapitalesNorme::TroisDernieres;
  bool Accents = true;  ///< capitals keep them
  bool NonLu = false;   ///< see `Reglages`

  friend bool operator==(const ReglagesNorme &, const ReglagesNorme &) = default;
};

/// Reading settings never fails; what a file that is there could not tell keeps its default, and
/// `NonLu` is set. Such a file is never written over: its settings would be lost for good.
struct Reglages {
  ReglagesPlomex plomex;
  ReglagesRTColor rtcolor;
  ReglagesMemora memora;
  ReglagesAlarme alarme;
  ReglagesSauvan sauvan;
  ReglagesNorme norme;
  QString SeparateurTel = QStringLiteral(" ");  ///< between the pairs of digits of a number
  QString LiaisonCP = QStringLiteral(" - ");    ///< between postal code and town
  bool LiaisonNonLue = false;                   ///< the file of both
};

/// All of them, as a run begins with them. A missing `Plomex.ini` gives its defaults, a missing
/// `RTColor.ini` is written with its own, if that can be done. What `Sauvan.cfg` says of the
/// imported addresses, when it is there, holds over the tick that `Plomex.ini` stores.
void LireReglages(const QString &appPath, Reglages &reglages);

/// What the names of a printer and of a font are cut to when they are read.
inline constexpr qsizetype kLongueurImprimante = 39, kLongueurPolice = 29;

/// Whether a name of `Plomex.ini` may be less than what was stored: cut to `longueur`, or with a
/// "?" for a character that the code page lacks.
bool PeutEtreAbrege(const QString &nom, qsizetype longueur);

/// Which of the system's names a name of `Plomex.ini` stands for: the same one, else the only one
/// that the file would give back so. None when there is no such name, or are several.
std::optional<QString> NomComplet(const QStringList &noms, const QString &nom, qsizetype longueur);

/// The writers throw `ErreurFichier`, also for settings that are `NonLu`; the file is then
/// untouched. Writes the 33 keys, each in its place; whatever else the file holds stays.
void EcrireReglages(const QString &appPath, const ReglagesPlomex &plomex);

void EcrireRTColor(const QString &appPath, const ReglagesRTColor &rtcolor);
void EcrireNorme(const QString &appPath, const ReglagesNorme &norme);
/// `Sauvan.cfg`, once an older database has been taken over, with or without imported addresses:
/// what it says already stays said. Written by the companion that takes over, and nobody else.
void NoterRecuperation(const QString &appPath, bool adresses);
void EcrireMemora(const QString &appPath, const ReglagesMemora &memora);

/// Read again while the program runs: the companion writes it too.
void LireAlarme(const QString &appPath, ReglagesAlarme &alarme);
void EcrireAlarme(const QString &appPath, const ReglagesAlarme &alarme);

/// Where `Liaison.cfg` stands.
QString CheminLiaison(const QString &appPath);
/// `Liaison.cfg`: the separator of telephone numbers; a blank without the file.
/// Throws `ErreurFichier` when the file is there and cannot be read.
QString LireSeparateurTel(const QString &appPath);
/// Both values of the file: the separator, and the text between postal code and town.
void EcrireLiaison(const QString &appPath, const Reglages &reglages);
