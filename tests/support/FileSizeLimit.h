#pragma once
// Scoped limits on this process's resources, as a full disk or a busy system would set them.
#include <csignal>
#include <sys/resource.h>

// A soft limit on one resource for the life of the object; Ok() when it could be set.
class ResourceLimit {
  public:
    using Resource = decltype(RLIMIT_NOFILE);
    ResourceLimit(Resource resource, rlim_t soft) : resource_(resource) {
        ::getrlimit(resource_, &old_);
        rlimit lowered = old_;
        lowered.rlim_cur = soft;
        ok_ = ::setrlimit(resource_, &lowered) == 0;
    }
    ~ResourceLimit() { ::setrlimit(resource_, &old_); }
    ResourceLimit(const ResourceLimit&) = delete;
    ResourceLimit& operator=(const ResourceLimit&) = delete;
    bool Ok() const { return ok_; }

  private:
    Resource resource_;
    rlimit old_{};
    bool ok_ = false;
};

// Lets no file of this process grow past a size, as a full disk would stop it: writes beyond
// fail with "File too large" (the signal that would end the process is ignored meanwhile).
// Works for root too, which file permissions do not stop.
class FileSizeLimit : public ResourceLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes)
        : ResourceLimit(RLIMIT_FSIZE, bytes), previous_(std::signal(SIGXFSZ, SIG_IGN)) {}
    ~FileSizeLimit() { std::signal(SIGXFSZ, previous_); }

  private:
    void (*previous_)(int);
};
