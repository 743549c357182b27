#pragma once

#include <string>

#include "platform/status.h"

// The progress display of long work. Small jobs show nothing. The form's Cancel button takes the bar away and nothing
// more: the job runs on to its end.

namespace tessara {

class Progress {
 public:
  explicit Progress(Status& status) : status_(status) {}
  ~Progress() { ProgressHide(true); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void ProgressOpen(double minimum, double maximum, const std::string& caption, std::size_t selected_variable_count);
  // Counts `steps` steps done. The form hears of them at most a few hundred times a job.
  void ProgressStep(double steps = 1);
  void ProgressHide(bool flag);

  bool ProgressOff() const { return off_; }
  double ProgressCount() const { return count_; }

 private:
  Status& status_;
  bool off_ = true;
  bool shown_ = false;
  double count_ = 0;
  double told_ = 0;
  double stride_ = 1;
  double minimum_ = 0;
  double maximum_ = 0;
  std::string caption_;
};

}  // namespace tessara
