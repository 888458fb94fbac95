// Runs the tests of the windows inside the program's own application, without a screen unless one is asked
// for.
#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include "app/trillomat_application.h"
#include "ui/resources.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const trillomat::TrillomatApplication app(argc, argv);
  QApplication::setApplicationVersion(QStringLiteral("4.7.11"));
  // Where the file dialogs remember what they showed.
  const QTemporaryDir toolkit;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, toolkit.path());
  // Else the first window that a test closes would end the application.
  QApplication::setQuitOnLastWindowClosed(false);
  trillomat::LoadResources();
  return RUN_ALL_TESTS();
}
