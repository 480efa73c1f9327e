#include "platform/linux/PortSerieSysteme.h"

#include <termios.h>
#include <utility>

PortSerieSysteme::PortSerieSysteme(QString prefixe) : prefixe_(std::move(prefixe)) {}

bool PortSerieSysteme::Ouvrir(int numero) {
  Fermer();
  port_.setPortName(prefixe_ + QString::number(numero - 1));
  port_.setBaudRate(QSerialPort::Baud9600);
  port_.setDataBits(QSerialPort::Data8);
  port_.setParity(QSerialPort::NoParity);
  port_.setStopBits(QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
  return port_.open(QIODevice::ReadWrite);
}

void PortSerieSysteme::Ecrire(const QByteArray &octets) {
  if (!port_.isOpen()) return;
  port_.write(octets);
  // Closing drops what has not gone out.
  port_.flush();
}

QByteArray PortSerieSysteme::Lire() {
  return port_.isOpen() ? port_.readAll() : QByteArray();
}

bool PortSerieSysteme::Vivant() const {
  return port_.isOpen() && port_.error() == QSerialPort::NoError;
}

void PortSerieSysteme::Fermer() {
  if (!port_.isOpen()) return;
  // Closing puts the old speed back at once, under bytes that may still be on their way out.
  ::tcdrain(port_.handle());
  port_.close();
}
