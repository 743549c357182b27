#include "batch/guarded_files.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "data/data_matrix.h"
#include "data/field_ends.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::string_view kBannerName = "Tessara data";

// Enough for the banner, and for a separator of any line of the dictionary but a gigantic one.
constexpr std::size_t kStartOfFile = std::size_t{1} << 16;

std::optional<std::size_t> CountOf(std::string_view text) {
  constexpr double kMostLines = 1e15;
  const auto number = ParseNumber(text);
  if (!number || *number < 0) return std::nullopt;
  return static_cast<std::size_t>(std::min(RoundHalfEven(*number), kMostLines));
}

// "6 3 Tessara data", with or without the words behind the counts.
struct BannerWords {
  std::size_t records = 0;
  std::string_view name;  // behind the counts
};

std::optional<BannerWords> ReadBanner(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n\x01"));
  const std::size_t first_blank = line.find(' ');
  if (first_blank == line.npos) return std::nullopt;
  const std::size_t second_blank = std::min(line.find(' ', first_blank + 1), line.size());
  const auto records = CountOf(line.substr(0, first_blank));
  const auto variables = CountOf(line.substr(first_blank + 1, second_blank - first_blank - 1));
  if (!records || !variables) return std::nullopt;
  return BannerWords{*records, line.substr(std::min(second_blank + 1, line.size()))};
}

// The first lines of a file, those of the dictionary, as far as they are in its first bytes.
std::string_view FirstLines(std::string_view start) {
  std::size_t end = 0;
  for (std::size_t line = 0; line < kFirstRecordRow && end < start.size(); ++line) {
    end = std::min(start.find('\n', end), start.size() - 1) + 1;
  }
  return start.substr(0, end);
}

// The last line counts also without its end.
std::size_t CountLines(const Path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string part(kStartOfFile, '\0');
  std::size_t lines = 0;
  char last = '\n';
  while (file.read(part.data(), static_cast<std::streamsize>(part.size())), file.gcount() > 0) {
    const std::string_view read(part.data(), static_cast<std::size_t>(file.gcount()));
    lines += static_cast<std::size_t>(std::ranges::count(read, '\n'));
    last = read.back();
  }
  return lines + (last == '\n' ? 0 : 1);
}

// Data without a filled cell are saved as empty lines, sixteen of them.
bool IsEmptyDataFile(std::string_view start) {
  return start.size() < kStartOfFile && start.find_first_not_of("\r\n") == start.npos;
}

bool IsDataFile(const Path& path, std::string_view start) {
  const auto banner = ReadBanner(start);
  if (!banner) return false;
  if (FirstLines(start).find(kFieldSeparator) != start.npos || banner->name == kBannerName) return true;
  return CountLines(path) == banner->records + kFirstRecordRow;
}

}  // namespace

bool IsSameFile(const Path& a, const Path& b) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::equivalent(a, b, error)) return true;
  if (fs::exists(a, error) || fs::exists(b, error)) return false;
  const Path whole_a = fs::weakly_canonical(a, error);
  return !error && whole_a == fs::weakly_canonical(b, error) && !error;
}

void GuardedFiles::AddInput(const Path& path) {
  if (std::ranges::find(inputs, path) == inputs.end()) inputs.push_back(path);
}

bool GuardedFiles::GuardsInput(const Path& path) const {
  return !overwrite && std::ranges::any_of(inputs, [&](const Path& input) { return IsSameFile(input, path); });
}

bool GuardedFiles::GuardsOutput(const Path& path) const { return !overwrite && output && IsSameFile(*output, path); }

bool LooksLikeDataFile(const Path& path) {
  const auto start = ReadStartOfFile(path, kStartOfFile);
  return start && IsDataFile(path, *start);
}

bool MaySaveDataOver(const Path& path) {
  const auto start = ReadStartOfFile(path, kStartOfFile);
  return !start || IsEmptyDataFile(*start) || IsDataFile(path, *start);
}

}  // namespace tessara
