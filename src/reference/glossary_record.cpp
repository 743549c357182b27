#include "reference/glossary_record.h"

#include <algorithm>
#include <cstdint>

#include "numerics/text.h"

namespace tessara {
namespace {

constexpr std::size_t kSubjectAt = 2;
constexpr std::size_t kTextAt = kSubjectAt + kMostSubject;
constexpr std::size_t kReservedAt = kTextAt + kMostNote;

std::string_view Field(std::string_view record, std::size_t at, std::size_t size) {
  return at < record.size() ? record.substr(at, size) : std::string_view();
}

// A field without its fill. Zeros alone are what a program leaves that has made the record and never written it.
std::string_view Content(std::string_view field) {
  constexpr std::string_view kUnwritten("\0 ", 2);
  return field.find_first_not_of(kUnwritten) == std::string_view::npos ? std::string_view() : Trimmed(field);
}

void AppendFilled(std::string& record, std::string_view content, std::size_t size) {
  const std::string_view kept = Trimmed(content).substr(0, size);
  record.append(kept).append(size - kept.size(), ' ');
}

void PutNumber(std::string& record, int number) {
  const auto bits = static_cast<std::uint16_t>(number);
  record[0] = static_cast<char>(bits & 0xFFU);
  record[1] = static_cast<char>(bits >> 8U);
}

}  // namespace

int NumberOfRecord(std::string_view record) {
  if (record.size() < kSubjectAt) return 0;
  const auto low = static_cast<unsigned char>(record[0]);
  const auto high = static_cast<unsigned char>(record[1]);
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | high << 8U));
}

std::string SubjectOfRecord(std::string_view record) {
  return std::string(Content(Field(record, kSubjectAt, kMostSubject)));
}

std::string TextOfRecord(std::string_view record) { return std::string(Content(Field(record, kTextAt, kMostNote))); }

bool IsBlankRecord(std::string_view record) {
  return Content(Field(record, kSubjectAt, kMostSubject)).empty() && Content(Field(record, kTextAt, kMostNote)).empty();
}

std::string FilledRecord(std::string_view record) {
  std::string filled(record.substr(0, kGlossaryRecord));
  filled.resize(kGlossaryRecord, ' ');
  return filled;
}

std::string RenumberedRecord(std::string_view record, int number) {
  std::string renumbered = FilledRecord(record);
  PutNumber(renumbered, number);
  return renumbered;
}

std::string MakeRecord(int number, std::string_view subject, std::string_view text, std::string_view older) {
  std::string record(kSubjectAt, '\0');
  record.reserve(kGlossaryRecord);
  PutNumber(record, number);
  AppendFilled(record, subject, kMostSubject);
  AppendFilled(record, text, kMostNote);
  record.append(Field(older, kReservedAt, kGlossaryRecord - kReservedAt));
  record.resize(kGlossaryRecord, '\0');
  return record;
}

}  // namespace tessara
