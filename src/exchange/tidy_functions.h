// The tidying of the single formats, for the choice in tidy.cpp. Each passes through the whole text.
#pragma once

#include "exchange/tidy_text.h"

namespace trillomat {

void TidyIMelody(TidyText& text);
void TidyRtttl(TidyText& text);
/// E-Melody, whose notes stand between markers, and Melody, which is nothing but notes.
void TidyEMelody(TidyText& text);
void TidyMelody(TidyText& text);

}  // namespace trillomat
