#pragma once

#include "session/Session.h"

#include <QObject>

#include <array>

class PanneauFiche;
class QAction;

/// Dialling through the modem, mail and web addresses, and what belongs to dialling in the menus.
/// The modem dials, the user takes up the telephone, and the modem is told to hang up.
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

  /// Ends the call that is under way, if there is one: the program closes.
  void Raccrocher() { FinAppel = true; }

 signals:
  /// Whether what belongs to dialling is shown.
  void Montree(bool montree);

 private:
  void AppelerFiche(const QString &numero);
  void Composer(const QString &numero);
  void AttendreModem();
  void Ecrire(const QString &adresse);

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
  bool enCours_ = false;  ///< a call is under way
  bool FinAppel = false;
};
