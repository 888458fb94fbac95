// A group of options of which one is selected: "Duration" and "More...".
#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <functional>
#include <span>
#include <string_view>

namespace trillomat {

class OptionBox : public QGroupBox {
  Q_OBJECT

 public:
  /// The options get the object names `group`(0), `group`(1), ... and `captions`, which may hold "&".
  OptionBox(const QString& title, const char* group, std::span<const std::string_view> captions,
            QWidget* parent);

  /// Selects option `selected` and enables those for which `isEnabled` is true.
  void ShowState(int selected, const std::function<bool(int)>& isEnabled);

 signals:
  void Clicked(int index);

 private:
  QButtonGroup group_;
};

}  // namespace trillomat
