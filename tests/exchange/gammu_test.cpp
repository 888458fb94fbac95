// RTTTL text that the program writes, read back by libgammu, which knows nothing of this program.
//
// libgammu 1.42 has RTTTL's octaves 4 to 7, and reads a dot right behind the tone name alone, where notes in
// the default octave have it. So the tunes here keep to those octaves and have their dots on such notes.
#include <gammu.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include "core/tone.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

class GammuTest : public ::testing::Test {
 protected:
  // libgammu opens no file whose path is longer than some 35 characters.
  void SetUp() override { std::filesystem::current_path(::testing::TempDir()); }
  void TearDown() override { std::filesystem::remove(file_); }

  // What libgammu finds in `text`; null when it refuses the file.
  std::unique_ptr<GSM_Ringtone> ReadByGammu(const std::string& text) {
    std::ofstream(file_, std::ios::binary) << text << "\r\n";
    auto ringtone = std::make_unique<GSM_Ringtone>();
    std::string path = file_.string();
    if (GSM_ReadRingtoneFile(path.data(), ringtone.get()) != ERR_NONE) return nullptr;
    return ringtone->Format == RING_NOTETONE ? std::move(ringtone) : nullptr;
  }

  void ExpectGammuReads(const Song& song) {
    const Result<std::string> text = Export(Phone::Rtttl, song, fake_.services);
    ASSERT_TRUE(text) << text.Why().why;
    const std::unique_ptr<GSM_Ringtone> ringtone = ReadByGammu(*text);
    ASSERT_NE(ringtone, nullptr) << *text;
    ElementList elements = song.elements;
    AdaptRange(elements, TargetOf(Phone::Rtttl).range, fake_.log);
    ASSERT_EQ(static_cast<size_t>(ringtone->NoteTone.NrCommands), elements.size()) << *text;
    for (size_t i = 0; i < elements.size(); ++i) {
      SCOPED_TRACE(*text + ", note " + std::to_string(i));
      ExpectSame(elements[i], song.info, ringtone->NoteTone.Commands[i]);
    }
  }

  FakeServices fake_;

 private:
  static void ExpectSame(const Element& element, const SongInfo& info, const GSM_RingCommand& command) {
    EXPECT_EQ(command.Type, RING_Note);
    EXPECT_EQ(command.Note.Tempo, info.bpm);
    EXPECT_EQ(command.Note.Duration >> 5, DurationIndex(element.duration));
    EXPECT_EQ(command.Note.DurationSpec, element.extra == 1.5F ? DottedNote : NoSpecialDuration);
    // Counted in semitones from c, 1 to 12; 0 is a pause.
    const ToneTable<int> semitones{1, 2, 2, 3, 4, 4, 5, 6, 7, 7, 8, 9, 9, 10, 11, 11, 12};
    const int tone = ToneIndex(element.Note());
    EXPECT_EQ(command.Note.Note >> 4, tone < 0 ? 0 : semitones.at(static_cast<size_t>(tone)));
    if (tone < 0) return;
    EXPECT_EQ(static_cast<int>(command.Note.Scale), element.octave + 2);
  }

  std::filesystem::path file_ =
      std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".txt";
};

TEST_F(GammuTest, ReadsTunes) {
  std::ifstream tunes(TEST_DATA_DIR "/tunes.txt");
  int count = 0;
  for (std::string line; std::getline(tunes, line); ++count) {
    ReadResult read = Import(PastedFormat::Rtttl, line, false, {}, fake_.services).read;
    ASSERT_TRUE(read) << line;
    ExpectGammuReads({.elements = std::move(read.elements), .info = read.record.info});
  }
  EXPECT_EQ(count, 6);
}

}  // namespace
}  // namespace trillomat
