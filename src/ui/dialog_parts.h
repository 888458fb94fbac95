// What the modal windows share.
#pragma once

#include <QDialog>
#include <QLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QString>
#include <string_view>

#include "ui/controls.h"

namespace trillomat {

/// A window that shows a melody text opens this many times as large as it must be.
inline constexpr qreal kRoomToSpare = 1.3;

/// Opens `dialog` at this size, or as much of it as its screen has room for.
void OpenAt(QDialog& dialog, QSize wanted);

/// Names `dialog`, titles it and makes it modal.
void SetUpDialog(QDialog& dialog, const QString& objectName, const QString& title);

/// A button that Enter presses while it has the focus.
QPushButton* NewDialogButton(const QString& objectName, const ControlText& text, QWidget* parent);

/// A row with "OK", which accepts `dialog` and is its default button, and "Cancel", which rejects it. The
/// texts are the accessible names of the two.
QLayout* NewOkCancelRow(QDialog& dialog, const QString& ok, const QString& cancel);

/// Prepares a box for melody texts of any size: fixed-width font, lines broken anywhere, Tab leaves it.
void SetUpTextBox(QPlainTextEdit& box);

/// `caption` (Windows-1252) with the first `letter` in it as its mnemonic, or without one where that is
/// missing.
QString WithMnemonic(std::string_view caption, char letter);

}  // namespace trillomat
