#include "platform/print_module.h"

#include <QByteArray>
#include <QGuiApplication>
#include <memory>

#include "window/system/page_painter.h"

// The module "tessara-print": what a program without a window loads when it is asked for a PDF file.

#if defined(_WIN32)
#define TESSARA_EXPORT __declspec(dllexport)
#else
#define TESSARA_EXPORT __attribute__((visibility("default")))
#endif

extern "C" TESSARA_EXPORT bool TessaraMakePdf(const tessara::PrintJob& job, std::string& pdf) {
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
  const auto made = tessara::MakePdf(job);
  if (made) pdf.assign(made->constData(), static_cast<std::size_t>(made->size()));
  return made.has_value();
}
