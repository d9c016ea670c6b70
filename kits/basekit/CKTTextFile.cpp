#include "CKTTextFile.h"
#include "Utf8.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>
#include <unicode/utf16.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "System.h"

namespace {

// The legacy code pages and the ICU converters that read and write them. The names are ICU's
// own names of the Microsoft tables, which ucnv_open resolves without ambiguity:
// - "windows-949-2000" is Unified Hangul Code; ICU's "cp949" is IBM's 949, which lacks the
//   extra Hangul syllables (0x8C63 and the like) and does not keep the backslash at 0x5C.
// - "ibm-943_P15A-2003" is what ICU's "windows-932", "MS932" and "Shift_JIS" resolve to; it
//   keeps 0x5C as the backslash and 0x7E as the tilde. "ibm-943_P130-1999" maps 0x5C to yen,
//   which would turn every backslash of a script into a yen sign.
// - "windows-936-2000" (GBK, with 0x80 as the euro sign) and "windows-950-2000" (Big5 with
//   Microsoft's additions) are what "GBK" and "Big5" resolve to.
// `detectorName` is the name ICU's charset detector gives the family of each.
struct CodePageEntry {
    int codePage;
    LANGID language;   // the Windows language whose legacy code page this is
    const char* converter;
    const char* detectorName;
};

constexpr CodePageEntry kCodePages[] = {
    {949, 1042, "windows-949-2000", "EUC-KR"},   // first: the code page of all other languages
    {932, 1041, "ibm-943_P15A-2003", "Shift_JIS"},
    {936, 2052, "windows-936-2000", "GB18030"},
    {950, 1028, "windows-950-2000", "Big5"},
};

constexpr int kUtf8CodePage = 65001;
constexpr int kUtf16LECodePage = 1200;
constexpr int kUtf16BECodePage = 1201;

// Files are read whole. Decoded text may grow to three times the bytes (a single byte such as
// 0x80 of code page 936 becomes a three-byte character), and it must fit a CString.
constexpr size_t kMaxFileBytes = size_t(512) << 20;

constexpr std::string_view kUtf8Bom("\xEF\xBB\xBF", 3);
constexpr std::string_view kUtf16LEBom("\xFF\xFE", 2);
constexpr std::string_view kUtf16BEBom("\xFE\xFF", 2);
constexpr std::string_view kUtf32LEBom("\xFF\xFE\x00\x00", 4);
constexpr std::string_view kUtf32BEBom("\x00\x00\xFE\xFF", 4);

const CodePageEntry* FindCodePage(int codePage) {
    for (const CodePageEntry& entry : kCodePages)
        if (entry.codePage == codePage) return &entry;
    return nullptr;
}

bool StartsWith(std::string_view bytes, std::string_view prefix) {
    return bytes.substr(0, prefix.size()) == prefix;
}

// An error text, printf style.
CString Text(const char* format, ...) __attribute__((format(printf, 1, 2)));
CString Text(const char* format, ...) {
    CString out;
    va_list args;
    va_start(args, format);
    out.FormatV(format, args);
    va_end(args);
    return out;
}

// ---- fault injection for tests

struct Fault {
    std::atomic<int> countdown{0};
    std::atomic<int> error{EIO};
};
Fault g_faults[4];
std::atomic<bool> g_allowUnnamedTemp{true};

bool Injected(TEXTFILEFAULT step) {
    Fault& fault = g_faults[step];
    if (fault.countdown.load() <= 0 || fault.countdown.fetch_sub(1) != 1) return false;
    errno = fault.error.load();
    return true;
}

// ---- UTF-8

// The length of the well-formed UTF-8 sequence at `s[i]`, or 0 when it is ill-formed or cut
// off by the end. Overlong forms, surrogates and values above U+10FFFF are ill-formed.
size_t SequenceLength(const unsigned char* s, size_t i, size_t n) { return Utf8SequenceLength(s, i, n); }

struct Utf8Scan {
    size_t firstError = std::string::npos;
    size_t multiByte = 0;   // well-formed sequences of two or more bytes
    size_t invalid = 0;     // bytes that start no well-formed sequence
};

Utf8Scan ScanUtf8(const char* data, size_t size) {
    Utf8Scan scan;
    const auto* s = reinterpret_cast<const unsigned char*>(data);
    for (size_t i = 0; i < size;) {
        size_t length = SequenceLength(s, i, size);
        if (length == 0) {
            if (scan.firstError == std::string::npos) scan.firstError = i;
            ++scan.invalid;
            ++i;
        } else {
            if (length > 1) ++scan.multiByte;
            i += length;
        }
    }
    return scan;
}

// Text in a legacy code page seen as UTF-8 has far more broken sequences than whole ones
// (well under one whole sequence per broken one for Korean, Japanese and Chinese text). Many
// whole sequences and few broken ones mean a UTF-8 file that was damaged or cut short.
bool LooksLikeBrokenUtf8(const Utf8Scan& scan) {
    return scan.invalid > 0 && scan.multiByte >= 3 * scan.invalid;
}

// The number of leading bytes that end on a character boundary: an incomplete sequence at the
// end is held back for the next call.
size_t CompletePrefix(std::string_view text) {
    const auto* s = reinterpret_cast<const unsigned char*>(text.data());
    const size_t n = text.size();
    for (size_t back = 1; back <= 3 && back <= n; ++back) {
        const unsigned c = s[n - back];
        if ((c & 0xC0) == 0x80) continue;
        size_t expected = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC2 ? 2 : 1;
        return expected > back && c <= 0xF4 ? n - back : n;
    }
    return n;
}

std::string CodePointToUtf8(UChar32 c) {
    std::string out;
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | (c >> 6));
        out += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += char(0xE0 | (c >> 12));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    } else {
        out += char(0xF0 | (c >> 18));
        out += char(0x80 | ((c >> 12) & 0x3F));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    }
    return out;
}

