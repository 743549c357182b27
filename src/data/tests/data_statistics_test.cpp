#include "data/data_statistics.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

DataStatistics StatisticsOf(std::size_t records, std::size_t variables) {
  DataSet data;
  data.RecordCount = records;
  data.VariableCount = variables;
  return RefreshDataStatistics(data);
}

TEST(DataStatistics, ANewDataSet) {
  const DataStatistics statistics = StatisticsOf(1000, 20);
  EXPECT_EQ(statistics.lines[0].Text(), "Number of Observations: 1,000");
  EXPECT_EQ(statistics.lines[1].Text(), "Number of Variables: 20");
  EXPECT_EQ(statistics.lines[2].Text(), "Data Cells Used: 20,000");
  EXPECT_EQ(statistics.lines[3].Text(), "Data Cells Remaining: 180,000");
  EXPECT_EQ(statistics.lines[4].Text(), "Data Cell Usage: 10.00%");
  EXPECT_EQ(statistics.lines[5].Text(), "Data File Size: ");
  EXPECT_EQ(statistics.lines[6].Text(), "Data File Modified: ");
  EXPECT_EQ(statistics.usage_bar, 10);
}

TEST(DataStatistics, SizeAndTimeOfAFile) {
  DataSet data;
  data.DataFileSize = 1234567;
  data.DataFileModified = "11/5/2026 3:07:09 PM";
  const DataStatistics statistics = RefreshDataStatistics(data);
  EXPECT_EQ(statistics.lines[5].Text(), "Data File Size: 1,234,567 bytes");
  EXPECT_EQ(statistics.lines[6].Text(), "Data File Modified: 11/5/2026 3:07:09 PM");
}

TEST(DataStatistics, AtTheEditLimitNothingRemains) {
  const DataStatistics statistics = StatisticsOf(2000, 100);
  EXPECT_EQ(statistics.lines[3].Text(), "Data Cells Remaining: 0");
  EXPECT_EQ(statistics.lines[4].Text(), "Data Cell Usage: 100.00%");
  EXPECT_EQ(statistics.usage_bar, 100);
}

TEST(DataStatistics, AboveTheEditLimitTheUsageIsCapped) {
  const DataStatistics statistics = StatisticsOf(250, 1000);
  EXPECT_EQ(statistics.lines[2].Text(), "Data Cells Used: 250,000");
  EXPECT_EQ(statistics.lines[3].Text(), "Exceeds Edit Limit by: 50,000 cells");
  EXPECT_EQ(statistics.lines[4].Text(), "Data Cell Usage: 100.00%");
  EXPECT_EQ(statistics.usage_bar, 100);
}

TEST(DataStatistics, BelowThreePercentTheBarShowsTwo) {
  EXPECT_EQ(StatisticsOf(0, 0).usage_bar, 2);
  EXPECT_EQ(StatisticsOf(5999, 1).usage_bar, 2);  // 2.9995 percent
  EXPECT_EQ(StatisticsOf(6000, 1).usage_bar, 3);
  EXPECT_EQ(StatisticsOf(5999, 1).lines[4].Text(), "Data Cell Usage: 3.00%");
  EXPECT_EQ(StatisticsOf(24691, 1).lines[4].Text(), "Data Cell Usage: 12.35%");  // 12.3455
}

TEST(DataStatistics, ManyCellsAreCountedInFull) {
  EXPECT_EQ(StatisticsOf(10000000, 20).lines[2].Text(), "Data Cells Used: 200,000,000");
  EXPECT_EQ(StatisticsOf(10000000, 20).lines[3].Text(), "Exceeds Edit Limit by: 199,800,000 cells");
}

}  // namespace
}  // namespace tessara
