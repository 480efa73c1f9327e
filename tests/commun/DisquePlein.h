#pragma once

#include <signal.h>
#include <sys/resource.h>

/// No file grows beyond `octets` while this lives: a full disk, also for the superuser.
class DisquePlein {
 public:
  explicit DisquePlein(rlim_t octets) {
    ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &avant_);
    const rlimit courte{octets, avant_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &courte);
  }
  ~DisquePlein() { ::setrlimit(RLIMIT_FSIZE, &avant_); }

 private:
  rlimit avant_{};
};
