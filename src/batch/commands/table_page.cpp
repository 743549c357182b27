#include "batch/commands/table_page.h"

#include <optional>
#include <string>
#include <utility>

#include "batch/words/script_line.h"
#include "presentation/report_page.h"
#include "shell/report_operations.h"

namespace tessara {
namespace {

std::optional<TableAlignment> AlignmentNamed(std::string_view name) {
  if (name == "left") return TableAlignment::kLeft;
  if (name == "center") return TableAlignment::kCentre;
  if (name == "right") return TableAlignment::kRight;
  return std::nullopt;
}

// Puts what the options name into the page. A sentence when one of them cannot be understood.
std::string TakePageOptions(const CommandWords& words, ReportPage& page) {
  const auto take_text = [&](std::string_view option, std::string& text) {
    if (const auto value = words.Value(option)) text = HeldText(*value);
  };
  const auto take_alignment = [&](std::string_view option, TableAlignment& alignment) {
    const auto value = words.Value(option);
    if (!value) return true;
    const auto named = AlignmentNamed(*value);
    if (named) alignment = *named;
    return named.has_value();
  };
  take_text("--header", page.ReportHeader);
  take_text("--footer", page.ReportFooter);
  if (words.Has("--header-rule")) page.ReportHeaderRule = true;
  if (words.Has("--footer-rule")) page.ReportFooterRule = true;
  for (const auto& [option, alignment] :
       {std::pair{"--header-align", &page.ReportHeaderAlign}, std::pair{"--footer-align", &page.ReportFooterAlign}}) {
    if (!take_alignment(option, *alignment)) return std::string(option) + " takes left, center or right";
  }
  return {};
}

}  // namespace

CommandResult RunTablePage(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  ReportPage page = session.report_page;
  if (const std::string refusal = TakePageOptions(words, page); !refusal.empty()) return NotUnderstood(refusal);
  session.report_page = std::move(page);
  const auto job = TableJob(session);
  if (!job) return Done();
  std::string text;
  for (const Sheet& sheet : job->sheets) text.append(text.empty() ? "" : "\f").append(sheet.text);
  batch.stream.PrintText(text + "\r\n");
  return Done();
}

CommandResult RunTableWidth(Batch& batch, const CommandWords& words) {
  SetTableColumnWidth(batch.session, HeldText(words.words.front()));
  return Done();
}

}  // namespace tessara
