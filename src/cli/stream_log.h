// The log of the command line: lines of the form "2: message" on a stream, nothing in a file.
#pragma once

#include <ostream>

#include "core/log.h"

namespace trillomat {

class StreamLog : public Log {
 public:
  /// Writes level 2 always, level 1 only when `verbose`.
  StreamLog(std::ostream& stream, bool verbose) : stream_(stream), verbose_(verbose) {}

  void WriteLog(std::string_view message, int16_t level) override;

 private:
  std::ostream& stream_;
  bool verbose_;
};

}  // namespace trillomat
