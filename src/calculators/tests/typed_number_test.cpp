#include "calculators/typed_number.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

TEST(TypedNumber, CommasAreStrippedWhereverTheyStand) {
  EXPECT_EQ(TypedNumber("1,234.5").value(), 1234.5);
  EXPECT_EQ(TypedNumber(",5").value(), 5);
  EXPECT_EQ(TypedNumber("1.2,5").value(), 1.25);
}

TEST(TypedNumber, WhatIsNotNumericCountsZero) {
  for (const char* text : {"", " ", "abc", "-", ".", ",", "1 2", "5%", "1e999", "nan", "0x10"}) {
    EXPECT_EQ(TypedNumber(text).value(), 0) << text;
  }
}

TEST(TypedNumber, SignsBlanksAndExponents) {
  EXPECT_EQ(TypedNumber(" -7 ").value(), -7);
  EXPECT_EQ(TypedNumber("1.5e3").value(), 1500);
}

}  // namespace
}  // namespace tessara
