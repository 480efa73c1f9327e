#pragma once

#include "platform/PortSerie.h"

#include <QSerialPort>
#include <QString>

/// The serial ports of the computer: port n is the device `prefixe` followed by n - 1. Bytes come
/// in, and a device that has gone is seen, while events are let through.
class PortSerieSysteme : public PortSerie {
 public:
  explicit PortSerieSysteme(QString prefixe = QStringLiteral("/dev/ttyS"));

  bool Ouvrir(int numero) override;
  void Ecrire(const QByteArray &octets) override;
  QByteArray Lire() override;
  bool Vivant() const override;
  void Fermer() override;

 private:
  QString prefixe_;
  QSerialPort port_;
};
