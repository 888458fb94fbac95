// An OutputFile as what a std::ostream writes to.
#pragma once

#include <array>
#include <streambuf>

#include "files/file_store.h"

namespace trillomat {

/// Collects small pieces; flush the stream at the end, and ask it whether all was taken.
class OutputBuffer : public std::streambuf {
 public:
  /// `file` outlives it.
  explicit OutputBuffer(OutputFile& file) : file_(file) {
    setp(block_.data(), block_.data() + block_.size());
  }

 protected:
  int overflow(int c) override;
  int sync() override;

 private:
  OutputFile& file_;
  std::array<char, 65536> block_{};
};

}  // namespace trillomat
