#pragma once

#include <signal.h>
#include <sys/resource.h>

/// No file grows beyond `octets` while this lives: a full disk, also for the superuser.
class DisquePlein {
 public:
  explicit DisquePlein(rlim_t octets) {
    ancien_ = ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &limite_);
    const rlimit courte{octets, limite_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &courte);
  }
  ~DisquePlein() {
    ::setrlimit(RLIMIT_FSIZE, &limite_);
    ::signal(SIGXFSZ, ancien_);
  }
  DisquePlein(const DisquePlein &) = delete;
  DisquePlein &operator=(const DisquePlein &) = delete;

 private:
  rlimit limite_{};
  void (*ancien_)(int) = nullptr;
};
