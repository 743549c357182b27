#pragma once

#include "procedures/samples/run_iterations.h"
#include "shell/session.h"

// Samples of the data, and the data described: with all that depends on them in the session.

namespace tessara {

// Create Sample. The panel's control and lists stay. False when there is no such sample.
bool DrawSampleOfData(Session& session);
// The same as a command.
void DrawSample(Session& session);

// Run Iterations, once it is settled what becomes of unsaved changes: resets the panel, empties its boxes and brings
// the output to the front.
IterationsOutcome DrawIterations(Session& session);
// The button: who wants to save first is asked where to, and presses it again.
void SaveOrDrawIterations(Session& session);

// The data dictionary in the output, which comes to the front.
void ShowDataDictionary(Session& session);
void PrintNotes(Session& session);

}  // namespace tessara
