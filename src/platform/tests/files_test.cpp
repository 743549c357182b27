#include "platform/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/tests/temporary_folder.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/resource.h>
#include <utime.h>

#include <cstdlib>
#include <ctime>
#endif

namespace tessara {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

// A text without a repeating pattern of short length.
std::string LongText(std::size_t size) {
  std::string text(size, '\0');
  unsigned state = 1;
  for (char& c : text) {
    state = state * 1664525u + 1013904223u;
    c = static_cast<char>(state >> 24);
  }
  return text;
}

// Writing.

TEST(SafeFileWriter, WritesANewFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(WriteWholeFile(folder / "new.txt", "one\r\ntwo"), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(folder / "new.txt"), "one\r\ntwo");
  EXPECT_EQ(folder.Names(), Names{"new.txt"});
}

TEST(SafeFileWriter, WritesAnEmptyFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(WriteWholeFile(folder / "empty.txt", ""), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(folder / "empty.txt"), "");
}

TEST(SafeFileWriter, ReplacesAnOldFileByAShorterOne) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "a long old text");
  EXPECT_EQ(WriteWholeFile(path, "new"), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(SafeFileWriter, OldFileStandsUntilTheCommit) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  SafeFileWriter writer(path);
  writer.Write(LongText(3 * kMegabyte));
  EXPECT_EQ(writer.result(), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(path), "old");
  EXPECT_EQ(folder.Names().size(), 2u);  // the new text stands beside it
  EXPECT_EQ(writer.Commit(), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(path), LongText(3 * kMegabyte));
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(SafeFileWriter, WithoutACommitNothingHappens) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  {
    SafeFileWriter over_old(path);
    over_old.Write("new");
    SafeFileWriter over_nothing(folder / "b.txt");
    over_nothing.Write(LongText(2 * kMegabyte));
  }
  EXPECT_EQ(ContentOf(path), "old");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(SafeFileWriter, PiecesOfEverySizeComeInTheirOrder) {
  const TemporaryFolder folder;
  const std::string text = LongText(5 * kMegabyte);
  SafeFileWriter writer(folder / "pieces");
  std::size_t written = 0;
  for (std::size_t size = 0; written < text.size(); size = (size * 7 + 1) % (2 * kMegabyte)) {
    const std::string_view piece = std::string_view(text).substr(written, size);
    writer.Write(piece);
    written += piece.size();
  }
  EXPECT_EQ(writer.Commit(), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(folder / "pieces"), text);
}

TEST(SafeFileWriter, TwoWritersOfOneFileDoNotMeet) {
  const TemporaryFolder folder;
  SafeFileWriter first(folder / "a.txt");
  SafeFileWriter second(folder / "a.txt");
  first.Write("first");
  second.Write("second");
  EXPECT_EQ(first.Commit(), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(folder / "a.txt"), "first");
  EXPECT_EQ(second.Commit(), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(folder / "a.txt"), "second");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(SafeFileWriter, FolderAsTargetIsRefused) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "inner");
  EXPECT_EQ(WriteWholeFile(folder / "inner", "text"), WriteResult::kRefused);
  EXPECT_EQ(folder.Names(), Names{"inner"});
  EXPECT_TRUE(fs::is_directory(folder / "inner"));
}

TEST(SafeFileWriter, VanishedFolderIsNotFound) {
  const TemporaryFolder folder;
  EXPECT_EQ(WriteWholeFile(folder / "gone" / "a.txt", "text"), WriteResult::kPathNotFound);
  EXPECT_TRUE(folder.Names().empty());
}

TEST(SafeFileWriter, FileInThePlaceOfAFolderIsNotFound) {
  const TemporaryFolder folder;
  const Path file = folder.Make("a.txt", "old");
  EXPECT_EQ(WriteWholeFile(file / "b.txt", "text"), WriteResult::kPathNotFound);
  EXPECT_EQ(ContentOf(file), "old");
}

TEST(SafeFileWriter, FolderThatVanishesBeforeTheCommitIsNoSuccess) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "inner");
  SafeFileWriter writer(folder / "inner" / "a.txt");
  writer.Write("text");
  fs::remove_all(folder / "inner");
  EXPECT_NE(writer.Commit(), WriteResult::kWritten);
  EXPECT_TRUE(folder.Names().empty());
}

