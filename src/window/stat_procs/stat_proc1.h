#pragma once

#include <QToolButton>
#include <array>
#include <cstdint>
#include <optional>

#include "window/widgets/view_form.h"

class QLabel;
class QPushButton;
class QSplitter;
class QStackedWidget;

namespace tessara {

class ControlPanel;
class ExamplePane;
class NotesPage;
class ProcedureBox;
class ProgressPlace;
class StatisticsPage;

// The faces of the procedure panel, in the order of Viewbar1.
enum class Face { kControlPanel, kGridStatistics, kProjectNotes, kStatProcedures, kExample };

// The procedure panel. The faces that the window has room for stand beside each other: the lists, statistics or notes
// on the left, the procedures on the right, the example below. In a small window they share one place, and scroll where
// even that is too small. The buttons of Viewbar1 show which ones are to be seen.
class StatProc1 : public ViewForm {
  Q_OBJECT

 public:
  explicit StatProc1(Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void StoreWidgets() override;
  void FocusFirst() override;
  void FocusInput() override;
  void Perform(WidgetAction action) override;

  void ShowFace(Face face);
  bool IsFaceShown(Face face) const;

  // Where samples show how far they are.
  ProgressPlace* SamplingProgress() const;

  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  static constexpr std::size_t kFaces = 5;

  QWidget* BuildViewbar();
  void FitViewbar();
  void BuildFaces();
  QWidget* BuildFooter();
  void PressFace(Face face);
  void FocusFace(Face face);
  // Lays the faces out for the present size.
  void ApplyFaces();
  bool HasRoomBeside() const;
  int LeastLeftWidth() const;
  bool HasRoomBelow() const;
  void ShowSummary();
  void ProcedureSelected();
  void PanelChanged();
  void Run();
  void RunSampling(int command);
  QString SamplingWords() const;

  QWidget* viewbar_ = nullptr;
  std::array<QToolButton*, kFaces> face_buttons_{};
  QSplitter* rows_ = nullptr;
  QSplitter* columns_ = nullptr;
  QStackedWidget* left_ = nullptr;
  ControlPanel* control_panel_ = nullptr;
  StatisticsPage* statistics_ = nullptr;
  NotesPage* notes_ = nullptr;
  ProcedureBox* procedures_ = nullptr;
  ExamplePane* example_ = nullptr;
  QLabel* summary_ = nullptr;
  QPushButton* run_ = nullptr;

  Face face_ = Face::kControlPanel;       // the one chosen last
  Face left_face_ = Face::kControlPanel;  // of the three that stand on the left
  std::array<bool, kFaces> shown_{};      // a button's own mark has already changed when it reports its click
  bool example_open_ = true;              // where there is room for it
  std::optional<std::uint64_t> statistics_of_;
};

}  // namespace tessara
