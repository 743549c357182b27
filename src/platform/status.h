#pragma once

#include <string>

// What an operation shows while it works, and what it says without waiting for an answer.

namespace tessara {

class Status {
 public:
  virtual ~Status() = default;

  virtual void SetStatusPane(int pane, const std::string& text) = 0;  // panes 1 to 3
  // Says what helps and refuses nothing: in pane 1 of the window, on standard error in the batch program.
  virtual void ShowNote(const std::string& text) = 0;

  virtual void ShowWaitCursor() = 0;
  virtual void HideWaitCursor() = 0;

  // The progress form. UpdateProgress yields false once the user has pressed its Cancel button.
  virtual void ShowProgress(double minimum, double maximum, const std::string& caption) = 0;
  virtual bool UpdateProgress(double value) = 0;
  virtual void HideProgress() = 0;
};

// The wait cursor for as long as the object lives.
class WaitCursor {
 public:
  explicit WaitCursor(Status& status) : status_(status) { status_.ShowWaitCursor(); }
  ~WaitCursor() { status_.HideWaitCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Status& status_;
};

}  // namespace tessara
