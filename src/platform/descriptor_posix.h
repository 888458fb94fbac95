// A file descriptor that closes itself, and system calls that go on where a signal interrupted them.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <utility>

namespace trillomat {

/// Makes a system call, again when a signal has interrupted it; but not for ever. Returns what the call has
/// returned last.
template <typename Call>
auto Uninterrupted(Call call) {
  constexpr int kMostTries = 100;
  auto result = call();
  for (int i = 1; i < kMostTries && result < 0 && errno == EINTR; ++i) result = call();
  return result;
}

/// Writes all of `bytes`, which write(2) may take in parts. False when that fails.
inline bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = Uninterrupted([&] { return write(file, bytes.data(), bytes.size()); });
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

class Descriptor {
 public:
  /// Takes over an open descriptor, or -1 for none.
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(const std::filesystem::path& file, int flags, mode_t rights = 0)
      : number_(Uninterrupted([&] { return open(file.c_str(), flags | O_CLOEXEC, rights); })) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  // Leaves errno as it was, for those who ask why something before has failed.
  ~Descriptor() {
    const int code = errno;
    if (number_ >= 0) close(number_);
    errno = code;
  }

  explicit operator bool() const { return number_ >= 0; }
  int operator*() const { return number_; }

  /// Writes everything through to the medium; true once it is there.
  bool Flush() const {
    return number_ >= 0 && Uninterrupted([this] { return fsync(number_); }) == 0;
  }

 private:
  int number_;
};

}  // namespace trillomat
