#include "window/system/page_painter.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QLocale>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QStringList>
#include <algorithm>

#include "window/widgets/text.h"

namespace tessara {
namespace {

// What a full report page holds: ten blanks and the rule of 98 characters across, a head, 66 lines and the notes down.
constexpr int kPageColumns = 108;
constexpr int kPageLines = 80;
constexpr qreal kLargestType = 10.5;  // points
constexpr qreal kSmallestType = 4.5;
constexpr int kTabStop = 8;
constexpr qreal kMarginMillimetres = 10;

// The type that has so many columns and lines on the sheet, in points, by the measures of the face at 100 points.
struct SheetMeasure {
  QRectF area;  // in device pixels
  qreal dots_per_point;
  qreal column_width;  // of one point of type, in points
  qreal line_height;

  qreal TypeForColumns(int columns) const { return area.width() / dots_per_point / (column_width * columns); }
  qreal TypeForLines(int lines) const { return area.height() / dots_per_point / (line_height * lines); }
  int ColumnsAt(qreal type) const { return static_cast<int>(area.width() / dots_per_point / (column_width * type)); }
  int LinesAt(qreal type) const { return static_cast<int>(area.height() / dots_per_point / (line_height * type)); }
};

SheetMeasure MeasureSheet(const QPagedPaintDevice& device) {
  constexpr int kMeasured = 100;
  QFont font = FixedPitchFont();
  font.setPointSizeF(kMeasured);
  const QFontMetricsF metrics(font, const_cast<QPagedPaintDevice*>(&device));
  SheetMeasure sheet;
  sheet.area = QRectF(0, 0, device.width(), device.height());
  sheet.dots_per_point = device.logicalDpiY() / 72.0;
  sheet.column_width = metrics.horizontalAdvance('0') / sheet.dots_per_point / kMeasured;
  sheet.line_height = metrics.height() / sheet.dots_per_point / kMeasured;
  return sheet;
}

QString WithoutTabs(const QString& line) {
  QString text;
  for (const QChar character : line) {
    if (character == '\t') {
      text += QString(kTabStop - text.size() % kTabStop, ' ');
    } else {
      text += character;
    }
  }
  return text;
}

// The page's lines, those longer than `columns` folded.
QStringList Fold(const QStringList& lines, int columns) {
  QStringList folded;
  for (const QString& line : lines) {
    folded += line.left(columns);
    for (qsizetype i = columns; i < line.size(); i += columns) folded += line.mid(i, columns);
  }
  return folded;
}

void TakePaper(QPagedPaintDevice& device, const Sheet& sheet) {
  QPageLayout layout = device.pageLayout();
  if (sheet.paper != PaperSize::kAsSet) {
    layout.setPageSize(QPageSize(sheet.paper == PaperSize::kA4 ? QPageSize::A4 : QPageSize::Letter));
  }
  if (sheet.orientation != Orientation::kAsSet) {
    layout.setOrientation(sheet.orientation == Orientation::kPortrait ? QPageLayout::Portrait : QPageLayout::Landscape);
  }
  layout.setUnits(QPageLayout::Millimeter);
  layout.setMargins(QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres));
  device.setPageLayout(layout);
}

class PagePainter {
 public:
  PagePainter(QPainter& painter, QPagedPaintDevice& device) : painter_(painter), device_(device) {}

  bool Paint(const Sheet& sheet) {
    // The paper of a sheet is chosen ahead of it; that of the first one before the painting began.
    if (started_) TakePaper(device_, sheet);
    sheet_ = MeasureSheet(device_);
    QStringList lines;
    qsizetype longest = 1;
    for (const QString& line : ToQt(sheet.text).split('\n')) {
      lines += WithoutTabs(line);
      if (lines.back().endsWith('\r')) lines.back().chop(1);
      longest = std::max(longest, lines.back().size());
    }
    const int columns = static_cast<int>(std::min<qsizetype>(longest, sheet_.ColumnsAt(kSmallestType)));
    const qreal type = std::min(WantedType(sheet), sheet_.TypeForColumns(columns));
    lines = Fold(lines, columns);
    const int per_sheet = std::max(1, sheet_.LinesAt(type));
    for (qsizetype first = 0; first < lines.size(); first += per_sheet) {
      if (!NextSheet()) return false;
      PaintSheet(lines.mid(first, per_sheet), type);
    }
    return true;
  }

 private:
  qreal WantedType(const Sheet& sheet) const {
    if (sheet.point_size > 0) return sheet.point_size;
    return std::min({kLargestType, sheet_.TypeForColumns(kPageColumns), sheet_.TypeForLines(kPageLines)});
  }

  bool NextSheet() {
    if (!started_) {
      started_ = true;
      return true;
    }
    return device_.newPage();
  }

  void PaintSheet(const QStringList& lines, qreal type) {
    QFont font = FixedPitchFont();
    font.setPointSizeF(type);
    painter_.setFont(font);
    const qreal height = sheet_.line_height * type * sheet_.dots_per_point;
    const QFontMetricsF metrics(font, &device_);
    qreal y = metrics.ascent();
    for (const QString& line : lines) {
      painter_.drawText(QPointF(0, y), line);
      y += height;
    }
  }

  QPainter& painter_;
  QPagedPaintDevice& device_;
  SheetMeasure sheet_;
  bool started_ = false;
};

}  // namespace

QFont FixedPitchFont() {
  QFont font;
  font.setFamilies({"Courier New", "Liberation Mono", "Courier", "monospace"});
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  font.setKerning(false);
  return font;
}

bool PaintJob(QPagedPaintDevice& device, const PrintJob& job) {
  TakePaper(device, job.sheets.empty() ? Sheet() : job.sheets.front());
  QPainter painter;
  if (!painter.begin(&device)) return false;
  PagePainter page_painter(painter, device);
  for (const Sheet& sheet : job.sheets) {
    if (!page_painter.Paint(sheet)) return false;
  }
  return painter.end();
}

std::optional<QByteArray> MakePdf(const PrintJob& job) {
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageSize(
      QPageSize(QLocale().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter : QPageSize::A4));
  writer.setTitle(job.title.empty() ? QString("Tessara output") : ToQt(job.title));
  writer.setCreator("Tessara " TESSARA_VERSION);
  if (!PaintJob(writer, job)) return std::nullopt;
  return pdf;
}

}  // namespace tessara
