#pragma once

#include <array>
#include <string>

#include "platform/path.h"

// The inputs of the options dialog. Paths are texts as they are typed, in UTF-8: not every folder has a name in the
// code page.

namespace tessara {

enum class OptionsPage { kGeneral, kFolders, kAppearance };

struct OptionsForm {
  OptionsPage page = OptionsPage::kGeneral;
  // The boxes Check1(0) to Check1(5): 0 the Output view after each run, 1 the notes caption, 2 the date, 3 sounds, 4
  // large icons, 5 the quick tips.
  std::array<bool, 6> Check1{};
  int Option2 = 0;    // the toolbar style, 0 to 4
  std::string Text1;  // the folder of data files
  std::string Text2;  // the glossary file

  // What the two texts stand for as long as nobody edits them: a name may be bytes that are no text.
  Path shown_folder;
  Path shown_glossary;
  // The folder of data files is another one since the last file was chosen: the next file dialog begins there.
  bool folder_is_new = false;
};

}  // namespace tessara
