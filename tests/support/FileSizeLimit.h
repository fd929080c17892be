#pragma once
// Lets no file of this process grow past a size, as a full disk would stop it: writes beyond
// fail with "File too large" (the signal that would end the process is ignored meanwhile).
// Works for root too, which file permissions do not stop.
#include <csignal>
#include <sys/resource.h>

class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        rlimit limit = old_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        previous_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, previous_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit old_{};
    void (*previous_)(int) = SIG_DFL;
};
