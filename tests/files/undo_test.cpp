// A file operation that fails leaves the song and each of its steps as they were, byte for byte.
#include "document/history.h"
#include "files/files_fixture.h"

namespace trillomat {
namespace {

class UndoAfterFailures : public FilesTest {
 protected:
  void Enter(const std::string& tokens) {
    history.Do("entering", {.at = document.Size(), .inserted = ElementsOf(tokens)});
    steps.push_back(FileBytes());
  }

  /// From the newest step to the oldest, and back.
  void ExpectAllSteps() {
    EXPECT_EQ(FileBytes(), steps.back());
    for (size_t i = steps.size() - 1; i-- > 0;) {
      EXPECT_TRUE(history.Undo());
      EXPECT_EQ(FileBytes(), steps[i]);
    }
    for (size_t i = 1; i < steps.size(); ++i) {
      EXPECT_TRUE(history.Redo());
      EXPECT_EQ(FileBytes(), steps[i]);
    }
  }

  History history{document};
  std::vector<std::string> steps{FileBytes()};
};

TEST_F(UndoAfterFailures, GivesTheSameBytes) {
  struct Failure {
    const char* what;
    std::function<void()> operation;
  };
  const Failure failures[] = {{"a refused file", [&] { Click("broken.imy"); }},
                              {"a file without a byte", [&] { Click("empty.imy"); }},
                              {"a file that is gone", [&] { browser.OpenFile(folder / "gone.imy"); }},
                              {"a folder that is gone",
                               [&] {
                                 host.savePath = folder / "gone" / "a.imy";
                                 save.SaveAs();
                               }},
                              {"a folder in the place of the file",
                               [&] {
                                 host.savePath = folder / "taken.imy";
                                 save.SaveAs();
                               }},
                              {"a file that is gone since the list was read",
                               [&] {
                                 std::filesystem::remove(folder / "late.imy");
                                 Click("late.imy");
                               }},
                              {"the end of the program", [&] {
                                 pump.ending = true;
                                 Click("good.imy");
                                 pump.ending = false;
                               }}};
  folder.Write("broken.imy", "NAME:Broken\r\nno colon\r\n");
  folder.Write("empty.imy", "");
  folder.MakeFolder("taken.imy");
  FillWith({{"good.imy", "c2d3"}, {"late.imy", "c2"}});
  Enter("c2 *5#d3.");
  for (const auto& [what, operation] : failures) {
    SCOPED_TRACE(what);
    Enter("e4 r2");
    host.notice.clear();
    log.lines.clear();
    operation();
    EXPECT_TRUE(host.notice.starts_with("Not ") || !log.lines.empty()) << "it did not fail: " << host.notice;
    ExpectAllSteps();
  }
}

}  // namespace
}  // namespace trillomat
