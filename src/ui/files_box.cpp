#include "ui/files_box.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/controls.h"

namespace trillomat {

FilesBox::FilesBox(QWidget* parent)
    : QGroupBox(QStringLiteral("Files"), parent),
      cboDrives_(new QComboBox(this)),
      listFiles_(new QListWidget(this)),
      cmdSave_(NewButton(QStringLiteral("cmdSave"),
                         {QStringLiteral("Save"), QStringLiteral("Save over the selected file")}, this)),
      cmdSaveAs_(NewButton(QStringLiteral("cmdSaveAs"),
                           {QStringLiteral("Save As"), QStringLiteral("Save under a new name")}, this)),
      cmdImport_(NewButton(QStringLiteral("cmdImport"),
                           {QStringLiteral("Import"), QStringLiteral("Import a pasted melody")}, this)),
      cmdExport_(NewButton(QStringLiteral("cmdExport"),
                           {QStringLiteral("Export"), QStringLiteral("Export the melody for a phone")},
                           this)) {
  NameControl(*cboDrives_, QStringLiteral("cboDrives"), {{}, QStringLiteral("Drive")});
  NameControl(*listFiles_, QStringLiteral("ListFiles"), {{}, QStringLiteral("Folders and melody files")});
  cboDrives_->setFocusPolicy(Qt::TabFocus);
  auto* drive = new QHBoxLayout;
  drive->addWidget(NewLabel(QStringLiteral("lblDrive"), QStringLiteral("Select drive:"), cboDrives_, this));
  drive->addWidget(cboDrives_, 1);
  auto* lower = new QHBoxLayout;
  lower->addWidget(listFiles_, 1);
  lower->addLayout(NewButtons());
  auto* column = new QVBoxLayout(this);
  column->addLayout(drive);
  column->addLayout(lower, 1);
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

}  // namespace trillomat
