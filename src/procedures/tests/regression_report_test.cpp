#include "procedures/relate/regression_report.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

ModelCases Names(const std::string& dependent, std::vector<std::string> names) {
  ModelCases cases;
  cases.dependent_name = dependent;
  cases.ModelNames = std::move(names);
  cases.variables.resize(cases.ModelNames.size());
  return cases;
}

const std::vector<std::string> kLongNames = {"Constant", "EDUCATION", "EXPERIENCE", "HOURSWORKED", "REGION",
                                             "AGE",      "CHILDREN",  "DISTANCE",   "UNIONMEMBER", "SEX"};

TEST(ModelEquation, OfOneVariable) {
  EXPECT_EQ(ModelEquation(Names("Y", {"Constant", "X"})), "Y = Constant + X + e\r\n");
}

// The text up to REGION is 65 long and stays; AGE brings it to 71. With the line end and 17 blanks it is 90 then, and
// SEX, the last name, passes 130: the error stands alone in the third line.
TEST(ModelEquation, GoesOnUnderItsFirstSignWhereItPassesTheLimit) {
  EXPECT_EQ(ModelEquation(Names("INCOME", kLongNames)),
            "INCOME = Constant + EDUCATION + EXPERIENCE + HOURSWORKED + REGION + AGE\r\n"
            "                  + CHILDREN + DISTANCE + UNIONMEMBER + SEX\r\n"
            "                  + e\r\n");
}

// The limit grows by one line, however long a name is: 165 passes 65, 183 passes 130, and 201 passes 195.
TEST(ModelEquation, BehindALongNameEachNameBreaksUntilTheLimitHasCaughtUp) {
  const std::string name(150, 'N');
  EXPECT_EQ(ModelEquation(Names("Y", {"Constant", name, "A", "B", "C"})), "Y = Constant + " + name +
                                                                              "\r\n"
                                                                              "             + A\r\n"
                                                                              "             + B\r\n"
                                                                              "             + C + e\r\n");
}

// The constant is tested like a name: 66 passes 65. The 66 blanks bring the length to 134, so X passes 130.
TEST(ModelEquation, ALongDependentNameBreaksBehindTheConstant) {
  const std::string name(55, 'Y');
  EXPECT_EQ(ModelEquation(Names(name, {"Constant", "X"})),
            name + " = Constant\r\n" + std::string(66, ' ') + " + X\r\n" + std::string(66, ' ') + " + e\r\n");
}

// HOURSWORKED brings it to 73, CHILDREN from 117 to 136 and SEX, the last one, from 189 to 202.
TEST(EstimatedEquation, GoesOnUnderItsFirstSignWhereItPassesTheLimit) {
  const std::vector<double> b = {0.5, 1.25, -0.125, 2, 1, 1, 12, -0.0009, 0, 3};
  EXPECT_EQ(EstimatedEquation(Names("INCOME", kLongNames), b, ".000"),
            "INCOME = .500 + 1.250(EDUCATION) + -.125(EXPERIENCE) + 2.000(HOURSWORKED)\r\n"
            "              + 1.000(REGION) + 1.000(AGE) + 12.000(CHILDREN)\r\n"
            "              + -.001(DISTANCE) + .000(UNIONMEMBER) + 3.000(SEX)\r\n"
            "             ");
}

TEST(SummaryTable, OfAnEvenCountAndALongName) {
  ModelCases cases = Names("DEPENDENTNAME", {"Constant", "X"});
  cases.variables = {{4, 1, 3, 8}, {-1.5, -1.5, -1.5, -1.5}};
  cases.n = 4;
  EXPECT_EQ(SummaryTable(cases),
            "\r\n\r\nSummary Statistics\r\n\r\n"
            "  Variable            Min           Max        Median          Mean     Std. Dev. \r\n" +
                std::string(82, '-') +
                "\r\n"
                "DEPENDENTN          1.000         8.000         3.500         4.000         2.944\r\n"
                "         X         -1.500        -1.500        -1.500        -1.500         0.000\r\n");
}

}  // namespace
}  // namespace tessara
