// The slider for the volume of what the program plays.
#pragma once

#include <QSlider>

namespace trillomat {

/// From 0 to 100 percent of loudness as the ear judges it (playback/volume.h). The value is told by the
/// signal `valueChanged`. It works while a melody plays, too.
class VolumeSlider : public QSlider {
  Q_OBJECT

 public:
  explicit VolumeSlider(QWidget* parent);

  QSize sizeHint() const override;
};

}  // namespace trillomat
