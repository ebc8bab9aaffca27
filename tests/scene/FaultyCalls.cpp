#include "FaultyCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Other threads of the toolkit write too.
thread_local int remaining = -1; ///< Calls until the one that fails; below 0 where none shall.
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

template <typename Result, typename... Parameters>
Result callLibrary(const char *name, Parameters... parameters) {
    return reinterpret_cast<Result (*)(Parameters...)>(dlsym(RTLD_NEXT, name))(parameters...);
}

/// The library's own function, unless it is the turn of this call to fail.
template <typename Result, typename... Parameters>
Result call(const char *name, Parameters... parameters) {
    return fails(name) ? Result{-1} : callLibrary<Result>(name, parameters...);
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
    return call<int>("open", path, flags, mode);
}

/// A close that fails has closed all the same.
int close(int file) {
    const bool failing = fails("close");
    const int error = errno;
    const int result = callLibrary<int>("close", file);
    errno = failing ? error : errno;
    return failing ? -1 : result;
}

int stat(const char *path, struct stat *found) noexcept {
    return call<int>("stat", path, found);
}

int fstat(int file, struct stat *found) noexcept {
    return call<int>("fstat", file, found);
}

int access(const char *path, int mode) noexcept {
    return call<int>("access", path, mode);
}

off_t lseek(int file, off_t offset, int from) noexcept {
    return call<off_t>("lseek", file, offset, from);
}

ssize_t read(int file, void *bytes, size_t size) {
    return call<ssize_t>("read", file, bytes, size);
}

int posix_fallocate(int file, off_t from, off_t size) {
    const int result = call<int>("posix_fallocate", file, from, size);
    return result == -1 ? errno : result;
}

/// Takes a part of what is long, as the system may.
ssize_t write(int file, const void *bytes, size_t size) {
    return call<ssize_t>("write", file, bytes, std::min<size_t>(size, 700'000));
}

int fsync(int file) {
    return call<int>("fsync", file);
}

int ftruncate(int file, off_t size) noexcept {
    return call<int>("ftruncate", file, size);
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
    return call<int>("fchown", file, owner, group);
}

int fchmod(int file, mode_t mode) noexcept {
    return call<int>("fchmod", file, mode);
}

int rename(const char *from, const char *to) noexcept {
    return call<int>("rename", from, to);
}
}
