#include "cimxml/wire/XmlBlock.h"

#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace cimxml {

namespace {

constexpr std::uint8_t bit(bool set) {
    return set ? 1 : 0;
}

}  // namespace

/// Without a branch and in the bytes' own width, two loops over little: so a compiler can take many at once.
XmlBlock XmlBlock::plainlyOf(const char* text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text);
    const auto* following = bytes + 1;
    std::uint8_t nodes = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::uint8_t opens = bit(bytes[i] == '<') & bit(following[i] != '/');
        nodes = static_cast<std::uint8_t>(nodes + opens + bit(bytes[i] == '='));
    }
    std::uint8_t special = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::uint8_t c = bytes[i];
        const std::uint8_t isBlank = bit(c == '\t') | bit(c == '\n') | bit(c == '\r');
        const std::uint8_t isNoTag = bit(following[i] != '/') & bit(following[i] < 'A');
        special |= static_cast<std::uint8_t>((bit(c < 0x20) & (isBlank ^ 1)) | bit(c >= 0x80) |
                                             bit(c == '&') | (bit(c == '<') & isNoTag));
    }
    return {nodes, special != 0};
}

#if defined(__SSE2__) || defined(_M_X64)

namespace {

using Bytes = __m128i;  // sixteen of them; of a comparison: each all ones or all zeros

Bytes load(const char* text) {
    return _mm_loadu_si128(reinterpret_cast<const Bytes*>(text));
}

Bytes equal(Bytes bytes, char wanted) {
    return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted));
}

/// Of signed numbers: what is no ASCII is negative.
Bytes less(Bytes bytes, char limit) {
    return _mm_cmplt_epi8(bytes, _mm_set1_epi8(limit));
}

Bytes either(Bytes a, Bytes b) {
    return _mm_or_si128(a, b);
}

bool any(Bytes bytes) {
    return _mm_movemask_epi8(bytes) != 0;
}

/// Whether any of a block's bytes is a control character other than blanks, or no ASCII.
bool hasNoCharacter(const char* text) {
    Bytes found = _mm_setzero_si128();
    for (std::size_t i = 0; i < XmlBlock::size; i += sizeof(Bytes)) {
        const Bytes bytes = load(text + i);
        const Bytes blank = either(either(equal(bytes, '\t'), equal(bytes, '\n')), equal(bytes, '\r'));
        found = either(found, _mm_andnot_si128(blank, less(bytes, ' ')));
    }
    return any(found);
}

/// The sum of all bytes.
std::size_t sum(Bytes bytes) {
    const Bytes halves = _mm_sad_epu8(bytes, _mm_setzero_si128());
    return static_cast<std::size_t>(_mm_cvtsi128_si32(halves)) +
           static_cast<std::size_t>(_mm_extract_epi16(halves, 4));
}

}  // namespace

XmlBlock XmlBlock::of(const char* text) {
    Bytes nodes = _mm_setzero_si128();
    Bytes special = _mm_setzero_si128();
    Bytes belowBlank = _mm_setzero_si128();
    for (std::size_t i = 0; i < size; i += sizeof(Bytes)) {
        const Bytes bytes = load(text + i);
        const Bytes following = load(text + i + 1);
        const Bytes opens = equal(bytes, '<');
        const Bytes begins = _mm_andnot_si128(equal(following, '/'), opens);
        nodes = _mm_sub_epi8(nodes, either(begins, equal(bytes, '=')));  // a hit is minus one
        belowBlank = either(belowBlank, less(bytes, ' '));
        special = either(special, equal(bytes, '&'));
        special = either(special, _mm_and_si128(begins, less(following, 'A')));
    }
    return {sum(nodes), any(special) || (any(belowBlank) && hasNoCharacter(text))};
}

#else

XmlBlock XmlBlock::of(const char* text) {
    return plainlyOf(text);
}

#endif

}  // namespace cimxml
