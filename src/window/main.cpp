#include <cstdio>
#include <string_view>

#include "platform/temporary_files.h"
#include "window/frame/frm_main.h"
#include "window/system/application.h"
#include "window/system/qt_platform.h"
#include "window/system/qt_settings_store.h"
#include "window/widgets/text.h"

namespace {

// What is answered on the terminal, also where there is no display; nothing for what a window is needed for.
const char* AnswerWithoutWindow(std::string_view argument) {
  if (argument == "--version") return "Tessara " TESSARA_VERSION "\n";
  if (argument != "--help" && argument != "-h") return nullptr;
  return "Usage: tessara [FILE.dcs]\n"
         "\n"
         "Opens the window of Tessara, and in it the data file FILE.dcs when one is named.\n"
         "\n"
         "      --help     shows this text\n"
         "      --version  shows the version\n"
         "\n"
         "The same operations without a window: tessara-cli --help\n";
}

}  // namespace

int main(int argc, char* argv[]) {
  if (const char* answer = argc > 1 ? AnswerWithoutWindow(argv[1]) : nullptr) {
    return std::fputs(answer, stdout) < 0 || std::fflush(stdout) != 0 ? 2 : 0;
  }
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
