#include "presentation/office/word_export.h"

#include <algorithm>

#include "data/progress.h"
#include "platform/safe_file_writer.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/word_parts.h"
#include "presentation/office/word_text.h"
#include "presentation/office/zip_archive.h"

namespace tessara {
namespace {

// The paragraphs with what stands around them.
class DocumentText : public LongText {
 public:
  // Shows how far the text is; `lines` is about how many pieces it comes in.
  DocumentText(LongText& paragraphs, std::string end, std::size_t lines, Status& status)
      : paragraphs_(paragraphs), end_(std::move(end)), lines_(static_cast<double>(lines)), progress_(status) {}

  void Restart() override {
    paragraphs_.Restart();
    progress_.ProgressOpen(0, lines_, "Exporting to Word...", 0);
    stage_ = Stage::kStart;
  }

  bool Next(std::string& xml) override {
    progress_.ProgressStep();
    switch (stage_) {
      case Stage::kStart:
        xml += WordTextStart();
        stage_ = Stage::kParagraphs;
        return true;
      case Stage::kParagraphs:
        if (paragraphs_.Next(xml)) return true;
        xml += end_;
        stage_ = Stage::kEnd;
        return true;
      case Stage::kEnd:
        return false;
    }
    return false;
  }

 private:
  enum class Stage { kStart, kParagraphs, kEnd };

  LongText& paragraphs_;
  const std::string end_;
  const double lines_;
  Progress progress_;
  Stage stage_ = Stage::kStart;
};

std::string EndOfText(const std::vector<ChartPicture>& pictures, const WordPage& page) {
  std::string xml;
  for (std::size_t i = 0; i < pictures.size(); ++i) xml += WordPicture(i + 1, pictures[i].title);
  return xml + WordTextEnd(page);
}

std::vector<ArchivePart> PartsOf(LongText& text, const std::vector<ChartPicture>& pictures) {
  std::vector<ArchivePart> parts;
  const auto add = [&](const char* name, std::string bytes) {
    parts.push_back({.name = name, .bytes = std::move(bytes)});
  };
  add("[Content_Types].xml", WordContentTypes());
  add("_rels/.rels", WordPackageRelations());
  parts.push_back({.name = "word/document.xml", .bytes = {}, .long_text = &text});
  add("word/_rels/document.xml.rels", WordDocumentRelations(pictures.size()));
  add("word/styles.xml", WordStyles());
  add("word/settings.xml", WordSettings());
  add("docProps/core.xml", WordCoreProperties());
  add("docProps/app.xml", WordApplicationProperties());
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    parts.push_back({.name = "word/media/image" + std::to_string(i + 1) + ".png",
                     .bytes = pictures[i].png,
                     .long_text = nullptr,
                     .is_picture = true});
  }
  return parts;
}

struct Document {
  LongText& paragraphs;
  std::size_t lines;
  WordPage page;
};

bool WriteDocument(const Document& document, const std::vector<ChartPicture>& pictures, const Path& path,
                   Platform& platform) {
  DocumentText text(document.paragraphs, EndOfText(pictures, document.page), document.lines, platform);
  const auto bytes = MakeArchive(PartsOf(text, pictures));
  SafeFileWriter writer(path);
  if (bytes) writer.Write(*bytes);
  if (!bytes || writer.Commit() != WriteResult::kWritten) {
    ShowExportFailed(platform);
    return false;
  }
  NoteWhatWasNotKept(writer, platform);
  return true;
}

}  // namespace

bool PrintToWord(std::string_view text, const std::vector<ChartPicture>& pictures, const Path& path,
                 Platform& platform) {
  const WaitCursor wait(platform);
  const WordPage page = PortraitPage();
  ReportParagraphs paragraphs(text, page);
  const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return WriteDocument({.paragraphs = paragraphs, .lines = lines, .page = page}, pictures, path, platform);
}

bool TableToWord(const TableGrid& grid, const std::vector<ChartPicture>& pictures, const Path& path,
                 Platform& platform) {
  const WaitCursor wait(platform);
  TableParagraphs paragraphs(grid);
  return WriteDocument({.paragraphs = paragraphs, .lines = grid.RowCount(), .page = paragraphs.page()}, pictures, path,
                       platform);
}

}  // namespace tessara