TEST(SafeFileWriter, CopyReplacesTheTarget) {
  const TemporaryFolder folder;
  const Path from = folder.Make("from", "new");
  const Path to = folder.Make("to", "old");
  EXPECT_TRUE(CopyFileOver(from, to));
  EXPECT_EQ(ContentOf(to), "new");
  EXPECT_EQ(ContentOf(from), "new");
}

TEST(SafeFileWriter, CopyOfAMissingFileLeavesTheTarget) {
  const TemporaryFolder folder;
  const Path to = folder.Make("to", "old");
  EXPECT_FALSE(CopyFileOver(folder / "missing", to));
  EXPECT_EQ(ContentOf(to), "old");
}

#if !defined(_WIN32)

TEST(SafeFileWriter, FullDeviceIsRefused) {
  EXPECT_EQ(WriteWholeFile("/dev/full", "text"), WriteResult::kRefused);
  EXPECT_EQ(WriteWholeFile("/dev/full", LongText(3 * kMegabyte)), WriteResult::kRefused);
  EXPECT_FALSE(fs::is_regular_file("/dev/full"));
}

TEST(SafeFileWriter, DeviceIsWrittenDirectly) {
  EXPECT_EQ(WriteWholeFile("/dev/null", LongText(kMegabyte)), WriteResult::kWritten);
  EXPECT_FALSE(fs::is_regular_file("/dev/null"));
}

// Lets no file of this process grow beyond a size, as on a disk without space.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : signal_(::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limited = before_;
    limited.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limited);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    ::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
  void (*signal_)(int);
};

TEST(SafeFileWriter, DiskThatFillsUpLeavesTheOldFileWhole) {
  const TemporaryFolder folder;
  const std::string old_text = LongText(200000);
  const Path path = folder.Make("a.txt", old_text);
  for (const std::size_t size : {std::size_t{150000}, 5 * kMegabyte}) {
    WriteResult result;
    {
      const FileSizeLimit full(100000);
      result = WriteWholeFile(path, std::string(size, 'x'));
    }
    EXPECT_EQ(result, WriteResult::kRefused);
    EXPECT_EQ(ContentOf(path), old_text);
    EXPECT_EQ(folder.Names(), Names{"a.txt"});
  }
}

TEST(SafeFileWriter, WriterGoesOnQuietlyBehindAFailure) {
  const TemporaryFolder folder;
  SafeFileWriter writer("/dev/full");
  for (int i = 0; i < 4; ++i) writer.Write(LongText(kMegabyte));
  EXPECT_EQ(writer.result(), WriteResult::kRefused);
  EXPECT_EQ(writer.Commit(), WriteResult::kRefused);
}

TEST(SafeFileWriter, PermissionsAreKept) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  for (const unsigned mode : {0640u, 0600u, 0755u, 0666u}) {
    fs::permissions(path, fs::perms(mode));
    EXPECT_EQ(WriteWholeFile(path, "new"), WriteResult::kWritten);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(mode));
  }
}

TEST(SafeFileWriter, LinkStaysALink) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "inner");
  const Path real = folder.Make("inner/real.txt", "old");
  fs::create_symlink("inner/real.txt", folder / "link.txt");
  EXPECT_EQ(WriteWholeFile(folder / "link.txt", "new"), WriteResult::kWritten);
  EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
  EXPECT_FALSE(fs::is_symlink(real));
  EXPECT_EQ(ContentOf(real), "new");
  EXPECT_EQ(folder.Names(), (Names{"inner", "link.txt"}));
}

TEST(FactsOfFile, SizeAndLocalTime) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "12345");
  const char* const zone_before = std::getenv("TZ");
  const std::optional<std::string> zone = zone_before ? std::optional<std::string>(zone_before) : std::nullopt;
  const utimbuf moment{1793891229, 1793891229};  // 5 November 2026, 15:07:09 in Greenwich
  ASSERT_EQ(::utime(path.c_str(), &moment), 0);

  ::setenv("TZ", "AAA+5", 1);  // five hours behind Greenwich
  ::tzset();
  const auto facts = FactsOfFile(path);
  zone ? ::setenv("TZ", zone->c_str(), 1) : ::unsetenv("TZ");
  ::tzset();

  ASSERT_TRUE(facts.has_value());
  EXPECT_EQ(facts->size, 5u);
  EXPECT_EQ(facts->modified, (DateTime{{2026, 11, 5}, 10, 7, 9}));
}

