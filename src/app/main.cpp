// The window program: makes the parts, wires them together, and runs the event loop.
#include <QCommandLineParser>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "app/log_folder.h"
#include "app/trillomat_application.h"
#include "core/code_page.h"
#include "core/log.h"
#include "document/document.h"
#include "platform/pump_qt.h"
#include "platform/settings_qt.h"
#include "platform/system_parts.h"
#include "ui/main_window.h"
#include "ui/message_box_qt.h"
#include "ui/questions.h"
#include "ui/resources.h"

namespace trillomat {
namespace {

struct Options {
  QString file;
  QString screenshot;
};

Options ParseArguments(const QApplication& app) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Composes ringtone melodies for mobile phones."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Melody file to open."),
                               QStringLiteral("[FILE]"));
  const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                      QStringLiteral("Save a picture of the window and end."),
                                      QStringLiteral("PNG"));
  parser.addOption(screenshot);
  parser.process(app);
  if (parser.positionalArguments().size() > 1) {
    std::fputs("trillomat: more than one FILE\n", stderr);
    parser.showHelp(2);
  }
  return {parser.positionalArguments().value(0), parser.value(screenshot)};
}

std::filesystem::path NativePath(const QString& path) { return path.toStdWString(); }

// Level-2 messages of a program that no one sits in front of.
class StandardErrorMessages : public MessageBox {
 public:
  bool ShowMessage(std::string_view message, bool /*offerSilence*/) override {
    std::fprintf(stderr, "trillomat: %s\n", ToUtf8(message).c_str());
    return false;
  }
};

std::unique_ptr<MessageBox> MessagesFor(const Options& options) {
  if (options.screenshot.isEmpty()) return std::make_unique<QtMessageBox>();
  return std::make_unique<StandardErrorMessages>();
}

// The parts of the program that the main window needs, in the order in which they need each other.
class Program {
 public:
  Program(const Options& options, const std::filesystem::path& logFolder)
      : options_(options),
        messages_(MessagesFor(options)),
        log_(LogFilePath(logFolder, clock_->DateText()), *clock_, *messages_),
        sound_(SystemSound(log_)),
        window_({document_,
                 record_,
                 {log_, pump_},
                 *clock_,
                 *sound_,
                 settings_,
                 *files_,
                 questions_,
                 StateFolder()}) {
    QObject::connect(&window_, &MainWindow::Closed, &window_, [this] { pump_.End(); });
  }

  Log& ProgramLog() { return log_; }

  int Run() {
    if (!window_.Load()) return 1;
    window_.show();
    int status = 0;
    // From inside the event loop, because opening a file may play it.
    QTimer::singleShot(0, &window_, [this, &status] { status = Start(); });
    QApplication::exec();
    window_.Unload();
    return status;
  }

 private:
  int Start() {
    const bool screenshot = !options_.screenshot.isEmpty();
    if (!screenshot) window_.OfferRecovery();
    if (!options_.file.isEmpty()) window_.OpenFile(NativePath(options_.file), !screenshot);
    return screenshot ? TakeScreenshot() : 0;
  }

  int TakeScreenshot() {
    const bool saved = window_.TakePicture().save(options_.screenshot);
    if (!saved) messages_->ShowMessage("the picture cannot be written", false);
    window_.close();
    return saved ? 0 : 1;
  }

  const Options& options_;
  std::unique_ptr<Clock> clock_ = SystemClock();
  std::unique_ptr<MessageBox> messages_;
  QtPump pump_;
  FileLog log_;
  Document document_;
  ReadRecord record_;
  std::unique_ptr<SoundDevice> sound_;
  QtSettingsStore settings_;
  std::unique_ptr<FileStore> files_ = SystemFileStore();
  QtQuestions questions_;
  MainWindow window_;
};

int Main(int argc, char** argv) {
  TrillomatApplication app(argc, argv);
  LoadResources();
  QApplication::setWindowIcon(Picture(QStringLiteral("trillomat")));
  const Options options = ParseArguments(app);
  const auto logFolder = LogFolder(NativePath(QApplication::applicationDirPath()));
  if (!logFolder) {
    QMessageBox::critical(
        nullptr, QStringLiteral("Trillomat"),
        QStringLiteral("The log file cannot be written, neither beside the program nor in ") +
            QString::fromStdWString(StateFolder().wstring()));
    return 1;
  }
  Program program(options, *logFolder);
  app.onFault = [&program](std::string_view what) {
    program.ProgramLog().WriteLog("Error in an event handler: " + std::string(what), 2);
  };
  const int status = program.Run();
  app.onFault = nullptr;
  return status;
}

}  // namespace
}  // namespace trillomat

int main(int argc, char** argv) { return trillomat::Main(argc, argv); }
