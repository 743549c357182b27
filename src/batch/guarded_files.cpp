#include "batch/guarded_files.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "numerics/number_text.h"

namespace tessara {
namespace {

// More than two counts ever take.
constexpr std::size_t kStartOfBanner = 256;

bool IsCount(std::string_view text) {
  const auto number = ParseNumber(text);
  return number && *number >= 0;
}

// "6 3 Tessara data", with or without the words behind the counts.
bool StartsLikeBanner(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n\x01"));
  const std::size_t first_blank = line.find(' ');
  if (first_blank == line.npos) return false;
  const std::size_t second_blank = std::min(line.find(' ', first_blank + 1), line.size());
  return IsCount(line.substr(0, first_blank)) && IsCount(line.substr(first_blank + 1, second_blank - first_blank - 1));
}

// Data without a filled cell are saved as empty lines, sixteen of them.
bool IsEmptyDataFile(std::string_view start) { return start.find_first_not_of("\r\n") == start.npos; }

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

bool MaySaveDataOver(const Path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return true;
  std::ifstream file(path, std::ios::binary);
  if (!file) return true;
  std::string start(kStartOfBanner, '\0');
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<std::size_t>(file.gcount()));
  return IsEmptyDataFile(start) || StartsLikeBanner(start);
}

}  // namespace tessara
