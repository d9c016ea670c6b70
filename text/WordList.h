#pragma once
// WordList: one text of separated words made searchable in place. The text is copied once,
// each separator is overwritten by NUL, and two pointer arrays index the words: `words`,
// sorted byte-wise for exact lookups (with a first-byte index), and `foldedWords`, sorted with
// ASCII letters folded, for case-insensitive prefix lookups. Sorting happens on first need.
// Lookups allocate nothing, except GetNearestWords, which builds its answer.
#include "QuillboxExport.h"
#include "SString.h"

class QUILLBOX_EXPORT WordList {
public:
    explicit WordList(bool lineEndsOnly = false);
    ~WordList();
    // Copies own their arrays: a copy holds a text of its own with the same words, in the
    // same order, so either object may be cleared or destroyed independently.
    WordList(const WordList& source);
    WordList& operator=(const WordList& source);

    // Frees the text and both arrays; the list is then empty and may be set again.
    void Clear();
    explicit operator bool() const { return len != 0; }
    // The word at index, in sorted order once a lookup has sorted the list, else in text
    // order. Not checked: 0 <= index < Length().
    char* operator[](int index) const { return words[index]; }
    int Length() const { return len; }

    // Keeps a copy of `text` (null counts as empty) and splits it into words. Former content
    // is cleared first.
    void Set(const char* text);
    // Clears the list and hands out a zero-filled text of size + 1 bytes for the caller to
    // fill; SetFromAllocated then splits it. Null for a negative size or when memory runs out.
    char* Allocate(int size);
    void SetFromAllocated();

    // Exact membership, case and bytes as they stand. A word "^abc" admits every text that
    // begins with "abc"; a word "^" alone admits everything.
    bool InList(const char* s);
    // As InList, but what stands behind `marker` in a word may be left out: with '~',
    // "def~ine" admits "def", "defi", "defin" and "define".
    bool InListAbbreviated(const char* s, char marker);
    // The skipCount-th (from 0) word that begins with the first prefixLength bytes of prefix
    // and whose next byte is not in wordCharacters, or null. Points into the list.
    const char* GetNearestWord(const char* prefix, int prefixLength, bool ignoreCase,
                               SString wordCharacters = SString(), int skipCount = -1);
    // Every word that begins with prefix, each cut before "(" (or before `separator` when it
    // is not NUL) and trailing white space, joined by blanks; null when none. With sameLength
    // only words as long as the prefix are taken. The caller frees the result with delete[].
    char* GetNearestWords(const char* prefix, int prefixLength, bool ignoreCase, char separator = '\0',
                          bool sameLength = false);

private:
    void copyFrom(const WordList& source);
    void split();
    void sortWords();
    void sortFoldedWords();
    // Index in words of the first word beginning with ch, or -1 (valid once sorted).
    int firstWith(char ch) const { return firstIndex[static_cast<unsigned char>(ch)]; }
    bool caretRule(const char* s) const;

    char** words = nullptr;        // into list; one more entry points at the text's end
    char** foldedWords = nullptr;  // the same words, in folded order once foldedSorted
    char* list = nullptr;          // the text, separators overwritten by NUL
    int len = 0;
    bool lineEndsOnly;
    bool sorted = false;
    bool foldedSorted = false;
    int firstIndex[256];
};
