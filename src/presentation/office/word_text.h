#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/office/zip_archive.h"
#include "presentation/table_grid.h"

// The paragraphs of a document, as XML.

namespace tessara {

// The page: paper, margins and the type that has room for a report across.
struct WordPage {
  int width = 0;  // twentieths of a point, like the margins
  int height = 0;
  bool is_landscape = false;

  int TextWidth() const;
};
WordPage PortraitPage();
WordPage LandscapePage();

// In half points. The type shrinks until so many columns fit; beyond what the smallest one has room for, lines wrap.
inline constexpr int kWordType = 17;
int TypeForColumns(const WordPage& page, std::size_t columns);

// A report text: each line a paragraph, page break marks as page breaks. The type of a page suits its longest line.
class ReportParagraphs : public LongText {
 public:
  // The text must live as long as the object.
  ReportParagraphs(std::string_view text, const WordPage& page) : text_(text), page_(page) {}

  void Restart() override;
  bool Next(std::string& xml) override;

 private:
  void BeginPage();
  void BeginLine(std::string& xml);
  void TakeStretch(std::string& xml);

  std::string_view text_;
  WordPage page_;
  std::size_t at_ = 0;
  std::size_t line_end_ = 0;
  bool in_line_ = false;
  bool at_end_ = false;
  int type_ = kWordType;
};

// The table: each row that is not empty a paragraph, its cells parted by tabs, which stand where the columns do.
class TableParagraphs : public LongText {
 public:
  explicit TableParagraphs(const TableGrid& grid);

  // Wide tables lie across.
  const WordPage& page() const { return page_; }
  void Restart() override { row_ = 0; }
  bool Next(std::string& xml) override;

 private:
  bool IsEmpty(std::size_t row) const;
  void AppendRow(std::size_t row, std::string& xml) const;
  void AppendTabStops(std::size_t row, std::string& xml) const;

  const TableGrid& grid_;
  std::vector<std::size_t> starts_;  // of the columns, in characters; one more than columns
  WordPage page_;
  int type_ = kWordType;
  std::size_t row_ = 0;
};

}  // namespace tessara
