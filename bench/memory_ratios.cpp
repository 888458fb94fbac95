// The heap that reading, saving and exporting take at their peak, in bytes for each element: what reading
// takes beside the text, and what saving and exporting take beside the song and the text that they make.
// Every operator new is counted, with the size that malloc has given.
#include <malloc.h>

#include <cstdlib>
#include <new>

#include "bench/random_melody.h"
#include "bench/side_by_side.h"
#include "core/silent_services.h"
#include "document/document.h"
#include "exchange/export.h"
#include "formats/formats.h"

namespace {

struct Heap {
  size_t now = 0;
  size_t peak = 0;
};
constinit Heap heap;

void* Take(size_t size) {
  void* const taken = std::malloc(size);
  if (taken == nullptr) throw std::bad_alloc();
  heap.now += malloc_usable_size(taken);
  heap.peak = std::max(heap.peak, heap.now);
  return taken;
}

void Give(void* taken) {
  heap.now -= malloc_usable_size(taken);
  std::free(taken);
}

}  // namespace

void* operator new(size_t size) { return Take(size); }
void* operator new[](size_t size) { return Take(size); }
void operator delete(void* taken) noexcept { Give(taken); }
void operator delete[](void* taken) noexcept { Give(taken); }
void operator delete(void* taken, size_t /*size*/) noexcept { Give(taken); }
void operator delete[](void* taken, size_t /*size*/) noexcept { Give(taken); }

namespace trillomat {
namespace {

constexpr size_t kElements = 1000000;

/// The growth of the heap at its peak while `work` runs.
double PeakOf(const Work& work) {
  const size_t before = heap.now;
  heap.peak = before;
  work();
  return static_cast<double>(heap.peak - before);
}

void PrintPeak(const std::string& what, double bytes) {
  std::printf("%s\t%.2f\t%.1f MB\n", what.c_str(), bytes / kElements, bytes / 1e6);
}

void PrintReading(FormatMode mode, const std::string& name, const SilentServices& silent) {
  const std::string text = *Write({RandomElements(kElements, LimitsOf(mode)), {}}, mode, silent.services);
  PrintPeak("memory-read-" + name,
            PeakOf([&] { measured = Read(text, mode, {}, silent.services).elements.size(); }));
}

// Up to three times the text counts as the text itself, because a growing text is copied into twice its room.
void PrintWriting(const std::string& what, const std::function<std::string()>& write) {
  size_t size = 0;
  const double peak = PeakOf([&] { size = write().size(); });
  PrintPeak(what, std::max(0.0, peak - 3.0 * static_cast<double>(size)));
}

}  // namespace
}  // namespace trillomat

int main() {
  using namespace trillomat;
  const SilentServices silent;
  PrintReading(FormatMode::IMelody, "imelody", silent);
  PrintReading(FormatMode::EMelody, "emelody", silent);
  PrintReading(FormatMode::Rtttl, "rtttl", silent);
  PrintReading(FormatMode::Melody, "melody", silent);
  // Edited in its middle, so that the document holds it in two parts.
  Document document({RandomElements(kElements, LimitsOf(FormatMode::Melody)), {}}, FormatMode::Melody);
  const auto edit = [&document] {
    document.Apply({.at = kElements / 2, .inserted = {Pause(1, 1)}});
    document.Apply({.at = kElements / 2, .removed = 1});
  };
  edit();
  PrintWriting("memory-save",
               [&] { return *Write(document.CurrentSong(), FormatMode::Melody, silent.services); });
  for (const ExportTarget& target : kExportTargets) {
    edit();
    PrintWriting("memory-export-" + std::string(target.option),
                 [&] { return *Export(target.phone, document.CurrentSong(), silent.services); });
  }
}
