#include "FaultyCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int remaining = -1; ///< Calls until the one that fails; below 0 where none shall.
int errorToGive = 0;
const char *failedCall = nullptr;

bool fails(const char *name) {
    if (remaining < 0 || remaining-- > 0) {
        return false;
    }
    if (errorToGive == faultyCalls::killed) {
        raise(SIGKILL);
    }
    failedCall = name;
    errno = errorToGive;
    return true;
}

template <typename Function>
Function *real(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

void faultyCalls::arm(int number, int error) {
    failedCall = nullptr;
    errorToGive = error;
    remaining = number;
}

const char *faultyCalls::disarm() {
    remaining = -1;
    return failedCall;
}

extern "C" {

int open(const char *path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : mode_t{0};
    va_end(more);
    static const auto next = real<int(const char *, int, mode_t)>("open");
    return fails("open") ? -1 : next(path, flags, mode);
}

ssize_t write(int file, const void *bytes, size_t size) {
    static const auto next = real<ssize_t(int, const void *, size_t)>("write");
    return fails("write") ? -1 : next(file, bytes, size);
}

int fsync(int file) {
    static const auto next = real<int(int)>("fsync");
    return fails("fsync") ? -1 : next(file);
}

/// A close that fails has closed all the same.
int close(int file) {
    static const auto next = real<int(int)>("close");
    const bool failing = fails("close");
    const int error = errno;
    const int result = next(file);
    errno = failing ? error : errno;
    return failing ? -1 : result;
}

int posix_fallocate(int file, off_t from, off_t size) {
    static const auto next = real<int(int, off_t, off_t)>("posix_fallocate");
    return fails("posix_fallocate") ? errno : next(file, from, size);
}

int ftruncate(int file, off_t size) noexcept {
    static const auto next = real<int(int, off_t)>("ftruncate");
    return fails("ftruncate") ? -1 : next(file, size);
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
    static const auto next = real<int(int, uid_t, gid_t)>("fchown");
    return fails("fchown") ? -1 : next(file, owner, group);
}

int fchmod(int file, mode_t mode) noexcept {
    static const auto next = real<int(int, mode_t)>("fchmod");
    return fails("fchmod") ? -1 : next(file, mode);
}

int rename(const char *from, const char *to) noexcept {
    static const auto next = real<int(const char *, const char *)>("rename");
    return fails("rename") ? -1 : next(from, to);
}
}
