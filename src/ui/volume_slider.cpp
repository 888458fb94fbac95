#include "ui/volume_slider.h"

#include <QFontMetrics>

#include "playback/volume.h"
#include "ui/controls.h"

namespace trillomat {
namespace {

// The value stands in the tooltip, which a slider as small as this has no other place for.
QString TipOf(int percent) { return QStringLiteral("Volume of what is played: %1 %").arg(percent); }

}  // namespace

VolumeSlider::VolumeSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  NameControl(*this, QStringLiteral("sldVolume"), {{}, QStringLiteral("Volume"), TipOf(kFullVolume)});
  setRange(0, kFullVolume);
  setSingleStep(5);
  setPageStep(20);
  setValue(kFullVolume);
  setFocusPolicy(Qt::TabFocus);  // the mouse leaves the keys with the melody
  connect(this, &QSlider::valueChanged, this, [this](int percent) { setToolTip(TipOf(percent)); });
}

QSize VolumeSlider::sizeHint() const {
  return {QFontMetrics(font()).averageCharWidth() * 14, QSlider::sizeHint().height()};
}

}  // namespace trillomat
