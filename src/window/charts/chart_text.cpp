#include "window/charts/chart_text.h"

namespace tessara {

QString Plain(const QString& text) { return text.toHtmlEscaped().replace(QLatin1Char(' '), QChar::Nbsp); }

QString Distinct(const QString& text, qsizetype number) {
  QString mark;
  for (; number > 0; number /= 2) mark += QChar(number % 2 == 0 ? 0x200C : 0x200D);
  return text + mark;
}

QStringList Folded(const QString& label, bool narrow) {
  const qsizetype percent = label.lastIndexOf(QLatin1String("  ("));
  if (percent > 0) return {label.left(percent), label.mid(percent + 2)};
  const qsizetype to = label.indexOf(QLatin1String(" to "));
  if (to <= 0) return {label};
  if (narrow) return {label.left(to), "to", label.mid(to + 4)};
  return {label.left(to + 3), label.mid(to + 4)};
}

QString WithoutMark(QString text) { return text.remove(QChar(0x200C)).remove(QChar(0x200D)); }

}  // namespace tessara
