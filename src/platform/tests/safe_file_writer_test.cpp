#include "platform/safe_file_writer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/file_calls.h"
#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"

#if !defined(_WIN32)
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif
#if defined(__linux__)
#include <sys/xattr.h>
#endif

// What a file that is written anew keeps of the old one, and what is left of writers that came to an end.

namespace tessara {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

// Calls of the test's own in the table, until the object goes.
class ReplacedCalls {
 public:
  ReplacedCalls() : before_(CallsOfFiles()) {}
  ~ReplacedCalls() { CallsOfFiles() = before_; }
  ReplacedCalls(const ReplacedCalls&) = delete;
  ReplacedCalls& operator=(const ReplacedCalls&) = delete;
  FileCalls* operator->() { return &CallsOfFiles(); }

 private:
  FileCalls before_;
};

TEST(SafeFileWriterLinks, LinkThatLeadsNowhereGetsItsTarget) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "inner");
  fs::create_symlink("inner/second", folder / "first");
  fs::create_symlink("data.dcs", folder / "inner" / "second");
  EXPECT_EQ(WriteWholeFile(folder / "first", "new"), WriteResult::kWritten);
  EXPECT_TRUE(fs::is_symlink(folder / "first"));
  EXPECT_TRUE(fs::is_symlink(folder / "inner" / "second"));
  EXPECT_EQ(ContentOf(folder / "inner" / "data.dcs"), "new");
  EXPECT_FALSE(fs::is_symlink(folder / "inner" / "data.dcs"));
}

TEST(SafeFileWriterLinks, LinkIntoAFolderThatIsNotThereIsNotFound) {
  const TemporaryFolder folder;
  fs::create_symlink("gone/data.dcs", folder / "link");
  EXPECT_EQ(WriteWholeFile(folder / "link", "new"), WriteResult::kPathNotFound);
  EXPECT_EQ(folder.Names(), Names{"link"});
}

TEST(SafeFileWriterLinks, LinkToItselfIsRefused) {
  const TemporaryFolder folder;
  fs::create_symlink("round", folder / "round");
  EXPECT_NE(WriteWholeFile(folder / "round", "new"), WriteResult::kWritten);
  EXPECT_TRUE(fs::is_symlink(folder / "round"));
}

TEST(SafeFileWriterCalls, ShortWritesAndInterruptionsGoOn) {
  const TemporaryFolder folder;
  ReplacedCalls calls;
  static int call = 0;
  calls->write = [](int file, const char* bytes, std::size_t size) -> std::int64_t {
    if (++call % 2 == 0) {
      errno = EINTR;
      return -1;
    }
    return SystemFileCalls().write(file, bytes, size > 3 ? 3 : size);
  };
  EXPECT_EQ(WriteWholeFile(folder / "a.txt", "one two three"), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(folder / "a.txt"), "one two three");
}

TEST(SafeFileWriterCalls, FolderThatCannotBeFlushedIsNoSuccess) {
  const TemporaryFolder folder;
  ReplacedCalls calls;
  calls->flush_folder = [](const Path&) { return false; };
  EXPECT_EQ(WriteWholeFile(folder / "a.txt", "text"), WriteResult::kRefused);
}

TEST(SafeFileWriterKeeps, WhatTheSystemRefusesIsTold) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  ReplacedCalls calls;
  calls->keep_owner = [](const Path&, int) { return false; };
  calls->keep_mode = [](const Path&, int) { return false; };
  SafeFileWriter writer(path);
  writer.Write("new");
  EXPECT_EQ(writer.Commit(), WriteResult::kWritten);
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(writer.not_kept(), (Names{"the owner", "the access rights"}));
  ScriptedPlatform platform;
  NoteWhatWasNotKept(writer, platform);
  EXPECT_EQ(platform.notes, Names{"the saved file could not keep the owner, the access rights of the old one"});
}

TEST(SafeFileWriterKeeps, NewFileHasNothingToKeep) {
  const TemporaryFolder folder;
  ReplacedCalls calls;
  calls->keep_owner = [](const Path&, int) { return false; };
  SafeFileWriter writer(folder / "a.txt");
  writer.Write("new");
  EXPECT_EQ(writer.Commit(), WriteResult::kWritten);
  ScriptedPlatform platform;
  NoteWhatWasNotKept(writer, platform);
  EXPECT_TRUE(platform.notes.empty());
}

