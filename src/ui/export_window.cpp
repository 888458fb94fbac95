#include "ui/export_window.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>
#include <array>
#include <optional>
#include <utility>

#include "composer/element_words.h"
#include "core/scoped_value.h"
#include "formats/rtttl_text.h"
#include "ui/dialog_parts.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

struct TargetWords {
  char mnemonic;
  const char* spoken;
  const char* tip;
};

constexpr std::array<TargetWords, kExportButtons.size()> kTargetWords{
    {{'6', "Export as T68i key presses", "The keys that type the melody into a T68i"},
     {'3', "Export as T39 key presses", "The keys that type the melody into a T39"},
     {'N', "Export as Nokia Composer key presses", "The keys that type the melody into the Nokia Composer"},
     {'R', "Export as RTTTL text", "The melody as an RTTTL ringtone text"},
     {'o', "Second Nokia Composer, exports nothing", "Exports nothing"},
     {'M', "MIDI, exports nothing", "Exports nothing"},
     {'W', "WAVE, exports nothing", "Exports nothing"},
     {'2', "Export as R320 and T28 key presses", "The keys that type the melody into an R320 or a T28"}}};
static_assert(kTargetWords.back().spoken != nullptr, "a button has no words");

QString CopyKey() { return QKeySequence(QKeySequence::Copy).toString(QKeySequence::NativeText); }

// Copies everything while nothing is selected, and keeps Enter from pressing a button of the window.
class ResultBox : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

  void Copy() {
    if (!textCursor().hasSelection()) selectAll();
    copy();
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) {
      Copy();
    } else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
      QPlainTextEdit::keyPressEvent(event);
    }
  }
};

}  // namespace

ExportWindow::ExportWindow(std::shared_ptr<const Song> song, bool modernSpelling, const Services& services,
                           QWidget* parent)
    : QDialog(parent), song_(std::move(song)), services_(services) {
  SetUpDialog(*this, QStringLiteral("frmExport"), QStringLiteral("Trillomat - Export"));
  auto* frames = new QHBoxLayout;
  frames->addWidget(NewTargetFrame());
  frames->addWidget(NewResultFrame(modernSpelling), 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(frames, 1);
  layout->addWidget(NewFitFrame());
  layout->addLayout(NewButtonRow());
  for (const ExportTarget& target : kExportTargets) FindFit(target.phone);
  ShowFits();
  OpenAt(*this, sizeHint() * kRoomToSpare);
}

QWidget* ExportWindow::NewTargetFrame() {
  auto* frame = new QGroupBox(QStringLiteral("&Export To"), this);
  auto* layout = new QVBoxLayout(frame);
  for (size_t i = 0; i < kExportButtons.size(); ++i) {
    const ExportButton& target = kExportButtons.at(i);
    const TargetWords& words = kTargetWords.at(i);
    auto* button =
        NewDialogButton(IndexedName("cmdExport", static_cast<int>(i)),
                        {WithMnemonic(target.caption, words.mnemonic), words.spoken, words.tip}, frame);
    connect(button, &QPushButton::clicked, this, [this, &target] { Press(target); });
    layout->addWidget(button);
  }
  layout->addStretch();
  return frame;
}

QWidget* ExportWindow::NewResultFrame(bool modernSpelling) {
  auto* frame = new QGroupBox(QStringLiteral("Res&ult"), this);
  auto* box = new ResultBox(frame);
  resultBox_ = box;
  NameControl(
      *box, QStringLiteral("txtResult"),
      {{}, QStringLiteral("Result of the export"), CopyKey() + " copies all of it, or what is selected"});
  SetUpTextBox(*box);
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* copy = new QShortcut(QKeySequence::Copy, this);
  connect(copy, &QShortcut::activated, box, &ResultBox::Copy);
  status_ = NewLabel(QStringLiteral("lblStatus"), {}, nullptr, frame);
  status_->setWordWrap(true);
  const ControlText modern{QStringLiteral("Modern s&pelling"), QStringLiteral("Modern spelling of RTTTL"),
                           QStringLiteral("RTTTL as today's players read it: lower case, b for b")};
  modern_ = new QCheckBox(modern.caption, frame);
  NameControl(*modern_, QStringLiteral("chkModernSpelling"), modern);
  modern_->setChecked(modernSpelling);
  connect(modern_, &QCheckBox::toggled, this, &ExportWindow::ChangeSpelling);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(box, 1);
  layout->addWidget(modern_);
  layout->addWidget(status_);
  return frame;
}

QWidget* ExportWindow::NewFitFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Fits this phone?"), this);
  fitsLabel_ = NewLabel(QStringLiteral("lblFits"), {}, nullptr, frame);
  fitsLabel_->setWordWrap(true);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(fitsLabel_);
  return frame;
}

