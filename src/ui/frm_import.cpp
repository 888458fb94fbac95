#include "ui/frm_import.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "core/code_page.h"
#include "ui/dialog_parts.h"

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

}  // namespace

frmImport::frmImport(Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws), dialog_(ws) {
  SetUpDialog(*this, QStringLiteral("frmImport"), QStringLiteral("Trillomat - Import"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(NewFormatFrame());
  layout->addWidget(NewSourceFrame(), 1);
  layout->addLayout(NewButtonRow());
  resize(sizeHint() * kRoomToSpare);
  txtSource_->setFocus();
  dialog_.Load();
  cmdImport_->setEnabled(dialog_.CanImport());
}

QWidget* frmImport::NewFormatFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Source &format"), this);
  auto* layout = new QHBoxLayout(frame);
  for (size_t i = 0; i < optImport_.size(); ++i) {
    const FormatWords& words = kFormatWords.at(i);
    const QString caption = WithMnemonic(kImportOptions.at(i).caption, words.mnemonic);
    auto* option = new QRadioButton(caption, frame);
    NameControl(*option, IndexedName("optImport", static_cast<int>(i)), {caption, words.spoken, words.tip});
    optImport_.at(i) = option;
    layout->addWidget(option);
  }
  layout->addStretch();
  optImport_.front()->setChecked(true);
  for (const QRadioButton* option : optImport_) {
    connect(option, &QRadioButton::toggled, this, [this](bool selected) {
      if (selected) UpdateImportButton();
    });
  }
  return frame;
}

QWidget* frmImport::NewSourceFrame() {
  auto* frame = new QGroupBox(QStringLiteral("&Source"), this);
  txtSource_ = new QPlainTextEdit(frame);
  NameControl(*txtSource_, QStringLiteral("txtSource"),
              {{}, QStringLiteral("Melody text to import"), QStringLiteral("Paste the melody text here")});
  SetUpTextBox(*txtSource_);
  connect(txtSource_, &QPlainTextEdit::textChanged, this, &frmImport::txtSource_Change);
  lblReplaced_ = NewLabel(QStringLiteral("lblReplaced"), {}, nullptr, frame);
  lblReplaced_->setWordWrap(true);
  lblReplaced_->hide();
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(txtSource_, 1);
  layout->addWidget(lblReplaced_);
  return frame;
}

QLayout* frmImport::NewButtonRow() {
  const ControlText adapt{QStringLiteral("&Adapt for T68i"), QStringLiteral("Adapt the melody for the T68i"),
                          QStringLiteral("Moves the melody by whole octaves into those of the T68i")};
  chkAdapt_ = new QCheckBox(adapt.caption, this);
  NameControl(*chkAdapt_, QStringLiteral("chkAdapt"), adapt);
  cmdImport_ = NewDialogButton(QStringLiteral("cmdImport"),
                               {QStringLiteral("&Import"), QStringLiteral("Import the melody text"),
                                QStringLiteral("Replaces the composed melody")},
                               this);
  cmdImport_->setDefault(true);
  auto* cmdCancel =
      NewDialogButton(QStringLiteral("cmdCancel"),
                      {QStringLiteral("&Cancel"), QStringLiteral("Close without importing")}, this);
  connect(cmdImport_, &QPushButton::clicked, this, &frmImport::cmdImport_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmImport::reject);
  auto* row = new QHBoxLayout;
  row->addWidget(chkAdapt_);
  row->addStretch();
  row->addWidget(cmdImport_);
  row->addWidget(cmdCancel);
  return row;
}

std::array<bool, kImportOptions.size()> frmImport::Options() const {
  std::array<bool, kImportOptions.size()> options{};
  std::transform(optImport_.begin(), optImport_.end(), options.begin(),
                 [](const QRadioButton* option) { return option->isChecked(); });
  return options;
}

void frmImport::txtSource_Change() {
  const QString text = txtSource_->toPlainText();
  source_ = FromQString(text);
  const auto characters = text.toUcs4();
  const auto replaced = std::count_if(characters.begin(), characters.end(),
                                      [](char32_t character) { return !CodePageHas(character); });
  lblReplaced_->setText(ReplacedWords(replaced));
  lblReplaced_->setVisible(replaced != 0);
  UpdateImportButton();
}

void frmImport::UpdateImportButton() {
  dialog_.Update(Options(), source_);
  cmdImport_->setEnabled(dialog_.CanImport());
}

void frmImport::cmdImport_Click() {
  // Events run while the text is converted: the button can be pressed again and the text be changed.
  if (importing_) return;
  importing_ = true;
  const SongHeader header = ws_.header;
  const std::string source = source_;
  dialog_.Import(Options(), source, chkAdapt_->isChecked());
  importing_ = false;
  if (!cancelled_) return accept();
  ws_.header = header;
  reject();
}

void frmImport::reject() {
  // Closed at once, the main window would take clicks while its song information is being filled.
  cancelled_ = true;
  if (importing_) return;
  ws_.ImportMelody.clear();
  ws_.refusal.clear();
  QDialog::reject();
}

}  // namespace trillomat
