// Reading, importing, writing and exporting beside a scan of the text.
//   text_ratios ELEMENTS [FOLDER [CORPUS]]
// A corpus has an RTTTL tune a line; without one, they are random. What peers are to read is left in the
// folder.
#include <fstream>

#include "bench/random_melody.h"
#include "bench/side_by_side.h"
#include "core/silent_services.h"
#include "core/token_cache.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "formats/formats.h"

namespace trillomat {
namespace {

class TextRatios {
 public:
  explicit TextRatios(size_t elements) : elements_(elements) {}

  void PrintTunes(const std::vector<std::string>& tunes) {
    std::string all;
    for (const std::string& tune : tunes) all += tune;
    PrintRatio("scan", ScanOf(all), ScanOf(all));
    // As the command that checks many files reads them.
    TokenCache tokens;
    const Services services{silent_.log, silent_.pump, &tokens};
    PrintRatio("read-tunes", ScanOf(all), [&] {
      for (const std::string& tune : tunes) Note(Read(tune, FormatMode::Rtttl, {}, services));
    });
  }

  void PrintMode(FormatMode mode, const std::string& name) {
    const Song song{RandomElements(elements_, LimitsOf(mode)), {}};
    const std::string text = *Write(song, mode, silent_.services);
    PrintRatio("read-" + name, ScanOf(text), [&] { Note(Read(text, mode, {}, silent_.services)); });
    if (const auto format = PastedFormatOf(mode)) {
      PrintRatio("import-" + name, ScanOf(text),
                 [&] { Note(Import(*format, text, false, {}, silent_.services).read); });
    }
    PrintRatio("write-" + name, ScanOf(text),
               [&] { measured = Write(song, mode, silent_.services)->size(); });
  }

  // The octaves of the Melody mode are those that every phone has.
  void PrintExports() {
    const Song song{RandomElements(elements_, LimitsOf(FormatMode::Melody)), {}};
    for (const ExportTarget& target : kExportTargets) {
      const std::string text = *Export(target.phone, song, silent_.services);
      PrintRatio("export-" + std::string(target.option), ScanOf(text),
                 [&] { measured = Export(target.phone, song, silent_.services)->size(); });
    }
  }

 private:
  static void Note(const ReadResult& read) { measured = read.elements.size(); }

  size_t elements_;
  SilentServices silent_;
};

std::vector<std::string> TunesOf(std::istream& corpus) {
  std::vector<std::string> tunes;
  for (std::string line; std::getline(corpus, line);) tunes.push_back(line + '\n');
  return tunes;
}

std::vector<std::string> RandomTunes() {
  std::mt19937 random(1);
  std::vector<std::string> tunes(5000);
  for (std::string& tune : tunes) tune = RandomTune(random) + "\r\n";
  return tunes;
}

// For peers that are other programs.
void LeaveFor(const std::string& folder, const std::vector<std::string>& tunes, size_t elements) {
  const SilentServices silent;
  std::ofstream lines(folder + "/tunes.txt", std::ios::binary);
  for (const std::string& tune : tunes) lines << tune;
  const Song song{RandomElements(elements, LimitsOf(FormatMode::Rtttl)), {}};
  std::ofstream(folder + "/song.rtx", std::ios::binary) << *Write(song, FormatMode::Rtttl, silent.services);
}

}  // namespace
}  // namespace trillomat

int main(int argc, char** argv) {
  using namespace trillomat;
  const size_t elements = argc > 1 ? std::stoul(argv[1]) : 1000000;
  std::ifstream corpus(argc > 3 ? argv[3] : "", std::ios::binary);
  const std::vector<std::string> tunes = corpus.is_open() ? TunesOf(corpus) : RandomTunes();
  if (argc > 2) LeaveFor(argv[2], tunes, elements);
  TextRatios ratios(elements);
  ratios.PrintTunes(tunes);
  ratios.PrintMode(FormatMode::Rtttl, "rtttl");
  ratios.PrintMode(FormatMode::IMelody, "imelody");
  ratios.PrintMode(FormatMode::EMelody, "emelody");
  ratios.PrintMode(FormatMode::Melody, "melody");
  ratios.PrintExports();
}
