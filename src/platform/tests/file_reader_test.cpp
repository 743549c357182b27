#include "platform/file_reader.h"

#include "platform/tests/temporary_folder.h"

namespace tessara {
namespace {

TEST(FileReader, ReadsOnFromWhereItIs) {
  const TemporaryFolder folder;
  FileReader file(folder.Make("digits", "0123456789"));
  ASSERT_TRUE(file.is_open());
  EXPECT_EQ(file.size(), 10u);
  std::string bytes(4, ' ');
  EXPECT_EQ(file.Read(bytes.data(), 4), 4u);
  EXPECT_EQ(bytes, "0123");
  EXPECT_EQ(file.Read(bytes.data(), 4), 4u);
  EXPECT_EQ(bytes, "4567");
  EXPECT_EQ(file.Read(bytes.data(), 4), 2u);
  EXPECT_EQ(bytes, "8967");
  EXPECT_EQ(file.Read(bytes.data(), 4), 0u);
}

TEST(FileReader, GoesToAnyPlace) {
  const TemporaryFolder folder;
  FileReader file(folder.Make("digits", "0123456789"));
  std::string bytes(2, ' ');
  EXPECT_TRUE(file.GoTo(7));
  EXPECT_EQ(file.Read(bytes.data(), 2), 2u);
  EXPECT_EQ(bytes, "78");
  EXPECT_TRUE(file.GoTo(100));  // behind the end there is nothing
  EXPECT_EQ(file.Read(bytes.data(), 2), 0u);
}

TEST(FileReader, WhatIsNoFileIsNotOpen) {
  const TemporaryFolder folder;
  FileReader none(folder / "none");
  EXPECT_FALSE(none.is_open());
  char byte = 0;
  EXPECT_FALSE(none.Read(&byte, 1).has_value());
  EXPECT_FALSE(none.GoTo(0));
  EXPECT_FALSE(FileReader(folder.path()).is_open());
}

}  // namespace
}  // namespace tessara
