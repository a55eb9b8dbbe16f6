// Stands between a program and the system's calls on files, and lets them go wrong as planned. It
// is loaded in front of the C library, so the program itself knows nothing of it.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "sweep/trouble.h"

namespace quillmark {
namespace {

enum class Kind { Look, Read, Write, Flush, Change, Name };

TroublePlan* Plan() {
  static TroublePlan* const plan = [] {
    const char* const path = std::getenv(kPlanVariable);
    const auto file = path == nullptr ? -1 : syscall(SYS_openat, AT_FDCWD, path, O_RDWR);
    void* const memory = mmap(nullptr, sizeof(TroublePlan), PROT_READ | PROT_WRITE, MAP_SHARED,
                              static_cast<int>(file), 0);
    return memory == MAP_FAILED ? nullptr : static_cast<TroublePlan*>(memory);
  }();
  return plan;
}

bool CanMeet(Trouble trouble, Kind kind) {
  const bool changes = kind == Kind::Change || kind == Kind::Name;
  const bool writes = kind == Kind::Write || kind == Kind::Flush;
  if (trouble == Trouble::Full) return changes || writes;
  if (trouble == Trouble::FullUnrenamed) return writes;
  if (trouble == Trouble::Refused) return changes;
  return trouble != Trouble::Short || kind == Kind::Write || kind == Kind::Read;
}

int ErrorOf(Trouble trouble) {
  if (trouble == Trouble::Full || trouble == Trouble::FullUnrenamed) return ENOSPC;
  return trouble == Trouble::Refused ? EACCES : EIO;
}

std::string PathOf(int file) {
  char path[4096];
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const auto length = syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), path, sizeof(path));
  return std::string(path, length < 0 ? 0 : static_cast<std::size_t>(length));
}

bool Strikes(Kind kind, const char* call, const std::string& path) {
  TroublePlan* const plan = Plan();
  if (plan != nullptr && plan->noTrash && path.find("/.Trash") != std::string::npos) {
    errno = EACCES;
    return true;
  }
  // Helper threads of the toolkit look at folders as they please.
  if (plan == nullptr || !plan->armed || syscall(SYS_gettid) != getpid()) return false;
  if (path.rfind(plan->folder.data(), 0) != 0) return false;
  // The toolkit's own settings hold nothing of a person's, and it waits long for their lock.
  if (path.find("/.config/") != std::string::npos) return false;
  if (plan->trouble == Trouble::FullUnrenamed && kind == Kind::Name) {
    errno = EPERM;
    return true;
  }
  if (!CanMeet(plan->trouble, kind)) return false;
  const int number = ++plan->calls;
  if (number != plan->at && !(plan->lasting && number > plan->at)) return false;
  if (number == plan->at) {
    std::snprintf(plan->struck.data(), plan->struck.size(), "%s %s", call, path.c_str());
  }
  errno = ErrorOf(plan->trouble);
  return true;
}

bool Strikes(Kind kind, const char* call, int file) { return Strikes(kind, call, PathOf(file)); }

bool Strikes(Kind kind, const char* call, DIR* folder) {
  return Strikes(kind, call, dirfd(folder));
}

/// Where a path leads that is told from an open folder.
std::string From(int folder, const char* path) {
  return folder == AT_FDCWD || *path == '/' ? path : PathOf(folder) + '/' + path;
}

/// Half of the bytes still find room on a disk that is full from then on.
bool IsLastRoom() {
  return Plan()->trouble == Trouble::FullUnrenamed && Plan()->lasting &&
         Plan()->calls == Plan()->at;
}

/// What is left of `size` bytes when the call meets its trouble; nothing for an error.
std::size_t Rest(std::size_t size) {
  const Trouble trouble = Plan()->trouble;
  const bool half = trouble == Trouble::Short || trouble == Trouble::Killed || IsLastRoom();
  return half ? (size + 1) / 2 : 0;
}

/// What a call gives that failed, unless the process does not live to see it.
template <class Result>
Result Failure(Result result) {
  if (Plan()->trouble == Trouble::Killed && Plan()->armed && Plan()->calls >= Plan()->at)
    kill(getpid(), SIGKILL);
  return result;
}

Kind KindOfOpening(int flags) {
  return (flags & O_ACCMODE) == O_RDONLY && (flags & O_CREAT) == 0 ? Kind::Look : Kind::Change;
}

Kind KindOfOpening(const char* mode) {
  return std::strpbrk(mode, "wa+") == nullptr ? Kind::Look : Kind::Change;
}

