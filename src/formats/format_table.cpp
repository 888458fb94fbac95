#include "formats/format_table.h"

#include <array>

#include "formats/emelody_file.h"
#include "formats/imelody_file.h"
#include "formats/melody_file.h"
#include "formats/rtttl_file.h"

namespace trillomat {

const FormatEntry& FormatOf(FormatMode mode) {
  static const std::array<FormatEntry, kModeLimits.size()> kFormats{{
      {FormatMode::IMelody, LimitsOf(FormatMode::IMelody).extension, bReadFile_IMelody, bSaveFile_IMelody,
       ReadText_IMelody, WriteText_IMelody},
      {FormatMode::EMelody, LimitsOf(FormatMode::EMelody).extension, bReadFile_EMelody, bSaveFile_EMelody,
       ReadText_EMelody, WriteText_EMelody},
      {FormatMode::Rtttl, LimitsOf(FormatMode::Rtttl).extension, bReadFile_RTTTL, bSaveFile_RTTTL,
       ReadText_RTTTL, WriteText_RTTTL},
      {FormatMode::Melody, LimitsOf(FormatMode::Melody).extension, bReadFile_Melody, bSaveFile_Melody,
       ReadText_Melody, WriteText_Melody},
  }};
  return kFormats.at(static_cast<size_t>(mode));
}

}  // namespace trillomat
