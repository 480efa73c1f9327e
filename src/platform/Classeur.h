#pragma once
// A workbook to be written: one sheet of texts.

#include <QString>

#include <optional>
#include <vector>

/// Colours are 0xRRGGBB.
struct StyleClasseur {
  bool gras = false, italique = false, souligne = false;
  bool centre = false;               ///< horizontally
  bool lignes = false;               ///< line feeds of the text begin new lines
  std::optional<quint32> couleur{};  ///< of the text
  std::optional<quint32> fond{};
  friend bool operator==(const StyleClasseur &, const StyleClasseur &) = default;
};

struct FeuilleClasseur {
  struct Cellule {
    QString texte;  ///< never a formula or a number, whatever it looks like
    StyleClasseur style;
  };
  struct Rang {
    std::vector<Cellule> cellules;  ///< from the first column on
    StyleClasseur style;            ///< of the row behind them
    double hauteur = 0;             ///< points; 0 for the height of one line
  };

  QString nom;
  bool milieu = false;           ///< texts stand in the middle of their row's height
  std::vector<double> largeurs;  ///< of the columns, in digits of the default font
  std::vector<Rang> rangs;
};

class Classeur {
 public:
  virtual ~Classeur() = default;

  /// Writes a new file; called from the thread of a long work too. A text is cut where a cell
  /// cannot hold it. Throws `ErreurFichier`; no file is left then.
  virtual void Ecrire(const QString &chemin, const FeuilleClasseur &feuille) = 0;
};
