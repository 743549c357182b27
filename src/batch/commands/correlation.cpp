#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

CommandResult RunPair(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kCorrelation);
}

CommandResult RunMatrix(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kCorrelation,
                      [](ProcedureOptions& options) { options.correlation.create_matrix = true; });
}

}  // namespace

constinit const CommandRow kCorrelationCommand{
    .name = "correlation",
    .synopsis = "VAR... by VAR...",
    .summary = "compare two continuous variables",
    .details =
        "Pearson's correlation with its test and a scattergram, for each variable ahead of \"by\"\n"
        "with each behind it.\n",
    .example = "correlation WEIGHT by HEIGHT",
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = RunPair,
};

constinit const CommandRow kCorrelationMatrixCommand{
    .name = "correlation-matrix",
    .synopsis = "VAR...",
    .summary = "correlate each pair of variables",
    .details =
        "Pearson's correlations of all pairs of the variables as a square matrix. Each pair uses\n"
        "the cases that are valid in both.\n",
    .example = "correlation-matrix AGE WEIGHT HEIGHT",
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = RunMatrix,
};

}  // namespace tessara
