#include "data/progress.h"

#include <algorithm>

namespace tessara {
namespace {

constexpr double kSmallJob = 1000;
constexpr std::size_t kManyVariables = 20;
constexpr double kUpdatesPerJob = 200;

}  // namespace

void Progress::ProgressOpen(double minimum, double maximum, const std::string& caption,
                            std::size_t selected_variable_count) {
  off_ = maximum < kSmallJob && selected_variable_count < kManyVariables;
  if (off_) return;
  count_ = 0;
  told_ = 0;
  stride_ = std::max(1.0, maximum / kUpdatesPerJob);
  minimum_ = minimum;
  maximum_ = maximum;
  caption_ = caption;
  ProgressHide(false);
}

void Progress::ProgressStep(double steps) {
  if (off_) {
    if (shown_) status_.HideProgress();
    shown_ = false;
    return;
  }
  count_ += steps;
  if (count_ - told_ < stride_ && count_ < maximum_) return;
  told_ = count_;
  if (!status_.UpdateProgress(count_)) off_ = true;
}

void Progress::ProgressHide(bool flag) {
  if (flag) {
    if (shown_) status_.HideProgress();
    shown_ = false;
    count_ = 0;
  } else {
    status_.ShowProgress(minimum_, maximum_, caption_);
    shown_ = true;
  }
}

}  // namespace tessara
