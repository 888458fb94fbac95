#include "files/sound_export.h"

#include <array>
#include <utility>

#include "core/code_page.h"
#include "files/kept_files.h"
#include "files/path_text.h"
#include "files/replace_file.h"
#include "files/save_dialog.h"

namespace trillomat {

void SoundExport::Run() {
  const auto operation = parts_.operations.Begin();
  if (!operation || !parts_.host.MayEdit()) return;
  if (parts_.document.IsEmpty()) return parts_.services.log.WriteLog("Nothing to export", 2);
  std::string_view extension;
  const auto file = AskFile(extension);
  if (!file) return;
  parts_.store.Sweep(file->parent_path());
  if (parts_.store.Exists(*file) && !AskToReplace(parts_.host)) return;
  const Result<SoundBytes> sound = Make(*file, extension);
  if (!sound) return parts_.host.Say({"Not exported: " + ToUtf8(sound.Why().why)});
  Write(*file, *sound);
}

std::optional<std::filesystem::path> SoundExport::AskFile(std::string_view& extension) const {
  constexpr std::array kFormats{std::pair<std::string_view, std::string_view>("Sound", "wav"),
                                std::pair<std::string_view, std::string_view>("MIDI", "mid")};
  const auto answer = parts_.host.AskSavePath(
      {parts_.store.NativePath(browser_.OwnFolder()), "Melody", BuildDialogFilter(kFormats), "wav"});
  if (!answer) return std::nullopt;
  extension = HasMidiName(*answer) ? "mid" : "wav";
  return ChosenFile(*answer, extension);
}

// From a copy of the song, for events run meanwhile.
Result<SoundBytes> SoundExport::Make(const std::filesystem::path& file, std::string_view extension) {
  const Document song(parts_.document.CurrentSong(), parts_.document.Mode());
  ProgressPump pump = WritingPump(file, parts_);
  Result<SoundBytes> sound = make_(song, extension, parts_.services.With(pump));
  parts_.host.ShowProgress({});
  return sound;
}

void SoundExport::Write(const std::filesystem::path& file, const SoundBytes& sound) {
  KeptCopy kept;
  const auto write = [&](std::ostream& stream) {
    kept = parts_.kept.KeepCopy(file, sound.bytes);
    stream << sound.bytes;
  };
  const std::string name = Utf8OfPath(file.filename());
  const Replacement replacement = ReplaceFile(file, parts_.store, write, Streams::AtOnce);
  if (!replacement) {
    parts_.kept.NotReplaced(kept);
    const std::string reason = replacement.reason.empty() ? "" : ": " + replacement.reason;
    return parts_.host.Say({"Not exported: " + name + " cannot be written" + reason});
  }
  parts_.kept.Replaced(kept);
  std::string text = (kept.copy.empty() ? "Wrote " : "Replaced ") + name;
  for (const std::string& change : sound.changes) text += "; " + ToUtf8(change);
  if (!kept.fault.empty()) text += "; the old file was not kept: " + ToUtf8(kept.fault);
  parts_.host.Say({text, kept.copy.empty() ? FileMessage::Offer::None : FileMessage::Offer::Restore});
}

}  // namespace trillomat
