#include "data/sample_files.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "numerics/code_page.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::size_t kBytesLookedAt = 1024;
constexpr std::size_t kMostFilesLookedAt = 1000;
constexpr std::size_t kLongestAbout = 200;
constexpr double kMostCounted = 1e9;
constexpr char kFieldEnd = '\x01';
constexpr std::string_view kNoteLineEnd = "@#$%";

std::string_view TakeWord(std::string_view& text) {
  const std::size_t end = std::min(text.find(' '), text.size());
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return word;
}

std::optional<std::size_t> Count(std::string_view word) {
  const auto number = ParseNumber(word);
  if (!number || *number < 0 || *number > kMostCounted) return std::nullopt;
  return static_cast<std::size_t>(*number);
}

std::optional<SampleFile> Sample(const Path& path) {
  if (!IsRegularFile(path)) return std::nullopt;
  const auto start = ReadStartOfFile(path, kBytesLookedAt);
  if (!start) return std::nullopt;
  std::string_view line = std::string_view(*start).substr(0, start->find_first_of("\r\n"));
  const std::size_t banner_end = line.find(kFieldEnd);
  std::string_view notes = banner_end == line.npos ? std::string_view() : line.substr(banner_end + 1);
  notes = notes.substr(0, std::min(notes.find(kFieldEnd), notes.find(kNoteLineEnd)));
  const auto records = Count(TakeWord(line));
  const auto variables = Count(TakeWord(line));
  if (!records || !variables) return std::nullopt;
  return SampleFile{path, FromUtf8(PathToUtf8(path.stem())), *records, *variables,
                    std::string(notes.substr(0, kLongestAbout))};
}

bool IsDataFile(const Path& path) {
  std::string ending = PathToUtf8(path.extension());
  std::ranges::transform(ending, ending.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return ending == ".dcs";
}

}  // namespace

std::vector<SampleFile> SampleFiles(const Path& folder) {
  std::vector<Path> files;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (IsDataFile(entry->path())) files.push_back(entry->path());
    if (files.size() == kMostFilesLookedAt) break;
  }
  std::ranges::sort(files);
  std::vector<SampleFile> samples;
  for (const Path& file : files) {
    if (auto sample = Sample(file)) samples.push_back(*std::move(sample));
    if (samples.size() == kMostSamples) break;
  }
  return samples;
}

}  // namespace tessara