int LineOf(std::string_view bytes, size_t offset) {
    return 1 + int(std::count(bytes.begin(), bytes.begin() + std::min(offset, bytes.size()), '\n'));
}

// ---- ICU conversion

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

// A converter that stops at the first sequence it cannot decode and the first character it
// cannot encode, instead of putting in a substitute.
Converter OpenStrict(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &status));
    if (!converter || U_FAILURE(status)) return nullptr;
    UConverter* c = converter.get();
    ucnv_setToUCallBack(c, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(c, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

// Converts the bytes from `from` to `to` and appends them to `out`. The result is U_ZERO_ERROR
// or the error that stopped the conversion; `consumed` is how far into the source it got.
UErrorCode Convert(UConverter* to, UConverter* from, const char* data, size_t size,
                   std::string& out, size_t& consumed) {
    const char* source = data;
    UChar pivot[1024];
    UChar* pivotSource = pivot;
    UChar* pivotTarget = pivot;
    const size_t start = out.size();
    out.resize(start + size + size / 2 + 16);
    char* target = out.data() + start;
    UBool reset = true;
    UErrorCode status;
    for (;;) {
        status = U_ZERO_ERROR;
        ucnv_convertEx(to, from, &target, out.data() + out.size(), &source, data + size, pivot,
                       &pivotSource, &pivotTarget, pivot + 1024, reset, true, &status);
        reset = false;
        if (status != U_BUFFER_OVERFLOW_ERROR) break;
        const size_t used = size_t(target - out.data());
        out.resize(out.size() * 2);
        target = out.data() + used;
    }
    out.resize(size_t(target - out.data()));
    consumed = size_t(source - data);
    return U_FAILURE(status) ? status : U_ZERO_ERROR;
}

enum class DecodeResult { Ok, Invalid, Truncated, NoConverter };

// Decodes the bytes with the named ICU converter into UTF-8 (`out` is replaced). On failure
// `badOffset` is the offset of the first sequence that is not valid in the encoding.
DecodeResult DecodeToUtf8(const char* converterName, const char* data, size_t size,
                          std::string& out, size_t& badOffset) {
    Converter from = OpenStrict(converterName);
    Converter to = OpenStrict("UTF-8");
    if (!from || !to) return DecodeResult::NoConverter;
    out.clear();
    size_t consumed = 0;
    const UErrorCode result = Convert(to.get(), from.get(), data, size, out, consumed);
    if (U_SUCCESS(result)) return DecodeResult::Ok;
    char invalid[32];
    int8_t invalidLength = sizeof invalid;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getInvalidChars(from.get(), invalid, &invalidLength, &status);
    if (U_FAILURE(status)) invalidLength = 0;
    badOffset = consumed - std::min(consumed, size_t(invalidLength));
    out.clear();
    return result == U_TRUNCATED_CHAR_FOUND ? DecodeResult::Truncated : DecodeResult::Invalid;
}

bool DecodesCleanly(int codePage, const std::string& bytes) {
    const CodePageEntry* entry = FindCodePage(codePage);
    std::string text;
    size_t bad = 0;
    return entry && DecodeToUtf8(entry->converter, bytes.data(), bytes.size(), text, bad) ==
                        DecodeResult::Ok;
}

// A supported code page other than `failed` in which all the bytes decode: first those the
// charset detector proposes, best match first, then the rest in table order.
int SuggestCodePage(const std::string& bytes, int failed) {
    std::vector<int> candidates;
    UErrorCode status = U_ZERO_ERROR;
    UCharsetDetector* detector = ucsdet_open(&status);
    if (U_SUCCESS(status)) {
        const auto length = int32_t(std::min(bytes.size(), size_t(1) << 20));
        ucsdet_setText(detector, bytes.data(), length, &status);
        int32_t count = 0;
        const UCharsetMatch** matches = ucsdet_detectAll(detector, &count, &status);
        for (int32_t i = 0; U_SUCCESS(status) && i < count; ++i) {
            UErrorCode nameStatus = U_ZERO_ERROR;
            const char* name = ucsdet_getName(matches[i], &nameStatus);
            if (U_FAILURE(nameStatus) || !name) continue;
            for (const CodePageEntry& entry : kCodePages)
                if (std::strcmp(entry.detectorName, name) == 0)
                    candidates.push_back(entry.codePage);
        }
    }
    ucsdet_close(detector);
    for (const CodePageEntry& entry : kCodePages) candidates.push_back(entry.codePage);
    for (int codePage : candidates)
        if (codePage != failed && DecodesCleanly(codePage, bytes)) return codePage;
    return 0;
}

// ---- system calls

struct FileDescriptor {
    int fd = -1;
    FileDescriptor() = default;
    explicit FileDescriptor(int f) : fd(f) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Reset(); }
    void Reset() {
        if (fd >= 0) ::close(fd);
        fd = -1;
    }
};

TEXTFILEERROR ErrorOf(int systemError, TEXTFILEERROR otherwise) {
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
        return TEXTFILEERROR_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
        return TEXTFILEERROR_PERMISSION;
    case EISDIR:
        return TEXTFILEERROR_NOT_A_FILE;
    case EFBIG:
        return TEXTFILEERROR_TOO_LARGE;
    default:
        return otherwise;
    }
}

