#include "ui/import_window.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QMimeData>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

#include "core/code_page.h"
#include "core/limits.h"
#include "core/scoped_value.h"
#include "files/read_file.h"
#include "ui/dialog_parts.h"
#include "ui/qt_text.h"
#include "ui/tune_window.h"

namespace trillomat {
namespace {

struct FormatWords {
  char mnemonic;
  const char* spoken;
  const char* tip;
};

constexpr std::array<FormatWords, kImportOptions.size()> kFormatWords{
    {{'N', "The source is Nokia RTTTL text", "name:d=4,o=5,b=100:c,8d#,2e6"},
     {'E', "The source is E-Melody text", "An EMelody file, or its notes alone"},
     {'M', "The source is Melody text", "The notes of a Melody file"},
     {'2', "Option 2, imports nothing", "Imports nothing"},
     {'3', "Option 3, imports nothing", "Imports nothing"}}};

QString ReplacedWords(qsizetype count) {
  if (count == 0) return {};
  if (count == 1) return QStringLiteral("1 character is unknown to the phones and is read as \"?\".");
  return QStringLiteral("%1 characters are unknown to the phones and are read as \"?\".").arg(count);
}

// Takes no more than an import may hold, whether it is pasted or dropped. Data without any format, as an
// empty clipboard has, must not reach the toolkit's box, which looks at the first format without asking.
class SourceBox : public QPlainTextEdit {
 public:
  SourceBox(std::function<void()> tooLarge, QWidget* parent)
      : QPlainTextEdit(parent), tooLarge_(std::move(tooLarge)) {}

 protected:
  void insertFromMimeData(const QMimeData* source) override {
    if (source->formats().isEmpty()) return;
    const auto there = static_cast<size_t>(document()->characterCount());
    if (there + static_cast<size_t>(source->text().size()) > kLargestInput) return tooLarge_();
    QPlainTextEdit::insertFromMimeData(source);
  }

