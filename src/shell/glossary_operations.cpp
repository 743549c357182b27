#include "shell/glossary_operations.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "reference/glossary_exchange.h"
#include "shell/palette_search.h"

namespace tessara {
namespace {

constexpr const char* kTextFiles = "Text files (*.txt)|*.txt|Tab files (*.tab)|*.tab|All files (*.*)|*.*";

// Where the dialogs start: beside the glossary at work.
Path DialogFolder(const Session& session) {
  const Path folder = session.glossary.GlossaryFile.parent_path();
  return folder.empty() ? session.platform.ProgramFolder() : folder;
}

// Whether another file may take the place of what an import has left.
bool TemporaryMayGo(Session& session) {
  if (!IsTemporaryGlossary(session.glossary)) return true;
  const Answer answer =
      session.platform.ShowMessage({"Warning!", "The Temp file will not be saved. Do you want to save this file?",
                                    Buttons::kYesNoCancel, Tone::kQuestion});
  if (answer == Answer::kYes) return AskAndSaveGlossaryAs(session);
  return answer == Answer::kNo;
}

// An import stands in the program folder; where that cannot be written, among the user's documents.
ImportedGlossary ImportAsTemporary(Session& session, const Path& text_file) {
  Platform& platform = session.platform;
  const auto outcome =
      ImportGlossary(session.glossary, text_file, platform.ProgramFolder() / kTemporaryGlossary, platform);
  if (outcome != ImportedGlossary::kNotWritten) return outcome;
  const Path folder = platform.DocumentsFolder() / "Tessara Data";
  std::error_code ignored;  // without the folder the import tells
  std::filesystem::create_directories(folder, ignored);
  return ImportGlossary(session.glossary, text_file, folder / kTemporaryGlossary, platform);
}

// The line of the list with that subject, or else with the same words.
std::optional<int> LineOf(const Glossary& glossary, std::string_view subject) {
  auto found = std::ranges::find(glossary.List, subject, &GlossarySubject::subject);
  if (found == glossary.List.end()) {
    const std::string words = SearchKey(subject);
    found = std::ranges::find_if(glossary.List,
                                 [&](const GlossarySubject& line) { return SearchKey(line.subject) == words; });
  }
  if (found == glossary.List.end()) return std::nullopt;
  return static_cast<int>(found - glossary.List.begin());
}

}  // namespace

void AskAndOpenGlossary(Session& session) {
  if (!TemporaryMayGo(session) || !LeaveNote(session.glossary, session.platform)) return;
  const auto chosen = session.platform.AskOpenFile({.title = "Open",
                                                    .filter = "Lexicard files (*.lx1)|*.lx1",
                                                    .initial_folder = DialogFolder(session),
                                                    .initial_name = {},
                                                    .default_extension = "lx1"});
  if (chosen) OpenGlossary(session.glossary, chosen->path, session.platform);
}

void SaveShownNote(Session& session) {
  if (session.glossary.CurrentRecord == 0 || !SaveNote(session.glossary, session.platform)) return;
  session.platform.SetStatusPane(kMessagePane, "Save Completed");
}

bool AskAndSaveGlossaryAs(Session& session) {
  const auto chosen = session.platform.AskSaveFile({.title = "Save Glossary File As",
                                                    .filter = "Glossary file (*.lx1)|*.lx1",
                                                    .initial_folder = DialogFolder(session),
                                                    .initial_name = {},
                                                    .default_extension = "lx1",
                                                    .overwrite_prompt = true});
  if (!chosen || !SaveGlossaryAs(session.glossary, chosen->path, session.platform)) return false;
  session.platform.SetStatusPane(kMessagePane, "Save Completed");
  return true;
}

void SaveGlossaryUnderName(Session& session) { AskAndSaveGlossaryAs(session); }

void AskAndImportGlossary(Session& session) {
  if (!LeaveNote(session.glossary, session.platform)) return;
  const auto chosen = session.platform.AskOpenFile({.title = "Open",
                                                    .filter = kTextFiles,
                                                    .initial_folder = session.platform.DocumentsFolder(),
                                                    .initial_name = {},
                                                    .default_extension = {}});
  if (!chosen || ImportAsTemporary(session, chosen->path) != ImportedGlossary::kNotWritten) return;
  session.platform.ShowMessage({"Error!", std::string(kTemporaryGlossary) +
                                              " could not be written, neither in the program folder nor in 'Tessara "
                                              "Data' among your documents."});
}

void AskAndExportGlossary(Session& session) {
  if (!LeaveNote(session.glossary, session.platform)) return;
  const auto chosen = session.platform.AskSaveFile({.title = "Save As",
                                                    .filter = "Tab delimited text files (*.txt)|*.txt",
                                                    .initial_folder = session.platform.DocumentsFolder(),
                                                    .initial_name = {},
                                                    .default_extension = "txt",
                                                    .overwrite_prompt = true});
  if (!chosen || !ExportGlossary(session.glossary, chosen->path, session.platform)) return;
  session.platform.SetStatusPane(kMessagePane, "Save Completed");
}

void PrintShownNote(Session& session) { PrintNote(session.glossary, session.platform); }

void AddNewNote(Session& session) { AddNote(session.glossary, session.platform); }

void DeleteShownNote(Session& session) {
  const Answer answer =
      session.platform.ShowMessage({"Warning! Confirm Delete...", "Click OK to delete this record. Cancel to abort.",
                                    Buttons::kOkCancel, Tone::kWarning});
  if (answer == Answer::kOk) DeleteNote(session.glossary, session.platform);
}

void SelectChosenNote(Session& session) {
  SelectNote(session.glossary, session.glossary.chosen_line, session.platform);
}

void SearchNotes(Session& session) {
  const std::string text = session.glossary.SearchText;
  if (text.empty()) return;
  SearchGlossary(session.glossary, text, session.platform);
  session.platform.SetStatusPane(kMessagePane, "Find> " + text);
}

void ResetNoteSearch(Session& session) { ResetSearch(session.glossary); }

void ShowGlossaryTerm(Session& session, std::string_view subject) {
  Glossary& glossary = session.glossary;
  if (!glossary.opened) OpenDefaultGlossary(glossary, session.settings.Op15, session.platform);
  session.wanted_view = View::ViewGlossary;
  auto line = LineOf(glossary, subject);
  if (!line && glossary.search_is_on) {
    ResetSearch(glossary);
    line = LineOf(glossary, subject);
  }
  if (line) {
    SelectNote(glossary, *line, session.platform);
  } else {
    session.platform.SetStatusPane(kMessagePane, "The glossary has no note \"" + std::string(subject) + "\"");
  }
}

bool NoteMayGo(Session& session) {
  if (LeaveNote(session.glossary, session.platform)) return true;
  session.wanted_view = View::ViewGlossary;
  return false;
}

std::string GlossaryPane(const Glossary& glossary) {
  std::optional<std::size_t> found;
  if (glossary.search_is_on) found = glossary.List.size();
  if (glossary.found) found = static_cast<std::size_t>(*glossary.found);
  if (found) return "The search found " + std::to_string(*found) + " matching records.";
  return std::to_string(glossary.notes) + " Notes";
}

}  // namespace tessara
