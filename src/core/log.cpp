#include "core/log.h"

#include <fstream>
#include <string>
#include <utility>

#include "core/ascii.h"
#include "core/code_page.h"

namespace trillomat {

FileLog::FileLog(std::filesystem::path file, const Clock& clock, MessageBox& messages)
    : file_(std::move(file)), clock_(clock), messages_(messages) {}

// Only into a plain file: a pipe in its place would wait for a reader, and a device could do anything with
// the text.
bool FileLog::Append(std::string_view message) const {
  namespace fs = std::filesystem;
  std::error_code unknown;
  const fs::file_status found = fs::status(file_, unknown);
  if (fs::exists(found) && !fs::is_regular_file(found)) return false;
  std::ofstream out(file_, std::ios::binary | std::ios::app);
  if (!fs::exists(found)) fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write, unknown);
  out << clock_.TimeText() << "\t\t" << message << "\r\n";
  out.close();
  return !out.fail();
}

void FileLog::WriteLog(std::string_view message, int16_t level) {
  if (!Append(message) && !failureShown_) {
    failureShown_ = true;
    const std::u8string utf8 = file_.u8string();
    const std::string name(utf8.begin(), utf8.end());
    Show("The log file cannot be written: " + FromUtf8(name).value_or(name));
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
