#include "data/load_fit.h"

#include <algorithm>
#include <system_error>

#include "data/data_matrix.h"
#include "numerics/masks.h"
#include "platform/file_calls.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr int kMostKept = 1000;

std::string Count(std::size_t count) { return Grouped(static_cast<double>(count)); }

std::string Count(std::size_t count, const char* what) { return Count(count) + ' ' + what + (count == 1 ? "" : "s"); }

std::string Lines(std::size_t count) { return Count(count, "line") + (count == 1 ? " has " : " have "); }

void AddPart(std::string& note, const std::string& part) { note += (note.empty() ? "" : "; ") + part; }

std::string BannerPart(const LoadFit& fit) {
  const std::string counts = Count(fit.records, "record") + " and " + Count(fit.variables, "variable");
  if (fit.banner == Banner::kTooLarge) {
    return "the file's first line announces more than the memory holds, so it was read as " + counts;
  }
  return "the file's first line is no banner, so it was read as " + counts;
}

std::string RecordsPart(const LoadFit& fit) {
  if (fit.lines < kFirstRecordRow) {
    return "the file ends in line " + Count(fit.lines) + ", ahead of its records; its first line says " +
           Count(fit.records);
  }
  return "the file has " + Count(fit.lines - kFirstRecordRow, "record") + ", its first line says " + Count(fit.records);
}

bool RecordsFit(const LoadFit& fit) { return fit.lines == fit.records + kFirstRecordRow; }

}  // namespace

bool LoadFit::Fits() const {
  return banner == Banner::kRead && RecordsFit(*this) && short_lines == 0 && long_lines == 0;
}

LoadFit FitOf(const LoadedText& text, Banner banner, std::size_t records, std::size_t variables) {
  LoadFit fit{banner, records, variables, text.row_count() + text.dropped_lines(), 0, text.long_lines()};
  if (variables == 0) fit.long_lines = 0;  // no line was split
  if (variables == 0 || text.row_count() <= kVariableNameRow) return fit;
  text.ForEachField(variables, kVariableNameRow, text.row_count() - kVariableNameRow,
                    [&fit](std::size_t, const TaggedView& field) { fit.short_lines += field.is_empty() ? 1U : 0U; });
  return fit;
}

std::string FitNote(const LoadFit& fit) {
  std::string note;
  if (fit.banner != Banner::kRead) {
    AddPart(note, BannerPart(fit));
  } else if (!RecordsFit(fit)) {
    AddPart(note, RecordsPart(fit));
  }
  const std::string fields = " fields than the " + Count(fit.variables, "variable");
  if (fit.short_lines > 0) AddPart(note, Lines(fit.short_lines) + "fewer" + fields);
  if (fit.long_lines > 0) AddPart(note, Lines(fit.long_lines) + "more" + fields);
  return note;
}

KeptFile::~KeptFile() {
  std::error_code ignored;
  if (!file_.empty() && std::filesystem::equivalent(file_, path_, ignored)) std::filesystem::remove(path_, ignored);
}

std::optional<KeptFile> KeepAsFound(const Path& file) {
  namespace fs = std::filesystem;
  std::error_code error;
  const Path found = fs::canonical(file, error);
  if (error) return std::nullopt;
  for (int i = 1; i <= kMostKept; ++i) {
    Path name = found.stem();
    name += i == 1 ? " (as found)" : " (as found " + std::to_string(i) + ")";
    name += found.extension();
    const Path kept = found.parent_path() / name;
    if (fs::equivalent(found, kept, error)) return KeptFile(kept);
    if (fs::exists(fs::symlink_status(kept, error))) continue;
    // A second name for the file costs nothing and keeps all that belongs to it; where there is no such thing, a copy.
    if (CallsOfFiles().link(found, kept)) return KeptFile(kept, found);
    if (CopyFileOver(found, kept)) return KeptFile(kept);
    return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace tessara
