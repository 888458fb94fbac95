// How the time of everything that walks over a text or a melody grows with its size, for what people write
// and for what nobody would write. A work whose time grows faster than the size fails.
//   growth [LARGEST]    elements or pieces of text, 10^6 if nothing is said
#include <malloc.h>

#include <cmath>

#include "bench/idle_parts.h"
#include "bench/random_melody.h"
#include "bench/side_by_side.h"
#include "composer/strip_layout.h"
#include "core/silent_services.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "exchange/pasted_text.h"
#include "exchange/recognise.h"
#include "exchange/tidy.h"
#include "formats/formats.h"
#include "playback/play_trace.h"

namespace trillomat {
namespace {

/// A text of so many pieces.
struct TextKind {
  std::string name;
  std::function<std::string(size_t pieces)> make;
};

std::string Repeated(std::string_view piece, size_t count) {
  std::string text;
  text.reserve(piece.size() * count);
  for (; count > 0; --count) text += piece;
  return text;
}

// The numbers have the same number of digits, so that all pieces are of one kind.
std::string Numbered(std::string_view before, std::string_view behind, size_t count) {
  constexpr size_t kFirst = 10'000'000;
  std::string text;
  for (size_t i = 0; i < count; ++i) text.append(before).append(std::to_string(kFirst + i)).append(behind);
  return text;
}

constexpr std::string_view kRtttl = "Tune:d=4,o=5,b=100:";
constexpr std::string_view kIMelody = "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nMELODY:";
constexpr std::string_view kIMelodyEnd = "\r\nEND:IMELODY\r\n";

/// Adds texts of the piece repeated: alone, as the notes of an RTTTL tune, and as those of an iMelody file.
void AddKinds(std::vector<TextKind>& kinds, const std::string& piece) {
  kinds.push_back({"'" + piece + "'", [piece](size_t n) { return Repeated(piece, n); }});
  kinds.push_back(
      {"RTTTL of '" + piece + "'", [piece](size_t n) { return std::string(kRtttl) + Repeated(piece, n); }});
  kinds.push_back({"iMelody of '" + piece + "'", [piece](size_t n) {
                     return std::string(kIMelody) + Repeated(piece, n) + std::string(kIMelodyEnd);
                   }});
}

std::vector<TextKind> TextKinds() {
  std::vector<TextKind> kinds;
  for (const ModeLimits& limits : kModeLimits) {
    kinds.push_back({"a song of " + std::string(limits.caption), [&limits](size_t n) {
                       const SilentServices silent;
                       return *Write({RandomElements(n, limits), {}}, limits.mode, silent.services);
                     }});
  }
  for (const char* piece : {"c",
                            "8c#5,",
                            "c2",
                            "#",
                            "+",
                            "-",
                            ".",
                            ",",
                            ":",
                            ";",
                            "(",
                            ")",
                            "(b)",
                            "(c2@2)",
                            "@",
                            "*",
                            "*5",
                            "&",
                            "p",
                            "P8 ",
                            "x",
                            "=",
                            "1",
                            "\xE4",
                            "\xC3\xA4",
                            " ",
                            "\t",
                            "\r\n",
                            "\n",
                            "c2\r\n",
                            "ledon",
                            "V+",
                            "vibeon",
                            "MELODY:\r\n",
                            "NAME:x\r\n",
                            "BEGIN:IMELODY\r\n",
                            "END:IMELODY\r\n",
                            "a:d=4:c\n",
                            "d=4,",
                            "x=1,",
                            "b=9:"})
    AddKinds(kinds, piece);
  kinds.push_back(
      {"RTTTL of new tokens", [](size_t n) { return std::string(kRtttl) + Numbered("", "c,", n); }});
  kinds.push_back({"iMelody of new tokens", [](size_t n) {
                     return std::string(kIMelody) + Numbered("V", "", n) + std::string(kIMelodyEnd);
                   }});
  kinds.push_back({"EMelody of new tokens", [](size_t n) { return Numbered("(", ")c", n); }});
  kinds.push_back(
      {"RTTTL fields of a header", [](size_t n) { return "T:" + Numbered("k", "=4,", n) + ":c"; }});
  kinds.push_back({"RTTTL tunes", [](size_t n) { return Numbered("T", ":d=4:c\r\n", n); }});
  kinds.push_back({"lines of iMelody", [](size_t n) { return Numbered("KEY", ":x\r\n", n); }});
  return kinds;
}

/// Something that is done with a text.
struct TextWork {
  std::string name;
  std::function<void(const std::string& text)> run;
};

std::vector<TextWork> TextWorks(const Services& services) {
  std::vector<TextWork> works;
  for (const ModeLimits& limits : kModeLimits) {
    const std::string mode(limits.caption);
    const FormatMode format = limits.mode;
    works.push_back({"read as " + mode, [format, services](const std::string& text) {
                       measured = Read(text, format, {}, services).elements.size();
                     }});
    works.push_back({"tidy as " + mode,
                     [format](const std::string& text) { measured = Tidy(text, format).changes.size(); }});
    works.push_back({"paste into " + mode, [format, services](const std::string& text) {
                       measured = ReadPasted(text, format, services).elements.size();
                     }});
    if (const auto pasted = PastedFormatOf(format)) {
      works.push_back({"import as " + mode, [pasted, services](const std::string& text) {
                         measured = Import(*pasted, text, true, {}, services).read.elements.size();
                       }});
    }
  }
  works.push_back(
      {"recognise", [](const std::string& text) { measured = RecognisedFormat(text).has_value(); }});
  works.push_back({"find the tunes of", [](const std::string& text) { measured = TunesIn(text).size(); }});
  return works;
}

/// A melody of so many elements.
struct SongKind {
  std::string name;
  std::function<ElementList(size_t elements)> make;
};

SongKind RepeatedElements(std::string name, std::vector<Element> piece) {
  return {std::move(name), [piece](size_t n) {
            ElementList elements;
            for (size_t i = 0; i < n; ++i) elements.push_back(piece[i % piece.size()]);
            return elements;
          }};
}

std::vector<SongKind> SongKinds() {
  const Element tone = Tone("c", 4, 1, 1);
  return {{"a song", [](size_t n) { return RandomElements(n, LimitsOf(FormatMode::Melody)); }},
          RepeatedElements("one tone", {tone}),
          RepeatedElements("pauses", {Pause(1, 1)}),
          RepeatedElements("commands", {Command("ledon"), Command("V10"), Command("vibeoff")}),
          RepeatedElements("short blocks", {Command("("), tone, Command("@2)")}),
          RepeatedElements("empty blocks", {Command("("), Command("@0)")}),
          RepeatedElements("opened blocks", {Command("("), tone}),
          RepeatedElements("closed blocks", {tone, Command("@1)")}),
          RepeatedElements("unknown tones", {Tone("x", 9, 7, 7), Tone("c", -4, 0, 0)}),
          {"new commands",
           [](size_t n) {
             ElementList elements;
             for (size_t i = 0; i < n; ++i) elements.push_back(Command("command" + std::to_string(i)));
             return elements;
           }},
          {"new lengths", [](size_t n) {
             ElementList elements;
             for (size_t i = 0; i < n; ++i)
               elements.push_back(Tone("c", 4, 1.0F / static_cast<float>(i + 1), 1));
             return elements;
           }}};
}

/// Something that is done with a melody.
struct SongWork {
  std::string name;
  std::function<void(const Song& song)> run;
};

void Trace(const Song& song, const Services& services) {
  const Document document(song, FormatMode::IMelody);
  size_t left = song.elements.size() * 2;  // repeats may take any time
  TraceMelody(document, 1, services, [&left](const TraceStep&) { return --left > 0; });
}

void LayOut(const Song& song) {
  Document document(song, FormatMode::IMelody);
  StripLayout layout(document);
  document.Apply({.cursor = document.LastIndex()});
  measured = static_cast<size_t>(layout.CursorPlace());
}

// As many steps as there are elements, a few far away from the last one, and all taken back.
void EditAndUndo(const Song& song) {
  Document document;
  History history(document);
  for (const Element& element : song.elements)
    history.Do("entering", {.at = document.Size(), .inserted = {element}});
  for (const size_t part : {0, 1, 0, 1})
    history.Do("entering", {.at = document.Size() * part, .inserted = {song.elements.front()}});
  while (history.CanUndo()) history.Undo();
}

std::vector<SongWork> SongWorks(const Services& services) {
  std::vector<SongWork> works;
  for (const ModeLimits& limits : kModeLimits) {
    works.push_back(
        {"write as " + std::string(limits.caption), [mode = limits.mode, services](const Song& song) {
           const auto text = Write(song, mode, services);
           measured = text ? text->size() : 0;
         }});
    works.push_back(
        {"show as " + std::string(limits.caption), [mode = limits.mode, services](const Song& song) {
           const Document document(song, mode);
           measured = TextOf(document, true, services.log).right.size();
         }});
  }
  for (const ExportTarget& target : kExportTargets) {
    works.push_back(
        {"export to " + std::string(target.option), [phone = target.phone, services](const Song& song) {
           const auto text = Export(phone, song, services);
           measured = text ? text->size() : 0;
         }});
  }
  works.push_back({"play", [services](const Song& song) { Trace(song, services); }});
  works.push_back({"lay out", LayOut});
  works.push_back({"edit and undo", EditAndUndo});
  return works;
}

/// Prepares a work of that size.
using Prepare = std::function<Work(size_t size)>;

/// How many times as long the work takes as a scan of so many bytes: the median of some turns of both,
/// because whatever else the machine does slows both alike.
double MedianRatio(const Work& work, size_t bytes, int passes) {
  constexpr size_t kShortest = 1 << 16;  // bytes that take long enough to be timed
  const std::string text(std::max(bytes, kShortest), 'x');
  const Work scan = ScanOf(text);
  const auto nanoseconds = [](const Work& timed) {
    const double start = ProcessorNanoseconds();
    timed();
    return ProcessorNanoseconds() - start;
  };
  std::vector<double> ratios;
  for (double total = 0; passes > 0 && (total < 1e9 || ratios.empty()); --passes) {
    const double scanTook = nanoseconds(scan) * static_cast<double>(bytes) / static_cast<double>(text.size());
    const double workTook = nanoseconds(work);
    ratios.push_back(workTook / scanTook);
    total += workTook;
  }
  const auto middle = ratios.begin() + std::ssize(ratios) / 2;
  std::nth_element(ratios.begin(), middle, ratios.end());
  return *middle;
}

class Growth {
 public:
  /// Compares works of size 1000 with those of size `largest`, each as a multiple of a scan of as many bytes.
  explicit Growth(size_t largest) : largest_(largest) {}

