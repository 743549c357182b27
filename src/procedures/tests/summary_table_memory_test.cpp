#include <gtest/gtest.h>

#include <new>

#include "platform/tests/failing_memory.h"
#include "procedures/tests/table_fixture.h"

// Whatever request of memory fails in a run of tables: table, log and charts are as they were.

namespace tessara {
namespace {

TEST(SummaryTableMemory, ARunAddsAllOrNothing) {
  TableFixture run({{.name = "ANSWER OF THE GROUP", .cells = Texts({"a long answer of many words", "no", "no"})},
                    {.name = "G", .cells = Texts({"1", "2", ""})},
                    {.name = "EMPTY", .cells = Texts({"", "", ""})}});
  run.options() = {.counts = true, .percent = true, .mean = true};
  run.Categorical({1});
  run.charts.charts.emplace_back();
  const TableTexts before = run.Texts();
  bool came_through = false;
  for (std::size_t allowed = 0; !came_through && allowed < 10000; ++allowed) {
    {
      const FailingMemory memory(allowed);
      try {
        run.Categorical({1, 3, 2}, {2});
      } catch (const std::bad_alloc&) {
      }
      came_through = !memory.HasFailed();
    }
    if (came_through) break;
    if (run.output.OutputLogText.empty()) {
      ASSERT_EQ(run.Texts(), before) << allowed;
      ASSERT_EQ(run.charts.charts.size(), 1u) << allowed;
    } else {  // only the note was still to come
      ASSERT_GT(run.Texts().size(), before.size()) << allowed;
      ASSERT_TRUE(run.charts.charts.empty()) << allowed;
      break;
    }
  }
  EXPECT_GT(run.Texts().size(), before.size());
  EXPECT_NE(run.output.OutputLogText.find("Frequency Analysis: EMPTY"), std::string::npos);
}

}  // namespace
}  // namespace tessara
