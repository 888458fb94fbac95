#include "exchange/export.h"

#include "exchange/nokia_keys.h"
#include "exchange/t39_keys.h"
#include "exchange/t68i_keys.h"
#include "formats/rtttl_text.h"

namespace trillomat {

constexpr std::array<ExportTarget, kPhones> kExportTargets{
    {{Phone::Rtttl, "rtttl", "RTTTL", {3, 6}},
     {Phone::Nokia, "nokia", "the Nokia Composer", {3, 6}, 50},
     {Phone::T68i, "t68i", "the T68i", {4, 7}},
     {Phone::T39, "t39", "the T39", {3, 5}},
     {Phone::R320, "r320", "the R320 and T28", {3, 4}}}};
static_assert(!kExportTargets.back().option.empty(), "a phone has no row");

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

std::unique_ptr<PhoneKeys> KeysOf(Phone phone, const MelodyToType& melody, Log& log) {
  switch (phone) {
    case Phone::Nokia: return std::make_unique<NokiaKeys>(melody, log);
    case Phone::T68i: return std::make_unique<T68iKeys>(melody, log);
    case Phone::T39: return std::make_unique<T39Keys>(melody, log);
    case Phone::R320: return std::make_unique<R320Keys>(melody, log);
    case Phone::Rtttl: break;
  }
  return nullptr;
}

Result<std::string> Export(Phone phone, const Song& song, const Services& services, RtttlSpelling spelling) {
  const LogOperation operation(services.log);
  const ExportTarget& target = TargetOf(phone);
  try {
    const std::optional<int> octaves = MoveInto(song.elements, target.range, services.log);
    if (song.elements.empty() || !octaves) {
      return Refusal{.why = RangeRefusal(song.elements, target.range, target.name)};
    }
    const std::unique_ptr<PhoneKeys> keys = KeysOf(phone, {song.elements.size(), *octaves}, services.log);
    if (!keys) return RtttlText(song, *octaves, spelling, services.log);
    return KeyPressText(*keys, song.elements, *octaves, services);
  } catch (const ExportFault& fault) {
    return Refusal{.why = fault.what()};
  } catch (const std::exception& fault) {
    services.log.WriteLog("Error in ExportText", 1);
    return Refusal{.why = fault.what()};
  }
}

}  // namespace trillomat
