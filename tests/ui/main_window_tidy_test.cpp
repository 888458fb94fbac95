// What the message bar offers for a text that was refused or not wholly understood, and tidying an import.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>
#include <deque>
#include <memory>

#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kSlips = "Slips:d=4,o=5,b=100:8c_,d,e";

class MainWindowTidy : public MainWindowTest {
 protected:
  MainWindowTidy() {
    SetToggle("mnuSettingAutoPlay", false);
    QObject::connect(&answers_, &QTimer::timeout, &window, [this] { AnswerNext(); });
    answers_.start(0);
    folder.Write("clean.imy", Tune("c2d2"));
    folder.Write("blank.imy", Tune("e2f2") + "\r\n");
    folder.Write("rtttl.imy", "Tune:d=4,o=5,b=100:c,8e");
    folder.Write("slips.rtx", kSlips);
    folder.Write("many.rtx", "One:d=4,o=5,b=100:c,d\r\nTwo:d=4,o=5,b=100:e_,f,g\r\n");
  }
  ~MainWindowTidy() override { EXPECT_TRUE(queue_.empty()) << "a window did not come"; }

  using AnswerTo = std::function<void(const QWidget& dialog)>;
  /// What is done in the modal window that comes next, and in those that come after that.
  void Answer(AnswerTo answer) { queue_.push_back(std::move(answer)); }
  void AnswerTune(int row, const char* button) {
    Answer([row, button](const QWidget& dialog) {
      EXPECT_EQ(dialog.objectName(), "frmTunes");
      Find<QListWidget>(dialog, "lstTunes").setCurrentRow(row);
      Find<QPushButton>(dialog, button).click();
    });
  }
  void AnswerImport(const QString& text, bool tidy, int format = 0) {
    Answer([=](const QWidget& dialog) {
      Find<QRadioButton>(dialog, IndexedName("optImport", format)).setChecked(true);
      Find<QPlainTextEdit>(dialog, "txtSource").setPlainText(text);
      Find<QCheckBox>(dialog, "chkTidy").setChecked(tidy);
      Find<QPushButton>(dialog, "cmdImport").click();
    });
  }
  void Import(const QString& text, bool tidy, int format = 0) {
    AnswerImport(text, tidy, format);
    Press("cmdImport");
  }
  std::string Notice() const { return NoticeText().toStdString(); }
  std::string Offered() const {
    const auto& button = Get<QPushButton>("messageAction(0)");
    return button.isHidden() ? "" : button.text().toStdString();
  }
  void TakeOffer() { Press("messageAction(0)"); }

 private:
  void AnswerNext() {
    const QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || queue_.empty() || waits_) return;
    const AnswerTo answer = std::move(queue_.front());
    queue_.pop_front();
    // By a timer of its own: one does not run inside what it runs, and one window can open another.
    QTimer& timer = *timers_.emplace_back(std::make_unique<QTimer>());
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &window, [this, answer, dialog] {
      waits_ = false;
      answer(*dialog);
    });
    waits_ = true;
    timer.start(0);
  }

  QTimer answers_;
  std::vector<std::unique_ptr<QTimer>> timers_;
  std::deque<AnswerTo> queue_;
  bool waits_ = false;  ///< an answer does, for its timer
};

TEST_F(MainWindowTidy, ARefusedFileIsOpenedTidiedAsASongOfItsOwn) {
  window.OpenFile(folder / "clean.imy");
  window.OpenFile(folder / "blank.imy");
  EXPECT_EQ(
      Notice(),
      "Not opened: blank.imy, line 7, column 1: the line has no \":\" (an empty line). Each line begins "
      "with a tag and \":\", like \"NAME:Tune\". Tidied, it can be read.");
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  EXPECT_EQ(Offered(), "Open tidied");
  TakeOffer();
  EXPECT_EQ(Shown(), "|*4e2 *4f2");
  EXPECT_EQ(document.File(), "");
  EXPECT_TRUE(document.IsChanged());
  EXPECT_EQ(Action("mnuEditUndo").text().remove('&'), "Undo opening tidied");
  EXPECT_EQ(Notice(), "Opened tidied, with 2 changes");
  EXPECT_EQ(Offered(), "Show the changes");
  for (int times = 0; times < 2; ++times) {
    TakeOffer();
    EXPECT_THAT(Get<QPlainTextEdit>("txtChanges").toPlainText().toStdString(),
                HasSubstr("\nline 7, column 1: "));
    EXPECT_TRUE(Get<QPlainTextEdit>("txtChanges").isReadOnly());
    EXPECT_EQ(Notice(), "Opened tidied, with 2 changes") << "the list can be looked at again";
  }
  EXPECT_EQ(window.findChildren<QDialog*>("frmChanges").size(), 1);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  EXPECT_EQ(document.File(), folder / "clean.imy");
}

TEST_F(MainWindowTidy, AFileThatLooksLikeAnotherFormatIsOfferedAsThat) {
  window.OpenFile(folder / "rtttl.imy");
  EXPECT_THAT(Notice(), HasSubstr("The text looks like RTTTL"));
  EXPECT_EQ(Offered(), "Open as RTTTL");
  TakeOffer();
  EXPECT_EQ(document.Mode(), FormatMode::Rtttl);
  EXPECT_EQ(TokensOf(document.Elements()), "*3c2*3e3");
  EXPECT_EQ(document.File(), "");
  EXPECT_EQ(Notice(), "Opened as RTTTL");
}

