#include "SString.h"

#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>

namespace {

// True when p points into the array [buf, buf + size]. Such a source would be freed by a
// growth or shifted by an insertion, so the edits copy it first.
bool pointsInto(const char* p, const char* buf, unsigned int size) {
    const std::less_equal<const char*> le;   // a total order, even for unrelated pointers
    return buf && le(buf, p) && le(p, buf + size);
}

// Adds delta to the bytes in [first, last] within the range; a range past the end stops there.
void changeCase(char* text, unsigned int textLength, unsigned int position, unsigned int len,
                char first, char last, int delta) {
    if (position >= textLength)
        return;
    if (len == SContainer::measureLength || len > textLength - position)
        len = textLength - position;
    for (char* p = text + position; p != text + position + len; ++p)
        if (*p >= first && *p <= last)   // bytes with the top bit set are negative: untouched
            *p = char(*p + delta);
}

}   // namespace

// ---- SContainer ----

char* SContainer::StringAllocate(unsigned int len) {
    if (len == measureLength)
        return nullptr;
    return new (std::nothrow) char[std::size_t(len) + 1];
}

char* SContainer::StringAllocate(const char* s, unsigned int len) {
    if (!s)
        return nullptr;
    if (len == measureLength)
        len = unsigned(std::strlen(s));
    char* copy = StringAllocate(len);
    if (copy) {
        std::memcpy(copy, s, len);
        copy[len] = '\0';
    }
    return copy;
}

SContainer::~SContainer() {
    delete[] buffer;
    buffer = nullptr;
    bufferSize = 0;
}

// ---- SBuffer ----

SBuffer::SBuffer(unsigned int len) {
    buffer = StringAllocate(len);
    if (buffer) {
        buffer[0] = '\0';
        bufferSize = len;
    }
}

SBuffer::SBuffer(const SBuffer& source) : SContainer() {
    buffer = StringAllocate(source.buffer, source.bufferSize);
    bufferSize = buffer ? source.bufferSize : 0;
}

SBuffer& SBuffer::operator=(const SBuffer& source) {
    if (this != &source) {
        delete[] buffer;
        buffer = StringAllocate(source.buffer, source.bufferSize);
        bufferSize = buffer ? source.bufferSize : 0;
    }
    return *this;
}

// ---- SString: construction ----
// Constructors start from a null string, where assign makes an exact-size copy.

SString::SString(const SString& source) : SContainer() {
    assign(source.buffer, source.stringLength);
}

SString::SString(const char* s) {
    assign(s, measureLength);
}

SString::SString(SBuffer& buf) {
    buffer = buf.ptr();
    bufferSize = stringLength = buf.size();
    buf.reset();
    if (buffer)
        buffer[stringLength] = '\0';   // SBuffer terminated only its first byte; the array has room
}

SString::SString(const char* s, unsigned int first, unsigned int last) {
    if (s)
        assign(s + first, last > first ? last - first : 0);
}

SString::SString(int i) {
    char number[32];
    std::snprintf(number, sizeof number, "%0d", i);
    assign(number, measureLength);
}

SString::SString(double d, int precision) {
    char number[32];
    // snprintf keeps a huge value inside the area: the text is cut, never overrun.
    if (std::snprintf(number, sizeof number, "%.*f", precision, d) < 0)
        number[0] = '\0';
    assign(number, measureLength);
}

SString::~SString() {
    stringLength = 0;
}

// ---- SString: reading ----

int SString::value() const {
    if (!buffer)
        return 0;
    // strtol with clamping, because atoi is undefined for numbers outside int.
    const long v = std::strtol(buffer, nullptr, 10);
    return v < INT_MIN ? INT_MIN : v > INT_MAX ? INT_MAX : int(v);
}

bool SString::operator==(const SString& other) const {
    return *this == other.buffer;
}

bool SString::operator==(const char* s) const {
    if (!buffer || !s)
        return !buffer && !s;
    return std::strcmp(buffer, s) == 0;
}

bool SString::contains(char ch) const {
    // The terminator is not part of the text, so NUL is never contained.
    return ch && stringLength && std::strchr(buffer, ch);
}

