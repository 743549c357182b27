#include <QApplication>
#include <QFileInfo>

#include "window/frame/frm_main.h"
#include "window/system/qt_platform.h"
#include "window/system/qt_settings_store.h"
#include "window/widgets/text.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Tessara");
  QApplication::setApplicationVersion(TESSARA_VERSION);
  QApplication::setDesktopFileName("tessara");

  tessara::FrameStart start;
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() > 1) start.command_line_file = tessara::PathFromQt(QFileInfo(arguments[1]).absoluteFilePath());

  tessara::QtPlatform platform;
  tessara::QtSettingsStore store;
  tessara::FrmMain frame(platform, store, start);
  frame.show();
  return QApplication::exec();
}
