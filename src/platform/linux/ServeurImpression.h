#pragma once

#include "platform/Erreurs.h"
#include "platform/Papier.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

struct _http_s;

/// A talk with the print server of the system. Every method waits for its answer for as long as
/// `kPatience`, so that it belongs beside the windows, and throws `Erreur` where the server keeps
/// silent longer, with words for the user that name no document.
class ServeurImpression {
 public:
  static constexpr std::chrono::seconds kPatience{5};

  struct Files {
    QStringList noms;   ///< of the queues; a variant of a queue is "name/variant"
    QString parDefaut;  ///< empty for none
  };

  /// Connects; a system without a print server has no queues. `arret` ends every waiting.
  explicit ServeurImpression(std::stop_token arret = {});
  ~ServeurImpression();
  ServeurImpression(const ServeurImpression &) = delete;
  ServeurImpression &operator=(const ServeurImpression &) = delete;

  Files Lister();

  /// What a printer knows of a paper.
  struct Support {
    QString nom;  ///< for the server
    Taille taille;
    Marges marges{};         ///< what it cannot print on, of the sheet
    bool surMesure = false;  ///< none of its sizes, but it takes any
  };

  /// The medium of a queue for the sheets of a paper: A4, or for an envelope the printer's own size
  /// that is meant, else one made to measure. Nothing where there is no such queue. Throws `Erreur`
  /// also where the printer takes no such paper.
  std::optional<Support> SupportPour(const QString &file, const Papier &papier);

  /// How a document goes.
  struct Envoi {
    QString support;
    bool recto = false;  ///< one side of each sheet, whatever the user has chosen for this printer
    bool telQuel = false;  ///< so is whatever turns, scales or gathers its pages
  };

  /// The server has kept silent after it had taken a document: it may be printed.
  class RemiseIncertaine : public Erreur {
   public:
    using Erreur::Erreur;
  };

  /// Hands a document over. Throws `RemiseIncertaine`; and `Erreur` also where the queue is gone,
  /// out of service or refuses it, or where the job has failed within its first moments; nothing of
  /// it stays in the queue then, nor where `arret` ends it. What becomes of it later is not known.
  /// Gives the name of the source that the user has chosen for this printer; empty where the
  /// printer chooses.
  QString Envoyer(const QString &file, const QString &titre, const QByteArray &pdf,
                  const Envoi &envoi);

 private:
  class Destination;

  void Patienter();
  bool SansReponse() const;
  void ExigerReponse() const;
  Support SupportA4(const Destination &destination) const;
  Support SupportEnveloppe(const Destination &destination, const Papier &papier) const;
  bool PrendSurMesure(const Destination &destination, const Taille &feuille) const;
  void Ecrire(const Destination &destination, int travail, const QByteArray &pdf);
  void Suivre(const Destination &destination, int travail);
  void Retirer(const QString &file, int travail);

  std::stop_token arret_;
  std::chrono::steady_clock::time_point fin_;
  int annulee_ = 0;  ///< the library looks at it while it connects
  std::stop_callback<std::function<void()>> annulation_;
  std::unique_ptr<_http_s, void (*)(_http_s *)> liaison_;
};
