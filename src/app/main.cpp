// The window program: makes the parts, wires them together, and runs the event loop.
#include <QBuffer>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPixmap>
#include <QStandardPaths>
#include <QTimer>
#include <QWindow>
#include <exception>
#include <memory>

#include "app/ini_settings.h"
#include "app/log_folder.h"
#include "app/options.h"
#include "app/trillomat_application.h"
#include "core/code_page.h"
#include "core/log.h"
#include "core/token_cache.h"
#include "document/document.h"
#include "files/path_text.h"
#include "files/replace_file.h"
#include "platform/installed_data.h"
#include "platform/pump_qt.h"
#include "platform/system_parts.h"
#include "platform/user_folders.h"
#include "ui/main_window.h"
#include "ui/message_box_qt.h"
#include "ui/qt_text.h"
#include "ui/questions.h"
#include "ui/resources.h"
#ifdef _WIN32
#include "platform/settings_qt.h"
#endif

namespace trillomat {
namespace {

// Shows messages on standard error, for a screenshot: nobody is there to close a box.
class StandardErrorMessages : public MessageBox {
 public:
  bool ShowMessage(std::string_view message, bool /*offerSilence*/) override {
    SayError("trillomat: " + ToUtf8(message));
    return false;
  }
};

std::unique_ptr<MessageBox> MessagesFor(const Options& options) {
  if (options.screenshot.empty()) return std::make_unique<QtMessageBox>();
  return std::make_unique<StandardErrorMessages>();
}

std::unique_ptr<SettingsStore> UserSettings([[maybe_unused]] FileStore& files) {
#ifdef _WIN32
  return std::make_unique<RegistrySettingsStore>();
#else
  return std::make_unique<IniSettingsStore>(SettingsFolder() / "trillomat.ini", files);
#endif
}

std::filesystem::path MusicFolder() {
  return PathOfUtf8(QStandardPaths::writableLocation(QStandardPaths::MusicLocation).toStdString());
}

// In the format that the name's ending tells.
bool SavePicture(const QPixmap& picture, const std::filesystem::path& file, FileStore& files) {
  const std::string format = Utf8OfPath(file.extension());
  QBuffer bytes;
  if (format.empty() || !picture.save(&bytes, format.c_str() + 1)) return false;
  const std::string_view encoded(bytes.data().constData(), static_cast<size_t>(bytes.size()));
  return static_cast<bool>(ReplaceFile(file, files, WriteBytes(encoded)));
}

// The parts of the program that the main window needs, in the order in which they need each other.
class Program {
 public:
  Program(const Options& options, const std::filesystem::path& logFolder, FileStore& files)
      : options_(options),
        files_(files),
        messages_(MessagesFor(options)),
        log_(LogFilePath(logFolder, clock_->DateText()), *clock_, *messages_),
        sound_(SystemSound(log_)),
        settings_(UserSettings(files)),
        keeper_(SystemFileKeeper(files, StateFolder())),
        window_({document_,
                 record_,
                 {log_, pump_, &tokens_},
                 *clock_,
                 *sound_,
                 *settings_,
                 files,
                 *keeper_,
                 questions_,
                 StateFolder(),
                 MusicFolder,
                 [](std::string_view name) { return InstalledData(ProgramFolder(), name); }}) {
    QObject::connect(&window_, &MainWindow::Closed, &window_, [this] { pump_.End(); });
  }

  Log& ProgramLog() { return log_; }

  int Run() {
    if (!window_.Load()) return 1;
    window_.show();
    int status = 0;
    // From inside the event loop, because opening a file may play it.
    QTimer start;
    start.setSingleShot(true);
    QObject::connect(&start, &QTimer::timeout, &window_, [this, &status] { status = Start(); });
    start.start(0);
    QApplication::exec();
    window_.Unload();
    return status;
  }

 private:
  int Start() {
    const bool screenshot = !options_.screenshot.empty();
    if (!screenshot) window_.OfferRecovery();
    if (options_.file.empty()) {
      window_.GreetNewcomer();
    } else {
      WaitForWindow();
      window_.OpenFile(options_.file, !screenshot);
    }
    return screenshot ? TakeScreenshot() : 0;
  }

  // A window that is not on the screen yet would stay empty for as long as the first beep of a file that is
  // opened sounds.
  void WaitForWindow() {
    constexpr qint64 kLongest = 1000;  // milliseconds
    QElapsedTimer time;
    time.start();
    while (!window_.windowHandle()->isExposed() && time.elapsed() < kLongest && pump_.WaitForEvents(20)) {
    }
  }

  int TakeScreenshot() {
    const bool saved = SavePicture(window_.TakePicture(), options_.screenshot, files_);
    if (!saved) messages_->ShowMessage("the picture cannot be written", false);
    window_.close();
    return saved ? 0 : 1;
  }

  const Options& options_;
  FileStore& files_;
  std::unique_ptr<Clock> clock_ = SystemClock();
  std::unique_ptr<MessageBox> messages_;
  QtPump pump_;
  TokenCache tokens_;
  FileLog log_;
  Document document_;
  ReadRecord record_;
  std::unique_ptr<SoundDevice> sound_;
  std::unique_ptr<SettingsStore> settings_;
  std::unique_ptr<FileKeeper> keeper_;
  QtQuestions questions_;
  MainWindow window_;
};

void SayNoLog() {
  QMessageBox box(QMessageBox::Critical, QStringLiteral("Trillomat"), {});
  box.setTextFormat(Qt::PlainText);
  box.setText(ShownMessage("The log file cannot be written, neither beside the program nor in " +
                           FromUtf8Bytes(Utf8OfPath(StateFolder()))));
  box.exec();
}

// Where texts are printed, and not shown in boxes, they need no display.
bool AsksForText([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#ifndef _WIN32
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v") return true;
  }
#endif
  return false;
}

int PrintText(int argc, char** argv) {
  TrillomatApplication::SetNames();
  const QCoreApplication app(argc, argv);
  int status = 1;
  ParseOptions(app, argc, argv, status);
  return status;
}

int Run(int argc, char** argv) {
  if (AsksForText(argc, argv)) return PrintText(argc, argv);
  TrillomatApplication app(argc, argv);
  LoadResources();
  QApplication::setWindowIcon(Picture(QStringLiteral("trillomat")));
  int status = 1;
  const auto options = ParseOptions(app, argc, argv, status);
  if (!options) return status;
  const auto files = SystemFileStore();
  const auto logFolder = LogFolder(ProgramFolder(), StateFolder(), *files);
  if (!logFolder) {
    SayNoLog();
    return 1;
  }
  Program program(*options, *logFolder, *files);
  app.onFault = [&program](std::string_view what) {
    program.ProgramLog().WriteLog("Error in an event handler: " + std::string(what), 2);
  };
  status = program.Run();
  app.onFault = nullptr;
  return status;
}

}  // namespace
}  // namespace trillomat

int main(int argc, char** argv) {
  try {
    return trillomat::Run(argc, argv);
  } catch (const std::exception& fault) {
    trillomat::SayError(std::string("trillomat: ") + fault.what());
  } catch (...) {
    trillomat::SayError("trillomat: unknown fault");
  }
  return 1;
}
