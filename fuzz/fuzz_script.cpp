// Scripts of any bytes, read from standard input. Files are out of reach: whatever a line says, nothing is read or
// written outside the process.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "batch_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tessara;
  if (size == 0) return 0;
  KeepFromFiles(false);
  const std::string_view script(reinterpret_cast<const char*>(bytes), size);
  const std::vector<std::string> arguments = {"--seed", "1", "--script", "-"};
  const BatchOutcome outcome = RunInMemory(arguments, script);
  CheckOutcome(outcome);
  Require(outcome.status != 2 || outcome.err.find("-:") != std::string::npos, "a line that ends the script is named");
  return 0;
}
