#include "window/widgets/text.h"

#include <QDir>
#include <algorithm>

#include "numerics/code_page.h"

namespace tessara {

QString ToQt(std::string_view bytes) { return QString::fromStdString(ToUtf8(bytes)); }

std::string FromQt(const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  return FromUtf8({utf8.constData(), static_cast<std::size_t>(utf8.size())});
}

QString ToQtLines(std::string_view bytes) {
  QString text = ToQt(bytes);
  text.remove(QLatin1Char('\r'));
  return text;
}

std::string FromQtLines(const QString& text) {
  const std::string bytes = FromQt(text);
  std::string lines;
  lines.reserve(bytes.size() + static_cast<std::size_t>(std::ranges::count(bytes, '\n')));
  for (const char c : bytes) {
    if (c == '\n') lines += '\r';
    lines += c;
  }
  return lines;
}

QString PathToQt(const Path& path) {
#if defined(_WIN32)
  return QDir::fromNativeSeparators(QString::fromStdWString(path.native()));
#else
  return QString::fromLocal8Bit(QByteArray::fromStdString(path.native()));
#endif
}

Path PathFromQt(const QString& path) {
#if defined(_WIN32)
  return Path(QDir::toNativeSeparators(path).toStdWString());
#else
  return Path(path.toLocal8Bit().toStdString());
#endif
}

}  // namespace tessara
