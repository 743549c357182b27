#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "calculators/calculation.h"
#include "calculators/standard_score.h"
#include "numerics/tagged_value.h"
#include "platform/platform.h"
#include "presentation/output_log.h"
#include "presentation/print_pages.h"

// Brevarum: statistics from typed summary figures. What stands on its form, and what its buttons do.

namespace tessara {

// The values of CurrentPanel. Those of one sample stand behind the others.
inline constexpr int kTwoMeansPanel = 0;
inline constexpr int kManyMeansPanel = 1;
inline constexpr int kTwoProportionsPanel = 2;
inline constexpr int kCountsPanel = 3;
inline constexpr int kMeanIntervalPanel = 4;
inline constexpr int kProportionIntervalPanel = 5;
inline constexpr int kScorePanel = 6;
inline constexpr int kAccuracyPanel = 7;
inline constexpr int kPowerPanel = 8;
inline constexpr int kOneMeanPanel = 9;
inline constexpr int kOneProportionPanel = 10;

enum class BrevarumBoxKind : std::uint8_t {
  kNumber,
  kLabel,   // any text
  kChoice,  // one of the texts of a list
};

struct BrevarumBox {
  std::string_view name;
  BrevarumBoxKind kind = BrevarumBoxKind::kNumber;
  std::string_view tooltip = {};
  std::string_view default_text = {};
  std::span<const std::string_view> choices = {};
};

// The labels L1 to L10 of the frame that five panels share.
inline constexpr std::size_t kBrevarumLabels = 10;

// One input panel: everything that tells it from the others.
struct BrevarumPanelRow {
  int panel = 0;                       // the value of CurrentPanel
  int option = 0;                      // its button of Option1
  std::string_view button = {};        // the caption of that button
  std::string_view samples = {};       // the caption of its button of Option2; empty where that has no effect
  std::string_view command_name = {};  // in a script
  std::string_view frame = {};
  std::string_view frame_caption = {};
  std::string_view frame_tooltip = {};
  std::string_view help_page = {};
  std::string_view instructions = {};
  std::span<const std::string_view> captions = {};            // beside and above the boxes of a frame of its own
  std::array<std::string_view, kBrevarumLabels> labels = {};  // L1 to L10 in the shared frame
  std::span<const BrevarumBox> boxes = {};                    // as the eye reads them; the order of Enter and Tab
};

inline constexpr std::size_t kBrevarumPanels = 11;

// All panels, by the value of CurrentPanel.
std::span<const BrevarumPanelRow> BrevarumPanelRows();
// The panel of a name in a script; null when there is none.
const BrevarumPanelRow* FindBrevarumPanel(std::string_view command_name);
// The box of that name among those that a panel's calculation reads: its own and, where one and two samples are
// calculated together, those of the other. Null when there is none.
const BrevarumBox* FindBrevarumBox(const BrevarumPanelRow& row, std::string_view name);

inline constexpr std::string_view kInstructionsTitle = "  Instructions";
inline constexpr std::string_view kResultsTitle = "  Results";
inline constexpr std::string_view kOneSample = "One Sample";
inline constexpr std::string_view kTwoSample = "Two Sample";

// The tabs of the results area: each with its tool tip, and the one that leads back to the input.
inline constexpr std::string_view kViewInstructions = "View instructions";
inline constexpr std::string_view kViewHelpWindow = "View statistics help window";
inline constexpr std::string_view kViewModule = "View statistics module";

struct BrevarumPanel {
  // The form as it is first seen: two sample means, every box at its default.
  BrevarumPanel();

  std::int16_t CurrentPanel = 0;
  int Option1 = 0;          // 0 to 8
  bool one_sample = false;  // Option2

  std::map<std::string, std::string, std::less<>> boxes;  // the texts of all boxes, by their names
  std::array<std::string, kBrevarumLabels> labels;        // L1 to L10

  std::string frame_caption;      // of the panel in force
  std::string Label28;            // the note below the table of counts
  std::string Label43;            // the title of the results
  std::string Text25;             // instructions, or the result in words
  std::string T5;                 // the compact result
  double marker = kMarkerMiddle;  // where it stands on the normal curve of the standard score

  bool InstructionsTab = true;  // the state of the two tabs
  bool HelpTab = false;

  // What each panel remembers. The shared frame's boxes T1 to T4, its label L5 and both choices have a row a panel.
  static constexpr std::size_t kMemoryColumns = 7;
  std::array<std::string, 12> BrevarumResults;
  std::array<TaggedValue, kBrevarumPanels> BrevarumPanelText;
  std::array<std::array<std::string, kMemoryColumns>, kBrevarumPanels> box_memory;
  std::string chi_square_caption;              // the frame caption that the table of counts has got
  std::array<std::string, 5> accuracy_totals;  // L6 to L10 of the accuracy panel

  // Whether the title of the results tells why there are none.
  bool ShowsRefusal() const;
  // The text of a box; nothing for a name that no box has.
  std::string_view Box(std::string_view name) const;
};

const BrevarumPanelRow& CurrentRow(const BrevarumPanel& panel);

// A button of Option1, 0 to 8: shows its input panel with what that remembers, and its instructions.
void SelectPanel(BrevarumPanel& panel, int option);
// A button of Option2. It matters to the t-test and the z-test alone: any other panel stays as it is.
void SelectSamples(BrevarumPanel& panel, bool one_sample);

// Sets the text of a box. False for a name that no box has.
bool SetBox(BrevarumPanel& panel, std::string_view name, std::string_view text);

// Runs the calculation of the panel in force: its report goes to the log, and alone to the most recent output. Yields
// what the calculation has made.
Calculation Calculate(BrevarumPanel& panel, OutputLog& output, Platform& platform);
// The shared frame's boxes into the memory of the panel in force; a panel with boxes of its own needs none.
void StoreSharedBoxes(BrevarumPanel& panel);
// The common ending of a calculation: the panel remembers the report that the log gets, and T5.
void ShowBrevarumResult(BrevarumPanel& panel, int number, std::string_view report);

// Empties the panel in force: its boxes, its results and what it remembers. T5 shows the same report with zeros.
void ClearPanel(BrevarumPanel& panel);

// The result of the panel in force goes to the clipboard.
bool CanCopyResult(const BrevarumPanel& panel);
void CopyResult(const BrevarumPanel& panel, Platform& platform);
// Prints the result of the panel in force. False when it was cancelled or the printer refused.
bool PrintResult(const BrevarumPanel& panel, Platform& platform, const PrintOptions& options);
std::string ResultPage(const BrevarumPanel& panel, const PrintOptions& options, const CalendarDay& today);

// Keys as the form's boxes tell them.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyMinus = 45;
inline constexpr int kKeyPoint = 46;

// A key has been released in a box of the panel in force. Enter cleans the box of line ends; any other key has a box of
// numbers tested at once, but for those that may stand where no number is yet. Yields the name of the box to go to,
// kCalculateNext behind the last one; nothing to stay.
inline constexpr std::string_view kCalculateNext = "Calculate";
std::string_view BoxKeyReleased(BrevarumPanel& panel, Platform& platform, std::string_view box, int key);

}  // namespace tessara
