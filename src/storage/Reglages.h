#pragma once
// The settings: small text files in the application folder, one set for all users of a computer.
//
// Reading never fails: a file, a key or a value that cannot be read leaves what stood there before.
// Writing replaces the whole file and throws `ErreurFichier`.

#include <QString>

#include <optional>

/// `Plomex.ini`. Lengths in millimetres, sizes in points.
struct ReglagesPlomex {
  QString Imprimante;            ///< device name
  quint8 Orientation = 0;        ///< 1 portrait, 2 landscape; 0 never configured
  quint8 BordImprime = 0;        ///< landscape: 1 left, 2 right part first; 0 never configured
  quint8 PositionEnveloppe = 0;  ///< 1 top, 2 middle, 3 bottom of the tray; 0 never configured
  QString PoliceA, PoliceE;      ///< fonts of the addressee, of the sender
  qint16 TailleA = 0, TailleE = 0;
  quint8 GrasA = 0, GrasE = 0;        ///< whole block in bold
  quint8 NePas = 0;                   ///< never print a sender
  quint8 SautLigne = 0;               ///< a blank line after every address line
  quint8 SautDLigne = 0;              ///< a blank line before the last line
  quint8 GrasDLigne = 0;              ///< last line in bold
  quint8 SautPLigne = 0;              ///< a blank line after the first line
  quint8 GrasPLigne = 0;              ///< first line in bold
  qint16 MargeHaute = 0;              ///< a greater value moves the print down
  qint16 MargeDroite = 0;             ///< a greater value moves the print to the right
  qint16 Raccourci = 0;               ///< key that prints, see Raccourci.h
  quint8 Minimise = 0;                ///< minimise the window after printing
  qint16 MargeMAX = 0, MargeMAY = 0;  ///< fine shift of the address zone, on the DL reference
  qint16 MargeMEX = 0, MargeMEY = 0;  ///< fine shift of the sender zone
  qint16 AlignE = 0, AlignA = 0;      ///< 0 left, 1 right, 2 centred
  bool Adresse = false;               ///< show the imported addresses
  bool Enveloppe = false;             ///< open on the envelope window
  bool AdresseEnGras = false;
  bool TaillePoliceTV1 = false, TaillePoliceTV2 = false;  ///< list font of 9, of 10 points
  bool Telephone = false;                                 ///< dialling is in use
  bool IcoMenu = false;                                   ///< what belongs to dialling is hidden
};

/// `RTColor.ini`: one record.
struct ReglagesRTColor {
  qint16 CouleurR = 225, CouleurV = 150, CouleurB = 70;
  QString NomPerso = QStringLiteral("Utilisateur");
  quint8 PortCom = 1;
  qint32 TailleFenetre = 9000;  ///< twips; 9000 is the design size
  quint8 OuvrirSurFavoris = 0;
  quint8 MenuClicDroit = 0;
  quint8 AffichageNaissance = 0;    ///< 0 birth date, 1 age, 2 nothing
  quint8 AnnulerCommentaire = 0;    ///< the comment is dropped after each printing
  quint8 InterdireCommentaire = 1;  ///< the comment is left out of multiple printing
  qint16 VitesseTransition = 0;     ///< milliseconds
  quint8 EffetVisuel = 0;
  quint8 FondUni = 0;  ///< 0 gradient, otherwise plain
};

/// `Memora.ini`: how the companion of the sticky notes starts. At most one is set.
struct ReglagesMemora {
  quint8 LancerAuDemarrage = 0;
  quint8 AssocierAlertes = 0;
};

/// `Alarme.ini`: when the companion of the alerts starts.
struct ReglagesAlarme {
  quint8 AlerteAvecWindows = 0;
  quint8 AlerteAvecProgramme = 0;
  quint8 AlerteDivers = 0;
};

/// `Alarme.ini` of an older version: five values.
struct AncienneAlarme {
  quint8 JoursAvance = 0;  ///< days of notice, one number for all events
  ReglagesAlarme alarme;
};

/// Nothing when the file is missing or has the present form. A value that cannot be read is 0.
std::optional<AncienneAlarme> LireAncienneAlarme(const QString &appPath);

/// `Sauvan.cfg`, written by the recovery of older products' data.
struct ReglagesSauvan {
  quint8 RecuperationFaite = 0;
  quint8 AdressesPresentes = 0;  ///< there are imported addresses to show
};

struct Reglages {
  ReglagesPlomex plomex;
  ReglagesRTColor rtcolor;
  ReglagesMemora memora;
  ReglagesAlarme alarme;
  ReglagesSauvan sauvan;
  QString SeparateurTel = QStringLiteral(" ");  ///< between the pairs of digits of a number
};

/// `Plomex.ini`; a missing file gives its defaults. What `Sauvan.cfg` says of the imported
/// addresses, when it is there, holds over the tick that is stored here.
void LireReglages(const QString &appPath, Reglages &reglages);
/// Writes the 33 keys, each in its place; whatever else the file holds stays.
void EcrireReglages(const QString &appPath, const ReglagesPlomex &plomex);

/// `RTColor.ini`; a missing file is written with the defaults first, if that can be done.
void LireRTColor(const QString &appPath, ReglagesRTColor &rtcolor);
void EcrireRTColor(const QString &appPath, const ReglagesRTColor &rtcolor);

void LireMemora(const QString &appPath, ReglagesMemora &memora);
void EcrireMemora(const QString &appPath, const ReglagesMemora &memora);

void LireAlarme(const QString &appPath, ReglagesAlarme &alarme);
void EcrireAlarme(const QString &appPath, const ReglagesAlarme &alarme);

void LireSauvan(const QString &appPath, ReglagesSauvan &sauvan);

/// `Liaison.cfg`: the separator of telephone numbers, and the text between postal code and town.
/// Without the file the separator is a blank.
void LireLiaison(const QString &appPath, QString &separateurTel, QString &liaisonCP);

void EcrireLiaison(const QString &appPath, const QString &separateurTel, const QString &liaisonCP);

/// `Liaison.txt`, an older form of the second value: read once, then deleted.
void LireAncienneLiaison(const QString &appPath, QString &liaisonCP);
