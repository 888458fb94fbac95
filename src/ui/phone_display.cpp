#include "ui/phone_display.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <random>

#include "playback/phone_lights.h"
#include "playback/player_view.h"
#include "ui/controls.h"
#include "ui/qt_text.h"
#include "ui/resources.h"

namespace trillomat {
namespace {

constexpr QSize kPhone(96, 168);
// The pictures jump within a square of this width.
constexpr int kJitter = 81;
constexpr VibrationSpot kOrigin = RandomVibrationSpot(0, 0);

constexpr std::array<const char*, 4> kSpoken{"Phone", "Phone with its backlight on", "Phone with its LED on",
                                             "Phone with its LED and backlight on"};

}  // namespace

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  picture_.paint(&painter, rect());
}

PhoneDisplay::PhoneDisplay(QWidget* parent)
    : QGroupBox(QStringLiteral("Phone"), parent), area_(new QWidget(this)), lblFrequency_(new QLabel(this)) {
  area_->setFixedSize(kPhone.width() + kJitter, kPhone.height() + kJitter);
  for (int i = 0; i < static_cast<int>(imageMS_.size()); ++i) {
    auto* picture = new PictureWidget(Picture(QStringLiteral("phone_%1").arg(i)), area_);
    NameControl(*picture, IndexedName("ImageMS", i), {{}, QLatin1String(kSpoken.at(static_cast<size_t>(i)))});
    picture->setGeometry(QRect(QPoint(kJitter / 2, kJitter / 2), kPhone));
    imageMS_.at(static_cast<size_t>(i)) = picture;
  }
  auto* column = new QVBoxLayout(this);
  column->addWidget(area_, 1, Qt::AlignCenter);
  column->addLayout(NewFrequencyRow());
  connect(&timer_, &QTimer::timeout, this, &PhoneDisplay::Vibrate);
  ShowPicture(0);
}

QLayout* PhoneDisplay::NewFrequencyRow() {
  NameControl(*lblFrequency_, QStringLiteral("lblFrequency"),
              {{}, QStringLiteral("Frequency of the tone in hertz")});
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(lblFrequency_);
  row->addWidget(new QLabel(QStringLiteral("Hz"), this));
  row->addStretch();
  ShowFrequency("0");
  return row;
}

void PhoneDisplay::ShowFrequency(std::string_view text) { lblFrequency_->setText(ToQString(text)); }

void PhoneDisplay::ShowPicture(int picture) {
  for (int i = 0; i < static_cast<int>(imageMS_.size()); ++i) {
    imageMS_.at(static_cast<size_t>(i))->setVisible(i == picture);
  }
}

void PhoneDisplay::StartVibration() { timer_.start(TimerInterval(kVibrationTimer)); }

void PhoneDisplay::StopVibration() { timer_.stop(); }

void PhoneDisplay::Vibrate() {
  std::minstd_rand generator(std::random_device{}());
  std::uniform_real_distribution<double> random(0, 1);
  const double left = random(generator);
  const VibrationSpot spot = RandomVibrationSpot(left, random(generator));
  for (PictureWidget* picture : imageMS_) picture->move(spot.left - kOrigin.left, spot.top - kOrigin.top);
}

}  // namespace trillomat