#if !defined(_WIN32)

TEST(SafeFileWriterKeeps, OwnerAndGroup) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  ASSERT_EQ(::chown(path.c_str(), 1234, 2345), 0);
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  EXPECT_EQ(WriteWholeFile(path, "new"), WriteResult::kWritten);
  struct stat facts {};
  ASSERT_EQ(::stat(path.c_str(), &facts), 0);
  EXPECT_EQ(facts.st_uid, 1234U);
  EXPECT_EQ(facts.st_gid, 2345U);
  EXPECT_EQ(facts.st_mode & 07777U, 0640U);
}

TEST(SafeFileWriterKeeps, NewTextIsPrivateUntilItHasTheOldRights) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
  SafeFileWriter writer(path);
  writer.Write("secret");
  for (const std::string& name : folder.Names()) {
    struct stat facts {};
    ASSERT_EQ(::stat((folder / name).c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0077U, 0U) << name;
  }
}

#if defined(__linux__)

TEST(SafeFileWriterKeeps, ExtendedAttributes) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  if (::setxattr(path.c_str(), "user.origin", "field work", 10, 0) != 0) GTEST_SKIP() << "no attributes here";
  EXPECT_EQ(WriteWholeFile(path, "new"), WriteResult::kWritten);
  char value[32] = {};
  EXPECT_EQ(::getxattr(path.c_str(), "user.origin", value, sizeof value), 10);
  EXPECT_EQ(std::string(value), "field work");
}

TEST(SafeFileWriterKeeps, AccessList) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  // Version 2; entries of tag, rights and id: the owner rw, user 1234 r, the group r, mask r, others nothing.
  const unsigned char list[] = {2,    0, 0, 0,                          //
                                1,    0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF,  //
                                2,    0, 4, 0, 0xD2, 0x04, 0,    0,     //
                                4,    0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF,  //
                                0x10, 0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF,  //
                                0x20, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF};
  constexpr const char* kName = "system.posix_acl_access";
  if (::setxattr(path.c_str(), kName, list, sizeof list, 0) != 0) GTEST_SKIP() << "no access lists here";
  EXPECT_EQ(WriteWholeFile(path, "new"), WriteResult::kWritten);
  unsigned char kept[sizeof list] = {};
  ASSERT_EQ(::getxattr(path.c_str(), kName, kept, sizeof kept), static_cast<ssize_t>(sizeof list));
  EXPECT_TRUE(std::equal(std::begin(list), std::end(list), std::begin(kept)));
}

#endif

// Runs work in a process of its own and yields how that ended.
template <typename Work>
int StatusOfProcess(Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    work();
    ::_exit(0);
  }
  int status = -1;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return status;
}

TEST(TemporaryFiles, SignalThatEndsTheProgramTakesThemAlong) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGUSR1, SIGUSR2, SIGALRM, SIGVTALRM, SIGPROF, SIGXCPU}) {
    const TemporaryFolder folder;
    const Path path = folder.Make("a.txt", "old");
    const int status = StatusOfProcess([&] {
      std::signal(signal, SIG_DFL);
      RemoveTemporariesOnSignals();
      SafeFileWriter writer(path);
      writer.Write("new");
      if (folder.Names().size() == 2) std::raise(signal);
    });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), signal);
    EXPECT_EQ(folder.Names(), Names{"a.txt"});
    EXPECT_EQ(ContentOf(path), "old");
  }
}

TEST(TemporaryFiles, FileBeyondItsLimitIsRefusedAndTheProgramGoesOn) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  const int status = StatusOfProcess([&] {
    std::signal(SIGXFSZ, SIG_DFL);
    RemoveTemporariesOnSignals();
    const struct rlimit limit { 1000, 1000 };
    ::setrlimit(RLIMIT_FSIZE, &limit);
    if (WriteWholeFile(path, std::string(5000, 'x')) != WriteResult::kRefused) ::_exit(1);
  });
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
  EXPECT_EQ(ContentOf(path), "old");
}

