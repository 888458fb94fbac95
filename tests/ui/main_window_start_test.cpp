// Start and end of the program: settings, the first start, the manual.
#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

/// Which of these menu items and options are not checked.
std::string Unchecked(const MainWindow& window, const std::vector<const char*>& names) {
  std::string unchecked;
  for (const char* name : names) {
    if (!Find<QObject>(window, name).property("checked").toBool()) unchecked += std::string(name) + " ";
  }
  return unchecked;
}

TEST(MainWindowStart, TakesTheDefaultsFirstAndThenWhatWasChosen) {
  Parts parts;
  {
    MainWindow first(parts.ForWindow());
    EXPECT_TRUE(first.Load());
    EXPECT_THAT(parts.log.lines, ElementsAre("1: Application started", "1: Version:4.7.11",
                                             "1: #############Cleaning up registry##############"));
    EXPECT_EQ(Find<QSlider>(first, "SliderOctave").value(), 4);
    EXPECT_EQ(Unchecked(first, {"optDuration(4)", "optDurationExtra(0)", "mnuSettingFormatType(0)",
                                "mnuSettingOutputType(1)", "mnuSettingAutoPlay", "mnuSettingPlayComposing",
                                "mnuSettingPlayMoving"}),
              "");
    for (const char* item :
         {"mnuSettingFormatType(2)", "mnuSettingOutputType(0)", "mnuSettingAutoPlay", "mnuSettingPlayMoving"})
      first.findChild<QAction*>(item)->trigger();
    Find<QSlider>(first, "SliderOctave").setValue(6);
    Click(first, "optDuration(3)");
    Click(first, "optDurationExtra(1)");
    first.Unload();
    EXPECT_EQ(parts.log.lines.back(), "1: Application ended");
  }
  EXPECT_EQ(parts.settings.values["Path/BrowseFolder"], "c:\\");
  MainWindow next(parts.ForWindow());
  next.Load();
  EXPECT_EQ(Find<QSlider>(next, "SliderOctave").value(), 6);
  EXPECT_EQ(Unchecked(next, {"mnuSettingFormatType(2)", "mnuSettingOutputType(0)", "mnuSettingAutoPlay",
                             "mnuSettingPlayComposing", "mnuSettingPlayMoving", "optDuration(3)",
                             "optDurationExtra(1)"}),
            "mnuSettingAutoPlay mnuSettingPlayMoving ");
}

TEST(MainWindowStart, GreetsTheNewcomerOnceAndFindsTheManual) {
  Parts parts;
  parts.folder.MakeFolder("installed");
  parts.folder.Write("installed/sample.imy", Tune("c2"));
  parts.samples = parts.folder / "installed";
  for (const bool first : {true, false}) {
    MainWindow window(parts.ForWindow());
    window.Load();
    window.GreetNewcomer();
    EXPECT_EQ(Find<QLabel>(window, "lblFolder").text(), first ? "C:\\installed\\" : "c:\\");
    EXPECT_EQ(Find<QLabel>(window, "lblMessage").text().contains("sample melody"), first);
    window.Unload();
    EXPECT_EQ(parts.settings.values["Path/BrowseFolder"], "c:\\");
  }
  parts.manual = "manual.html";
  MainWindow window(parts.ForWindow());
  window.Load();
  Find<QAction>(window, "mnuHelpSamples").trigger();
  Click(window, "messageAction(0)");
  EXPECT_EQ(Find<QLabel>(window, "lblFolder").text(), "C:\\Music\\Trillomat samples\\");
  for (const bool browser : {true, false}) {
    parts.questions.yes = browser;
    Find<QAction>(window, "mnuHelpManual").trigger();
    EXPECT_EQ(parts.questions.shownPage, "manual.html");
    EXPECT_EQ(Find<QLabel>(window, "lblMessage").text().contains("manual.html"), !browser);
  }
}

}  // namespace
}  // namespace trillomat
