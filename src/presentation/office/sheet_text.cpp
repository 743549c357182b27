#include "presentation/office/sheet_text.h"

#include <array>

#include "presentation/output_log.h"
#include "presentation/text_replacement.h"

namespace tessara {
namespace {

// One after the other, each on the whole text. The tokens keep hyphens that belong to the words of a report, while all
// others go.
constexpr std::array<Replacement, 28> kReplacements = {{
    {kPageBreak, ""}, {"          ", "     "}, {"     ", "  "},    {"    ", "  "},    {"   ", "  "},
    {"   ", "  "},    {"\r\n|", "\r\n\t"},     {" -", "%$#"},      {"+/-", "%$*"},    {"t-", "%$&"},
    {"D-", "%$@"},    {"LR-", "%$^"},          {"-", ""},          {"%$#", " -"},     {"%$*", "+/-"},
    {"%$&", "t-"},    {"%$@", "D-"},           {"%$^", "LR-"},     {"|", "\t"},       {"\t  ", "\t"},
    {"  \t", "\t"},   {"\r\n   ", "\r\n"},     {"\r\n  ", "\r\n"}, {"\r\n ", "\r\n"}, {"  ", "\t"},
    {"\t ", "\t"},    {" \t", "\t"},           {"\tby\t", " by "},
}};

}  // namespace

std::string SheetText(std::string text) {
  ReplaceAll(text, kReplacements);
  return text;
}

}  // namespace tessara
