#include "ui/files_box.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "browser/flag_set.h"
#include "ui/frm_export.h"
#include "ui/frm_import.h"
#include "ui/frm_rename.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

QString FromUtf8Bytes(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

FilesBox::FilesBox(const FilesBoxParts& parts, QWidget* parent)
    : QGroupBox(QStringLiteral("Files"), parent),
      ws_(parts.workspace),
      questions_(parts.questions),
      composer_(parts.composer),
      opener_(parts.workspace, parts.composer, parts.play, parts.playSettings),
      browser_(parts.workspace, parts.files, parts.player, opener_, *this, parts.timers),
      save_(parts.workspace, parts.files, browser_, *this),
      cboDrives_(new QComboBox(this)),
      lblFolder_(new QLabel(this)),
      lblNotice_(new QLabel(this)),
      listFiles_(new FileList(this)),
      mnuRight_(new QMenu(this)),
      cmdSave_(NewCommand("cmdSave",
                          {QStringLiteral("Sa&ve"), QStringLiteral("Save over the selected file"),
                           QStringLiteral("Save over the selected file (Ctrl+S)")},
                          &FilesBox::cmdSave_Click)),
      cmdSaveAs_(NewCommand("cmdSaveAs",
                            {QStringLiteral("Save As"), QStringLiteral("Save under a new name"),
                             QStringLiteral("Save under a new name (Ctrl+Shift+S)")},
                            &FilesBox::cmdSaveAs_Click)),
      cmdImport_(NewCommand("cmdImport",
                            {QStringLiteral("I&mport"), QStringLiteral("Import a pasted melody"),
                             QStringLiteral("Import a pasted melody")},
                            &FilesBox::cmdImport_Click)),
      cmdExport_(NewCommand("cmdExport",
                            {QStringLiteral("E&xport"), QStringLiteral("Export the melody for a phone"),
                             QStringLiteral("Export the melody for a phone")},
                            &FilesBox::cmdExport_Click)) {
  LayOut();
  AddMenuItems();
  Connect();
}

QPushButton* FilesBox::NewCommand(const char* objectName, const ControlText& text,
                                  void (FilesBox::*command)()) {
  QPushButton* button = NewButton(QLatin1String(objectName), text, this);
  connect(button, &QPushButton::clicked, this, command);
  return button;
}

void FilesBox::LayOut() {
  NameControl(*cboDrives_, QStringLiteral("cboDrives"), {{}, QStringLiteral("Drive")});
  cboDrives_->setFocusPolicy(Qt::TabFocus);
  cboDrives_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  NameControl(*listFiles_, QStringLiteral("ListFiles"),
              {{},
               QStringLiteral("Folders and melody files"),
               QStringLiteral("Click a file to open it, double-click a folder to enter it; the right button "
                              "deletes and renames")});
  NameControl(*lblFolder_, QStringLiteral("lblFolder"), {{}, QStringLiteral("Current folder")});
  // A long path must not widen the window.
  lblFolder_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  NameControl(*lblNotice_, QStringLiteral("lblNotice"),
              {{}, QStringLiteral("Why the last file was not opened")});
  lblNotice_->setWordWrap(true);
  lblNotice_->setTextFormat(Qt::PlainText);
  lblNotice_->hide();
  auto* drive = new QHBoxLayout;
  drive->addWidget(NewLabel(QStringLiteral("lblDrive"), QStringLiteral("Select drive:"), cboDrives_, this));
  drive->addWidget(cboDrives_, 1);
  auto* lower = new QHBoxLayout;
  lower->addWidget(listFiles_, 1);
  lower->addLayout(NewButtons());
  auto* column = new QVBoxLayout(this);
  column->addLayout(drive);
  column->addWidget(lblFolder_);
  column->addLayout(lower, 1);
  column->addWidget(lblNotice_);
}

QLayout* FilesBox::NewButtons() {
  auto* column = new QVBoxLayout;
  column->addWidget(cmdSave_);
  column->addWidget(cmdSaveAs_);
  column->addStretch();
  column->addWidget(cmdImport_);
  column->addWidget(cmdExport_);
  return column;
}

void FilesBox::AddMenuItems() {
  mnuRight_->setObjectName(QStringLiteral("mnuRight"));
  const auto add = [this](const char* objectName, const QString& caption, void (FileBrowser::*click)()) {
    QAction* item = mnuRight_->addAction(caption);
    item->setObjectName(QLatin1String(objectName));
    connect(item, &QAction::triggered, this, [this, click] {
      if (!FileOperationRuns()) (browser_.*click)();
    });
  };
  add("mnuDelete", QStringLiteral("&Delete"), &FileBrowser::mnuDelete_Click);
  add("mnuRename", QStringLiteral("&Rename"), &FileBrowser::mnuRename_Click);
}

void FilesBox::Connect() {
  connect(listFiles_, &FileList::Clicked, this, [this](int row) {
    if (!FileOperationRuns()) Open([this, row] { browser_.ListFiles_Click(row); });
  });
  connect(listFiles_, &FileList::DoubleClicked, this, [this](int row) {
    if (!FileOperationRuns()) Open([this, row] { browser_.ListFiles_DblClick(row); });
  });
  connect(listFiles_, &FileList::MenuRequested, this,
          [this](int row) { browser_.ListFiles_MouseDown(FileBrowser::kRightButton, row); });
  connect(cboDrives_, &QComboBox::activated, this, [this](int index) {
    if (!FileOperationRuns()) browser_.cboDrives_Click(cboDrives_->itemText(index).toStdString());
  });
  connect(&clickTimer_, &QTimer::timeout, this, [this] { Open([this] { browser_.Timer1_Tick(); }); });
  const auto shortcut = [this](const QKeySequence& keys, QPushButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
  };
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), cmdSave_);
  shortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), cmdSaveAs_);
}

