#include "exchange/second_reading.h"

#include <algorithm>
#include <cstdint>

#include "exchange/import.h"
#include "exchange/recognise.h"

namespace trillomat {
namespace {

constexpr size_t kUnreadable = SIZE_MAX;
constexpr size_t kLargestText = size_t{1} << 20;

size_t Problems(const ReadResult& read) {
  return read && !read.elements.empty() ? read.notUnderstood.count : kUnreadable;
}

ReadResult ReadAs(const ReadingWay& way, std::string_view text, const ReadRecord& before,
                  const Services& services) {
  const auto pasted = PastedFormatOf(way.mode);
  if (pasted && way.source != TextSource::File) return Import(*pasted, text, false, before, services).read;
  return Read(text, way.mode, before, services);
}

}  // namespace

WayResult ReadInWay(const ReadingWay& way, std::string_view part, std::string_view text,
                    const ReadRecord& before, const Services& services) {
  if (!way.tidied) return {ReadAs(way, part, before, services), {}};
  Tidied tidied = TidyPart(part, text, way.mode);
  return {ReadAs(way, tidied.text, before, services), std::move(tidied.changes)};
}

std::vector<std::string_view> TextsFor(const ReadingWay& way, std::string_view text) {
  if (!way.tidied || way.mode != FormatMode::Rtttl) return {text};
  std::vector<std::string_view> tunes = TunesIn(text);
  if (tunes.size() < 2) tunes = {text};
  return tunes;
}

std::optional<BetterWay> FindBetterWay(std::string_view text, const ReadingWay& way, const ReadResult& first,
                                       const ReadRecord& before, EventPump& pump) {
  if (text.size() > kLargestText) return std::nullopt;
  SilentLog silent;
  std::vector<ReadingWay> ways;
  const auto looks = RecognisedFormat(text);
  if (looks && *looks != way.mode) ways = {{*looks, false, way.source}, {*looks, true, way.source}};
  if (!way.tidied) ways.push_back({way.mode, true, way.source});
  std::optional<BetterWay> best;
  size_t fewest = Problems(first);
  for (const ReadingWay& each : ways) {
    const std::vector<std::string_view> texts = TextsFor(each, text);
    const size_t problems = Problems(ReadInWay(each, texts.front(), text, before, {silent, pump}).read);
    if (problems >= fewest) continue;
    fewest = problems;
    best = BetterWay{each, problems, texts.size()};
  }
  return best;
}

TuneTitle TitleOf(std::string_view tune) {
  const std::string text = Tidy(tune, FormatMode::Rtttl).text;
  const size_t colon = text.find(':');
  const size_t notes = colon == std::string::npos ? colon : text.find(':', colon + 1);
  TuneTitle title{text.substr(0, colon), 0};
  if (notes == std::string::npos || notes + 1 == text.size()) return title;
  title.notes =
      static_cast<size_t>(std::count(text.begin() + static_cast<std::ptrdiff_t>(notes), text.end(), ','));
  if (!text.ends_with(',')) ++title.notes;
  return title;
}

}  // namespace trillomat
