// The palettes that the windows are looked at in.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <string_view>

namespace trillomat {

/// "light", the toolkit's own, or "dark", as a usual desktop has it.
inline QPalette PaletteOf(std::string_view name) {
  if (name == "light") return QApplication::style()->standardPalette();
  const QColor window(42, 46, 50);
  const QColor base(27, 30, 32);
  const QColor text(252, 252, 252);
  const QColor accent(61, 174, 233);
  QPalette dark(text, QColor(49, 54, 59), QColor(80, 88, 96), QColor(20, 22, 24), QColor(36, 40, 44), text,
                text, base, window);
  dark.setColor(QPalette::AlternateBase, QColor(35, 38, 41));
  dark.setColor(QPalette::Highlight, accent);
  dark.setColor(QPalette::HighlightedText, text);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(120, 124, 128));
  }
  return dark;
}

/// A test in the palette of its parameter. To be the first base class, before the one that makes a window.
class InPalette : public testing::WithParamInterface<const char*> {
 protected:
  InPalette() { QApplication::setPalette(PaletteOf(GetParam())); }
  ~InPalette() override { QApplication::setPalette(QPalette()); }
  InPalette(const InPalette&) = delete;
  InPalette& operator=(const InPalette&) = delete;
};

}  // namespace trillomat
