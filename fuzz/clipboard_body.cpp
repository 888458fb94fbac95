// What a paste reads: elements in the program's own form, and texts from anywhere.
#include <optional>
#include <string>

#include "core/code_page.h"
#include "core/silent_services.h"
#include "exchange/pasted_text.h"
#include "exchange/second_reading.h"
#include "files/recovery_text.h"
#include "fuzz/bodies.h"
#include "fuzz/checks.h"

namespace trillomat {
namespace {

// The better way leaves as many elements not understood as it was said to, and fewer than the first.
void CheckBetterWay(std::string_view text, FormatMode mode, const ReadResult& first,
                    const Services& services) {
  const ReadingWay way{.mode = mode, .source = TextSource::Clipboard};
  const auto better = FindBetterWay(text, way, first, {}, services.pump);
  if (!better) return;
  const auto parts = TextsFor(better->way, text);
  Require(parts.size() == better->tunes, "as many tunes as were counted");
  const ReadResult read = ReadInWay(better->way, parts.front(), text, {}, services).read;
  Require(read && !read.elements.empty(), "the better way gives elements");
  Require(read.notUnderstood.count == better->notUnderstood, "and leaves what it was said to leave");
  Require(!first || first.elements.empty() || better->notUnderstood < first.notUnderstood.count,
          "which is less than before");
  for (const std::string_view part : parts) {
    TitleOf(part);
    ReadInWay(better->way, part, text, {}, services);
  }
  CheckWriting({.elements = read.elements, .info = read.record.info}, services);
}

void PasteText(std::string_view text, const Services& services) {
  for (const ModeLimits& limits : kModeLimits) {
    const ReadResult read = ReadPasted(text, limits.mode, services);
    Require(read.refusal || !read.elements.empty(), "a paste gives elements or a refusal");
    CheckBetterWay(text, limits.mode, read, services);
    // "There is no note in it" is a refusal without a place.
    Require(!read.refusal || !read.refusal->why.empty(), "a refusal says why");
    if (!read.refusal || read.refusal->line > 0) CheckResult(text, read, services);
  }
}

// Elements of the own form need not be any that a reader gives.
void PasteElements(std::string_view bytes, const Services& services) {
  const auto copied = ReadRecovery(bytes);
  if (!copied) return;
  CheckWriting(copied->song, services);
  CheckExports(copied->song, services);
}

// A text from elsewhere is Unicode.
void FuzzClipboard(std::string_view input) {
  SilentServices fuzz;
  PasteElements(input, fuzz.services);
  PasteText(FromUtf8(input).value_or(std::string(input)), fuzz.services);
}

constexpr auto kBodies = std::to_array<FuzzBody>({{"clipboard", FuzzClipboard, 400}});

}  // namespace

constinit const std::span<const FuzzBody> kClipboardBodies{kBodies};

}  // namespace trillomat
