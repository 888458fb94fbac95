// Stands before a stream that goes to a terminal, which would obey what names and tokens of files hold.
#pragma once

#include <functional>
#include <ostream>
#include <streambuf>
#include <string>

namespace trillomat {

/// Takes the place of the stream's own buffer for as long as it lives, and hands on to that what
/// EscapedForTerminal makes of the text. A character is shown once it is whole, however it comes in.
class TerminalBuffer : public std::streambuf {
 public:
  /// `beforeShown` is called before anything reaches the terminal.
  explicit TerminalBuffer(
      std::ostream& stream, std::function<void()> beforeShown = [] {});
  TerminalBuffer(const TerminalBuffer&) = delete;
  TerminalBuffer& operator=(const TerminalBuffer&) = delete;
  ~TerminalBuffer() override;

  /// Whether all of it is shown, and ended its last line.
  bool IsAtLineStart() const { return waiting_.empty() && endsLine_; }

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;

 private:
  bool Show(size_t size);

  std::ostream& stream_;
  std::streambuf& terminal_;
  std::function<void()> beforeShown_;
  std::string waiting_;
  bool endsLine_ = true;
};

}  // namespace trillomat
