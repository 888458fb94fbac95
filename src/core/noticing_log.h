// A log that notices whether anything is written to it, on the way to another.
#pragma once

#include "core/log.h"

namespace trillomat {

class NoticingLog : public Log {
 public:
  explicit NoticingLog(Log& log) : log_(log) {}

  void WriteLog(std::string_view message, int16_t level) override {
    noticed_ = true;
    log_.WriteLog(message, level);
  }
  bool Noticed() const { return noticed_; }

 private:
  Log& log_;
  bool noticed_ = false;
};

}  // namespace trillomat
