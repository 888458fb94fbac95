// One octave of a piano: the twelve note buttons, white keys tall, black keys over and between them.
#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <array>
#include <optional>

namespace trillomat {

class PianoKey : public QAbstractButton {
  Q_OBJECT

 public:
  /// `tone`: 0 for c to 11 for b.
  PianoKey(int tone, QWidget* parent);

  bool IsBlack() const { return black_; }
  /// Lights the key, or puts it out.
  void SetSounding(bool sounding);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintFace(QPainter& painter) const;
  void PaintLetters(QPainter& painter) const;
  void PaintMark(QPainter& painter) const;
  QColor Face() const;
  QColor Ink() const;

  bool black_;
  bool sounding_ = false;
  QString letter_;  ///< of the computer keyboard
  QString above_;   ///< the letter for the same tone an octave higher
};

class PianoKeyboard : public QWidget {
  Q_OBJECT

 public:
  explicit PianoKeyboard(QWidget* parent);

  QSize sizeHint() const override { return {392, 180}; }
  QSize minimumSizeHint() const override { return {308, 120}; }
  void EnableKeys(bool enable);
  /// Lights the key of `tone` and puts out the one before; nothing lights none.
  void ShowSounding(std::optional<int> tone);

 signals:
  /// Key `tone` was pressed, 0 for c to 11 for b.
  void Pressed(int tone);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::array<PianoKey*, 12> keys_{};
  std::optional<int> sounding_;
};

}  // namespace trillomat
