#include "window/system/desktop_programs.h"

#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QString>

namespace tessara {

bool DesktopHasProgramFor([[maybe_unused]] const QString& file) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  constexpr int kPatience = 3000;  // milliseconds
  const QString asked = QStandardPaths::findExecutable("xdg-mime");
  if (asked.isEmpty()) return true;
  QProcess query;
  query.start(asked, {"query", "default", QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).name()});
  if (!query.waitForFinished(kPatience) || query.exitStatus() != QProcess::NormalExit || query.exitCode() != 0) {
    return true;
  }
  return !query.readAllStandardOutput().trimmed().isEmpty();
#else
  return true;
#endif
}

}  // namespace tessara
