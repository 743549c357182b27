#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// A tagged value holds nothing, a text or a number. Cells of a loaded file are always texts, so the text 0 and the
// number 0 are two things: the number 0 counts as blank, the text does not.

namespace tessara {

enum class Tag : std::uint8_t { kEmpty, kText, kNumber };

// A tagged value that refers to a text owned elsewhere. A cell handed out by the data matrix lives until the matrix
// changes.
class TaggedView {
 public:
  TaggedView() = default;
  TaggedView(std::string_view text) : tag_(Tag::kText), text_(text) {}         // NOLINT: implicit by design
  TaggedView(const std::string& text) : TaggedView(std::string_view(text)) {}  // NOLINT: implicit by design
  TaggedView(const char* text) : TaggedView(std::string_view(text)) {}         // NOLINT: implicit by design
  TaggedView(double number) : tag_(Tag::kNumber), number_(number) {}           // NOLINT: implicit by design

  Tag tag() const { return tag_; }
  bool is_empty() const { return tag_ == Tag::kEmpty; }
  bool is_text() const { return tag_ == Tag::kText; }
  bool is_number() const { return tag_ == Tag::kNumber; }
  std::string_view text() const { return text_; }  // empty unless the value is a text
  double number() const { return number_; }        // 0 unless the value is a number

  // Compares equal to the empty tag: nothing, the empty text, or the number 0.
  bool is_blank() const { return tag_ == Tag::kNumber ? number_ == 0 : text_.empty(); }

  friend bool operator==(const TaggedView&, const TaggedView&) = default;

 private:
  Tag tag_ = Tag::kEmpty;
  std::string_view text_;
  double number_ = 0;
};

// The order of tagged values: numbers ahead of texts and by value, texts byte by byte, unsigned. The empty tag counts
// as the empty text.
inline bool TaggedLess(const TaggedView& a, const TaggedView& b) {
  if (a.is_number() != b.is_number()) return a.is_number();
  return a.is_number() ? a.number() < b.number() : a.text() < b.text();
}

// A tagged value that owns its text.
class TaggedValue {
 public:
  TaggedValue() = default;
  TaggedValue(std::string text) : tag_(Tag::kText), text_(std::move(text)) {}  // NOLINT: implicit by design
  TaggedValue(const char* text) : TaggedValue(std::string(text)) {}            // NOLINT: implicit by design
  TaggedValue(double number) : tag_(Tag::kNumber), number_(number) {}          // NOLINT: implicit by design
  explicit TaggedValue(const TaggedView& view) : tag_(view.tag()), text_(view.text()), number_(view.number()) {}

  TaggedView view() const {
    switch (tag_) {
      case Tag::kText:
        return {std::string_view(text_)};
      case Tag::kNumber:
        return {number_};
      default:
        return {};
    }
  }
  operator TaggedView() const { return view(); }  // NOLINT: implicit by design

 private:
  Tag tag_ = Tag::kEmpty;
  std::string text_;
  double number_ = 0;
};

}  // namespace tessara
