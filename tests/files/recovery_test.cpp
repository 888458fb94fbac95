#include <memory>

#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

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
    const std::string text = WriteRecovery(song, FormatMode::Rtttl, "a\tb\xff.rtx", -7);
    EXPECT_EQ(ReadRecovery(text), (RecoveredSong{FormatMode::Rtttl, song, "a\tb\xff.rtx", -7}));
    EXPECT_EQ(SongPartOf(text), SongPartOf(WriteRecovery(song, FormatMode::Rtttl, "", 1)));
    EXPECT_NE(SongPartOf(text), SongPartOf(WriteRecovery(song, FormatMode::Melody, "a\tb\xff.rtx", -7)));
  }
  const std::string before =
      "trillomat-recovery 1\nmode\t0\nsong\tA\t\t120\tS0\tV10\t1.2\tClass 1.0\t0\n"
      "note\t5\td\t\t1\t0.5\t1\nend\t1\t13568398120683423571\n";
  const auto read = ReadRecovery(before);
  ASSERT_TRUE(read);
  EXPECT_EQ(TokensOf(read->song.elements), "*5d3");
  EXPECT_EQ(read->song.info.bpm, 120);
  EXPECT_TRUE(SongPartOf(before).starts_with("mode\t0\nsong\tA"));
}