  void Check(const std::string& name, const Prepare& prepare) {
    constexpr int kTries = 4;
    const Work few = BatchOf(prepare);
    const Work many = prepare(largest_);
    double growth = std::numeric_limits<double>::infinity();
    for (int i = 1; i <= kTries && growth > kMost; ++i) {
      const double fewTook = MedianRatio(few, kBatch * kSmallest, 5 * i);
      growth = std::min(growth, MedianRatio(many, largest_, 2 * i - 1) / fewTook);
    }
    ++works_;
    if (growth > kMost) {
      ++missed_;
      std::printf("FAILED: %s: %zu times the size takes %.2f times that\n", name.c_str(),
                  largest_ / kSmallest, growth);
    }
    std::fflush(stdout);
  }

  bool Ended() const {
    std::printf("growth: %d works, %d grow faster than their size\n", works_, missed_);
    return missed_ == 0;
  }

 private:
  static constexpr size_t kSmallest = 1000;
  static constexpr size_t kBatch = 20;
  static constexpr double kMost = 1.1;

  // Several small works, because the processor would learn the branches of a single one that is done again
  // and again.
  static Work BatchOf(const Prepare& prepare) {
    std::vector<Work> batch;
    for (size_t i = 0; i < kBatch; ++i) batch.push_back(prepare(kSmallest + i));
    return [batch] {
      for (const Work& work : batch) work();
    };
  }

