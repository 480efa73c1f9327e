#pragma once

#include <QByteArray>

/// A serial port. One is open at a time.
class PortSerie {
 public:
  virtual ~PortSerie() = default;

  /// Opens port `numero`, counted from 1, at 9600 baud, 8 data bits, no parity, 1 stop bit. False
  /// when it is not there or cannot be opened.
  virtual bool Ouvrir(int numero) = 0;

  /// Sends bytes. A failure is silent.
  virtual void Ecrire(const QByteArray &octets) = 0;

  /// What has come in since the last call; never waits.
  virtual QByteArray Lire() = 0;

  /// Whether the open port can still be used: false once the device has gone.
  virtual bool Vivant() const = 0;

  virtual void Fermer() = 0;
};
