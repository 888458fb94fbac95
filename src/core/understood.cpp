// IsUnderstood: whether an element is one that a composer could have entered.
#include <algorithm>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/tone.h"

namespace trillomat {
namespace {

bool IsKnownCommand(std::string_view command) {
  const bool switches =
      std::find(kSwitchCommands.begin(), kSwitchCommands.end(), command) != kSwitchCommands.end();
  if (switches || command == "V+" || command == "V-" || command == "(") return true;
  if (command.starts_with('V')) return IsAllDigits(command.substr(1));
  return command.starts_with('@') && command.ends_with(')') &&
         IsAllDigits(command.substr(1, command.size() - 2));
}

}  // namespace

bool IsUnderstood(const Element& element) {
  if (!element.Command().empty()) return IsKnownCommand(element.Command());
  if (DurationIndex(element.duration) < 0 || DurationExtraIndex(element.extra) < 0) return false;
  if (EqualNoCase(element.Note(), "r")) return true;
  return ToneIndex(element.Note()) >= 0 && LimitsOf(FormatMode::IMelody).HasOctave(element.octave);
}

}  // namespace trillomat
