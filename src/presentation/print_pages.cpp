#include "presentation/print_pages.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "numerics/report_text.h"

namespace tessara {
namespace {

// As many lines of a block as stand on one page.
constexpr std::size_t kPageLines = 66;
constexpr int kMargin = 10;
constexpr int kDateIndent = 72;
constexpr int kNotesRule = 98;

std::string ReplacedLineEnds(std::string_view text, std::string_view replacement) {
  std::string result;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(kLineEnd, start)) != text.npos; start = end + kLineEnd.size()) {
    result.append(text.substr(start, end - start)).append(replacement);
  }
  result.append(text.substr(start));
  return result;
}

std::size_t CountLines(std::string_view block) {
  std::size_t lines = 1;
  for (std::size_t at = 0; (at = block.find(kLineEnd, at)) != block.npos; at += kLineEnd.size()) ++lines;
  return lines;
}

std::string NotesCaption() {
  std::string caption("\r\n\r\n\r\n");
  caption.append(Blanks(kMargin)).append("Notes").append(kLineEnd);
  caption.append(Blanks(kMargin)).append(kNotesRule, '_').append(kLineEnd);
  return caption;
}

// Lays out the pages of one copy, block by block.
class PageMaker {
 public:
  PageMaker(const PrintOptions& options, const CalendarDay& today) {
    if (options.date) date_ = Blanks(kDateIndent) + ShortDate(today);
    if (options.notes_caption) notes_ = NotesCaption();
  }

  // A block has its margin already, but for its first line.
  void AddBlock(std::string_view block) {
    const std::size_t lines = CountLines(block);
    if (lines <= kPageLines) {
      AddPage(block, notes_);
    } else {
      AddLongBlock(block, lines);
    }
  }

  std::vector<std::string> TakePages() { return std::move(pages_); }

 private:
  // A block of many lines is collected line by line, each with a line end behind it, the last one too.
  void AddLongBlock(std::string_view block, std::size_t lines) {
    std::string collected;
    std::size_t start = 0;
    for (std::size_t line = 1; line <= lines; ++line) {
      const std::size_t end = std::min(block.find(kLineEnd, start), block.size());
      collected.append(block.substr(start, end - start)).append(kLineEnd);
      start = end + kLineEnd.size();
      if (line == lines) {
        AddPage(collected, notes_);
      } else if (line % kPageLines == 0) {
        AddPage(collected, "");
        collected.clear();
      }
    }
  }

  // The margin ahead of the body is for a block's first line. A page that continues a block begins with a line that has
  // its own margin, so that line is set in twice as far.
  void AddPage(std::string_view body, std::string_view notes) {
    std::string page("\r\n\r\n\r\n\r\n\r\n");
    page.append(Blanks(kMargin)).append("Page ").append(std::to_string(pages_.size() + 1)).append(date_);
    page.append("\r\n\r\n\r\n");
    page.append(Blanks(kMargin)).append(body).append(notes);
    pages_.push_back(std::move(page));
  }

  std::string date_;
  std::string notes_;
  std::vector<std::string> pages_;
};

}  // namespace

std::vector<std::string> OutputPages(std::string_view text, const PrintOptions& options, const CalendarDay& today) {
  std::size_t mark = text.find(kPageBreak);
  if (mark == text.npos) return {std::string(text)};

  const std::string margin_line_end = std::string(kLineEnd) + Blanks(kMargin);
  PageMaker maker(options, today);
  for (std::size_t start = 0; mark != text.npos; mark = text.find(kPageBreak, start)) {
    // One character ahead of the mark is left out: of a line end the LF, so that its CR closes the block.
    const std::size_t length = mark > start ? mark - start - 1 : 0;
    maker.AddBlock(ReplacedLineEnds(text.substr(start, length), margin_line_end));
    start = mark + kPageBreak.size();
  }
  return maker.TakePages();
}

void ShowPrinterError(Messages& messages) {
  messages.ShowMessage({.title = "Printer Error",
                        .text =
                            "The printer is not accepting the print request.  Your printer software may be "
                            "corrupted.  If the problem continues, you may want to reinstall the printer software."});
}

bool PrintOutput(const OutputLog& output, Platform& platform, const PrintOptions& options, bool box_has_selection) {
  const CalendarDay today = platform.Now().date;
  const auto choice = platform.AskPrint({.title = "Print", .offer_selection = box_has_selection});
  if (!choice) return false;

  const std::string& text = output.BoxText();
  const int copies = text.find(kPageBreak) == text.npos ? 1 : choice->copies;
  const std::vector<std::string> copy = OutputPages(text, options, today);
  std::vector<std::string> pages;
  for (int i = 0; i < copies; ++i) pages.insert(pages.end(), copy.begin(), copy.end());
  if (platform.Print(JobOfPages(pages))) return true;
  ShowPrinterError(platform);
  return false;
}

}  // namespace tessara
