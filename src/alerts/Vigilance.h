#pragma once
// What is to be told of the events on a day: what is due, what was missed, what comes.

#include "alerts/Echeance.h"
#include "alerts/MemoireAlertes.h"
#include "storage/Tables.h"

#include <QLocale>
#include <QSet>
#include <QStringList>

/// An event with the day that is meant.
struct Alerte {
  Cle evenement = 0;
  QString nom, type;
  QDate jour;
  int dans = 0;            ///< days from today to it; negative when it is past
  std::optional<int> age;  ///< years on that day, where the event tells it and the birth is known
  bool due = false;        ///< its alert has begun

  friend bool operator==(const Alerte &, const Alerte &) = default;
};

/// The events of a database, without those whom the list hides from the user.
struct EvenementsLus {
  QString base;                         ///< path of the file; empty where there is none
  QList<PersonneEvenements> personnes;  ///< who is not hidden
  QString reserve;  ///< in words, why it is not the base that was chosen; empty where it is
};

/// The names, in capitals, of whom the list shows a user nobody. Throws `ErreurBase`.
QSet<QString> NomsCaches(const TableAdresse &table, const QString &utilisateur);

/// The people in force whom the list does not hide. Throws `ErreurBase`.
QList<PersonneEvenements> PersonnesVisibles(Base &base, const QString &utilisateur);

/// Finds the database as a run of the program does, reads it and lets go of it. Throws `ErreurBase`
/// or `ErreurFichier`.
EvenementsLus LireEvenements(const QString &appPath, const QString &utilisateur);

/// What to ask Velmira for, to show somebody: the key of the one record of that name, or the name
/// where there is none or several. Throws as `LireEvenements` does.
QString CibleDe(const QString &appPath, const QString &utilisateur, const QString &nom);

struct Vigilance {
  QList<Alerte> dues{};      ///< the nearest first
  QList<Alerte> manquees{};  ///< the latest first
  QDate depuis;              ///< when it was looked at before; none at the first time
  int vues = 0;              ///< due ones that are left out since they have been seen

  bool EstVide() const { return dues.isEmpty() && manquees.isEmpty(); }
};

/// What is due and was not seen, and whose day passed since it was last looked at while nobody was
/// told. What was seen before is due again on the day itself. At the first time nothing was missed.
Vigilance Surveiller(const QList<PersonneEvenements> &personnes, const MemoireAlertes &memoire,
                     QDate aujourdhui);

/// The active events of the next `jours` days, today's among them, and whatever is due by now; the
/// nearest first.
QList<Alerte> ProchainesAlertes(const QList<PersonneEvenements> &personnes, QDate aujourdhui,
                                int jours);

/// What has become of the due ones that are left out, as a sentence; empty where there is none.
QString TexteVues(int vues);
/// "aujourd'hui", "demain", "dans 5 jours", "hier", "il y a 3 jours".
QString TexteEcart(int dans);
/// "49 ans"; empty without an age.
QString TexteAgeAlerte(const Alerte &alerte);
/// "ven. 04/12 · Delmas Élodie · Anniversaire · 48 ans".
QString LigneAlerte(const Alerte &alerte, const QLocale &langue);
/// One line for each alert, with tabulators between kind, date, distance, name, event and age.
QStringList LignesDeListe(const Vigilance &vigilance);
