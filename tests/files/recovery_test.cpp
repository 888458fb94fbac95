#include <memory>

#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RecoveryText, KeepsEveryFieldAndReadsWhatEarlierVersionsWrote) {
  Song song{.elements = ElementsOf("ledon *3#c3. r5"),
            .info = {"N\xe4me\t\\\r\n", std::string("\0\x7f", 2), -5, "S2", "", "1.2", "Class 1.0", 32767}};
  Element odd;
  odd.octave = -32768;
  odd.duration = -1.0F;
  odd.extra = static_cast<float>(2.0 / 3.0);
  odd.SetCommand("@\\09)\n a command that is longer than those of clean files");
  song.elements.push_back(odd);
  for (const bool empty : {false, true}) {
    if (empty) song.elements.clear();
    EXPECT_EQ(ReadRecovery(WriteRecovery(song, FormatMode::Rtttl)), (RecoveredSong{FormatMode::Rtttl, song}));
  }
  const std::string before =
      "trillomat-recovery 1\nmode\t0\nsong\tA\t\t120\tS0\tV10\t1.2\tClass 1.0\t0\n"
      "note\t5\td\t\t1\t0.5\t1\nend\t1\t13568398120683423571\n";
  const auto read = ReadRecovery(before);
  ASSERT_TRUE(read);
  EXPECT_EQ(TokensOf(read->song.elements), "*5d3");
  EXPECT_EQ(read->song.info.bpm, 120);
}

TEST(RecoveryText, RefusesDamage) {
  const std::string text = WriteRecovery({.elements = ElementsOf("*5d3"), .info = {}}, FormatMode::IMelody);
  for (size_t i = 0; i < text.size(); ++i) {
    EXPECT_FALSE(ReadRecovery(text.substr(0, i))) << i;
    for (const char wrong : {'\0', '\t', '\n', '\\', '9', '\xff'}) {
      std::string damaged = text;
      if (damaged[i] == wrong) continue;
      damaged[i] = wrong;
      EXPECT_FALSE(ReadRecovery(damaged)) << i;
    }
  }
}

class RecoveryTest : public FilesTest {
 protected:
  RecoveredSong Composed() const { return {document.Mode(), document.CurrentSong()}; }

  /// Ends the recovery as a crash does (the lock goes, the files stay), and starts the next.
  void Restart(bool offered, const std::string& last) {
    recovery.emplace(document, store, folder / "state", log);
    EXPECT_EQ(recovery->Start(), offered);
    EXPECT_EQ(LastTokens(*recovery), last);
  }

  void Edit(const std::string& tokens) {
    Compose(tokens);
    recovery->Tick();
  }

  static std::string LastTokens(const Recovery& recovery) {
    const auto last = recovery.LastSong();
    return last ? TokensOf(last->song.elements) : "none";
  }
};

TEST_F(RecoveryTest, AnAbnormalEndIsNoticedAndTheSongKept) {
  Restart(false, "none");
  Edit("c2");
  Compose("");
  recovery->Tick();  // clearing all is no song to keep
  Restart(true, "*4c2");
  browser.RecoverLast();
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_EQ(host.opened, 0) << "it is not played";
  recovery->Tick();
  Restart(true, "*4c2");  // once more, before any edit
  Edit("d2");
  recovery->End();
  Restart(false, "*4d2");
  Restart(false, "*4d2");  // nothing was composed, so nothing is offered, and nothing lost
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(RecoveryTest, OpeningAFileKeepsTheComposedSong) {
  FillWith({{"a.imy", "a2"}, {"b.imy", "b2"}});
  Restart(false, "none");
  Compose("c2");
  const RecoveredSong composed = Composed();
  for (const char* file : {"a.imy", "b.imy", "a.imy"}) {
    Click(file);
    recovery->Tick();
    EXPECT_EQ(recovery->LastSong(), composed);
  }
  ReadResult imported;
  imported.elements = ElementsOf("e2");
  browser.TakeImported(std::move(imported));
  EXPECT_EQ(recovery->LastSong(), composed);
  host.EnterMode(FormatMode::Rtttl);
  browser.RecoverLast();
  EXPECT_EQ(Composed(), composed);
  EXPECT_EQ(document.Cursor(), -1);
  EXPECT_TRUE(document.File().empty());
  EXPECT_TRUE(document.IsChanged());
}

TEST_F(RecoveryTest, ProgramsAtTheSameTimeKeepTheirOwnSongs) {
  Document others;
  auto second = std::make_unique<Recovery>(others, store, folder / "state", log);
  Restart(false, "none");
  EXPECT_FALSE(second->Start());
  Edit("c2");
  others.Apply({.inserted = ElementsOf("d2")});
  second->Tick();
  second.reset();  // as a crash does
  Recovery third(others, store, folder / "state", log);
  EXPECT_TRUE(third.Start());
  EXPECT_EQ(LastTokens(third), "*4d2");
  third.End();
  recovery->End();
  Restart(false, "*4c2");
}

TEST_F(RecoveryTest, DamagedFilesAndAFolderThatCannotBeWrittenAreSurvived) {
  folder.MakeFolder("state");
  folder.Write("state/running-1", "");
  folder.Write("state/recovery-1.txt", std::string(1000, '\0'));
  folder.Write("state/last-1.txt", "trillomat-recovery 1\nnote");
  Restart(false, "none");
  browser.RecoverLast();
  EXPECT_THAT(log.lines, ElementsAre("2: There is no melody to recover"));
  log.lines.clear();
  std::filesystem::remove(folder / "state/recovery-1.txt");
  std::filesystem::create_directory(folder / "state/recovery-1.txt");
  Edit("c2");
  Edit("d2");
  EXPECT_THAT(log.lines, ElementsAre("1: Could not write the recovery file"));
  std::filesystem::remove(folder / "state/recovery-1.txt");
  recovery->Tick();
  EXPECT_TRUE(std::filesystem::exists(folder / "state/recovery-1.txt")) << "a failed write is tried again";

  folder.Write("file", "");
  Recovery homeless(document, store, folder / "file/state", log);
  EXPECT_FALSE(homeless.Start());
  homeless.KeepBeforeReplacing();
  homeless.End();
  EXPECT_EQ(log.lines.back(), "1: No recovery file can be kept");
}

}  // namespace
}  // namespace trillomat
