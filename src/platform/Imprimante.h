#pragma once
// The printing interface: documents, opened on a device by its name, with text and lines placed in
// millimetres.

#include "platform/Papier.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <stop_token>

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

/// A sheet on which lines of text are written. Places are counted from the corner of the printable
/// area, where nothing else is said.
class Feuille : public MesureTexte {
 public:
  /// Writes one line by the place of its left end and its top.
  virtual void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) = 0;

  /// Draws a straight line.
  virtual void Tracer(Point de, Point a, Millimetres epaisseur) = 0;
};

/// How a printing has ended.
struct FinImpression {
  enum class Issue {
    Imprimee,
    Enregistree,
    Echouee,
    Incertaine,  ///< the system has kept silent in the middle: it may be printed all the same
  };

  Issue issue = Issue::Echouee;
  QString fichier = {};  ///< path of what was written, where it is `Enregistree`
  QString raison =
      {};  ///< why it is `Echouee` or `Incertaine`, as words for the user; empty where nobody knows
  /// Size, turn and source of another paper than the A4 sheet, as words for the user.
  QString envoi = {};

  friend bool operator==(const FinImpression &, const FinImpression &) = default;
};

/// Pages to be printed together. It begins with one page; nothing is printed before it is ended,
/// and a document that goes without that is given up: nothing of it is printed.
class Document : public Feuille {
 public:
  /// Width and height of the printable area of a page.
  virtual Millimetres LargeurPage() const = 0;
  virtual Millimetres HauteurPage() const = 0;
  /// The corner of the printable area, as places are counted: what is before it is cut off.
  virtual Point CoinImprimable() const = 0;

  /// Adds a page; what is written from now on goes there.
  virtual void NouvellePage() = 0;

  /// Prints it, as its last call. `Echouee` where nothing was written, or the device is gone, out
  /// of service or refuses it; what becomes of a document that a device has taken is not known
  /// here. May wait for the system for some seconds.
  virtual FinImpression Terminer() = 0;
};

/// What a document is like.
struct DescriptionDocument {
  QString nom{};  ///< its title; begins the name of its file, with what such a name can hold
  Papier papier{};
  Correction correction{};  ///< for what the device does to such pages
  /// Places are counted from the paper's corner, and nothing may be scaled or turned on the way.
  bool depuisLeBord = false;
  /// Left around its pages in a file, whose sheets have no margins of their own.
  Millimetres margeFichier{};
  bool recto = false;  ///< each page on a sheet of its own, whatever the printer does by itself
  std::stop_token arret{};  ///< the document is given up: no waiting for the system goes on
};

class Imprimante {
 public:
  virtual ~Imprimante() = default;

  /// Name of the built-in printer that writes one file a document into the user's documents.
  static QString NomPdf() { return QStringLiteral("PDF"); }

  // The system may be slow to answer, so that whoever waits for it does so beside the windows, in
  // any thread; it is waited for a few seconds at most.

  /// Device names: the system's printers, then `NomPdf()`. Throws `Erreur` where the system does
  /// not answer.
  virtual QStringList Noms() = 0;

  /// The system's default printer, else `NomPdf()`. Throws `Erreur` where the system does not
  /// answer.
  virtual QString ParDefaut() = 0;

  /// Begins a document on the device of this name. Throws `Erreur` where there is no such device,
  /// or the system does not answer. A document goes before its printer.
  virtual std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                           const DescriptionDocument &description) = 0;

  /// The device names that the system has given last, `NomPdf()` alone before. Never waits.
  virtual QStringList NomsConnus() const = 0;

  /// Asks for the device names beside the windows, and calls `suite` in their thread when the
  /// system has answered, or with false when it has not; never where `contexte` has gone by then.
  virtual void Demander(QObject *contexte, std::function<void(bool repondu)> suite) = 0;
};
