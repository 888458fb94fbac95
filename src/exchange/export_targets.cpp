#include "exchange/export_targets.h"

#include "exchange/nokia_keys.h"
#include "exchange/t39_keys.h"
#include "exchange/t68i_keys.h"
#include "formats/fault_trap.h"
#include "formats/rtttl_text.h"

namespace trillomat {
namespace {

template <typename Keys>
std::string KeysOf(Workspace& ws) {
  Keys keys(ws);
  return KeyPressText(keys, ws);
}

}  // namespace

const std::array<ExportTarget, 5> kExportTargets{
    {{Phone::Rtttl, "rtttl", "RTTTL", {3, 6}, BuildRtttlText},
     {Phone::Nokia, "nokia", "the Nokia Composer", {3, 6}, KeysOf<NokiaKeys>},
     {Phone::T68i, "t68i", "the T68i", {4, 7}, KeysOf<T68iKeys>},
     {Phone::T39, "t39", "the T39", {3, 5}, KeysOf<T39Keys>},
     {Phone::R320, "r320", "the R320 and T28", {3, 4}, KeysOf<R320Keys>}}};

const std::array<ExportButton, 8> kExportButtons{{{"T68i KeyPress", Phone::T68i, false},
                                                  {"T39 KeyPress", Phone::T39, false},
                                                  {"Nokia Composer", Phone::Nokia, false},
                                                  {"RTTTL", Phone::Rtttl, false},
                                                  {"Nokia Composer", std::nullopt, false},
                                                  {"MIDI", std::nullopt, true},
                                                  {"WAVE", std::nullopt, true},
                                                  {"R320 / T28", Phone::R320, false}}};

const ExportTarget& TargetOf(Phone phone) { return kExportTargets.at(static_cast<size_t>(phone)); }

std::optional<Phone> PhoneOfOption(std::string_view option) {
  for (const ExportTarget& target : kExportTargets) {
    if (target.option == option) return target.phone;
  }
  return std::nullopt;
}

std::optional<std::string> ExportText(Phone phone, Workspace& ws) {
  const LogOperation operation(ws.log);
  const ExportTarget& target = TargetOf(phone);
  std::string result;
  const bool done = RunTrapped("ExportText", ws, [&] {
    if (!AdaptExportRange(target.range.low, target.range.high, ws)) {
      throw QuietFailure(RangeRefusal(ws.ExportMelody, target.range, target.name));
    }
    result = target.makeText(ws);
  });
  return done ? std::optional(std::move(result)) : std::nullopt;
}

}  // namespace trillomat
