#pragma once

#include <chrono>
#include <string_view>

#include "platform/status.h"

// The bar of a sampling panel and the words above it. A bar that is told of each step would take more time than the
// sampling: it hears of what comes too fast at most fifty times a second.

namespace tessara {

class SampleProgress {
 public:
  SampleProgress(Status& status, double maximum) : status_(status), maximum_(maximum) {}
  ~SampleProgress() { status_.HideProgress(); }
  SampleProgress(const SampleProgress&) = delete;
  SampleProgress& operator=(const SampleProgress&) = delete;

  // The words and where the bar stands, whatever the time. Where there is no memory for it nothing is shown.
  void Show(std::string_view caption, double value) noexcept;
  // Whether it is time to show the next step.
  bool IsDue() const { return std::chrono::steady_clock::now() >= next_; }

 private:
  Status& status_;
  double maximum_;
  std::chrono::steady_clock::time_point next_{};
};

}  // namespace tessara
