#include "composer/melody_text_view.h"

#include "core/number_text.h"

namespace trillomat {
namespace {

constexpr std::string_view kSeparator = "   ";

}  // namespace

std::optional<MelodyViewText> MelodyTextView::RefreshMelodyView() {
  ++refreshes_;
  MelodyViewText view;
  if (ws_.melody.IsEmpty()) return view;
  if (ws_.iNoteMode == FormatMode::Rtttl) view.defaults = RefreshDefaults();
  if (!AddLeft(view.txtLeft) || !AddRight(view.txtRight)) return std::nullopt;
  return view;
}

MelodyViewText::Defaults MelodyTextView::RefreshDefaults() {
  MelodyDefaults& defaults = ws_.codec.defaults;
  defaults = ws_.melody.ComputeMelodyDefaults();
  MelodyViewText::Defaults shown{DecimalText(defaults.octave + 2),
                                 ws_.codec.EncodeDuration(defaults.duration, FormatMode::Rtttl).text};
  if (!bRTTTLUseDefault) defaults = {.octave = -1, .duration = -1.0F};
  shownDefaults_ = defaults;
  return shown;
}

std::optional<std::string> MelodyTextView::TokenAt(int32_t index) {
  const unsigned refresh = refreshes_;
  // A file that was saved or read since the last token may have left other defaults.
  if (ws_.iNoteMode == FormatMode::Rtttl) ws_.codec.defaults = shownDefaults_;
  MelodyNote note = ws_.melody.At(index);
  std::string token = ws_.codec.EncodeNote(note, ws_.iNoteMode);
  ws_.melody.MarkNotSupported(index, note.NotSupported);
  const bool goOn = ws_.pump.PumpEvents();
  if (!goOn || refresh != refreshes_) return std::nullopt;
  return token;
}

bool MelodyTextView::AddLeft(std::string& text) {
  const int32_t cursor = ws_.melody.lCurrentIndex;
  const int32_t shown = LimitsOf(ws_.iNoteMode).iNotesShown;
  for (int32_t i = cursor; i >= 0 && i >= cursor - shown; --i) {
    if (i > ws_.melody.UpperBound()) return false;
    const auto token = TokenAt(i);
    if (!token) return false;
    if (!token->empty()) text.insert(0, std::string(kSeparator) + *token);
  }
  return true;
}

bool MelodyTextView::AddRight(std::string& text) {
  const int32_t cursor = ws_.melody.lCurrentIndex;
  const int32_t shown = LimitsOf(ws_.iNoteMode).iNotesShown;
  for (int32_t i = cursor + 1; i <= cursor + shown && i <= ws_.melody.UpperBound(); ++i) {
    const auto token = TokenAt(i);
    if (!token) return false;
    if (!token->empty()) text += std::string(kSeparator) + *token;
  }
  return true;
}

}  // namespace trillomat
