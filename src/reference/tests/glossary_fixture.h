#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"
#include "reference/glossary.h"

namespace tessara {

// A record as the format has it: number, subject and text filled up with blanks, zeros in reserve.
inline std::string RecordBytes(int number, const std::string& subject, const std::string& text,
                               const std::string& reserve = std::string(18, '\0')) {
  std::string bytes;
  bytes += static_cast<char>(number % 256);
  bytes += static_cast<char>(number / 256);
  bytes += subject + std::string(60 - subject.size(), ' ');
  bytes += text + std::string(3000 - text.size(), ' ');
  return bytes + reserve;
}

using Notes = std::vector<std::pair<std::string, std::string>>;

// A whole file of these notes, from record 2 on.
inline std::string GlossaryBytes(const Notes& notes) {
  const int count = static_cast<int>(notes.size()) + 1;
  std::string bytes = RecordBytes(count, "", "");
  for (int number = 2; number <= count; ++number) {
    const auto& [subject, text] = notes[static_cast<std::size_t>(number - 2)];
    bytes += RecordBytes(number, subject, text);
  }
  return bytes;
}

// A glossary at work in a folder of its own, on a platform that answers from a script.
class GlossaryFixture : public testing::Test {
 protected:
  Path Make(const Path& name, const std::string& content) const { return folder.Make(name, content); }
  std::string Content(const Path& name) const { return ContentOf(folder / name); }

  // Opens a file of that content, and forgets what was said.
  void Open(const std::string& content, const Path& name = "notes.lx1") {
    ASSERT_TRUE(OpenGlossary(glossary, Make(name, content), platform));
    platform.notes.clear();
    platform.messages.clear();
  }
  // Shows the note of a subject.
  bool Select(const std::string& subject) {
    for (std::size_t line = 0; line < glossary.List.size(); ++line) {
      if (glossary.List[line].subject == subject) return SelectNote(glossary, static_cast<int>(line), platform);
    }
    return false;
  }
  void Type(const std::string& subject, const std::string& text) { EditNote(glossary, subject, text); }

  // "3 Mean, 2 Median"
  std::string List() const {
    std::string list;
    for (const GlossarySubject& line : glossary.List) {
      list += (list.empty() ? "" : ", ") + std::to_string(line.record) + " " + line.subject;
    }
    return list;
  }
  void ExpectBox(const std::string& title, const std::string& text) {
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, title);
    EXPECT_EQ(platform.messages[0].text, text);
    platform.messages.clear();
  }
  void ExpectSilence() const {
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(platform.notes, std::vector<std::string>());
  }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  Glossary glossary;
};

inline const Notes kThreeNotes = {{"Median", "The middle value."}, {"Mean", "The sum by the number."}, {"Mode", ""}};

}  // namespace tessara
