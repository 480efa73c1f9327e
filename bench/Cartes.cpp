#include "Cartes.h"

#include "exchange/ExportPersonnes.h"
#include "exchange/Reprise.h"
#include "platform/Fichiers.h"
#include "storage/Base.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFichiers = 10;

const QByteArray kFin = "END:VCARD\r\n";

BilanReprise Reprendre(Base &base, const QStringList &fichiers) {
  QList<FichierRepris> repris;
  for (const QString &fichier : fichiers) repris.append(Regarder(fichier, {}));
  return ReprendrePersonnes(base, repris, {u" "_s, {}}, {},
                            [](qsizetype, qsizetype) { return true; });
}

/// Whether all of them have come as it is known of the table.
bool EstEntier(const BilanReprise &bilan, qsizetype nombre, Annuaire annuaire) {
  const qsizetype ajoutes = annuaire == Annuaire::Connus ? 0 : nombre;
  const qsizetype completes = annuaire == Annuaire::Connus ? nombre / 10 : 0;
  return bilan.ajoutes == ajoutes && bilan.completes == completes &&
         bilan.identiques == nombre - ajoutes - completes && bilan.ecarts.lignes.isEmpty();
}

/// The cards of other people: of another name, other numbers, another mail.
QByteArray Autrement(QByteArray cartes, int numero) {
  const QByteArray n = QByteArray::number(numero);
  return cartes.replace("\r\nN:", "\r\nN:Lot" + n + ' ')
      .replace("\r\nFN:", "\r\nFN:Lot" + n + ' ')
      .replace("02 61 91", "02 6" + n + " 92")
      .replace("06 39 98", "06 4" + n + " 98")
      .replace("\r\nEMAIL:", "\r\nEMAIL:lot" + n + '.');
}

#ifdef VELMIRA_EVOLUTION

/// A session that knows nothing of this user's.
QProcessEnvironment Isolement(const QDir &dossier) {
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  for (const QString &nom : {u"DATA_HOME"_s, u"CONFIG_HOME"_s, u"CACHE_HOME"_s, u"RUNTIME_DIR"_s}) {
    const QString chemin = dossier.absoluteFilePath(nom);
    dossier.mkdir(nom);
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    milieu.insert(u"XDG_"_s + nom, chemin);
  }
  return milieu;
}

#endif

}  // namespace

void ReprendreCartes(benchmark::State &etat, const Envoi &envoi, Annuaire annuaire) {
  for (auto _ : etat) {
    const Atelier atelier;
    Base base;
    base.Ouvrir(atelier.CopierBase(envoi.Base(annuaire)));
    BilanReprise bilan;
    Chronometrer(etat, [&] { bilan = Reprendre(base, {envoi.Cartes()}); });
    if (!EstEntier(bilan, envoi.Nombre(), annuaire)) etat.SkipWithError("cards are missing");
  }
}

void ReprendreParEvolution(benchmark::State &etat, const Envoi &envoi) {
#ifdef VELMIRA_EVOLUTION
  const QString session = QStandardPaths::findExecutable(u"dbus-run-session"_s);
  if (!session.isEmpty()) {
    for (auto _ : etat) {
      const QTemporaryDir dossier(u"evolution-XXXXXX"_s);
      QProcess processus;
      processus.setProcessEnvironment(Isolement(QDir(dossier.path())));
      processus.start(session, {u"--"_s, QStringLiteral(VELMIRA_EVOLUTION), envoi.AutresCartes(),
                                envoi.Cartes(), QString::number(2 * envoi.Nombre())});
      processus.waitForFinished(-1);
      bool nombre = false;
      const double secondes = processus.readAllStandardOutput().trimmed().toDouble(&nombre);
      if (processus.exitCode() != 0 || !nombre) {
        etat.SkipWithError("the data server has not taken them");
        return;
      }
      etat.SetIterationTime(secondes);
    }
    return;
  }
#endif
  static_cast<void>(envoi);
  etat.SkipWithError("not installed");
}

QList<LotDeCartes> LotsDeCartes(const Envoi &envoi, const Atelier &atelier) {
  const QByteArray cartes = LireFichier(envoi.Cartes()).value();
  LotDeCartes un{envoi.Nombre(), {envoi.Cartes()}}, dix{envoi.Nombre(), {}};
  LotDeCartes autres{kFichiers * envoi.Nombre(), {}};
  qsizetype place = 0;
  for (int fichier = 0; fichier < kFichiers; ++fichier) {
    const qsizetype debut = place;
    for (qsizetype carte = 0; carte < envoi.Nombre() / kFichiers; ++carte)
      place = cartes.indexOf(kFin, place) + kFin.size();
    dix.fichiers.append(atelier.Chemin(u"part%1.vcf"_s.arg(fichier)));
    RemplacerFichier(dix.fichiers.constLast(), cartes.sliced(debut, place - debut));
    autres.fichiers.append(atelier.Chemin(u"lot%1.vcf"_s.arg(fichier)));
    RemplacerFichier(autres.fichiers.constLast(), Autrement(cartes, fichier));
  }
  return {un, dix, autres};
}

void Reprendre(const QString &base, const QStringList &fichiers) {
  Base ouverte;
  ouverte.Ouvrir(base);
  Reprendre(ouverte, fichiers);
}
