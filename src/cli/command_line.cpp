#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "cli/signals.h"
#include "cli/stream_log.h"
#include "exchange/export.h"
#include "files/path_text.h"
#include "platform/pump_sleep.h"
#include "platform/system_parts.h"

namespace trillomat {
namespace {

using Command = void (*)(const Invocation& call, const CommandServices& services);

constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

class CommandLine {
 public:
  CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  int Run(std::vector<std::string> arguments);

 private:
  CLI::App* AddCommand(std::string name, std::string description, Command command);
  void AddMode(CLI::App* command);
  void AddIn(CLI::App* command, std::string name = "FILE");
  void AddOut(CLI::App* command, std::string name = "OUT");
  void AddForce(CLI::App* command, std::string description = "Replace OUT when it exists");
  void AddSpelling(CLI::App* command);
  void AddTrack(CLI::App* command);
  void AddEndless(CLI::App* command);
  void AddFileCommands();
  void AddPlayCommands();
  void Execute();

  CLI::App app_{"Ringtone melodies without a window: show, convert, import, export, transpose, play, render.",
                "trillomat-cli"};
  Invocation call_;
  Command command_ = nullptr;
};

CommandLine::CommandLine() {
  app_.set_version_flag("--version", "trillomat-cli " TRILLOMAT_VERSION, "Print the version and end");
  app_.add_flag("--verbose", call_.verbose, "Write every line of the log to standard error");
  app_.require_subcommand(0, 1);
  app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app_.fallthrough();
  app_.allow_windows_style_options(false);
  app_.footer(
      "A path of \"-\" is standard input or output. Exit status: 0 done, 1 the input was refused,\n"
      "2 wrong usage. trillomat-cli COMMAND --help lists what a command takes.");
  app_.failure_message([](const CLI::App* app, const CLI::Error& error) {
    return "trillomat-cli: " + std::string(error.what()) + "; see " + app->get_name() + " --help\n";
  });
  AddFileCommands();
  AddPlayCommands();
}

CLI::App* CommandLine::AddCommand(std::string name, std::string description, Command command) {
  CLI::App* added = app_.add_subcommand(std::move(name), std::move(description));
  added->callback([this, command] { command_ = command; });
  return added;
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

void CommandLine::AddOut(CLI::App* command, std::string name) {
  const auto take = [this](const std::string& text) { call_.out = PathOfUtf8(text); };
  command->add_option_function<std::string>(std::move(name), take, "The file to write")->required();
}

void CommandLine::AddForce(CLI::App* command, std::string description) {
  command->add_flag("--force", call_.force, std::move(description));
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

void CommandLine::AddFileCommands() {
  CLI::App* show = AddCommand("show", "Print the song information and every element", ShowCommand);
  show->add_flag("--json", call_.json, "Print JSON");
  AddMode(show);
  AddIn(show);

  CLI::App* convert = AddCommand("convert", "Read one melody or MIDI file and write another", ConvertCommand);
  AddTrack(convert);
  AddSpelling(convert);
  AddForce(convert);
  AddMode(convert);
  AddIn(convert, "IN");
  AddOut(convert);

  CLI::App* import =
      AddCommand("import", "Turn a pasted text or a MIDI file into a melody file", ImportCommand);
  import->add_option("--from", call_.from, "Format of the text")
      ->required()
      ->check(CLI::IsMember(std::vector<std::string>{"rtttl", "emelody", "melody", "midi"}));
  AddTrack(import);
  import->add_flag("--adapt-t68i", call_.adaptT68i, "Move the melody into the octaves of the T68i");
  AddForce(import);
  AddMode(import);
  AddIn(import, "TEXTFILE");
  AddOut(import);

  CLI::App* exporter = AddCommand("export", "Print the melody as a phone takes it", ExportCommand);
  std::vector<std::string> targets(kExportTargets.size());
  std::transform(kExportTargets.begin(), kExportTargets.end(), targets.begin(),
                 [](const ExportTarget& target) { return std::string(target.option); });
  exporter->add_option("--to", call_.to, "What to print")->required()->check(CLI::IsMember(targets));
  AddSpelling(exporter);
  AddMode(exporter);
  AddIn(exporter);

  CLI::App* transpose = AddCommand("transpose", "Move every tone by octaves", TransposeCommand);
  transpose->add_option("--octaves", call_.octaves, "Octaves up, or down when negative")->required();
  AddForce(transpose);
  AddMode(transpose);
  AddIn(transpose, "IN");
  AddOut(transpose);
}

void CommandLine::AddPlayCommands() {
  CLI::App* play = AddCommand("play", "Play the melody until its end or Ctrl-C", PlayCommand);
  play->add_option("--output", call_.output, "What it sounds on")
      ->capture_default_str()
      ->check(CLI::IsMember(std::vector<std::string>{"wave", "beep", "midi"}));
  play->add_flag("--trace", call_.trace, "Print index, kind, ms and Hz of each element instead");
  AddEndless(play);
  AddMode(play);
  AddIn(play);

  CLI::App* render = AddCommand("render", "Write the sound of the melody as a WAV file", RenderCommand);
  AddForce(render, "Replace OUT.wav when it exists, and write more than an hour of sound");
  AddEndless(render);
  AddMode(render);
  AddIn(render);
  AddOut(render, "OUT.wav");
}

int CommandLine::Run(std::vector<std::string> arguments) {
  try {
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
    app_.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    if (app_.exit(error) != 0) return kWrongUsage;
    FlushStandardOutput();  // of the help or the version
    return 0;
  }
  Execute();
  return 0;
}

void CommandLine::Execute() {
  if (command_ == nullptr) throw WrongUsage("no command given; see trillomat-cli --help");
  const std::unique_ptr<FileStore> store = SystemFileStore();
  std::unique_ptr<SignalWatch> watch;
  if (!call_.out.empty()) watch = WatchSignals([&store] { store->DeleteUnfinished(); });
  SleepPump pump;
  StreamLog log(std::cerr, call_.verbose);
  command_(call_, {{log, pump}, *store});
}

}  // namespace

int RunCommandLine(std::vector<std::string> arguments) {
  try {
    return CommandLine().Run(std::move(arguments));
  } catch (const WrongUsage& error) {
    std::cerr << "trillomat-cli: " << error.what() << '\n';
    return kWrongUsage;
  } catch (const std::exception& error) {
    std::cerr << "trillomat-cli: " << error.what() << '\n';
    return kRefused;
  }
}

}  // namespace trillomat
