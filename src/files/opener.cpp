#include "browser/open_melody.h"

#include "formats/format_table.h"

namespace trillomat {

// The melody is kept before anything else, as a reader changes the song information even when it fails.
// What is not an ordinary file (a pipe, a device) could be read without end.
bool MelodyOpener::Read(const std::filesystem::path& file, FormatMode mode) {
  BeginImport();
  if (mode != ws_.iNoteMode) composer_.mnuSettingFormatType_Click(mode);
  std::error_code unreadable;
  if (!std::filesystem::is_regular_file(file, unreadable) || !FormatOf(ws_.iNoteMode).bReadFile(file, ws_)) {
    ws_.log.WriteLog("Error when decoding file", 1);
    return false;
  }
  TakeImported();
  return true;
}

void MelodyOpener::BeginImport() {
  if (recovery != nullptr) recovery->KeepBeforeReplacing();
}

void MelodyOpener::TakeImported() {
  TakeImportMelody();
  if (recovery != nullptr) recovery->MelodyReplaced();
}

void MelodyOpener::PlayOrShow() {
  if (settings_.bAutoPlay) {
    controls_.cmdControl_Click(static_cast<int>(Control::Play));
    return;
  }
  ws_.melody.lCurrentIndex = -1;
  composer_.RefreshMelodyView();
}

void MelodyOpener::StopPlaying() {
  if (controls_.IsPlaying()) controls_.cmdControl_Click(static_cast<int>(Control::Stop));
}

// The mode comes first: entering it may set the tempo. The melody counts as changed, not as opened, so
// that a second abnormal end does not lose it either.
void MelodyOpener::TakeRecovered(RecoveredMelody melody) {
  BeginImport();
  composer_.mnuSettingFormatType_Click(melody.mode);
  ws_.ImportMelody = std::move(melody.elements);
  ws_.header = std::move(melody.header);
  TakeImportMelody();
  if (recovery != nullptr) recovery->MarkChanged();
}

void MelodyOpener::TakeImportMelody() {
  composer_.TakeImportMelody();
  controls_.MelodyReplaced();
}

}  // namespace trillomat
