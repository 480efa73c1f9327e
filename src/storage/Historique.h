#pragma once
// What the user's last commands have written, so that they can be taken back.

#include "storage/Avance.h"
#include "storage/Images.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

/// A file that a command writes beside its rows.
struct FichierSuivi {
  QString chemin;
  QString nom;       ///< what the user calls it
  bool lie = false;  ///< it goes with the rows: where one of them stays, it does too
  std::optional<QByteArray> avant = {}, apres = {};  ///< nothing where there was none
};

/// What one command has written, or the taking back of one.
struct Etape {
  QString nom;      ///< of the command, for the user
  QString masques;  ///< the user whose protected records were hidden meanwhile; empty for none
  std::vector<QByteArray> images;  ///< of its transactions, in their order
  std::vector<FichierSuivi> fichiers;
  bool perdue = false;  ///< too large to be kept: it cannot be taken back

  /// Takes the images of a transaction, if there are any; nothing, or more than `octets` with what
  /// it holds, makes it one that is lost.
  void Garder(std::optional<QByteArray> &&dUneTransaction, qsizetype octets);
  qsizetype Taille() const;  ///< bytes held
  bool EstVide() const { return images.empty() && fichiers.empty() && !perdue; }
};

/// What the taking back of a step has done.
struct Reprise {
  Etape inverse;            ///< takes it back again
  QList<Laissee> laissees;  ///< what was not as the step had left it, and stays as it is
  Cle fiche = 0;  ///< the one correspondent that has come back or changed; 0 for none and several
};

/// Takes back what a step has written, in one transaction, the last first; what is not as the step
/// left it stays. Files come back too. `masques` is the user whose protected records are hidden
/// now; those that come back are so too. Nothing when it was stopped. Throws `ErreurBase` and
/// `ErreurFichier`; all is as before then.
std::optional<Reprise> Reprendre(Base &base, const Etape &etape, const QString &masques,
                                 const Avance &avance);

/// The last commands of a run, and those that were taken back. Belongs to a `Base`; lives in the
/// thread of the windows.
class Historique : public QObject {
  Q_OBJECT

 public:
  static constexpr std::size_t kEtapes = 20;
  static constexpr qsizetype kOctets = qsizetype{64} * 1024 * 1024;

  /// `octets`: what all steps hold together; the oldest go first.
  explicit Historique(qsizetype octets = kOctets) : octets_(octets) {}

  enum class Sens { Annuler, Retablir };
  /// The next step of a direction; null for none. Good until the next change.
  const Etape *Prochaine(Sens sens) const;
  /// The last command, where it was too large to be kept: neither it nor what was before can be
  /// taken back. Empty otherwise.
  const QString &TropGrande() const { return tropGrande_; }

  /// What a command has written; nothing that was taken back can be done again.
  void Ajouter(Etape &&etape);
  /// The next step of a direction has been taken back: it stands on the other side now.
  void Passer(Sens sens, const Reprise &reprise);
  void Vider();

  qsizetype Octets() const { return octets_; }

  /// The user whose protected records are hidden from now on; empty for none.
  void NoterMasques(const QString &utilisateur) { masques_ = utilisateur; }
  const QString &Masques() const { return masques_; }

 signals:
  /// There are other steps.
  void Change();
  /// Rows are as before again, or written again.
  void Repris(const Reprise &reprise);

 private:
  std::deque<Etape> &Pile(Sens sens) { return sens == Sens::Annuler ? faites_ : annulees_; }
  void Limiter();

  qsizetype octets_;
  std::deque<Etape> faites_, annulees_;  ///< the last one behind
  QString tropGrande_;
  QString masques_;
};

/// While this lives, all that is written to a base is one command of the user's, which can be taken
/// back under its name. One within another is a part of that one. Lives in the thread of the
/// windows; a work beside them takes part by `Base::Joindre`.
class Acte {
 public:
  /// `nom`: "suppression de « Dupont Jean »".
  Acte(Base &base, const QString &nom);
  /// Hands over what has been written, if anything.
  ~Acte();
  Acte(const Acte &) = delete;
  Acte &operator=(const Acte &) = delete;

  /// A better name, once it is known.
  void Nommer(const QString &nom);
  /// A file that is written from here on, see `FichierSuivi`. One that cannot be read now does not
  /// come back.
  void Suivre(const QString &chemin, const QString &nom, bool lie);
  /// It has come to nothing: what it has written is none of the user's doing.
  void Oublier();

 private:
  Base &base_;
  std::unique_ptr<Etape> etape_;  ///< null within another one
};
