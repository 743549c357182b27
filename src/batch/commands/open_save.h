#pragma once

#include <string>
#include <string_view>

#include "batch/commands/command.h"

namespace tessara {

// Opens a data file as the open dialog does.
CommandResult OpenPath(Batch& batch, std::string_view utf8_path);

// Why a data file must not be written there: over the file of the log, or over one that is no data file; empty when it
// may.
std::string WhyNotSavedTo(const Batch& batch, const Path& path, bool overwrite);

// Why a text must not be written there: over a file of the run, or over any data file; empty when it may.
std::string WhyNotPrintedTo(const Batch& batch, const Path& path, bool overwrite);

// The same for what is no text of the log's own: over the file of the log neither.
std::string WhyNotExportedTo(const Batch& batch, const Path& path, bool overwrite);

}  // namespace tessara
