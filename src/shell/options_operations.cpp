#include "shell/options_operations.h"

#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "numerics/code_page.h"
#include "numerics/text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::string_view kDefault = "0";

Path DefaultFolder(Session& session) { return session.platform.ProgramFolder() / "Data" / ""; }
Path DefaultGlossary(Session& session) { return session.platform.ProgramFolder() / "Lexicards.lx1"; }

// A path as a field shows it. Bytes that are no text become "?".
std::string TextOfPath(const Path& path) {
  std::string text = PathToUtf8(path);
  if (IsUtf8(text)) return text;
  for (char& c : text) {
    if (static_cast<unsigned char>(c) > 127) c = '?';
  }
  return text;
}

bool MeansDefault(std::string_view trimmed) { return trimmed.empty() || trimmed == kDefault; }

// The path of a field that shows `shown` unless it has been edited.
Path PathOfField(const std::string& text, const Path& shown) {
  return text == TextOfPath(shown) ? shown : PathFromUtf8(Trimmed(text));
}

// The same as it is stored.
std::string StoredPath(const std::string& text, const Path& shown) {
  return MeansDefault(Trimmed(text)) ? std::string(Trimmed(text)) : PathToUtf8(PathOfField(text, shown));
}

void ShowFolder(OptionsForm& form, const Path& folder) {
  form.Text1 = TextOfPath(folder);
  form.shown_folder = folder;
}

void ShowGlossary(OptionsForm& form, const Path& glossary) {
  form.Text2 = TextOfPath(glossary);
  form.shown_glossary = glossary;
}

void FillOptions(Session& session) {
  const Settings& settings = session.settings;
  OptionsForm& form = session.options;
  form.page = OptionsPage::kGeneral;
  form.Check1 = {settings.show_output(), settings.notes_caption(), settings.print_date(),
                 settings.sounds(),      settings.large_icons(),   settings.quick_tips()};
  form.Option2 = settings.Op6;
  ShowFolder(form, settings.Op14);
  ShowGlossary(form, settings.Op15);
}

// A path may end in a separator or not.
bool SameFolder(const Path& a, const Path& b) {
  const auto bare = [](const Path& path) { return path.has_filename() ? path : path.parent_path(); };
  return bare(a) == bare(b);
}

// What stands in place of a file's path before one is opened goes along.
void TakeFolder(Session& session, Path folder) {
  Settings& settings = session.settings;
  if (!SameFolder(folder, settings.Op14)) {
    session.options.folder_is_new = true;
    if (SameFolder(session.data.DataFilePath, settings.Op14)) session.data.DataFilePath = folder;
  }
  settings.Op14 = std::move(folder);
}

int Flag(bool is_on) { return is_on ? 0 : 1; }

void TakeBoxes(const OptionsForm& form, Settings& settings) {
  settings.Op10 = Flag(form.Check1[0]);
  settings.Op11 = Flag(form.Check1[1]);
  settings.Op12 = Flag(form.Check1[2]);
  settings.Op3 = Flag(form.Check1[3]);
  settings.Op13 = form.Check1[4] ? 1 : 0;
  settings.Op16 = Flag(form.Check1[5]);
}

// In the order in which they are stored.
std::vector<StoredSetting> ValuesToStore(const OptionsForm& form, const Settings& settings) {
  return {{"Op10", std::to_string(settings.Op10)},
          {"Op11", std::to_string(settings.Op11)},
          {"Op12", std::to_string(settings.Op12)},
          {"Op13", std::to_string(settings.Op13)},
          {"Op3", std::to_string(settings.Op3)},
          {"Op6", std::to_string(settings.Op6)},
          {"Op14", StoredPath(form.Text1, form.shown_folder)},
          {"Op15", StoredPath(form.Text2, form.shown_glossary)},
          {"Op16", std::to_string(settings.Op16)}};
}

}  // namespace

WidgetAction OpenOptions(Session& session) {
  FillOptions(session);
  return WidgetAction::kShowOptions;
}

void ResetOptionsPage(Session& session) {
  OptionsForm& form = session.options;
  switch (form.page) {
    case OptionsPage::kGeneral:
      for (const std::size_t box : {0, 1, 2, 3, 5}) form.Check1[box] = true;
      return;
    case OptionsPage::kFolders:
      ShowFolder(form, DefaultFolder(session));
      ShowGlossary(form, DefaultGlossary(session));
      return;
    case OptionsPage::kAppearance:
      SetLargeIcons(session, false);
      SetToolbarStyle(session, 0);
      return;
  }
}

void SetLargeIcons(Session& session, bool large) {
  session.options.Check1[4] = large;
  session.settings.Op13 = large ? 1 : 0;
}

void SetToolbarStyle(Session& session, int style) {
  if (style < 0 || style >= kToolbarStyles) return;
  session.options.Option2 = style;
  session.settings.Op6 = style;
}

void ChooseDataFolder(Session& session, const Path& folder) { ShowFolder(session.options, folder); }

bool AskGlossaryFile(Session& session) {
  const Path at_hand = GlossaryOfForm(session);
  const auto chosen = session.platform.AskOpenFile({.title = "Select file and click open",
                                                    .filter = "Glossary files (*.lx1)|*.lx1",
                                                    .initial_folder = at_hand.parent_path(),
                                                    .initial_name = FromUtf8(PathToUtf8(at_hand.filename())),
                                                    .default_extension = "lx1"});
  if (!chosen) return false;
  ShowGlossary(session.options, chosen->path);
  return true;
}

Path FolderOfForm(const Session& session) {
  const OptionsForm& form = session.options;
  if (MeansDefault(Trimmed(form.Text1))) return session.platform.ProgramFolder() / "Data";
  return PathOfField(form.Text1, form.shown_folder);
}

Path GlossaryOfForm(const Session& session) {
  const OptionsForm& form = session.options;
  if (MeansDefault(Trimmed(form.Text2))) return session.platform.ProgramFolder() / "Lexicards.lx1";
  return PathOfField(form.Text2, form.shown_glossary);
}

bool FolderIsThere(const Session& session) {
  std::error_code ignored;
  return std::filesystem::is_directory(FolderOfForm(session), ignored);
}

bool GlossaryIsThere(const Session& session) { return IsRegularFile(GlossaryOfForm(session)); }

void SaveOptions(Session& session) {
  // All that needs memory comes ahead of the first change.
  Settings settings = session.settings;
  TakeBoxes(session.options, settings);
  settings.Op6 = session.options.Option2;
  settings.Op15 = GlossaryOfForm(session);
  Path folder = FolderOfForm(session);
  const std::vector<StoredSetting> values = ValuesToStore(session.options, settings);
  session.settings = std::move(settings);
  TakeFolder(session, std::move(folder));
  if (!WriteSettings(session.settings_store, session.platform, values)) return;
  session.platform.ShowMessage({"Please note...", "Some settings will not appear until you close and restart Tessara.",
                                Buttons::kOk, Tone::kInformation});
}

Path FolderToBegin(const Session& session, const Path& otherwise) {
  return session.options.folder_is_new ? session.settings.Op14 : otherwise;
}

}  // namespace tessara
