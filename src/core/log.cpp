#include "core/log.h"

#include <fstream>
#include <string>
#include <utility>

#include "core/ascii.h"
#include "core/code_page.h"

namespace trillomat {

FileLog::FileLog(std::filesystem::path file, const Clock& clock, MessageBox& messages)
    : file_(std::move(file)), clock_(clock), messages_(messages) {}

void FileLog::WriteLog(std::string_view message, int16_t level) {
  std::ofstream out(file_, std::ios::binary | std::ios::app);
  out << clock_.TimeText() << "\t\t" << message << "\r\n";
  out.close();
  if (out.fail() && !failureShown_) {
    failureShown_ = true;
    const std::u8string name = file_.u8string();
    Show("The log file cannot be written: " + FromUtf8(std::string(name.begin(), name.end())).value_or(""));
  }
  if (level == 2) Show(message);
}

void FileLog::BeginOperation() {
  if (depth_++ > 0) return;
  shown_ = 0;
  silenced_ = false;
}

void FileLog::EndOperation() {
  if (--depth_ == 0) silenced_ = false;
}

void FileLog::Show(std::string_view message) {
  if (silenced_) return;
  const bool repeated = depth_ > 0 && shown_ > 0;
  ++shown_;
  silenced_ = messages_.ShowMessage(message, repeated) && repeated;
}

std::filesystem::path LogFilePath(const std::filesystem::path& folder, std::string_view dateText) {
  const std::string name = ReplaceAll(ReplaceAll(dateText, "/", "-"), ".", "-") + ".txt";
  return folder / std::u8string(name.begin(), name.end());
}

}  // namespace trillomat
