#include "procedures/samples/data_dictionary.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "data/data_statistics.h"
#include "data/edit/grid_block.h"
#include "data/missing_values.h"
#include "data/value_labels.h"
#include "numerics/number_text.h"
#include "presentation/print_pages.h"

namespace tessara {
namespace {

constexpr std::size_t kFileRule = 96;
constexpr std::size_t kNotesRule = 48;

std::string OrNone(std::string text) { return text.empty() ? "None" : text; }

std::string FileLines(const DataSet& data, const CalendarDay& today) {
  const std::string size = data.DataFileSize ? std::to_string(*data.DataFileSize) + " bytes" : "";
  return "FILE DATA DICTIONARY\t(As of " + ShortDate(today) + ")\r\n" +  //
         std::string(kFileRule, '_') + "\r\n" +                          //
         "Filename: " + data.DataFileTitle + "\r\n" +                    //
         "Number of Variables: " + std::to_string(data.VariableCount) + "\r\n" +
         "Number of Records: " + std::to_string(data.RecordCount) + "\r\n" +  //
         "File Size: " + size + "\r\n" +                                      //
         "Last Modified: " + data.DataFileModified + "\r\n\r\n";
}

std::string ValueLabelLines(const ValueLabels& labels) {
  if (labels.NoValueLabels) return "Value Labels: \tNone\r\n";
  std::string lines = "Value Labels:\r\n";
  for (const ValueLabels::Entry& entry : labels.table) {
    if (entry.value.empty() && entry.label.empty()) continue;
    lines += " " + entry.value + " = " + entry.label + "\r\n";
  }
  return lines;
}

// "9  99  <1  >5  "; nothing where no value is missing by definition.
std::string MissingText(const MissingValues& missing) {
  std::string text;
  for (std::size_t i = 0; i < kMissingEntries; ++i) {
    const std::string entry = TextOf(missing.entries[i]);
    if (entry.empty()) continue;
    const std::string_view sign = i == kLowerBoundEntry ? "<" : i == kUpperBoundEntry ? ">" : "";
    text.append(sign).append(entry).append("  ");
  }
  return text;
}

std::string VariableLines(const DataSet& data, std::size_t column) {
  return "Variable Name: \t" + data.VariableName(column) + "\r\n" +            //
         "Variable Label: \t" + OrNone(data.VariableLabel(column)) + "\r\n" +  //
         ValueLabelLines(LoadValueLabels(data.matrix, column)) +               //
         "Missing Values: \t" + OrNone(MissingText(LoadMissingSet(data.matrix, column))) + "\r\n";
}

}  // namespace

std::string DataDictionaryText(const DataSet& data, const CalendarDay& today) {
  std::string text = FileLines(data, today);
  for (std::size_t column = 1; column <= data.VariableCount; ++column) text += VariableLines(data, column);
  return text;
}

void CreateDataDictionary(DataSet& data, OutputLog& output, Platform& platform) {
  const WaitCursor wait(platform);
  const std::vector<std::string> reports = {DataDictionaryText(data, platform.Now().date)};
  RoomForReports room = MakeRoom(output, reports);
  AppendRun(output, reports, std::move(room));
  output.OutputGridMode = false;
  MoveCursor(data, {0, std::min<std::size_t>(1, data.VariableCount)});
}

std::string ProjectNotesText(const DataSet& data) {
  std::string text = "TESSARA DATA FILE:  " + data.DataFileTitle + "\r\n";
  for (const DataStatistics::Line& line : RefreshDataStatistics(data).lines) text += line.Text() + "\r\n";
  text += std::string(kNotesRule, '_') + "\r\n";
  text += "NOTES:\r\n" + data.ProjectNotes + "\r\n";
  return text;
}

bool PrintProjectNotes(const DataSet& data, Platform& platform) {
  const auto choice = platform.AskPrint({.title = "Print", .offer_selection = false});
  if (!choice) return false;
  const std::vector<std::string> pages(static_cast<std::size_t>(std::max(choice->copies, 0)), ProjectNotesText(data));
  if (platform.Print(JobOfPages(pages))) return true;
  ShowPrinterError(platform);
  return false;
}

}  // namespace tessara
