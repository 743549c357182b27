#include "calculators/brevarum_panel.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "calculators/counts_walk.h"
#include "calculators/empty_results.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

constexpr std::string_view kSharedFrame = "F1";
constexpr std::size_t kScoreLabel = 4;        // L5
constexpr std::size_t kFirstTotalsLabel = 5;  // L6
constexpr std::size_t kScoreColumn = 4;       // of the box memory

// The boxes that panels share, by the columns of the box memory; the fifth is the label L5.
constexpr std::string_view kSharedBoxes[BrevarumPanel::kMemoryColumns] = {"T1", "T2", "T3", "T4", "", "Alpha", "Beta"};

bool IsShared(const BrevarumPanelRow& row) { return row.frame == kSharedFrame; }

std::string_view DefaultText(std::string_view box) {
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    const auto found = std::ranges::find(row.boxes, box, &BrevarumBox::name);
    if (found != row.boxes.end()) return found->default_text;
  }
  return {};
}

// The labels of the shared frame: its captions, and what a calculation has shown in them.
void ShowLabels(BrevarumPanel& panel) {
  const BrevarumPanelRow& row = CurrentRow(panel);
  std::ranges::copy(row.labels, panel.labels.begin());
  if (row.panel == kScorePanel) panel.labels[kScoreLabel] = panel.box_memory[kScorePanel][kScoreColumn];
  if (row.panel == kAccuracyPanel) {
    std::ranges::copy(panel.accuracy_totals, panel.labels.begin() + kFirstTotalsLabel);
  }
}

void RestoreBoxes(BrevarumPanel& panel) {
  const auto& memory = panel.box_memory[static_cast<std::size_t>(panel.CurrentPanel)];
  for (std::size_t i = 0; i < memory.size(); ++i) {
    if (i != kScoreColumn) SetBox(panel, kSharedBoxes[i], memory[i]);
  }
}

void ForgetBoxes(BrevarumPanel& panel, std::size_t number) {
  auto& memory = panel.box_memory[number];
  for (std::size_t i = 0; i < memory.size(); ++i) memory[i] = DefaultText(kSharedBoxes[i]);
}

void ShowInstructions(BrevarumPanel& panel) {
  panel.Text25 = CurrentRow(panel).instructions;
  panel.Label43 = kInstructionsTitle;
}

int PanelOf(int option, bool one_sample) {
  const std::string_view samples = one_sample ? kOneSample : kTwoSample;
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    if (row.option == option && (row.samples.empty() || row.samples == samples)) return row.panel;
  }
  return 0;
}

// Shows the panel in force with what it remembers.
void ShowPanel(BrevarumPanel& panel) {
  const BrevarumPanelRow& row = CurrentRow(panel);
  panel.frame_caption = row.panel == kCountsPanel ? panel.chi_square_caption : std::string(row.frame_caption);
  ShowInstructions(panel);
  if (IsShared(row)) RestoreBoxes(panel);
  ShowLabels(panel);
  panel.T5 = TextOf(panel.BrevarumPanelText[static_cast<std::size_t>(row.panel)]);
}

std::string WithoutLineEnds(std::string_view text) {
  std::string line(text);
  std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
  return line;
}

std::string IndentedLines(std::string_view text, int margin) {
  std::string result;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(kLineEnd, start)) != text.npos; start = end + kLineEnd.size()) {
    result.append(text.substr(start, end - start)).append(kLineEnd).append(Blanks(margin));
  }
  result.append(text.substr(start));
  return result;
}

}  // namespace

BrevarumPanel::BrevarumPanel() {
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    const auto number = static_cast<std::size_t>(row.panel);
    for (const BrevarumBox& box : row.boxes) boxes.try_emplace(std::string(box.name), box.default_text);
    BrevarumPanelText[number] = TaggedValue(EmptyResult(row.panel));
    ForgetBoxes(*this, number);
  }
  chi_square_caption = BrevarumPanelRows()[kCountsPanel].frame_caption;
  ShowPanel(*this);
}

bool BrevarumPanel::ShowsRefusal() const { return Label43 != kInstructionsTitle && Label43 != kResultsTitle; }

std::string_view BrevarumPanel::Box(std::string_view name) const {
  const auto found = boxes.find(name);
  return found == boxes.end() ? std::string_view() : std::string_view(found->second);
}

const BrevarumPanelRow& CurrentRow(const BrevarumPanel& panel) {
  return BrevarumPanelRows()[static_cast<std::size_t>(panel.CurrentPanel)];
}

void SelectPanel(BrevarumPanel& panel, int option) {
  // What was typed and not yet calculated is kept as well.
  StoreSharedBoxes(panel);
  panel.Option1 = option;
  panel.CurrentPanel = static_cast<std::int16_t>(PanelOf(option, panel.one_sample));
  ShowPanel(panel);
}

