#include "app/options.h"

#include <QCommandLineParser>
#include <cstdio>
#include <string>

#include "core/terminal_text.h"
#include "platform/terminal.h"

namespace trillomat {
namespace {

#ifdef _WIN32
// The system's own text of the arguments.
QStringList Arguments(int /*argc*/, char** /*argv*/) { return QCoreApplication::arguments(); }
std::filesystem::path PathOf(const QString& argument) { return argument.toStdWString(); }
std::string Utf8Of(const QString& message) { return message.toStdString(); }
#else
// Arguments need not be text: each byte goes through the parser as a character of its own.
QStringList Arguments(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLatin1(argv[i]);
  return arguments;
}
std::filesystem::path PathOf(const QString& argument) { return argument.toLatin1().toStdString(); }
std::string Utf8Of(const QString& message) { return message.toLatin1().toStdString(); }
#endif

bool Print(StandardStream where, std::string_view utf8) {
  std::FILE* const stream = where == StandardStream::Output ? stdout : stderr;
  const std::string text = IsTerminal(where) ? EscapedForTerminal(utf8) : std::string(utf8);
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() && std::fflush(stream) == 0;
}

// The status to end with.
int PrintResult(const QString& text) {
  if (Print(StandardStream::Output, text.toStdString())) return 0;
  SayError("trillomat: standard output cannot be written");
  return 1;
}

}  // namespace

void SayError(std::string_view utf8) { Print(StandardStream::Error, std::string(utf8) + "\n"); }

std::optional<Options> ParseOptions(const QCoreApplication& app, int argc, char** argv, int& status) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Composes ringtone melodies for mobile phones."));
  const QCommandLineOption help = parser.addHelpOption();
  const QCommandLineOption version = parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Melody file to open."),
                               QStringLiteral("[FILE]"));
  const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                      QStringLiteral("Save a picture of the window and end."),
                                      QStringLiteral("PNG"));
  parser.addOption(screenshot);
  status = 1;
#ifdef _WIN32
  // A program of the desktop says it in a box.
  parser.process(app);
#endif
  if (!parser.parse(Arguments(argc, argv))) {
    SayError("trillomat: " + Utf8Of(parser.errorText()));
    return std::nullopt;
  }
  if (parser.isSet(version)) {
    status = PrintResult(app.applicationName() + ' ' + app.applicationVersion() + '\n');
    return std::nullopt;
  }
  if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all"))) {
    status = PrintResult(parser.helpText());
    return std::nullopt;
  }
  if (parser.positionalArguments().size() > 1) {
    SayError("trillomat: more than one FILE");
    status = PrintResult(parser.helpText()) == 0 ? 2 : 1;
    return std::nullopt;
  }
  return Options{PathOf(parser.positionalArguments().value(0)), PathOf(parser.value(screenshot))};
}

}  // namespace trillomat
