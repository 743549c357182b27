#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "calculators/brevarum_panel.h"

namespace tessara {
namespace {

struct Outcome {
  int status = 0;
  std::string out;
  std::string err;
};

std::string Content(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  std::fclose(file);
  return text;
}

Outcome RunWords(const std::vector<std::string>& words, const std::string& script = {}) {
  std::FILE* in = std::tmpfile();
  std::fputs(script.c_str(), in);
  std::rewind(in);
  std::FILE* out = std::tmpfile();
  std::FILE* err = std::tmpfile();
  const int status = RunBatch(words, {in, out, err});
  std::fclose(in);
  return {status, Content(out), Content(err)};
}

Outcome RunScript(const std::string& script) { return RunWords({"-s", "-"}, script); }

// scipy.stats: t 2.016 with 35 df, two-sided p .0515.
constexpr const char* kOneSampleLines =
    "Population Mean           100.0000\n"
    "Sample Mean               104.2000\n"
    "Std Deviation              12.5000\n"
    "Sample Size (n)            36\n"
    "Test statistic              2.0160\n"
    "            p <             0.0515";
constexpr const char* kSeparator = "\n<Page Break>\n\n\n";
const std::string kOneSample = "brevarum t-test-one Text20=100 Text21=104.2 Text22=12.5 Text23=36";
const std::string kOneSampleReport =
    std::string("One-Sample Difference of Means\n\n\n") + kOneSampleLines + "  (2-tailed)\n\n\n\n" + kSeparator;

TEST(BrevarumCommand, PrintsTheReportOfThePanel) {
  const Outcome outcome =
      RunWords({"brevarum", "t-test-one", "Text20=100", "Text21=104.2", "Text22=12.5", "Text23=36"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, kOneSampleReport);
  EXPECT_EQ(outcome.err, "");
}

TEST(BrevarumCommand, ShortAndNarrativeArePrintedInPlaceAndTheLogGetsNothing) {
  const std::string short_report =
      std::string("One-Sample Difference of Means (2-Tailed)\n\n") + kOneSampleLines + "\n\n\n\n";
  const std::string narrative =
      "One-Sample T-Test\n\nBased on a benchmark of .05 alpha, the estimated p-value of 0.052 suggests there is not a "
      "statistically significant difference between the sample and population mean.\n";
  EXPECT_EQ(RunScript(kOneSample + "\n" + kOneSample + " --short\n" + kOneSample + "\n").out,
            kOneSampleReport + short_report + kOneSampleReport);
  EXPECT_EQ(RunScript(kOneSample + " --narrative\n").out, narrative);
  EXPECT_EQ(RunScript(kOneSample + " --narrative --short\n").out, short_report + narrative);
}

TEST(BrevarumCommand, ReplacesTheMostRecentOutputInEveryCase) {
  const std::string z = "brevarum z-test-one PU1=.5 SU1=.56 NU1=200";
  const std::string after_log = RunScript(z + "\n" + kOneSample + "\nrecent\n").out;
  EXPECT_TRUE(after_log.ends_with(kSeparator + kOneSampleReport + kOneSampleReport));
  const std::string after_short = RunScript(z + "\n" + kOneSample + " --short\nrecent\n").out;
  EXPECT_TRUE(after_short.ends_with("\n\n\n\n" + kOneSampleReport));
  EXPECT_EQ(after_short.find("One-Sample Difference of Means\n"), after_short.size() - kOneSampleReport.size());
}

TEST(BrevarumCommand, EachLineStartsFromTheDefaults) {
  const Outcome outcome = RunScript(kOneSample + " --short\nbrevarum t-test-one Text21=5\n");
  EXPECT_EQ(outcome.out.find("One-Sample Difference of Means\n"), std::string::npos);  // no cases, no report
  EXPECT_EQ(outcome.status, 0);
}

TEST(BrevarumCommand, ReadsTheBoxesOfTheOtherNumberOfSamples) {
  const Outcome outcome = RunScript("brevarum t-test tx1=5 ts1=1 tn1=10 tx2=6 ts2=1 tn2=10 Text23=9 --narrative\n");
  EXPECT_TRUE(outcome.out.starts_with("Two-Sample T-Test\n"));
  EXPECT_NE(outcome.out.find("\nOne-Sample T-Test\n"), std::string::npos);
}

TEST(BrevarumCommand, AnEntryTestThatFailsIsRefused) {
  const Outcome outcome = RunWords({"brevarum", "mean-ci", "T1=ten", "T2=5", "T3=1"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "Entry Error!: Only numerical data can be entered.\n");
  const Outcome lenient = RunWords({"brevarum", "t-test-one", "Text21=abc", "Text22=1", "Text23=9"});
  EXPECT_EQ(lenient.status, 0);
  EXPECT_EQ(lenient.err, "");
}

TEST(BrevarumCommand, AMessageBesideTheReportIsRefusedToo) {
  const Outcome outcome = RunWords({"brevarum", "accuracy", "T1=50", "T2=0", "T3=0", "T4=50"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.starts_with("Diagnostic Accuracy\n"));
  EXPECT_NE(outcome.err.find("to compute a positive likelihood ratio."), std::string::npos);
}

TEST(BrevarumCommand, WhatStandsOverTheResultsIsTold) {
  const Outcome outcome = RunWords({"brevarum", "chi-square"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "Error: No cases in table\n");
}

TEST(BrevarumCommand, WhatCannotBeUnderstood) {
  const std::string place = "tessara-cli: brevarum: ";
  EXPECT_EQ(RunWords({"brevarum"}).err, place + "PANEL is missing\n");
  EXPECT_EQ(RunWords({"brevarum", "t-tests"}).err,
            place +
                "unknown panel \"t-tests\"; the panels are t-test, anova, z-test, chi-square, mean-ci, "
                "proportion-ci, z-score, accuracy, power, t-test-one, z-test-one\n");
  EXPECT_EQ(RunWords({"brevarum", "z-score", "T4=1"}).err,
            place + "the panel \"z-score\" has no box \"T4\"; its boxes are T1, T2, T3\n");
  EXPECT_EQ(RunWords({"brevarum", "z-score", "T1"}).err, place + "\"T1\" is not BOX=VALUE\n");
  EXPECT_EQ(RunWords({"brevarum", "power", "Alpha=.2"}).err, place + "Alpha takes .01, .05, .10, not \".2\"\n");
  EXPECT_EQ(RunWords({"brevarum", "power", "Beta="}).err, place + "Beta takes .80, .85, .90, .95, not \"\"\n");
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"brevarum"}, {"brevarum", "x"}, {"brevarum", "anova", "tx1=3"}}) {
    const Outcome outcome = RunWords(words);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
  }
}

TEST(BrevarumCommand, TakesTheSelectorsAsNumbers) {
  const std::string line = "brevarum power T3=5 T4=10 --short ";
  EXPECT_EQ(RunScript(line + "Alpha=0.1 Beta=.95\n").out, RunScript(line + "Alpha=.10 Beta=0.95\n").out);
  EXPECT_NE(RunScript(line + "Alpha=.1\n").out, RunScript(line + "\n").out);
}

TEST(BrevarumCommand, ValuesMayHoldBlanksAndEqualSigns) {
  const Outcome outcome =
      RunScript("brevarum t-test \"Text11=a = b\" \"Text12=Sch\xC3\xBCler\" tx1=-5 ts1=1 tn1=10 tx2=6 ts2=1 tn2=10\n");
  EXPECT_NE(outcome.out.find("\n                          a = b        Sch\xC3\xBCler\n"), std::string::npos);
  EXPECT_NE(outcome.out.find("Sample Mean             -5.0000"), std::string::npos);
}

TEST(BrevarumCommand, TheHelpNamesEveryPanelAndBox) {
  const std::string page = RunWords({"--help", "brevarum"}).out;
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    EXPECT_NE(page.find("\n  " + std::string(row.command_name) + " "), std::string::npos) << row.command_name;
    for (const BrevarumBox& box : row.boxes) EXPECT_NE(page.find(box.name), std::string::npos) << box.name;
  }
}

}  // namespace
}  // namespace tessara
