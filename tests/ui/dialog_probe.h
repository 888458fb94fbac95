// How the tests of the modal windows reach into them: controls by name, the ways to leave a window, and
// what every window owes its users.
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QSet>
#include <QTest>
#include <stdexcept>
#include <string>

namespace trillomat {

/// The control or menu item of that object name; throws when the window has none.
template <class W>
W& Find(const QWidget& window, const QString& name) {
  auto* control = window.findChild<W*>(name);
  if (control == nullptr) throw std::logic_error("no control " + name.toStdString());
  return *control;
}

inline void Click(const QWidget& window, const QString& name) {
  QTest::mouseClick(&Find<QAbstractButton>(window, name), Qt::LeftButton);
}

/// Escape and the window's own close button.
inline void PressEscape(QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }
inline void CloseFrame(QDialog& dialog) { dialog.close(); }

/// The window is modal, and has the name, the title and no two equal mnemonics.
inline void ExpectUsable(const QDialog& dialog, const QString& name, const QString& title) {
  EXPECT_EQ(dialog.objectName(), name);
  EXPECT_EQ(dialog.windowTitle(), title);
  EXPECT_TRUE(dialog.isModal());
  QStringList captions;
  for (const QWidget* control : dialog.findChildren<QWidget*>()) {
    if (const auto* label = qobject_cast<const QLabel*>(control))
      captions << (label->buddy() ? label->text() : "");
    if (const auto* frame = qobject_cast<const QGroupBox*>(control)) captions << frame->title();
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) captions << button->text();
  }
  QSet<QString> mnemonics;
  for (const QString& caption : captions) {
    const QString mnemonic = QKeySequence::mnemonic(caption).toString();
    EXPECT_FALSE(mnemonics.contains(mnemonic)) << caption.toStdString();
    if (!mnemonic.isEmpty()) mnemonics << mnemonic;
  }
}

}  // namespace trillomat
