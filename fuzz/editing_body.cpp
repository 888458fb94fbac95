// Editing at random: the bytes of the input press buttons and keys, even inside every wait.
#include <algorithm>
#include <string>

#include "composer/composer.h"
#include "core/codec.h"
#include "core/silent_services.h"
#include "core/tone.h"
#include "exchange/import.h"
#include "fuzz/bodies.h"
#include "support/document_snapshot.h"
#include "support/fake_sound.h"

namespace trillomat {
namespace {

/// What is shown of the melody.
class ShownMelody : public ComposerView {
 public:
  void ShowMelody(const MelodyText& text) override { melody = text; }
  void ShowComposer() override {}
  void ShowFilesOfMode() override {}

  MelodyText melody;
};

class Editing {
 public:
  explicit Editing(std::string_view input) : rest_(input) {
    composer_.SetMode(FormatMode::IMelody);  // as the program begins
    pump_.onPump = [this](int) { HandleEvent(); };
  }

  void Run() {
    while (!rest_.empty() && !pump_.ending) {
      Step();
      Check();
    }
    TakeAllBack();
  }

 private:
  /// Nested handlers, and elements of a song: what a person needs, and what can be checked often.
  static constexpr int kDeepest = 3;
  static constexpr size_t kLongest = 300;

  unsigned TakeByte() {
    const unsigned byte = rest_.empty() ? 0 : static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(std::min<size_t>(rest_.size(), 1));
    return byte;
  }
  /// One of 0 to `count` - 1.
  int Take(unsigned count) { return static_cast<int>(TakeByte() % count); }
  /// What can be typed into a box.
  std::string TakeLine() {
    std::string line(rest_.substr(0, rest_.find('\n')));
    rest_.remove_prefix(std::min(rest_.size(), line.size() + 1));
    std::erase_if(line, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    return line;
  }

  void HandleEvent();
  void Step();
  void Edit(int command);
  void Select(int command);
  void Choose(int command);
  ReadResult ReadLine();
  void Open();
  void Paste();
  void Check();
  void TakeAllBack();
  void CheckWriting();

  std::string_view rest_;
  int depth_ = 0;
  SilentLog log_;
  FakeClock clock_;
  FakePump pump_{&clock_};
  Services services_{log_, pump_};
  Document document_;
  ReadRecord record_;
  FakeSound sound_{&clock_};
  NullPlayerView phone_;
  Player player_{document_, {services_, clock_, sound_, phone_}};
  PlaySettings settings_;
  ShownMelody view_;
  Composer composer_{document_, record_, player_, play_, settings_, view_, services_};
  PlayControls play_{document_, player_, settings_, composer_, services_};
};

// Inside a wait: does a step now and then; stops the playing at the end of the input.
void Editing::HandleEvent() {
  if (depth_ == kDeepest || rest_.empty()) return play_.Press(Control::Stop);
  if (TakeByte() % 4 != 0) return;
  ++depth_;
  Step();
  --depth_;
}

void Editing::Step() {
  constexpr int kEdits = 14;
  constexpr int kSelects = 12;
  const int command = Take(kEdits + kSelects + 10);
  if (command < kEdits) {
    Edit(command);
  } else if (command < kEdits + kSelects) {
    Select(command - kEdits);
  } else {
    Choose(command - kEdits - kSelects);
  }
}

void Editing::Edit(int command) {
  switch (command) {
    case 0: return composer_.EnterTone(Take(12));
    case 1: return composer_.TypeTone(Take(12));
    case 2: return composer_.EnterPause();
    case 3: {
      const int button = Take(kInsertButtons);
      const std::string text = TakeLine();
      return composer_.EnterCommand(button, text, text);
    }
    case 4: return composer_.SelectDuration(Take(kDurations.size()));
    case 5: return composer_.SelectDurationExtra(Take(kDurationExtras.size()));
    case 6: return composer_.SetOctave(Take(10));
    case 7: return composer_.StepDuration();
    case 8: return composer_.StepAccidental();
    case 9: return composer_.MoveLeft();
    case 10: return composer_.MoveRight();
    case 11: return composer_.EraseLeft();
    case 12: return composer_.EraseRight();
    default: return composer_.MoveScale(static_cast<int16_t>(Take(5) - 2));
  }
}

// Places are those of elements, or just outside.
void Editing::Select(int command) {
  const auto place = [this] { return static_cast<int32_t>(TakeByte()) - 1; };
  switch (command) {
    case 0: return composer_.Undo();
    case 1: return composer_.Redo();
    case 2: return composer_.MoveTo(place());
    case 3: return composer_.SelectTo(place());
    case 4: return composer_.SelectAll();
    case 5:
      if (document_.Size() < kLongest) composer_.Duplicate();
      return;
    case 6: return composer_.MoveSemitones(Take(25) - 12);
    case 7: return composer_.TakeLengthAndOctave(place());
    case 8: return composer_.MoveTone(place(), Take(25) - 12);
    case 9: return composer_.SetLength(place(), Take(kDurations.size()), Take(kDurationExtras.size()));
    case 10: return composer_.EndDrag();
    default: return composer_.Clear();
  }
}

void Editing::Choose(int command) {
  switch (command) {
    case 0: return composer_.SetMode(kModeLimits.at(static_cast<size_t>(Take(kModeLimits.size()))).mode);
    case 1: {
      const int row = Take(7);
      return composer_.EditSongText(row, TakeLine());
    }
    case 2:
    case 3: return play_.Press(static_cast<Control>(Take(6)));
    case 4: player_.outputType = static_cast<OutputType>(Take(3)); return;
    case 5: settings_ = {Take(2) == 1, Take(2) == 1, Take(2) == 1}; return;
    case 6: return Open();
    case 7: return Paste();
    case 8: composer_.ToggleUseDefaults(); return composer_.RefreshMelodyView();
    default: pump_.ending = Take(256) == 255;
  }
}

// The elements of a line in any of the formats.
ReadResult Editing::ReadLine() {
  constexpr std::array kFormats{PastedFormat::Rtttl, PastedFormat::EMelody, PastedFormat::Melody};
  const auto format = static_cast<size_t>(Take(kFormats.size() + 1));
  const std::string line = TakeLine();
  ReadResult read =
      format < kFormats.size()
          ? Import(kFormats.at(format), line, false, record_, services_).read
          : Read("BEGIN:IMELODY\r\nMELODY:" + line + "\r\n", FormatMode::IMelody, record_, services_);
  read.elements.resize(std::min(read.elements.size(), kLongest));
  return read;
}

void Editing::Open() {
  ReadResult read = ReadLine();
  if (!read) {
    record_ = read.record;
    return;
  }
  composer_.TakeIn({.elements = std::move(read.elements),
                    .record = std::move(read.record),
                    .mode = document_.Mode(),
                    .step = "opening"});
  if (settings_.autoPlay) play_.Press(Control::Play);
}

// A step can be taken back and made again.
void Editing::Paste() {
  ReadResult read = ReadLine();
  if (!composer_.MayEdit() || document_.Size() > kLongest || read.elements.empty()) return;
  const Snapshot before(document_);
  composer_.Paste(std::move(read.elements));
  const Snapshot after(document_);
  composer_.Undo();
  Require(Snapshot(document_) == before, "what was pasted can be taken back");
  composer_.Redo();
  Require(Snapshot(document_) == after, "and pasted again");
}

// At the end: the first song of all, and the last.
void Editing::TakeAllBack() {
  if (!composer_.MayEdit()) return;
  const Song last = document_.CurrentSong();
  int steps = 0;
  for (; composer_.Steps().CanUndo(); ++steps) composer_.Undo();
  Require(document_.IsEmpty(), "everything can be taken back");
  for (; steps > 0; --steps) composer_.Redo();
  Require(document_.CurrentSong() == last, "and made again");
}

// After each step that nothing else waits for.
void Editing::Check() {
  Require(document_.Cursor() >= -1 && document_.Cursor() <= document_.LastIndex(),
          "the cursor is in the song");
  const MelodyText text = TextOf(document_, composer_.UseDefaults(), log_);
  Require(view_.melody.left == text.left && view_.melody.right == text.right, "the song as it is is shown");
  Require(document_.CommonestDefaults() == DefaultsCount(document_.Elements()).Commonest(),
          "the commonest octave and duration are counted right");
  Require(composer_.MayEdit() && !composer_.Sounds(), "nothing stays locked");
  CheckWriting();
}

// Volumes and counts are taken as they are typed and odd notes and lengths as they are read, whether a file
// can hold them or not.
bool IsPlain(const Element& element) {
  std::string_view number = element.Command();
  if (number.empty()) {
    return DurationIndex(element.duration) >= 0 && (element.Note() == "r" || ToneIndex(element.Note()) >= 0);
  }
  if (number.starts_with('@')) number.remove_suffix(1);
  if (number == "V+" || number == "V-" || !(number.starts_with('V') || number.starts_with('@'))) return true;
  number.remove_prefix(1);
  return !number.empty() && number.size() < 3 &&
         std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Where the mode has a token for each element that reads as that element, a file has the song.
void Editing::CheckWriting() {
  const FormatMode mode = document_.Mode();
  const auto textOf = [this, mode](const Element& element) { return Encode(element, mode, {}, log_).text; };
  const auto isWhole = [&](const Element& element) {
    return !textOf(element).empty() && Supports(element, mode) && IsPlain(element) &&
           textOf(Decode(textOf(element), mode, {}, log_)) == textOf(element);
  };
  const ElementList& elements = document_.Elements();
  // A Melody file of one character is none.
  if (elements.size() < 2 || !std::all_of(elements.begin(), elements.end(), isWhole)) return;
  // A colon ends the name in an RTTTL text, and the name is written as it is.
  if (mode == FormatMode::Rtttl && document_.Info().name.find(':') != std::string::npos) return;
  SilentServices silent;
  const Result<std::string> bytes = Write(document_.CurrentSong(), mode, silent.services);
  Require(bool{bytes}, "every song can be written");
  const ReadResult read = Read(*bytes, mode, {}, silent.services);
  Require(std::equal(elements.begin(), elements.end(), read.elements.begin(), read.elements.end(),
                     [&](const Element& a, const Element& b) { return textOf(a) == textOf(b); }),
          "what is written is read again");
}

void FuzzEditing(std::string_view input) { Editing(input).Run(); }

// The song as it is shown is checked after each step.
constexpr auto kBodies = std::to_array<FuzzBody>({{"editing", FuzzEditing, 5000, 2048}});

}  // namespace

constinit const std::span<const FuzzBody> kEditingBodies{kBodies};

}  // namespace trillomat
