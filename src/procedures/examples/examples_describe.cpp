#include "procedures/examples/example_texts.h"

// Examples of the procedures that describe. Blanks at the ends of lines belong to the reports.

namespace tessara {

std::string_view FrequenciesExample() {
  return R"example(Frequencies

Variable: HEALTH     Own view of health

Value                       Count       Percent      Cumulative
-----------------------------------------------------------------
Poor                            8         2.07           2.07
Fair                           41        10.62          12.69
Good                          123        31.87          44.56
Very good                     135        34.97          79.53
Excellent                      79        20.47         100.00
-----------------------------------------------------------------
                  Total       386
                Missing        14


Nominal/Ordinal Measure of Variation
-----------------------------------------------------------------

Index of Dispersion		 0.903       (Assumes 5 categories)

The example is the variable HEALTH of the sample file survey.dcs, with the box "Index
of Dispersion" set.

WHEN TO USE IT. Frequencies counts how often each value of a variable occurs. It suits
variables with few different values: sex, region, a grade, a rating, also words. It is
the first thing to run on new data, because typing errors show up as values that
should not exist.

WHICH VARIABLES GO WHERE. Put one or more variables under "Analysis Variable"; each
gets a report of its own. A control variable limits the count to some of the cases.

HOW TO READ IT. Every line is one value, under its value label if it has one. Percent
is the share of the valid cases, 386 here, and Cumulative adds the percents up from
the top: 44.56 percent of the people who answered call their health good or worse.
Total counts the valid cases. Missing counts blank cells, missing codes (8 and 9 here)
and the cases that a control variable shut out.

The index of dispersion says how evenly the cases spread over the values. It is 0 when
all cases share one value, and 1 when every value is equally frequent.

WHAT TO WATCH FOR. Cumulative percents mean something only when the values have an
order. The values 1 and 1.0 count as two, and so do abc and ABC.
)example";
}

std::string_view DescriptivesExample() {
  return R"example(Descriptive Statistics
Variable: SEPLEN     Sepal length in cm
-------------------------------------------------------------------------------
Count                        150         Pop Var                        0.6811
Sum                          876.5000    Sam Var                        0.6857
Mean                           5.8433    Pop Std                        0.8253
Median                         5.8000    Sam Std                        0.8281
Min                            4.3000    Std Error                      0.0678
Max                            7.9000    CV%                           14.1711
Range                          3.6000    95% CI (+/-)                   0.1330
Skewness                       0.3118    One sample t-test (mu=0)  |p<| 0.0000
-------------------------------------------------------------------------------

Missing Cases    0



                       Horizontal Bar Chart
-----------------------------------------------------------------
Bar Interval                      Count
----------------------           ------
4.30 to 4.70                         11  XXXXXXXX
4.70 to 5.10                         30  XXXXXXXXXXXXXXXXXXXX
5.10 to 5.50                         18  XXXXXXXXXXXX
5.50 to 5.90                         24  XXXXXXXXXXXXXXXX
5.90 to 6.30                         25  XXXXXXXXXXXXXXXX
6.30 to 6.70                         22  XXXXXXXXXXXXXX
6.70 to 7.10                          9  XXXXXX
7.10 to 7.50                          5  XXXX
7.50 to 7.90                          6  XXXX

-----------------------------------------------------------------

The example is the variable SEPLEN of the sample file iris.dcs, with the box "Show bar
chart" set.

WHEN TO USE IT. Descriptives sums up a variable that measures something: a length, an
age, a score. It tells where the values lie, how far they spread and what shape they
have.

WHICH VARIABLES GO WHERE. Put one or more numeric variables under "Analysis Variable".
To look at one group alone, for example one species, name the group variable as
control variable.

HOW TO READ IT. Mean and Median are two middles: when they differ much, a few extreme
values pull the mean, and Skewness tells to which side (above 0: a long tail of high
values). Sam Std is the standard deviation of a sample, Pop Std that of a whole
population; they hardly differ here, since there are 150 cases. CV% is the standard
deviation as a percent of the mean. The mean of all such flowers lies, with 95 percent
confidence, within 5.8433 plus or minus 0.1330.

The last figure on the right tests whether the mean could be 0. For a length that is
no question at all; for a difference, such as a gain of sleep, it is the question.

In the bar chart each line is an interval, and the longest bar has 20 marks.

WHAT TO WATCH FOR. The standard error divides by the root of n - 1, not n, and is
therefore a little larger than in many books. "Save Z-scores" adds a column with each
value's distance from the mean in standard deviations. Means of codes, such as 1 =
Male and 2 = Female, have no meaning: use Frequencies for those.
)example";
}

