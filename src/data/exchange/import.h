#pragma once

#include <cstddef>
#include <optional>

#include "data/data_set.h"
#include "data/exchange/delimit_form.h"
#include "platform/platform.h"

// Import of delimited text: it takes the place of the data, without a question, and is one step that can be undone.

namespace tessara {

enum class ImportOutcome {
  kImported,
  kNothing,      // the preview is empty: a box has said so
  kNoDelimiter,  // none is selected: the form closes
  kNoData,       // no record or no variable: a box has said so, and the data stay
  kFailed,       // the text could not be read or kept: a box has said so, and the data stay
};

// What keeps an import from its start; nothing when it may go on.
std::optional<ImportOutcome> RefuseImport(const DelimitForm& form, Messages& messages);

// The import itself. The text of the clipboard goes by way of the file "Temp2.txt" among the user's documents. Lines
// with fewer fields than the first one have empty cells, and surplus fields are dropped. The changed flag stays.
// Without enough memory std::bad_alloc comes out and the data are as they were.
ImportOutcome ImportText(DelimitForm& form, DataSet& data, Platform& platform, std::size_t selected_variables = 0);

}  // namespace tessara
