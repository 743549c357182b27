#include <QByteArray>
#include <QGuiApplication>
#include <memory>

#include "window/system/page_painter.h"
#include "window/widgets/text.h"

// The module "tessara-print": what a program without a window loads when it is asked for a PDF file.

#if defined(_WIN32)
#define TESSARA_EXPORT __declspec(dllexport)
#else
#define TESSARA_EXPORT __attribute__((visibility("default")))
#endif

// Writes page texts (bytes of the code page) as a PDF file, each on a sheet of its own. 0 when the file stands; 1 when
// it could not be written, and then nothing has changed.
extern "C" TESSARA_EXPORT int TessaraWritePdf(const char* utf8_path, const char* const* pages, int page_count) {
  std::unique_ptr<QGuiApplication> application;
  int argument_count = 1;
  char name[] = "tessara";
  char* arguments[] = {name, nullptr};
  if (!QCoreApplication::instance()) {
    // The caller's standard error is for its own messages.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application = std::make_unique<QGuiApplication>(argument_count, arguments);
  }
  QStringList texts;
  for (int i = 0; i < page_count; ++i) texts += tessara::ToQt(pages[i]);
  return tessara::WritePdf(QString::fromUtf8(utf8_path), texts) ? 0 : 1;
}
