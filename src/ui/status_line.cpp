#include "ui/status_line.h"

#include <QAccessible>
#include <utility>

#include "composer/element_words.h"
#include "playback/element_sound.h"
#include "ui/accessible_parts.h"
#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

QString TimeText(int64_t ticks, int32_t bpm) {
  return MinutesText(static_cast<double>(ticks) * BeatLength(bpm) / kTicksPerBeat);
}

}  // namespace

StatusLine::StatusLine(QStatusBar& bar, const Document& document, const StripTimes& times)
    : QObject(&bar),
      bar_(bar),
      document_(document),
      times_(times),
      format_(NewPart("lblFormat", "Format of the melody", 0)),
      position_(NewPart("lblPosition", "Element at the cursor and length of the melody", 0)),
      element_(NewPart("lblElement", "Element at the cursor", 1)),
      state_(NewPart("lblState", "Whether the melody is saved", 0)) {
  bar_.setSizeGripEnabled(false);
  // A long text must not widen the window.
  element_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QLabel* StatusLine::NewPart(const char* name, const char* tip, int stretch) {
  QLabel* part = NewLabel(QLatin1String(name), {}, nullptr, &bar_);
  part->setToolTip(QLatin1String(tip));
  part->setContentsMargins(6, 0, 6, 0);
  bar_.addWidget(part, stretch);
  return part;
}

void StatusLine::ShowState() {
  ShowSpoken(*format_, QStringLiteral("Format"), ToQString(LimitsOf(document_.Mode()).caption));
  ShowSpoken(*position_, QStringLiteral("Position"), PositionText());
  ShowSpoken(*element_, QStringLiteral("Element"), ElementText());
  ShowSpoken(*state_, QStringLiteral("Saved or not"),
             document_.IsChanged()      ? QStringLiteral("Not saved")
             : document_.File().empty() ? QString()
                                        : QStringLiteral("Saved"));
}

void StatusLine::SpeakElement() {
  if (!QAccessible::isActive()) return;
  const bool one = document_.HasElement(document_.Cursor()) && document_.Selection().Size() <= 1;
  QString words = ElementText();
  if (one) words += QStringLiteral("; %1 of %2").arg(document_.Cursor() + 1).arg(document_.LastIndex() + 1);
  if (std::exchange(spoken_, words) != words && !words.isEmpty()) Speak(bar_, words);
}

void StatusLine::Show(const QString& text) { bar_.showMessage(ShownName(text.toStdString())); }

void StatusLine::Say(const QString& text) {
  const QString before = bar_.currentMessage();
  Show(text);
  if (!text.isEmpty() && bar_.currentMessage() != before) Speak(bar_, bar_.currentMessage());
}

QString StatusLine::PositionText() const {
  if (document_.IsEmpty()) return QStringLiteral("No elements");
  const int32_t bpm = document_.Info().bpm;
  const int32_t place = document_.Cursor() + 1;
  const QString where = place == 0 ? QStringLiteral("Before 1") : QStringLiteral("Element %L1").arg(place);
  return QStringLiteral("%1 of %L2, %3 of %4")
      .arg(where)
      .arg(document_.LastIndex() + 1)
      .arg(TimeText(times_.Before(place).ticks, bpm), TimeText(times_.Total().ticks, bpm));
}

QString StatusLine::ElementText() const {
  if (document_.IsEmpty()) return {};
  const ElementRange selected = document_.Selection();
  if (selected.Size() > 1) return QStringLiteral("%L1 elements selected").arg(selected.Size());
  if (!document_.HasElement(document_.Cursor())) return QStringLiteral("Before the first element");
  return ToQString(ElementWords(document_.At(document_.Cursor()), document_.Info().bpm));
}

}  // namespace trillomat
