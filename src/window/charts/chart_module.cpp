#include <QApplication>
#include <QByteArray>
#include <memory>
#include <string>
#include <vector>

#include "presentation/office/office_charts.h"
#include "window/charts/chart_image.h"

// The module "tessara-charts": what a program without a window loads when it is asked for pictures of charts.

#if defined(_WIN32)
#define TESSARA_EXPORT __declspec(dllexport)
#else
#define TESSARA_EXPORT __attribute__((visibility("default")))
#endif

extern "C" TESSARA_EXPORT bool TessaraDrawCharts(const std::vector<tessara::Chart>& charts,
                                                 std::vector<std::string>& pngs) {
  std::unique_ptr<QApplication> application;
  int argument_count = 1;
  char name[] = "tessara";
  char* arguments[] = {name, nullptr};
  if (!QCoreApplication::instance()) {
    // The caller's standard error is for its own messages.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application = std::make_unique<QApplication>(argument_count, arguments);
  }
  for (const tessara::Chart& chart : charts) {
    const QByteArray png = tessara::ChartPng(chart, {tessara::kChartPictureWidth, tessara::kChartPictureHeight});
    if (png.isEmpty()) return false;
    pngs.emplace_back(png.constData(), static_cast<std::size_t>(png.size()));
  }
  return true;
}
