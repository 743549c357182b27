#include "presentation/office/zip_archive.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <string_view>

#include "platform/files.h"

namespace tessara {
namespace {

constexpr zip_uint16_t kFirstDay = 1 << 5 | 1;  // 1 January 1980, the first day that an archive knows
constexpr std::size_t kBlock = std::size_t{1} << 16;

struct CloseArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct FreeSource {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
};
struct CloseEntry {
  void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Archive = std::unique_ptr<zip_t, CloseArchive>;
using Source = std::unique_ptr<zip_source_t, FreeSource>;

// A long text as the library reads it: its size is told ahead, so that the archive needs no form of its own for it.
class TextReader {
 public:
  explicit TextReader(LongText& text) : text_(text) {
    zip_error_init(&error_);
    text_.Restart();
    for (std::string stretch; text_.Next(stretch); stretch.clear()) size_ += stretch.size();
  }
  ~TextReader() { zip_error_fini(&error_); }
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;

  // Nothing may be thrown through the library.
  static zip_int64_t Call(void* reader, void* data, zip_uint64_t length, zip_source_cmd_t command) noexcept {
    auto& self = *static_cast<TextReader*>(reader);
    try {
      return self.Answer(data, length, command);
    } catch (const std::exception&) {
      zip_error_set(&self.error_, ZIP_ER_MEMORY, 0);
      return -1;
    }
  }

 private:
  zip_int64_t Answer(void* data, zip_uint64_t length, zip_source_cmd_t command) {
    switch (command) {
      case ZIP_SOURCE_OPEN:
        text_.Restart();
        stretch_.clear();
        at_ = 0;
        return 0;
      case ZIP_SOURCE_READ:
        return static_cast<zip_int64_t>(Read(static_cast<char*>(data), length));
      case ZIP_SOURCE_CLOSE:
      case ZIP_SOURCE_FREE:
        return 0;
      case ZIP_SOURCE_STAT: {
        auto* facts = static_cast<zip_stat_t*>(data);
        zip_stat_init(facts);
        facts->size = size_;
        facts->valid |= ZIP_STAT_SIZE;
        return sizeof(zip_stat_t);
      }
      case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&error_, data, length);
      case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                              ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
      default:
        zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
  }

  std::size_t Read(char* data, std::size_t length) {
    std::size_t read = 0;
    while (read < length) {
      if (at_ == stretch_.size()) {
        stretch_.clear();
        at_ = 0;
        if (!text_.Next(stretch_)) break;
      }
      const std::size_t taken = std::min(length - read, stretch_.size() - at_);
      std::memcpy(data + read, stretch_.data() + at_, taken);
      read += taken;
      at_ += taken;
    }
    return read;
  }

  LongText& text_;
  zip_uint64_t size_ = 0;
  std::string stretch_;
  std::size_t at_ = 0;
  zip_error_t error_{};
};

bool AddPart(zip_t* archive, const ArchivePart& part, TextReader* reader) {
  Source source(reader ? zip_source_function(archive, TextReader::Call, reader)
                       : zip_source_buffer(archive, part.bytes.data(), part.bytes.size(), 0));
  if (!source) return false;
  const zip_int64_t added = zip_file_add(archive, part.name.c_str(), source.get(), ZIP_FL_ENC_UTF_8);
  if (added < 0) return false;
  source.release();  // the archive's now
  const auto index = static_cast<zip_uint64_t>(added);
  return zip_set_file_compression(archive, index, part.is_picture ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 0) == 0 &&
         zip_file_set_dostime(archive, index, 0, kFirstDay, 0) == 0;
}

// What a written archive holds.
std::optional<std::string> BytesOf(zip_source_t* source) {
  zip_stat_t facts;
  if (zip_source_stat(source, &facts) != 0 || zip_source_open(source) != 0) return std::nullopt;
  std::string bytes(facts.size, '\0');
  const zip_int64_t read = zip_source_read(source, bytes.data(), bytes.size());
  zip_source_close(source);
  if (read != static_cast<zip_int64_t>(bytes.size())) return std::nullopt;
  return bytes;
}

[[noreturn]] void GiveUpForMemory() { throw std::bad_alloc(); }

// Counts words in a text that comes in blocks.
class WordCount {
 public:
  explicit WordCount(const std::string& words) : words_(words) {}

