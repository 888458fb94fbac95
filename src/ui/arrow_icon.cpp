#include "ui/arrow_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace trillomat {
namespace {

class ArrowEngine : public QIconEngine {
 public:
  explicit ArrowEngine(Qt::ArrowType direction) : direction_(direction) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QApplication::palette().color(group, QPalette::ButtonText));
    painter->translate(QRectF(rect).center());
    painter->scale(direction_ == Qt::LeftArrow ? -rect.width() : rect.width(), rect.height());
    painter->drawPolygon(QPolygonF({{-0.28, -0.38}, {0.38, 0.0}, {-0.28, 0.38}}));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new ArrowEngine(direction_); }

 private:
  Qt::ArrowType direction_;
};

}  // namespace

QIcon ArrowIcon(Qt::ArrowType direction) { return QIcon(new ArrowEngine(direction)); }

}  // namespace trillomat
