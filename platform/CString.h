#pragma once
// CString: the window classes' byte string. It holds bytes in the document's encoding (UTF-8
// here) and never converts; lengths and positions count bytes. A text that arrives through a
// plain `const char*` ends at its first NUL, as every C text does.
#include <cstdarg>
#include <string>
#include <string_view>
#include <vector>

#include "QuillboxExport.h"

class QString;

class QUILLBOX_EXPORT CString {
public:
    CString() = default;
    CString(const char* s) : text_(s ? s : "") {}
    CString(const char* s, int length);
    CString(std::string s) : text_(std::move(s)) {}
    CString(std::string_view s) : text_(s) {}
    CString(char ch, int repeat = 1);

    int GetLength() const { return int(text_.size()); }
    bool IsEmpty() const { return text_.empty(); }
    void Empty() { text_.clear(); }
    operator const char*() const { return text_.c_str(); }
    const char* c_str() const { return text_.c_str(); }
    const std::string& str() const { return text_; }
    std::string_view view() const { return text_; }

    char GetAt(int index) const;
    char operator[](int index) const { return GetAt(index); }
    void SetAt(int index, char ch);

    // A writable block of at least `minLength` bytes plus a NUL; ReleaseBuffer sets the length
    // (measured up to the first NUL when -1).
    char* GetBuffer(int minLength = 0);
    char* GetBufferSetLength(int length);
    void ReleaseBuffer(int newLength = -1);

    CString& operator=(const char* s) { text_ = s ? s : ""; return *this; }
    CString& operator+=(const CString& s) { text_ += s.text_; return *this; }
    CString& operator+=(const char* s) { if (s) text_ += s; return *this; }
    CString& operator+=(char ch) { text_ += ch; return *this; }
    friend CString operator+(const CString& a, const CString& b) { return CString(a.text_ + b.text_); }
    friend CString operator+(const CString& a, const char* b) { return a + CString(b); }
    friend CString operator+(const char* a, const CString& b) { return CString(a) + b; }
    friend CString operator+(const CString& a, char b) { CString r(a); r += b; return r; }

    friend bool operator==(const CString& a, const CString& b) { return a.text_ == b.text_; }
    friend bool operator==(const CString& a, const char* b) { return a.text_ == (b ? b : ""); }
    friend bool operator<(const CString& a, const CString& b) { return a.text_ < b.text_; }

    int Compare(const char* s) const;
    int CompareNoCase(const char* s) const;   // ASCII letters fold; other bytes compare as they are

    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Right(int count) const;

    int Find(char ch, int start = 0) const;
    int Find(const char* sub, int start = 0) const;
    int ReverseFind(char ch) const;
    int FindOneOf(const char* chars) const;

    int Replace(const char* oldText, const char* newText);
    int Replace(char oldCh, char newCh);
    int Remove(char ch);
    int Insert(int index, const char* s);
    int Delete(int index, int count = 1);

    CString& Trim();
    CString& Trim(const char* chars);
    CString& TrimLeft();
    CString& TrimLeft(const char* chars);
    CString& TrimRight();
    CString& TrimRight(const char* chars);

    // Case changes touch ASCII letters only, so a UTF-8 sequence is never split or altered.
    CString& MakeUpper();
    CString& MakeLower();

    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));
    void FormatV(const char* format, va_list args);
    void AppendFormat(const char* format, ...) __attribute__((format(printf, 2, 3)));

    // Loads a string of the library's resource table; false when the id is unknown.
    bool LoadString(unsigned int id);

    // For the user-interface layer only: the bytes read as UTF-8.
    QString toQString() const;
    static CString fromQString(const QString& s);

private:
    std::string text_;
};

class QUILLBOX_EXPORT CStringArray {
public:
    int GetSize() const { return int(items_.size()); }
    int GetCount() const { return GetSize(); }
    bool IsEmpty() const { return items_.empty(); }
    const CString& GetAt(int i) const { return items_.at(size_t(i)); }
    CString& ElementAt(int i) { return items_.at(size_t(i)); }
    const CString& operator[](int i) const { return GetAt(i); }
    CString& operator[](int i) { return ElementAt(i); }
    int Add(const CString& s) { items_.push_back(s); return GetSize() - 1; }
    void SetAt(int i, const CString& s) { items_.at(size_t(i)) = s; }
    void SetAtGrow(int i, const CString& s);
    void RemoveAt(int i, int count = 1);
    void InsertAt(int i, const CString& s);
    void RemoveAll() { items_.clear(); }
    void Copy(const CStringArray& other) { items_ = other.items_; }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<CString> items_;
};

class QUILLBOX_EXPORT CUIntArray {
public:
    int GetSize() const { return int(items_.size()); }
    unsigned int GetAt(int i) const { return items_.at(size_t(i)); }
    unsigned int operator[](int i) const { return GetAt(i); }
    int Add(unsigned int v) { items_.push_back(v); return GetSize() - 1; }
    void RemoveAll() { items_.clear(); }
    void Copy(const CUIntArray& other) { items_ = other.items_; }

private:
    std::vector<unsigned int> items_;
};