void SelectSamples(BrevarumPanel& panel, bool one_sample) {
  panel.one_sample = one_sample;
  if (!CurrentRow(panel).samples.empty()) SelectPanel(panel, panel.Option1);
}

bool SetBox(BrevarumPanel& panel, std::string_view name, std::string_view text) {
  const auto found = panel.boxes.find(name);
  if (found == panel.boxes.end()) return false;
  found->second = text;
  return true;
}

void StoreSharedBoxes(BrevarumPanel& panel) {
  if (!IsShared(CurrentRow(panel))) return;
  auto& memory = panel.box_memory[static_cast<std::size_t>(panel.CurrentPanel)];
  for (std::size_t i = 0; i < memory.size(); ++i) {
    memory[i] = i == kScoreColumn ? panel.labels[kScoreLabel] : std::string(panel.Box(kSharedBoxes[i]));
  }
}

void ShowBrevarumResult(BrevarumPanel& panel, int number, std::string_view report) {
  const auto row = static_cast<std::size_t>(number);
  panel.BrevarumResults[row] = std::string("\r\n").append(report).append("\r\n");
  panel.BrevarumPanelText[row] = TaggedValue(panel.T5);
}

void ClearPanel(BrevarumPanel& panel) {
  const BrevarumPanelRow& row = CurrentRow(panel);
  const auto number = static_cast<std::size_t>(row.panel);
  for (const BrevarumBox& box : row.boxes) SetBox(panel, box.name, box.default_text);
  ForgetBoxes(panel, number);
  panel.BrevarumResults[number].clear();
  panel.BrevarumPanelText[number] = TaggedValue(EmptyResult(row.panel));
  if (row.panel == kCountsPanel) {
    panel.Label28.clear();
    panel.chi_square_caption = row.frame_caption;
  }
  if (row.panel == kScorePanel) panel.marker = kMarkerMiddle;
  if (row.panel == kAccuracyPanel) panel.accuracy_totals = {};
  ShowPanel(panel);
}

bool CanCopyResult(const BrevarumPanel& panel) {
  return !panel.BrevarumResults[static_cast<std::size_t>(panel.CurrentPanel)].empty();
}

void CopyResult(const BrevarumPanel& panel, Platform& platform) {
  if (!CanCopyResult(panel)) return;
  platform.SetClipboardText(panel.BrevarumResults[static_cast<std::size_t>(panel.CurrentPanel)]);
}

std::string ResultPage(const BrevarumPanel& panel, const PrintOptions& options, const CalendarDay& today) {
  constexpr int kMargin = 5;
  std::string page = "\r\n\r\n\r\n" + Blanks(kMargin) + "Tessara Output";
  if (options.date) page += Blanks(58) + ShortDate(today);
  page += IndentedLines(panel.BrevarumResults[static_cast<std::size_t>(panel.CurrentPanel)], kMargin);
  if (options.notes_caption) {
    page += "\r\n\r\n\r\n" + Blanks(kMargin) + "Notes\r\n" + Blanks(kMargin) + std::string(95, '_');
  }
  return page;
}

bool PrintResult(const BrevarumPanel& panel, Platform& platform, const PrintOptions& options) {
  const auto choice = platform.AskPrint({.title = "Print", .offer_selection = false});
  if (!choice) return false;
  const std::string page = ResultPage(panel, options, platform.Now().date);
  const std::vector<std::string> pages(static_cast<std::size_t>(std::max(choice->copies, 0)), page);
  if (platform.Print(JobOfPages(pages))) return true;
  ShowPrinterError(platform);
  return false;
}

std::string_view BoxKeyReleased(BrevarumPanel& panel, Platform& platform, std::string_view box, int key) {
  const std::span<const BrevarumBox> order = CurrentRow(panel).boxes;
  const auto found = std::ranges::find(order, box, &BrevarumBox::name);
  if (found == order.end()) return {};
  if (key == kKeyEnter) {
    SetBox(panel, box, WithoutLineEnds(panel.Box(box)));
    if (panel.CurrentPanel == kCountsPanel) return BoxBehindInCounts(panel, box);
    const auto next = std::next(found);
    return next == order.end() ? kCalculateNext : next->name;
  }
  const bool tested =
      found->kind == BrevarumBoxKind::kNumber && key != kKeyMinus && key != kKeyPoint && key != kKeyBackspace;
  if (tested && !IsNumeric(panel.Box(box))) {
    platform.ShowMessage({.title = "Error!", .text = "Non-numerical entry.", .tone = Tone::kWarning});
  }
  return {};
}

}  // namespace tessara
