#include "procedures/cases/case_source.h"

namespace tessara {

CaseSource ReadableCases(const DataSet& data, std::size_t control_column, const ControlChoice& choice) {
  return {data, TrimToUsedRange(data), CaseControl(data, control_column, choice)};
}

}  // namespace tessara
