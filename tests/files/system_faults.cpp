#include "files/system_faults.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

namespace trillomat {

SystemFaults& Faults() {
  static SystemFaults faults;
  return faults;
}

namespace {

bool Fails(SystemCall call) {
  SystemFaults& faults = Faults();
  if ((faults.calls & call) == 0 || ++faults.count != faults.fails) return false;
  errno = faults.code;
  return true;
}

bool Refuses(Medium medium, int code) {
  if (Faults().medium != medium) return false;
  errno = code;
  return true;
}

}  // namespace
}  // namespace trillomat

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" {

using namespace trillomat;  // NOLINT(google-build-using-namespace)

int __real_open(const char* file, int flags, ...);
ssize_t __real_write(int file, const void* bytes, size_t count);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags);
int __real_unlink(const char* file);
int __real_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags);

int __wrap_open(const char* file, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t rights = va_arg(rest, mode_t);
  va_end(rest);
  const bool nameless = (flags & O_TMPFILE) == O_TMPFILE;
  if (nameless && Refuses(Medium::NoNamelessFiles, EOPNOTSUPP)) return -1;
  return Fails(kOpen) ? -1 : __real_open(file, flags, rights);
}

ssize_t __wrap_write(int file, const void* bytes, size_t count) {
  return Fails(kWrite) ? -1 : __real_write(file, bytes, count);
}

int __wrap_fsync(int file) { return Fails(kFlush) ? -1 : __real_fsync(file); }

int __wrap_rename(const char* from, const char* to) { return Fails(kRename) ? -1 : __real_rename(from, to); }

int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  return Fails(kRename) ? -1 : __real_renameat2(fromFolder, from, toFolder, to, flags);
}

int __wrap_unlink(const char* file) { return Fails(kUnlink) ? -1 : __real_unlink(file); }

int __wrap_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  if (Refuses(Medium::NoLinks, EPERM)) return -1;
  return Fails(kLink) ? -1 : __real_linkat(fromFolder, from, toFolder, to, flags);
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
