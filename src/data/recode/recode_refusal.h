#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/dialogs.h"

// What the panel says instead of a run.

namespace tessara {

struct RecodePanel;

inline constexpr std::string_view kNoVariable = "You must select a variable from the list";
inline constexpr std::string_view kNoOperator = "You must select an operator button.";
inline constexpr std::string_view kEmptyBox = "All boxes must be completed.";
inline constexpr std::string_view kEmptyFindBox = "Find box must be completed.";

inline MessageBox AbortedBox(std::string_view text) { return {"Procedure Aborted", std::string(text)}; }

// The checks of the mode, in their order: the text of the first that fails; nothing when a run may go ahead.
std::optional<std::string_view> RecodeRefusal(const RecodePanel& panel);

}  // namespace tessara
