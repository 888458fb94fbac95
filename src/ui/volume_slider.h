// The slider of how loud the program's own output is.
#pragma once

#include <QSlider>

namespace trillomat {

/// From 0 to 100 percent, as the ear counts: see playback/volume.h. The slider tells its value by its signal
/// `valueChanged`. The mouse wheel moves it, too, and it is never locked.
class VolumeSlider : public QSlider {
  Q_OBJECT

 public:
  explicit VolumeSlider(QWidget* parent);

  QSize sizeHint() const override;
};

}  // namespace trillomat
