#include "cli/tidying.h"

#include <algorithm>
#include <iostream>

#include "core/code_page.h"
#include "core/codec.h"
#include "core/silent_services.h"
#include "exchange/recognise.h"
#include "exchange/tidy.h"
#include "formats/formats.h"

namespace trillomat {
namespace {

bool HoldsMelody(std::string_view text, FormatMode mode) {
  SilentServices silent;
  const ReadResult read = Read(Tidy(text, mode).text, mode, {}, silent.services);
  return std::any_of(read.elements.begin(), read.elements.end(), IsUnderstood);
}

}  // namespace

FormatMode LookOf(std::string_view text, FormatMode mode, const std::string& name) {
  const auto look = RecognisedFormat(text);
  if (!look || *look == mode || HoldsMelody(text, mode)) return mode;
  std::cerr << name << ": read as " << LimitsOf(*look).caption << ", which it looks like\n";
  return *look;
}

std::string TidyAloud(std::string_view text, FormatMode mode, const std::string& name) {
  Tidied tidied = Tidy(text, mode);
  const size_t tunes = mode == FormatMode::Rtttl ? TunesIn(text).size() : 1;
  if (tunes > 1) std::cerr << name << ": the first of " << tunes << " tunes is taken\n";
  for (const TidyChange& change : tidied.changes) {
    std::cerr << name << ": " << ToUtf8(ChangeText(change)) << '\n';
  }
  return std::move(tidied.text);
}

}  // namespace trillomat
