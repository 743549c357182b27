#include "presentation/text_replacement.h"

#include <cstddef>
#include <cstring>

namespace tessara {
namespace {

std::size_t Count(std::string_view text, std::string_view find) {
  std::size_t count = 0;
  for (std::size_t at = text.find(find); at != text.npos; at = text.find(find, at + find.size())) ++count;
  return count;
}

// Moves the text to the end of a longer one, so that there is room for all that it grows by, and yields where it
// starts.
std::size_t MakeRoomAhead(std::string& text, const Replacement& step) {
  if (step.by.size() <= step.find.size()) return 0;
  const std::size_t size = text.size();
  const std::size_t growth = Count(text, step.find) * (step.by.size() - step.find.size());
  if (growth == 0) return 0;
  text.resize(size + growth);
  std::memmove(text.data() + growth, text.data(), size);
  return growth;
}

}  // namespace

void ReplaceAll(std::string& text, const Replacement& step) {
  std::size_t written = 0;
  std::size_t read = MakeRoomAhead(text, step);
  char* const bytes = text.data();
  const auto keep_up_to = [&](std::size_t end) {
    if (written != read) std::memmove(bytes + written, bytes + read, end - read);
    written += end - read;
    read = end;
  };
  // What lies from `read` on has not been touched yet, so the search goes on in the same text.
  for (std::size_t found; (found = text.find(step.find, read)) != text.npos; read += step.find.size()) {
    keep_up_to(found);
    std::memcpy(bytes + written, step.by.data(), step.by.size());
    written += step.by.size();
  }
  keep_up_to(text.size());
  text.resize(written);
}

void ReplaceAll(std::string& text, std::span<const Replacement> steps) {
  for (const Replacement& step : steps) ReplaceAll(text, step);
}

}  // namespace tessara
