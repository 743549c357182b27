#include "calculators/typed_number.h"

#include "calculators/summary_text.h"
#include "numerics/number_text.h"

namespace tessara {

Number TypedNumber(std::string_view text) { return ToNumber(WithoutCommas(text)).value_or(0); }

}  // namespace tessara
