#pragma once

#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tessara {

inline constexpr char kFieldSeparator = '\x01';

// Which of 64 bytes of a data file end a field, a separator or a line feed: one bit a byte, the first byte's lowest.
inline std::uint64_t FieldEnds(const char* text) {
#if defined(__SSE2__)
  const __m128i separator = _mm_set1_epi8(kFieldSeparator);
  const __m128i line_feed = _mm_set1_epi8('\n');
  std::uint64_t ends = 0;
  for (int part = 0; part < 4; ++part) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text) + part);
    const __m128i hits = _mm_or_si128(_mm_cmpeq_epi8(bytes, separator), _mm_cmpeq_epi8(bytes, line_feed));
    ends |= static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm_movemask_epi8(hits))) << (16 * part);
  }
  return ends;
#else
  std::uint64_t ends = 0;
  for (int place = 0; place < 64; ++place) {
    ends |= static_cast<std::uint64_t>(text[place] == kFieldSeparator || text[place] == '\n') << place;
  }
  return ends;
#endif
}

// Puts one byte in the place of another. Every byte is written, so that many go at once.
inline void ReplaceBytes(char* from, char* end, char old_byte, char new_byte) {
  for (; from < end; ++from) *from = *from == old_byte ? new_byte : *from;
}

}  // namespace tessara