TEST_F(MainWindowTidy, AFileWithSlipsOpensAndIsOfferedTidied) {
  window.OpenFile(folder / "slips.rtx");
  EXPECT_EQ(document.File(), folder / "slips.rtx");
  EXPECT_EQ(Notice(),
            "1 of 3 elements was not understood: it is \"8c_\" in line 1, column 21. Tidied, all can be "
            "understood.");
  SetToggle("mnuSettingAutoPlay", true);
  TakeOffer();
  EXPECT_EQ(TokensOf(document.Elements()), "*3#c3*3d2*3e2");
  EXPECT_EQ(sound.beeps.size(), 3U) << "as any file that is opened";
  EXPECT_EQ(Notice(), "Opened tidied, with 1 change");
}

TEST_F(MainWindowTidy, OneOfSeveralTunesIsChosen) {
  window.OpenFile(folder / "many.rtx");
  EXPECT_THAT(Notice(), HasSubstr(" The text holds 2 tunes."));
  const std::string whole = TokensOf(document.Elements());
  AnswerTune(1, "cmdCancel");
  TakeOffer();
  EXPECT_EQ(TokensOf(document.Elements()), whole);
  EXPECT_EQ(Offered(), "Open tidied") << "it is offered still";
  Answer([](const QWidget& dialog) {
    const auto& list = Find<QListWidget>(dialog, "lstTunes");
    EXPECT_EQ(list.item(0)->text() + list.item(1)->text(), "One (2 notes)Two (3 notes)");
    ExpectUsable(dynamic_cast<const QDialog&>(dialog), "frmTunes", "Trillomat - Tunes");
    Find<QPushButton>(dialog, "cmdCancel").click();
  });
  TakeOffer();
  AnswerTune(1, "cmdOK");
  TakeOffer();
  EXPECT_EQ(TokensOf(document.Elements()), "*3f2*3f2*3g2");
  EXPECT_EQ(document.Info().name, "Two");
  TakeOffer();
  EXPECT_THAT(Get<QPlainTextEdit>("txtChanges").toPlainText().toStdString(),
              StartsWith("line 2, column 19: \"e_\" is now \"f\""));
  const char* const pasted = "One:d=4,o=5,b=100:c,d\nTwo:d=4,o=5,b=100:e,f,g";
  AnswerImport(pasted, true);
  AnswerTune(0, "cmdCancel");
  Answer([](const QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "frmImport") << "still open, to choose another";
    Find<QPushButton>(dialog, "cmdCancel").click();
  });
  Press("cmdImport");
  EXPECT_EQ(document.Info().name, "Two");
  AnswerImport(pasted, true);
  AnswerTune(0, "cmdOK");
  Press("cmdImport");
  EXPECT_EQ(document.Info().name, "One");
}

TEST_F(MainWindowTidy, ImportsAreTidiedWhereThatIsTickedAndOfferedElsewhere) {
  Import(kSlips, true);
  EXPECT_EQ(TokensOf(document.Elements()), "*3#c3*3d2*3e2");
  EXPECT_EQ(Notice(), "Imported tidied, with 1 change");
  EXPECT_EQ(Offered(), "Show the changes");
  Answer([](const QWidget& dialog) {
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkTidy").isChecked()) << "remembered";
    Find<QPushButton>(dialog, "cmdCancel").click();
  });
  Press("cmdImport");
  window.Unload();
  EXPECT_EQ(settings.values["Settings/TidyImport"], "True");
  Import(kSlips, false);
  EXPECT_EQ(document.At(0).Note(), "c_");
  EXPECT_EQ(Offered(), "Import tidied");
  TakeOffer();
  EXPECT_EQ(TokensOf(document.Elements()), "*3#c3*3d2*3e2");
  EXPECT_EQ(Action("mnuEditUndo").text().remove('&'), "Undo importing tidied");
  Import("a,b:c", false);
  EXPECT_THAT(Notice(), StartsWith("Not imported: line 1, column 1: "));
  Import("BEGIN:IMELODY\nNAME:x,y\nMELODY:g2a2\nEND:IMELODY", false);
  EXPECT_THAT(Notice(), HasSubstr("The text looks like I-Melody"));
  EXPECT_EQ(Offered(), "Import as I-Melody");
  TakeOffer();
  EXPECT_EQ(document.Mode(), FormatMode::IMelody);
  EXPECT_EQ(Shown(), "|*4g2 *4a2");
}

TEST_F(MainWindowTidy, APasteIsOfferedTidiedInItsPlace) {
  const auto paste = [this](const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    Trigger("mnuEditPaste");
  };
  Press("optDuration(4)");
  Enter("g");
  paste(kSlips);
  EXPECT_EQ(document.Size(), 4U);
  EXPECT_EQ(Offered(), "Paste as RTTTL");
  TakeOffer();
  EXPECT_EQ(Shown(), "*4g4 *3#c3 *3d2 *3e2|");
  EXPECT_THAT(Notice(), StartsWith("Pasted as RTTTL tidied, with 1 change"));
  Trigger("mnuEditUndo");
  EXPECT_EQ(Shown(), "*4g4|") << "what was tidied took the place of the first paste";
  paste(kSlips);
  Enter("a");
  TakeOffer();
  EXPECT_EQ(document.Size(), 8U) << "what came after a paste stays";
  paste(kSlips);
  paste("x:d=4,o=5,b=100:c");
  EXPECT_EQ(document.Size(), 12U);
  TakeOffer();
  EXPECT_EQ(document.Size(), 15U) << "and so does another paste";
  Press("cmdControl(0)");
  SetMode(FormatMode::EMelody);
  paste(QString::fromStdString(Tune("c2d2")));
  EXPECT_EQ(Offered(), "Paste as I-Melody") << "it was refused";
  TakeOffer();
  EXPECT_EQ(document.Size(), 2U);
  EXPECT_EQ(document.Mode(), FormatMode::EMelody);
}

}  // namespace
}  // namespace trillomat
