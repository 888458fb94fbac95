// Questions to a monkey: some it answers in the real boxes, others are answered at once.
#pragma once

#include "support/dice.h"
#include "ui/main_window_fixture.h"
#include "ui/questions.h"

namespace trillomat {

class MonkeyQuestions : public FakeQuestions {
 public:
  explicit MonkeyQuestions(Dice& dice) : dice_(dice) {}

  std::optional<std::filesystem::path> AskSavePath(QWidget* parent, const SaveDialog& dialog) override {
    return Shows() ? boxes_.AskSavePath(parent, dialog) : FakeQuestions::AskSavePath(parent, dialog);
  }
  std::optional<std::filesystem::path> AskOpenPath(QWidget* parent, const OpenDialog& dialog) override {
    return Shows() ? boxes_.AskOpenPath(parent, dialog) : FakeQuestions::AskOpenPath(parent, dialog);
  }
  bool AskYesNo(QWidget* parent, const QString& title, const QString& question) override {
    return Shows() ? boxes_.AskYesNo(parent, title, question)
                   : FakeQuestions::AskYesNo(parent, title, question);
  }
  std::optional<int> AskTrack(QWidget* parent, const QStringList& asked, int proposed) override {
    return Shows() ? boxes_.AskTrack(parent, asked, proposed)
                   : FakeQuestions::AskTrack(parent, asked, proposed);
  }

  bool mayShow = true;
  int shown = 0;

 private:
  bool Shows() {
    const bool shows = mayShow && dice_.OneIn(2);
    if (shows) ++shown;
    return shows;
  }

  Dice& dice_;
  QtQuestions boxes_;
};

}  // namespace trillomat
