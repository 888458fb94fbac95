// The melody as one line of text, split at the cursor into two boxes.
#pragma once

#include <QLineEdit>
#include <QWidget>

#include "composer/melody_text_view.h"

namespace trillomat {

/// What a key pressed on the melody asks for.
enum class MelodyKey { Left, Right, EraseLeft, EraseRight, PlayOrStop, ToStart, ToEnd };

class MelodyLine : public QWidget {
  Q_OBJECT

 public:
  explicit MelodyLine(QWidget* parent);

  void ShowMelody(const MelodyViewText& text);
  /// Gives the melody the focus.
  void TakeFocus() { txtRight_->setFocus(Qt::OtherFocusReason); }
  QWidget* FirstInTabOrder() const { return txtLeft_; }

 signals:
  /// A key was pressed while the melody had the focus. `repeated`: by holding it down.
  void KeyPressed(MelodyKey key, bool repeated);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QLineEdit* NewHalf(const char* name, const char* spoken);

  QLineEdit* txtLeft_;
  QLineEdit* txtRight_;
};

}  // namespace trillomat
