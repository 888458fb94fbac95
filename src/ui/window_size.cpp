#include "ui/window_size.h"

#include <QScreen>
#include <string>

namespace trillomat {
namespace {

constexpr std::string_view kSection = "Window";
constexpr QSize kFirstSize(1024, 720);
constexpr QSize kSmallestSize(320, 240);

int Length(const SettingsStore& store, std::string_view key, int first) {
  const QString text = QString::fromStdString(store.Get(kSection, key, {}));
  bool isNumber = false;
  const int length = text.toInt(&isNumber);
  return isNumber ? length : first;
}

}  // namespace

void RestoreSize(QWidget& window, const SettingsStore& store) {
  const QSize wanted =
      QSize(Length(store, "Width", kFirstSize.width()), Length(store, "Height", kFirstSize.height()))
          .expandedTo(kSmallestSize);
  const QSize room = window.screen()->availableSize();
  const QSize size = wanted.boundedTo(room);
  window.setMinimumSize(kSmallestSize.boundedTo(room));
  window.resize(size);
  if (size != wanted || store.Get(kSection, "Maximized", "False") == "True") {
    window.setWindowState(Qt::WindowMaximized);
  }
}

void SaveSize(const QWidget& window, SettingsStore& store) {
  const QSize size = window.isMaximized() ? window.normalGeometry().size() : window.size();
  store.Set(kSection, "Width", std::to_string(size.width()));
  store.Set(kSection, "Height", std::to_string(size.height()));
  store.Set(kSection, "Maximized", window.isMaximized() ? "True" : "False");
}

void ForgetSize(SettingsStore& store) { store.DeleteSection(kSection); }

}  // namespace trillomat
