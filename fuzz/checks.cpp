#include "fuzz/checks.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/ascii.h"
#include "core/codec.h"
#include "exchange/export.h"
#include "formats/reading.h"
#include "fuzz/bodies.h"

namespace trillomat {
namespace {

// The refusal's place lies in the input, and its text is what stands there.
void CheckPlace(std::string_view input, const Refusal& refusal) {
  Require(!refusal.why.empty(), "a refusal says why");
  if (input.empty() && refusal.line == 0) return;
  Require(refusal.line > 0 && refusal.column > 0, "and where");
  std::vector<std::string_view> lines = SplitLines(input);
  lines.emplace_back();  // behind the last line end
  Require(refusal.line <= lines.size(), "the line exists");
  const std::string_view line = lines[refusal.line - 1];
  Require(refusal.column <= line.size() + 1, "the column exists");
  constexpr std::string_view kCut = "...";
  std::string_view text = refusal.text;
  const bool isCut = text.ends_with(kCut) && line.size() - refusal.column + 1 > text.size() - kCut.size();
  if (isCut) text.remove_suffix(kCut.size());
  Require(OnOneLine(line.substr(refusal.column - 1, text.size()), '?') == text, "the text stands there");
}

// A tone that no reader understood repeats the keys of the one before, up to kLargestExport. That is the
// rule, and a long text of such tones would exceed every time bound because of it.
bool GrowsWithTheSquare(const ElementList& elements) {
  constexpr std::ptrdiff_t kMost = 1000;
  return std::count_if(elements.begin(), elements.end(),
                       [](const Element& element) { return !IsUnderstood(element); }) > kMost;
}

}  // namespace

void CheckTokens(const ElementList& elements, const TokenDefaults& defaults, Log& log) {
  for (const ModeLimits& limits : kModeLimits) {
    for (const Element& element : elements) {
      const Token token = Encode(element, limits.mode, defaults, log);
      Require(token.supported || (token.text.starts_with('[') && token.text.ends_with(']')), "brackets");
      Require(token.supported == Supports(element, limits.mode), "Supports agrees with the token");
    }
  }
}

void CheckWriting(const Song& song, const Services& services) {
  CheckTokens(song.elements, {}, services.log);
  for (const ModeLimits& limits : kModeLimits) {
    const Result<std::string> text = Write(song, limits.mode, services);
    Require(text && text->ends_with("\r\n"), "every song can be written");
  }
}

void CheckExports(const Song& song, const Services& services) {
  if (GrowsWithTheSquare(song.elements)) return;
  for (const ExportTarget& target : kExportTargets) {
    ElementList moved = song.elements;
    const bool fits = AdaptRange(moved, target.range, services.log) && !moved.empty();
    const Result<std::string> text = Export(target.phone, song, services);
    if (!text) {
      Require(!text.Why().why.empty(), "a refused export says why");
      continue;
    }
    Require(fits && std::all_of(moved.begin(), moved.end(),
                                [&target](const Element& element) {
                                  return element.octave == kNoOctave || (element.octave >= target.range.low &&
                                                                         element.octave <= target.range.high);
                                }),
            "only what lies in the phone's octaves is exported");
    Require(target.phone == Phone::Rtttl ? text->starts_with(song.info.name.substr(0, 10))
                                         : text->ends_with("\r\n"),
            "what an export looks like");
  }
}

void CheckResult(std::string_view input, ReadResult result, const Services& services) {
  if (result.refusal) {
    Require(result.elements.empty(), "a refused read has no elements");
    CheckPlace(input, *result.refusal);
  }
  CheckWriting({.elements = std::move(result.elements), .info = std::move(result.record.info)}, services);
}

}  // namespace trillomat
