#include "window/charts/chart_text.h"

#include "window/widgets/text.h"

namespace tessara {

QString Plain(const QString& text) { return text.toHtmlEscaped().replace(QLatin1Char(' '), QChar::Nbsp); }

QString Distinct(const QString& text, qsizetype number) {
  QString mark;
  for (; number > 0; number /= 2) mark += QChar(number % 2 == 0 ? 0x200C : 0x200D);
  return text + mark;
}

QStringList Folded(const Chart& chart, qsizetype row, bool narrow) {
  const auto place = static_cast<std::size_t>(row);
  const QString label = ToQt(chart.labels[place]);
  if (place >= chart.details.size()) return {label};
  const QString detail = ToQt(chart.details[place]);
  if (chart.type == ChartType::kBars) return {label, "(" + detail + ")"};
  if (narrow) return {label, "to", detail};
  return {label + " to", detail};
}

QString WithoutMark(QString text) { return text.remove(QChar(0x200C)).remove(QChar(0x200D)); }

}  // namespace tessara
