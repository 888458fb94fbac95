// The rename window.
#include <QLineEdit>

#include "ui/dialog_probe.h"
#include "ui/frm_rename.h"

namespace trillomat {
namespace {

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
  struct Case {
    void (*leave)(QDialog&);
    int result;
  };
  for (const Case& c : {Case{[](QDialog& w) { Click(w, "cmdOK"); }, QDialog::Accepted},
                        Case{[](QDialog& w) { QTest::keyClick(&w, Qt::Key_Return); }, QDialog::Accepted},
                        Case{[](QDialog& w) { Click(w, "cmdCancel"); }, QDialog::Rejected},
                        Case{&PressEscape, QDialog::Rejected}, Case{&CloseFrame, QDialog::Rejected}}) {
    frmRename window("old");
    window.show();
    c.leave(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), c.result);
  }
}

}  // namespace
}  // namespace trillomat
