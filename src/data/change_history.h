#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string_view>
#include <vector>

#include "data/change.h"

// The steps that can be undone and redone, and what the changed flag was on either side of them. The memory that the
// steps keep from being given back is estimated, without a look at a cell; where it goes over the limit the oldest
// steps are forgotten.

namespace tessara {

inline constexpr std::size_t kHistoryLimit = std::size_t{256} << 20;  // bytes

class ChangeHistory {
 public:
  struct Step {
    DataChange change;          // what undoes, or redoes, the step
    std::size_t bytes = 0;      // that the change holds
    std::uint64_t beyond = 0;   // the state of the data on the step's other side
    bool dirty_beyond = false;  // the changed flag there, unless the data were saved since
    std::uint64_t saves = 0;    // at the time when the step was last taken
  };
  using Steps = std::list<Step>;

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  // The name of the step that would be undone or redone; empty for none.
  std::string_view UndoName() const { return CanUndo() ? std::string_view(undo_.back().change.name) : ""; }
  std::string_view RedoName() const { return CanRedo() ? std::string_view(redo_.back().change.name) : ""; }

  // 0 keeps no step at all.
  void SetLimit(std::size_t bytes) noexcept;
  std::size_t limit() const { return limit_; }
  // What the steps hold, in bytes.
  std::size_t Bytes() const { return bytes_; }

  void Clear() noexcept;

  // The data stand as they are in their file.
  void Saved() noexcept;
  // Something beside the cells has changed: no step leads back to what is in the file.
  void ChangedOtherwise() noexcept;

  // For the door. A step has been taken for the first time, the newest has been undone, or redone: its change is the
  // inverse by now and holds so many bytes. `dirty` is the changed flag and becomes what it is on the other side.
  void Taken(Steps& step, std::size_t bytes, bool& dirty) noexcept;
  void Undone(std::size_t bytes, bool& dirty) noexcept { Cross(undo_, redo_, bytes, dirty); }
  void Redone(std::size_t bytes, bool& dirty) noexcept { Cross(redo_, undo_, bytes, dirty); }
  DataChange& NextUndo() { return undo_.back().change; }
  DataChange& NextRedo() { return redo_.back().change; }

 private:
  void Cross(Steps& from, Steps& to, std::size_t bytes, bool& dirty) noexcept;
  void Drop(Steps& steps) noexcept;
  void KeepToLimit() noexcept;

  Steps undo_;  // the newest step last
  Steps redo_;  // the next one last
  std::size_t limit_ = kHistoryLimit;
  std::size_t bytes_ = 0;
  std::uint64_t state_ = 1;  // no two states of the data have the same number
  std::uint64_t last_state_ = 1;
  std::uint64_t saved_state_ = 1;  // 0: none that a step leads to
  std::uint64_t saves_ = 0;
};

}  // namespace tessara