// The process's umask, which a new file's permissions follow. Read from /proc because
// umask() can only be read by changing it, which would race with other threads.
mode_t CurrentUmask() {
    mode_t mask = 022;
    if (FILE* status = std::fopen("/proc/self/status", "re")) {
        char line[256];
        while (std::fgets(line, sizeof line, status))
            if (std::strncmp(line, "Umask:", 6) == 0) {
                mask = mode_t(std::strtol(line + 6, nullptr, 8));
                break;
            }
        std::fclose(status);
    }
    return mask;
}

std::string TempName(const std::string& targetName) {
    static std::atomic<unsigned> counter{0};
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    const unsigned long long mix =
        (unsigned long long)now * 0x9E3779B97F4A7C15ull ^ ((unsigned long long)getpid() << 20) ^
        counter.fetch_add(1);
    char suffix[32];
    std::snprintf(suffix, sizeof suffix, ".%08llx.tmp", mix & 0xFFFFFFFFull);
    // Stay within the 255 bytes a file name may have.
    std::string name(".");
    name.append(targetName, 0, 200);
    name += suffix;
    return name;
}

}  // namespace

// ============================================================================ CKTTextFileBase

CKTTextFileBase::CKTTextFileBase(const char* path) : path_(path) {}

CKTTextFileBase::~CKTTextFileBase() = default;

bool CKTTextFileBase::Fail(TEXTFILEERROR error, int systemError, const CString& text) {
    if (error_ == TEXTFILEERROR_NONE) {
        error_ = error;
        errorText_ = text;
        systemError_ = systemError;
    }
    SetLastError(DWORD(systemError_), errorText_);
    return false;
}

bool CKTTextFileBase::FailSystem(int systemError, TEXTFILEERROR otherwise, const char* what) {
    return Fail(ErrorOf(systemError, otherwise), systemError,
                Text("'%s' %s: %s", path_.c_str(), what, std::strerror(systemError)));
}

void CKTTextFileBase::SetEncoding(TEXTENCODING encoding, int codePage) {
    encoding_ = encoding;
    codePage_ = codePage;
}

int CKTTextFileBase::CodePageForLanguage(LANGID language) {
    for (const CodePageEntry& entry : kCodePages)
        if (entry.language == language) return entry.codePage;
    return kCodePages[0].codePage;
}

int CKTTextFileBase::GetSystemCodePage() { return CodePageForLanguage(GetSystemDefaultLangID()); }

