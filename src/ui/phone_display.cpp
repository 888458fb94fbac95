#include "ui/phone_display.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <random>

#include "ui/controls.h"
#include "ui/qt_text.h"
#include "ui/resources.h"

namespace trillomat {
namespace {

// The size of the drawings, and the width of the square that they jump within, at their first size.
constexpr QSizeF kPhone(96, 168);
constexpr double kJitter = 81;
constexpr std::chrono::milliseconds kJumpInterval(100);

constexpr std::array<const char*, 4> kSpoken{"Phone", "Phone with its backlight on", "Phone with its LED on",
                                             "Phone with its LED and backlight on"};

}  // namespace

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull()) picture_ = Picture(name_);
  QPainter painter(this);
  picture_.paint(&painter, rect());
}

PhonePictures::PhonePictures(QWidget* parent) : QWidget(parent) {
  for (int i = 0; i < static_cast<int>(pictures_.size()); ++i) {
    auto* picture = new PictureWidget(QStringLiteral("phone_%1").arg(i), this);
    NameControl(*picture, IndexedName("ImageMS", i), {{}, QLatin1String(kSpoken.at(static_cast<size_t>(i)))});
    pictures_.at(static_cast<size_t>(i)) = picture;
  }
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  PutInTheMiddle();
}

QSize PhonePictures::sizeHint() const { return (kPhone + QSizeF(kJitter, kJitter)).toSize(); }

void PhonePictures::Show(int picture) {
  for (int i = 0; i < static_cast<int>(pictures_.size()); ++i) {
    pictures_.at(static_cast<size_t>(i))->setVisible(i == picture);
  }
}

void PhonePictures::PutAtRandom() {
  std::minstd_rand generator(std::random_device{}());
  std::uniform_real_distribution<double> random(0, kJitter);
  const double left = std::floor(random(generator));
  spot_ = QPointF(left, std::floor(random(generator)));
  Place();
}

void PhonePictures::PutInTheMiddle() {
  spot_ = QPointF(kJitter / 2, kJitter / 2);
  Place();
}

void PhonePictures::resizeEvent(QResizeEvent* /*event*/) { Place(); }

// The size is rounded apart from the corner, so that it is the same wherever the phone jumps.
void PhonePictures::Place() {
  const QSizeF needed(sizeHint());
  const double scale = std::min(width() / needed.width(), height() / needed.height());
  const QSizeF margin = (QSizeF(size()) - needed * scale) / 2;
  const QPointF corner = QPointF(margin.width(), margin.height()) + spot_ * scale;
  const QSize phone(static_cast<int>(kPhone.width() * scale), static_cast<int>(kPhone.height() * scale));
  for (PictureWidget* picture : pictures_) picture->setGeometry(QRect(corner.toPoint(), phone));
}

PhoneDisplay::PhoneDisplay(QWidget* parent)
    : QGroupBox(QStringLiteral("Phone"), parent),
      pictures_(new PhonePictures(this)),
      frequency_(new QLabel(this)) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(pictures_, 1);
  column->addLayout(NewFrequencyRow());
  connect(&timer_, &QTimer::timeout, this, [this] { pictures_->PutAtRandom(); });
  ShowPicture(0);
  ShowFrequency("0");
}

// Both labels are as wide as the longest frequency, so that showing one moves nothing.
QLayout* PhoneDisplay::NewFrequencyRow() {
  frequency_->setObjectName(QStringLiteral("lblFrequency"));
  frequency_->setToolTip(QStringLiteral("Frequency of the tone in hertz"));
  frequency_->setTextFormat(Qt::PlainText);
  frequency_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* unit = new QLabel(QStringLiteral("Hz"), this);
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QLabel* label : {frequency_, unit}) {
    label->setMinimumWidth(QFontMetrics(font()).horizontalAdvance(QStringLiteral("00000")));
    row->addWidget(label);
  }
  row->addStretch();
  return row;
}

void PhoneDisplay::ShowFrequency(std::string_view text) {
  ShowSpoken(*frequency_, QStringLiteral("Frequency of the tone in hertz"), ToQString(text));
}

void PhoneDisplay::Vibrate(bool on) {
  if (on) return timer_.start(kJumpInterval);
  timer_.stop();
  pictures_->PutInTheMiddle();
}

}  // namespace trillomat
