#include <functional>

#include "data/recode/tests/recode_fixture.h"
#include "data/tests/change_model.h"
#include "platform/tests/failing_memory.h"

// Whatever request of memory fails in a run: the data and the panel are as they were, and the next run is a whole one.

namespace tessara {
namespace {

class RecodeMemoryTest : public RecodeFixture {
 protected:
  // Runs the operation with each of its requests failing in turn, until it comes through.
  void Fail(const std::function<void()>& operation) {
    const Model before = ModelOf(data.matrix);
    const std::size_t variables = data.VariableCount;
    const std::string step(UndoName(data));
    for (std::size_t allowed = 0; allowed < 10000; ++allowed) {
      bool failed = false;
      {
        const FailingMemory memory(allowed);
        try {
          operation();
        } catch (const std::bad_alloc&) {
          failed = true;
        }
      }
      EXPECT_EQ(platform.wait_cursors, 0);
      if (!failed) {
        EXPECT_GT(allowed, 0u);
        return;
      }
      ASSERT_EQ(ModelOf(data.matrix), before) << allowed;
      ASSERT_EQ(data.VariableCount, variables) << allowed;
      ASSERT_EQ(UndoName(data), step) << allowed;
    }
    FAIL() << "never came through";
  }

  const std::string text_ = std::string(100, 'x');
};

TEST_F(RecodeMemoryTest, ANewVariableComesWholeOrNotAtAll) {
  Make({{"A", {"1", "2", text_}}, {"B", {"3", "0", "5"}}});
  FillRecode(1, "G", RecodeOption::kGreaterThan, "1", text_);
  Fail([&] { RunRecodePanel(panel, data, platform); });
  EXPECT_EQ(Cells(3), (Texts{"-", "'" + text_ + "'", "'" + text_ + "'"}));
  panel.NewValue = text_ + "y";
  Fail([&] { RunRecodePanel(panel, data, platform); });
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(Cells(3)[1], "'" + text_ + "y'");
  FillTwo(RecodeMode::kCombine, 1, 2, "Q");
  panel.combine_option = CombineOption::kDivided;
  Fail([&] { RunRecodePanel(panel, data, platform); });
  EXPECT_EQ(Cells(4), (Texts{"'0.33333'", "0", "-"}));
}

TEST_F(RecodeMemoryTest, AReplaceAndItsUndo) {
  Make({{"A", {"1", text_}}});
  FillReplace(1, "x", "yz");
  Fail([&] { RunRecodePanel(panel, data, platform); });
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 1).text().size(), 200u);
  Fail([&] { UndoReplace(panel, data); });
  EXPECT_EQ(Cells(1), (Texts{"'1'", "'" + text_ + "'"}));
}

TEST_F(RecodeMemoryTest, MarksThatHaveNoMemoryToMoveGo) {
  Make({{"A", {"x", "x"}}});
  Open(RecodeMode::kFind);
  PickRecodeVariable(panel, 1);
  panel.Text12 = "x";
  Run();
  Run();
  ASSERT_TRUE(ApplyChange(data, RemoveRows(data, 1, 1, "Delete")));
  const auto notes = data.notes.Since(panel.followed_revision);
  ASSERT_TRUE(notes);
  const FailingMemory memory(0);
  panel.marks.Follow(notes->front());
  EXPECT_TRUE(memory.HasFailed());
  EXPECT_FALSE(panel.marks.has_bold());
}

}  // namespace
}  // namespace tessara
