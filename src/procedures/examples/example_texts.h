#pragma once

#include <string_view>

// The examples of output, one a procedure: a report on a sample data set, exactly as the procedure prints it, then
// instructions for a student. Only examples.cpp asks for them.

namespace tessara {

std::string_view FrequenciesExample();
std::string_view DescriptivesExample();
std::string_view ExploreExample();
std::string_view ListVariablesExample();

std::string_view CrosstabulationExample();
std::string_view TTestExample();
std::string_view AnovaExample();
std::string_view DiagnosticExample();

std::string_view CorrelationExample();
std::string_view LeastSquaresExample();
std::string_view LogisticExample();

std::string_view SummaryTablesExample();
std::string_view RandomSampleExample();
std::string_view RepeatedSamplingExample();

}  // namespace tessara
