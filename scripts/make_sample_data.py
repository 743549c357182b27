#!/usr/bin/env python3
"""Writes the sample data files into installed/Data and, for the repair command, into installed/Help.

The classic figures stand in scripts/sample_data/*.csv; the survey is drawn by survey_sample.py with a fixed seed.
Running this script again gives the same bytes. It needs Python 3 and nothing else.
"""

import csv
import pathlib

import survey_sample

ROOT = pathlib.Path(__file__).resolve().parent.parent
FIGURES = ROOT / "scripts" / "sample_data"
FOLDERS = [ROOT / "installed" / "Data", ROOT / "installed" / "Help"]

SEPARATOR = "\x01"
LINE_END = "\r\n"
NOTES_LINE_END = "@#$%"
VALUE_LABEL_SLOTS = 8
NO_YES = ["0=No", "1=Yes"]


class Variable:
    """One column of the dictionary: the missing field is written as the file holds it, for example "9||||||"."""

    def __init__(self, name, label, values=(), missing=""):
        assert len(name) <= 8 and name == name.upper(), name
        assert len(label) <= 40, label
        assert len(values) <= VALUE_LABEL_SLOTS, name
        assert missing == "" or (missing.count("|") == 6 and len(missing) >= 7), name
        for value in values:
            assert len(value.split("=", 1)[1]) <= 20 and "," not in value, value
        self.name, self.label, self.values, self.missing = name, label, list(values), missing


def file_text(variables, notes, records):
    """The whole file: the banner and the notes, fifteen lines of dictionary, one line a record."""
    columns = len(variables)
    empty = [""] * columns
    banner = f"{len(records)} {columns} Tessara data"
    lines = [[banner, NOTES_LINE_END.join(notes)] + [""] * (columns - 2)]
    lines.append([v.missing for v in variables])
    lines.append([v.label for v in variables])
    lines.append(empty)
    for slot in range(VALUE_LABEL_SLOTS):
        lines.append([v.values[slot] if slot < len(v.values) else "" for v in variables])
    lines += [empty, empty, empty]
    lines.append([v.name for v in variables])
    lines += [[str(cell) for cell in record] for record in records]
    for line in lines:
        assert len(line) == columns, line
    return "".join(SEPARATOR.join(line) + LINE_END for line in lines)


def write(name, variables, notes, records):
    data = file_text(variables, notes, records).encode("cp1252")
    for folder in FOLDERS:
        folder.mkdir(parents=True, exist_ok=True)
        (folder / name).write_bytes(data)
    print(f"{name}: {len(records)} records, {len(variables)} variables")


def figures(name):
    with open(FIGURES / f"{name}.csv", newline="", encoding="ascii") as source:
        rows = list(csv.reader(source))
    return rows[1:]


def write_iris():
    write("iris.dcs", [
        Variable("SEPLEN", "Sepal length in cm"),
        Variable("SEPWID", "Sepal width in cm"),
        Variable("PETLEN", "Petal length in cm"),
        Variable("PETWID", "Petal width in cm"),
        Variable("SPECIES", "Species of iris", ["1=Setosa", "2=Versicolor", "3=Virginica"]),
    ], [
        "Flowers of three species of iris, 50 plants of each, in centimetres.",
        "Measured by Edgar Anderson (1935) on the Gaspe Peninsula; made famous by R. A. Fisher (1936),",
        "'The use of multiple measurements in taxonomic problems', Annals of Eugenics 7.",
        "",
        "What to try: Descriptives of SEPLEN with the bar chart; the same with SPECIES as control variable",
        "(equal to 1); One-Way ANOVA of SEPWID by SPECIES; Correlation of PETLEN and PETWID.",
    ], figures("iris"))


def write_titanic():
    people = []
    for *person, count in figures("titanic"):
        people += [person] * int(count)
    write("titanic.dcs", [
        Variable("CLASS", "Class of travel", ["1=First class", "2=Second class", "3=Third class", "4=Crew"]),
        Variable("SEX", "Sex", ["0=Male", "1=Female"]),
        Variable("ADULT", "Age group", ["0=Child", "1=Adult"]),
        Variable("SURVIVED", "Survived the sinking", NO_YES),
    ], [
        "The 2201 people on board the Titanic on 15 April 1912, one record a person.",
        "Counts from the British Board of Trade inquiry (1912), as tabulated by R. J. M. Dawson (1995),",
        "'The unusual episode data revisited', Journal of Statistics Education 3.",
        "",
        "What to try: Frequencies of CLASS with the index of dispersion; Crosstabulation of SURVIVED by SEX;",
        "the same with CLASS as control variable, equal to 3; Logistic regression of SURVIVED on SEX and ADULT.",
    ], people)