bool CKTTextFileBase::IsSupportedCodePage(int codePage) {
    return FindCodePage(codePage) != nullptr;
}

// ============================================================================ CKTTextFileRead

CKTTextFileRead::CKTTextFileRead(const char* path, bool detect, bool /*reserved*/, int codePage)
    : CKTTextFileBase(path) {
    Load(detect, false, TEXTENCODING_UTF8, codePage);
}

CKTTextFileRead::CKTTextFileRead(const char* path, TEXTENCODING encoding, int codePage)
    : CKTTextFileBase(path) {
    Load(true, true, encoding, codePage);
}

CKTTextFileRead::~CKTTextFileRead() = default;

void CKTTextFileRead::Load(bool detect, bool forced, TEXTENCODING encoding, int codePage) {
    if (path_.IsEmpty()) {
        Fail(TEXTFILEERROR_INVALID_ARGUMENT, EINVAL, "No file name was given");
        return;
    }
    std::string bytes;
    if (!LoadBytes(bytes)) return;
    const int legacy = codePage ? codePage : GetSystemCodePage();
    bool ok;
    if (forced) {
        switch (encoding) {
        case TEXTENCODING_ANSI:
            ok = DecodeAs(TEXTENCODING_ANSI, legacy, bytes, 0);
            break;
        case TEXTENCODING_UTF8:
        case TEXTENCODING_UTF8_BOM:
            ok = StartsWith(bytes, kUtf8Bom) ? DecodeAs(TEXTENCODING_UTF8_BOM, 0, bytes, 3)
                                             : DecodeAs(TEXTENCODING_UTF8, 0, bytes, 0);
            break;
        case TEXTENCODING_UTF16LE:
            ok = DecodeAs(encoding, 0, bytes, StartsWith(bytes, kUtf16LEBom) ? 2 : 0);
            break;
        case TEXTENCODING_UTF16BE:
            ok = DecodeAs(encoding, 0, bytes, StartsWith(bytes, kUtf16BEBom) ? 2 : 0);
            break;
        default:
            ok = Fail(TEXTFILEERROR_INVALID_ARGUMENT, EINVAL,
                      Text("Encoding %d is not one of 0 to 4", int(encoding)));
        }
    } else if (StartsWith(bytes, kUtf32LEBom) || StartsWith(bytes, kUtf32BEBom)) {
        ok = Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                  Text("'%s' is in UTF-32, which cannot be read", path_.c_str()));
    } else if (StartsWith(bytes, kUtf8Bom)) {
        ok = DecodeAs(TEXTENCODING_UTF8_BOM, 0, bytes, 3);
    } else if (StartsWith(bytes, kUtf16LEBom)) {
        ok = DecodeAs(TEXTENCODING_UTF16LE, 0, bytes, 2);
    } else if (StartsWith(bytes, kUtf16BEBom)) {
        ok = DecodeAs(TEXTENCODING_UTF16BE, 0, bytes, 2);
    } else if (bytes.find('\0') != std::string::npos) {
        ok = Fail(TEXTFILEERROR_BINARY, EILSEQ,
                  Text("'%s' holds a NUL byte and is not a text file", path_.c_str()));
    } else {
        const Utf8Scan scan = ScanUtf8(bytes.data(), bytes.size());
        if (scan.invalid == 0 || !detect || LooksLikeBrokenUtf8(scan))
            ok = DecodeAs(TEXTENCODING_UTF8, 0, bytes, 0);
        else
            ok = DecodeAs(TEXTENCODING_ANSI, legacy, bytes, 0);
    }
    open_ = ok;
}

bool CKTTextFileRead::LoadBytes(std::string& bytes) {
    // Non-blocking, so that a FIFO fails as "not a file" instead of waiting for a writer.
    FileDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.fd < 0) return FailSystem(errno, TEXTFILEERROR_READ_FAILED, "cannot be opened");
    struct stat info {};
    if (fstat(file.fd, &info) != 0 || !S_ISREG(info.st_mode))
        return Fail(TEXTFILEERROR_NOT_A_FILE, S_ISDIR(info.st_mode) ? EISDIR : EINVAL,
                    Text("'%s' is not a file", path_.c_str()));
    if (size_t(info.st_size) > kMaxFileBytes)
        return FailSystem(EFBIG, TEXTFILEERROR_TOO_LARGE, "cannot be read");
    bytes.reserve(size_t(info.st_size));
    // Read to the end rather than trusting the size, which may change or be 0 for /proc files.
    char block[65536];
    for (;;) {
        const ssize_t n = ::read(file.fd, block, sizeof block);
        if (n == 0) break;
        if (n < 0) {
            if (errno == EINTR) continue;
            return FailSystem(errno, TEXTFILEERROR_READ_FAILED, "cannot be read");
        }
        if (bytes.size() + size_t(n) > kMaxFileBytes)
            return FailSystem(EFBIG, TEXTFILEERROR_TOO_LARGE, "cannot be read");
        bytes.append(block, size_t(n));
    }
    return true;
}

