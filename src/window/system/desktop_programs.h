#pragma once

class QString;

namespace tessara {

// Whether the user's desktop has a program for files of this kind. What it hands files to takes any file and says
// nothing when there is none. True also where the desktop cannot be asked.
bool DesktopHasProgramFor(const QString& file);

}  // namespace tessara
