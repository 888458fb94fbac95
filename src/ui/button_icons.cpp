#include "ui/button_icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QPalette>

namespace trillomat {
namespace {

// A shape in a square from -0.5 to 0.5.
class ShapeEngine : public QIconEngine {
 public:
  explicit ShapeEngine(const QPainterPath& shape) : shape_(shape) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QApplication::palette().color(group, QPalette::ButtonText));
    painter->translate(QRectF(rect).center());
    painter->scale(rect.width(), rect.height());
    painter->drawPath(shape_);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new ShapeEngine(shape_); }

 private:
  QPainterPath shape_;
};

}  // namespace

QIcon ArrowIcon(Qt::ArrowType direction) {
  const double side = direction == Qt::LeftArrow ? -1 : 1;
  QPainterPath arrow;
  arrow.addPolygon(QPolygonF({{-0.28 * side, -0.38}, {0.38 * side, 0.0}, {-0.28 * side, 0.38}}));
  return QIcon(new ShapeEngine(arrow));
}

QIcon CrossIcon() {
  QPainterPath lines;
  for (const double side : {-1.0, 1.0}) {
    lines.moveTo(-0.3 * side, -0.3);
    lines.lineTo(0.3 * side, 0.3);
  }
  QPainterPathStroker pen;
  pen.setWidth(0.14);
  return QIcon(new ShapeEngine(pen.createStroke(lines)));
}

}  // namespace trillomat
