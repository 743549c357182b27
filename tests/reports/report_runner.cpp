// Runs tessara-cli on one test file and compares all that comes out of it.
//
//   tessara_report_runner PROGRAM FILE.test
//
// A test file reads from top to bottom. Lines ahead of the first section, and lines that start with "%%", are remarks.
// A section starts with a line "== word", and its text goes up to the next such line:
//
//   == data NAME         a file in code page 1252 with CR LF, written here in UTF-8 (up to U+00FF) with LF; "|" stands
//                        for the byte between fields, "^" for the bar of missing values
//   == sample NAME       a copy of the sample data set NAME of installed/Data
//   == file NAME         any other file, line ends as they stand
//   == link NAME TARGET  a symbolic link
//   == run WORDS...      the command line, as a shell would take it, redirections too; the program starts in a folder
//                        that holds the files; "$PROGRAM" runs it once more on the same line
//   == out               what standard output must hold, byte by byte; a line "\" joins the next line to the one ahead
//   == err               what standard error must hold
//   == status N          the exit status
//   == holds NAME        what the file NAME must hold after the run, in the form of data
//   == none NAME         there must be no such file after the run
//
// Missing sections stand for nothing printed and for status 0. A section that ends in an empty line keeps it, so that
// the next section follows without one in between.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Section {
  std::string kind;
  std::string argument;
  std::string text;
};

struct Outcome {
  std::string out;
  std::string err;
  int status = 0;
};

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

void WriteFile(const fs::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
}

std::string Replaced(const std::string& text, const std::string& find, const std::string& replacement) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = 0; (at = text.find(find, from)) != std::string::npos; from = at + find.size()) {
    result += text.substr(from, at - from) + replacement;
  }
  return result + text.substr(from);
}

std::vector<Section> ReadSections(const fs::path& path) {
  std::vector<Section> sections;
  std::istringstream lines(ReadFile(path));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("%%")) continue;
    if (line.starts_with("== ")) {
      const std::size_t blank = line.find(' ', 3);
      sections.push_back({line.substr(3, blank - 3), blank == std::string::npos ? "" : line.substr(blank + 1), ""});
    } else if (!sections.empty()) {
      sections.back().text += line + "\n";
    }
  }
  return sections;
}

// The characters U+00A0 to U+00FF between UTF-8 and the bytes of the code page, which have the same numbers.
std::string PageBytes(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if ((lead == 0xC2 || lead == 0xC3) && i + 1 < text.size()) {
      bytes += static_cast<char>(static_cast<unsigned char>(text[++i]) + (lead == 0xC3 ? 0x40 : 0));
    } else {
      bytes += text[i];
    }
  }
  return bytes;
}

std::string PageText(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0xA0) {
      text += c;
    } else {
      text += byte < 0xC0 ? '\xC2' : '\xC3';
      text += static_cast<char>(byte < 0xC0 ? byte : byte - 0x40);
    }
  }
  return text;
}

// A file as the program writes and reads it.
std::string DataBytes(const std::string& text) {
  return PageBytes(Replaced(Replaced(Replaced(text, "|", "\x01"), "^", "|"), "\n", "\r\n"));
}

std::string DataText(const std::string& bytes) {
  return PageText(Replaced(Replaced(Replaced(bytes, "\r\n", "\n"), "|", "^"), "\x01", "|"));
}

// A line that holds a backslash alone takes away the line end ahead of it and its own.
std::string JoinedLines(const std::string& text) { return Replaced(text, "\n\\\n", ""); }

