#pragma once

#include <cstddef>
#include <string>
#include <vector>

// The tree of the product as text, for tests of its structure.

namespace tessara {

struct SourceFile {
  std::string path;  // below the top of the tree, with slashes: "src/data/data_set.h"
  std::string text;
};

// The files below a folder of the tree that are not of a build, in the order of their paths.
std::vector<SourceFile> ReadTree(const std::string& folder);

// The sources of the product, without tests.
std::vector<SourceFile> ProductSources();

// The parts of a path.
std::vector<std::string> PathParts(const std::string& path);

// What a file includes in quotes, and what it includes in angle brackets.
std::vector<std::string> OwnIncludes(const SourceFile& file);
std::vector<std::string> OtherIncludes(const SourceFile& file);

// The text with comments, texts and characters blanked; lines stay where they are.
std::string CodeAlone(const std::string& text);

// A routine's body, from its opening brace to the closing one.
struct Body {
  std::size_t line;   // of the opening brace, from 1
  std::size_t lines;  // how many it takes; those of a table of values in it count as one
};

// The bodies of routines in namespaces and types. What stands inside a body belongs to it.
std::vector<Body> Bodies(const std::string& text);

}  // namespace tessara
