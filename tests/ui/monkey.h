// A monkey at the main window: it presses, types, drags, drops, triggers, opens and closes whatever comes to
// hand.
#pragma once

#include <QFileDialog>

#include "support/dice.h"
#include "support/file_mischief.h"
#include "support/temp_folder.h"
#include "ui/main_window.h"
#include "ui/monkey_drag.h"

namespace trillomat {

class Monkey {
 public:
  /// It opens and drops the files of `folder` alone, which `files` names, and leads dialogs nowhere else.
  Monkey(Dice& dice, FileMischief& files, const TempFolder& folder)
      : dice_(dice), files_(files), folder_(folder), drag_(dice) {}

  /// Does one thing to the modal window or menu in front, or else to `window`.
  void Act(MainWindow& window);
  /// Lets go of what it drags, as it has to before a window goes that is no dialog.
  void LetGo() { drag_.End(); }

  /// Drags that ended in a drop that was taken.
  int Drops() const { return drag_.Drops(); }

  bool mayClose = true;  ///< the main window
  int events = 0;
  int drags = 0;  ///< that began
  int files = 0;  ///< that a file dialog was left with
  int largestDepth = 0;
  int depth = 0;

 private:
  void ActOn(MainWindow& window);
  void ActInFront(QWidget& front);
  void ActInFileDialog(QFileDialog& dialog);
  void LeaveFileDialog(QFileDialog& dialog);
  void TypeText(QLineEdit& box);
  void PressKey(MainWindow& window);
  void UseStrip(const MainWindow& window);
  void TriggerItem(const MainWindow& window);
  void UseList(const MainWindow& window);
  void MoveSlider(const MainWindow& window);
  void UseClipboard();
  void Drag(QWidget& window);

  Dice& dice_;
  FileMischief& files_;
  const TempFolder& folder_;
  MonkeyDrag drag_;
};

}  // namespace trillomat
