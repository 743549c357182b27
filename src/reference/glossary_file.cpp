#include "reference/glossary_file.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/files.h"
#include "reference/glossary_record.h"

namespace tessara {
namespace {

constexpr std::size_t kRecordsAtOnce = 256;
constexpr int kRecordsLookedAt = 16;  // enough to know a glossary by

bool IsThere(const Path& path) {
  std::error_code error;
  return std::filesystem::symlink_status(path, error).type() != std::filesystem::file_type::not_found;
}

bool Holds(const std::string& field, std::string_view searched) {
  return (" " + field + " ").find(searched) != std::string::npos;
}

// The last record that holds a note, at least the first that can.
std::optional<int> LastNote(const Path& path) {
  RecordStream records(path);
  int last = kFirstNote;
  while (records.Next() && records.number() <= kMostRecords) {
    if (records.number() > kFirstNote && !IsBlankRecord(records.record())) last = records.number();
  }
  if (!records.is_open() || records.failed()) return std::nullopt;
  return last;
}

// A first record without more of them behind it: a small number, or nothing but fill behind the number.
bool LooksLikeFirstRecord(std::string_view record) {
  const int number = NumberOfRecord(record);
  return (number >= 0 && number <= kFirstNote) || IsBlankRecord(record);
}

}  // namespace

RecordStream::RecordStream(const Path& path) : absent_(!IsThere(path)), file_(path) {}

int RecordStream::there() const {
  const std::uint64_t records = (file_.size() + kGlossaryRecord - 1) / kGlossaryRecord;
  return static_cast<int>(std::min<std::uint64_t>(records, kMostRecords));
}

bool RecordStream::FillBuffer() {
  if (!file_.is_open()) return false;
  buffer_.resize(kRecordsAtOnce * kGlossaryRecord);
  at_ = 0;
  const auto count = file_.Read(buffer_.data(), buffer_.size());
  failed_ = !count;
  buffer_.resize(count.value_or(0));
  return !buffer_.empty();
}

bool RecordStream::Next() {
  if (at_ >= buffer_.size() && !FillBuffer()) return false;
  record_ = std::string_view(buffer_).substr(at_, kGlossaryRecord);
  at_ += record_.size();
  ++number_;
  return true;
}

std::optional<GlossaryShape> ShapeOfGlossary(const Path& path) {
  GlossaryShape shape;
  {
    RecordStream records(path);
    if (!records.is_open()) return std::nullopt;
    if (records.Next()) shape.announced = NumberOfRecord(records.record());
    if (records.failed()) return std::nullopt;
    shape.there = records.there();
    shape.ends_within_record = records.ends_within_record();
  }
  if (shape.announced == 0) {
    const auto last = LastNote(path);
    if (!last) return std::nullopt;
    shape.LastRecord = *last;
  } else {
    // A count of 1 stands behind the delete of the only note.
    const bool is_count = shape.announced >= 1 && shape.announced <= shape.there;
    shape.LastRecord = is_count ? shape.announced : std::max(shape.there, kFirstNote);
  }
  return shape;
}

std::optional<GlossaryListing> ListGlossary(const Path& path, std::string_view searched) {
  const auto shape = ShapeOfGlossary(path);
  if (!shape) return std::nullopt;
  GlossaryListing listing;
  listing.shape = *shape;
  listing.looks_right = LooksLikeGlossary(path);
  RecordStream records(path);
  while (records.Next() && records.number() <= shape->LastRecord) {
    const std::string_view record = records.record();
    if (records.number() < kFirstNote || IsBlankRecord(record)) continue;
    ++listing.notes;
    std::string subject = SubjectOfRecord(record);
    if (!searched.empty() && !Holds(subject, searched) && !Holds(TextOfRecord(record), searched)) continue;
    listing.List.push_back({std::move(subject), records.number()});
  }
  if (!records.is_open() || records.failed()) return std::nullopt;
  std::ranges::stable_sort(listing.List, {}, &GlossarySubject::subject);
  return listing;
}

std::string MisfitOfGlossary(const GlossaryListing& listing) {
  const GlossaryShape& shape = listing.shape;
  if (!listing.looks_right) return "the file does not look like a glossary";
  if (shape.ends_within_record) return "the file ends within its record " + std::to_string(shape.there);
  if (shape.announced > std::max(shape.there, kFirstNote)) {
    return "the file's first record announces " + std::to_string(shape.announced) + " records, there are " +
           std::to_string(shape.there);
  }
  return shape.announced < 0 ? "the file's first record holds no count" : "";
}

bool LooksLikeGlossary(const Path& path) {
  RecordStream records(path);
  if (!records.is_open()) return false;
  const int there = records.there();
  bool first_looks_right = there == 0;
  while (records.Next() && records.number() <= kRecordsLookedAt) {
    if (records.number() == 1) first_looks_right = LooksLikeFirstRecord(records.record());
    if (records.number() > 1 && NumberOfRecord(records.record()) == records.number()) return true;
  }
  return there < kFirstNote && first_looks_right;
}

std::optional<std::string> ReadRecord(const Path& path, int number) {
  if (!IsThere(path)) return FilledRecord({});
  FileReader file(path);
  if (!file.GoTo(static_cast<std::uint64_t>(number - 1) * kGlossaryRecord)) return std::nullopt;
  std::string record(kGlossaryRecord, ' ');
  const auto count = file.Read(record.data(), record.size());
  if (!count) return std::nullopt;
  return FilledRecord(std::string_view(record).substr(0, *count));
}

}  // namespace tessara
