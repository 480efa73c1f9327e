#include "platform/Processus.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr auto kNeant = "/dev/null";

class Actions {
 public:
  explicit Actions(int sortie) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, kNeant, O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions_, sortie, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, kNeant, O_WRONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
  }
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }
  Actions(const Actions &) = delete;
  Actions &operator=(const Actions &) = delete;
  const posix_spawn_file_actions_t *Lire() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

std::optional<pid_t> Lancer(const QString &programme, const QStringList &arguments, int sortie) {
  std::vector<QByteArray> mots{QFile::encodeName(programme)};
  for (const QString &argument : arguments) mots.push_back(QFile::encodeName(argument));
  std::vector<char *> pointeurs;
  pointeurs.reserve(mots.size() + 1);
  for (QByteArray &mot : mots) pointeurs.push_back(mot.data());
  pointeurs.push_back(nullptr);
  const Actions actions(sortie);
  pid_t enfant = 0;
  if (::posix_spawn(&enfant, mots.front().constData(), actions.Lire(), nullptr, pointeurs.data(),
                    environ) != 0)
    return std::nullopt;
  return enfant;
}

/// Nothing once the writer has closed its end.
std::optional<FinProcessus> Recevoir(int entree, steady_clock::time_point fin,
                                     const std::function<bool(QByteArrayView)> &recevoir) {
  std::array<char, 65536> octets;
  for (;;) {
    const auto reste = duration_cast<milliseconds>(fin - steady_clock::now());
    if (reste <= 0ms) return FinProcessus::Delai;
    pollfd attente{entree, POLLIN, 0};
    if (::poll(&attente, 1, static_cast<int>(reste.count())) <= 0) continue;
    const ssize_t lus = ::read(entree, octets.data(), octets.size());
    if (lus < 0 && errno == EINTR) continue;
    if (lus <= 0) return std::nullopt;
    if (!recevoir({octets.data(), lus})) return FinProcessus::Interrompu;
  }
}

/// One that goes on behind the end of what it has written is killed too.
FinProcessus Attendre(pid_t enfant, steady_clock::time_point fin) {
  int etat = 0;
  pid_t finie = 0;
  while ((finie = ::waitpid(enfant, &etat, WNOHANG)) == 0 && steady_clock::now() < fin)
    ::usleep(1000);
  if (finie == enfant)
    return WIFEXITED(etat) && WEXITSTATUS(etat) == 0 ? FinProcessus::Reussi : FinProcessus::Echoue;
  ::kill(enfant, SIGKILL);
  while (::waitpid(enfant, &etat, 0) < 0 && errno == EINTR) {
  }
  return FinProcessus::Delai;
}

}  // namespace

FinProcessus LireSortie(const QString &programme, const QStringList &arguments,
                        std::chrono::milliseconds delai,
                        const std::function<bool(QByteArrayView)> &recevoir) {
  const auto fin = steady_clock::now() + delai;
  std::array<int, 2> tube{};
  if (::pipe2(tube.data(), O_CLOEXEC) != 0) return FinProcessus::Introuvable;
  const auto enfant = Lancer(programme, arguments, tube[1]);
  ::close(tube[1]);
  std::optional<FinProcessus> arret;
  if (enfant) {
    try {
      arret = Recevoir(tube[0], fin, recevoir);
    } catch (...) {
      ::close(tube[0]);
      Attendre(*enfant, {});
      throw;
    }
  }
  ::close(tube[0]);
  if (!enfant) return FinProcessus::Introuvable;
  const FinProcessus ainsi = Attendre(*enfant, arret ? steady_clock::time_point{} : fin);
  return arret.value_or(ainsi);
}

QString ProgrammeAuxiliaire(const QString &nom) {
  const QFileInfo executable(QFileInfo(u"/proc/self/exe"_s).symLinkTarget());
  const QString voisin = executable.path() + u'/' + nom;
  return QFileInfo(voisin).isExecutable() ? voisin : QStringLiteral(VELMIRA_AUXILIAIRES "/") + nom;
}
