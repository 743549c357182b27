#include "procedures/examples/examples.h"

#include "procedures/examples/example_texts.h"

namespace tessara {

std::string_view ExampleOfOutput(Procedure procedure, RegressionKind kind) {
  switch (procedure) {
    case Procedure::kNone:
      return {};
    case Procedure::kFrequencies:
      return FrequenciesExample();
    case Procedure::kDescriptives:
      return DescriptivesExample();
    case Procedure::kCrosstabulation:
      return CrosstabulationExample();
    case Procedure::kTTest:
      return TTestExample();
    case Procedure::kAnova:
      return AnovaExample();
    case Procedure::kCorrelation:
      return CorrelationExample();
    case Procedure::kRegression:
      return kind == RegressionKind::kLogistic ? LogisticExample() : LeastSquaresExample();
    case Procedure::kListVariables:
      return ListVariablesExample();
    case Procedure::kDiagnostic:
      return DiagnosticExample();
    case Procedure::kRandomSample:
      return RandomSampleExample();
    case Procedure::kRepeatedSampling:
      return RepeatedSamplingExample();
    case Procedure::kExplore:
      return ExploreExample();
    case Procedure::kSummaryTables:
      return SummaryTablesExample();
  }
  return {};
}

}  // namespace tessara
