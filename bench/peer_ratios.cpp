// libgammu beside the same scans: its reader of RTTTL and its writers of RTTTL and iMelody. It reads from
// files alone, opens none whose path is long, and holds 255 notes.
//   peer_ratios TUNES    a file with a tune a line; in a folder that may be written to
#include <gammu.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "bench/side_by_side.h"

namespace {

using trillomat::measured;
using trillomat::PrintRatio;
using trillomat::ScanOf;

using Save = GSM_Error (*)(FILE* file, GSM_Ringtone* ringtone);

class Gammu {
 public:
  explicit Gammu(const char* tunes) {
    std::ifstream lines(tunes, std::ios::binary);
    for (std::string tune; count_ < kMostTunes && std::getline(lines, tune); ++count_) {
      std::ofstream(NameOf(count_), std::ios::binary) << tune << '\n';
      all_ += tune + '\n';
    }
  }
  Gammu(const Gammu&) = delete;
  Gammu& operator=(const Gammu&) = delete;
  ~Gammu() {
    for (size_t i = 0; i < count_; ++i) std::filesystem::remove(NameOf(i));
  }

  void PrintReading() {
    PrintRatio("read-tunes", ScanOf(all_), [this] {
      for (size_t i = 0; i < count_; ++i) {
        std::string name = NameOf(i);
        measured = GSM_ReadRingtoneFile(name.data(), ringtone_.get());
      }
    });
  }

  // The first tune, again and again until it holds no more.
  void PrintWriting(const std::string& what, Save save) {
    std::string name = NameOf(0);
    GSM_ReadRingtoneFile(name.data(), ringtone_.get());
    GSM_NoteRingtone& notes = ringtone_->NoteTone;
    for (int i = notes.NrCommands; i < GSM_MAX_RINGTONE_NOTES; ++i)
      notes.Commands[i] = notes.Commands[i - notes.NrCommands];
    notes.NrCommands = GSM_MAX_RINGTONE_NOTES;
    const std::string text = Saved(save);
    PrintRatio(what, ScanOf(text), [&] { measured = Saved(save).size(); });
  }

 private:
  static constexpr size_t kMostTunes = 500;

  static std::string NameOf(size_t tune) { return "p" + std::to_string(tune) + ".txt"; }

  std::string Saved(Save save) {
    char* text = nullptr;
    size_t size = 0;
    FILE* const memory = open_memstream(&text, &size);
    save(memory, ringtone_.get());
    std::fclose(memory);
    std::string saved(text, size);
    std::free(text);
    return saved;
  }

  size_t count_ = 0;
  std::string all_;
  std::unique_ptr<GSM_Ringtone> ringtone_ = std::make_unique<GSM_Ringtone>();
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  Gammu gammu(argv[1]);
  gammu.PrintReading();
  gammu.PrintWriting("write-rtttl", GSM_SaveRingtoneRttl);
  gammu.PrintWriting("write-imelody", GSM_SaveRingtoneIMelody);
}
