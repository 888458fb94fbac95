#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "cli/signals.h"
#include "cli/stream_log.h"
#include "core/token_cache.h"
#include "exchange/export.h"
#include "files/path_text.h"
#include "platform/pump_sleep.h"
#include "platform/system_parts.h"

namespace trillomat {
namespace {

using Command = void (*)(const Invocation& call, const CommandServices& services);

constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;
constexpr int kClosedPipe = 128 + 13;  // what a shell says of a process that the signal for it has ended

constexpr std::string_view kStreamsAndStatus =
    "A path of \"-\" is standard input or output.\n"
    "Exit status: 0 done, 1 the input was refused, 2 wrong usage.\n";

// Clears the line while the signals are still watched.
class LineEnd {
 public:
  explicit LineEnd(ProgressLine& line) : line_(line) {}
  LineEnd(const LineEnd&) = delete;
  LineEnd& operator=(const LineEnd&) = delete;
  ~LineEnd() {
    line_.Clear();
    line_.beforeFirst = {};
  }

 private:
  ProgressLine& line_;
};

class CommandLine {
 public:
  /// Knows the options of those commands alone whose names stand in `arguments`: each costs time at the
  /// start.
  explicit CommandLine(const std::vector<std::string>& arguments);
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  /// `progress` is null where nobody would see it.
  int Run(std::vector<std::string> arguments, ProgressLine* progress);

 private:
  struct CommandRow {
    const char* name;
    const char* description;
    Command run;
    void (CommandLine::*addOptions)(CLI::App* command);
    const char* examples;  ///< that work in a folder of the samples, one after the other
  };
  static const std::array<CommandRow, 8> kCommands;

  void AddMode(CLI::App* command);
  void AddIn(CLI::App* command, std::string name = "FILE");
  CLI::Option* AddOut(CLI::App* command, std::string name = "OUT");
  void AddForce(CLI::App* command, std::string description = "Replace OUT when it exists");
  CLI::Option* AddInputs(CLI::App* command, const std::string& name, const std::string& description);
  void AddMany(CLI::App* command, Command run, const std::string& output);
  void SortInputs(const std::string& output);
  void AddTidy(CLI::App* command);
  void AddSpelling(CLI::App* command);
  void AddTrack(CLI::App* command);
  void AddEndless(CLI::App* command);
  void AddShow(CLI::App* show);
  void AddCheck(CLI::App* check);
  void AddConvert(CLI::App* convert);
  void AddImport(CLI::App* import);
  void AddExport(CLI::App* exporter);
  void AddTranspose(CLI::App* transpose);
  void AddPlay(CLI::App* play);
  void AddRender(CLI::App* render);
  void Execute(ProgressLine* progress);

