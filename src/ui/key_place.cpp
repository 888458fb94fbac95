#include "ui/key_place.h"

#include <QGuiApplication>
#include <array>
#include <string_view>

namespace trillomat {
namespace {

struct PlaceRow {
  quint32 first;  ///< scan code of its first key
  std::string_view keys;
};

constexpr std::array<PlaceRow, 5> kRows{
    {{0x02, "1234567890-"}, {0x10, "QWERTYUIOP"}, {0x1E, "ASDFGHJKL"}, {0x2C, "ZXCVBNM"}, {0x34, "."}}};

}  // namespace

// The key codes of X11, and with them those of Wayland, are Linux's plus eight.
std::optional<quint32> PlaceOf(const QKeyEvent& press) {
  constexpr quint32 kOffset = 8;
  const quint32 code = press.nativeScanCode();
  const QString platform = QGuiApplication::platformName();
  if (platform == QStringLiteral("windows") && code > 0) return code;
  const bool counted = platform == QStringLiteral("xcb") || platform.startsWith(QStringLiteral("wayland"));
  if (counted && code > kOffset) return code - kOffset;
  return std::nullopt;
}

int KeyAtPlace(quint32 scanCode) {
  for (const PlaceRow& row : kRows) {
    if (scanCode >= row.first && scanCode - row.first < row.keys.size())
      return row.keys[scanCode - row.first];
  }
  return 0;
}

}  // namespace trillomat