Outcome RunProgram(const fs::path& program, const std::string& words, const fs::path& folder) {
  const std::string command = "cd '" + folder.string() + "' && PROGRAM='" + program.string() + "' && ( \"$PROGRAM\" " +
                              words + " ) > standard-output 2> standard-error";
  const int result = std::system(command.c_str());
  // The shell's own code, in the upper byte where a system keeps the signal in the lower one.
  const int status = result >= 256 ? result / 256 : result;
  return {ReadFile(folder / "standard-output"), ReadFile(folder / "standard-error"), status};
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string Visible(const std::string& line) {
  std::string text;
  for (const char c : line) {
    switch (c) {
      case '\r':
        text += "<CR>";
        break;
      case '\t':
        text += "<TAB>";
        break;
      case '\f':
        text += "<FF>";
        break;
      default:
        text += c;
    }
  }
  return text + "$";  // so that blanks at the end are seen
}

// The lines around the first difference, and whether there is none.
bool Same(const std::string& what, const std::string& expected, const std::string& found) {
  if (expected == found) return true;
  std::cout << "--- " << what << " differs (- expected, + found)\n";
  const auto left = Lines(expected);
  const auto right = Lines(found);
  constexpr std::size_t kLinesShown = 12;
  std::size_t first = 0;
  while (first < left.size() && first < right.size() && left[first] == right[first]) ++first;
  for (std::size_t i = first > 2 ? first - 2 : 0; i < first; ++i) std::cout << "  " << Visible(left[i]) << "\n";
  for (std::size_t i = first; i < left.size() && i < first + kLinesShown; ++i)
    std::cout << "- " << Visible(left[i]) << "\n";
  for (std::size_t i = first; i < right.size() && i < first + kLinesShown; ++i) {
    std::cout << "+ " << Visible(right[i]) << "\n";
  }
  if (left == right) std::cout << "  only the last line end differs\n";
  return false;
}

// Where the sample data sets lie, as seen from a test file in tests/reports.
fs::path SampleFolder(const fs::path& test) { return test.parent_path() / ".." / ".." / "installed" / "Data"; }

bool RunTest(const fs::path& program, const fs::path& test, const fs::path& folder) {
  std::string words;
  std::string out;
  std::string err;
  std::vector<Section> files_after;
  std::vector<std::string> no_files_after;
  int status = 0;
  bool has_run = false;
  for (const Section& section : ReadSections(test)) {
    if (section.kind == "data") {
      WriteFile(folder / section.argument, DataBytes(section.text));
    } else if (section.kind == "sample") {
      WriteFile(folder / section.argument, ReadFile(SampleFolder(test) / section.argument));
    } else if (section.kind == "file") {
      WriteFile(folder / section.argument, section.text);
    } else if (section.kind == "link") {
      const std::size_t blank = section.argument.find(' ');
      fs::create_symlink(section.argument.substr(blank + 1), folder / section.argument.substr(0, blank));
    } else if (section.kind == "run") {
      words = section.argument;
      has_run = true;
    } else if (section.kind == "out") {
      out = JoinedLines(section.text);
    } else if (section.kind == "err") {
      err = section.text;
    } else if (section.kind == "status") {
      status = std::atoi(section.argument.c_str());
    } else if (section.kind == "holds") {
      files_after.push_back(section);
    } else if (section.kind == "none") {
      no_files_after.push_back(section.argument);
    } else {
      std::cout << "unknown section \"" << section.kind << "\"\n";
      return false;
    }
  }
  if (!has_run) {
    std::cout << "the file has no section \"== run\"\n";
    return false;
  }
  const Outcome outcome = RunProgram(program, words, folder);
  bool same = Same("standard output", out, outcome.out);
  same = Same("standard error", err, outcome.err) && same;
  same = Same("exit status", std::to_string(status) + "\n", std::to_string(outcome.status) + "\n") && same;
  for (const Section& file : files_after) {
    same = Same("file " + file.argument, file.text, DataText(ReadFile(folder / file.argument))) && same;
  }
  for (const std::string& name : no_files_after) {
    same = Same("file " + name, "", fs::exists(folder / name) ? "(a file)\n" : "") && same;
  }
  return same;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cout << "usage: tessara_report_runner PROGRAM FILE.test\n";
    return 2;
  }
  const fs::path test = fs::absolute(argv[2]);
  const fs::path folder = fs::current_path() / ("run-" + test.stem().string());
  fs::remove_all(folder);
  fs::create_directories(folder);
  const bool same = RunTest(fs::absolute(argv[1]), test, folder);
  if (same) fs::remove_all(folder);
  std::cout << test.filename().string() << (same ? ": as expected\n" : ": FAILED\n");
  return same ? 0 : 1;
}
