#include "batch/words/nearest_word.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace tessara {
namespace {

constexpr std::size_t kLettersLookedAt = 64;

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b) {
  a = a.substr(0, kLettersLookedAt);
  b = b.substr(0, kLettersLookedAt);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, replaced}));
    }
  }
  return row.back();
}

std::string_view NearestWord(std::string_view word, std::span<const std::string_view> names) {
  if (names.empty()) return {};
  return *std::ranges::min_element(names, {}, [&](std::string_view name) { return EditDistance(word, name); });
}

}  // namespace tessara
