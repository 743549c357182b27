#include "procedures/examples/example_texts.h"

// Examples of the procedures that relate. Blanks at the ends of lines belong to the reports.

namespace tessara {

std::string_view CorrelationExample() {
  return R"example(Pearson's Correlation
MPG: Miles per US gallon
      33.9|    *                            
          | *     *                         
          |                                 
          |    *  *                         
          |             *                   
      22.2|       *  *  *                   
          |          *     *  *             
          |                *  *  *          
          |             *  *  *           * 
          |                   *             
      10.4|                               * 

           ---------------|--------------|
                     1.5           3.5           5.4

          WT: Weight in 1000 pounds
Number of cases: 32
Missing: 0
Pearson Correlation: -0.868
p < (2-tailed signif.): 0.0000

The example is MPG (Variable Y) by WT (Variable X) from the sample file cars.dcs.

WHEN TO USE IT. Correlation measures how closely two measurements follow a straight
line together.

WHICH VARIABLES GO WHERE. Put one variable under "Variable Y", drawn upward, and one
under "Variable X", drawn to the right. With the box "Create Matrix" set, choose two
or more variables under "Variable Y" alone, and all pairs are printed as one square
table.

HOW TO READ IT. Look at the scattergram first: every star is one case or several.
Pearson's r runs from -1 to 1. Here it is -0.868: the heavier the car, the fewer miles
it makes. Its square, 0.753, is the share of the variation that the two have in
common. The p asks whether an r of this size could be chance when there is no
correlation; 0.0000 stands for less than 0.00005.

WHAT TO WATCH FOR. r sees straight lines only: a clear bend can give an r near 0, and
a single stray case can make an r near 1. The sample file anscombe.dcs shows four sets
with nearly the same r, 0.816 to 0.817, and four different pictures. A correlation does
not tell what causes what. Cases with a missing value in either variable are left out
and counted as Missing.
)example";
}

std::string_view LeastSquaresExample() {
  return R"example(---------------------------- Multiple OLS Regression -----------------------------


Explanatory Model

MPG = Constant + WT + HP + e


Summary Statistics

  Variable            Min           Max        Median          Mean     Std. Dev. 
----------------------------------------------------------------------------------
       MPG         10.400        33.900        19.200        20.091         6.027
        WT          1.513         5.424         3.325         3.217         0.978
        HP         52.000       335.000       123.000       146.688        68.563


Model Fit Statistics

    Cases(n)           R        R Square         Adj Rsq         SE Est. 
----------------------------------------------------------------------------------
          32       0.909           0.827           0.815           2.593

ANOVA Statistics

                     Sum of Sqs        df           Mean Sq          F       p <  
----------------------------------------------------------------------------------
  Regression            930.999         2           465.500     69.211    0.0000
    Residual            195.048        29             6.726
       Total           1126.047        31

Coefficients

Variable            b Coeff.     std. error        BetaWgt          t        p < 
----------------------------------------------------------------------------------
    Constant        37.22727        1.59879                    23.285     0.0000
          WT        -3.87783        0.63273       -0.62955     -6.129     0.0000
          HP        -0.03177        0.00903       -0.36145     -3.519     0.0015


Estimated Model

MPG = 37.227 + -3.878(WT) + -.032(HP)

The example is MPG on WT and HP from the sample file cars.dcs, with the box "Summary
Statistics" set.

WHEN TO USE IT. Least squares regression explains a measurement by one or more other
variables with a straight-line equation, for example the fuel use of a car by its
weight and its power.

WHICH VARIABLES GO WHERE. The variable to be explained goes under "Variable Y", the
variables that explain it under "Variable X": numbers, or codes 0 and 1 for yes or no.
Choose "Logistic" when Y itself is yes or no.

HOW TO READ IT. R Square is the explained share of the variation in Y, 82.7 percent
here; Adj Rsq lowers it a little for every variable used. The F of the ANOVA tests all
variables together. Under Coefficients, b is the change in Y for one unit more of the
variable while the others stay the same: 1000 pounds more cost 3.878 miles per gallon.
Its p asks whether b could be 0 in truth. BetaWgt is b in standard deviations and
makes the variables comparable: the weight counts for more than the power. SE Est. is
the usual size of an error of prediction.

WHAT TO WATCH FOR. Plot Y against every X first: the line must make sense. "Save
Residuals" adds a column with the errors of prediction; they should show no pattern.
When two X variables say nearly the same, their coefficients become uncertain. A case
with any missing value is left out. Do not predict far outside the data.
)example";
}

std::string_view LogisticExample() {
  return R"example(------------------------------ Logistic Regression -------------------------------
Dependent Y: SURVIVED

Cases with Y=0:  1490     67.70%
Cases with Y=1:   711     32.30%
Total Cases:     2201

Explanatory Model

SURVIVED = Constant + SEX + ADULT + e


Model Fit Statistics

Initial -2 Log Likelihood     2769.457
Model -2 Log Likelihood       2329.095    Iteration (6)
Cox & Snell Rsq                  0.181
McFadden Rsq                     0.159
Model Chi-Square               440.362    df 2    p< 0.0000

Coefficients

    Variable        b Coeff.          SE         Wald         p <         OR 
----------------------------------------------------------------------------------
    Constant         -0.7800      0.2246      12.0647      0.0005
         SEX          2.2940      0.1199     365.7949      0.0000     9.9146
       ADULT         -0.5564      0.2276       5.9770      0.0145     0.5732
----------------------------------------------------------------------------------

Estimated Model
SURVIVED = -.7800 + 2.2940(SEX) + -.5564(ADULT)


Classification Table (.50 cutpoint)


                    Predicted Y 
Observed Y          0          1       % Correct
             +-----------+-----------+
         0   |      1364 |       126 |     91.54 
             +-----------+-----------+
         1   |       367 |       344 |     48.38 
             +-----------+-----------+
                                Total      77.60 

The example is SURVIVED on SEX (1 = Female) and ADULT (1 = Adult) from the sample file
titanic.dcs.

WHEN TO USE IT. Logistic regression explains a variable that is yes or no by one or
more other variables: survived or not, ill or not.

WHICH VARIABLES GO WHERE. The yes-or-no variable goes under "Variable Y". It must be
coded 1 for the response of interest and 0 for the rest. The explaining variables go
under "Variable X".

HOW TO READ IT. Model Chi-Square tests all variables together. Under Coefficients,
read OR, the odds ratio: the odds of survival of a woman were 9.9 times those of a man
of the same age group, and those of an adult 0.57 times those of a child. An OR of 1
means no effect. Wald and p test each variable alone. The classification table shows
how often a prediction at the cut of .50 hits: 77.60 percent overall. Compare that
with the 67.70 percent that are right when one predicts "no" for everybody.

WHAT TO WATCH FOR. An odds ratio is not a relative risk: when the outcome is frequent
it looks larger. There must be enough cases of both outcomes, at least as many of each
as there are coefficients, and better ten times as many. A variable that separates the
outcomes completely gives a very large coefficient with a very large SE.
)example";
}

}  // namespace tessara
