// The readers and writers of the single formats, for the table in formats.cpp. Each reader takes what
// `reading.bytes` hold into its record and elements, or throws a ReadFault; each writer gives the bytes of a
// file, or the refusal when events tell it that the program is ending.
#pragma once

#include "formats/reading.h"

namespace trillomat {

void ReadIMelody(Reading& reading);
void ReadEMelody(Reading& reading);
void ReadRtttl(Reading& reading);
void ReadMelody(Reading& reading);

Result<std::string> WriteIMelody(const Song& song, const Services& services);
Result<std::string> WriteEMelody(const Song& song, const Services& services);
Result<std::string> WriteRtttl(const Song& song, const Services& services);
Result<std::string> WriteMelody(const Song& song, const Services& services);

}  // namespace trillomat
