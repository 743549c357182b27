#include "shell/sample_operations.h"

#include "procedures/samples/create_sample.h"
#include "procedures/samples/data_dictionary.h"
#include "shell/file_questions.h"

namespace tessara {

bool DrawSampleOfData(Session& session) {
  const std::size_t picked = session.panel.PickedVariable;
  if (!CreateSample(session.data, session.samples, RandomNumbersOf(session), session.platform)) return false;
  FollowPanel(session);
  session.panel.PickedVariable = picked;  // the variables are the same
  return true;
}

void DrawSample(Session& session) { DrawSampleOfData(session); }

IterationsOutcome DrawIterations(Session& session) {
  const IterationsOutcome outcome =
      RunIterations(session.data, session.samples, session.panel.PickedVariable, session.output, session.charts,
                    RandomNumbersOf(session), session.platform);
  if (outcome == IterationsOutcome::kRefused) return outcome;
  ResetPanel(session.panel);
  FollowPanel(session);
  session.samples.Text15.clear();
  session.samples.Text16.clear();
  session.wanted_view = View::ViewOutput;
  return outcome;
}

void SaveOrDrawIterations(Session& session) {
  if (WantsToSaveFirst(session.data, session.platform)) {
    AskAndSaveData(session);
  } else {
    DrawIterations(session);
  }
}

void ShowDataDictionary(Session& session) {
  CreateDataDictionary(session.data, session.output, session.platform);
  session.wanted_view = View::ViewOutput;
}

void PrintNotes(Session& session) { PrintProjectNotes(session.data, session.platform); }

}  // namespace tessara
