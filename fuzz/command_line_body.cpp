// Runs the command line with any arguments, over files and a standard input of any text.

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "fuzz/bodies.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

constexpr std::array kFiles{"a.imy", "a.emy", "a.rtx", "a.mel"};

// Keeps what is written, and fails beyond a certain length, so that a melody that plays for hours ends soon.
class ShortBuffer : public std::streambuf {
 public:
  const std::string& Text() const { return text_; }

 protected:
  int_type overflow(int_type character) override {
    constexpr size_t kMost = 1 << 16;
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
    if (text_.size() == kMost) return traits_type::eof();
    text_ += traits_type::to_char_type(character);
    return character;
  }

 private:
  std::string text_;
};

// Puts another buffer in the place of a standard stream's own, for as long as it lives.
template <typename Stream>
class Redirected {
 public:
  Redirected(Stream& stream, std::streambuf& to) : stream_(stream), before_(stream.rdbuf(&to)) {}
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;
  ~Redirected() { stream_.rdbuf(before_); }

 private:
  Stream& stream_;
  std::streambuf* before_;
};

// No file that is written grows past this.
class FileSizeLimit {
 public:
  FileSizeLimit() {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = 1 << 18;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, action_);
  }

 private:
  rlimit before_{};
  void (*action_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

// A folder of its own as the working folder, with a file of each format that holds `text`.
class WorkFolder {
 public:
  explicit WorkFolder(const std::string& text) {
    for (const char* name : kFiles) folder_.Write(name, text);
    std::filesystem::current_path(folder_.Path());
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder() { std::filesystem::current_path(before_); }

  const TempFolder& Folder() const { return folder_; }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  TempFolder folder_;
};

// Cuts every number to three digits, because repeating something a million times would only take time here.
std::string WithShortNumbers(std::string_view text) {
  std::string shorter;
  int digits = 0;
  for (const char c : text) {
    digits = c >= '0' && c <= '9' ? digits + 1 : 0;
    if (digits <= 3) shorter += c;
  }
  return shorter;
}

// A line each. No path leads out of the folder, and what is played is not sounded but traced.
std::vector<std::string> ArgumentsOf(std::string_view lines) {
  std::vector<std::string> arguments;
  std::istringstream stream(WithShortNumbers(lines));
  for (std::string argument; std::getline(stream, argument);) {
    std::replace(argument.begin(), argument.end(), '/', '_');
    if (argument.starts_with("--trace")) continue;
    arguments.push_back(argument);
    if (argument == "play") arguments.emplace_back("--trace");
  }
  return arguments;
}

bool MayReplace(const std::vector<std::string>& arguments) {
  return std::any_of(arguments.begin(), arguments.end(),
                     [](const std::string& argument) { return argument.starts_with("--force"); });
}

// Whatever is asked for comes to an end with a status, words where it was not done, and nothing lost.
void CheckRun(const std::vector<std::string>& arguments, const std::string& text) {
  const FileSizeLimit limit;
  const WorkFolder work(text);
  std::stringbuf in(text);
  ShortBuffer out;
  ShortBuffer err;
  const Redirected cin(std::cin, in);
  const Redirected cout(std::cout, out);
  const Redirected cerr(std::cerr, err);
  const int status = RunCommandLine(arguments);
  Require(status >= 0 && status <= 2, "the status is one of three");
  Require(status == 0 || err.Text().find('\n') != std::string::npos, "a failure is told in a line");
  for (const char* name : kFiles) {
    Require(MayReplace(arguments) || work.Folder().Read(name) == text, "a file is replaced on request only");
  }
  for (const std::string& name : work.Folder().Names()) {
    Require(!name.starts_with(".saving-"), "no half-done file is left");
  }
}

// The arguments stand before the first NUL, the text of every file and of standard input behind it.
void FuzzCommandLine(std::string_view input) {
  const size_t end = std::min(input.find('\0'), input.size());
  CheckRun(ArgumentsOf(input.substr(0, end)),
           WithShortNumbers(input.substr(std::min(end + 1, input.size()))));
}

constexpr auto kBodies = std::to_array<FuzzBody>({{"command_line", FuzzCommandLine, 100, 1 << 15}});

}  // namespace

constinit const std::span<const FuzzBody> kCommandLineBodies{kBodies};

}  // namespace trillomat