QLayout* ExportWindow::NewButtonRow() {
  saveToFile_ =
      NewDialogButton(QStringLiteral("cmdSaveToFile"),
                      {QStringLiteral("&Save To File"), QStringLiteral("Save to file, saves nothing"),
                       QStringLiteral("Saves nothing")},
                      this);
  saveToFile_->setEnabled(false);
  auto* close = NewDialogButton(QStringLiteral("cmdAbort"),
                                {QStringLiteral("&Close"), QStringLiteral("Close the export window")}, this);
  connect(close, &QPushButton::clicked, this, &ExportWindow::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(saveToFile_);
  row->addWidget(close);
  return row;
}

// Events run during an export, so a button can be pressed again.
void ExportWindow::Press(const ExportButton& button) {
  if (running_ != nullptr) return;
  saveToFile_->setEnabled(false);
  ShowResult({}, {});
  if (button.phone) MakeText(*button.phone);
  if (button.enablesSaveToFile) saveToFile_->setEnabled(true);
}

void ExportWindow::MakeText(Phone phone) {
  StoppablePump pump(services_.pump);
  std::optional<trillomat::Result<std::string>> text;
  {
    const ScopedValue<StoppablePump*> running(running_, &pump);
    text = Export(phone, *song_, services_.With(pump), Spelling());
  }
  if (closing_) return reject();
  if (*text) {
    ShowResult(std::move(**text), StatusOf(phone));
    shown_ = phone;
  } else {
    ShowResult({}, ShownMessage("No Result: " + ToQString(text->Why().why) + '.'));
  }
}

void ExportWindow::ShowResult(std::string result, const QString& status) {
  shown_.reset();
  result_ = std::move(result);
  resultBox_->setPlainText(ToQString(result_));
  status_->setText(status);
}

// While an export runs that a button began, no Result is shown, so it is not disturbed here.
void ExportWindow::ChangeSpelling() {
  FindFit(Phone::Rtttl);
  ShowFits();
  if (shown_ == Phone::Rtttl) MakeText(Phone::Rtttl);
}

RtttlSpelling ExportWindow::Spelling() const {
  return ModernSpelling() ? RtttlSpelling::Modern : RtttlSpelling::Classic;
}

void ExportWindow::FindFit(Phone phone) {
  fits_.at(static_cast<size_t>(phone)) = FitOf(phone, *song_, Spelling());
}

void ExportWindow::ShowFits() {
  QStringList lines;
  for (const PhoneFit& fit : fits_) {
    const std::string words = fit.first ? ElementWords(song_->elements[fit.first->index]) : "";
    lines << ShownMessage(ToQString(FitText(fit, words)));
  }
  fitsLabel_->setText(lines.join('\n'));
}

// Says what was left out, and whether the name will not be read back, before the text is copied.
QString ExportWindow::StatusOf(Phone phone) const {
  QString status = CopyKey() + " copies the Result.";
  const std::string losses = LossText(fits_.at(static_cast<size_t>(phone)));
  if (!losses.empty()) status += ' ' + ToQString(losses) + '.';
  const std::string name = phone == Phone::Rtttl ? RtttlNameWarning(song_->info, Spelling()) : "";
  if (!name.empty()) status += " Warning: " + ToQString(name) + '.';
  return ShownMessage(status);
}

void ExportWindow::reject() {
  closing_ = true;
  if (running_ != nullptr) return running_->Stop();
  QDialog::reject();
}

}  // namespace trillomat