template <class Routine>
Routine Next(const char* name) {
  return reinterpret_cast<Routine>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// Each routine carries the name of the one that it stands before, by its label alone.
#define STANDS_BEFORE(result, name, parameters)               \
  extern "C" result Failing_##name parameters __asm__(#name); \
  extern "C" result Failing_##name parameters

#define FAILING(result, name, kind, where, failed, parameters, arguments)          \
  STANDS_BEFORE(result, name, parameters) {                                        \
    using Routine = result parameters;                                             \
    static const auto next = Next<Routine*>(#name);                                \
    return Strikes(kind, #name, where) ? Failure<result>(failed) : next arguments; \
  }

using Descriptor = int;

#define FAILING_OPEN(name, where, parameters, arguments)                               \
  STANDS_BEFORE(Descriptor, name, parameters) {                                        \
    using Routine = Descriptor parameters;                                             \
    static const auto next = Next<Routine*>(#name);                                    \
    std::va_list rest;                                                                 \
    va_start(rest, flags);                                                             \
    const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(rest, unsigned) : 0;         \
    va_end(rest);                                                                      \
    return Strikes(KindOfOpening(flags), #name, where) ? Failure(-1) : next arguments; \
  }

FAILING_OPEN(open, path, (const char* path, int flags, ...), (path, flags, mode))
FAILING_OPEN(open64, path, (const char* path, int flags, ...), (path, flags, mode))
// The one by which the standard library searches folders.
FAILING_OPEN(openat, From(folder, path), (int folder, const char* path, int flags, ...),
             (folder, path, flags, mode))
FAILING(FILE*, fopen, KindOfOpening(mode), path, nullptr, (const char* path, const char* mode),
        (path, mode))
FAILING(FILE*, fopen64, KindOfOpening(mode), path, nullptr, (const char* path, const char* mode),
        (path, mode))
FAILING(int, fsync, Kind::Flush, file, -1, (int file), (file))
FAILING(int, fdatasync, Kind::Flush, file, -1, (int file), (file))
FAILING(int, ftruncate, Kind::Flush, file, -1, (int file, off_t length), (file, length))
FAILING(int, ftruncate64, Kind::Flush, file, -1, (int file, off_t length), (file, length))
FAILING(int, rename, Kind::Name, from, -1, (const char* from, const char* to), (from, to))
FAILING(int, renameat2, Kind::Name, from, -1,
        (int a, const char* from, int b, const char* to, unsigned flags), (a, from, b, to, flags))
FAILING(int, link, Kind::Name, from, -1, (const char* from, const char* to), (from, to))
FAILING(int, linkat, Kind::Name, From(a, from), -1,
        (int a, const char* from, int b, const char* to, int flags), (a, from, b, to, flags))
FAILING(int, unlinkat, Kind::Change, From(folder, path), -1,
        (int folder, const char* path, int flags), (folder, path, flags))
FAILING(int, unlink, Kind::Change, path, -1, (const char* path), (path))
FAILING(int, remove, Kind::Change, path, -1, (const char* path), (path))
FAILING(int, mkdir, Kind::Change, path, -1, (const char* path, mode_t mode), (path, mode))
FAILING(int, chmod, Kind::Change, path, -1, (const char* path, mode_t mode), (path, mode))
FAILING(int, chown, Kind::Change, path, -1, (const char* path, uid_t user, gid_t group),
        (path, user, group))
FAILING(int, stat, Kind::Look, path, -1, (const char* path, void* about), (path, about))
FAILING(int, lstat, Kind::Look, path, -1, (const char* path, void* about), (path, about))
FAILING(int, stat64, Kind::Look, path, -1, (const char* path, void* about), (path, about))
FAILING(int, lstat64, Kind::Look, path, -1, (const char* path, void* about), (path, about))
FAILING(int, statx, Kind::Look, path, -1,
        (int folder, const char* path, int flags, unsigned mask, void* about),
        (folder, path, flags, mask, about))
FAILING(int, fstat, Kind::Look, file, -1, (int file, void* about), (file, about))
FAILING(int, fstat64, Kind::Look, file, -1, (int file, void* about), (file, about))
FAILING(DIR*, opendir, Kind::Look, path, nullptr, (const char* path), (path))
FAILING(dirent*, readdir, Kind::Look, folder, nullptr, (DIR * folder), (folder))
FAILING(dirent64*, readdir64, Kind::Look, folder, nullptr, (DIR * folder), (folder))

STANDS_BEFORE(int, close, (int file)) {
  static const auto next = Next<int (*)(int)>("close");
  const bool strikes = Strikes(Kind::Flush, "close", file);
  const int trouble = errno;
  if (next(file) != 0) return -1;
  errno = trouble;
  return strikes ? Failure(-1) : 0;
}

STANDS_BEFORE(int, fclose, (FILE * file)) {
  static const auto next = Next<int (*)(FILE*)>("fclose");
  const bool strikes = Strikes(Kind::Flush, "fclose", fileno(file));
  if (next(file) != 0) return EOF;
  return strikes ? Failure(EOF) : 0;
}

STANDS_BEFORE(ssize_t, read, (int file, void* bytes, size_t size)) {
  static const auto next = Next<ssize_t (*)(int, void*, size_t)>("read");
  if (!Strikes(Kind::Read, "read", file)) return next(file, bytes, size);
  return Rest(size) == 0 ? -1 : next(file, bytes, Rest(size));
}

STANDS_BEFORE(ssize_t, write, (int file, const void* bytes, size_t size)) {
  static const auto next = Next<ssize_t (*)(int, const void*, size_t)>("write");
  if (!Strikes(Kind::Write, "write", file)) return next(file, bytes, size);
  return Rest(size) == 0 ? -1 : Failure(next(file, bytes, Rest(size)));
}

STANDS_BEFORE(ssize_t, writev, (int file, const iovec* parts, int count)) {
  static const auto next = Next<ssize_t (*)(int, const iovec*, int)>("writev");
  if (!Strikes(Kind::Write, "writev", file)) return next(file, parts, count);
  return Rest(1) == 0 ? -1 : Failure(next(file, parts, 1));
}

}  // namespace quillmark
