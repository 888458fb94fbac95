// A monkey at the main window for a moment, in the program's own event loop and with its own boxes; then the
// window is closed, and the program has to end, whatever stands in front or runs.
#include <QElapsedTimer>
#include <iostream>
#include <memory>

#include "platform/pump_qt.h"
#include "platform/system_parts.h"
#include "support/caged_files.h"
#include "ui/main_window_fixture.h"
#include "ui/message_box_qt.h"
#include "ui/monkey.h"
#include "ui/monkey_data.h"
#include "ui/program_loop.h"

namespace trillomat {
namespace {

/// Shows level-2 messages in real boxes.
class ShownLog : public Log {
 public:
  void WriteLog(std::string_view message, int16_t level) override {
    if (level == 2) QtMessageBox().ShowMessage(message, true);
  }
};

/// One run of the program.
class ShortRun {
 public:
  explicit ShortRun(unsigned seed)
      : dice_(seed), untilClosed_(1 + dice_.Number(25)), inFront_(dice_.OneIn(2)) {
    monkey_.mayClose = false;
    for (const std::string& name : names_) folder_.Write(name, dice_.AnyOf(contents_));
    QObject::connect(&window_, &MainWindow::Closed, &window_, [this] {
      hadInFront = IsInFront();
      closed_.start();
      acting_.stop();
      pump_.End();
    });
    QObject::connect(&acting_, &QTimer::timeout, &window_, [this] { Act(); });
  }

  /// Whether it ended by itself.
  bool Ends() {
    if (!window_.Load()) return false;
    window_.show();
    const bool ended = ProgramLoop::Ends(window_, [this] { acting_.start(0); });
    acting_.stop();
    ending = closed_.isValid() ? closed_.elapsed() : -1;
    monkey_.LetGo();
    window_.Unload();
    return ended;
  }

  qint64 ending = -1;       ///< from the closing on, in milliseconds
  bool hadInFront = false;  ///< a box or a menu

 private:
  static bool IsInFront() {
    return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
  }
  // A timer that is being handled fires again, inside the loops of boxes, only when it is started anew.
  void Act() {
    acting_.start(0);
    if (--untilClosed_ > 0) return monkey_.Act(window_);
    if (inFront_ && !IsInFront() && untilClosed_ > -20) return OpenBox();
    window_.close();
  }
  void OpenBox() {
    constexpr const char* kButtons[] = {"cmdImport", "cmdExport", "cmdSaveAs"};
    if (dice_.OneIn(4)) return Find<QAction>(window_, "mnuFileOpen").trigger();
    Find<QPushButton>(window_, dice_.AnyOf(kButtons)).click();
  }

  Dice dice_;
  int untilClosed_;
  bool inFront_;
  const std::vector<std::string> names_{"a.imy", "b.imy", "c.rtx", "d.mel", "e.emy", "f.mid"};
  const std::vector<std::string> contents_ = FileContents();
  TempFolder folder_;
  TempFolder keptFolder_;
  FileMischief mischief_{dice_, folder_, names_, contents_};
  Monkey monkey_{dice_, mischief_, folder_};
  CagedFiles files_{folder_.Path(), {keptFolder_.Path()}};
  FolderKeeper keeper_{files_, keptFolder_.Path()};
  QtPump pump_;
  ShownLog log_;
  FakeSound sound_;
  MemoryStore settings_;
  QtQuestions questions_;
  std::unique_ptr<Clock> clock_ = SystemClock();
  ReadRecord record_;
  Document document_;
  QElapsedTimer closed_;
  MainWindow window_{WindowParts{
      document_, record_, {log_, pump_}, *clock_, sound_, settings_, files_, keeper_, questions_}};
  QTimer acting_;
};

constexpr qint64 kPatience = 2000;  // milliseconds

#ifdef _WIN32
constexpr int kRuns = 20;  // Wine takes its time with windows
#else
constexpr int kRuns = 50;
#endif

TEST(ClosingMonkeyTest, EndsTheProgramAtAnyMoment) {
  const ProgramLoop loop;
  const auto first = static_cast<unsigned>(qEnvironmentVariable("TRILLOMAT_MONKEY_SEED", "2002").toInt());
  const int runs = qEnvironmentVariable("TRILLOMAT_MONKEY_RUNS", QString::number(kRuns)).toInt();
  int withBox = 0;
  qint64 longest = 0;
  for (int i = 0; i < runs; ++i) {
    ShortRun run(first + static_cast<unsigned>(i));
    ASSERT_TRUE(run.Ends()) << "run " << i;
    ASSERT_GE(run.ending, 0) << "run " << i << " ended before";
    ASSERT_LT(run.ending, kPatience) << "run " << i;
    longest = std::max(longest, run.ending);
    if (run.hadInFront) ++withBox;
  }
  EXPECT_GT(withBox, runs / 4);
  std::cout << runs << " runs, " << withBox << " with something in front, the longest end took " << longest
            << " ms\n";
}

}  // namespace
}  // namespace trillomat
