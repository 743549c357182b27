#include "source_tree.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

namespace tessara {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

bool IsOutsideTheTree(const fs::path& name) {
  return name == "build" || name == "out" || name.string().starts_with(".git") || name == ".cache";
}

std::vector<std::string> Includes(const SourceFile& file, char open, char close) {
  std::vector<std::string> names;
  std::istringstream lines(file.text);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line.compare(start, 1, "#") != 0) continue;
    const std::size_t word = line.find("include", start);
    const std::size_t from = word == std::string::npos ? word : line.find(open, word);
    const std::size_t to = from == std::string::npos ? from : line.find(close, from + 1);
    if (to != std::string::npos) names.push_back(line.substr(from + 1, to - from - 1));
  }
  return names;
}

// Where the text or character that begins at `start` ends, which is the place behind its closing quote.
std::size_t EndOfQuoted(const std::string& text, std::size_t start) {
  const char quote = text[start];
  std::size_t i = start + 1;
  while (i < text.size() && text[i] != quote && text[i] != '\n') i += text[i] == '\\' ? 2 : 1;
  return std::min(i + 1, text.size());
}

std::size_t EndOfRawText(const std::string& text, std::size_t quote) {
  const std::size_t paren = text.find('(', quote);
  if (paren == std::string::npos) return text.size();
  const std::string closing = ")" + text.substr(quote + 1, paren - quote - 1) + "\"";
  const std::size_t end = text.find(closing, paren);
  return end == std::string::npos ? text.size() : end + closing.size();
}

bool IsDigitSeparator(const std::string& text, std::size_t at) {
  return at > 0 && std::isalnum(static_cast<unsigned char>(text[at - 1])) != 0;
}

// Where the comment, text or character at `at` ends; `at` itself where there is none.
std::size_t EndOfStretch(const std::string& text, std::size_t at) {
  const std::string_view rest = std::string_view(text).substr(at);
  if (rest.starts_with("//")) return std::min(text.find('\n', at), text.size());
  if (rest.starts_with("/*")) {
    const std::size_t end = text.find("*/", at + 2);
    return end == std::string::npos ? text.size() : end + 2;
  }
  if (rest.starts_with("R\"")) return EndOfRawText(text, at + 1);
  if (text[at] == '"' || (text[at] == '\'' && !IsDigitSeparator(text, at))) return EndOfQuoted(text, at);
  return at;
}

// What stands ahead of a brace, without what is in parentheses.
std::string WithoutParentheses(std::string_view head) {
  std::string kept;
  int depth = 0;
  for (const char c : head) {
    if (c == '(') ++depth;
    if (depth == 0) kept += c;
    if (c == ')') --depth;
  }
  return kept;
}

bool HasWord(const std::string& text, const std::string& word) {
  const auto is_letter = [&](std::size_t at) {
    return at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_');
  };
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    if (!is_letter(at + word.size()) && (at == 0 || !is_letter(at - 1))) return true;
  }
  return false;
}

enum class Block { kScope, kBody, kTable, kOther };

// Ahead of the values of a table stands the sign that assigns them.
bool AssignsValues(std::string_view head) {
  const std::size_t last = head.find_last_not_of(" \n");
  return last != head.npos && head[last] == '=';
}

Block KindOfBlock(std::string_view head, Block around) {
  if (around == Block::kBody && AssignsValues(head)) return Block::kTable;
  if (around != Block::kScope) return Block::kOther;
  const std::string plain = WithoutParentheses(head);
  const bool is_operator = HasWord(plain, "operator");
  if (HasWord(plain, "namespace") || head.find("extern ") != head.npos) return Block::kScope;
  if (!is_operator && plain.find('=') != std::string::npos) return Block::kOther;  // a table of values
  if (HasWord(plain, "enum")) return Block::kOther;
  const bool has_arguments = head.find('(') != head.npos;
  const bool is_type = HasWord(plain, "class") || HasWord(plain, "struct") || HasWord(plain, "union");
  return is_type && !has_arguments ? Block::kScope : Block::kBody;
}

}  // namespace

std::vector<SourceFile> ReadTree(const std::string& folder) {
  const fs::path top(TESSARA_SOURCE_DIR);
  std::vector<SourceFile> files;
  for (auto at = fs::recursive_directory_iterator(top / folder); at != fs::recursive_directory_iterator(); ++at) {
    if (IsOutsideTheTree(at->path().filename())) {
      at.disable_recursion_pending();
    } else if (at->is_regular_file()) {
      files.push_back({at->path().lexically_relative(top).generic_string(), ContentOf(at->path())});
    }
  }
  std::ranges::sort(files, {}, &SourceFile::path);
  return files;
}

std::vector<SourceFile> ProductSources() {
  std::vector<SourceFile> sources = ReadTree("src");
  std::erase_if(sources, [](const SourceFile& file) {
    const bool is_source = file.path.ends_with(".cpp") || file.path.ends_with(".h");
    return !is_source || file.path.find("/tests/") != std::string::npos;
  });
  return sources;
}

std::vector<std::string> PathParts(const std::string& path) {
  std::vector<std::string> parts;
  std::istringstream rest(path);
  for (std::string part; std::getline(rest, part, '/');) parts.push_back(part);
  return parts;
}

std::vector<std::string> OwnIncludes(const SourceFile& file) { return Includes(file, '"', '"'); }
std::vector<std::string> OtherIncludes(const SourceFile& file) { return Includes(file, '<', '>'); }

std::string CodeAlone(const std::string& text) {
  std::string code = text;
  for (std::size_t at = 0; at < code.size();) {
    const std::size_t end = EndOfStretch(text, at);
    if (end == at) {
      ++at;
      continue;
    }
    std::replace_if(
        code.begin() + static_cast<std::ptrdiff_t>(at), code.begin() + static_cast<std::ptrdiff_t>(end),
        [](char c) { return c != '\n'; }, ' ');
    at = end;
  }
  return code;
}

std::vector<Body> Bodies(const std::string& text) {
  const std::string code = CodeAlone(text);
  struct Open {
    Block kind;
    std::size_t line;
    std::size_t lines_of_tables = 0;
  };
  std::vector<Open> open;
  std::vector<Body> bodies;
  std::size_t line = 1;
  std::size_t head = 0;  // where the statement begins that a brace may belong to
  bool in_directive = false;
  for (std::size_t at = 0; at < code.size(); ++at) {
    if (code[at] == '#') in_directive = true;
    if (code[at] == '\n') {
      ++line;
      if (in_directive) head = at + 1;
      in_directive = false;
    }
    if (in_directive) continue;
    if (code[at] == ';') head = at + 1;
    if (code[at] == '{') {
      const Block around = open.empty() ? Block::kScope : open.back().kind;
      open.push_back({KindOfBlock(std::string_view(code).substr(head, at - head), around), line, 0});
      head = at + 1;
    }
    if (code[at] == '}' && !open.empty()) {
      const Open closed = open.back();
      open.pop_back();
      const std::size_t lines = line - closed.line + 1;
      if (closed.kind == Block::kBody) bodies.push_back({closed.line, lines - closed.lines_of_tables});
      if (closed.kind == Block::kTable) open.back().lines_of_tables += lines - 1;
      head = at + 1;
    }
  }
  return bodies;
}

}  // namespace tessara
