#pragma once

#include <QByteArray>
#include <QMarginsF>
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

  /// What a queue cannot print on at the edges of an upright A4 sheet, in millimetres; nothing
  /// where there is no such queue.
  std::optional<QMarginsF> MargesA4(const QString &file);

  /// Hands a document over. Throws `Erreur` also where the queue is gone, out of service or refuses
  /// it, or where the job has failed within its first moments; nothing of it stays in the queue
  /// then, nor where `arret` ends it. What becomes of it later is not known. `recto` prints one
  /// side of each sheet, whatever the user has chosen for this printer.
  void Envoyer(const QString &file, const QString &titre, const QByteArray &pdf, bool recto);

 private:
  class Destination;

  void Patienter();
  bool SansReponse() const;
  void ExigerReponse() const;
  void Ecrire(const Destination &destination, int travail, const QByteArray &pdf);
  void Suivre(const Destination &destination, int travail);
  void Retirer(const QString &file, int travail);

  std::stop_token arret_;
  std::chrono::steady_clock::time_point fin_;
  int annulee_ = 0;  ///< the library looks at it while it connects
  std::stop_callback<std::function<void()>> annulation_;
  std::unique_ptr<_http_s, void (*)(_http_s *)> liaison_;
};
