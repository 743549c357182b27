#pragma once

#include "shell/command_row.h"

// The operations that the rows of commands name, as far as they stand nowhere else.

namespace tessara {

// New.
void ResetProcedurePanel(Session& session);
void ClearCalculator(Session& session);
void ClearOutputAfterWarning(Session& session);

// The text of the Output view.
void OpenText(Session& session);
void SaveText(Session& session);
void PrintText(Session& session, const WidgetState& widgets);
void ConvertText(Session& session);
void ToggleText(Session& session);

void RunProcedure(Session& session);
void RunCalculator(Session& session);
void PrintCalculation(Session& session);
void CopyCalculation(Session& session);
void TellWhereChartsPrint(Session& session);

// Data that come in and go out, and a part of them.
WidgetAction PrepareImport(Session& session);
WidgetAction PrepareExport(Session& session);
WidgetAction PrepareExcelExport(Session& session);
WidgetAction PrepareSplit(Session& session);

void RepairPracticeFiles(Session& session);
WidgetAction RefreshDocumentation(Session& session);
void OpenDocumentation(Session& session, Document document);
template <Document document>
void OpenDocumentation(Session& session) {
  OpenDocumentation(session, document);
}

WidgetAction OpenHelp(Session& session);
// The product's own pages, in the help pane: where the documents come from, the product, its updates.
enum class ProductPage { kDownload, kHome, kUpdates };
WidgetAction ShowProductPage(Session& session, ProductPage page);
template <ProductPage page>
WidgetAction ShowProductPage(Session& session) {
  return ShowProductPage(session, page);
}
WidgetAction ToggleHelpPane(Session& session);

}  // namespace tessara
