#include "exchange/rtttl_shape.h"

#include <algorithm>

#include "core/ascii.h"

namespace trillomat {
namespace {

std::string_view TrimmedInFront(std::string_view text) {
  const auto* const start = std::find_if_not(text.begin(), text.end(), IsWhitespace);
  return text.substr(static_cast<size_t>(start - text.begin()));
}

// Keys end with ":", or, where that was forgotten, before the first item that is none.
size_t LengthOfKeys(std::string_view text) {
  const size_t colon = text.find(':');
  if (colon != std::string_view::npos) return colon;
  for (size_t comma = text.find(','); comma != std::string_view::npos; comma = text.find(',', comma + 1)) {
    if (!StartsWithRtttlKey(text.substr(comma + 1))) return comma;
  }
  return text.size();
}

RtttlShape ShapeAt(std::string_view tune, size_t keys) {
  const std::string_view rest = tune.substr(keys);
  const size_t length = LengthOfKeys(rest);
  return {.name = tune.substr(0, keys > 0 ? keys - 1 : 0),
          .keys = rest.substr(0, length),
          .notes = rest.substr(std::min(length + 1, rest.size()))};
}

}  // namespace

bool StartsWithRtttlKey(std::string_view text) {
  text = TrimmedInFront(text);
  constexpr std::string_view kKeys = "dobsl";
  if (text.empty() || !Contains(kKeys, ToLower(text.front()))) return false;
  return TrimmedInFront(text.substr(1)).starts_with('=');
}

RtttlShape RtttlShapeOf(std::string_view tune) {
  for (size_t colon = tune.find(':'); colon != std::string_view::npos; colon = tune.find(':', colon + 1)) {
    if (StartsWithRtttlKey(tune.substr(colon + 1))) return ShapeAt(tune, colon + 1);
  }
  if (StartsWithRtttlKey(tune)) return ShapeAt(tune, 0);
  return ShapeByColons(tune);
}

RtttlShape ShapeByColons(std::string_view tune) {
  const size_t first = tune.find(':');
  if (first == std::string_view::npos) return {tune.substr(0, 0), tune.substr(0, 0), tune};
  const size_t second = tune.find(':', first + 1);
  if (second == std::string_view::npos) {
    return {tune.substr(0, first), tune.substr(first + 1, 0), tune.substr(first + 1)};
  }
  return {tune.substr(0, first), tune.substr(first + 1, second - first - 1), tune.substr(second + 1)};
}

}  // namespace trillomat