// Nobody reads the pipe: the writer that waited for one would hang here.
TEST(SafeFileWriterPipes, PipeWithoutAReaderIsRefused) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(WriteWholeFile(folder / "pipe", "text"), WriteResult::kRefused);
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_EQ(folder.Names(), Names{"pipe"});
}

// More than a pipe holds at once, so that the writer has to wait for the reader.
TEST(SafeFileWriterPipes, PipeWithAReaderGetsTheWholeText) {
  const TemporaryFolder folder;
  const Path pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string text(300000, 'x');
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  ASSERT_EQ(::fcntl(reader, F_SETFL, 0), 0);
  const pid_t writer = ::fork();
  if (writer == 0) {
    ::close(reader);
    ::_exit(WriteWholeFile(pipe, text) == WriteResult::kWritten ? 0 : 1);
  }
  std::string read;
  for (char part[4096];;) {
    const ssize_t size = ::read(reader, part, sizeof part);
    if (size > 0) read.append(part, static_cast<std::size_t>(size));
    int status = 0;
    if (size > 0) continue;
    if (::waitpid(writer, &status, WNOHANG) == 0) continue;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    break;
  }
  ::close(reader);
  EXPECT_EQ(read, text);
}

TEST(SafeFileWriterPipes, LinkToAnOpenPipeIsWrittenTo) {
  int ends[2] = {-1, -1};
  ASSERT_EQ(::pipe(ends), 0);
  const Path link = "/dev/fd/" + std::to_string(ends[1]);
  if (!fs::exists(link)) GTEST_SKIP() << "the system has no names for what is open";
  EXPECT_EQ(WriteWholeFile(link, "text"), WriteResult::kWritten);
  char read[8] = {};
  EXPECT_EQ(::read(ends[0], read, sizeof read), 4);
  EXPECT_EQ(std::string(read), "text");
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(SafeFileWriterKeeps, OtherNamesOfTheFileAreTold) {
  const TemporaryFolder folder;
  const Path path = folder.Make("a.txt", "old");
  fs::create_hard_link(path, folder / "b.txt");
  SafeFileWriter writer(path);
  writer.Write("new");
  EXPECT_EQ(writer.Commit(), WriteResult::kWritten);
  EXPECT_EQ(writer.not_kept(), Names{"the other names"});
  EXPECT_EQ(ContentOf(folder / "b.txt"), "old");
}

TEST(TemporaryFiles, IgnoredSignalStaysIgnored) {
  const TemporaryFolder folder;
  const int status = StatusOfProcess([&] {
    std::signal(SIGHUP, SIG_IGN);
    RemoveTemporariesOnSignals();
    SafeFileWriter writer(folder / "a.txt");
    writer.Write("new");
    std::raise(SIGHUP);
    writer.Commit();
  });
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(ContentOf(folder / "a.txt"), "new");
}

TEST(TemporaryFiles, NextSaveTakesAwayWhatACrashHasLeft) {
  const TemporaryFolder folder;
  StatusOfProcess([&] {
    SafeFileWriter writer(folder / "a.txt");
    writer.Write("half");
    ::_exit(1);  // nothing is tidied up
  });
  ASSERT_EQ(folder.Names().size(), 1U);
  EXPECT_EQ(WriteWholeFile(folder / "b.txt", "text"), WriteResult::kWritten);
  EXPECT_EQ(folder.Names(), Names{"b.txt"});
}

TEST(TemporaryFiles, WhatIsInWorkOrNotOursStays) {
  const TemporaryFolder folder;
  SafeFileWriter in_work(folder / "a.txt");
  folder.Make(".saving-notes", "a user's own");
  folder.Make(".saving-1-999999999-5", "of another machine");
  EXPECT_EQ(WriteWholeFile(folder / "b.txt", "text"), WriteResult::kWritten);
  EXPECT_EQ(folder.Names().size(), 4U);
  EXPECT_EQ(in_work.Commit(), WriteResult::kWritten);
}

#endif

}  // namespace
}  // namespace tessara
