#include "shell/path_list.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

using Paths = std::vector<Path>;

TEST(PathList, PlainPathsStandAsTheyAre) {
  EXPECT_EQ(PathListText({"/home/ann/a b.dcs", "/data/b,c;d=e.dcs"}), "/home/ann/a b.dcs\n/data/b,c;d=e.dcs");
  EXPECT_EQ(PathListText({}), "");
}

TEST(PathList, OtherBytesAreWrittenInHexadecimalDigits) {
  EXPECT_EQ(PathListText({"/a\n\t%\x7F/\xC3\xA9\xFF.dcs"}), "/a%0A%09%25%7F/%C3%A9%FF.dcs");
}

TEST(PathList, AnyPathComesBack) {
  std::string bytes = "/";
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const Paths paths = {bytes, "/x", "/%41", "/100%", "/%"};
  EXPECT_EQ(PathsOfList(PathListText(paths)), paths);
}

TEST(PathList, WhatIsNoListGivesWhatItHolds) {
  EXPECT_EQ(PathsOfList(""), Paths{});
  EXPECT_EQ(PathsOfList("\n\n/a\n\n/b\n"), (Paths{"/a", "/b"}));
  EXPECT_EQ(PathsOfList("/50% more/%zz/%4"), (Paths{"/50% more/%zz/%4"}));
}

}  // namespace
}  // namespace tessara
