#pragma once

#include <optional>
#include <vector>

#include "platform/platform.h"

// The files of a run that its own output must not replace unasked. The same file is the same one whatever it is called:
// links of both kinds lead to it.

namespace tessara {

struct GuardedFiles {
  std::vector<Path> inputs;    // the script, and the data files that the run has opened or saved
  std::optional<Path> output;  // where the log goes at the end
  bool overwrite = false;      // the user has allowed all of it

  void AddInput(const Path& path);
  // Whether writing the path would replace an input of the run.
  bool GuardsInput(const Path& path) const;
  // Whether the path is the one that the log replaces at the end.
  bool GuardsOutput(const Path& path) const;
};

// Whether both names lead to one file. Names of files that do not exist yet are compared as paths.
bool IsSameFile(const Path& a, const Path& b);

// Whether the file begins as data files do, with two counts, and goes on like one: it has fields, or the words of our
// own first line, or as many lines as that announces. Data without a filled cell are no data file here.
bool LooksLikeDataFile(const Path& path);

// Whether data may be saved under the name: no file has it yet, or one that is empty, or a data file. What is no
// regular file, or cannot be read, is left to the writer.
bool MaySaveDataOver(const Path& path);

}  // namespace tessara
