#include "window/charts/chart_output.h"

#include <QBuffer>
#include <QMimeData>
#include <QPainter>
#include <QSvgGenerator>
#include <algorithm>

#include "platform/safe_file_writer.h"
#include "presentation/print_pages.h"
#include "shell/session.h"
#include "window/charts/chart_drawing.h"
#include "window/charts/chart_image.h"
#include "window/system/qt_platform.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

// A file name of the chart's title, without what a file system would refuse.
std::string FileNameFor(const Chart& chart) {
  std::string name = chart.title.empty() ? "Chart" : chart.title;
  std::ranges::replace_if(
      name, [](char c) { return std::string_view("/\\:*?\"<>|\r\n\t").find(c) != std::string_view::npos; }, '-');
  return name + ".png";
}

QByteArray ChartSvg(const Chart& chart, const QSize& size) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  QSvgGenerator generator;
  generator.setOutputDevice(&file);
  generator.setSize(size);
  generator.setResolution(96);  // what a browser takes for a pixel
  generator.setViewBox(QRect(QPoint(0, 0), size));
  generator.setTitle(ToQt(chart.title));
  QPainter painter(&generator);
  PaintChart(painter, QRectF(QPointF(0, 0), size), chart, ColoursOfPaper(), size);
  if (!painter.end()) return {};
  return file.data();
}

WriteResult WriteChart(const Path& path, const QByteArray& picture) {
  if (picture.isEmpty()) return WriteResult::kRefused;
  return WriteWholeFile(path, {picture.constData(), static_cast<std::size_t>(picture.size())});
}

}  // namespace

void CopyChart(QtPlatform& platform, Session& session, const Chart& chart, const QSize& size) {
  PlaySoundEffect(session, "copy.wav");
  auto* content = new QMimeData;
  content->setImageData(ChartImage(chart, size));
  content->setText(ToQtLines(ChartRowsText(chart)));
  platform.SetClipboardContent(content);
}

void PrintChart(QtPlatform& platform, const Chart& chart, const QSize& size) {
  const bool printed = platform.PrintPicture([&](QPainter& painter, const QRectF& sheet) {
    const QSizeF fitted = QSizeF(size).scaled(sheet.size(), Qt::KeepAspectRatio);
    PaintChart(painter, QRectF(sheet.topLeft(), fitted), chart, ColoursOfPaper(), size);
  });
  if (!printed) ShowPrinterError(platform);
}

void SaveChart(QtPlatform& platform, const Chart& chart, const QSize& size) {
  FileDialog dialog;
  dialog.title = "Save Chart As";
  dialog.filter = "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg";
  dialog.initial_folder = platform.DocumentsFolder();
  dialog.initial_name = FileNameFor(chart);
  dialog.default_extension = "png";
  dialog.overwrite_prompt = true;
  const auto chosen = platform.AskSaveFile(dialog);
  if (!chosen) return;
  const WaitCursor wait(platform);
  const bool as_svg = PathToQt(chosen->path).endsWith(".svg", Qt::CaseInsensitive);
  const QByteArray picture = as_svg ? ChartSvg(chart, size) : ChartPng(chart, size);
  if (WriteChart(chosen->path, picture) == WriteResult::kWritten) {
    platform.SetStatusPane(kMessagePane, "Save Completed");
  } else {
    platform.ShowMessage({"Error", "The picture could not be written.", Buttons::kOk, Tone::kRefusal});
  }
}

}  // namespace tessara
