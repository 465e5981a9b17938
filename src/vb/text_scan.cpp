// Sections: choosing a width; finding a text; counting CR LF; line starts.
//
// Each scan exists three times: the plain loop, which says what the answer
// is, and two vector forms that test 16 or 32 characters per step and leave
// the rest (the tail shorter than a step) to the plain loop.
#include "vb/text_scan.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#if defined(__x86_64__) || defined(_M_X64)
#include <immintrin.h>
#define TESSALY_SSE2 1
#if defined(__GNUC__)
// GCC and Clang compile single functions for AVX2; they run only after the
// processor said it has it.
#define TESSALY_AVX2 1
#define TESSALY_TARGET_AVX2 __attribute__((target("avx2")))
#endif
#endif

namespace vb {
namespace {

constexpr char16_t kCr = u'\r';
constexpr char16_t kLf = u'\n';

// --- Finding a text -------------------------------------------------------------

// A text to find (not empty). Candidates are the positions that hold its
// first and its last character; the vector forms find those, and only they
// are compared in full.
struct Needle {
  explicit Needle(TextView find) : text(find), first(find.front()), last(find.back()) {}

  // Whether the characters between the first and the last match at `at`.
  // Names are short: a plain loop beats a call to memcmp.
  bool InnerMatches(const char16_t* at) const {
    for (std::size_t k = 1; k + 1 < text.size(); ++k) {
      if (at[k] != text[k]) return false;
    }
    return true;
  }
  bool MatchesAt(const char16_t* at) const {
    return at[0] == first && at[text.size() - 1] == last && InnerMatches(at);
  }

  TextView text;
  char16_t first;
  char16_t last;
};

// The candidates i < end from `i` on, one at a time.
std::size_t FindPlain(const char16_t* p, std::size_t i, std::size_t end, const Needle& needle) {
  for (; i < end; ++i) {
    if (needle.MatchesAt(p + i)) return i;
  }
  return TextView::npos;
}

#ifdef TESSALY_SSE2
std::size_t FindSse2(const char16_t* p, std::size_t i, std::size_t end, const Needle& needle) {
  const std::size_t last_offset = needle.text.size() - 1;
  const __m128i first = _mm_set1_epi16(static_cast<short>(needle.first));
  const __m128i last = _mm_set1_epi16(static_cast<short>(needle.last));
  for (; i + 16 <= end; i += 16) {
    const auto* head = reinterpret_cast<const __m128i*>(p + i);
    const auto* tail = reinterpret_cast<const __m128i*>(p + i + last_offset);
    const __m128i lo = _mm_and_si128(_mm_cmpeq_epi16(_mm_loadu_si128(head), first),
                                     _mm_cmpeq_epi16(_mm_loadu_si128(tail), last));
    const __m128i hi = _mm_and_si128(_mm_cmpeq_epi16(_mm_loadu_si128(head + 1), first),
                                     _mm_cmpeq_epi16(_mm_loadu_si128(tail + 1), last));
    auto candidates = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(lo, hi)));
    for (; candidates != 0; candidates &= candidates - 1) {
      const std::size_t at = i + static_cast<std::size_t>(std::countr_zero(candidates));
      if (needle.InnerMatches(p + at)) return at;
    }
  }
  return FindPlain(p, i, end, needle);
}
#endif

#ifdef TESSALY_AVX2
// Packing words to bytes works within each 128-bit half; the permutation
// puts the 32 results back in order for the mask.
TESSALY_TARGET_AVX2 unsigned MaskOfWords(__m256i lo, __m256i hi) {
  const __m256i packed = _mm256_permute4x64_epi64(_mm256_packs_epi16(lo, hi), 0xD8);
  return static_cast<unsigned>(_mm256_movemask_epi8(packed));
}