def write_sleep():
    write("sleep.dcs", [
        Variable("PATIENT", "Number of the patient"),
        Variable("DRUG", "Drug given", ["1=Drug A", "2=Drug B"]),
        Variable("EXTRA", "Extra hours of sleep"),
    ], [
        "Extra hours of sleep of ten patients under each of two drugs, against nights without a drug.",
        "From 'Student' (W. S. Gosset, 1908), 'The probable error of a mean', Biometrika 6.",
        "",
        "What to try: Descriptives of EXTRA, once for each DRUG by way of the control variable; T-test of",
        "EXTRA by DRUG with the values 1 and 2. The same ten patients took both drugs, which the two-sample",
        "test does not know: compare the results with the gain of each patient.",
    ], figures("sleep"))


def write_anscombe():
    variables = []
    for number in range(1, 5):
        variables.append(Variable(f"X{number}", f"Horizontal value of set {number}"))
        variables.append(Variable(f"Y{number}", f"Vertical value of set {number}"))
    write("anscombe.dcs", variables, [
        "Four small data sets with nearly the same means, variances and correlation, and nothing else in common.",
        "From F. J. Anscombe (1973), 'Graphs in statistical analysis', The American Statistician 27.",
        "",
        "What to try: Descriptives of all eight variables in one run; Correlation of Y1 and X1, Y2 and X2, and",
        "so on: the coefficients agree, the scattergrams do not. Always look at the data.",
    ], figures("anscombe"))


def write_teeth():
    write("teeth.dcs", [
        Variable("LENGTH", "Length of the tooth-forming cells"),
        Variable("SUPP", "Source of vitamin C", ["1=Orange juice", "2=Ascorbic acid"]),
        Variable("DOSE", "Dose in mg a day", ["0.5=Low", "1=Medium", "2=High"]),
    ], [
        "Length of the tooth-forming cells of 60 guinea pigs under three doses of vitamin C from two sources.",
        "From C. I. Bliss (1952), 'The Statistics of Bioassay', after E. W. Crampton (1947).",
        "",
        "What to try: Explore LENGTH by DOSE; T-test of LENGTH by SUPP with the values 1 and 2; the same for one",
        "dose alone by way of the control variable.",
    ], figures("teeth"))


def write_chicks():
    write("chicks.dcs", [
        Variable("WEIGHT", "Weight after six weeks in grams"),
        Variable("FEED", "Feed supplement", ["1=Casein", "2=Horsebean", "3=Linseed", "4=Meatmeal", "5=Soybean",
                                             "6=Sunflower"]),
    ], [
        "Weights of 71 chicks that were fed six different supplements from the day of hatching.",
        "From an anonymous report of 1948 in Biometrika 35.",
        "",
        "What to try: One-Way ANOVA of WEIGHT by FEED with the post hoc test; Frequencies of FEED.",
    ], figures("chicks"))


def write_sprays():
    write("sprays.dcs", [
        Variable("COUNT", "Insects counted on the plot"),
        Variable("SPRAY", "Insecticide, a letter"),
    ], [
        "Insects found on plots of a field after treatment with one of six insecticides, A to F: 72 plots.",
        "From G. Beall (1942), 'The transformation of data from entomological field experiments', Biometrika 32.",
        "",
        "What to try: Frequencies of SPRAY, a variable of text values; Descriptives of COUNT with SPRAY as control",
        "variable, equal to C; One-Way ANOVA of COUNT by SPRAY. Look at the spread in the groups: is it the same?",
    ], figures("sprays"))


def write_women():
    write("women.dcs", [
        Variable("HEIGHT", "Height in inches"),
        Variable("WEIGHT", "Average weight in pounds"),
    ], [
        "Average weights of American women aged 30 to 39, for each height from 58 to 72 inches.",
        "From The World Almanac and Book of Facts, 1975 (figures of 1959).",
        "",
        "What to try: Correlation of WEIGHT and HEIGHT; Regression of WEIGHT on HEIGHT with the residuals saved.",
        "Look at the residuals in the Data Grid: why are those at both ends positive?",
    ], figures("women"))