 private:
  std::function<void()> tooLarge_;
};

}  // namespace

ImportWindow::ImportWindow(const ReadRecord& before, const Services& services, QWidget* parent)
    : QDialog(parent), before_(before), services_(services) {
  SetUpDialog(*this, QStringLiteral("frmImport"), QStringLiteral("Trillomat - Import"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(NewFormatFrame());
  layout->addWidget(NewSourceFrame(), 1);
  layout->addLayout(NewButtonRow());
  OpenAt(*this, sizeHint() * kRoomToSpare);
  sourceBox_->setFocus();
  UpdateImportButton();
}

QWidget* ImportWindow::NewFormatFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Source &format"), this);
  auto* layout = new QHBoxLayout(frame);
  for (size_t i = 0; i < options_.size(); ++i) {
    const FormatWords& words = kFormatWords.at(i);
    const QString caption = WithMnemonic(kImportOptions.at(i).caption, words.mnemonic);
    auto* option = new QRadioButton(caption, frame);
    NameControl(*option, IndexedName("optImport", static_cast<int>(i)), {caption, words.spoken, words.tip});
    options_.at(i) = option;
    layout->addWidget(option);
  }
  layout->addStretch();
  options_.front()->setChecked(true);
  for (const QRadioButton* option : options_) {
    connect(option, &QRadioButton::toggled, this, [this](bool selected) {
      if (selected) UpdateImportButton();
    });
  }
  return frame;
}

QWidget* ImportWindow::NewSourceFrame() {
  auto* frame = new QGroupBox(QStringLiteral("&Source"), this);
  const auto tooLarge = [this] {
    sourceNote_->setText("The text is " + QString::fromStdString(TooLargeText()) + " and was not taken.");
    sourceNote_->show();
  };
  sourceBox_ = new SourceBox(tooLarge, frame);
  NameControl(*sourceBox_, QStringLiteral("txtSource"),
              {{}, QStringLiteral("Melody text to import"), QStringLiteral("Paste the melody text here")});
  SetUpTextBox(*sourceBox_);
  connect(sourceBox_, &QPlainTextEdit::textChanged, this, &ImportWindow::TakeSource);
  sourceNote_ = NewLabel(QStringLiteral("lblReplaced"), {}, nullptr, frame);
  sourceNote_->setWordWrap(true);
  sourceNote_->hide();
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(sourceBox_, 1);
  layout->addWidget(sourceNote_);
  return frame;
}

QLayout* ImportWindow::NewButtonRow() {
  const ControlText adapt{QStringLiteral("&Adapt for T68i"), QStringLiteral("Adapt the melody for the T68i"),
                          QStringLiteral("Moves the melody by whole octaves into those of the T68i")};
  adapt_ = new QCheckBox(adapt.caption, this);
  NameControl(*adapt_, QStringLiteral("chkAdapt"), adapt);
  const ControlText tidy{
      QStringLiteral("&Tidy common slips"), QStringLiteral("Tidy common slips before the text is read"),
      QStringLiteral("Puts right what is often written wrong, and lists what was changed")};
  tidy_ = new QCheckBox(tidy.caption, this);
  NameControl(*tidy_, QStringLiteral("chkTidy"), tidy);
  import_ = NewDialogButton(QStringLiteral("cmdImport"),
                            {QStringLiteral("&Import"), QStringLiteral("Import the melody text"),
                             QStringLiteral("Replaces the composed melody")},
                            this);
  import_->setDefault(true);
  auto* cancel =
      NewDialogButton(QStringLiteral("cmdCancel"),
                      {QStringLiteral("&Cancel"), QStringLiteral("Close without importing")}, this);
  connect(import_, &QPushButton::clicked, this, &ImportWindow::Import);
  connect(cancel, &QPushButton::clicked, this, &ImportWindow::reject);
  auto* midi = NewDialogButton(QStringLiteral("cmdImportMidi"),
                               {QStringLiteral("From a MI&DI file..."), QStringLiteral("Import a MIDI file"),
                                QStringLiteral("Takes the highest voice of a track of a .mid file")},
                               this);
  connect(midi, &QPushButton::clicked, this, [this] {
    if (running_ != nullptr) return;
    wantsMidi_ = true;
    QDialog::reject();
  });
  auto* row = new QHBoxLayout;
  row->addWidget(adapt_);
  row->addWidget(tidy_);
  row->addStretch();
  row->addWidget(midi);
  row->addWidget(import_);
  row->addWidget(cancel);
  return row;
}

std::array<bool, kImportOptions.size()> ImportWindow::Options() const {
  std::array<bool, kImportOptions.size()> options{};
  std::transform(options_.begin(), options_.end(), options.begin(),
                 [](const QRadioButton* option) { return option->isChecked(); });
  return options;
}

void ImportWindow::TakeSource() {
  const QString text = sourceBox_->toPlainText();
  source_ = FromQString(text);
  const auto characters = text.toUcs4();
  const auto replaced = std::count_if(characters.begin(), characters.end(),
                                      [](char32_t character) { return !CodePageHas(character); });
  sourceNote_->setText(ReplacedWords(replaced));
  sourceNote_->setVisible(replaced != 0);
  UpdateImportButton();
}

void ImportWindow::UpdateImportButton() {
  choice_.Update(Options(), source_);
  import_->setEnabled(choice_.CanImport());
}

// Events run while the text is converted: the button can be pressed again, and the text be changed.
void ImportWindow::Import() {
  if (running_ != nullptr) return;
  const auto format = ImportChoice::Selected(Options()).format;
  if (!format) return accept();
  const ReadingWay way{ModeOf(*format), tidy_->isChecked(), TextSource::Import};
  const std::string source = source_;
  const auto text = ChosenText(TextsFor(way, source), this);
  if (!text) return;
  Tidied tidied = way.tidied ? TidyPart(*text, source, way.mode) : Tidied{std::string(*text), {}};
  StoppablePump pump(services_.pump);
  std::optional<Imported> imported;
  {
    const ScopedValue<StoppablePump*> running(running_, &pump);
    imported = trillomat::Import(*format, tidied.text, adapt_->isChecked(), before_, services_.With(pump));
  }
  if (cancelled_) return reject();
  origin_ = {std::string(*text), way, std::move(tidied.changes)};
  result_ = std::move(imported);
  accept();
}

// An import that runs ends first, because behind a closed window the main window would take clicks meanwhile.
void ImportWindow::reject() {
  cancelled_ = true;
  if (running_ != nullptr) return running_->Stop();
  QDialog::reject();
}

}  // namespace trillomat
