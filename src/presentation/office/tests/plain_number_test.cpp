#include "presentation/office/plain_number.h"

#include <gtest/gtest.h>

#include <string>

namespace tessara {
namespace {

struct Case {
  const char* text;
  double value;
  const char* mask;
};

TEST(PlainNumber, IsShownAsItWasWritten) {
  const Case cases[] = {
      {"5", 5, ""},
      {" 7 ", 7, ""},
      {"-1.50", -1.5, "0.00"},
      {"+2.0", 2, "0.0"},
      {".500", 0.5, ".000"},
      {"5.", 5, ""},
      {"1,234.5", 1234.5, "#,##0.0"},
      {"1,234,567", 1234567, "#,##0"},
      {"007", 7, "000"},
      {"00.10", 0.1, "00.00"},
      {"0", 0, ""},
      {"0.00", 0, "0.00"},
      {"1E+15", 1e15, ""},
      {"1.5d-3", 0.0015, ""},
      {"123456789012345", 123456789012345.0, ""},
  };
  for (const Case& each : cases) {
    const auto number = FindPlainNumber(each.text);
    ASSERT_TRUE(number) << each.text;
    EXPECT_EQ(number->value, each.value) << each.text;
    EXPECT_EQ(number->mask, each.mask) << each.text;
  }
}

TEST(PlainNumber, TextsStayTexts) {
  for (const char* text :
       {"", " ", "-", ".", "1 2", "5%", "$5", "12abc", "nan", "0x10", "=1+1", "11/5/2026", "1e999"}) {
    EXPECT_FALSE(FindPlainNumber(text)) << text;
  }
}

TEST(PlainNumber, CommasThatPartNoThousandsMakeNoNumber) {
  for (const char* text : {"1,2", "1,23", "12,34,567", "1234,567", "1,234,", "1,,234", "1,2345"}) {
    EXPECT_FALSE(FindPlainNumber(text)) << text;
  }
}

// A sheet has fifteen digits; the number of an account would lose its end.
TEST(PlainNumber, AWholeNumberOfMoreDigitsThanASheetHasStaysAText) {
  EXPECT_FALSE(FindPlainNumber("1234567890123456"));
  EXPECT_FALSE(FindPlainNumber("-1234567890123456.5"));
  EXPECT_TRUE(FindPlainNumber("0000123456789012345"));
  EXPECT_TRUE(FindPlainNumber("0.33333333333333331"));
}

TEST(PlainNumber, ALongTextOfZerosHasNoMask) {
  const auto number = FindPlainNumber(std::string(1000, '0') + "." + std::string(1000, '0'));
  ASSERT_TRUE(number);
  EXPECT_EQ(number->mask, "");
}

TEST(PlainNumber, TheFileHoldsSixteenDigitsOfANumber) {
  for (const char* text : {"0.1", "1,234.5", "0.3000000000000000", "1234567890.123456", "1E+300"}) {
    EXPECT_TRUE(FindPlainNumber(text)->survives) << text;
  }
  for (const char* text : {"0.30000000000000004", "10.505638061147591"}) {
    EXPECT_FALSE(FindPlainNumber(text)->survives) << text;
  }
}

}  // namespace
}  // namespace tessara
