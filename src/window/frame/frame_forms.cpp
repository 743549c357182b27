#include "window/frame/frame_forms.h"

#include <QDialog>

#include "shell/report_operations.h"
#include "window/deskcalc/calc_pad.h"
#include "window/frame/about_box.h"
#include "window/grid/delimit.h"
#include "window/grid/split_data.h"
#include "window/options/frm_options.h"
#include "window/output/report_form.h"
#include "window/output/rpt_options.h"
#include "window/system/qt_platform.h"
#include "window/widgets/view_form.h"

namespace tessara {

FrameForms::FrameForms(QtPlatform& platform, Session& session, Run run, QWidget* frame)
    : QObject(frame), platform_(platform), session_(session), run_(std::move(run)), frame_(frame) {}

bool FrameForms::Show(WidgetAction action) {
  if (action == WidgetAction::kShowCalculator) {
    ShowCalculator();
    return true;
  }
  if (form_) {
    form_->raise();
    return true;
  }
  QDialog* form = Make(action);
  if (!form) return false;
  form_ = form;
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->open();
  return true;
}

void FrameForms::ShowCalculator() {
  if (!calculator_) {
    calculator_ = new CalcPad(platform_, session_, frame_);
    connect(calculator_, &CalcPad::HelpAsked, this, &FrameForms::HelpAsked);
    SetZoom(zoom_);
  }
  calculator_->Open();
}

void FrameForms::SetZoom(int percent) {
  zoom_ = percent;
  if (calculator_) ZoomType(calculator_, percent);
}

QDialog* FrameForms::Make(WidgetAction action) {
  switch (action) {
    case WidgetAction::kShowAbout:
      return new AboutBox(frame_);
    case WidgetAction::kShowImport:
    case WidgetAction::kShowExport:
      return MakeDelimit(action == WidgetAction::kShowImport);
    case WidgetAction::kShowSplit:
      return MakeSplit();
    case WidgetAction::kFormatPage:
      return MakePageOptions();
    case WidgetAction::kSetColumnWidth:
      return MakeColumnWidth();
    case WidgetAction::kShowOptions:
      return MakeOptions();
    default:
      return nullptr;
  }
}

QDialog* FrameForms::MakeDelimit(bool to_import) {
  auto* form = new Delimit(session_, to_import ? Delimit::Page::kImport : Delimit::Page::kExport, run_, frame_);
  connect(form, &Delimit::HelpAsked, this, &FrameForms::HelpAsked);
  return form;
}

QDialog* FrameForms::MakeSplit() {
  auto* form = new SplitData(session_, run_, frame_);
  connect(form, &SplitData::HelpAsked, this, &FrameForms::HelpAsked);
  return form;
}

QDialog* FrameForms::MakePageOptions() {
  auto* form = new RptOptions(session_.report_page, frame_);
  connect(form, &RptOptions::HelpAsked, this, &FrameForms::HelpAsked);
  connect(form, &RptOptions::Applied, this,
          [this] { platform_.SetStatusPane(kMessagePane, "Header and footer are set"); });
  return form;
}

QDialog* FrameForms::MakeOptions() {
  auto* form = new FrmOptions(session_, run_, frame_);
  connect(form, &FrmOptions::HelpAsked, this, &FrameForms::HelpAsked);
  connect(form, &FrmOptions::AppearanceChanged, this, &FrameForms::AppearanceChanged);
  return form;
}

QDialog* FrameForms::MakeColumnWidth() {
  const auto apply = [this](const std::string& typed) {
    bool applied = false;
    run_([&] { applied = SetTableColumnWidth(session_, typed); });
    return applied;
  };
  return new ReportForm(apply, session_.table.grid.Width(kLabelColumns + 1), frame_);
}

}  // namespace tessara
