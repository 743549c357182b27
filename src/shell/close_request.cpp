#include "shell/close_request.h"

#include "data/change_door.h"
#include "presentation/tab_delimited.h"
#include "shell/file_questions.h"
#include "shell/glossary_operations.h"

namespace tessara {
namespace {

Answer AskToSave(Session& session, const char* question) {
  return session.platform.ShowMessage({"Warning!", question, Buttons::kYesNoCancel, Tone::kQuestion});
}

// Whether the data may go; Yes saves them, and the program stays open.
bool DataMayGo(Session& session) {
  if (!session.data.DataDirty) return true;
  const Answer answer = AskToSave(session, "Do you wish to save the changes to the data file?");
  if (answer == Answer::kYes) {
    session.wanted_view = View::ViewDataGrid;
    AskAndSaveData(session);
  }
  return answer == Answer::kNo;
}

bool OutputMayGo(Session& session) {
  const bool shows_table = session.output.OutputGridMode && !session.table.grid.empty();
  if (!session.output.OutputChanged && !shows_table) return true;
  const Answer answer = AskToSave(session, "Do you wish to save the contents of the Output Viewer?");
  if (answer == Answer::kYes) {
    session.wanted_view = View::ViewOutput;
    // What is saved is text: a table becomes a part of it.
    if (!session.table.grid.empty()) ConvertTableToTabDelimited(session.table.grid, session.output);
    AskAndSaveOutput(session);
  }
  return answer == Answer::kNo;
}

}  // namespace

bool RequestClose(Session& session) {
  const bool data_changed = session.data.DataDirty;
  if (!DataMayGo(session) || !OutputMayGo(session) || !NoteMayGo(session)) return false;
  if (data_changed) DropData(session.data);
  session.data.DataDirty = false;
  session.output.OutputChanged = false;
  return true;
}

}  // namespace tessara
