#include "procedures/samples/sample_progress.h"

#include <string>

#include "procedures/samples/say_afterwards.h"

namespace tessara {
namespace {

constexpr std::chrono::milliseconds kBetweenUpdates{20};

}  // namespace

void SampleProgress::Show(std::string_view caption, double value) noexcept {
  SayAfterwards([&] {
    status_.ShowProgress(0, maximum_, std::string(caption));
    status_.UpdateProgress(value);
  });
  next_ = std::chrono::steady_clock::now() + kBetweenUpdates;
}

}  // namespace tessara
