#include "batch/commands/recode_line.h"

#include <algorithm>

#include "batch/words/script_line.h"
#include "batch/words/variable_lists.h"
#include "data/edit/cell_entry.h"
#include "data/recode/recode_run.h"

namespace tessara {

RecodeLine ReadRecodeLine(const Batch& batch, const CommandWords& words, std::initializer_list<std::string_view> names,
                          std::size_t variables) {
  RecodeLine line;
  if (words.words.size() < names.size()) {
    line.error = std::string(names.begin()[words.words.size()]) + " is missing";
    return line;
  }
  for (std::size_t i = 0; i < variables; ++i) {
    const auto column = FindVariable(batch.session.data, words.words[i]);
    if (!column) {
      line.error = UnknownVariable(words.words[i]);
      return line;
    }
    line.columns.push_back(*column);
  }
  return line;
}

std::string MoreThanOne(const CommandWords& words, std::initializer_list<std::string_view> options,
                        std::string_view what) {
  const auto given = std::ranges::count_if(options, [&](std::string_view option) { return words.Has(option); });
  return given > 1 ? "only one " + std::string(what) + " may be given" : std::string();
}

std::string BoxWithoutCommas(Batch& batch, std::string_view word) {
  return WithoutCommas(HeldText(word), batch.platform);
}

std::string BoxOfOption(const CommandWords& words, std::string_view option) {
  return HeldText(words.Value(option).value_or(""));
}

CommandResult RunRecodeLine(Batch& batch) {
  RunRecodePanel(batch.session.recode, batch.session.data, batch.platform);
  return Done();
}

}  // namespace tessara
