#include "ui/window_size.h"

#include <QScreen>
#include <string>

namespace trillomat {
namespace {

constexpr std::string_view kSection = "Window";
constexpr QSize kFirstSize(1100, 820);
constexpr QSize kSmallestSize(320, 240);

int Length(SettingsDraft& draft, std::string_view key, int first) {
  const QString text = QString::fromStdString(draft.Get(kSection, key, std::to_string(first)));
  bool isNumber = false;
  const int length = text.toInt(&isNumber);
  return isNumber ? length : first;
}

}  // namespace

void RestoreSize(QWidget& window, SettingsDraft& draft) {
  const QSize wanted =
      QSize(Length(draft, "Width", kFirstSize.width()), Length(draft, "Height", kFirstSize.height()))
          .expandedTo(kSmallestSize);
  const QSize room = window.screen()->availableSize();
  const QSize size = wanted.boundedTo(room);
  window.setMinimumSize(kSmallestSize.boundedTo(room));
  window.resize(size);
  if (size != wanted || draft.Get(kSection, "Maximized", "False") == "True") {
    window.setWindowState(Qt::WindowMaximized);
  }
}

void PutSize(const QWidget& window, SettingsDraft& draft) {
  const QSize size = window.isMaximized() ? window.normalGeometry().size() : window.size();
  draft.Set(kSection, "Width", std::to_string(size.width()));
  draft.Set(kSection, "Height", std::to_string(size.height()));
  draft.Set(kSection, "Maximized", window.isMaximized() ? "True" : "False");
}

void ForgetSize(SettingsDraft& draft) { draft.DeleteSection(kSection); }

}  // namespace trillomat
