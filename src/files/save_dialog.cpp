#include "files/save_dialog.h"

#include <algorithm>

#include "core/ascii.h"
#include "files/path_text.h"

namespace trillomat {

std::string BuildDialogFilter(std::span<const std::pair<std::string_view, std::string_view>> formats) {
  std::string filter;
  for (const auto& [description, extension] : formats) {
    filter.append(description).append(" (*.").append(extension).append(")").push_back('\0');
    filter.append("*.").append(extension).push_back('\0');
  }
  if (!filter.empty()) filter.pop_back();
  return filter + " + Chr$(0)";
}

std::optional<std::filesystem::path> ChosenFile(const std::filesystem::path& answer,
                                                std::string_view extension) {
  std::string name = Utf8OfPath(answer.filename());
  name.resize(std::min(name.find('\0'), name.size()));
  name.resize(name.find_last_not_of(' ') + 1);
  if (name.empty() || name == "." || name == "..") return std::nullopt;
  const std::string ending = "." + std::string(extension);
  if (!Contains(Lowered(name), ending)) name += ending;
  return answer.parent_path() / PathOfUtf8(name);
}

bool AskToReplace(FilesHost& host) { return host.AskYesNo("File Exist", "File Already exist! Remove?"); }

ProgressPump WritingPump(const std::filesystem::path& file, const FileParts& parts) {
  return {parts.services.pump, [&host = parts.host, name = Utf8OfPath(file.filename())](size_t elements) {
            host.ShowProgress("Writing " + name + ": " + std::to_string(elements) + " elements");
          }};
}

}  // namespace trillomat
