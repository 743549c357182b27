#pragma once

#include <cstddef>
#include <string>

// The parts of a document file beside its text, and the pieces of that text which stand around its paragraphs.

namespace tessara {

struct WordPage;

std::string WordContentTypes();
std::string WordPackageRelations();
// The picture n, from 1, has the id "picture" n and the file "media/image" n ".png".
std::string WordDocumentRelations(std::size_t pictures);
std::string WordStyles();
std::string WordSettings();
std::string WordCoreProperties();
std::string WordApplicationProperties();

std::string WordTextStart();
// Ends the text with the page that it stands on.
std::string WordTextEnd(const WordPage& page);
// A paragraph with the picture n and one with its title, which also stands in for the picture where it is not seen.
std::string WordPicture(std::size_t number, const std::string& title);

}  // namespace tessara
