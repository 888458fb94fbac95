// The diagnostic log: the program's one error channel. Level 1 goes to the log alone, level 2 is
// shown to the user as well.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "core/clock.h"

namespace trillomat {

class Log {
 public:
  Log() = default;
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  virtual ~Log() = default;

  /// Reports `message` (Windows-1252 text); `level` is 1 or 2.
  virtual void WriteLog(std::string_view message, int16_t level) = 0;

  /// Bracket one operation (a read, an import, a playing), so that the user can silence the rest of
  /// its messages. They nest; the outermost pair counts. Use LogOperation.
  virtual void BeginOperation() {}
  virtual void EndOperation() {}
};

/// Drops every line: for work that is done a second time, or beside what the user asked for.
class SilentLog : public Log {
 public:
  void WriteLog(std::string_view /*message*/, int16_t /*level*/) override {}
};

/// Brackets an operation for as long as it lives.
class LogOperation {
 public:
  explicit LogOperation(Log& log) : log_(log) { log_.BeginOperation(); }
  LogOperation(const LogOperation&) = delete;
  LogOperation& operator=(const LogOperation&) = delete;
  ~LogOperation() { log_.EndOperation(); }

 private:
  Log& log_;
};

/// What shows a level-2 message to the user. Abstract so that tests and programs without a window
/// can answer it.
class MessageBox {
 public:
  MessageBox() = default;
  MessageBox(const MessageBox&) = delete;
  MessageBox& operator=(const MessageBox&) = delete;
  virtual ~MessageBox() = default;

  /// Shows `message` and waits until the user closes it. With `offerSilence` the box also offers
  /// "Don't show more of these"; true when that was ticked.
  virtual bool ShowMessage(std::string_view message, bool offerSilence) = 0;
};

/// The log as a text file that the user alone can read, opened and closed again for every line.
class FileLog : public Log {
 public:
  FileLog(std::filesystem::path file, const Clock& clock, MessageBox& messages);

  /// Appends the time, two tabs, the message, CR and LF; then shows a level-2 message. When a line cannot be
  /// written, which includes that there is something else than a plain file, the user is told so once a run.
  void WriteLog(std::string_view message, int16_t level) override;
  void BeginOperation() override;
  void EndOperation() override;

 private:
  bool Append(std::string_view message) const;
  void Show(std::string_view message);

  std::filesystem::path file_;
  const Clock& clock_;
  MessageBox& messages_;
  int depth_ = 0;
  int shown_ = 0;
  bool silenced_ = false;
  bool failureShown_ = false;
};

/// The day's log file in `folder`: the date text (UTF-8) with every "/" and "." turned into "-", and ".txt".
std::filesystem::path LogFilePath(const std::filesystem::path& folder, std::string_view dateText);

}  // namespace trillomat
