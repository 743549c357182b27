#include "data/change_history.h"

#include <utility>

namespace tessara {

void ChangeHistory::SetLimit(std::size_t bytes) noexcept {
  limit_ = bytes;
  KeepToLimit();
}

void ChangeHistory::Clear() noexcept {
  undo_.clear();
  redo_.clear();
  bytes_ = 0;
}

void ChangeHistory::Saved() noexcept {
  saved_state_ = state_;
  ++saves_;
}

void ChangeHistory::ChangedOtherwise() noexcept {
  saved_state_ = 0;
  ++saves_;
}

void ChangeHistory::Taken(Steps& step, std::size_t bytes, bool& dirty) noexcept {
  while (!redo_.empty()) Drop(redo_);
  Step& taken = step.front();
  taken.bytes = bytes;
  taken.beyond = state_;
  taken.dirty_beyond = dirty;
  taken.saves = saves_;
  state_ = ++last_state_;
  switch (taken.change.flag) {
    case ChangedFlag::kSet:
      dirty = true;
      break;
    case ChangedFlag::kCleared:
      dirty = false;
      saved_state_ = state_;
      break;
    case ChangedFlag::kKept:
      break;
  }
  bytes_ += bytes;
  undo_.splice(undo_.end(), step);
  KeepToLimit();
}

void ChangeHistory::Cross(Steps& from, Steps& to, std::size_t bytes, bool& dirty) noexcept {
  Step& step = from.back();
  const bool dirty_there = step.saves == saves_ ? step.dirty_beyond : step.beyond != saved_state_;
  step.dirty_beyond = std::exchange(dirty, dirty_there);
  step.saves = saves_;
  std::swap(step.beyond, state_);
  bytes_ += bytes - std::exchange(step.bytes, bytes);
  to.splice(to.end(), from, std::prev(from.end()));
  KeepToLimit();
}

void ChangeHistory::Drop(Steps& steps) noexcept {
  bytes_ -= steps.front().bytes;
  steps.pop_front();
}

void ChangeHistory::KeepToLimit() noexcept {
  while (bytes_ > limit_ && !(undo_.empty() && redo_.empty())) Drop(undo_.empty() ? redo_ : undo_);
}

}  // namespace tessara