  CLI::App app_{
      "Ringtone melodies without a window: show, check, convert, import, export, transpose, play, render.",
      "trillomat-cli"};
  Invocation call_;
  Command command_ = nullptr;
};

constexpr std::array<CommandLine::CommandRow, 8> CommandLine::kCommands{{
    {"show", "Print the song information and every element", ShowCommand, &CommandLine::AddShow,
     "  trillomat-cli show ode_to_joy.rtx\n"
     "  trillomat-cli show --json --tidy frere_jacques.imy"},
    {"check", "Say what reads, what tidying would change, and what holds it", CheckCommand,
     &CommandLine::AddCheck,
     "  trillomat-cli check .\n"
     "  trillomat-cli check --json twinkle.mel au_clair.emy"},
    {"convert", "Read one melody or MIDI file and write another", ConvertCommand, &CommandLine::AddConvert,
     "  trillomat-cli convert greensleeves.imy greensleeves.mid\n"
     "  trillomat-cli convert --to rtttl --spelling modern --to-folder rtttl *.imy *.emy"},
    {"import", "Turn a pasted text or a MIDI file into a melody file", ImportCommand, &CommandLine::AddImport,
     "  echo 'Tune:d=4,o=5,b=120:c,8d,2e6' | trillomat-cli import --from rtttl - tune.imy\n"
     "  trillomat-cli import --from midi --track 1 greensleeves.mid green.rtx"},
    {"export", "Print the melody as a phone takes it", ExportCommand, &CommandLine::AddExport,
     "  trillomat-cli export --to nokia --report ode_to_joy.rtx\n"
     "  trillomat-cli export --to t39 --to-folder keys *.imy"},
    {"transpose", "Move every tone by octaves", TransposeCommand, &CommandLine::AddTranspose,
     "  trillomat-cli transpose --octaves 1 ode_to_joy.rtx higher.rtx"},
    {"play", "Play the melody until its end or Ctrl-C", PlayCommand, &CommandLine::AddPlay,
     "  trillomat-cli play frere_jacques.imy\n"
     "  trillomat-cli play --trace ode_to_joy.rtx | head"},
    {"render", "Write the sound of the melody as a WAV file", RenderCommand, &CommandLine::AddRender,
     "  trillomat-cli render frere_jacques.imy frere_jacques.wav"},
}};

CommandLine::CommandLine(const std::vector<std::string>& arguments) {
  app_.set_version_flag("--version", "trillomat-cli " TRILLOMAT_VERSION, "Print the version and end");
  app_.add_flag("--verbose", call_.verbose, "Write every line of the log to standard error");
  app_.require_subcommand(0, 1);
  app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app_.fallthrough();
  app_.allow_windows_style_options(false);
  app_.footer(std::string(kStreamsAndStatus) +
              "trillomat-cli COMMAND --help lists what a command takes, with examples.");
  app_.failure_message([](const CLI::App* app, const CLI::Error& error) {
    return "trillomat-cli: " + std::string(error.what()) + "; see " + app->get_name() + " --help\n";
  });
  for (const CommandRow& row : kCommands) {
    CLI::App* command = app_.add_subcommand(row.name, row.description);
    command->callback([this, &row] { command_ = row.run; });
    if (std::find(arguments.begin(), arguments.end(), row.name) == arguments.end()) continue;
    (this->*row.addOptions)(command);
    command->footer("");
    command->footer([&row] { return std::string(kStreamsAndStatus) + "\nExamples:\n" + row.examples; });
  }
}

void CommandLine::AddMode(CLI::App* command) {
  const auto take = [this](const std::string& name) { call_.mode = ModeOfName(name); };
  command->add_option_function<std::string>("--mode", take, "Format of a path whose name does not tell it")
      ->check(CLI::IsMember(std::vector<std::string>(kModeNames.begin(), kModeNames.end())));
}

void CommandLine::AddIn(CLI::App* command, std::string name) {
  const auto take = [this](const std::string& text) { call_.in = PathOfUtf8(text); };
  command->add_option_function<std::string>(std::move(name), take, "The file to read")->required();
}

CLI::Option* CommandLine::AddOut(CLI::App* command, std::string name) {
  const auto take = [this](const std::string& text) { call_.out = PathOfUtf8(text); };
  return command->add_option_function<std::string>(std::move(name), take, "The file to write")->required();
}

void CommandLine::AddForce(CLI::App* command, std::string description) {
  command->add_flag("--force", call_.force, std::move(description));
}

CLI::Option* CommandLine::AddInputs(CLI::App* command, const std::string& name,
                                    const std::string& description) {
  const auto take = [this](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) call_.inputs.push_back(PathOfUtf8(text));
  };
  return command->add_option_function<std::vector<std::string>>(name, take, description);
}

// Takes one input, and the output if it has one that is named; or many with --to-folder.
void CommandLine::AddMany(CLI::App* command, Command run, const std::string& output) {
  AddInputs(command, "MORE", "More files to read, with --to-folder");
  const auto take = [this](const std::string& text) { call_.toFolder = PathOfUtf8(text); };
  command->add_option_function<std::string>("--to-folder", take,
                                            "Read many files and write each into a folder");
  AddForce(command, "Replace what exists");
  command->callback([this, run, output] {
    command_ = run;
    SortInputs(output);
  });
}

void CommandLine::SortInputs(const std::string& output) {
  std::vector<std::filesystem::path>& inputs = call_.inputs;
  if (call_.toFolder.empty()) {
    if (!output.empty() && call_.out.empty()) throw CLI::RequiredError(output);
    if (!inputs.empty()) throw CLI::ExtrasError({Utf8OfPath(inputs.front())});
    return;
  }
  if (!call_.out.empty()) inputs.insert(inputs.begin(), std::exchange(call_.out, {}));
  inputs.insert(inputs.begin(), call_.in);
}

void CommandLine::AddTidy(CLI::App* command) {
  command->add_flag("--tidy", call_.tidy, "Tidy common slips of the text first, and list them");
}

void CommandLine::AddSpelling(CLI::App* command) {
  const auto take = [this](const std::string& name) {
    call_.spelling = name == "modern" ? RtttlSpelling::Modern : RtttlSpelling::Classic;
  };
  const auto* const description =
      "How RTTTL is written: classic, as ever, or modern, as today's players read it (lower case, b for b)";
  command->add_option_function<std::string>("--spelling", take, description)
      ->check(CLI::IsMember(std::vector<std::string>{"classic", "modern"}));
}

void CommandLine::AddTrack(CLI::App* command) {
  const auto take = [this](size_t number) { call_.track = number; };
  const auto* const description =
      "Track of a MIDI file, or channel where it has one track; without it, that with the most notes";
  command->add_option_function<size_t>("--track", take, description);
}

void CommandLine::AddEndless(CLI::App* command) {
  command->add_option("--endless", call_.endless, "How often a block that repeats without end is played")
      ->check(CLI::Range(1, 1'000'000));
}

void CommandLine::AddShow(CLI::App* show) {
  show->add_flag("--json", call_.json, "Print JSON");
  AddTidy(show);
  AddMode(show);
  AddIn(show);
}

void CommandLine::AddCheck(CLI::App* check) {
  check->add_flag("--json", call_.json, "Print a JSON array");
  AddMode(check);
  AddInputs(check, "FILE", "Melody files, and folders of them")->required();
}

void CommandLine::AddConvert(CLI::App* convert) {
  std::vector<std::string> formats(kModeNames.begin(), kModeNames.end());
  formats.emplace_back(kMidiName);
  convert->add_option("--to", call_.to, "Format of the files in the folder of --to-folder")
      ->check(CLI::IsMember(std::move(formats)));
  AddTidy(convert);
  AddTrack(convert);
  AddSpelling(convert);
  AddMode(convert);
  AddIn(convert, "IN");
  AddOut(convert)->required(false);
  AddMany(convert, ConvertCommand, "OUT");
}

void CommandLine::AddImport(CLI::App* import) {
  import->add_option("--from", call_.from, "Format of the text")
      ->required()
      ->check(CLI::IsMember(std::vector<std::string>{"rtttl", "emelody", "melody", "midi"}));
  AddTrack(import);
  import->add_flag("--adapt-t68i", call_.adaptT68i, "Move the melody into the octaves of the T68i");
  AddTidy(import);
  AddForce(import);
  AddMode(import);
  AddIn(import, "TEXTFILE");
  AddOut(import);
}

void CommandLine::AddExport(CLI::App* exporter) {
  std::vector<std::string> targets(kExportTargets.size());
  std::transform(kExportTargets.begin(), kExportTargets.end(), targets.begin(),
                 [](const ExportTarget& target) { return std::string(target.option); });
  exporter->add_option("--to", call_.to, "What to print")->required()->check(CLI::IsMember(targets));
  exporter->add_flag("--report", call_.report, "Say on standard error what is left out, and why");
  AddTidy(exporter);
  AddSpelling(exporter);
  AddMode(exporter);
  AddIn(exporter);
  AddMany(exporter, ExportCommand, "");
}

void CommandLine::AddTranspose(CLI::App* transpose) {
  transpose->add_option("--octaves", call_.octaves, "Octaves up, or down when negative")->required();
  AddForce(transpose);
  AddMode(transpose);
  AddIn(transpose, "IN");
  AddOut(transpose);
}

void CommandLine::AddPlay(CLI::App* play) {
  play->add_option("--output", call_.output, "What it sounds on")
      ->capture_default_str()
      ->check(CLI::IsMember(std::vector<std::string>{"wave", "beep", "midi"}));
  play->add_flag("--trace", call_.trace, "Print index, kind, ms and Hz of each element instead");
  AddEndless(play);
  AddTidy(play);
  AddMode(play);
  AddIn(play);
}

void CommandLine::AddRender(CLI::App* render) {
  AddForce(render, "Replace OUT.wav when it exists, and write more than an hour of sound");
  AddEndless(render);
  AddTidy(render);
  AddMode(render);
  AddIn(render);
  AddOut(render, "OUT.wav");
}

int CommandLine::Run(std::vector<std::string> arguments, ProgressLine* progress) {
  try {
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
    app_.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    if (app_.exit(error) != 0) return kWrongUsage;
    FlushStandardOutput();  // of the help or the version
    return 0;
  }
  Execute(progress);
  return 0;
}

void CommandLine::Execute(ProgressLine* line) {
  if (command_ == nullptr) throw WrongUsage("no command given; see trillomat-cli --help");
  const std::unique_ptr<FileStore> store = SystemFileStore();
  std::unique_ptr<SignalWatch> watch;
  const auto startWatch = [&] {
    if (watch) return;
    watch = WatchSignals([&store, line] {
      store->DeleteUnfinished();
      if (line != nullptr) line->End();
    });
  };
  if (!call_.out.empty() || !call_.toFolder.empty()) startWatch();
  SleepPump pump;
  StreamLog log(std::cerr, call_.verbose);
  TokenCache tokens;
  if (line == nullptr) return command_(call_, {{log, pump, &tokens}, *store});
  // What plays waits for signals itself.
  if (command_ != PlayCommand || call_.trace) line->beforeFirst = startWatch;
  const LineEnd end(*line);
  Progress progress(pump, *line);
  command_(call_, {{log, progress, &tokens}, *store, &progress});
}

}  // namespace

int RunCommandLine(std::vector<std::string> arguments, ProgressLine* progress) {
  try {
    CommandLine commandLine(arguments);
    return commandLine.Run(std::move(arguments), progress);
  } catch (const WrongUsage& error) {
    Complain(error);
    return kWrongUsage;
  } catch (const ClosedPipe&) {
    return kClosedPipe;
  } catch (const std::exception& error) {
    Complain(error);
    return kRefused;
  }
}

}  // namespace trillomat