TESSALY_TARGET_AVX2 std::size_t FindAvx2(const char16_t* p, std::size_t i, std::size_t end,
                                         const Needle& needle) {
  const std::size_t last_offset = needle.text.size() - 1;
  const __m256i first = _mm256_set1_epi16(static_cast<short>(needle.first));
  const __m256i last = _mm256_set1_epi16(static_cast<short>(needle.last));
  for (; i + 32 <= end; i += 32) {
    const auto* head = reinterpret_cast<const __m256i*>(p + i);
    const auto* tail = reinterpret_cast<const __m256i*>(p + i + last_offset);
    const __m256i lo = _mm256_and_si256(_mm256_cmpeq_epi16(_mm256_loadu_si256(head), first),
                                        _mm256_cmpeq_epi16(_mm256_loadu_si256(tail), last));
    const __m256i hi = _mm256_and_si256(_mm256_cmpeq_epi16(_mm256_loadu_si256(head + 1), first),
                                        _mm256_cmpeq_epi16(_mm256_loadu_si256(tail + 1), last));
    for (unsigned candidates = MaskOfWords(lo, hi); candidates != 0; candidates &= candidates - 1) {
      const std::size_t at = i + static_cast<std::size_t>(std::countr_zero(candidates));
      if (needle.InnerMatches(p + at)) return at;
    }
  }
  return FindSse2(p, i, end, needle);
}
#endif

// --- Counting CR LF ---------------------------------------------------------------
//
// The test: text[j] is LF exactly when text[j - 1] is CR, for every j from
// 1; and the text neither begins with LF nor ends with CR.

// Positions j from `j` on; adds to `ends`; false at the first mismatch.
bool CountPlain(const char16_t* p, std::size_t j, std::size_t n, std::size_t& ends) {
  for (; j < n; ++j) {
    const bool is_lf = p[j] == kLf;
    if (is_lf != (p[j - 1] == kCr)) return false;
    ends += is_lf ? 1 : 0;
  }
  return true;
}

// The vector forms count in 16-bit lanes, each of which gains at most 2 per
// step; emptying them every kLaneSteps steps keeps them from overflowing.
constexpr std::size_t kLaneSteps = 8192;

#ifdef TESSALY_SSE2
std::size_t SumLanes(__m128i lanes) {
  alignas(16) std::array<std::uint16_t, 8> counts;
  _mm_store_si128(reinterpret_cast<__m128i*>(counts.data()), lanes);
  std::size_t sum = 0;
  for (const std::uint16_t count : counts) sum += count;
  return sum;
}

bool CountSse2(const char16_t* p, std::size_t j, std::size_t n, std::size_t& ends) {
  const __m128i cr = _mm_set1_epi16(kCr);
  const __m128i lf = _mm_set1_epi16(kLf);
  __m128i mismatch = _mm_setzero_si128();
  while (j + 16 <= n) {
    __m128i lanes = _mm_setzero_si128();
    for (std::size_t step = 0; step < kLaneSteps && j + 16 <= n; ++step, j += 16) {
      const auto* at = reinterpret_cast<const __m128i*>(p + j);
      const auto* before = reinterpret_cast<const __m128i*>(p + j - 1);
      const __m128i lf0 = _mm_cmpeq_epi16(_mm_loadu_si128(at), lf);
      const __m128i lf1 = _mm_cmpeq_epi16(_mm_loadu_si128(at + 1), lf);
      const __m128i cr0 = _mm_cmpeq_epi16(_mm_loadu_si128(before), cr);
      const __m128i cr1 = _mm_cmpeq_epi16(_mm_loadu_si128(before + 1), cr);
      mismatch =
          _mm_or_si128(mismatch, _mm_or_si128(_mm_xor_si128(lf0, cr0), _mm_xor_si128(lf1, cr1)));
      lanes = _mm_sub_epi16(lanes, _mm_add_epi16(lf0, lf1));  // a match is -1
    }
    if (_mm_movemask_epi8(mismatch) != 0) return false;
    ends += SumLanes(lanes);
  }
  return CountPlain(p, j, n, ends);
}
#endif

#ifdef TESSALY_AVX2
TESSALY_TARGET_AVX2 std::size_t SumLanes(__m256i lanes) {
  return SumLanes(_mm256_castsi256_si128(lanes)) + SumLanes(_mm256_extracti128_si256(lanes, 1));
}

