// The one place for what the program says without a box: a line above the melody, with up to two buttons. It
// goes when it no longer applies, or by its own small button.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <array>
#include <functional>
#include <vector>

namespace trillomat {

/// What the bar says, and what can be done about it.
struct BarMessage {
  struct Action {
    QString caption;
    std::function<void()> run;
    bool stays = false;  ///< the message stays until something else is said
  };

  QString text;                      ///< plain text; empty for nothing to say
  std::vector<Action> actions = {};  ///< at most two; the bar has gone when one runs, unless that stays
};

class MessageBar : public QFrame {
  Q_OBJECT

 public:
  explicit MessageBar(QWidget* parent);

  /// Shows `message` in the place of the one before, and has screen readers speak it; without a text, hides
  /// the bar.
  void Say(BarMessage message);
  const BarMessage& Said() const { return message_; }
  /// Enables or disables the buttons of its actions; the one that closes it always works.
  void EnableActions(bool enable);

  /// Else the height of a long message would follow the width, which changes as scroll bars come and go.
  bool hasHeightForWidth() const override { return false; }

 signals:
  /// The user has closed it.
  void Closed();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Run(size_t action);

  BarMessage message_;
  QLabel* text_;
  std::array<QPushButton*, 2> actions_{};
  QToolButton* close_;
};

}  // namespace trillomat
