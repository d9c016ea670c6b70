#pragma once
// SContainer, SBuffer, SString: the library's own growable byte strings, for the code that
// works on C texts. The bytes are UTF-8 (the document's encoding) and are never converted;
// lengths and positions count bytes. Comparisons and searches are plain byte operations, which
// is right for UTF-8 because a match can never begin on a continuation byte.
#include "QuillboxExport.h"

// Owns an array of bufferSize + 1 bytes (room for a NUL behind the text), or nothing.
class QUILLBOX_EXPORT SContainer {
public:
    // A length argument that asks for the text to be measured up to its NUL.
    static constexpr unsigned int measureLength = 0xFFFFFFFFu;

    // An uninitialised array of len + 1 bytes; null on failure or when len is measureLength.
    static char* StringAllocate(unsigned int len);
    // A copy of len bytes of s (NULs among them included) followed by a NUL; null when s is
    // null or the allocation fails. measureLength measures s.
    static char* StringAllocate(const char* s, unsigned int len);

    // Copies both fields as they are; ownership is the derived classes' business.
    SContainer& operator=(const SContainer&) = default;

protected:
    SContainer() = default;
    ~SContainer();
    unsigned int size() const { return buffer ? bufferSize : 0; }

    char* buffer = nullptr;
    unsigned int bufferSize = 0;   // longest text the array holds, without the NUL
};

// A writable array of len + 1 bytes that an SString takes over without copying.
class QUILLBOX_EXPORT SBuffer : public SContainer {
public:
    explicit SBuffer(unsigned int len);   // null with size 0 when it cannot be allocated
    ~SBuffer() = default;
    char* ptr() { return buffer; }
    // Forgets the array without freeing it: its owner is now someone else.
    void reset() { buffer = nullptr; bufferSize = 0; }
    unsigned int size() const { return SContainer::size(); }

private:
    SBuffer(const SBuffer& source);
    SBuffer& operator=(const SBuffer& source);
};

// A byte string that is either null (no array), allocated and empty, or holding text with a
// NUL at buffer[stringLength]. c_str() shows null and empty alike, operator== tells them apart.
// Copies are deep. Allocation failures never throw: edits leave the string unchanged,
// constructors and assignments leave it null.
class QUILLBOX_EXPORT SString : public SContainer {
public:
    SString() = default;
    SString(const SString& source);
    SString(const char* s);
    SString(SBuffer& buf);   // takes the array over; the length is buf.size(), not measured
    SString(const char* s, unsigned int first, unsigned int last);   // s[first] .. s[last - 1]
    SString(int i);
    SString(double d, int precision);
    ~SString();

    unsigned int size() const { return SContainer::size(); }
    unsigned int length() const { return stringLength; }
    // Bounded by the array, not the text: bytes behind the text up to bufferSize are readable.
    char operator[](unsigned int i) const { return (buffer && i < bufferSize) ? buffer[i] : '\0'; }
    const char* c_str() const { return buffer ? buffer : ""; }
    int value() const;   // leading decimal number, 0 when there is none

    bool operator==(const SString& other) const;
    bool operator==(const char* s) const;   // a null pointer equals only a null string
    bool operator!=(const SString& other) const { return !(*this == other); }
    bool operator!=(const char* s) const { return !(*this == s); }

    bool contains(char ch) const;
    bool contains(const char* pattern) const;
    int search(const char* pattern, unsigned int start = 0) const;   // byte position or -1
    bool startswith(const char* prefix) const;
    bool endswith(const char* suffix) const;
    SString substr(unsigned int position, unsigned int len = measureLength) const;

    SString& operator=(const char* s) { return assign(s, measureLength); }
    SString& operator=(const SString& source);
    void clear();
    // Hands the array to the caller (who frees it with delete[]) and leaves a null string.
    char* detach();
    void setsizegrowth(unsigned int n) { sizeGrowth = n ? n : 1; }

    SString& append(const char* other, unsigned int len = measureLength, char sep = '\0');
    SString& appendwithseparator(const char* other, char sep) { return append(other, measureLength, sep); }
    SString& operator+=(const char* s) { return append(s); }
    SString& operator+=(const SString& s);
    SString& operator+=(char ch) { return append(&ch, 1); }
    SString& insert(unsigned int pos, const char* other, unsigned int len = measureLength);
    void remove(unsigned int pos, unsigned int len);   // len 0 cuts the text at pos
    int remove(const char* pattern) { return substitute(pattern, ""); }
    SString& change(unsigned int pos, char ch);
    // ASCII letters only; bytes of multibyte characters are left alone.
    SString& lowercase(unsigned int position = 0, unsigned int len = measureLength);
    SString& uppercase(unsigned int position = 0, unsigned int len = measureLength);
    int substitute(char oldChar, char newChar);
    int substitute(const char* pattern, const char* replacement);

    // Bytes the UTF-16 text needs in UTF-8: at most count units, up to a NUL unit.
    static unsigned int GetUTF8Length(const char16_t* text, unsigned int count);

private:
    static constexpr unsigned int sizeGrowthDefault = 64;

    bool grow(unsigned int newLength);
    SString& assign(const char* s, unsigned int len);

    unsigned int stringLength = 0;               // always <= bufferSize
    unsigned int sizeGrowth = sizeGrowthDefault; // spare room a growth adds; never copied
};
