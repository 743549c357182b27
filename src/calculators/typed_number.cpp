#include "calculators/typed_number.h"

#include <algorithm>
#include <string>

#include "numerics/number_text.h"

namespace tessara {

Number TypedNumber(std::string_view text) {
  std::string digits(text);
  std::erase(digits, ',');
  return ToNumber(digits).value_or(0);
}

}  // namespace tessara