TESSALY_TARGET_AVX2 bool CountAvx2(const char16_t* p, std::size_t j, std::size_t n,
                                   std::size_t& ends) {
  const __m256i cr = _mm256_set1_epi16(kCr);
  const __m256i lf = _mm256_set1_epi16(kLf);
  __m256i mismatch = _mm256_setzero_si256();
  while (j + 32 <= n) {
    __m256i lanes = _mm256_setzero_si256();
    for (std::size_t step = 0; step < kLaneSteps && j + 32 <= n; ++step, j += 32) {
      const auto* at = reinterpret_cast<const __m256i*>(p + j);
      const auto* before = reinterpret_cast<const __m256i*>(p + j - 1);
      const __m256i lf0 = _mm256_cmpeq_epi16(_mm256_loadu_si256(at), lf);
      const __m256i lf1 = _mm256_cmpeq_epi16(_mm256_loadu_si256(at + 1), lf);
      const __m256i cr0 = _mm256_cmpeq_epi16(_mm256_loadu_si256(before), cr);
      const __m256i cr1 = _mm256_cmpeq_epi16(_mm256_loadu_si256(before + 1), cr);
      mismatch = _mm256_or_si256(
          mismatch, _mm256_or_si256(_mm256_xor_si256(lf0, cr0), _mm256_xor_si256(lf1, cr1)));
      lanes = _mm256_sub_epi16(lanes, _mm256_add_epi16(lf0, lf1));
    }
    if (!_mm256_testz_si256(mismatch, mismatch)) return false;
    ends += SumLanes(lanes);
  }
  return CountSse2(p, j, n, ends);
}
#endif

// --- Line starts -------------------------------------------------------------------

void StartsPlain(const char16_t* p, std::size_t j, std::size_t n, std::size_t base,
                 std::vector<std::size_t>& starts) {
  for (; j < n; ++j) {
    if (p[j] == kLf) starts.push_back(base + j + 1);
  }
}

#ifdef TESSALY_SSE2
// The vector forms gather starts in a local array, a chunk of text at a
// time, so that the loop makes no calls. Each step writes two entries
// whether or not it found two line ends (lines shorter than 8 characters are
// rare), which spares a branch the processor could not predict; more than
// two take a loop.
constexpr std::size_t kChunk = 2048;
using Found = std::array<std::size_t, kChunk + 2>;

// Appends at + k + 1 for each bit k of `mask` to found[count...].
std::size_t TakeStarts(unsigned mask, std::size_t at, Found& found, std::size_t count) {
  const unsigned second = mask & (mask - 1);
  found[count] = at + static_cast<std::size_t>(std::countr_zero(mask)) + 1;
  found[count + 1] = at + static_cast<std::size_t>(std::countr_zero(second)) + 1;
  count += (mask != 0 ? 1 : 0) + (second != 0 ? 1 : 0);
  for (unsigned more = second & (second - 1); more != 0; more &= more - 1) {
    found[count++] = at + static_cast<std::size_t>(std::countr_zero(more)) + 1;
  }
  return count;
}

void StartsSse2(const char16_t* p, std::size_t j, std::size_t n, std::size_t base,
                std::vector<std::size_t>& starts) {
  const __m128i lf = _mm_set1_epi16(kLf);
  Found found;
  while (j + 16 <= n) {
    const std::size_t chunk_end = std::min(n, j + kChunk);
    std::size_t count = 0;
    for (; j + 16 <= chunk_end; j += 16) {
      const auto* at = reinterpret_cast<const __m128i*>(p + j);
      const __m128i lf0 = _mm_cmpeq_epi16(_mm_loadu_si128(at), lf);
      const __m128i lf1 = _mm_cmpeq_epi16(_mm_loadu_si128(at + 1), lf);
      const auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(lf0, lf1)));
      count = TakeStarts(mask, base + j, found, count);
    }
    starts.insert(starts.end(), found.begin(), found.begin() + static_cast<std::ptrdiff_t>(count));
  }
  StartsPlain(p, j, n, base, starts);
}
#endif

#ifdef TESSALY_AVX2
TESSALY_TARGET_AVX2 void StartsAvx2(const char16_t* p, std::size_t j, std::size_t n,
                                    std::size_t base, std::vector<std::size_t>& starts) {
  const __m256i lf = _mm256_set1_epi16(kLf);
  Found found;
  while (j + 32 <= n) {
    const std::size_t chunk_end = std::min(n, j + kChunk);
    std::size_t count = 0;
    for (; j + 32 <= chunk_end; j += 32) {
      const auto* at = reinterpret_cast<const __m256i*>(p + j);
      const __m256i lf0 = _mm256_cmpeq_epi16(_mm256_loadu_si256(at), lf);
      const __m256i lf1 = _mm256_cmpeq_epi16(_mm256_loadu_si256(at + 1), lf);
      count = TakeStarts(MaskOfWords(lf0, lf1), base + j, found, count);
    }
    starts.insert(starts.end(), found.begin(), found.begin() + static_cast<std::ptrdiff_t>(count));
  }
  StartsSse2(p, j, n, base, starts);
}
#endif