bool CKTTextFileRead::DecodeAs(TEXTENCODING encoding, int codePage, const std::string& bytes,
                               size_t skip) {
    const char* data = bytes.data() + skip;
    const size_t size = bytes.size() - skip;
    switch (encoding) {
    case TEXTENCODING_ANSI:
        if (!DecodeLegacy(bytes, codePage)) return false;
        break;
    case TEXTENCODING_UTF8:
    case TEXTENCODING_UTF8_BOM: {
        SetEncoding(encoding, kUtf8CodePage);
        const Utf8Scan scan = ScanUtf8(data, size);
        if (scan.invalid) {
            const size_t at = skip + scan.firstError;
            return Fail(TEXTFILEERROR_UNDECODABLE, EILSEQ,
                        Text("'%s' is not valid UTF-8: byte 0x%02X at offset %zu (line %d)",
                             path_.c_str(), unsigned((unsigned char)bytes[at]), at,
                             LineOf(bytes, at)));
        }
        text_.assign(data, size);
        break;
    }
    default: {
        const bool little = encoding == TEXTENCODING_UTF16LE;
        SetEncoding(encoding, little ? kUtf16LECodePage : kUtf16BECodePage);
        size_t bad = 0;
        const DecodeResult result =
            DecodeToUtf8(little ? "UTF-16LE" : "UTF-16BE", data, size, text_, bad);
        if (result == DecodeResult::NoConverter)
            return Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP, "ICU has no UTF-16 converter");
        const char* what = result == DecodeResult::Truncated ? "the file ends inside a character"
                                                             : "an unpaired surrogate";
        if (result != DecodeResult::Ok)
            return Fail(TEXTFILEERROR_UNDECODABLE, EILSEQ,
                        Text("'%s' is not valid UTF-16%s: %s at offset %zu", path_.c_str(),
                             little ? "LE" : "BE", what, skip + bad));
    }
    }
    const size_t nul = text_.find('\0');
    if (nul != std::string::npos) {
        text_.clear();
        return Fail(TEXTFILEERROR_BINARY, EILSEQ,
                    Text("'%s' holds a NUL character and is not a text file", path_.c_str()));
    }
    return true;
}

bool CKTTextFileRead::DecodeLegacy(const std::string& bytes, int codePage) {
    SetEncoding(TEXTENCODING_ANSI, codePage);
    const CodePageEntry* entry = FindCodePage(codePage);
    if (!entry)
        return Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                    Text("Code page %d is not supported", codePage));
    size_t bad = 0;
    switch (DecodeToUtf8(entry->converter, bytes.data(), bytes.size(), text_, bad)) {
    case DecodeResult::Ok:
        return true;
    case DecodeResult::NoConverter:
        return Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                    Text("ICU has no converter \"%s\" for code page %d", entry->converter,
                         codePage));
    case DecodeResult::Invalid:
    case DecodeResult::Truncated:
        break;
    }
    suggestedCodePage_ = SuggestCodePage(bytes, codePage);
    CString text = Text("'%s' is not valid in code page %d: byte 0x%02X at offset %zu (line %d)",
                        path_.c_str(), codePage, unsigned((unsigned char)bytes[bad]), bad,
                        LineOf(bytes, bad));
    if (suggestedCodePage_)
        text.AppendFormat("; it can be read as code page %d", suggestedCodePage_);
    return Fail(TEXTFILEERROR_UNDECODABLE, EILSEQ, text);
}

