#include "cli/checked_file.h"

#include <algorithm>

#include "cli/extract.h"
#include "cli/json_text.h"
#include "cli/melody_source.h"
#include "core/code_page.h"
#include "core/number_text.h"
#include "core/silent_services.h"
#include "exchange/format_fit.h"
#include "exchange/phone_fit.h"
#include "exchange/tidy.h"
#include "files/refusal_text.h"

namespace trillomat {
namespace {

std::string_view NameOf(FormatMode mode) { return kModeNames.at(static_cast<size_t>(mode)); }
std::string_view NameOf(Phone phone) { return TargetOf(phone).option; }

// The columns are in bytes.
Finding Find(std::string_view text, FormatMode mode, const CommandServices& services) {
  SilentLog silent;
  ReadResult read = Read(text, mode, {}, {silent, services.pump, services.tokens});
  Finding finding{.refusal = std::move(read.refusal)};
  if (finding.refusal) return finding;
  const Song song{std::move(read.elements), std::move(read.record.info)};
  finding.elements = song.elements.size();
  finding.notUnderstood = std::move(read.notUnderstood);
  for (const ModeLimits& limits : kModeLimits) {
    services.Tell("fitting into ", limits.caption);
    if (FormatHolds(limits.mode, song)) finding.formats.push_back(limits.mode);
  }
  for (const ExportTarget& target : kExportTargets) {
    services.Tell("fitting into ", target.name);
    if (!song.elements.empty() && FitOf(target.phone, song).Fits()) finding.phones.push_back(target.phone);
  }
  return finding;
}

// What there is to say against it, as other commands say it, with the place marked. Why it was refused is
// said in full in the line of the file.
std::string ComplaintOf(const std::string& name, const Finding& finding, std::string_view text) {
  const size_t lost = finding.notUnderstood.count;
  if (!finding.refusal && lost == 0) return {};
  const Refusal& found = finding.refusal ? *finding.refusal : finding.notUnderstood.first;
  const std::string extract = ExtractOf(text, found);
  if (extract.empty()) return {};
  const Refusal place = InCharacters(found, text);
  const std::string why = finding.refusal ? ToUtf8(place.why)
                          : lost == 1     ? "warning: not understood"
                                      : "warning: the first of " + std::to_string(lost) + " not understood";
  return "trillomat-cli: " + name + ": line " + std::to_string(place.line) + ", column " +
         std::to_string(place.column) + ": " + why + '\n' + extract;
}

template <typename Names>
std::string ListText(std::string_view label, const Names& names) {
  std::string text = "; " + std::string(label);
  if (names.empty()) text += " none";
  for (const auto name : names) text += ' ' + std::string(NameOf(name));
  return text;
}

std::string FindingLine(const Finding& finding) {
  if (finding.refusal) return "does not read: " + RefusalText({}, *finding.refusal);
  std::string text = "reads; " + std::to_string(finding.elements) + " elements";
  if (finding.notUnderstood.count > 0) text += "; " + NotUnderstoodText(finding.notUnderstood);
  return text + ListText("formats", finding.formats) + ListText("phones", finding.phones);
}

template <typename Names>
std::string ListJson(const Names& names) {
  std::string json = "[";
  for (const auto name : names) AddItem(json, JsonString(NameOf(name)));
  return json + ']';
}

std::string RefusalJson(const std::optional<Refusal>& refusal) {
  if (!refusal) return "null";
  std::string json = "{";
  AddMember(json, "line", std::to_string(refusal->line));
  AddMember(json, "column", std::to_string(refusal->column));
  AddMember(json, "text", JsonStringOfCodePage(refusal->text));
  AddMember(json, "why", JsonStringOfCodePage(refusal->why));
  return json + '}';
}

void AddFinding(std::string& json, const Finding& finding) {
  AddMember(json, "reads", finding.refusal ? "false" : "true");
  AddMember(json, "refusal", RefusalJson(finding.refusal));
  AddMember(json, "elements", std::to_string(finding.elements));
  AddMember(json, "notUnderstood", std::to_string(finding.notUnderstood.count));
  AddMember(json, "formats", ListJson(finding.formats));
  AddMember(json, "phones", ListJson(finding.phones));
}

}  // namespace

CheckedFile CheckText(std::string name, std::string_view text, FormatMode mode,
                      const CommandServices& services) {
  CheckedFile file{.name = std::move(name), .mode = mode, .asItIs = Find(text, mode, services)};
  file.complaint = ComplaintOf(file.name, file.asItIs, text);
  if (file.asItIs.refusal) file.asItIs.refusal = InCharacters(*std::move(file.asItIs.refusal), text);
  NotUnderstood& lost = file.asItIs.notUnderstood;
  lost.first = InCharacters(std::move(lost.first), text);
  services.Tell("tidying");
  const Tidied tidied = Tidy(text, mode);
  file.changes = tidied.changes.size();
  file.tidied = tidied.changes.empty() ? file.asItIs : Find(tidied.text, mode, services);
  // A place in the tidied text is none in the file.
  if (file.changes > 0) file.tidied.notUnderstood.first.line = 0;
  return file;
}

CheckedFile Unreadable(std::string name, const std::string& why) {
  const Finding finding{.refusal = Refusal{.why = FromUtf8(why).value_or(why)}};
  return {.name = std::move(name), .mode = {}, .asItIs = finding, .tidied = finding};
}

std::string CheckedLine(const CheckedFile& file) {
  std::string line = file.name + ": " + FindingLine(file.asItIs);
  if (file.changes > 0) {
    line += "; tidied with " + Counted(file.changes, "change", "changes") + ": " + FindingLine(file.tidied);
  }
  // A name may hold anything, and this is one line.
  std::replace_if(
      line.begin(), line.end(), [](unsigned char c) { return c < ' '; }, '?');
  return line;
}

std::string CheckedJson(const CheckedFile& file) {
  std::string json = "{";
  AddMember(json, "file", JsonString(file.name));
  AddMember(json, "format", file.mode ? JsonString(NameOf(*file.mode)) : "null");
  AddFinding(json, file.asItIs);
  std::string tidied = "{";
  AddMember(tidied, "changes", std::to_string(file.changes));
  AddFinding(tidied, file.tidied);
  AddMember(json, "tidied", tidied + '}');
  return json + '}';
}

}  // namespace trillomat
