#include "exchange/key_press_run.h"

#include <limits>

#include "core/number_text.h"
#include "core/refusal.h"

namespace trillomat {
namespace {

void Require(bool writable) {
  if (!writable) throw ExportFault("the melody takes more key presses than can be written down");
}

// The number in front of a line, "12--> ". Counting up its digits takes a fraction of the time that
// std::to_string takes.
class LineNumber {
 public:
  const auto& Text() const { return text_; }

  void Next() {
    for (size_t i = digits_; i > 0; --i) {
      char& digit = text_.characters.at(i - 1);
      if (digit != '9') {
        ++digit;
        return;
      }
      digit = '0';
    }
    ++digits_;
    text_ = Numbered("1" + std::string(digits_ - 1, '0'));
  }

 private:
  using NumberText = ReadyText<std::numeric_limits<size_t>::digits10 + 5>;

  static NumberText Numbered(const std::string& number) { return NumberText(number + "--> "); }

  size_t digits_ = 1;
  NumberText text_ = Numbered("0");
};

}  // namespace

std::string KeyPressText(PhoneKeys& phone, const ElementList& elements, int octaves,
                         const Services& services) {
  constexpr size_t kLongLine = 64;
  TextWriter text(elements.size() * kLongLine);
  if (octaves > 0) {
    text.Add("All notes have been moved" + SignedText(octaves) + " (scale) ");
    text.Add(kLineEnd);
  }
  LineNumber number;
  TextPart before;
  for (const Element& element : elements) {
    const size_t line = text.Size();
    text.Add(number.Text());
    const size_t begin = text.Size();
    phone.Press(element, before, text);
    before = {begin, text.Size() - begin};
    Require(line + before.size <= kLargestExport);
    number.Next();
    if (!services.pump.PumpEvents()) throw ExportFault(std::string(kProgramEnding));
  }
  return text.Take();
}

void AppendKeys(std::string& text, std::string_view key, int64_t count) {
  constexpr int64_t kMostPresses = 1000000;
  Require(count <= kMostPresses);
  for (int64_t i = 0; i < count; ++i) text += key;
}

}  // namespace trillomat
