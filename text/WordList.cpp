#include "WordList.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

bool isSeparator(unsigned char ch, bool lineEndsOnly) {
    return ch == '\r' || ch == '\n' || (!lineEndsOnly && (ch == ' ' || ch == '\t'));
}

int foldByte(char ch) {
    // ASCII letters fold to upper case; every byte then compares as a signed char.
    const int c = static_cast<signed char>(ch);
    return (c >= 'a' && c <= 'z') ? c - ('a' - 'A') : c;
}

// Case-folding comparison over at most n bytes; a text that ends first sorts first.
int compareFolded(const char* a, const char* b, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        if (a[i] == '\0' || b[i] == '\0') return a[i] == b[i] ? 0 : (a[i] == '\0' ? -1 : 1);
        const int ca = foldByte(a[i]), cb = foldByte(b[i]);
        if (ca != cb) return ca - cb;
    }
    return 0;
}

int compareFoldedWhole(const void* a, const void* b) {
    return compareFolded(*static_cast<char* const*>(a), *static_cast<char* const*>(b), std::size_t(-1));
}

int compareWhole(const void* a, const void* b) {
    return std::strcmp(*static_cast<char* const*>(a), *static_cast<char* const*>(b));
}

int comparePrefix(const char* prefix, const char* word, std::size_t n, bool ignoreCase) {
    return ignoreCase ? compareFolded(prefix, word, n) : std::strncmp(prefix, word, n);
}

bool isWhite(char ch) { return ch == ' ' || (ch >= 9 && ch <= 13); }

// The index of the last byte of the word part of an entry such as "name(args)": the part
// ends before the first "(", else before the first separator, else at the end, and trailing
// white space is left out. An entry that starts with "(" gives 0.
int lastByteOfWord(const char* word, char separator) {
    const char* end = std::strchr(word, '(');
    if (!end && separator) end = std::strchr(word, separator);
    if (!end) end = word + std::strlen(word);
    if (end > word) {
        --end;
        while (end > word && isWhite(*end)) --end;
    }
    return int(end - word);
}

}  // namespace

WordList::WordList(bool lineEndsOnly_) : lineEndsOnly(lineEndsOnly_) { std::fill_n(firstIndex, 256, -1); }

WordList::~WordList() { Clear(); }

WordList::WordList(const WordList& source) : lineEndsOnly(source.lineEndsOnly) {
    std::fill_n(firstIndex, 256, -1);
    copyFrom(source);
}

WordList& WordList::operator=(const WordList& source) {
    if (this != &source) {
        Clear();
        lineEndsOnly = source.lineEndsOnly;
        copyFrom(source);
    }
    return *this;
}

void WordList::copyFrom(const WordList& source) {
    if (!source.list) return;
    // The text reaches to the end pointer behind the last word when the list was split;
    // an allocated, unsplit text is zero-filled, so its length is that of a C text.
    const std::size_t bytes = source.words ? std::size_t(source.words[source.len] - source.list) + 1
                                           : std::strlen(source.list) + 1;
    list = new (std::nothrow) char[bytes];
    if (!list) return;
    std::memcpy(list, source.list, bytes);
    if (!source.words) return;
    words = new (std::nothrow) char*[std::size_t(source.len) + 1];
    foldedWords = new (std::nothrow) char*[std::size_t(source.len) + 1];
    if (!words || !foldedWords) {
        Clear();
        return;
    }
    for (int i = 0; i <= source.len; ++i) {
        words[i] = list + (source.words[i] - source.list);
        foldedWords[i] = list + (source.foldedWords[i] - source.list);
    }
    len = source.len;
    sorted = source.sorted;
    foldedSorted = source.foldedSorted;
    std::copy_n(source.firstIndex, 256, firstIndex);
}

void WordList::Clear() {
    delete[] list;
    delete[] words;
    delete[] foldedWords;
    list = nullptr;
    words = nullptr;
    foldedWords = nullptr;
    len = 0;
    sorted = false;
    foldedSorted = false;
}

void WordList::Set(const char* text) {
    Clear();
    if (!text) text = "";
    const std::size_t bytes = std::strlen(text) + 1;
    list = new (std::nothrow) char[bytes];
    if (!list) return;
    std::memcpy(list, text, bytes);
    split();
}

char* WordList::Allocate(int size) {
    Clear();
    if (size < 0) return nullptr;
    list = new (std::nothrow) char[std::size_t(size) + 1]();
    return list;
}

void WordList::SetFromAllocated() {
    delete[] words;
    delete[] foldedWords;
    words = foldedWords = nullptr;
    len = 0;
    sorted = foldedSorted = false;
    if (list) split();
}

void WordList::split() {
    // Count word starts, the text taken as starting behind a line end.
    int count = 0;
    unsigned char prev = '\n';
    for (const char* p = list; *p; ++p) {
        const unsigned char ch = static_cast<unsigned char>(*p);
        if (isSeparator(prev, lineEndsOnly) && !isSeparator(ch, lineEndsOnly)) ++count;
        prev = ch;
    }
    words = new (std::nothrow) char*[std::size_t(count) + 1];
    foldedWords = new (std::nothrow) char*[std::size_t(count) + 1];
    if (!words || !foldedWords) {
        delete[] words;
        delete[] foldedWords;
        words = foldedWords = nullptr;
        return;
    }
    int n = 0;
    prev = '\n';
    char* p = list;
    for (; *p; ++p) {
        const unsigned char ch = static_cast<unsigned char>(*p);
        if (isSeparator(ch, lineEndsOnly)) {
            *p = '\0';
        } else if (isSeparator(prev, lineEndsOnly)) {
            words[n++] = p;
        }
        prev = ch;
    }
    words[n] = p;
    len = n;
    std::copy_n(words, n + 1, foldedWords);
}

