#include "platform/temporary_files.h"
#include "window/frame/frm_main.h"
#include "window/system/application.h"
#include "window/system/qt_platform.h"
#include "window/system/qt_settings_store.h"
#include "window/widgets/text.h"

int main(int argc, char* argv[]) {
  tessara::RemoveTemporariesOnSignals();
  tessara::Application application(argc, argv);
  QApplication::setApplicationName("Tessara");
  QApplication::setApplicationVersion(TESSARA_VERSION);
  QApplication::setDesktopFileName("tessara");

  tessara::FrameStart start;
#if defined(_WIN32)
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() > 1) start.command_line_file = tessara::PathFromQt(arguments[1]);
#else
  if (argc > 1) start.command_line_file = argv[1];  // the bytes as they are: not every name is a text
#endif

  tessara::QtPlatform platform;
  application.SetMessages(&platform);
  tessara::QtSettingsStore store;
  tessara::FrmMain frame(platform, store, start);
  frame.show();
  return QApplication::exec();
}
