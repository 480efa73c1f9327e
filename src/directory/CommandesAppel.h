#pragma once

#include "directory/Numerotation.h"
#include "session/Session.h"

#include <QObject>

#include <array>
#include <optional>

class PanneauFiche;
class QAction;

/// Dialling through the modem, mail and web addresses, and what belongs to dialling in the menus.
/// The modem dials, the user takes up the telephone, and the modem is told to hang up: when the
/// user says so, when it answers that there is no call, and when the function is switched off.
class CommandesAppel : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuTel, *mnuMasquerTel;
    QAction *mnuPort;                 ///< of the menu of the ports
    std::array<QAction *, 5> mnuCom;  ///< ports 1 to 4, then any other
    QAction *mnuVolume, *mnuADSL;
  };

  /// Once connected, `Appliquer` brings all to the state of the settings.
  CommandesAppel(Session &session, const Actions &actions, PanneauFiche &fiche, QObject *parent);

  void Appliquer();

  /// Asks for a number to call or an address to write to.
  void Demander();

  /// Hangs up at once, if there is a call.
  void Raccrocher();

 signals:
  /// Whether what belongs to dialling is shown.
  void Montree(bool montree);

 private:
  void AppelerFiche(const QString &numero);
  void Composer(const QString &numero);
  /// The port is open and the number on its way: waits until the call is over.
  void ConduireAppel(const QString &numero);
  /// None where the call is over without an answer: the device has gone, or the program ends.
  std::optional<ReponseModem> AttendreModem(const bool &fini);
  /// Where there is no link, what stands in the record is told.
  void OuvrirLien(const QString &texte, const std::optional<QString> &lien);

  void ChoisirPort(std::size_t choix);
  void DemanderPort();
  void ChangerPort(quint8 port);
  void BasculerNumerotation(bool active);
  void Masquer(bool masque);
  void MajPort();
  void MajVisibles();

  Session &session_;
  Actions actions_;
  PanneauFiche &fiche_;
  bool *finAppel_ = nullptr;  ///< of the call under way: whether it is over
};
