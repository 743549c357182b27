// Makes the benchmark data: N records x 20 variables as a data file, and the same as comma-separated text for other
// programs.
//
//   tessara_make_bench_data 1000000 /tmp/bench.dcs [/tmp/bench.csv]
//
// ID; Q1 to Q7, codes 1 to 5 with labels and the missing code 9; OUTCOME 0/1; SEX; AGE; X1 to X6, normal and
// correlated; INCOME, skewed; REGION, six words; DATE. 2 % of the cells are blank in 17 of the 20 columns, and code 9
// stands in 1.5 % of the Q columns. The same bytes for the same N.

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "data/loaded_text.h"
#include "numerics/masks.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::size_t kVariables = 20;
constexpr std::array<const char*, kVariables> kNames = {"ID", "Q1",      "Q2",  "Q3",     "Q4",     "Q5",  "Q6",
                                                        "Q7", "OUTCOME", "SEX", "AGE",    "X1",     "X2",  "X3",
                                                        "X4", "X5",      "X6",  "INCOME", "REGION", "DATE"};
constexpr std::array<const char*, 6> kRegions = {"North", "South", "East", "West", "Central", "Islands"};
constexpr std::array<const char*, 5> kAnswers = {"Strongly disagree", "Disagree", "Neutral", "Agree", "Strongly agree"};

using Row = std::array<std::string, kVariables>;

// Draws that give the same numbers with every standard library: only the engine is the library's own.
class Draws {
 public:
  explicit Draws(std::uint64_t seed) : engine_(seed) {}
  double Uniform() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }
  int Below(int limit) { return static_cast<int>(Uniform() * limit); }
  double Normal() { return std::sqrt(-2 * std::log(1 - Uniform())) * std::cos(6.283185307179586 * Uniform()); }

 private:
  std::mt19937_64 engine_;
};

std::string Joined(const Row& row, char separator, const char* line_end) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) line += separator;
    line += row[i];
  }
  return line + line_end;
}

std::vector<Row> HeaderRows(long records) {
  std::vector<Row> rows(16);
  rows[0][0] = std::to_string(records) + " 20 Tessara data";
  rows[0][1] = "Benchmark data";
  for (std::size_t q = 1; q <= 7; ++q) {
    rows[1][q] = "9||||||";
    rows[2][q] = "Item ";
    rows[2][q] += std::to_string(q);
    for (std::size_t slot = 0; slot < kAnswers.size(); ++slot) {
      rows[4 + slot][q] = std::to_string(slot + 1);
      rows[4 + slot][q] += "=";
      rows[4 + slot][q] += kAnswers[slot];
    }
  }
  for (std::size_t i = 0; i < kVariables; ++i) rows[15][i] = kNames[i];
  return rows;
}

Row Record(long number, Draws& draws) {
  Row row;
  const double common = draws.Normal();
  row[0] = std::to_string(number);
  for (std::size_t q = 1; q <= 7; ++q) {
    const double answer = 3 + 0.7 * common + 0.9 * draws.Normal();
    const int code = draws.Uniform() < 0.015 ? 9 : std::min(5, std::max(1, static_cast<int>(std::lround(answer))));
    row[q] = std::to_string(code);
  }
  row[8] = std::to_string(draws.Uniform() < 1 / (1 + std::exp(-common)) ? 1 : 0);
  row[9] = std::to_string(1 + draws.Below(2));
  row[10] = std::to_string(18 + draws.Below(70));
  row[11] = MaskedNumber(50 + 10 * (0.6 * common + 0.8 * draws.Normal()), "0.0");
  for (std::size_t x = 12; x <= 16; ++x) row[x] = MaskedNumber(0.5 * common + draws.Normal(), "0.0000");
  row[17] = MaskedNumber(std::exp(10 + 0.6 * draws.Normal()), "0");
  row[18] = kRegions[static_cast<std::size_t>(draws.Below(6))];
  row[19] = std::to_string(1 + draws.Below(12));
  row[19] += "/";
  row[19] += std::to_string(1 + draws.Below(28));
  row[19] += "/";
  row[19] += std::to_string(2020 + draws.Below(5));
  for (std::size_t i = 1; i < kVariables; ++i) {
    if (i != 8 && i != 9 && draws.Uniform() < 0.02) row[i].clear();
  }
  return row;
}

int Make(long records, const Path& data_file, const Path& text_file) {
  SafeFileWriter data(data_file);
  for (const Row& row : HeaderRows(records)) data.Write(Joined(row, kFieldSeparator, "\r\n"));
  std::string csv;
  if (!text_file.empty()) csv = Joined(HeaderRows(records)[15], ',', "\n");
  Draws draws(20261121);
  for (long number = 1; number <= records; ++number) {
    const Row row = Record(number, draws);
    data.Write(Joined(row, kFieldSeparator, "\r\n"));
    if (!text_file.empty()) csv += Joined(row, ',', "\n");
  }
  if (!text_file.empty() && WriteWholeFile(text_file, csv) != WriteResult::kWritten) return 1;
  return data.Commit() == WriteResult::kWritten ? 0 : 1;
}

}  // namespace
}  // namespace tessara

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: tessara_make_bench_data RECORDS FILE.dcs [FILE.csv]\n", stderr);
    return 2;
  }
  return tessara::Make(std::atol(argv[1]), argv[2], argc > 3 ? argv[3] : "");
}
