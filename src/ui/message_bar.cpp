#include "ui/message_bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>
#include <utility>

#include "ui/accessible_parts.h"
#include "ui/button_icons.h"
#include "ui/colours.h"
#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent),
      text_(NewLabel(QStringLiteral("lblMessage"), {}, nullptr, this)),
      close_(new QToolButton(this)) {
  NameControl(*this, QStringLiteral("messageBar"), {{}, QStringLiteral("Message")});
  text_->setWordWrap(true);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(10, 3, 3, 3);
  row->addWidget(text_, 1);
  for (size_t i = 0; i < actions_.size(); ++i) {
    actions_.at(i) = NewButton(IndexedName("messageAction", static_cast<int>(i)), {}, this);
    connect(actions_.at(i), &QPushButton::clicked, this, [this, i] { Run(i); });
    row->addWidget(actions_.at(i));
  }
  NameControl(*close_, QStringLiteral("messageClose"),
              {{}, QStringLiteral("Close the message"), QStringLiteral("Close")});
  close_->setIcon(CrossIcon());
  close_->setAutoRaise(true);
  close_->setFocusPolicy(Qt::TabFocus);
  connect(close_, &QToolButton::clicked, this, [this] {
    Say({});
    emit Closed();
  });
  row->addWidget(close_);
  hide();
}

void MessageBar::Say(BarMessage message) {
  message_ = std::move(message);
  text_->setText(ShownMessage(message_.text));
  for (size_t i = 0; i < actions_.size(); ++i) {
    const bool used = i < message_.actions.size();
    actions_.at(i)->setVisible(used);
    if (!used) continue;
    actions_.at(i)->setText(message_.actions[i].caption);
    actions_.at(i)->setAccessibleName(message_.actions[i].caption.simplified().remove(QLatin1Char('&')));
  }
  const bool shown = isVisible();
  setVisible(!message_.text.isEmpty());
  if (message_.text.isEmpty() || !QAccessible::isActive()) return;
  if (shown) Announce(*this);  // else setVisible has done so
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void MessageBar::EnableActions(bool enable) {
  for (QPushButton* action : actions_) action->setEnabled(enable);
}

// The message goes before its action runs, because the action may show a message of its own.
void MessageBar::Run(size_t action) {
  const auto chosen = message_.actions.at(action);
  if (!chosen.stays) Say({});
  chosen.run();
}

// In the colour of what is selected, thinned by that of the window, so that it is seen in any palette.
void MessageBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor accent = palette().color(QPalette::Highlight);
  const QColor face = Mix(palette().color(QPalette::Window), accent, 0.15);
  painter.setPen(QPen(WithContrast(accent, face, kVisible), 1));
  painter.setBrush(face);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

}  // namespace trillomat
