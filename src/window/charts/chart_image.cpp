#include "window/charts/chart_image.h"

#include <QBuffer>
#include <QPainter>

#include "window/charts/chart_drawing.h"

namespace tessara {
namespace {

constexpr int kSharpness = 2;  // pixels of a picture for each of the screen

}  // namespace

QImage ChartImage(const Chart& chart, const QSize& size) {
  QImage picture(size * kSharpness, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  PaintChart(painter, QRectF(picture.rect()), chart, ColoursOfPaper(), size);
  return picture;
}

QByteArray ChartPng(const Chart& chart, const QSize& size) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  if (!ChartImage(chart, size).save(&file, "PNG")) return {};
  return file.data();
}

}  // namespace tessara
