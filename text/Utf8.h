#pragma once
// UTF-8 sequences as the document's bytes hold them.
#include <cstddef>

// The length (1 to 4) of the well-formed UTF-8 sequence that starts at s[i] within the first
// n bytes, or 0 when none starts there: a stray continuation byte, an overlong form, a
// surrogate, a value past U+10FFFF, or a sequence cut off by the end.
inline std::size_t Utf8SequenceLength(const unsigned char* s, std::size_t i, std::size_t n) {
    if (i >= n) return 0;
    const unsigned lead = s[i];
    if (lead < 0x80) return 1;
    std::size_t length;
    unsigned low = 0x80, high = 0xBF;  // the second byte's range
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return 0;
    }
    if (n - i < length || s[i + 1] < low || s[i + 1] > high) return 0;
    for (std::size_t k = 2; k < length; ++k)
        if ((s[i + k] & 0xC0) != 0x80) return 0;
    return length;
}
