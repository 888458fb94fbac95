#include <random>

#include "browser/recovery_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(BrowserTest, TheRecoveryTextKeepsEveryField) {
  ws.iNoteMode = FormatMode::Rtttl;
  ws.header = {"N\xe4me\t\\\r\n", std::string("\0\x7f", 2), -5, "S2", "", "1.2", "Class 1.0", 32767};
  ws.melody.Assign({{-1, "", "ledon", 0, 0, false},
                    {3, "#c", "", static_cast<float>(2.0 / 3.0), 0.125F, true},
                    {-32768, "R", "@\\09)\n", 1.75F, -1.0F, false}});
  EXPECT_EQ(ReadRecovery(WriteRecovery(ws)), Composed(ws));
  ws.melody.Clear();
  EXPECT_EQ(ReadRecovery(WriteRecovery(ws)), Composed(ws));
}

TEST_F(BrowserTest, ADamagedRecoveryTextIsRefused) {
  Compose("*5d3");
  const std::string text = WriteRecovery(ws);
  for (size_t i = 0; i < text.size(); ++i) {
    EXPECT_FALSE(ReadRecovery(text.substr(0, i))) << i;
    for (const char wrong : {'\0', '\t', '\n', '\\', '9', '\xff'}) {
      std::string damaged = text;
      if (damaged[i] == wrong) continue;
      damaged[i] = wrong;
      EXPECT_FALSE(ReadRecovery(damaged)) << i;
    }
  }
  std::minstd_rand random(1);  // the same bytes each run
  for (int round = 0; round < 1000; ++round) {
    std::string bytes = round % 2 == 0 ? "trillomat-recovery 1\nmode\t0\n" : "";
    for (int i = 0; i < 100; ++i) bytes += "01289\t\n\\-.einfat \xff"[random() % 17];
    EXPECT_FALSE(ReadRecovery(bytes));
  }
}

TEST_F(RecoveryTest, AnAbnormalEndIsNoticedAndTheMelodyKept) {
  std::unique_ptr<Recovery> recovery;
  const auto start = [&](bool offered, const std::string& last) {
    recovery = MakeRecovery();
    EXPECT_EQ(recovery->Start(), offered);
    EXPECT_EQ(LastTokens(*recovery), last);
  };
  start(false, "none");
  Edit(*recovery, "c2");
  recovery->MarkChanged();
  ws.melody.Clear();
  recovery->Tick();  // clearing all is no melody to keep
  Crash(recovery);
  start(true, "*4c2");
  opener.recovery = recovery.get();
  opener.TakeRecovered(*recovery->LastMelody());
  recovery->Tick();
  Crash(recovery);  // once more, before any edit
  start(true, "*4c2");
  Edit(*recovery, "d2");
  recovery->End();
  start(false, "*4d2");
  Crash(recovery);  // nothing was composed, so nothing is offered, and nothing lost
  start(false, "*4d2");
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(RecoveryTest, OpeningAFileKeepsTheComposedMelody) {
  FillWith({{"a.imy", "a2"}, {"b.imy", "b2"}});
  auto recovery = MakeRecovery();
  recovery->Start();
  opener.recovery = recovery.get();
  Compose("c2");
  const RecoveredMelody composed = Composed(ws);
  for (const char* file : {"a.imy", "b.imy", "a.imy"}) {
    browser.ListFiles_Click(RowOf(file));
    recovery->MarkChanged();
    recovery->Tick();
    EXPECT_EQ(recovery->LastMelody(), composed);
  }
  opener.TakeRecovered(*recovery->LastMelody());
  EXPECT_EQ(Composed(ws), composed);
  EXPECT_EQ(ws.melody.lCurrentIndex, -1);
  recovery->End();
}

TEST_F(RecoveryTest, ProgramsAtTheSameTimeKeepTheirOwnMelodies) {
  auto first = MakeRecovery();
  auto second = MakeRecovery();
  first->Start();
  EXPECT_FALSE(second->Start());
  Edit(*first, "c2");
  Edit(*second, "d2");
  Crash(second);
  auto third = MakeRecovery();
  EXPECT_TRUE(third->Start());
  EXPECT_EQ(LastTokens(*third), "*4d2");
  third->End();
  first->End();
  third = MakeRecovery();
  EXPECT_FALSE(third->Start());
  EXPECT_EQ(LastTokens(*third), "*4c2");
}

TEST_F(RecoveryTest, DamagedFilesAndAFolderThatCannotBeWrittenAreSurvived) {
  folder.MakeFolder("state/trillomat");
  folder.Write("state/trillomat/running-1", "");
  folder.Write("state/trillomat/recovery-1.txt", std::string(1000, '\0'));
  folder.Write("state/trillomat/last-1.txt", "trillomat-recovery 1\nnote");
  auto recovery = MakeRecovery();
  EXPECT_FALSE(recovery->Start());
  EXPECT_EQ(LastTokens(*recovery), "none");
  std::filesystem::remove(State() / "recovery-1.txt");
  std::filesystem::create_directory(State() / "recovery-1.txt");
  Edit(*recovery, "c2");
  Edit(*recovery, "d2");
  EXPECT_THAT(log.lines, ElementsAre("1: Could not write the recovery file"));
  std::filesystem::remove(State() / "recovery-1.txt");
  recovery->Tick();
  EXPECT_TRUE(std::filesystem::exists(State() / "recovery-1.txt")) << "a failed write is tried again";

  folder.Write("file", "");
  Recovery homeless(ws, store, folder / "file/trillomat");
  EXPECT_FALSE(homeless.Start());
  Edit(homeless, "c2");
  homeless.End();
  EXPECT_EQ(log.lines.back(), "1: No recovery file can be kept");
}

}  // namespace
}  // namespace trillomat