void WordList::sortWords() {
    std::qsort(words, std::size_t(len), sizeof(char*), compareWhole);
    // Filled from the last word to the first, so each entry ends at the first word with
    // that byte; sorting keeps words of one first byte together.
    std::fill_n(firstIndex, 256, -1);
    for (int i = len - 1; i >= 0; --i) firstIndex[static_cast<unsigned char>(words[i][0])] = i;
    sorted = true;
}

void WordList::sortFoldedWords() {
    std::qsort(foldedWords, std::size_t(len), sizeof(char*), compareFoldedWhole);
    foldedSorted = true;
}

bool WordList::caretRule(const char* s) const {
    int j = firstWith('^');
    if (j < 0) return false;
    for (; j < len && words[j][0] == '^'; ++j) {
        const char* rest = words[j] + 1;
        if (std::strncmp(rest, s, std::strlen(rest)) == 0) return true;
    }
    return false;
}

bool WordList::InList(const char* s) {
    if (!words || !s) return false;
    if (!sorted) sortWords();
    const char first = s[0];
    int j = firstWith(first);
    if (j >= 0) {
        for (; j < len && words[j][0] == first; ++j) {
            // The second byte first: most candidates differ there already.
            if (words[j][1] == s[1] && (s[1] == '\0' || std::strcmp(words[j] + 2, s + 2) == 0)) return true;
        }
    }
    return caretRule(s);
}

bool WordList::InListAbbreviated(const char* s, char marker) {
    if (!words || !s) return false;
    if (marker == '\0') return InList(s);  // a NUL marker could never stand inside a word
    if (!sorted) sortWords();
    const char first = s[0];
    int j = firstWith(first);
    if (j >= 0) {
        for (; j < len && words[j][0] == first; ++j) {
            const char* a = words[j] + 1;
            bool abbreviable = false;
            if (*a == marker) {
                abbreviable = true;
                ++a;
            }
            const char* b = s + 1;
            while (*a && *a == *b) {
                ++a;
                if (*a == marker) {
                    abbreviable = true;
                    ++a;
                }
                ++b;
            }
            if (*b == '\0' && (*a == '\0' || abbreviable)) return true;
        }
    }
    return caretRule(s);
}

const char* WordList::GetNearestWord(const char* prefix, int prefixLength, bool ignoreCase,
                                     SString wordCharacters, int skipCount) {
    if (!words || !prefix) return nullptr;
    const std::size_t n = std::size_t(std::max(prefixLength, 0));
    char** const table = ignoreCase ? foldedWords : words;
    if (ignoreCase ? !foldedSorted : !sorted) ignoreCase ? sortFoldedWords() : sortWords();
    int start = 0, end = len - 1;
    while (start <= end) {
        const int pivot = (start + end) / 2;
        const int cond = comparePrefix(prefix, table[pivot], n, ignoreCase);
        if (cond > 0) {
            start = pivot + 1;
        } else if (cond < 0) {
            end = pivot - 1;
        } else {
            int first = pivot, last = pivot;
            while (first > 0 && comparePrefix(prefix, table[first - 1], n, ignoreCase) == 0) --first;
            while (last < len - 1 && comparePrefix(prefix, table[last + 1], n, ignoreCase) == 0) ++last;
            for (int i = first; i <= last; ++i) {
                // The byte behind the prefix; a word shorter than the prefix ends there.
                const char* word = table[i];
                const char next = strnlen(word, n + 1) > n ? word[n] : '\0';
                if (wordCharacters.length() && wordCharacters.contains(next)) continue;  // the word goes on
                if (skipCount <= 0) return word;
                --skipCount;
            }
            return nullptr;
        }
    }
    return nullptr;
}

char* WordList::GetNearestWords(const char* prefix, int prefixLength, bool ignoreCase, char separator,
                                bool sameLength) {
    if (!words || !prefix) return nullptr;
    const std::size_t n = std::size_t(std::max(prefixLength, 0));
    char** const table = ignoreCase ? foldedWords : words;
    if (ignoreCase ? !foldedSorted : !sorted) ignoreCase ? sortFoldedWords() : sortWords();
    // With sameLength, a word qualifies when its word part is as long as the prefix's.
    const SString typed(prefix, 0, unsigned(strnlen(prefix, n)));
    const int typedCount = lastByteOfWord(typed.c_str(), separator) + 1;
    SString found;
    found.setsizegrowth(1000);
    int start = 0, end = len - 1;
    while (start <= end) {
        int pivot = (start + end) / 2;
        const int cond = comparePrefix(prefix, table[pivot], n, ignoreCase);
        if (cond > 0) {
            start = pivot + 1;
        } else if (cond < 0) {
            end = pivot - 1;
        } else {
            while (pivot > start && comparePrefix(prefix, table[pivot - 1], n, ignoreCase) == 0) --pivot;
            for (; pivot <= end && comparePrefix(prefix, table[pivot], n, ignoreCase) == 0; ++pivot) {
                const int count = lastByteOfWord(table[pivot], separator) + 1;
                if (sameLength && count != typedCount) continue;
                found.append(table[pivot], unsigned(count), ' ');
            }
            break;
        }
    }
    return found.length() ? found.detach() : nullptr;
}
