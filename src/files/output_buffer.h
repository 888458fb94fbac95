// The buffer of a std::ostream that writes into an OutputFile.
#pragma once

#include <array>
#include <streambuf>

#include "files/file_store.h"

namespace trillomat {

/// Flush the stream at the end, and ask it whether everything was written.
class OutputBuffer : public std::streambuf {
 public:
  /// `file` has to outlive it.
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
