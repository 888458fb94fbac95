#include "core/log.h"

#include <gmock/gmock.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

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
  folder_.MakeFolder("folder.txt");
  std::vector<std::filesystem::path> files = {file_ / "no" / "folder.txt", folder_ / "folder.txt"};
#ifndef _WIN32
  files.push_back(folder_ / "pipe \xFF");
  ASSERT_EQ(mkfifo(files.back().c_str(), 0600), 0);
#endif
  for (const std::filesystem::path& file : files) {
    messages_.shown.clear();
    FileLog log(file, clock_, messages_);
    log.WriteLog("first", 1);
    log.WriteLog("second", 1);
    EXPECT_THAT(messages_.shown, ElementsAre(HasSubstr("cannot be written: " + folder_.Path().string())));
  }
}

#ifndef _WIN32
TEST_F(FileLogTest, OnlyTheUserCanReadIt) {
  FileLog(file_, clock_, messages_).WriteLog("first", 1);
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(file_).permissions() & (perms::group_all | perms::others_all),
            perms::none);
}
#endif

TEST(LogFilePathTest, DateTextMakesAFileName) {
  EXPECT_EQ(LogFilePath("logs", "14.05.2002"), std::filesystem::path("logs") / "14-05-2002.txt");
  EXPECT_EQ(LogFilePath("logs", "5/14/2002"), std::filesystem::path("logs") / "5-14-2002.txt");
  EXPECT_EQ(LogFilePath("logs", "\u06f2\u06f6/\u06f1\u06f1"),
            std::filesystem::path("logs") / u8"\u06f2\u06f6-\u06f1\u06f1.txt");
}

}  // namespace
}  // namespace trillomat