// --- Choosing a width --------------------------------------------------------------

ScanWidth Usable(ScanWidth width) { return std::min(width, WidestScan()); }

// Every occurrence, each search resuming after the one before; find_from is
// one of the Find forms above.
template <typename FindFrom>
void EachFrom(TextView text, TextView find, FindFrom&& find_from, std::vector<std::size_t>& found) {
  if (text.size() < find.size()) return;
  const std::size_t end = text.size() - find.size() + 1;  // candidates are before this
  const Needle needle(find);
  for (std::size_t at = 0; at < end; at += find.size()) {
    at = find_from(text.data(), at, end, needle);
    if (at == TextView::npos) return;
    found.push_back(at);
  }
}

}  // namespace

ScanWidth WidestScan() {
#ifdef TESSALY_AVX2
  static const bool has_avx2 = __builtin_cpu_supports("avx2") != 0;
  if (has_avx2) return ScanWidth::Avx2;
#endif
#ifdef TESSALY_SSE2
  return ScanWidth::Sse2;
#else
  return ScanWidth::Plain;
#endif
}

std::size_t FindText(TextView text, TextView find, std::size_t from, ScanWidth width) {
  if (find.empty()) return from <= text.size() ? from : TextView::npos;
  if (text.size() < find.size() || from > text.size() - find.size()) return TextView::npos;
  const std::size_t end = text.size() - find.size() + 1;  // candidates are before this
  const Needle needle(find);
  switch (Usable(width)) {
#ifdef TESSALY_AVX2
    case ScanWidth::Avx2:
      return FindAvx2(text.data(), from, end, needle);
#endif
#ifdef TESSALY_SSE2
    case ScanWidth::Sse2:
      return FindSse2(text.data(), from, end, needle);
#endif
    default:
      return FindPlain(text.data(), from, end, needle);
  }
}

void FindEach(TextView text, TextView find, std::vector<std::size_t>& found, ScanWidth width) {
  if (find.empty()) return;
  switch (Usable(width)) {
#ifdef TESSALY_AVX2
    case ScanWidth::Avx2:
      return EachFrom(text, find, FindAvx2, found);
#endif
#ifdef TESSALY_SSE2
    case ScanWidth::Sse2:
      return EachFrom(text, find, FindSse2, found);
#endif
    default:
      return EachFrom(text, find, FindPlain, found);
  }
}

CrLfCount CountCrLf(TextView text, ScanWidth width) {
  const std::size_t n = text.size();
  if (n == 0) return {};
  const char16_t* p = text.data();
  if (p[0] == kLf || p[n - 1] == kCr) return {false, 0};
  std::size_t ends = 0;
  bool crlf_only = false;
  switch (Usable(width)) {
#ifdef TESSALY_AVX2
    case ScanWidth::Avx2:
      crlf_only = CountAvx2(p, 1, n, ends);
      break;
#endif
#ifdef TESSALY_SSE2
    case ScanWidth::Sse2:
      crlf_only = CountSse2(p, 1, n, ends);
      break;
#endif
    default:
      crlf_only = CountPlain(p, 1, n, ends);
      break;
  }
  return crlf_only ? CrLfCount{true, ends} : CrLfCount{false, 0};
}

void AppendLineStarts(TextView text, std::size_t base, std::vector<std::size_t>& starts,
                      ScanWidth width) {
  switch (Usable(width)) {
#ifdef TESSALY_AVX2
    case ScanWidth::Avx2:
      return StartsAvx2(text.data(), 0, text.size(), base, starts);
#endif
#ifdef TESSALY_SSE2
    case ScanWidth::Sse2:
      return StartsSse2(text.data(), 0, text.size(), base, starts);
#endif
    default:
      return StartsPlain(text.data(), 0, text.size(), base, starts);
  }
}

std::size_t FindText(TextView text, TextView find, std::size_t from) {
  return FindText(text, find, from, WidestScan());
}

void FindEach(TextView text, TextView find, std::vector<std::size_t>& found) {
  FindEach(text, find, found, WidestScan());
}

CrLfCount CountCrLf(TextView text) { return CountCrLf(text, WidestScan()); }

void AppendLineStarts(TextView text, std::size_t base, std::vector<std::size_t>& starts) {
  AppendLineStarts(text, base, starts, WidestScan());
}

}  // namespace vb
