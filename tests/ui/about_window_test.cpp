// The About window.
#include <QLabel>

#include "ui/dialog_probe.h"
#include "ui/frm_about.h"

namespace trillomat {
namespace {

TEST(AboutWindow, ShowsTheVersionAndClosesOnOkAndEscape) {
  frmAbout window("4.7.11");
  ExpectUsable(window, "frmAbout", "About Trillomat");
  EXPECT_EQ(Control<QLabel>(window, "lblVersion").text(), "Version 4.7.11");
  EXPECT_FALSE(Control<QLabel>(window, "lblCredit").text().isEmpty());
  for (void (*leave)(QDialog&) : {+[](QDialog& w) { Click(w, "cmdOK"); },
                                  +[](QDialog& w) { QTest::keyClick(&w, Qt::Key_Return); }, &PressEscape}) {
    window.show();
    leave(window);
    EXPECT_FALSE(window.isVisible());
  }
}

}  // namespace
}  // namespace trillomat
