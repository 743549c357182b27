#pragma once

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tessara {

// What the lines of a delimited text are looked through for.
struct CleanedBytes {
  char comma;      // "$" where commas stay
  char separator;  // "$" where separators stay
};

// Whether a byte at this place has to be taken out or changed, or is a blank at an end of its line.
inline bool IsCleaned(const char* at, CleanedBytes bytes) {
  const char c = at[0];
  const char next = at[1];
  if (c == '$' || c == '%' || c == bytes.comma || c == bytes.separator) return true;
  return c == ' ' ? next == '\n' || next == '\r' : c == '\n' && next == ' ';
}

// Whether any of these bytes has. One byte behind the end may be read.
inline bool AnyIsCleaned(const char* from, const char* end, CleanedBytes bytes) {
#if defined(__SSE2__)
  const __m128i dollar = _mm_set1_epi8('$');
  const __m128i percent = _mm_set1_epi8('%');
  const __m128i comma = _mm_set1_epi8(bytes.comma);
  const __m128i separator = _mm_set1_epi8(bytes.separator);
  const __m128i blank = _mm_set1_epi8(' ');
  const __m128i line_feed = _mm_set1_epi8('\n');
  const __m128i carriage_return = _mm_set1_epi8('\r');
  __m128i found = _mm_setzero_si128();
  for (; end - from >= 16; from += 16) {
    const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + 1));
    const __m128i signs = _mm_or_si128(_mm_cmpeq_epi8(here, dollar), _mm_cmpeq_epi8(here, percent));
    const __m128i others = _mm_or_si128(_mm_cmpeq_epi8(here, comma), _mm_cmpeq_epi8(here, separator));
    const __m128i ends = _mm_or_si128(_mm_cmpeq_epi8(next, line_feed), _mm_cmpeq_epi8(next, carriage_return));
    const __m128i last = _mm_and_si128(_mm_cmpeq_epi8(here, blank), ends);
    const __m128i first = _mm_and_si128(_mm_cmpeq_epi8(here, line_feed), _mm_cmpeq_epi8(next, blank));
    found = _mm_or_si128(found, _mm_or_si128(_mm_or_si128(signs, others), _mm_or_si128(last, first)));
  }
  if (_mm_movemask_epi8(found) != 0) return true;
#endif
  for (; from < end; ++from) {
    if (IsCleaned(from, bytes)) return true;
  }
  return false;
}

// Puts one byte in the place of another. Every byte is written, so that many go at once.
inline void ReplaceBytes(char* from, char* end, char old_byte, char new_byte) {
  for (; from < end; ++from) *from = *from == old_byte ? new_byte : *from;
}

}  // namespace tessara
