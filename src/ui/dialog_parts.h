// What the modal windows share.
#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QString>
#include <string_view>

#include "ui/controls.h"

namespace trillomat {

/// How much larger than it must be a window opens that shows a melody text.
inline constexpr qreal kRoomToSpare = 1.3;

/// Opens `dialog` at this size, or as much of it as its screen has room for.
void OpenAt(QDialog& dialog, QSize wanted);

/// Names `dialog`, titles it and makes it modal.
void SetUpDialog(QDialog& dialog, const QString& objectName, const QString& title);

/// A button that Enter presses while it has the focus.
QPushButton* NewDialogButton(const QString& objectName, const ControlText& text, QWidget* parent);

/// Prepares a box for melody texts of any size: fixed-width font, lines broken anywhere, Tab leaves it.
void SetUpTextBox(QPlainTextEdit& box);

/// The Windows-1252 text `caption` with the first `letter` in it as its mnemonic.
QString WithMnemonic(std::string_view caption, char letter);

}  // namespace trillomat
