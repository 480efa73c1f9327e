#pragma once

#include "platform/Horloge.h"
#include "platform/Imprimante.h"

#include <QPointer>

#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

/// The printers of the system, and the built-in one: "PDF", whose printable area is the whole page
/// without the margin of the document. It writes each document into its folder, under a name made
/// of date, time and a number; a file that is there already is never replaced. On the printers of
/// the system the pages are turned as their paper says; a paper that a printer lacks fails.
class ImprimanteSysteme : public Imprimante {
 public:
  /// `dossierPdf` is made when a document is written and it is missing; an empty one stands for the
  /// user's documents.
  explicit ImprimanteSysteme(const Horloge &horloge, QString dossierPdf = {});

  QStringList Noms() override;
  QString ParDefaut() override;
  std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                   const DescriptionDocument &description) override;
  QStringList NomsConnus() const override;
  void Demander(QObject *contexte, std::function<void(bool repondu)> suite) override;

 private:
  QStringList Interroger(const std::stop_token &arret);
  void Repondre(bool repondu);

  const Horloge &horloge_;
  QString dossierPdf_;
  mutable std::mutex verrou_;
  QStringList connus_{NomPdf()};  ///< under the lock

  // Of the windows' thread: who waits for the answer that is asked for.
  std::vector<std::pair<QPointer<QObject>, std::function<void(bool)>>> suites_;
  QObject relais_;
  std::jthread question_;  ///< last: it uses the others
};
