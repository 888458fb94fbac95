// The phone: four pictures of its lights, one of them shown, all of them jittering while it vibrates,
// and the frequency of the tone.
#pragma once

#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <array>
#include <string_view>
#include <utility>

namespace trillomat {

/// One drawing that fills the widget. It is read when it is shown first.
class PictureWidget : public QWidget {
 public:
  PictureWidget(QString name, QWidget* parent) : QWidget(parent), name_(std::move(name)) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  QIcon picture_;
};

/// The pictures, as large as the widget lets them be, and the square that they jump in.
class PhonePictures : public QWidget {
 public:
  explicit PhonePictures(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint() / 2; }

  /// As PhoneDisplay::ShowPicture.
  void Show(int picture);
  /// Puts the pictures at a random spot of the square, as vibration does.
  void PutAtRandom();
  /// Puts them where the phone is while it does not vibrate.
  void PutInTheMiddle();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Place();

  std::array<PictureWidget*, 4> pictures_{};
  QPointF spot_;  ///< in the square, at the size of sizeHint
};

class PhoneDisplay : public QGroupBox {
  Q_OBJECT

 public:
  explicit PhoneDisplay(QWidget* parent);

  void ShowFrequency(std::string_view text);
  /// Shows picture 0 (no light), 1 (backlight), 2 (LED) or 3 (both) alone.
  void ShowPicture(int picture) { pictures_->Show(picture); }
  /// Shakes the phone, or puts it back to its place.
  void Vibrate(bool on);

 private:
  QLayout* NewFrequencyRow();

  PhonePictures* pictures_;
  QLabel* frequency_;
  QTimer timer_;
};

}  // namespace trillomat
