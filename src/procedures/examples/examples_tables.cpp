#include "procedures/examples/example_texts.h"

// Examples of the summary tables and the two samplings. Blanks at the ends of lines belong to the reports.

namespace tessara {

std::string_view SummaryTablesExample() {
  return R"example(                                  All  First class  Second class  Third class  Crew
         Total Count             2201          325           285          706   885
        95% CI (+/-)               2%           5%            6%           4%    3%
Survived the sinking
                  No  Percent     68%          38%           59%          75%   76%
                        Count    1490          122           167          528   673
                 Yes  Percent     32%          62%           41%          25%   24%
                        Count     711          203           118          178   212

The example is a table of categorical data, SURVIVED in the rows and CLASS in the
columns, from the sample file titanic.dcs, with the boxes "Counts" and "Percent" set
and the output format "0".

WHEN TO USE IT. Summary Tables builds a table to be printed or to be sent to a report:
counts and percents, or means and deviations, of several variables below each other.

WHICH VARIABLES GO WHERE. Choose "Categorical Data" or "Continuous Data", and the
figures you want. Put the variables to be described under "Rows". Leave "Columns"
empty for all cases, or put a variable there to have a further column for each of its
groups.

HOW TO READ IT. Total Count is the number of cases in the column, and the percents of
a variable add up to 100 down the column: 62 percent of the first class survived and
24 percent of the crew. The 95 percent interval tells how far a percent of a sample
of this size may lie from the truth at most.

WHAT TO WATCH FOR. The table grows: every run adds to it until you clear the output,
so build it step by step. A second run with the same variables writes its figures anew.
The table stands in the grid of the Output view, not in the text; categorical and
continuous data make separate blocks. The output format is that of the counts too:
under "0.00" a count of 12 shows as 12.00.
)example";
}

std::string_view RandomSampleExample() {
  return R"example(Frequencies

Variable: SURVIVED     Survived the sinking

Value                       Count       Percent      Cumulative
-----------------------------------------------------------------
No                            126        63.00          63.00
Yes                            74        37.00         100.00
-----------------------------------------------------------------
                  Total       200
                Missing         0

The example is what Frequencies of SURVIVED prints behind a sample of 200 people from
the sample file titanic.dcs: open the file, enter 200, click "Create Sample", and run
Frequencies. Of all 2201 people 32.30 percent survived; of this sample 37.00 percent,
and yours will give another figure near it, mostly within 6.5 percent on either side.
In tessara-cli the option --seed 1912 draws these very people.

WHEN TO USE IT. To see how much a result owes to chance, to try a procedure on fewer
cases, or to hand every student of a class a sample of their own.

HOW TO READ IT. The Data Grid holds the people drawn, by chance and in no order; names,
labels and missing values are kept, and so are the project notes.

WHAT TO WATCH FOR. The sample takes the place of the data in memory. Ctrl+Z in the
Data Grid brings all the cases back. The file on disk stays as it is until you save,
so save the sample under a new name. Every click draws anew, from the sample; undo
before you draw another one from all the cases. Choose clearly fewer observations than
there are records: the last fifteen records of the file can only be drawn by very
large samples.
)example";
}

std::string_view RepeatedSamplingExample() {
  return R"example( ----------------------------------------------------
| Results of Random Sampling.                        |
|                                                    |
| Variable Randomized:        SEPLEN                 |
| Size of Each Sample:        20                     |
| Number of Random Samples:   100                    |
|                                                    |
| This is the mean of means produced from repeated   |
| random samples. Click the Data Grid Tab to view    |
| the sample of means. Click the Charts Tab to view  |
| histograms representing the distribution of means. |
 ----------------------------------------------------

Descriptive Statistics
Variable: Mean     
-------------------------------------------------------------------------------
Count                        100         Pop Var                        0.0241
Sum                          583.8300    Sam Var                        0.0243
Mean                           5.8383    Pop Std                        0.1551
Median                         5.8200    Sam Std                        0.1559
Min                            5.4300    Std Error                      0.0157
Max                            6.2250    CV%                            2.6701
Range                          0.7950    95% CI (+/-)                   0.0310
Skewness                       0.0298    One sample t-test (mu=0)  |p<| 0.0000
-------------------------------------------------------------------------------

Missing Cases    0

The example drew 100 samples of 20 flowers each from SEPLEN of the sample file
iris.dcs. The samples are drawn by chance, so your figures will differ a little from
these, and from run to run; in tessara-cli the option --seed 1936 gives these.

WHEN TO USE IT. Repeated sampling shows what a standard error is. Draw many samples,
take the mean of each, and look at how the means spread.

WHICH VARIABLES GO WHERE. Choose one numeric variable in the list, and enter the
sample size and the number of iterations.

HOW TO READ IT. The mean of the means comes close to the mean of all cases, 5.8433.
The standard deviation of the means, Sam Std, is what theory calls the standard error:
about the deviation of the cases, 0.8281, divided by the root of 20, which is 0.1852,
and somewhat less because 20 of 150 is a good part of all. The histogram of the means
in the Charts view is nearly a bell, whatever the shape of the data. Repeat it with
samples of 80: the means draw together.

WHAT TO WATCH FOR. The means take the place of the data in memory; save your data
first, or bring them back with Ctrl+Z in the Data Grid. The sum of a sample is divided
by the sample size, also when some of its cells are missing: use a variable without
missing values.
)example";
}

}  // namespace tessara
