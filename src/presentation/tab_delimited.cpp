#include "presentation/tab_delimited.h"

#include <array>

#include "presentation/text_replacement.h"

namespace tessara {
namespace {

// One after the other, each on the whole text.
constexpr std::array<Replacement, 17> kReplacements = {{
    {"          ", "     "},
    {"     ", "  "},
    {"    ", "  "},
    {"   ", "  "},
    {"   ", "  "},
    {"\r\n|", "\r\n\t"},
    {"-", ""},
    {"|", "\t"},
    {"\t  ", "\t"},
    {"  \t", "\t"},
    {"\r\n   ", "\r\n"},
    {"\r\n  ", "\r\n"},
    {"\r\n ", "\r\n"},
    {"  ", "\t"},
    {"\t ", "\t"},
    {" \t", "\t"},
    {"\tby\t", " by "},
}};

}  // namespace

std::string TabDelimited(std::string text) {
  ReplaceAll(text, kReplacements);
  return text;
}

void ConvertOutputToTabDelimited(OutputLog& output) { ConvertBox(output, TabDelimited(output.BoxText())); }

}  // namespace tessara
