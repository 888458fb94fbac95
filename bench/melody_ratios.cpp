// Editing a melody of 10^5 elements, and rendering one, without a window.
#include <cstring>
#include <ostream>
#include <streambuf>

#include "bench/idle_parts.h"
#include "bench/random_melody.h"
#include "bench/side_by_side.h"
#include "composer/strip_layout.h"
#include "core/silent_services.h"
#include "playback/render_wave.h"

namespace trillomat {
namespace {

constexpr size_t kElements = 100000;
constexpr int kRepeats = 100;

/// The note strip as far as it is not pixels: it knows where everything is after each change.
class Strip : private DocumentObserver {
 public:
  explicit Strip(Document& document) : layout_(document) { document.AddObserver(*this); }

 private:
  void DocumentChanged(const ChangedRange& range) override {
    layout_.Follow(range);
    measured = static_cast<size_t>(layout_.CursorPlace());
  }

  StripLayout layout_;
};

/// A composer with a melody, and all that listens to it.
struct Desk : IdleComposer {
  explicit Desk(ElementList elements) : IdleComposer({std::move(elements), {}}, FormatMode::IMelody) {}

  Strip strip{document};
};

void PrintEdits() {
  Desk desk(RandomElements(kElements, LimitsOf(FormatMode::IMelody)));
  const auto typeAndErase = [&desk] {
    for (int i = 0; i < kRepeats; ++i) {
      desk.composer.TypeTone(0);
      desk.composer.EraseLeft();
    }
  };
  desk.composer.MoveTo(-1);
  PrintTime("front", kRepeats, typeAndErase);
  desk.composer.MoveTo(desk.document.LastIndex());
  PrintTime("end", kRepeats, typeAndErase);
}

void PrintScale() {
  Desk desk(ElementList(kElements, Tone("#c", 4, 0.5F, 1.0F)));
  PrintTime("scale", 1, [&desk] {
    desk.composer.MoveScale(1);
    desk.composer.MoveScale(-1);
  });
}

/// Memory as a stream.
class MemoryStream : private std::streambuf, public std::ostream {
 public:
  explicit MemoryStream(std::string& memory) : std::ostream(this) {
    setp(memory.data(), memory.data() + memory.size());
  }
  size_t Written() const { return static_cast<size_t>(pptr() - pbase()); }
};

void PrintRendering() {
  constexpr size_t kNotes = 2000;
  const SilentServices silent;
  const Document document({RandomElements(kNotes, LimitsOf(FormatMode::Melody)), {}}, FormatMode::Melody);
  std::string wave(1 << 28, ' ');
  const auto render = [&] {
    MemoryStream out(wave);
    RenderWave(document, {}, silent.services, out);
    measured = out.Written();
  };
  render();
  wave.resize(measured);
  std::string copy = wave;
  PrintRatio(
      "render", [&] { measured = std::memcpy(copy.data(), wave.data(), wave.size()) != nullptr; }, render);
}

}  // namespace
}  // namespace trillomat

int main() {
  trillomat::PrintEdits();
  trillomat::PrintScale();
  trillomat::PrintRendering();
}
