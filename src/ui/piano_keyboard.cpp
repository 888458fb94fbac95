#include "ui/piano_keyboard.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <utility>

#include "ui/colours.h"
#include "ui/controls.h"
#include "ui/key_table.h"

namespace trillomat {
namespace {

constexpr int kWhiteKeys = 7;
constexpr int kWidestKey = 84;
constexpr double kBlackHeight = 0.6;  // of a white key's

struct KeyPlace {
  const char* spoken;
  char name;         ///< what stands at the foot of a white key, 0 on a black one
  double whiteLeft;  ///< left edge of a white key, middle of a black one, in widths of a white key
};

// The black keys stand a little off the gaps between the white ones, as on a real keyboard.
constexpr std::array<KeyPlace, 12> kPlaces{{{"C", 'C', 0},
                                            {"C sharp", 0, 0.93},
                                            {"D", 'D', 1},
                                            {"D sharp", 0, 2.07},
                                            {"E", 'E', 2},
                                            {"F", 'F', 3},
                                            {"F sharp", 0, 3.90},
                                            {"G", 'G', 4},
                                            {"G sharp", 0, 5.0},
                                            {"A", 'A', 5},
                                            {"A sharp", 0, 6.10},
                                            {"B", 'B', 6}}};

const KeyPlace& PlaceOf(int tone) { return kPlaces.at(static_cast<size_t>(tone)); }

// White keys are white and black keys black in a dark palette, too.
QColor Lighter(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  return base.lightness() > text.lightness() ? base : text;
}

QColor Darker(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  return base.lightness() > text.lightness() ? text : base;
}

}  // namespace

PianoKey::PianoKey(int tone, QWidget* parent)
    : QAbstractButton(parent),
      black_(PlaceOf(tone).name == 0),
      letter_(KeyName(KeyCommand::Tones, tone).toLower()),
      above_(KeyName(KeyCommand::TonesAbove, tone).toLower()) {
  const KeyPlace& place = PlaceOf(tone);
  const QString spoken = QString::fromLatin1(place.spoken);
  NameControl(*this, IndexedName("cmdTone", tone),
              {{},
               QStringLiteral("Insert ") + spoken,
               QStringLiteral("%1 (key %2; an octave higher: key %3)")
                   .arg(spoken, letter_.toUpper(), above_.toUpper())});
  if (!black_) setText(QStringLiteral("\r\n\r\n\r\n") + QLatin1Char(place.name));
  setFocusPolicy(Qt::TabFocus);
}

void PianoKey::SetSounding(bool sounding) {
  if (std::exchange(sounding_, sounding) != sounding) update();
}

// A key that sounds is lit, though it be locked while the melody plays.
QColor PianoKey::Face() const {
  if (sounding_) return palette().color(QPalette::Active, QPalette::Highlight);
  const QColor colour = black_ ? Darker(palette()) : Lighter(palette());
  if (isDown()) return Mix(colour, palette().color(QPalette::Highlight), 0.6);
  if (!isEnabled()) return Mix(colour, palette().color(QPalette::Window), 0.5);
  return underMouse() ? Mix(colour, palette().color(QPalette::Highlight), 0.2) : colour;
}

QColor PianoKey::Ink() const {
  const QColor ink = black_ ? Lighter(palette()) : Darker(palette());
  if (sounding_ || isEnabled()) return WithContrast(ink, Face(), kReadable);
  return Mix(ink, Face(), 0.5);
}

void PianoKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintFace(painter);
  PaintLetters(painter);
  if (sounding_) PaintMark(painter);
}

void PianoKey::PaintFace(QPainter& painter) const {
  const double round = 4;
  // The top corners lie above the widget, so that only the foot is rounded.
  const QRectF face = QRectF(rect()).adjusted(0.5, -round, -0.5, -0.5);
  const QColor window = palette().color(QPalette::Window);
  const QColor edge = WithContrast(Mix(Darker(palette()), window, 0.4), Lighter(palette()), kVisible);
  painter.setPen(QPen(edge, 1));
  painter.setBrush(Face());
  painter.drawRoundedRect(face, round, round);
  painter.drawLine(QPointF(face.left(), 0.5), QPointF(face.right(), 0.5));
  if (!hasFocus()) return;
  painter.setPen(QPen(WithContrast(palette().color(QPalette::Highlight), Face(), kVisible), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), round, round);
}

void PianoKey::PaintLetters(QPainter& painter) const {
  QFont small = font();
  small.setPointSizeF(font().pointSizeF() * 0.85);
  const int line = QFontMetrics(font()).height();
  painter.setPen(Ink());
  QRect foot = rect().adjusted(0, 0, 0, -line / 3);
  if (!black_) {
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(foot, Qt::AlignHCenter | Qt::AlignBottom, text().trimmed());
    foot.adjust(0, 0, 0, -line);
  }
  painter.setFont(small);
  const QColor soft = Mix(Ink(), Face(), 0.35);
  painter.setPen(isEnabled() || sounding_ ? WithContrast(soft, Face(), kReadable) : soft);
  painter.drawText(foot, Qt::AlignHCenter | Qt::AlignBottom, letter_ + QLatin1Char(' ') + above_);
}

// Tells a key that sounds from the others without colour. On a white key it is between the black ones and the
// letters.
void PianoKey::PaintMark(QPainter& painter) const {
  const double letters = height() - 2.5 * QFontMetrics(font()).height();
  const double middle = black_ ? letters / 2 : (height() * kBlackHeight + letters) / 2;
  const double room = black_ ? letters : letters - height() * kBlackHeight;
  const double radius = std::max(3.0, std::min(room * 0.4, width() * 0.16));
  painter.setPen(Qt::NoPen);
  painter.setBrush(Ink());
  painter.drawEllipse(QPointF(width() / 2.0, middle), radius, radius);
}

PianoKeyboard::PianoKeyboard(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMaximumWidth(kWhiteKeys * kWidestKey);
  for (int tone = 0; tone < static_cast<int>(keys_.size()); ++tone) {
    auto* key = new PianoKey(tone, this);
    connect(key, &QAbstractButton::clicked, this, [this, tone] { emit Pressed(tone); });
    keys_.at(static_cast<size_t>(tone)) = key;
  }
  for (PianoKey* key : keys_) {
    if (key->IsBlack()) key->raise();
  }
}

void PianoKeyboard::EnableKeys(bool enable) {
  for (PianoKey* key : keys_) key->setEnabled(enable);
}

void PianoKeyboard::ShowSounding(std::optional<int> tone) {
  if (sounding_) keys_.at(static_cast<size_t>(*sounding_))->SetSounding(false);
  sounding_ = tone;
  if (sounding_) keys_.at(static_cast<size_t>(*sounding_))->SetSounding(true);
}

void PianoKeyboard::resizeEvent(QResizeEvent* /*event*/) {
  const double white = static_cast<double>(width()) / kWhiteKeys;
  const double black = white * 0.6;
  for (size_t tone = 0; tone < keys_.size(); ++tone) {
    const double at = kPlaces.at(tone).whiteLeft * white;
    const int left = qRound(keys_.at(tone)->IsBlack() ? at - black / 2 : at);
    const int right = qRound(keys_.at(tone)->IsBlack() ? at + black / 2 : at + white);
    const int bottom = keys_.at(tone)->IsBlack() ? qRound(height() * kBlackHeight) : height();
    keys_.at(tone)->setGeometry(left, 0, right - left, bottom);
  }
}

}  // namespace trillomat
