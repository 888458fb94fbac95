#include "ui/accessible_parts.h"

#include <QAccessibleWidget>

#include "ui/message_bar.h"
#include "ui/note_strip.h"
#include "ui/phone_display.h"

namespace trillomat {
namespace {

// The name, and as description what the strip shows at the cursor, put into words when somebody asks.
class StripAccessible : public QAccessibleWidget {
 public:
  explicit StripAccessible(NoteStrip& strip)
      : QAccessibleWidget(&strip, QAccessible::Canvas), strip_(strip) {}

  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Description ? strip_.Words() : QAccessibleWidget::text(which);
  }

 private:
  const NoteStrip& strip_;
};

// Screen readers speak a notification when it is shown, wherever the focus is.
class BarAccessible : public QAccessibleWidget {
 public:
  explicit BarAccessible(MessageBar& bar) : QAccessibleWidget(&bar, QAccessible::Notification), bar_(bar) {}

  QString text(QAccessible::Text which) const override {
    const QString& said = bar_.Said().text;
    return which == QAccessible::Name && !said.isEmpty() ? said : QAccessibleWidget::text(which);
  }

 private:
  const MessageBar& bar_;
};

// What was spoken last for a status bar. The toolkit does not tell screen readers that the name or
// description of a widget has changed, so this, too, is a notification that is shown.
class SpokenText : public QAccessibleInterface {
 public:
  explicit SpokenText(QStatusBar& bar) : bar_(bar) {}

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&bar_); }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Name ? text_ : QString();
  }
  void setText(QAccessible::Text /*which*/, const QString& text) override { text_ = text; }
  QRect rect() const override { return parent()->rect(); }
  QAccessible::Role role() const override { return QAccessible::Notification; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = text_.isEmpty() || !bar_.isVisible();
    return state;
  }

 private:
  QStatusBar& bar_;
  QString text_;
};

// Has the spoken text as its last child, behind the widgets of the bar.
class StatusBarAccessible : public QAccessibleWidget {
 public:
  explicit StatusBarAccessible(QStatusBar& bar)
      : QAccessibleWidget(&bar, QAccessible::StatusBar),
        bar_(bar),
        spoken_(new SpokenText(bar)),
        id_(QAccessible::registerAccessibleInterface(spoken_)) {}
  ~StatusBarAccessible() override { QAccessible::deleteAccessibleInterface(id_); }
  StatusBarAccessible(const StatusBarAccessible&) = delete;
  StatusBarAccessible& operator=(const StatusBarAccessible&) = delete;

  int childCount() const override { return QAccessibleWidget::childCount() + 1; }
  QAccessibleInterface* child(int index) const override {
    const bool last = index == QAccessibleWidget::childCount();
    return last ? spoken_ : QAccessibleWidget::child(index);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child == spoken_ ? QAccessibleWidget::childCount() : QAccessibleWidget::indexOfChild(child);
  }
  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Name ? bar_.currentMessage() : QAccessibleWidget::text(which);
  }

 private:
  QStatusBar& bar_;
  QAccessibleInterface* spoken_;  ///< owned by the toolkit once it is registered
  QAccessible::Id id_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  if (auto* strip = qobject_cast<NoteStrip*>(object)) return new StripAccessible(*strip);
  if (auto* bar = qobject_cast<MessageBar*>(object)) return new BarAccessible(*bar);
  if (auto* bar = qobject_cast<QStatusBar*>(object)) return new StatusBarAccessible(*bar);
  if (auto* picture = dynamic_cast<PictureWidget*>(object)) {
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  }
  return nullptr;
}

void AnnounceInterface(QAccessibleInterface* part) {
  for (const auto event : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
    QAccessibleEvent told(part, event);
    QAccessible::updateAccessibility(&told);
  }
}

}  // namespace

void InstallAccessibleParts() {
  QAccessible::removeFactory(MakeInterface);
  QAccessible::installFactory(MakeInterface);
}

void Announce(QWidget& messageBar) {
  if (QAccessible::isActive()) AnnounceInterface(QAccessible::queryAccessibleInterface(&messageBar));
}

void Speak(QStatusBar& bar, const QString& text) {
  if (!QAccessible::isActive()) return;
  QAccessibleInterface* about = QAccessible::queryAccessibleInterface(&bar);
  QAccessibleInterface* spoken = about->child(about->childCount() - 1);
  spoken->setText(QAccessible::Name, text);
  AnnounceInterface(spoken);
}

}  // namespace trillomat
