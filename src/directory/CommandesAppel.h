#pragma once

#include "session/Session.h"

#include <QObject>

#include <array>

class PanneauFiche;
class QAction;
class QMenu;
class QWidget;

/// Dialling through the modem, mail and web addresses, and what belongs to dialling in the menus.
/// The modem dials, the user takes up the telephone, and the modem is told to hang up.
class CommandesAppel : public QObject {
  Q_OBJECT

 public:
  struct Controles {
    QAction *mnuTel, *mnuMasquerTel;
    QMenu *mnuPort;
    std::array<QAction *, 5> mnuCom;  ///< ports 1 to 4, then any other
    QAction *mnuVolume, *mnuADSL;
    QWidget *bouton;  ///< of the command bar
    PanneauFiche *fiche;
  };

  /// Brings the controls to the state of the settings.
  CommandesAppel(Session &session, const Controles &controles, QObject *parent);

  /// Asks for a number to call or an address to write to.
  void Demander();

  /// Ends the call that is under way, if there is one: the program closes.
  void Raccrocher() { FinAppel = true; }

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
  Controles controles_;
  bool enCours_ = false;  ///< a call is under way
  bool FinAppel = false;
};
