#include "ui/window_size.h"

#include <QScreen>
#include <string>

namespace trillomat {
namespace {

constexpr std::string_view kSection = "Window";
constexpr QSize kFirstSize(1024, 720);
constexpr QSize kSmallestSize(320, 240);

int Length(SettingsSession& session, std::string_view key, int first) {
  const QString text = QString::fromStdString(session.Get(kSection, key, std::to_string(first)));
  bool isNumber = false;
  const int length = text.toInt(&isNumber);
  return isNumber ? length : first;
}

}  // namespace

void RestoreSize(QWidget& window, SettingsSession& session) {
  const QSize wanted =
      QSize(Length(session, "Width", kFirstSize.width()), Length(session, "Height", kFirstSize.height()))
          .expandedTo(kSmallestSize);
  const QSize room = window.screen()->availableSize();
  const QSize size = wanted.boundedTo(room);
  window.setMinimumSize(kSmallestSize.boundedTo(room));
  window.resize(size);
  if (size != wanted || session.Get(kSection, "Maximized", "False") == "True") {
    window.setWindowState(Qt::WindowMaximized);
  }
}

void PutSize(const QWidget& window, SettingsSession& session) {
  const QSize size = window.isMaximized() ? window.normalGeometry().size() : window.size();
  session.Set(kSection, "Width", std::to_string(size.width()));
  session.Set(kSection, "Height", std::to_string(size.height()));
  session.Set(kSection, "Maximized", window.isMaximized() ? "True" : "False");
}

void ForgetSize(SettingsSession& session) { session.DeleteSection(kSection); }

}  // namespace trillomat