bool SString::contains(const char* pattern) const {
    return pattern && stringLength && std::strstr(buffer, pattern);
}

int SString::search(const char* pattern, unsigned int start) const {
    if (!pattern || start >= stringLength)
        return -1;
    const char* hit = std::strstr(buffer + start, pattern);
    return hit ? int(hit - buffer) : -1;
}

bool SString::startswith(const char* prefix) const {
    if (!prefix)
        return false;
    const std::size_t n = std::strlen(prefix);
    return n <= stringLength && (n == 0 || std::strncmp(buffer, prefix, n) == 0);
}

bool SString::endswith(const char* suffix) const {
    if (!suffix)
        return false;
    const std::size_t n = std::strlen(suffix);
    return n <= stringLength && (n == 0 || std::strncmp(buffer + stringLength - n, suffix, n) == 0);
}

SString SString::substr(unsigned int position, unsigned int len) const {
    if (position >= stringLength)
        return SString();
    if (len == measureLength || len > stringLength - position)
        len = stringLength - position;
    return SString(buffer, position, position + len);
}

// ---- SString: changing ----

bool SString::grow(unsigned int newLength) {
    // The spare room keeps pace with the text, so building a text piece by piece reallocates
    // only a logarithmic number of times.
    while (std::uint64_t(sizeGrowth) * 6 < newLength)
        sizeGrowth *= 2;
    const std::uint64_t total = std::uint64_t(newLength) + sizeGrowth;
    char* newBuffer = total < measureLength ? StringAllocate(unsigned(total)) : nullptr;
    if (!newBuffer)
        return false;
    if (buffer)
        std::memcpy(newBuffer, buffer, stringLength);
    delete[] buffer;
    buffer = newBuffer;
    buffer[stringLength] = '\0';
    bufferSize = unsigned(total);
    return true;
}

SString& SString::assign(const char* s, unsigned int len) {
    if (!s)
        len = 0;
    else if (len == measureLength)
        len = unsigned(std::strlen(s));
    if (bufferSize > 0 && len <= bufferSize) {
        // Reuse the array; memmove because s may be part of it.
        if (len)
            std::memmove(buffer, s, len);
        buffer[len] = '\0';
        stringLength = len;
        return *this;
    }
    char* copy = StringAllocate(s, len);   // copied before the old array goes: s may lie in it
    delete[] buffer;
    buffer = copy;
    bufferSize = stringLength = copy ? len : 0;
    return *this;
}

SString& SString::operator=(const SString& source) {
    if (this != &source)
        assign(source.buffer, source.stringLength);
    return *this;
}

void SString::clear() {
    if (buffer)
        buffer[0] = '\0';
    stringLength = 0;
}

char* SString::detach() {
    char* taken = buffer;
    buffer = nullptr;
    bufferSize = stringLength = 0;
    return taken;
}

SString& SString::append(const char* other, unsigned int len, char sep) {
    if (!other)
        return *this;
    if (len == measureLength)
        len = unsigned(std::strlen(other));
    if (pointsInto(other, buffer, bufferSize)) {
        const std::unique_ptr<char[]> copy(StringAllocate(other, len));
        return copy ? append(copy.get(), len, sep) : *this;
    }
    const unsigned int sepLength = (stringLength && sep) ? 1 : 0;
    if (len >= measureLength - stringLength - sepLength)
        return *this;   // the length would not fit in unsigned int
    const unsigned int newLength = stringLength + sepLength + len;
    if (newLength >= bufferSize && !grow(newLength))
        return *this;
    if (sepLength)
        buffer[stringLength] = sep;
    std::memcpy(buffer + stringLength + sepLength, other, len);
    stringLength = newLength;
    buffer[stringLength] = '\0';
    return *this;
}

SString& SString::operator+=(const SString& s) {
    return s.buffer ? append(s.buffer, s.stringLength) : *this;
}