std::string_view ExploreExample() {
  return R"example(Explore Descriptive Statistics by Subgroup
Variable:  SEPLEN

Category:  All
--------------------------------------------------------------------------------
Count                        150          Standard Error                  0.0678
Sum                          876.5000     95% CI (+/-)                    0.1330
Mean                           5.8433     95% Lower Limit                 5.7104
Pop Std Dev                    0.8253     95% Upper Limit                 5.9763
Sample Std Dev                 0.8281     Coeff of Variation (CV%)       14.1711


Category:  Setosa
--------------------------------------------------------------------------------
Count                         50          Standard Error                  0.0504
Sum                          250.3000     95% CI (+/-)                    0.1018
Mean                           5.0060     95% Lower Limit                 4.9042
Pop Std Dev                    0.3489     95% Upper Limit                 5.1078
Sample Std Dev                 0.3525     Coeff of Variation (CV%)        7.0413


Category:  Versicolor
--------------------------------------------------------------------------------
Count                         50          Standard Error                  0.0737
Sum                          296.8000     95% CI (+/-)                    0.1490
Mean                           5.9360     95% Lower Limit                 5.7870
Pop Std Dev                    0.5110     95% Upper Limit                 6.0850
Sample Std Dev                 0.5162     Coeff of Variation (CV%)        8.6956


Category:  Virginica
--------------------------------------------------------------------------------
Count                         50          Standard Error                  0.0908
Sum                          329.4000     95% CI (+/-)                    0.1836
Mean                           6.5880     95% Lower Limit                 6.4044
Pop Std Dev                    0.6295     95% Upper Limit                 6.7716
Sample Std Dev                 0.6359     Coeff of Variation (CV%)        9.6521

The example explores SEPLEN by SPECIES from the sample file iris.dcs.

WHEN TO USE IT. Explore gives the descriptive statistics of a measurement for all
cases and then for every group. Use it before a comparison of means, to see what there
is to compare.

WHICH VARIABLES GO WHERE. The measurement goes under "Continuous Variable", the
variable that makes the groups under "Categorical Variable". You may choose several of
each; every continuous variable is reported for every group.

HOW TO READ IT. Each block is one group; "All" is everybody. Look at the Means first,
then at the limits of the 95 percent interval: the interval of setosa ends at 5.1078,
that of versicolor begins at 5.7870, so the two kinds clearly differ. The coefficient
of variation compares spreads when the means differ.

WHAT TO WATCH FOR. Intervals that overlap do not prove that groups are equal; run a
t-test or an analysis of variance for that. A group needs at least two cases. A
variable with very many values makes very many blocks: 500 is the most that one run
prints.
)example";
}

std::string_view ListVariablesExample() {
  return R"example(List Variables

  Obs        MODEL          MPG          CYL         DISP           HP           WT           AM
------------------------------------------------------------------------------------------------
00001    Mazda RX4           21            6          160          110         2.62            1
00002  Mazda RX4 W           21            6          160          110        2.875            1
00003   Datsun 710         22.8            4          108           93         2.32            1
00004  Hornet 4 Dr         21.4            6          258          110        3.215            0
00005  Hornet Spor         18.7            8          360          175         3.44            0
00006      Valiant         18.1            6          225          105         3.46            0
00007   Duster 360         14.3            8          360          245         3.57            0
00008    Merc 240D         24.4            4        146.7           62         3.19            0
------------------------------------------------------------------------------------------------

The example lists seven variables of the sample file cars.dcs, with 8 under "Max
Observations".

WHEN TO USE IT. List Variables prints the values themselves, one line a case. Use it
to check data that somebody else has sent, or to look at the cases behind a strange
result.

WHICH VARIABLES GO WHERE. Put one to seven variables under "List Variables". A control
variable chooses the cases, for example MPG less than 15.

HOW TO READ IT. Obs numbers the lines of the list. It is the record number only when
no case was left out. Values stand as they are in the grid: codes, not labels, and
missing codes too.

WHAT TO WATCH FOR. The more variables you list, the narrower the columns: with seven,
a text is cut after 11 characters, as "Mazda RX4 Wag" is here. Leave "Max
Observations" empty only when you want every case.
)example";
}

}  // namespace tessara
