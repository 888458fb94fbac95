#include "core/log.h"

#include <gmock/gmock.h>

#include "support/fakes.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FakeMessages : public MessageBox {
 public:
  bool ShowMessage(std::string_view message, bool offerSilence) override {
    shown.push_back((offerSilence ? "silence? " : "") + std::string(message));
    if (onShow) onShow();
    return tick;
  }
  std::vector<std::string> shown;
  bool tick = false;
  std::function<void()> onShow;
};

class FileLogTest : public testing::Test {
 protected:
  TempFolder folder_;
  std::filesystem::path file_ = folder_ / "log.txt";
  FakeClock clock_;
  FakeMessages messages_;
};

TEST_F(FileLogTest, LevelTwoIsWrittenBeforeItIsShown) {
  FileLog log(file_, clock_, messages_);
  std::string fileWhenShown;
  messages_.onShow = [&] { fileWhenShown = folder_.Read("log.txt"); };
  log.WriteLog("Nothing to save", 2);
  log.WriteLog("Nothing to save", 2);
  EXPECT_THAT(messages_.shown, ElementsAre("Nothing to save", "Nothing to save"));
  EXPECT_THAT(fileWhenShown, HasSubstr("Nothing to save"));
}

TEST_F(FileLogTest, OneOperationCanBeSilencedFromItsSecondMessageOn) {
  FileLog log(file_, clock_, messages_);
  {
    const LogOperation outer(log);
    log.WriteLog("one", 2);
    messages_.tick = true;
    {
      const LogOperation nested(log);
      log.WriteLog("two", 2);
    }
    log.WriteLog("three", 2);
  }
  const LogOperation next(log);
  log.WriteLog("four", 2);
  EXPECT_THAT(messages_.shown, ElementsAre("one", "silence? two", "four"));
  EXPECT_THAT(folder_.Read("log.txt"), HasSubstr("three"));
}

TEST_F(FileLogTest, AFileThatCannotBeWrittenIsSaidOnce) {
  FileLog log(file_ / "no" / "folder.txt", clock_, messages_);
  log.WriteLog("first", 1);
  log.WriteLog("second", 1);
  EXPECT_THAT(messages_.shown, ElementsAre(HasSubstr("cannot be written")));
}

TEST(LogFilePathTest, DateTextMakesAFileName) {
  EXPECT_EQ(LogFilePath("logs", "14.05.2002"), std::filesystem::path("logs") / "14-05-2002.txt");
  EXPECT_EQ(LogFilePath("logs", "5/14/2002"), std::filesystem::path("logs") / "5-14-2002.txt");
}

}  // namespace
}  // namespace trillomat
