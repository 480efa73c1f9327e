#include "calendar/Anniversaires.h"

#include "platform/Saisie.h"

using namespace Qt::StringLiterals;

namespace {

QString Ans(int age) {
  return QString::number(age) + (age == 1 ? u" an"_s : u" ans"_s);
}

/// Nothing for a day that is better told by its date.
QString JourProche(int dans) {
  return dans == 0 ? u"aujourd'hui"_s : dans == 1 ? u"demain"_s : u""_s;
}

}  // namespace

QDate DansLAnnee(QDate date, int annee) {
  if (!date.isValid()) return {};
  const QDate jour(annee, date.month(), date.day());
  return jour.isValid() ? jour : QDate(annee, 3, 1).addDays(-1);
}

std::optional<Anniversaire> ProchainAnniversaire(const QString &ddn, QDate aujourdhui) {
  const QDate naissance = DateSaisie(ddn);
  if (!naissance.isValid() || naissance >= aujourdhui) return {};
  QDate jour = DansLAnnee(naissance, aujourdhui.year());
  if (jour < aujourdhui) jour = DansLAnnee(naissance, aujourdhui.year() + 1);
  return Anniversaire{jour, static_cast<int>(aujourdhui.daysTo(jour)),
                      jour.year() - naissance.year()};
}

QString JourEnLettres(QDate jour, const QLocale &langue) {
  return (jour.day() == 1 ? u"1er"_s : QString::number(jour.day())) + u' ' +
         langue.monthName(jour.month());
}

QString TexteAVenir(const Anniversaire &anniversaire, const QLocale &langue) {
  constexpr int kPeu = 30;
  const QString ans = Ans(anniversaire.age) + u' ';
  if (const QString proche = JourProche(anniversaire.dans); !proche.isEmpty()) return ans + proche;
  const QString texte = ans + u"le "_s + JourEnLettres(anniversaire.jour, langue);
  return anniversaire.dans > kPeu ? texte : texte + u", dans %1 jours"_s.arg(anniversaire.dans);
}

QString LigneAnniversaire(const Anniversaire &anniversaire, const QString &nom, bool age,
                          const QLocale &langue) {
  QString jour = JourProche(anniversaire.dans);
  if (jour.isEmpty())
    jour = langue.dayName(anniversaire.jour.dayOfWeek(), QLocale::ShortFormat) + u' ' +
           anniversaire.jour.toString(u"dd/MM"_s);
  const QString ligne = jour + u" · "_s + nom;
  return age ? ligne + u" · "_s + Ans(anniversaire.age) : ligne;
}
