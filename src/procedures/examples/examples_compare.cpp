#include "procedures/examples/example_texts.h"

// Examples of the procedures that compare. Blanks at the ends of lines belong to the reports.

namespace tessara {

std::string_view CrosstabulationExample() {
  return R"example(Crosstabulation: SURVIVED (Rows)  by  SEX (Columns)

Column Variable Label: Sex
Row Variable Label: Survived the sinking

       Count |
       Row % |
       Col % |
     Total % |    Male |  Female |    Total 
--------------------------------------------
          No |     1364|      126|     1490
             |    91.54|     8.46|
             |    78.80|    26.81|    67.70
             |    61.97|     5.72|
--------------------------------------------
         Yes |      367|      344|      711
             |    51.62|    48.38|
             |    21.20|    73.19|    32.30
             |    16.67|    15.63|
--------------------------------------------
             |     1731|      470|     2201
       Total |    78.65|    21.35|   100.00




Chi-square                    Value         DF         p < 
-----------------------------------------------------------
Pearson                     456.874          1      0.0000
Likelihood Ratio            434.469          1      0.0000
Yate's Correction           454.500          1      0.0000


Risk Measures                     SE      95%LL      95%UL
-----------------------------------------------------------
Odds Ratio          10.147     0.120      8.027     12.827
Relative Risk        2.939     0.077      2.526      3.420


Measures of Association
-------------------------------------
Cramer's V                  .456
Pearson C                   .415
Lambda Symmetric            .185
Lambda Dependent=Row        .307
Lambda Dependent=Column     .000

Note: 00.00% of the cells have an expected frequency <5 

The example is SURVIVED by SEX from the sample file titanic.dcs, with the boxes
"Chi-Square Tests", "Risk (2x2 only)" and "Association" set.

WHEN TO USE IT. Crosstabulation compares two variables with few values each. It
answers questions such as: did women survive more often than men?

WHICH VARIABLES GO WHERE. Put the variable whose values make the rows under "Rows",
and the one that makes the columns under "Columns". A good habit is to put the cause
into the columns and the outcome into the rows, and to read the column percents.

HOW TO READ IT. Each cell holds the count, its percent of the row, of the column, and
of all cases. Compare the third figures across: 73.19 percent of the women survived,
21.20 percent of the men. The chi-square tests ask whether such a difference could be
chance; a small p says hardly. Here it is far below 0.0001. For two by two tables
Yate's correction is the more careful figure, and below 100 cases Fisher's exact test
is added.

The odds ratio compares the odds of the first row between the columns. The relative
risk compares the shares of the first row: men were 2.939 times as likely as women to
be lost. An interval that contains 1 means that there may be no difference. The
measures of association start from 0, none; Cramer's V and Lambda reach 1, complete,
while Pearson C stays below it. Agreement (Kappa) is for two readers who judged the
same cases with the same values.

WHAT TO WATCH FOR. The Note at the end: when more than a fifth of the cells have an
expected frequency below 5, do not trust the chi-square; join categories in the data.
A significant table need not be a strong one: with many cases small differences become
significant.
)example";
}

std::string_view TTestExample() {
  return R"example(Two-Sample Difference of Means


Independent Variable: SEX	Sex
Dependent Variable: PRESSURE	Systolic blood pressure in mmHg

Sample One: 1 Male
Sample Two: 2 Female

                         Sample 1         Sample 2
                         Male             Female  
                    --------------   --------------
Sample Mean               127.9209         124.5477
Std Deviation              12.6435          12.2358
Sample Size (n)           177              199


                        Homogeneity of Variance
         ---------------------------------------------------
              F-ratio   1.07    DF (176, 198)   p < 0.3279


                     T-statistic          DF        p < (2-tailed)
                   -------------     -------      ----------------
Equal Variance            2.6270      374                   0.0090
Unequal Variance          2.6220      367.73                0.0091

The example is PRESSURE by SEX from the sample file survey.dcs, with the group values
1 and 2.

WHEN TO USE IT. The t-test asks whether the means of a measurement differ between two
independent groups: two sexes, two treatments, two schools.

WHICH VARIABLES GO WHERE. The measurement goes under "Continuous Variable", the
variable that holds the groups under "Categorical Variable". Type the two values of
the groups, as they stand in the grid, into "Group A Value" and "Group B Value". Other
values of the variable are left out, so a variable with more than two values will do.

HOW TO READ IT. First the two means: 127.9 against 124.5. Then the homogeneity of
variance: its p of 0.3279 is not small, so the two spreads may be taken as equal, and
the line "Equal Variance" holds. Were it below 0.05, you would read "Unequal
Variance". The p there, 0.0090, is the probability of a difference as large as this if
there were none in truth. Below 0.05 it is usual to speak of a significant difference.

WHAT TO WATCH FOR. Both groups need at least five cases. When the DF of "Unequal
Variance" is below 5 its p is not computed, and stands as 0.0001: do not use it. The
groups must be different people: for the same people measured twice, put the
difference into a variable of its own and test it with Descriptives. And a significant
difference of 3.4 may still be too small to matter.
)example";
}

