#pragma once

#include <QString>

namespace tessara {

// A bar and a caption inside a view, for work that shows its progress there and not in a form of its own.
class ProgressPlace {
 public:
  ProgressPlace() = default;
  virtual ~ProgressPlace() = default;
  ProgressPlace(const ProgressPlace&) = delete;
  ProgressPlace& operator=(const ProgressPlace&) = delete;

  // Whether the work at hand was begun there.
  virtual bool Takes() const = 0;
  virtual void Open(double minimum, double maximum, const QString& caption) = 0;
  virtual void Step(double value) = 0;
  virtual void Close() = 0;
};

}  // namespace tessara