TEST(RecoveryText, RefusesDamage) {
  const std::string text =
      WriteRecovery({.elements = ElementsOf("*5d3"), .info = {}}, FormatMode::IMelody, "a", 5);
  for (size_t i = 0; i < text.size(); ++i) {
    EXPECT_FALSE(ReadRecovery(text.substr(0, i))) << i;
    EXPECT_TRUE(SongPartOf(text.substr(0, i)).empty()) << i;
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
  RecoveredSong Composed() const {
    return {document.Mode(), document.CurrentSong(), document.File().filename().string()};
  }

  /// Ends the recovery as a crash does (the lock goes, the files stay), and starts the next one. Returns what
  /// that tells of the last run, and the songs that are kept then, the newest first.
  void Restart(const std::string& left, const std::vector<std::string>& songs) {
    recovery.emplace(document, store, folder / "state", log);
    const auto told = recovery->Start();
    EXPECT_EQ(told ? TokensIn(*recovery, *told) : "none", left);
    EXPECT_EQ(Songs(*recovery), songs);
    recovery->Told();
    EXPECT_EQ(told ? TokensIn(*recovery, *told) : "none", left);
  }

  void Edit(const std::string& tokens) {
    Compose(tokens);
    recovery->Tick();
  }

  static std::string TokensIn(const Recovery& recovery, const KeptSong& song) {
    const auto recovered = recovery.Recovered(song.file);
    return recovered ? TokensOf(recovered->song.elements) : "damaged";
  }

  static std::vector<std::string> Songs(const Recovery& recovery) {
    std::vector<std::string> songs;
    for (const KeptSong& song : recovery.Songs()) songs.push_back(TokensIn(recovery, song));
    return songs;
  }
};

using Kept = std::vector<std::string>;

TEST_F(RecoveryTest, WhatARunDidNotSaveIsToldByTheNext) {
  FillWith({{"a.imy", "a2"}});
  Restart("none", {});
  Edit("c2");
  Restart("*4c2", {"*4c2"});
  Restart("none", {"*4c2"});
  browser.RecoverLast();
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_EQ(host.opened, 0) << "it is not played";
  recovery->Tick();
  Restart("*4c2", {"*4c2"});  // once more, before any edit
  Edit("d2");
  recovery->End();
  recovery->Start();
  Compose("");  // nobody was told yet
  recovery->End();
  Restart("*4d2", {"*4d2", "*4c2"});
  recovery->End();
  Restart("none", {"*4d2", "*4c2"});
  Compose("e2");
  Edit("e2 e2");
  host.savePath = folder / "e.imy";
  save.SaveAs();
  recovery->End();
  Restart("none", {"*4d2", "*4c2"});  // everything is saved
  Compose("f2");
  recovery->End();
  Restart("*4f2", {"*4f2", "*4d2", "*4c2"});
  EXPECT_EQ(recovery->Songs().at(0).name, "e.imy");
  EXPECT_THAT(log.lines, testing::Not(testing::Contains(testing::HasSubstr("recovery"))));
}

TEST_F(RecoveryTest, WhateverTakesTheSongsPlaceItIsKeptUnlessItIsSaved) {
  FillWith({{"a.imy", "a2"}, {"b.imy", "b2"}});
  Restart("none", {});
  Compose("c2 c2");
  const RecoveredSong composed = Composed();
  for (const char* file : {"a.imy", "b.imy", "a.imy"}) {
    Click(file);
    recovery->Tick();
    EXPECT_EQ(Songs(*recovery), Kept{"*4c2*4c2"});
  }
  ReadResult imported;
  imported.elements = ElementsOf("e2");
  browser.TakeImported(std::move(imported));
  EXPECT_EQ(Songs(*recovery).size(), 1U);
  browser.New();
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_EQ(document.Info(), SongInfo());
  browser.New();
  EXPECT_EQ(Songs(*recovery), (Kept{"*4e2", "*4c2*4c2"}));
  Edit("d2 d2");
  Compose("");  // by whatever way all of it goes at once
  Edit("f2");
  EXPECT_EQ(Songs(*recovery), (Kept{"*4d2*4d2", "*4e2", "*4c2*4c2"}));
  host.EnterMode(FormatMode::Rtttl);
  host.plays = true;
  browser.Recover(recovery->Songs().at(2).file);
  browser.New();
  EXPECT_EQ(Tokens(), "*4f2") << "nothing while it plays";
  host.plays = false;
  browser.Recover(recovery->Songs().at(2).file);
  EXPECT_EQ(Songs(*recovery).front(), "*4f2");
  EXPECT_EQ(Composed(), composed);
  EXPECT_EQ(document.Cursor(), -1);
  EXPECT_TRUE(document.IsChanged());
  recovery->KeepBeforeReplacing();
  recovery->KeepBeforeReplacing();
  EXPECT_EQ(Songs(*recovery), (Kept{"*4c2*4c2", "*4f2", "*4d2*4d2", "*4e2"}));
}

TEST_F(RecoveryTest, ProgramsAtTheSameTimeShareTheirKeptSongs) {
  Document others;
  auto second = std::make_unique<Recovery>(others, store, folder / "state", log);
  Restart("none", {});
  EXPECT_FALSE(second->Start());
  Edit("c2");
  others.Apply({.inserted = ElementsOf("d2")});
  second->Tick();
  second.reset();  // as a crash does
  Recovery third(others, store, folder / "state", log);
  const auto told = third.Start();
  ASSERT_TRUE(told);
  EXPECT_EQ(TokensIn(third, *told), "*4d2");
  third.Told();
  third.End();
  EXPECT_EQ(Songs(*recovery), Kept{"*4d2"});
  recovery->End();
  EXPECT_EQ(Songs(third), (Kept{"*4c2", "*4d2"}));
  Restart("*4c2", {"*4c2", "*4d2"});
}

TEST_F(RecoveryTest, TheLastTenAreKeptWithNameTimeAndLength) {
  using namespace std::chrono_literals;
  Restart("none", {});
  for (int i = 1; i <= 12; ++i) {
    Compose(ElementList(static_cast<size_t>(i), Note("c")));
    recovery->KeepBeforeReplacing();
  }
  const auto songs = recovery->Songs();
  ASSERT_EQ(songs.size(), 10U);
  EXPECT_EQ(folder.Names(), Kept{"state"});
  for (size_t i = 0; i < songs.size(); ++i) EXPECT_EQ(songs[i].elements, 12 - i);
  EXPECT_EQ(songs[0].milliseconds, 12 * 600);
  EXPECT_EQ(songs[0].name, "Untitled");
  EXPECT_LT(std::chrono::abs(std::chrono::system_clock::now() - songs[0].time), 60s);
  document.Apply({.info = SongInfo{.name = "Caf\xe9"}});
  recovery->KeepBeforeReplacing();
  EXPECT_EQ(recovery->Songs().at(0).name, "Caf\xc3\xa9");
  const auto files = std::distance(std::filesystem::directory_iterator(folder / "state"), {});
  EXPECT_EQ(files, 11) << "the ten and the lock";
}

// Neither a song that is erased note by note is kept, nor changes that are undone back to the saved song.
TEST_F(RecoveryTest, WhatIsNotUnsavedAnyMoreIsForgotten) {
  Restart("none", {});
  Edit("c2");
  Edit("");
  Restart("none", {});
  folder.Write("a.imy", TuneText("a2"));
  browser.OpenFile(folder / "a.imy");
  const Change back = document.Apply({.removed = 1, .inserted = ElementsOf("b2 b2")});
  recovery->Tick();
  document.Apply(back);
  recovery->Tick();
  Restart("none", {});
}

TEST_F(RecoveryTest, WhatEarlierVersionsKeptStays) {
  const std::string song =
      "trillomat-recovery 1\nmode\t0\nsong\tA\t\t120\tS0\tV10\t1.2\tClass 1.0\t0\n"
      "note\t5\td\t\t1\t0.5\t1\nend\t1\t13568398120683423571\n";
  folder.MakeFolder("state");
  folder.Write("state/last-1.txt", song);
  Restart("none", {"*5d3"});
  EXPECT_EQ(recovery->Songs().at(0).name, "A");
  EXPECT_GT(recovery->Songs().at(0).time.time_since_epoch().count(), 0);
  folder.Write("state/recovery-3.txt", song);
  folder.Write("state/running-3", "");
  Restart("*5d3", {"*5d3"});
}

TEST_F(RecoveryTest, DamagedFilesAndAFolderThatCannotBeWrittenAreSurvived) {
  folder.MakeFolder("state");
  folder.Write("state/running-1", "");
  folder.Write("state/recovery-1.txt", std::string(1000, '\0'));
  folder.Write("state/last-1.txt", "trillomat-recovery 1\nnote");
  Restart("none", {});
  const auto files = std::distance(std::filesystem::directory_iterator(folder / "state"), {});
  EXPECT_EQ(files, 3) << "they may be of use yet";
  browser.RecoverLast();
  EXPECT_THAT(log.lines, ElementsAre("2: There is no melody to recover"));
  log.lines.clear();
  folder.MakeFolder("state/recovery-1.txt/x");
  Edit("c2");
  Edit("d2");
  EXPECT_THAT(log.lines, ElementsAre("1: Could not write the recovery file"));
  std::filesystem::remove_all(folder / "state/recovery-1.txt");
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