  void Take(std::string_view block) {
    const std::size_t seam = words_.size() - 1;  // what one block ends with may be the start of the words
    Count(end_ + std::string(block.substr(0, seam)));
    Count(block);
    if (block.size() >= seam) {
      end_ = block.substr(block.size() - seam);
    } else {
      end_.append(block);
      if (end_.size() > seam) end_.erase(0, end_.size() - seam);
    }
  }
  std::uint64_t count() const { return count_; }

 private:
  void Count(std::string_view text) {
    for (std::size_t at = text.find(words_); at != text.npos; at = text.find(words_, at + 1)) ++count_;
  }

  const std::string& words_;
  std::string end_;
  std::uint64_t count_ = 0;
};

// Nothing when the part cannot be read to its end, which its checksum tells, or does not end as XML does.
std::optional<std::uint64_t> CountInPart(zip_t* archive, zip_uint64_t index, const std::string& words) {
  const std::unique_ptr<zip_file_t, CloseEntry> entry(zip_fopen_index(archive, index, 0));
  if (!entry) return std::nullopt;
  WordCount count(words);
  const auto block = std::make_unique<std::array<char, kBlock>>();
  char last = '\0';
  zip_int64_t read = 0;
  while ((read = zip_fread(entry.get(), block->data(), block->size())) > 0) {
    const std::string_view bytes(block->data(), static_cast<std::size_t>(read));
    count.Take(bytes);
    if (const std::size_t end = bytes.find_last_not_of("\r\n"); end != bytes.npos) last = bytes[end];
  }
  if (read < 0 || last != '>') return std::nullopt;
  return count.count();
}

}  // namespace

std::optional<std::string> MakeArchive(const std::vector<ArchivePart>& parts) {
  std::vector<std::unique_ptr<TextReader>> readers;
  for (const ArchivePart& part : parts) {
    readers.push_back(part.long_text ? std::make_unique<TextReader>(*part.long_text) : nullptr);
  }
  zip_error_t error;
  zip_error_init(&error);
  const Source bytes(zip_source_buffer_create(nullptr, 0, 0, &error));
  if (!bytes) GiveUpForMemory();
  Archive archive(zip_open_from_source(bytes.get(), ZIP_CREATE | ZIP_TRUNCATE, &error));
  if (!archive) GiveUpForMemory();
  zip_source_keep(bytes.get());  // the archive lets its own go
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!AddPart(archive.get(), parts[i], readers[i].get())) GiveUpForMemory();
  }
  if (zip_close(archive.get()) != 0) {
    if (zip_error_code_zip(zip_get_error(archive.get())) == ZIP_ER_MEMORY) GiveUpForMemory();
    return std::nullopt;
  }
  archive.release();
  return BytesOf(bytes.get());
}

bool IsWholeArchive(const Path& path, const std::string& name_start, const std::string& words,
                    const std::vector<std::uint64_t>& counts) {
  const Archive archive(zip_open(PathToUtf8(path).c_str(), ZIP_RDONLY, nullptr));
  if (!archive) return false;
  std::map<std::string, std::uint64_t> wanted;
  for (std::size_t i = 0; i < counts.size(); ++i) wanted[name_start + std::to_string(i + 1) + ".xml"] = counts[i];
  const zip_int64_t parts = zip_get_num_entries(archive.get(), 0);
  for (zip_int64_t i = 0; i < parts; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    const char* name = zip_get_name(archive.get(), index, 0);
    const auto count = CountInPart(archive.get(), index, words);
    if (!name || !count) return false;
    const auto found = wanted.find(name);
    if (found == wanted.end()) continue;
    if (found->second != *count) return false;
    wanted.erase(found);
  }
  return wanted.empty();
}

}  // namespace tessara
