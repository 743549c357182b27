#pragma once

#include <string>
#include <string_view>

#include "reference/glossary.h"

// A record of a glossary file: a signed 16-bit number with its low byte first, a subject and a text, both filled up
// with blanks, and bytes in reserve that are carried along. A file may end within its last record, so each routine
// takes a record that is cut short; what it lacks is blank.

namespace tessara {

// 0 when the record is too short for one.
int NumberOfRecord(std::string_view record);
// Without the blanks around them. A field that nobody has written, all zeros, is empty.
std::string SubjectOfRecord(std::string_view record);
std::string TextOfRecord(std::string_view record);
// Whether the record holds neither subject nor text.
bool IsBlankRecord(std::string_view record);

// A record of its full length.
std::string FilledRecord(std::string_view record);
// The same with another number.
std::string RenumberedRecord(std::string_view record, int number);
// A record of that subject and text, cut to their limits, with the reserved bytes of an older one; without an older one
// they are zeros.
std::string MakeRecord(int number, std::string_view subject, std::string_view text, std::string_view older = {});

}  // namespace tessara
