#include "exchange/phone_fit.h"

#include <numeric>

#include "core/number_text.h"

namespace trillomat {
namespace {

struct LossWords {
  std::string_view first;  ///< behind "element 3": why it does not fit
  std::string_view one;    ///< in a list, behind the number 1
  std::string_view more;
};

// In the order of Loss.
constexpr std::array<LossWords, kLosses> kLossWords{
    {{"", "", ""},
     {"is not understood", "not understood", "not understood"},
     {"is a command that it lacks", "command", "commands"},
     {"is too far from the octaves before it", "octave", "octaves"},
     {"has a length that it lacks", "length", "lengths"},
     {"has a dot or a triplet that it lacks", "dot or triplet", "dots or triplets"},
     {"is one more than it takes", "more than it takes", "more than it takes"}}};

// Whether the element is one end of the repeat that the reader makes of the header's repeat count: then it
// comes back, though no token is written for it.
bool IsHeldByLoop(const Song& song, size_t index) {
  const std::string_view command = song.elements[index].Command();
  return song.info.loop != 0 &&
         ((index == 0 && command == "(") || (index + 1 == song.elements.size() && command.starts_with('@')));
}

// What RTTTL loses of the element at `index`, which is `element` when it is moved. All lengths and octaves
// fit.
Loss RtttlLoss(const Song& song, size_t index, const Element& element, RtttlSpelling spelling) {
  SilentLog silent;
  if (!RtttlToken(element, spelling, kNoTokenDefaults, silent).empty()) return Loss::None;
  if (element.Command().empty()) return Loss::Extra;
  return spelling == RtttlSpelling::Classic && IsHeldByLoop(song, index) ? Loss::None : Loss::Command;
}

Loss KeyLoss(PhoneKeys& keys, const Element& element, TextWriter& text) {
  try {
    text.Clear();
    return keys.Press(element, {}, text);
  } catch (const ExportFault&) {
    return Loss::Command;  // a count beyond all limits
  }
}

// Counts what becomes of the elements of a song in the export's octaves.
class LossCount {
 public:
  LossCount(const Song& song, RtttlSpelling spelling, PhoneFit& fit)
      : song_(song),
        spelling_(spelling),
        fit_(fit),
        keys_(KeysOf(fit.phone, {.elements = song.elements.size()}, silent_)) {}

  void Count() {
    for (size_t i = 0; i < song_.elements.size(); ++i) {
      const Loss loss = LossAt(i);
      ++fit_.losses.at(static_cast<size_t>(loss));
      if (loss != Loss::None && !fit_.first) fit_.first = Misfit{i, loss};
    }
  }

 private:
  Loss LossAt(size_t index) {
    const Element element = OctavesUp(song_.elements[index], fit_.octaves);
    const Loss loss = keys_ ? KeyLoss(*keys_, element, text_) : RtttlLoss(song_, index, element, spelling_);
    if (!IsUnderstood(element)) return Loss::NotUnderstood;
    if (loss != Loss::None || !element.Command().empty()) return loss;
    const size_t most = TargetOf(fit_.phone).mostNotes;
    return ++notes_ > most && most > 0 ? Loss::TooMany : Loss::None;
  }

  const Song& song_;
  RtttlSpelling spelling_;
  PhoneFit& fit_;
  SilentLog silent_;
  std::unique_ptr<PhoneKeys> keys_;
  TextWriter text_{0};  ///< the keys of one element, which nobody reads
  size_t notes_ = 0;
};

size_t LostCount(const PhoneFit& fit) {
  return std::accumulate(fit.losses.begin() + 1, fit.losses.end(), size_t{0});
}

std::string MoveText(int octaves) {
  if (octaves == 0) return {};
  const auto count = static_cast<size_t>(octaves < 0 ? -octaves : octaves);
  return " when moved " + Counted(count, "octave", "octaves") + (octaves > 0 ? " up" : " down");
}

std::string SizeText(const PhoneFit& fit) {
  std::string text = Counted(fit.elements, "element", "elements");
  const size_t most = TargetOf(fit.phone).mostNotes;
  if (most > 0) text += ", it takes " + std::to_string(most) + " notes";
  return text;
}

std::string MisfitText(const Misfit& misfit, std::string_view words) {
  std::string text = "element " + std::to_string(misfit.index + 1);
  if (!words.empty()) text += " (" + std::string(words) + ')';
  text += ' ';
  text += kLossWords.at(static_cast<size_t>(misfit.loss)).first;
  return text;
}

std::string NoFitText(const PhoneFit& fit, std::string_view firstWords) {
  std::string text = "does not fit: " + MisfitText(*fit.first, firstWords);
  const size_t lost = LostCount(fit);
  if (lost > 1) text += "; " + std::to_string(lost) + " of " + std::to_string(fit.elements) + " in all";
  return text;
}

}  // namespace

PhoneFit FitOf(Phone phone, const Song& song, RtttlSpelling spelling) {
  SilentLog silent;
  PhoneFit fit{.phone = phone, .elements = song.elements.size()};
  const OctaveRange range = TargetOf(phone).range;
  if (const std::optional<int> octaves = MoveInto(song.elements, range, silent)) {
    fit.octaves = *octaves;
    LossCount(song, spelling, fit).Count();
  } else {
    fit.inRange = false;
    fit.first = Misfit{FirstBeyond(song.elements, range).value_or(0), Loss::Octave};
  }
  return fit;
}

std::string FitText(const PhoneFit& fit, std::string_view firstWords) {
  constexpr std::string_view kArticle = "the ";
  std::string_view name = TargetOf(fit.phone).name;
  if (name.starts_with(kArticle)) name.remove_prefix(kArticle.size());
  std::string text = std::string(name) + ": ";
  if (fit.first) return text + NoFitText(fit, firstWords);
  return text + "fits" + MoveText(fit.octaves) + "; " + SizeText(fit);
}

std::string MisfitText(const Misfit& misfit) { return MisfitText(misfit, {}); }

std::string LossText(const PhoneFit& fit) {
  const size_t lost = LostCount(fit);
  if (lost == 0) return {};
  std::string text = std::to_string(lost) + " of " + Counted(fit.elements, "element", "elements");
  text += fit.phone == Phone::Rtttl ? " left out" : " not typed as composed";
  std::string_view separator = ": ";
  for (size_t i = 1; i < kLosses; ++i) {
    const size_t count = fit.losses.at(i);
    if (count == 0) continue;
    text += separator;
    text += Counted(count, kLossWords.at(i).one, kLossWords.at(i).more);
    separator = ", ";
  }
  return text;
}

}  // namespace trillomat
