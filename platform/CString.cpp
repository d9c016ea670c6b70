#include "CString.h"

#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "Resources.h"

namespace {
constexpr const char* kWhiteSpace = " \t\r\n\v\f";

char asciiLower(char c) { return (c >= 'A' && c <= 'Z') ? char(c + 32) : c; }
char asciiUpper(char c) { return (c >= 'a' && c <= 'z') ? char(c - 32) : c; }
}  // namespace

CString::CString(const char* s, int length) {
    if (s && length > 0) text_.assign(s, size_t(length));
}

CString::CString(char ch, int repeat) {
    if (repeat > 0) text_.assign(size_t(repeat), ch);
}

char CString::GetAt(int index) const {
    return (index >= 0 && size_t(index) < text_.size()) ? text_[size_t(index)] : '\0';
}

void CString::SetAt(int index, char ch) {
    if (index >= 0 && size_t(index) < text_.size()) text_[size_t(index)] = ch;
}

char* CString::GetBuffer(int minLength) {
    // The block is the text padded with NULs to minLength; ReleaseBuffer(-1) measures it again.
    if (minLength > 0 && size_t(minLength) > text_.size()) text_.resize(size_t(minLength), '\0');
    return text_.data();
}

char* CString::GetBufferSetLength(int length) {
    text_.resize(size_t(std::max(length, 0)), '\0');
    return text_.data();
}

void CString::ReleaseBuffer(int newLength) {
    if (newLength < 0)
        text_.resize(std::strlen(text_.c_str()));
    else
        text_.resize(std::min(size_t(newLength), text_.size()));
}

int CString::Compare(const char* s) const {
    int r = std::strcmp(text_.c_str(), s ? s : "");
    return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const char* s) const {
    const unsigned char* a = reinterpret_cast<const unsigned char*>(text_.c_str());
    const unsigned char* b = reinterpret_cast<const unsigned char*>(s ? s : "");
    for (;; ++a, ++b) {
        int ca = static_cast<unsigned char>(asciiLower(char(*a)));
        int cb = static_cast<unsigned char>(asciiLower(char(*b)));
        if (ca != cb) return ca < cb ? -1 : 1;
        if (ca == 0) return 0;
    }
}

CString CString::Left(int count) const {
    if (count <= 0) return CString();
    return CString(text_.substr(0, size_t(count)));
}

CString CString::Mid(int first) const {
    if (first < 0) first = 0;
    if (size_t(first) >= text_.size()) return CString();
    return CString(text_.substr(size_t(first)));
}

CString CString::Mid(int first, int count) const {
    if (first < 0) first = 0;
    if (count <= 0 || size_t(first) >= text_.size()) return CString();
    return CString(text_.substr(size_t(first), size_t(count)));
}

CString CString::Right(int count) const {
    if (count <= 0) return CString();
    if (size_t(count) >= text_.size()) return *this;
    return CString(text_.substr(text_.size() - size_t(count)));
}

int CString::Find(char ch, int start) const {
    if (start < 0) start = 0;
    size_t p = text_.find(ch, size_t(start));
    return p == std::string::npos ? -1 : int(p);
}

int CString::Find(const char* sub, int start) const {
    if (!sub) return -1;
    if (start < 0) start = 0;
    if (size_t(start) > text_.size()) return -1;
    size_t p = text_.find(sub, size_t(start));
    return p == std::string::npos ? -1 : int(p);
}

int CString::ReverseFind(char ch) const {
    size_t p = text_.rfind(ch);
    return p == std::string::npos ? -1 : int(p);
}

int CString::FindOneOf(const char* chars) const {
    if (!chars || !*chars) return -1;
    size_t p = text_.find_first_of(chars);
    return p == std::string::npos ? -1 : int(p);
}

int CString::Replace(const char* oldText, const char* newText) {
    if (!oldText || !*oldText) return 0;
    const std::string from(oldText);
    const std::string to(newText ? newText : "");
    int count = 0;
    std::string out;
    size_t pos = 0;
    for (size_t hit; (hit = text_.find(from, pos)) != std::string::npos; pos = hit + from.size()) {
        out.append(text_, pos, hit - pos);
        out += to;
        ++count;
    }
    if (count) {
        out.append(text_, pos, std::string::npos);
        text_.swap(out);
    }
    return count;
}

int CString::Replace(char oldCh, char newCh) {
    int count = 0;
    for (char& c : text_)
        if (c == oldCh) { c = newCh; ++count; }
    return count;
}

int CString::Remove(char ch) {
    size_t before = text_.size();
    text_.erase(std::remove(text_.begin(), text_.end(), ch), text_.end());
    return int(before - text_.size());
}

int CString::Insert(int index, const char* s) {
    if (index < 0) index = 0;
    if (size_t(index) > text_.size()) index = int(text_.size());
    if (s) text_.insert(size_t(index), s);
    return GetLength();
}

int CString::Delete(int index, int count) {
    if (index < 0 || count <= 0 || size_t(index) >= text_.size()) return GetLength();
    text_.erase(size_t(index), size_t(count));
    return GetLength();
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::Trim(const char* chars) { return TrimRight(chars).TrimLeft(chars); }
CString& CString::TrimLeft() { return TrimLeft(kWhiteSpace); }
CString& CString::TrimRight() { return TrimRight(kWhiteSpace); }

CString& CString::TrimLeft(const char* chars) {
    size_t p = text_.find_first_not_of(chars ? chars : "");
    text_.erase(0, p == std::string::npos ? text_.size() : p);
    return *this;
}

CString& CString::TrimRight(const char* chars) {
    size_t p = text_.find_last_not_of(chars ? chars : "");
    text_.erase(p == std::string::npos ? 0 : p + 1);
    return *this;
}

CString& CString::MakeUpper() {
    for (char& c : text_) c = asciiUpper(c);
    return *this;
}

CString& CString::MakeLower() {
    for (char& c : text_) c = asciiLower(c);
    return *this;
}

void CString::FormatV(const char* format, va_list args) {
    va_list copy;
    va_copy(copy, args);
    int n = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (n < 0) {
        text_.clear();
        return;
    }
    std::string out(size_t(n) + 1, '\0');
    std::vsnprintf(out.data(), out.size(), format, args);
    out.resize(size_t(n));
    text_.swap(out);
}

void CString::Format(const char* format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::AppendFormat(const char* format, ...) {
    CString tail;
    va_list args;
    va_start(args, format);
    tail.FormatV(format, args);
    va_end(args);
    text_ += tail.text_;
}

bool CString::LoadString(unsigned int id) {
    const char* s = LoadResourceString(id);
    if (!s) return false;
    text_ = s;
    return true;
}

QString CString::toQString() const { return QString::fromUtf8(text_.data(), qsizetype(text_.size())); }

CString CString::fromQString(const QString& s) { return CString(s.toUtf8().toStdString()); }

void CStringArray::SetAtGrow(int i, const CString& s) {
    if (i < 0) return;
    if (size_t(i) >= items_.size()) items_.resize(size_t(i) + 1);
    items_[size_t(i)] = s;
}

void CStringArray::RemoveAt(int i, int count) {
    if (i < 0 || count <= 0 || size_t(i) >= items_.size()) return;
    auto first = items_.begin() + i;
    auto last = (size_t(i + count) >= items_.size()) ? items_.end() : first + count;
    items_.erase(first, last);
}

void CStringArray::InsertAt(int i, const CString& s) {
    if (i < 0) i = 0;
    if (size_t(i) > items_.size()) i = int(items_.size());
    items_.insert(items_.begin() + i, s);
}
