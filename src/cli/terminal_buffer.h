// Stands before a stream that goes to a terminal, which would obey what names and tokens of files hold.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace trillomat {

/// Takes the place of the stream's own buffer for as long as it lives, and hands on to that what
/// EscapedForTerminal makes of the text. A character is shown once it is whole, however it comes in.
class TerminalBuffer : public std::streambuf {
 public:
  explicit TerminalBuffer(std::ostream& stream);
  TerminalBuffer(const TerminalBuffer&) = delete;
  TerminalBuffer& operator=(const TerminalBuffer&) = delete;
  ~TerminalBuffer() override;

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;

 private:
  bool Show(size_t size);

  std::ostream& stream_;
  std::streambuf& terminal_;
  std::string waiting_;
};

}  // namespace trillomat
