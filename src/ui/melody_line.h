// The melody as one line of text, split at the cursor into two boxes.
#pragma once

#include <QLineEdit>
#include <QWidget>

#include "composer/melody_text.h"

namespace trillomat {

class MelodyLine : public QWidget {
  Q_OBJECT

 public:
  explicit MelodyLine(QWidget* parent);

  /// Shows both halves, scrolled to where they meet.
  void ShowMelody(const MelodyText& text);
  /// Gives the melody the focus.
  void TakeFocus() { right_->setFocus(Qt::OtherFocusReason); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QLineEdit* NewHalf(const char* name, const char* spoken);

  QLineEdit* left_;
  QLineEdit* right_;
};

}  // namespace trillomat
