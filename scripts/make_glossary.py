#!/usr/bin/env python3
"""Writes the default glossary, installed/Lexicards.lx1, from the terms below.

The file is a row of records of 3080 bytes: a 16-bit number (little-endian), a subject of 60 and a text of 3000
characters in code page 1252, both filled with blanks, and 18 reserved bytes. Record 1 holds the number of the last
record and nothing else; every other record holds its own number. It needs Python 3 and nothing else.
"""

import pathlib
import struct

TARGET = pathlib.Path(__file__).resolve().parent.parent / "installed" / "Lexicards.lx1"
SUBJECT_SIZE = 60
TEXT_SIZE = 3000
RESERVED = bytes(18)
RECORD_SIZE = 2 + SUBJECT_SIZE + TEXT_SIZE + len(RESERVED)

TERMS = {
    "Alpha level": "The probability of a Type I error that one is ready to accept, chosen before the test is made. Most "
    "studies use 0.05: of twenty tests of true null hypotheses, about one will still come out significant.",
    "Alternative hypothesis": "What one takes to be true when the null hypothesis is rejected, for example that two means "
    "differ. A two-tailed test allows a difference in either direction.",
    "Analysis of variance (ANOVA)": "A test of whether the means of several groups are equal. It compares the variance between "
    "the groups with the variance inside them; their ratio is F. With two groups it gives the same p as the t-test with equal "
    "variances.",
    "Association": "Two variables are associated when knowing one tells something about the other. Measures of association, "
    "such as Cramer's V, say how much, most of them on a scale from 0 to 1.",
    "Bar chart": "A chart with one bar for each value or interval, as long as the number of cases it holds.",
    "Bias": "An error that goes in one direction and does not shrink when more cases are taken: a scale that shows too much, a "
    "sample that leaves out those who are hard to reach.",
    "Binary variable": "A variable with two values, best coded 0 and 1. Its mean is then the share of the ones. Also called "
    "dichotomous.",
    "Bonferroni correction": "A guard against false alarms when several tests are made on the same data: each p is multiplied "
    "by the number of tests. It is simple and on the safe side.",
    "Case": "One unit of the study: a person, an animal, a plot. A case is one record, one line of the Data Grid.",
    "Case control": "In this program: limiting a procedure to the cases that a control variable lets pass, for example to "
    "those with SEX equal to 1.",
    "Categorical variable": "A variable whose values name groups and do not measure: region, species, yes or no. See also "
    "Nominal scale, Ordinal scale.",
    "Central limit theorem": "Means of many samples follow a normal distribution more and more closely as the samples grow, "
    "whatever the distribution of the single values. Repeated Sampling shows it at work.",
    "Chi-square test": "A test that compares the counts of a table with those that would be expected if rows and columns had "
    "nothing to do with each other. Do not trust it when many expected counts are below 5.",
    "Coefficient of variation": "The standard deviation as a percent of the mean. It compares the spread of variables that "
    "have different units or very different means. It makes no sense for variables with negative values.",
    "Confidence interval": "A range that covers the true value in a stated share of all samples, mostly 95 percent. The "
    "narrower the interval, the more exactly the value is known. Four times the cases halve its width.",
    "Contingency table": "A table of counts with the values of one variable in the rows and those of another in the columns. "
    "Crosstabulation makes it.",
    "Continuous variable": "A variable that measures on a scale with as many steps as one likes: length, weight, time.",
    "Correlation": "How closely two measurements follow a straight line together. Pearson's coefficient r runs from -1 (a "
    "falling line) through 0 (no line) to 1 (a rising line). It says nothing about cause and effect.",
    "Cumulative percent": "The share of the cases with this value or any listed before it.",
    "Degrees of freedom": "The number of values that are free to vary once the estimates are fixed. The deviations of n values "
    "from their mean add up to 0, so that n - 1 of them are free.",
    "Dependent variable": "The variable that one wants to explain or predict, Y. See also Independent variable.",
    "Descriptive statistics": "Figures that sum up the data at hand, such as mean, median and standard deviation, without "
    "drawing conclusions beyond them.",
    "Effect size": "How large a difference or an association is, apart from whether it is significant. With many cases a tiny "
    "effect becomes significant; ask whether it matters.",
    "Expected frequency": "The count that a cell of a table would have if rows and columns were independent: row total times "
    "column total, divided by the number of cases.",
    "F-ratio": "The ratio of two variances. In the analysis of variance it is the mean square between the groups over that "
    "within them; values far above 1 speak against equal means.",
    "Fisher's exact test": "A test for two by two tables that adds up exact probabilities. It holds for small numbers, where "
    "the chi-square test does not.",
    "Frequency": "The number of cases that have a certain value.",
    "Histogram": "A chart of the distribution of a measurement: the range is cut into intervals, and each bar shows how many "
    "cases fall into one.",
    "Homogeneity of variance": "Equal variances in the groups that are compared. The t-test and the analysis of variance "
    "assume it; the t-test also has a form that does not.",
    "Independent variable": "A variable that is used to explain or predict another one, X. See also Dependent variable.",
    "Index of dispersion": "How evenly the cases spread over the values of a variable: 0 when all share one value, 1 when "
    "every value is equally frequent.",
    "Interval scale": "A scale with equal steps but no natural zero, such as degrees Celsius. Differences have a meaning, "
    "ratios do not.",
    "Kappa": "The agreement of two readers beyond what chance alone would give: 1 is perfect agreement, 0 is no better than "
    "chance.",
    "Kurtosis": "How heavy the tails of a distribution are. The normal distribution has the value 3; larger values mean more "
    "extreme cases.",
    "Least squares": "The rule by which a regression line is chosen: the sum of the squared vertical distances of the cases "
    "from the line is as small as it can be.",
    "Likelihood ratio (diagnostic)": "How much a test result changes the odds of a disease. The odds before the test times the "
    "ratio give the odds after it. Above 10 or below 0.1 a result says a good deal.",
    "Logistic regression": "A regression for an outcome that is yes or no. Its coefficients, turned into odds ratios, say by "
    "how much the odds of yes are multiplied for one unit more of a variable.",
    "Mean": "The sum of the values divided by their number. It uses every value, and so a single extreme one can pull it far.",
    "Median": "The middle value when the cases are put in order; with an even number of cases, the mean of the two middle "
    "ones. Extreme values hardly move it.",
    "Missing value": "A value that is not known: a blank cell, or a code such as 9 that stands for no answer. Declare the codes "
    "in the variable dictionary, or they will be counted as if they were measured.",
    "Mode": "The most frequent value. A distribution may have two or more humps, as the waiting times of a geyser do.",
    "Nominal scale": "Values that name groups without any order: region, colour. Only equal or not equal has a meaning.",
    "Normal distribution": "The bell-shaped distribution of values that many small causes have added up to. About 68 percent "
    "lie within one standard deviation of the mean, and about 95 percent within two.",
    "Null hypothesis": "The assumption that there is no difference or no association. A test asks how well the data agree with "
    "it. Not rejecting it does not prove it.",
    "Odds ratio": "The odds of an outcome in one group divided by the odds in another. 1 means no difference. For rare outcomes "
    "it is close to the relative risk; for frequent ones it lies further from 1.",
    "Ordinal scale": "Values with an order but no equal steps: poor, fair, good.",
    "Outlier": "A case far away from all others. It may be a typing error, or the most interesting case of all: look at it "
    "before you leave it out, and say so if you do.",
    "p-value": "The probability of a result at least as extreme as the one found, if the null hypothesis were true. A small p "
    "speaks against the null hypothesis. It is not the probability that the null hypothesis is true.",
    "Population": "All cases that a study wants to speak about. Mostly only a sample of them can be looked at.",
    "Power": "The probability that a test finds an effect that is really there. It grows with the number of cases and with the "
    "size of the effect.",
    "Predictive value": "The share of those with a positive test who have the disease, or of those with a negative test who do "
    "not. It depends on how frequent the disease is.",
    "R square": "The share of the variation of the dependent variable that a regression explains, from 0 to 1.",
    "Random sample": "A sample in which chance alone decides who gets in, and every case has the same chance.",
    "Range": "The largest value less the smallest.",
    "Ratio scale": "A scale with equal steps and a natural zero, such as length: twice as long has a meaning.",
    "Regression": "An equation that predicts one variable from others. The coefficient of a variable says how much the "
    "prediction changes for one unit more of it while the others stay the same.",
    "Relative risk": "The share with an outcome in one group divided by the share in another. 2 means twice as likely.",
    "Residual": "What is left of a value when the prediction is taken away. Residuals of a good model show no pattern.",
    "ROC curve": "The sensitivity of a test drawn against its false positive share, for every possible cut. The area below it "
    "is 0.5 for a test no better than a coin, and 1 for a perfect one.",
    "Sample": "The cases that were really looked at, taken from a population.",
    "Sensitivity": "The share of the diseased whom a test finds.",
    "Skewness": "How lopsided a distribution is: above 0 with a long tail of high values, below 0 with one of low values, near "
    "0 when it is symmetric.",
    "Specificity": "The share of the healthy whom a test clears.",
    "Standard deviation": "The usual distance of the values from their mean: the square root of the variance, in the unit of "
    "the variable.",
    "Standard error": "The standard deviation that an estimate, such as a mean, would show over many samples of the same size. "
    "It shrinks with the root of the number of cases.",
    "T-test": "A test of whether two means differ, or whether one mean differs from a fixed value. Worked out by W. S. Gosset, "
    "who signed as Student.",
    "Type I error": "Rejecting a null hypothesis that is true: a false alarm.",
    "Type II error": "Not rejecting a null hypothesis that is false: an effect that is missed.",
    "Value label": "The words that stand for a code in reports, such as Male for 1. They are kept in the variable dictionary.",
    "Variable": "One property of the cases, one column of the Data Grid.",
    "Variance": "The mean squared distance of the values from their mean. For a sample the sum is divided by n - 1, for a "
    "whole population by n.",
    "Z-score": "A value as its distance from the mean, counted in standard deviations. It makes values of different variables "
    "comparable.",
}


def field(text, size):
    data = text.encode("cp1252")
    assert len(data) <= size, text
    return data.ljust(size)


def record(number, subject="", text=""):
    data = struct.pack("<h", number) + field(subject, SUBJECT_SIZE) + field(text, TEXT_SIZE) + RESERVED
    assert len(data) == RECORD_SIZE
    return data


def main():
    terms = sorted(TERMS.items(), key=lambda term: term[0].lower())
    notes = [record(number, subject, text) for number, (subject, text) in enumerate(terms, 2)]
    TARGET.parent.mkdir(parents=True, exist_ok=True)
    TARGET.write_bytes(record(len(notes) + 1) + b"".join(notes))
    print(f"{TARGET.name}: {len(notes)} notes")


if __name__ == "__main__":
    main()
