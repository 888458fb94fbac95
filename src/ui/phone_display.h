// The phone: four pictures of its lights, one of them shown, all of them jittering while it vibrates,
// and the frequency of the tone.
#pragma once

#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <array>
#include <string_view>
#include <utility>

namespace trillomat {

/// One drawing that fills the widget.
class PictureWidget : public QWidget {
 public:
  PictureWidget(QIcon picture, QWidget* parent) : QWidget(parent), picture_(std::move(picture)) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QIcon picture_;
};

class PhoneDisplay : public QGroupBox {
  Q_OBJECT

 public:
  explicit PhoneDisplay(QWidget* parent);

  void ShowFrequency(std::string_view text);
  /// Shows picture 0 (no light), 1 (backlight), 2 (LED) or 3 (both) alone.
  void ShowPicture(int picture);
  void StartVibration();
  void StopVibration();

 private:
  void Vibrate();
  QLayout* NewFrequencyRow();

  QWidget* area_;
  std::array<PictureWidget*, 4> imageMS_{};
  QLabel* lblFrequency_;
  QTimer timer_;
};

}  // namespace trillomat
