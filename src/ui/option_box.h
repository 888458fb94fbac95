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
  /// What stands above the options, and what screen readers say before each.
  struct Title {
    QString shown;
    QString spoken;
  };

  /// The options get the object names `group`(0), `group`(1), ... and `captions`, which may hold "&"; `tipOf`
  /// tells the tooltip of each while it is enabled.
  OptionBox(const Title& title, const char* group, std::span<const std::string_view> captions,
            std::function<QString(int)> tipOf, QWidget* parent);

  /// Selects option `selected` and enables those for which `isEnabled` is true.
  void ShowState(int selected, const std::function<bool(int)>& isEnabled);

 signals:
  void Clicked(int index);

 private:
  std::function<QString(int)> tipOf_;
  QButtonGroup group_;
};

}  // namespace trillomat