  size_t largest_;
  int works_ = 0;
  int missed_ = 0;
};

void CheckTexts(Growth& growth, const Services& services) {
  const std::vector<TextWork> works = TextWorks(services);
  for (const TextKind& kind : TextKinds()) {
    // Sizes count bytes here, however long a piece is.
    const double bytesOfPiece = static_cast<double>(kind.make(10000).size()) / 10000;
    for (const TextWork& work : works) {
      growth.Check(work.name + " " + kind.name, [&](size_t size) {
        const auto pieces = std::llround(static_cast<double>(size) / bytesOfPiece);
        return [&work, text = kind.make(static_cast<size_t>(pieces))] { work.run(text); };
      });
    }
  }
}

void CheckSongs(Growth& growth, const Services& services) {
  const std::vector<SongWork> works = SongWorks(services);
  for (const SongKind& kind : SongKinds()) {
    for (const SongWork& work : works) {
      growth.Check(work.name + " " + kind.name, [&](size_t size) {
        return [&work, song = Song{kind.make(size), {}}] { work.run(song); };
      });
    }
  }
}

}  // namespace
}  // namespace trillomat

int main(int argc, char** argv) {
  // Freed memory is kept, so that the first large work is not charged with getting it from the system.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  trillomat::Growth growth(argc > 1 ? std::stoul(argv[1]) : 1000000);
  const trillomat::SilentServices silent;
  trillomat::CheckTexts(growth, silent.services);
  trillomat::CheckSongs(growth, silent.services);
  return growth.Ended() ? 0 : 1;
}
