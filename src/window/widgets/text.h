#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/platform.h"

// The one place where the bytes of the core's code page meet the window's Unicode.

namespace tessara {

QString ToQt(std::string_view bytes);
// A character that the code page lacks becomes "?".
std::string FromQt(const QString& text);

// For a text box, which ends its lines in LF alone, and back to the CR LF of the core.
QString ToQtLines(std::string_view bytes);
std::string FromQtLines(const QString& text);

QString PathToQt(const Path& path);
Path PathFromQt(const QString& path);

}  // namespace tessara