// Reading and importing share one list of the workspace, saving and exporting another.
bool FilesBox::FileOperationRuns() const { return exchanging_ || browser_.IsBusy() || save_.IsSaving(); }

void FilesBox::OpenFile(const std::filesystem::path& file) {
  if (!FileOperationRuns()) Open([this, file] { browser_.OpenFile(file); });
}

// Runs something that may open a file, and shows why it was refused.
void FilesBox::Open(const std::function<void()>& open) {
  ws_.refusal.clear();
  ShowRefusal({});
  open();
  ShowRefusal(QStringLiteral("Not opened: "));
}

void FilesBox::ShowRefusal(const QString& what) {
  lblNotice_->setVisible(!ws_.refusal.empty());
  lblNotice_->setText(what + ToQString(ws_.refusal));
}

void FilesBox::cmdSave_Click() {
  if (!FileOperationRuns()) save_.cmdSave_Click();
}

void FilesBox::cmdSaveAs_Click() {
  if (!FileOperationRuns()) save_.cmdSaveAs_Click();
}

void FilesBox::cmdImport_Click() {
  if (FileOperationRuns()) return;
  const FlagSet open(exchanging_);
  opener_.BeginImport();
  frmImport window(ws_, this->window());
  window.exec();
  ShowRefusal(ws_.ImportMelody.empty() ? QStringLiteral("Not imported: ") : QStringLiteral("Not adapted: "));
  if (!ws_.ImportMelody.empty()) opener_.TakeImported();
}

void FilesBox::cmdExport_Click() {
  if (FileOperationRuns()) return;
  const FlagSet open(exchanging_);
  if (ws_.melody.IsEmpty()) return ws_.log.WriteLog("Nothing to export", 2);
  frmExport(ws_, window()).exec();
}

void FilesBox::ShowState() {
  cmdSave_->setEnabled(composer_.CanEdit() && browser_.CanSave());
  for (QPushButton* button : {cmdSaveAs_, cmdImport_, cmdExport_}) button->setEnabled(composer_.CanEdit());
}

void FilesBox::ShowFiles() {
  const QSignalBlocker quietDrives(cboDrives_);
  cboDrives_->clear();
  for (const std::string& drive : browser_.Drives()) cboDrives_->addItem(FromUtf8Bytes(drive));
  cboDrives_->setCurrentIndex(browser_.CurrentDrive());
  const QString folder = FromUtf8Bytes(browser_.sBrowseFolder);
  lblFolder_->setText(folder);
  lblFolder_->setToolTip(folder);
  const QSignalBlocker quietList(listFiles_);
  listFiles_->clear();
  for (const FileRow& row : browser_.Rows()) {
    auto* item = new QListWidgetItem(FromUtf8Bytes(row.Text()), listFiles_);
    item->setData(Qt::UserRole, !row.IsFile());
  }
  ShowSelectedFile();
}

void FilesBox::ShowSelectedFile() {
  listFiles_->ShowSelected(browser_.SelectedRow());
  ShowState();
}

void FilesBox::PopUpFileMenu() { mnuRight_->popup(listFiles_->MenuPlace()); }

std::optional<std::string> FilesBox::AskNewName(std::string_view name) {
  frmRename dialog(FromUtf8Bytes(name), window());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.NewName().toStdString();
}

void FilesBox::SetSaveCaption(std::string_view caption) {
  cmdSave_->setText(caption == "Save" ? QStringLiteral("Sa&ve") : FromUtf8Bytes(caption));
}

void FilesBox::SetSaveAsCaption(std::string_view caption) { cmdSaveAs_->setText(FromUtf8Bytes(caption)); }

std::optional<std::filesystem::path> FilesBox::AskSavePath(const SaveDialog& dialog) {
  return questions_.AskSavePath(window(), dialog);
}

bool FilesBox::AskYesNo(std::string_view title, std::string_view question) {
  return questions_.AskYesNo(window(), FromUtf8Bytes(title), FromUtf8Bytes(question));
}

}  // namespace trillomat