#endif

TEST(FactsOfFile, NothingOfAMissingFileOrAFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(FactsOfFile(folder / "missing").has_value());
  EXPECT_FALSE(FactsOfFile(folder.path()).has_value());
  EXPECT_FALSE(FactsOfFile("").has_value());
}

// Reading.

TEST(ReadWholeFile, NothingOfAMissingFileOrAFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(ReadWholeFile(folder / "missing").has_value());
  EXPECT_FALSE(ReadWholeFile(folder.path()).has_value());
  EXPECT_FALSE(ReadWholeFile("").has_value());
}

TEST(ReadWholeFile, EmptyFileIsThere) {
  const TemporaryFolder folder;
  const auto bytes = ReadWholeFile(folder.Make("empty", ""));
  ASSERT_TRUE(bytes.has_value());
  EXPECT_EQ(bytes->size(), 0u);
  EXPECT_EQ(bytes->text(), "");
}

TEST(ReadWholeFile, TakesEveryByteAsItIs) {
  const TemporaryFolder folder;
  const std::string text("\xEF\xBB\xBF\0a\r\n\x1A\xFFz", 10);
  EXPECT_EQ(ContentOf(folder.Make("a", text)), text);
}

TEST(ReadWholeFile, ZerosStandOnBothSidesOfTheText) {
  const TemporaryFolder folder;
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{63}, std::size_t{64}, 5 * kMegabyte + 3}) {
    const auto bytes = ReadWholeFile(folder.Make("a", std::string(size, 'x')));
    ASSERT_TRUE(bytes.has_value());
    const auto is_zero = [](char c) { return c == '\0'; };
    const char* const text = bytes->data();
    EXPECT_TRUE(std::all_of(text - kFilePadding, text, is_zero)) << size;
    EXPECT_TRUE(std::all_of(text + size, text + size + kFilePadding, is_zero)) << size;
    EXPECT_EQ(bytes->text(), std::string(size, 'x'));
  }
}

TEST(FileBytes, MoreThanTheMachineHoldsIsNotToBeHad) {
  EXPECT_FALSE(FileBytes::Allocate(static_cast<std::size_t>(-1)).has_value());
  EXPECT_FALSE(FileBytes::Allocate(static_cast<std::size_t>(MachineMemory()) + 1).has_value());
}

// Folders and names.

TEST(ProgramFolder, IsThatOfTheExecutableWhenDataAndHelpStandInIt) {
  const TemporaryFolder folder;
  folder.Make("program-folder.txt", "/elsewhere\n");
  EXPECT_EQ(FindProgramFolder(folder.path()), Path("/elsewhere"));
  fs::create_directory(folder / "Data");
  EXPECT_EQ(FindProgramFolder(folder.path()), Path("/elsewhere"));
  fs::create_directory(folder / "Help");
  EXPECT_EQ(FindProgramFolder(folder.path()), folder.path());
}

TEST(ProgramFolder, IsTheOneThatABuildTreeNotes) {
  const TemporaryFolder folder;
  folder.Make("program-folder.txt", "/a folder/installed");
  EXPECT_EQ(FindProgramFolder(folder.path()), Path("/a folder/installed"));
}

TEST(ProgramFolder, IsThatOfTheExecutableWhenNothingIsNoted) {
  const TemporaryFolder folder;
  EXPECT_EQ(FindProgramFolder(folder.path()), folder.path());
  folder.Make("program-folder.txt", "");
  EXPECT_EQ(FindProgramFolder(folder.path()), folder.path());
}

TEST(ProgramFolder, ExecutableStandsInItsFolder) {
  EXPECT_TRUE(ExecutableFolder().is_absolute());
  EXPECT_TRUE(fs::is_directory(ExecutableFolder()));
}

TEST(Paths, Utf8ThereAndBack) {
  EXPECT_EQ(PathToUtf8(PathFromUtf8("/a b/caf\xC3\xA9.dcs")), "/a b/caf\xC3\xA9.dcs");
  EXPECT_EQ(PathFromUtf8("caf\xC3\xA9"), Path(u8"caf\u00E9"));
}

}  // namespace
}  // namespace tessara