bool CKTTextFileRead::Read(CString& text, const CString& lineEnd) {
    if (!open_)
        return Fail(TEXTFILEERROR_NOT_OPEN, EBADF,
                    Text("'%s' is not open for reading", path_.c_str()));
    // Measure first, so that a text that would not fit a CString fails before any copying.
    size_t breaks = 0, breakBytes = 0;
    for (size_t i = 0; i < text_.size(); ++i) {
        if (text_[i] == '\r') {
            ++breaks;
            ++breakBytes;
            if (i + 1 < text_.size() && text_[i + 1] == '\n') {
                ++breakBytes;
                ++i;
            }
        } else if (text_[i] == '\n') {
            ++breaks;
            ++breakBytes;
        }
    }
    const size_t size = text_.size() - breakBytes + breaks * size_t(lineEnd.GetLength());
    if (size > size_t(INT_MAX))
        return Fail(TEXTFILEERROR_TOO_LARGE, EFBIG,
                    Text("The text of '%s' is too large", path_.c_str()));
    std::string out;
    out.reserve(size);
    for (size_t i = 0; i < text_.size(); ++i) {
        const char c = text_[i];
        if (c == '\r' || c == '\n') {
            out += lineEnd.str();
            if (c == '\r' && i + 1 < text_.size() && text_[i + 1] == '\n') ++i;
        } else {
            out += c;
        }
    }
    text = CString(std::move(out));
    return true;
}

bool CKTTextFileRead::CloseFile() {
    std::string().swap(text_);
    open_ = false;
    return true;
}

// ============================================================================ CKTTextFileWrite

struct CKTTextFileWrite::Impl {
    int dirFd = -1;            // the target's folder
    int fd = -1;               // the temporary file
    std::string targetName;    // the target's name in its folder
    std::string tempName;      // the temporary file's name; empty while it has none
    Converter utf8, target;    // for the legacy code pages and UTF-16; none for UTF-8
    std::string carry;         // the start of a character whose rest is still to come
    size_t written = 0;        // text bytes accepted so far
    long long lines = 1;       // line of the next byte, for messages

    void Discard() {
        if (fd >= 0) ::close(fd);
        fd = -1;
        if (!tempName.empty()) unlinkat(dirFd, tempName.c_str(), 0);
        tempName.clear();
        if (dirFd >= 0) ::close(dirFd);
        dirFd = -1;
    }
};

CKTTextFileWrite::CKTTextFileWrite(const char* path, TEXTENCODING encoding, int codePage)
    : CKTTextFileBase(path), impl_(std::make_unique<Impl>()) {
    if (path_.IsEmpty()) {
        Fail(TEXTFILEERROR_INVALID_ARGUMENT, EINVAL, "No file name was given");
        return;
    }
    std::string_view bom;
    const char* converterName = nullptr;
    switch (encoding) {
    case TEXTENCODING_ANSI: {
        const int legacy = codePage ? codePage : GetSystemCodePage();
        const CodePageEntry* entry = FindCodePage(legacy);
        SetEncoding(encoding, legacy);
        if (!entry) {
            Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                 Text("Code page %d is not supported", legacy));
            return;
        }
        converterName = entry->converter;
        break;
    }
    case TEXTENCODING_UTF8:
        SetEncoding(encoding, kUtf8CodePage);
        break;
    case TEXTENCODING_UTF8_BOM:
        SetEncoding(encoding, kUtf8CodePage);
        bom = kUtf8Bom;
        break;
    case TEXTENCODING_UTF16LE:
        SetEncoding(encoding, kUtf16LECodePage);
        converterName = "UTF-16LE";
        bom = kUtf16LEBom;
        break;
    case TEXTENCODING_UTF16BE:
        SetEncoding(encoding, kUtf16BECodePage);
        converterName = "UTF-16BE";
        bom = kUtf16BEBom;
        break;
    default:
        Fail(TEXTFILEERROR_INVALID_ARGUMENT, EINVAL,
             Text("Encoding %d is not one of 0 to 4", int(encoding)));
        return;
    }
    if (converterName) {
        impl_->utf8 = OpenStrict("UTF-8");
        impl_->target = OpenStrict(converterName);
        if (!impl_->utf8 || !impl_->target) {
            Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                 Text("ICU has no converter \"%s\"", converterName));
            return;
        }
    }
    if (!OpenTemp()) return;
    open_ = true;
    WriteBytes(bom.data(), bom.size());
}

