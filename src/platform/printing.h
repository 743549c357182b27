#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/path.h"

// Printed pages: sheets of text in a fixed pitch, each with its paper. Nothing is cut: the type shrinks until the
// longest line fits, and a text that is longer than its sheet goes on on the next one.

namespace tessara {

// As set: what the user has chosen for the printer, and in a file the paper of the user's country, upright.
enum class PaperSize { kAsSet, kA4, kLetter };
enum class Orientation { kAsSet, kPortrait, kLandscape };

struct Sheet {
  std::string text;  // lines ended by CR LF
  PaperSize paper = PaperSize::kAsSet;
  Orientation orientation = Orientation::kAsSet;
  double point_size = 0;  // of the type; 0 for one that has room for a full page of a report
};

struct PrintJob {
  std::string title;
  std::vector<Sheet> sheets;
};

// Each text on a sheet as the printer is set.
PrintJob JobOfPages(const std::vector<std::string>& pages);

struct PrintDialog {
  std::string title;
  bool offer_selection = false;  // preselects the button "Selection"; the whole text is printed all the same
};

struct PrintChoice {
  int copies = 1;
};

class Printing {
 public:
  virtual ~Printing() = default;

  // Asks for the printer of the next job. Nothing means Cancel.
  virtual std::optional<PrintChoice> AskPrint(const PrintDialog& dialog) = 0;
  // False when the printer refuses.
  virtual bool Print(const PrintJob& job) = 0;
  // Shows the sheets as they would be printed; the user may print them from there. False when that cannot be.
  virtual bool Preview(const PrintJob& job) = 0;
  // Writes the sheets as a PDF file, which takes its name when it is whole. False when it cannot be written; a file of
  // that name is as it was then.
  virtual bool WritePdf(const PrintJob& job, const Path& path) = 0;
};

}  // namespace tessara
