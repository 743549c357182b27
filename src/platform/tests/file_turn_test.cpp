#include "platform/file_turn.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/files.h"

namespace tessara {
namespace {

// Each thread has locks of its own, as a program of its own would.
TEST(FileTurn, OneWriterWaitsForAnother) {
  const Path folder = std::filesystem::temp_directory_path() / ("tessara_turn_" + std::to_string(SystemEntropy()));
  std::filesystem::create_directories(folder);
  const Path file = folder / "count.txt";
  std::ofstream(file) << 0;
  constexpr int kThreads = 4;
  constexpr int kTurns = 25;
  std::atomic<int> inside = 0;
  std::atomic<bool> alone = true;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int turn_number = 0; turn_number < kTurns; ++turn_number) {
        const FileTurn turn(file);
        if (++inside != 1) alone = false;
        int count = 0;
        std::ifstream(file) >> count;
        WriteWholeFile(file, std::to_string(count + 1));
        --inside;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  int count = 0;
  std::ifstream(file) >> count;
  EXPECT_TRUE(alone);
  EXPECT_EQ(count, kThreads * kTurns);
  std::filesystem::remove_all(folder);
}

TEST(FileTurn, AFolderThatIsNotThereStopsNobody) { const FileTurn turn("/no such folder/file.txt"); }

}  // namespace
}  // namespace tessara