bool CKTTextFileWrite::OpenTemp() {
    // A symbolic link stays a link: the file it points to is the one replaced.
    std::string target = path_.str();
    struct stat info {};
    if (lstat(target.c_str(), &info) == 0 && S_ISLNK(info.st_mode)) {
        if (char* real = realpath(target.c_str(), nullptr)) {
            target = real;
            std::free(real);
        }
    }
    const size_t slash = target.rfind('/');
    const std::string folder =
        slash == std::string::npos ? "." : slash == 0 ? "/" : target.substr(0, slash);
    impl_->targetName = slash == std::string::npos ? target : target.substr(slash + 1);
    if (impl_->targetName.empty() || impl_->targetName == "." || impl_->targetName == "..")
        return Fail(TEXTFILEERROR_NOT_A_FILE, EISDIR,
                    Text("'%s' names a folder", path_.c_str()));

    impl_->dirFd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (impl_->dirFd < 0 && errno == EACCES)   // a folder that may be written but not listed
        impl_->dirFd = ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (impl_->dirFd < 0)
        return FailSystem(errno, TEXTFILEERROR_WRITE_FAILED, "has no usable folder");
    const char* name = impl_->targetName.c_str();
    if (fstatat(impl_->dirFd, name, &info, 0) == 0) {
        if (!S_ISREG(info.st_mode))
            return Abandon(TEXTFILEERROR_NOT_A_FILE, S_ISDIR(info.st_mode) ? EISDIR : EINVAL,
                           Text("'%s' is not a file", path_.c_str()));
        if (faccessat(impl_->dirFd, name, W_OK, AT_EACCESS) != 0)
            return AbandonSystem(errno, "cannot be written");
    } else if (errno != ENOENT) {
        return AbandonSystem(errno, "cannot be written");
    }

    // An unnamed temporary file vanishes by itself on any failure; it needs /proc to be given
    // a name later. File systems without them get a named file, removed on failure.
    if (g_allowUnnamedTemp.load() && access("/proc/self/fd", X_OK) == 0) {
        impl_->fd = openat(impl_->dirFd, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        if (impl_->fd < 0 && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
            return AbandonSystem(errno, "cannot be written");
    }
    for (int attempt = 0; impl_->fd < 0 && attempt < 100; ++attempt) {
        std::string temp = TempName(impl_->targetName);
        impl_->fd =
            openat(impl_->dirFd, temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (impl_->fd >= 0) {
            impl_->tempName = std::move(temp);
        } else if (errno != EEXIST) {
            return AbandonSystem(errno, "cannot be written");
        }
    }
    return impl_->fd >= 0 || AbandonSystem(EEXIST, "has no free temporary file name");
}

CKTTextFileWrite::~CKTTextFileWrite() {
    if (impl_) impl_->Discard();
}

bool CKTTextFileWrite::Abandon(TEXTFILEERROR error, int systemError, const CString& text) {
    Fail(error, systemError, text);
    impl_->Discard();
    open_ = false;
    return false;
}

bool CKTTextFileWrite::AbandonSystem(int systemError, const char* what) {
    FailSystem(systemError, TEXTFILEERROR_WRITE_FAILED, what);
    impl_->Discard();
    open_ = false;
    return false;
}

bool CKTTextFileWrite::WriteBytes(const char* data, size_t size) {
    while (size > 0) {
        const ssize_t n = Injected(TEXTFILEFAULT_WRITE)
                              ? -1
                              : ::write(impl_->fd, data, std::min(size, size_t(1) << 30));
        if (n < 0) {
            if (errno == EINTR) continue;
            return AbandonSystem(errno, "could not be written");
        }
        data += n;
        size -= size_t(n);
    }
    return true;
}

bool CKTTextFileWrite::Emit(const char* data, size_t size) {
    if (size == 0) return true;
    const auto* bytes = reinterpret_cast<const unsigned char*>(data);
    for (size_t i = 0; i < size;) {
        const size_t length = SequenceLength(bytes, i, size);
        if (length == 0)
            return Abandon(TEXTFILEERROR_INVALID_TEXT, EILSEQ,
                           Text("The text for '%s' is not UTF-8: byte 0x%02X at offset %zu",
                                path_.c_str(), unsigned(bytes[i]), impl_->written + i));
        i += length;
    }
    const std::string_view text(data, size);
    if (!impl_->target) {
        if (!WriteBytes(data, size)) return false;
    } else {
        std::string out;
        size_t consumed = 0;
        if (U_FAILURE(Convert(impl_->target.get(), impl_->utf8.get(), data, size, out, consumed))) {
            // The converter names the character it could not encode; the first place it occurs
            // is where the conversion stopped.
            UChar units[32];
            int8_t count = 32;
            UErrorCode status = U_ZERO_ERROR;
            ucnv_getInvalidUChars(impl_->target.get(), units, &count, &status);
            UChar32 c = 0xFFFD;
            if (U_SUCCESS(status) && count >= 1) {
                c = units[0];
                if (count >= 2 && U16_IS_LEAD(units[0]) && U16_IS_TRAIL(units[1]))
                    c = U16_GET_SUPPLEMENTARY(units[0], units[1]);
            }
            const std::string character = CodePointToUtf8(c);
            const size_t at = std::min(text.find(character), size);
            return Abandon(TEXTFILEERROR_UNREPRESENTABLE, EILSEQ,
                           Text("The character U+%04X '%s' on line %lld has no code in code "
                                "page %d",
                                unsigned(c), character.c_str(),
                                impl_->lines + LineOf(text, at) - 1, GetCodePage()));
        }
        if (!WriteBytes(out.data(), out.size())) return false;
    }
    impl_->lines += std::count(text.begin(), text.end(), '\n');
    impl_->written += size;
    return true;
}

bool CKTTextFileWrite::Write(const char* utf8Text) {
    if (!open_)
        return Fail(TEXTFILEERROR_NOT_OPEN, EBADF,
                    Text("'%s' is not open for writing", path_.c_str()));
    if (!utf8Text) return true;
    std::string_view in(utf8Text);
    std::string& carry = impl_->carry;
    if (!carry.empty()) {
        const auto lead = (unsigned char)carry[0];
        const size_t expected = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        while (carry.size() < expected && !in.empty() && ((unsigned char)in[0] & 0xC0) == 0x80) {
            carry += in[0];
            in.remove_prefix(1);
        }
        if (carry.size() < expected && in.empty()) return true;   // the rest comes later
        std::string whole;
        whole.swap(carry);
        if (!Emit(whole.data(), whole.size())) return false;
    }
    const size_t complete = CompletePrefix(in);
    if (!Emit(in.data(), complete)) return false;
    carry.assign(in.substr(complete));
    return true;
}

bool CKTTextFileWrite::Close() {
    if (committed_) return true;
    if (!open_) return false;
    Impl& d = *impl_;
    if (!d.carry.empty())
        return Abandon(TEXTFILEERROR_INVALID_TEXT, EILSEQ,
                       Text("The text for '%s' ends inside a UTF-8 character", path_.c_str()));
    if (Injected(TEXTFILEFAULT_SYNC) || fsync(d.fd) != 0)
        return AbandonSystem(errno, "could not be synced to disk");

    // The new file takes the old one's permissions, or those of a newly created file.
    struct stat old {}, mine {};
    if (fstatat(d.dirFd, d.targetName.c_str(), &old, 0) == 0 && S_ISREG(old.st_mode)) {
        if (fstat(d.fd, &mine) == 0 && (mine.st_uid != old.st_uid || mine.st_gid != old.st_gid) &&
            fchown(d.fd, old.st_uid, old.st_gid) != 0) {
            // Only the owner's own groups or root may hand a file over; the saver keeps it.
        }
        fchmod(d.fd, old.st_mode & 07777);
    } else {
        fchmod(d.fd, 0666 & ~CurrentUmask());
    }

    for (int attempt = 0; d.tempName.empty() && attempt < 100; ++attempt) {
        std::string temp = TempName(d.targetName);
        char self[64];
        std::snprintf(self, sizeof self, "/proc/self/fd/%d", d.fd);
        if (!Injected(TEXTFILEFAULT_LINK) &&
            linkat(AT_FDCWD, self, d.dirFd, temp.c_str(), AT_SYMLINK_FOLLOW) == 0)
            d.tempName = std::move(temp);
        else if (errno != EEXIST)
            return AbandonSystem(errno, "could not be saved: its temporary file got no name");
    }
    if (d.tempName.empty())
        return AbandonSystem(EEXIST, "could not be saved: its temporary file got no name");
    const int fd = d.fd;
    d.fd = -1;
    if (::close(fd) != 0) return AbandonSystem(errno, "could not be written");
    if (Injected(TEXTFILEFAULT_RENAME) ||
        renameat(d.dirFd, d.tempName.c_str(), d.dirFd, d.targetName.c_str()) != 0)
        return AbandonSystem(errno, "could not be replaced");
    d.tempName.clear();
    fsync(d.dirFd);   // makes the rename durable; a folder opened for path use only cannot
    d.Discard();
    open_ = false;
    committed_ = true;
    return true;
}

bool CKTTextFileWrite::CloseFile() { return Close(); }

// ============================================================================ test support

void CKTTextFileFaults::Set(TEXTFILEFAULT step, int nth, int systemError) {
    g_faults[step].error = systemError;
    g_faults[step].countdown = nth;
}

void CKTTextFileFaults::AllowUnnamedTemp(bool allow) { g_allowUnnamedTemp = allow; }

void CKTTextFileFaults::Reset() {
    for (Fault& fault : g_faults) fault.countdown = 0;
    g_allowUnnamedTemp = true;
}
