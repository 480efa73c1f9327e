#pragma once
// The printing interface: a device chosen by name, A4 pages, text placed in millimetres.

#include "platform/Millimetres.h"

#include <QString>
#include <QStringList>

/// A font as the user chooses it; the size in points.
struct Police {
  QString nom;
  double points = 0;
  bool gras = false;
  bool souligne = false;

  friend bool operator==(const Police &, const Police &) = default;
};

/// Widths and line heights of text as a device draws it.
class MesureTexte {
 public:
  virtual ~MesureTexte() = default;
  virtual Millimetres Largeur(const QString &texte, const Police &police) const = 0;
  /// How far one printed line moves the position down.
  virtual Millimetres HauteurLigne(const Police &police) const = 0;
};

enum class Orientation { Portrait = 1, Paysage = 2 };

/// A sheet on which lines of text are written.
class Feuille : public MesureTexte {
 public:
  /// Writes one line: its left end and its top are counted from the corner of the printable area.
  /// A failure of the device is silent.
  virtual void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) = 0;
};

class Imprimante : public Feuille {
 public:
  /// Name of the built-in printer that writes one file a document into the user's documents.
  static QString NomPdf() { return QStringLiteral("PDF"); }

  /// Device names: the system's printers, then `NomPdf()`.
  virtual QStringList Noms() const = 0;

  /// The printer chosen last; before any choice the system's default one, else `NomPdf()`.
  virtual QString Courante() const = 0;

  /// The system's default printer, else `NomPdf()`.
  virtual QString ParDefaut() const = 0;

  /// Makes one of `Noms()` the current printer.
  virtual void Choisir(const QString &nom) = 0;

  /// Begins a document of one A4 page on the current printer.
  virtual void OuvrirPage(Orientation orientation) = 0;

  /// Begins a document of upright A4 pages of text on the current printer; the name of its file
  /// begins with `nom`. False when the printer is not there.
  virtual bool OuvrirTexte(const QString &nom) = 0;

  /// Height of the printable area of a page of the open document.
  virtual Millimetres HauteurPage() const = 0;

  /// Adds a page to the open document; what is written from now on goes there.
  virtual void NouvellePage() = 0;

  /// Sends the document. Gives the path of the file that was written, or an empty text where the
  /// document went to a device or could not be written.
  virtual QString TerminerDocument() = 0;

  /// Drops the open document: nothing of it is printed.
  virtual void AbandonnerDocument() = 0;
};
