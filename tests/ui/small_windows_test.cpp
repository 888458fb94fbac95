// The About and the rename window.
#include <QLineEdit>

#include "ui/dialog_probe.h"
#include "ui/frm_about.h"
#include "ui/frm_rename.h"

namespace trillomat {
namespace {

void PressOk(QDialog& dialog) { Click(dialog, "cmdOK"); }
void PressReturn(QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }

TEST(AboutWindow, ShowsTheVersionAndClosesOnOkAndEscape) {
  frmAbout window("4.7.11");
  ExpectUsable(window, "frmAbout", "About Trillomat");
  EXPECT_EQ(Control<QLabel>(window, "lblVersion").text(), "Version 4.7.11");
  EXPECT_FALSE(Control<QLabel>(window, "lblCredit").text().isEmpty());
  for (void (*leave)(QDialog&) : {&PressOk, &PressReturn, &PressEscape}) {
    window.show();
    leave(window);
    EXPECT_FALSE(window.isVisible());
  }
}

TEST(RenameWindow, OpensWithTheNameSelectedSoThatTypingReplacesIt) {
  frmRename window("Für Elise");
  window.show();
  ExpectUsable(window, "frmRename", "Trillomat - Rename");
  auto& name = Control<QLineEdit>(window, "txtName");
  EXPECT_EQ(name.selectedText(), "Für Elise");
  EXPECT_EQ(window.focusWidget(), &name);
  QTest::keyClicks(&name, "a.b");
  EXPECT_EQ(window.NewName(), "a.b");
}

TEST(RenameWindow, CountsOnlyOnOk) {
  void (*const ways[])(QDialog&) = {&PressOk, &PressReturn, &CloseFrame, &PressEscape,
                                    [](QDialog& w) { Click(w, "cmdCancel"); }};
  for (const auto& leave : ways) {
    frmRename window("old");
    window.show();
    leave(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result() == QDialog::Accepted, leave == &PressOk || leave == &PressReturn);
  }
}

}  // namespace
}  // namespace trillomat
