#include "calculators/summary_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tessara {
namespace {

std::string Verdict(const char* p_text) { return DifferenceNarrative("Title", p_text, "."); }

// The benchmark itself is significant; it is the printed p that is compared.
TEST(DifferenceNarrative, APOfExactlyTheBenchmarkIsSignificant) {
  const std::string yes = " suggests there is a statistically significant difference.";
  const std::string no = " suggests there is not a statistically significant difference.";
  EXPECT_TRUE(Verdict("0.050").ends_with("p-value of 0.050" + yes)) << Verdict("0.050");
  EXPECT_TRUE(Verdict("0.049").ends_with("p-value of 0.049" + yes));
  EXPECT_TRUE(Verdict("0.051").ends_with("p-value of 0.051" + no));
}

// A text that is no number cannot be compared, and a test that fails enters its branch.
TEST(DifferenceNarrative, APThatIsNoNumberIsNotSignificant) {
  EXPECT_NE(Verdict("Err").find("p-value of Err suggests there is not a"), std::string::npos);
  EXPECT_NE(Verdict("").find("p-value of  suggests there is not a"), std::string::npos);
}

TEST(JoinedNarratives, OneAloneStandsAsItIs) {
  EXPECT_EQ(JoinedNarratives("a", std::nullopt), "a");
  EXPECT_EQ(JoinedNarratives(std::nullopt, "b"), "b");
  EXPECT_EQ(JoinedNarratives(std::nullopt, std::nullopt), std::nullopt);
  EXPECT_EQ(JoinedNarratives("a", "b"), "a\r\n\r\n\r\n" + std::string(54, '-') + "\r\n\r\n\r\nb");
}

TEST(SampleLabel, HasNineCharactersAndNoLineEnds) {
  EXPECT_EQ(SampleLabel("Girls"), "    Girls");
  EXPECT_EQ(SampleLabel("Girls\r\n-and-all"), "Girls-and");
  EXPECT_EQ(SampleLabel("123456789"), "123456789");
  EXPECT_EQ(SampleLabel(""), "         ");
}

}  // namespace
}  // namespace tessara