SString& SString::insert(unsigned int pos, const char* other, unsigned int len) {
    if (!other || pos > stringLength)
        return *this;
    if (len == measureLength)
        len = unsigned(std::strlen(other));
    if (pointsInto(other, buffer, bufferSize)) {
        const std::unique_ptr<char[]> copy(StringAllocate(other, len));
        return copy ? insert(pos, copy.get(), len) : *this;
    }
    if (len >= measureLength - stringLength)
        return *this;
    const unsigned int newLength = stringLength + len;
    if (newLength >= bufferSize && !grow(newLength))
        return *this;
    std::memmove(buffer + pos + len, buffer + pos, stringLength - pos + 1);   // tail and NUL
    std::memcpy(buffer + pos, other, len);
    stringLength = newLength;
    return *this;
}

void SString::remove(unsigned int pos, unsigned int len) {
    if (pos >= stringLength)
        return;
    if (len == 0 || len >= stringLength - pos) {
        buffer[pos] = '\0';
        stringLength = pos;
    } else {
        std::memmove(buffer + pos, buffer + pos + len, stringLength - pos - len + 1);
        stringLength -= len;
    }
}

SString& SString::change(unsigned int pos, char ch) {
    if (pos < stringLength)
        buffer[pos] = ch;
    return *this;
}

SString& SString::lowercase(unsigned int position, unsigned int len) {
    changeCase(buffer, stringLength, position, len, 'A', 'Z', 'a' - 'A');
    return *this;
}

SString& SString::uppercase(unsigned int position, unsigned int len) {
    changeCase(buffer, stringLength, position, len, 'a', 'z', 'A' - 'a');
    return *this;
}

int SString::substitute(char oldChar, char newChar) {
    if (!buffer || !oldChar)
        return 0;
    int count = 0;
    for (char* t = std::strchr(buffer, oldChar); t; t = std::strchr(t + 1, oldChar)) {
        *t = newChar;
        ++count;
    }
    return count;
}

int SString::substitute(const char* pattern, const char* replacement) {
    if (!pattern || stringLength == 0)
        return 0;
    if (!replacement)
        replacement = "";
    if (pointsInto(pattern, buffer, bufferSize) || pointsInto(replacement, buffer, bufferSize)) {
        // Texts taken from our own array would shift under the edits: work from copies.
        const SString p(pattern), r(replacement);
        return (p.buffer && r.buffer) ? substitute(p.buffer, r.buffer) : 0;
    }
    const unsigned int patternLength = unsigned(std::strlen(pattern));
    const unsigned int replacementLength = unsigned(std::strlen(replacement));
    int count = 0;
    for (const char* found = std::strstr(buffer, pattern); found;) {
        const unsigned int pos = unsigned(found - buffer);
        // Make the room the insertion will need before removing, so that a failed allocation
        // stops between two occurrences, never with one removed and not replaced. The length
        // after the removal mirrors remove(): an empty pattern or one at the end cuts at pos.
        const unsigned int cut = (patternLength == 0 || pos + patternLength >= stringLength)
                                     ? pos : stringLength - patternLength;
        if (replacementLength >= measureLength - cut)
            break;
        if (cut + replacementLength >= bufferSize && !grow(cut + replacementLength))
            break;
        remove(pos, patternLength);
        insert(pos, replacement, replacementLength);
        ++count;
        const unsigned int next = pos + replacementLength;   // never rescan the replacement
        if (next >= stringLength)
            break;
        found = std::strstr(buffer + next, pattern);
    }
    return count;
}

unsigned int SString::GetUTF8Length(const char16_t* text, unsigned int count) {
    if (!text)
        return 0;
    unsigned int len = 0;
    for (std::uint64_t i = 0; i < count && text[i]; ++i) {   // 64 bits: skipping cannot wrap
        const char16_t ch = text[i];
        if (ch < 0x80) {
            len += 1;
        } else if (ch < 0x800) {
            len += 2;
        } else if (ch >= 0xD800 && ch <= 0xDFFF) {
            len += 4;   // a surrogate pair is one 4-byte character: skip its second unit
            ++i;
        } else {
            len += 3;
        }
    }
    return len;
}