std::string_view AnovaExample() {
  return R"example(Analysis of Variance (ANOVA) --- SEPWID (Means)  by  SPECIES (Groups)

Independent Variable Label: Species of iris
Dependent Variable Label: Sepal width in cm


Group Summary Statistics

               Group          N            Mean        Std. Dev. 
----------------------------------------------------------------
              Setosa         50          3.4280           0.3791
          Versicolor         50          2.7700           0.3138
           Virginica         50          2.9740           0.3225




Analysis of Variance

                      Sum of Squares        df        Mean Squares 
                 -------------------    ------   -----------------
Between Groups                 11.34         2                5.67
 Within Groups                 16.96       147                0.12
         Total                 28.31       149    

                    F Statistic             p <
                  -------------          ------
                          49.16          0.0000




Bonferroni Post Hoc Comparison of Means (Assume homogeneity of variance)

             Group 1              Group 2         G1-G2           SE        p< 
------------------------------------------------------------------------------
              Setosa           Versicolor         0.658        0.070    0.0000
              Setosa            Virginica         0.454        0.070    0.0000
          Versicolor               Setosa        -0.658        0.070    0.0000
          Versicolor            Virginica        -0.204        0.064    0.0055
           Virginica               Setosa        -0.454        0.070    0.0000
           Virginica           Versicolor         0.204        0.064    0.0055

The example is SEPWID by SPECIES from the sample file iris.dcs, with the boxes
"Summary Statistics" and "Post Hoc Test" set.

WHEN TO USE IT. One-way analysis of variance compares the means of a measurement in
two or more independent groups with one test, where many t-tests would find
differences by chance alone.

WHICH VARIABLES GO WHERE. The measurement goes under "Continuous Variable", the
variable that makes the groups under "Categorical Variable".

HOW TO READ IT. The sum of squares between the groups stands against that within them;
F is the ratio of the two mean squares. A large F with a small p says that not all
means are equal. Which ones differ is told by the Bonferroni table: every pair of
groups with the difference of their means, its standard error, and a p that is already
corrected for the number of pairs. Each pair is listed twice, once from either side.
Here every p is below 0.05, so all three kinds differ in the width of their sepals.

WHAT TO WATCH FOR. The groups should have about the same spread: compare the column
Std. Dev. A group of a single case has none: the figure beside it is that of the group
above, or 0. If F is not significant, do not go looking for single differences in the
post hoc table.
)example";
}

std::string_view DiagnosticExample() {
  return R"example(Diagnostic Accuracy: TEST (Test)  by  DISEASE (Reference)

Reference Variable Label: Disease found by examination
Test Variable Label: Result of the screening test

              [D-]      [D+]  

    Count |Not found |    Found |    Total 
-------------------------------------------
      Low |      121|        2|      123
-------------------------------------------
   Middle |      141|        9|      150
-------------------------------------------
     High |       81|       20|      101
-------------------------------------------
Very high |       15|       11|       26
-------------------------------------------
    Total |      358|       42|      400

Cut Point (T+ >)         Sn      Sp     PPV     NPV     LR+     LR-   Kappa     K p<
------------------------------------------------------------------------------------
Low                   0.952   0.338   0.144   0.984   1.439   0.141   0.084   0.0219
Middle                0.738   0.732   0.244   0.960   2.752   0.358   0.248   0.0002
High                  0.262   0.958   0.423   0.917   6.251   0.770   0.264   0.0228


Definitions

-----------------------------------------------------------------------------------
Sn   Sensitivity: The proportion of diseased cases with a positive test.
Sp   Specificity: The proportion of non-diseased cases with a negative test.
PPV  Positive Predictive Value: The proportion of cases with a positive test
     who have the disease A/(A+C).
NPV  Negative Predictive Value: The proportion of cases with a negative test
     who do not have the disease D/(D+B).
LR+  Positive Likelihood Ratio: A positive ratio greater than 1 indicates the
     diagnostic test increases the odds of identifying disease Sn/(1-Sp).
LR-  Negative Likelihood Ratio: A negative ratio less than 1 indicates the
     diagnostic test increases the odds of correctly identifying disease absence
     (1-Sn)/Sp.
K    Kappa: The level of agreement beyond chance for a 2x2 table at the cutpoint.


Area Under ROC Curve: 0.781

The example is TEST by DISEASE from the sample file survey.dcs.

WHEN TO USE IT. Diagnostic accuracy tells how well a test with ordered results finds a
disease that is known from a better examination, the reference standard, and where to
put the cut.

WHICH VARIABLES GO WHERE. The test result goes under "Test Variable-Rows", low values
for healthy and high ones for ill. The reference goes under "Reference Variable-Cols".
It must have two values, the first for no disease and the second for disease, usually
0 and 1.

HOW TO READ IT. Every line below Cut Point is one way to use the test: results above
the value named count as positive. Moving down, fewer people are called ill:
sensitivity falls and specificity rises. With the cut at Middle, 73.8 percent of the
ill are found, and 73.2 percent of the healthy are cleared. PPV and NPV are what a
patient wants to know: 24.4 percent of those with a positive result are ill. The area
under the ROC curve sums up all cuts: 0.5 is a coin, 1 a perfect test; 0.781 is a fair
one.

WHAT TO WATCH FOR. PPV and NPV depend on how frequent the disease is among your cases;
sensitivity and specificity do not. A cut without any false positive result has no LR+
and shows NA.
)example";
}

}  // namespace tessara