def write_cars():
    write("cars.dcs", [
        Variable("MODEL", "Make and model"),
        Variable("MPG", "Miles per US gallon"),
        Variable("CYL", "Number of cylinders"),
        Variable("DISP", "Displacement in cubic inches"),
        Variable("HP", "Gross horsepower"),
        Variable("DRAT", "Rear axle ratio"),
        Variable("WT", "Weight in 1000 pounds"),
        Variable("QSEC", "Quarter mile time in seconds"),
        Variable("VS", "Shape of the engine", ["0=V-shaped", "1=Straight"]),
        Variable("AM", "Transmission", ["0=Automatic", "1=Manual"]),
        Variable("GEAR", "Number of forward gears"),
        Variable("CARB", "Number of carburettors"),
    ], [
        "Fuel use and ten aspects of design of 32 cars of the model years 1973 and 1974.",
        "From Motor Trend magazine (1974), as given by H. V. Henderson and P. F. Velleman (1981), Biometrics 37.",
        "",
        "What to try: List Variables with MODEL, MPG and WT; Regression of MPG on WT and HP; the correlation",
        "matrix of MPG, WT, HP and DISP; Crosstabulation of CYL by AM.",
    ], figures("cars"))


def write_geyser():
    write("geyser.dcs", [
        Variable("ERUPT", "Length of the eruption in minutes"),
        Variable("WAITING", "Minutes until the next eruption"),
    ], [
        "272 eruptions of the geyser Old Faithful in Yellowstone National Park.",
        "From A. Azzalini and A. W. Bowman (1990), 'A look at some data on the Old Faithful geyser',",
        "Applied Statistics 39.",
        "",
        "What to try: Descriptives of WAITING with the bar chart: two humps, and the mean lies between them where",
        "few eruptions are. Then use ERUPT as control variable, less than 3, and again greater than 3.",
    ], figures("geyser"))


def write_survey():
    write("survey.dcs", [
        Variable("ID", "Number of the person"),
        Variable("SEX", "Sex", ["1=Male", "2=Female"]),
        Variable("AGE", "Age in years"),
        Variable("REGION", "Region of the country", ["1=North", "2=South", "3=East", "4=West"]),
        Variable("EDUC", "Highest level of education",
                 ["1=Primary", "2=Secondary", "3=Vocational", "4=University", "9=No answer"], "9||||||"),
        Variable("SMOKE", "Smokes at present", NO_YES + ["9=No answer"], "9||||||"),
        Variable("HEALTH", "Own view of health",
                 ["1=Poor", "2=Fair", "3=Good", "4=Very good", "5=Excellent", "8=Does not know", "9=No answer"],
                 "8|9|||||"),
        Variable("HEIGHT", "Height in cm"),
        Variable("WEIGHT", "Weight in kg", missing="999||||||"),
        Variable("EXERCISE", "Hours of exercise a week", missing="99||||||"),
        Variable("PRESSURE", "Systolic blood pressure in mmHg", missing="|||||300|"),
        Variable("TEST", "Result of the screening test", ["1=Low", "2=Middle", "3=High", "4=Very high"]),
        Variable("DISEASE", "Disease found by examination", ["0=Not found", "1=Found"]),
        Variable("READERA", "Grade given by reader A", ["1=Clear", "2=Doubtful", "3=Suspect"]),
        Variable("READERB", "Grade given by reader B", ["1=Clear", "2=Doubtful", "3=Suspect"]),
        Variable("REMARK", "How the interview was held, if unusual"),
    ], [
        "An invented survey of 400 people: no figure stands for a real person or a real place.",
        f"Drawn by the script survey_sample.py of the source tree with the seed {survey_sample.SEED}; a new run gives the "
        "same people.",
        "",
        "Missing answers have codes: 9 (EDUC, SMOKE), 8 and 9 (HEALTH), 999 (WEIGHT), 99 (EXERCISE). For PRESSURE",
        "everything above 300 is missing. REMARK is text, and mostly blank.",
        "",
        "What to try: Frequencies of SMOKE, with SEX as control variable; Descriptives of PRESSURE; T-test of PRESSURE",
        "by SEX; Crosstabulation of SMOKE by SEX with the risk, of READERA by READERB with the agreement;",
        "Diagnostic accuracy of TEST by DISEASE.",
    ], survey_sample.people())


def main():
    for writer in (write_iris, write_titanic, write_sleep, write_anscombe, write_teeth, write_chicks, write_sprays,
                   write_women, write_cars, write_geyser, write_survey):
        writer()


if __name__ == "__main__":
    main()
