#include "CKTTextFile.h"
#include "Utf8.h"

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

#include "Files.h"
#include "LibraryOnly.h"
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
    std::atomic<bool> crash{false};
};
Fault g_faults[TEXTFILEFAULT_COUNT];
std::atomic<bool> g_allowUnnamedTemp{true};

bool Injected(TEXTFILEFAULT step) {
    Fault& fault = g_faults[step];
    if (fault.countdown.load() <= 0 || fault.countdown.fetch_sub(1) != 1) return false;
    if (fault.crash.load()) KillCurrentProcess();
    errno = fault.error.load();
    return true;
}

// ---- UTF-8

// The length of the well-formed UTF-8 sequence at `s[i]`, or 0 when it is ill-formed or cut
// off by the end. Overlong forms, surrogates and values above U+10FFFF are ill-formed.
size_t SequenceLength(const unsigned char* s, size_t i, size_t n) { return Utf8SequenceLength(s, i, n); }

// Skips the ASCII bytes from `i`, eight at a time where it can.
size_t SkipAscii(const unsigned char* s, size_t i, size_t n) {
    while (i + 8 <= n) {
        uint64_t word;
        std::memcpy(&word, s + i, 8);
        if (word & 0x8080808080808080ull) break;
        i += 8;
    }
    while (i < n && s[i] < 0x80) ++i;
    return i;
}

struct Utf8Scan {
    size_t multiByte = 0;   // well-formed sequences of two or more bytes
    size_t invalid = 0;     // bytes that start no well-formed sequence

    void Add(std::string_view piece) {
        const auto* s = reinterpret_cast<const unsigned char*>(piece.data());
        const size_t n = piece.size();
        for (size_t i = SkipAscii(s, 0, n); i < n; i = SkipAscii(s, i, n)) {
            const size_t length = SequenceLength(s, i, n);
            if (length == 0) {
                ++invalid;
                ++i;
            } else {
                ++multiByte;
                i += length;
            }
        }
    }
};

// The offset of the first byte that starts no well-formed UTF-8 sequence, or npos.
size_t FirstInvalidUtf8(std::string_view piece) {
    const auto* s = reinterpret_cast<const unsigned char*>(piece.data());
    const size_t n = piece.size();
    for (size_t i = SkipAscii(s, 0, n); i < n; i = SkipAscii(s, i, n)) {
        const size_t length = SequenceLength(s, i, n);
        if (length == 0) return i;
        i += length;
    }
    return std::string::npos;
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

// Converts whole characters from `from` to `to` and appends them to `out`. The result is
// U_ZERO_ERROR or the error that stopped the conversion; `consumed` is how far into the source
// it got.
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

// Decodes a text given in pieces from an ICU converter's encoding into UTF-8; a character may
// be split across pieces: the converter keeps the bytes of a split character (a split
// surrogate pair included) until the rest arrives.
//
// In the legacy code pages every byte below 0x80 that does not end a double-byte character is
// one character below U+0080 (mostly itself), and SQL text is mostly ASCII: runs of such bytes
// are copied byte for byte, and only the stretches around other bytes go through ICU,
// converted in chunks of a fixed size straight into the output. A byte just after a non-ASCII
// byte may be its trail byte, so it goes to ICU with it; a run ends a stretch only when it is
// long enough to pay for a call.
class Decoder {
public:
    explicit Decoder(const char* converterName) : from_(OpenStrict(converterName)) {
        asciiRuns_ = from_ && MapAsciiBytes();
    }
    bool Ready() const { return from_ != nullptr; }

    // Hands the UTF-8 of `piece` to `emit(std::string_view)`, in order, in as many parts as it
    // comes: runs of ASCII straight from `piece` where they are their own characters. On
    // failure `badOffset` is the offset in `piece` of the first sequence that is not valid in
    // the encoding.
    template <typename Emit>
    DecodeResult Feed(std::string_view piece, bool last, Emit&& emit, size_t& badOffset) {
        const auto* s = reinterpret_cast<const unsigned char*>(piece.data());
        const size_t n = piece.size();
        size_t i = 0;
        while (i < n) {
            if (asciiRuns_ && !Pending()) {
                const size_t ascii = SkipAscii(s, i, n);
                EmitAscii(s + i, ascii - i, emit);
                i = ascii;
                if (i == n) break;
            }
            const size_t end = asciiRuns_ ? StretchEnd(s, i, n) : n;
            const DecodeResult result = Convert(piece, i, end, false, emit, badOffset);
            if (result != DecodeResult::Ok) return result;
            i = end;
        }
        if (!last) return DecodeResult::Ok;
        const DecodeResult result = Convert(piece, n, n, true, emit, badOffset);
        if (result != DecodeResult::Ok || heldLead_ == 0) return result;
        badOffset = n;   // an unpaired lead surrogate at the very end
        return DecodeResult::Invalid;
    }

private:
    static constexpr size_t kMinAsciiRun = 32;
    static constexpr size_t kUnits = size_t(16) << 10;

    // Whether the converter holds the first bytes of a character.
    bool Pending() const {
        UErrorCode status = U_ZERO_ERROR;
        return ucnv_toUCountPending(from_.get(), &status) != 0;
    }

    // Whether each byte below 0x80 on its own decodes to one character below U+0080, kept in
    // ascii_. That is the character itself in most code pages; 932 swaps three control codes.
    bool MapAsciiBytes() {
        char bytes[128];
        UChar units[256];
        for (int b = 0; b < 128; ++b) bytes[b] = char(b);
        UErrorCode status = U_ZERO_ERROR;
        const int32_t count = ucnv_toUChars(from_.get(), units, 256, bytes, 128, &status);
        ucnv_resetToUnicode(from_.get());
        if (U_FAILURE(status) || count != 128) return false;
        for (int b = 0; b < 128; ++b) {
            if (units[b] >= 0x80) return false;
            ascii_[b] = char(units[b]);
            if (units[b] != UChar(b)) asciiChanged_.push_back((unsigned char)b);
        }
        return true;
    }

    // The characters of bytes below 0x80: the bytes themselves, or, for the rare run that
    // holds a byte that is not its own character, a copy mapped byte by byte.
    template <typename Emit>
    void EmitAscii(const unsigned char* bytes, size_t size, Emit& emit) {
        const std::string_view run(reinterpret_cast<const char*>(bytes), size);
        const bool changed = std::any_of(asciiChanged_.begin(), asciiChanged_.end(), [&](unsigned char b) {
            return std::memchr(bytes, b, size) != nullptr;
        });
        if (!changed) {
            emit(run);
            return;
        }
        utf8_.assign(run);
        for (char& c : utf8_) c = ascii_[(unsigned char)c];
        emit(std::string_view(utf8_));
    }

    // The end of the stretch that starts at the non-ASCII byte (or pending character) at `i`:
    // its non-ASCII bytes, each followed by the byte after them, up to the first ASCII run of
    // kMinAsciiRun bytes or the end of the piece.
    static size_t StretchEnd(const unsigned char* s, size_t i, size_t n) {
        for (;;) {
            while (i < n && s[i] >= 0x80) ++i;
            if (i < n) ++i;   // a possible trail byte
            const size_t ascii = SkipAscii(s, i, n);
            if (ascii == n || ascii - i >= kMinAsciiRun) return i;
            i = ascii;
        }
    }

    // Converts piece[from, to) through ICU and emits it as UTF-8.
    template <typename Emit>
    DecodeResult Convert(std::string_view piece, size_t from, size_t to, bool flush, Emit& emit,
                         size_t& badOffset) {
        const char* source = piece.data() + from;
        const char* sourceEnd = piece.data() + to;
        UChar units[kUnits];
        UErrorCode status;
        do {
            UChar* target = units;
            status = U_ZERO_ERROR;
            ucnv_toUnicode(from_.get(), &target, units + kUnits, &source, sourceEnd, nullptr,
                           flush, &status);
            if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
                char invalid[32];
                int8_t invalidLength = sizeof invalid;
                UErrorCode invalidStatus = U_ZERO_ERROR;
                ucnv_getInvalidChars(from_.get(), invalid, &invalidLength, &invalidStatus);
                if (U_FAILURE(invalidStatus)) invalidLength = 0;
                const size_t consumed = size_t(source - piece.data());
                // A character that began in an earlier piece has the offset 0 here.
                badOffset = consumed - std::min(consumed, size_t(invalidLength));
                return status == U_TRUNCATED_CHAR_FOUND ? DecodeResult::Truncated
                                                        : DecodeResult::Invalid;
            }
            if (!ToUtf8(units, size_t(target - units))) {
                badOffset = 0;
                return DecodeResult::Invalid;
            }
            if (!utf8_.empty()) emit(std::string_view(utf8_));
        } while (status == U_BUFFER_OVERFLOW_ERROR);
        return DecodeResult::Ok;
    }

    // The UTF-8 of `units` into utf8_; a surrogate pair split between two chunks is held back
    // for the next one.
    bool ToUtf8(const UChar* units, size_t count) {
        UChar joined[kUnits + 1];
        if (heldLead_) {
            joined[0] = heldLead_;
            std::copy(units, units + count, joined + 1);
            units = joined;
            ++count;
            heldLead_ = 0;
        }
        if (count > 0 && U16_IS_LEAD(units[count - 1])) heldLead_ = units[--count];
        utf8_.resize(count * 3);
        int32_t length = 0;
        UErrorCode status = U_ZERO_ERROR;
        u_strToUTF8(utf8_.data(), int32_t(utf8_.size()), &length, units, int32_t(count), &status);
        utf8_.resize(U_SUCCESS(status) ? size_t(length) : 0);
        return U_SUCCESS(status);
    }

    Converter from_;
    bool asciiRuns_ = false;       // runs of bytes below 0x80 bypass ICU
    char ascii_[128] = {};         // the character of each of those bytes
    std::vector<unsigned char> asciiChanged_;   // the bytes that are not their own character
    std::string utf8_;             // the part being emitted when it is not in the piece
    UChar heldLead_ = 0;
};

// ---- reading in pieces

unsigned ByteAt(int fd, size_t offset) {
    char byte = 0;
    return ReadAt(fd, &byte, 1, offset) == 1 ? unsigned((unsigned char)byte) : 0;
}

// Hands the file from `skip` to the end to `consume(piece, last)` in pieces of a few MiB; the
// last call has `last` set and may be empty. Unless `raw`, a UTF-8 sequence cut at the end of
// a piece is held back for the next one. Reads to the end rather than trusting the size, which
// may change or be 0 for /proc files. False when `consume` returns false or a read fails.
template <typename Consume>
bool ScanFile(int fd, Consume&& consume, size_t skip = 0, bool raw = false) {
    // Pieces of 4 MiB, or less for a smaller file; the size only guides, the end is where
    // reading stops.
    FileStatus info;
    const size_t kPiece = std::clamp<size_t>(
        StatusOf(fd, info) && info.size > 0 ? size_t(info.size) + 1 : 0,
        size_t(64) << 10, size_t(4) << 20);
    std::unique_ptr<char[]> buffer(new char[kPiece + 4]);
    size_t carried = 0, offset = skip;
    for (;;) {
        const size_t n = ReadAt(fd, buffer.get() + carried, kPiece, offset);
        if (n == size_t(-1)) return false;
        offset += n;
        const size_t size = carried + n;
        const bool last = n == 0;
        const size_t whole =
            raw || last ? size : CompletePrefix(std::string_view(buffer.get(), size));
        if (!consume(std::string_view(buffer.get(), whole), last)) return false;
        if (last) return true;
        carried = size - whole;
        std::memmove(buffer.get(), buffer.get() + whole, carried);
    }
}

bool DecodesCleanly(int codePage, int fd) {
    const CodePageEntry* entry = FindCodePage(codePage);
    if (!entry) return false;
    Decoder decoder(entry->converter);
    size_t bad = 0;
    return decoder.Ready() && ScanFile(fd, [&](std::string_view piece, bool last) {
        return decoder.Feed(piece, last, [](std::string_view) {}, bad) == DecodeResult::Ok;
    }, 0, true);
}

// A supported code page other than `failed` in which all the bytes decode: first those the
// charset detector proposes (from the first MiB), best match first, then the rest in table order.
int SuggestCodePage(int fd, int failed) {
    std::vector<int> candidates;
    std::string head(size_t(1) << 20, '\0');
    const size_t headSize = ReadAt(fd, head.data(), head.size(), 0);
    head.resize(headSize == size_t(-1) ? 0 : headSize);
    UErrorCode status = U_ZERO_ERROR;
    UCharsetDetector* detector = ucsdet_open(&status);
    if (U_SUCCESS(status)) {
        ucsdet_setText(detector, head.data(), int32_t(head.size()), &status);
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
        if (codePage != failed && DecodesCleanly(codePage, fd)) return codePage;
    return 0;
}

// ---- system calls

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

// A temporary file's name: the target's name (up to 200 bytes, as a file name may have 255)
// between a dot and eight hex digits and ".tmp".
constexpr size_t kTempNameStem = 200;

std::string TempName(const std::string& targetName) {
    static std::atomic<unsigned> counter{0};
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    const unsigned long long mix =
        (unsigned long long)now * 0x9E3779B97F4A7C15ull ^ ((unsigned long long)GetCurrentProcessId() << 20) ^
        counter.fetch_add(1);
    char suffix[32];
    std::snprintf(suffix, sizeof suffix, ".%08llx.tmp", mix & 0xFFFFFFFFull);
    std::string name(".");
    name.append(targetName, 0, kTempNameStem);
    name += suffix;
    return name;
}

bool IsTempName(std::string_view name, const std::string& targetName) {
    const std::string_view stem = std::string_view(targetName).substr(0, kTempNameStem);
    if (name.size() != 1 + stem.size() + 13 || name[0] != '.' || name.substr(1, stem.size()) != stem)
        return false;
    const std::string_view suffix = name.substr(1 + stem.size());
    if (suffix[0] != '.' || suffix.substr(9) != ".tmp") return false;
    return std::all_of(suffix.begin() + 1, suffix.begin() + 9,
                       [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

// The folder and the name of the file that saving `path` replaces: a symbolic link stays a
// link, and the file it points to is the one replaced.
std::pair<std::string, std::string> SaveTarget(const std::string& path) {
    const std::string target = ResolveLink(path);
    const size_t slash = target.rfind('/');
    if (slash == std::string::npos) return {".", target};
    return {slash == 0 ? "/" : target.substr(0, slash), target.substr(slash + 1)};
}

// Removes the temporary files that saves of `targetName` left behind when they were killed.
// A save holds a lock on its temporary file while it runs, so a file that can be locked here
// belongs to no running save.
void RemoveStaleTemps(int dirFd, const std::string& targetName) {
    // A folder that cannot be listed keeps what it has.
    for (const std::string& name : NamesIn(dirFd)) {
        if (!IsTempName(name, targetName)) continue;
        const int fd = OpenExistingAt(dirFd, name.c_str());
        if (fd < 0) continue;
        FileStatus info;
        if (StatusOf(fd, info) && info.regular && TryLockExclusive(fd)) RemoveFileAt(dirFd, name.c_str());
        CloseDescriptor(fd);
    }
}

void RemoveStaleTemps(const std::string& path) {
    const auto [folder, name] = SaveTarget(path);
    const int dirFd = OpenFolder(folder.c_str());
    if (dirFd < 0) return;
    RemoveStaleTemps(dirFd, name);
    CloseDescriptor(dirFd);
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

// Line ends of the decoded text, counted as it goes by in pieces; a CR at the end of one piece
// pairs with an LF at the start of the next.
struct CKTTextFileRead::Counts {
    size_t textBytes = 0, crLfs = 0, crs = 0, lfs = 0;
    bool pendingCr = false;
    bool sawNul = false;

    void Add(std::string_view text) {
        textBytes += text.size();
        sawNul = sawNul || std::memchr(text.data(), '\0', text.size()) != nullptr;
        size_t from = 0;
        if (pendingCr && !text.empty()) {
            if (text[0] == '\n') {
                ++crLfs;
                from = 1;
            } else {
                ++crs;
            }
            pendingCr = false;
        }
        const std::string_view rest = text.substr(from);
        lfs += size_t(std::count(rest.begin(), rest.end(), '\n'));
        for (const char* cr = Find(rest, '\r', 0); cr; cr = Find(rest, '\r', cr - rest.data() + 1)) {
            const size_t at = size_t(cr - rest.data());
            if (at + 1 == rest.size()) {
                pendingCr = true;
            } else if (rest[at + 1] == '\n') {
                ++crLfs;
                --lfs;
            } else {
                ++crs;
            }
        }
    }
    void Finish() {
        if (pendingCr) ++crs;
        pendingCr = false;
    }
    static const char* Find(std::string_view text, char c, size_t from) {
        if (from >= text.size()) return nullptr;
        return static_cast<const char*>(std::memchr(text.data() + from, c, text.size() - from));
    }
};

CKTTextFileRead::CKTTextFileRead(const char* path, bool detect, bool /*reserved*/, int codePage)
    : CKTTextFileBase(path) {
    Load(detect, -1, codePage);
}

CKTTextFileRead::CKTTextFileRead(const char* path, TEXTENCODING encoding, int codePage)
    : CKTTextFileBase(path) {
    Load(true, int(encoding), codePage);
}

CKTTextFileRead::~CKTTextFileRead() { CloseFile(); }

void CKTTextFileRead::Load(bool detect, int encoding, int codePage) {
    if (path_.IsEmpty()) {
        Fail(TEXTFILEERROR_INVALID_ARGUMENT, EINVAL, "No file name was given");
        return;
    }
    // Non-blocking, so that a FIFO fails as "not a file" instead of waiting for a writer.
    fd_ = OpenForReading(path_.c_str());
    if (fd_ < 0) {
        FailSystem(errno, TEXTFILEERROR_READ_FAILED, "cannot be opened");
        return;
    }
    FileStatus info;
    if (!StatusOf(fd_, info) || !info.regular) {
        Fail(TEXTFILEERROR_NOT_A_FILE, info.directory ? EISDIR : EINVAL,
             Text("'%s' is not a file", path_.c_str()));
        CloseFile();
        return;
    }
    RemoveStaleTemps(path_.str());

    char head[4] = {};
    const size_t headSize = ReadAt(fd_, head, sizeof head, 0);
    const std::string_view bytes(head, headSize == size_t(-1) ? 0 : headSize);
    const int legacy = codePage ? codePage : GetSystemCodePage();
    bool ok;
    if (encoding >= TEXTENCODING_ANSI && encoding <= TEXTENCODING_UTF16BE) {
        switch (TEXTENCODING(encoding)) {
        case TEXTENCODING_ANSI:
            ok = Check(TEXTENCODING_ANSI, legacy, 0);
            break;
        case TEXTENCODING_UTF8:
        case TEXTENCODING_UTF8_BOM:
            ok = StartsWith(bytes, kUtf8Bom) ? Check(TEXTENCODING_UTF8_BOM, 0, 3)
                                             : Check(TEXTENCODING_UTF8, 0, 0);
            break;
        case TEXTENCODING_UTF16LE:
            ok = Check(TEXTENCODING_UTF16LE, 0, StartsWith(bytes, kUtf16LEBom) ? 2 : 0);
            break;
        default:
            ok = Check(TEXTENCODING_UTF16BE, 0, StartsWith(bytes, kUtf16BEBom) ? 2 : 0);
            break;
        }
    } else if (StartsWith(bytes, kUtf32LEBom) || StartsWith(bytes, kUtf32BEBom)) {
        ok = Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                  Text("'%s' is in UTF-32, which cannot be read", path_.c_str()));
    } else if (StartsWith(bytes, kUtf8Bom)) {
        ok = Check(TEXTENCODING_UTF8_BOM, 0, 3);
    } else if (StartsWith(bytes, kUtf16LEBom)) {
        ok = Check(TEXTENCODING_UTF16LE, 0, 2);
    } else if (StartsWith(bytes, kUtf16BEBom)) {
        ok = Check(TEXTENCODING_UTF16BE, 0, 2);
    } else {
        // One pass finds whether the file is UTF-8 and counts its line ends; only a file that
        // is not, and does not look like damaged UTF-8, is read in the legacy code page. A
        // legacy file mostly shows in its first piece already: its check in the code page then
        // runs in the same pass, and only a file that shows later is checked again.
        Utf8Scan scan;
        Counts counts, legacyCounts;
        const CodePageEntry* entry = detect ? FindCodePage(legacy) : nullptr;
        std::unique_ptr<Decoder> decoder;
        bool first = true, decodes = false;
        ok = ScanFile(fd_, [&](std::string_view piece, bool last) {
            scan.Add(piece);
            counts.Add(piece);
            if (first && entry && scan.invalid > 0) {
                decoder = std::make_unique<Decoder>(entry->converter);
                decodes = decoder->Ready();
            }
            first = false;
            size_t bad = 0;
            if (decodes)
                decodes = decoder->Feed(piece, last, [&](std::string_view part) { legacyCounts.Add(part); },
                                        bad) == DecodeResult::Ok;
            return true;
        });
        if (!ok) {
            FailSystem(errno, TEXTFILEERROR_READ_FAILED, "cannot be read");
        } else if (counts.sawNul) {
            ok = Fail(TEXTFILEERROR_BINARY, EILSEQ,
                      Text("'%s' holds a NUL byte and is not a text file", path_.c_str()));
        } else if (scan.invalid == 0) {
            counts.Finish();
            SetEncoding(TEXTENCODING_UTF8, kUtf8CodePage);
            ok = Adopt(counts, 0);
        } else if (!detect || LooksLikeBrokenUtf8(scan)) {
            ok = Check(TEXTENCODING_UTF8, 0, 0);   // fails, naming the first broken sequence
        } else if (decodes) {
            legacyCounts.Finish();
            SetEncoding(TEXTENCODING_ANSI, legacy);
            ok = Adopt(legacyCounts, 0);
        } else {
            ok = Check(TEXTENCODING_ANSI, legacy, 0);
        }
    }
    open_ = ok;
    if (!ok) CloseFile();
}

bool CKTTextFileRead::Check(TEXTENCODING encoding, int codePage, size_t skip) {
    Counts counts;
    return Decode(encoding, codePage, skip, nullptr, counts) && Adopt(counts, skip);
}

bool CKTTextFileRead::Adopt(const Counts& counts, size_t skip) {
    if (counts.sawNul)
        return Fail(TEXTFILEERROR_BINARY, EILSEQ,
                    Text("'%s' holds a NUL character and is not a text file", path_.c_str()));
    skip_ = skip;
    textBytes_ = counts.textBytes;
    crLfs_ = counts.crLfs;
    crs_ = counts.crs;
    lfs_ = counts.lfs;
    return true;
}

// Decodes the file from `skip` into UTF-8 pieces for `sink`, counting as it goes; without a
// sink it only checks and counts. Fails, with
// the error recorded, at the first byte sequence that does not decode.
bool CKTTextFileRead::Decode(TEXTENCODING encoding, int codePage, size_t skip,
                             const std::function<bool(std::string_view)>& sink, Counts& counts) {
    const char* converterName = nullptr;
    switch (encoding) {
    case TEXTENCODING_ANSI: {
        SetEncoding(TEXTENCODING_ANSI, codePage);
        const CodePageEntry* entry = FindCodePage(codePage);
        if (!entry)
            return Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                        Text("Code page %d is not supported", codePage));
        converterName = entry->converter;
        break;
    }
    case TEXTENCODING_UTF16LE:
        SetEncoding(encoding, kUtf16LECodePage);
        converterName = "UTF-16LE";
        break;
    case TEXTENCODING_UTF16BE:
        SetEncoding(encoding, kUtf16BECodePage);
        converterName = "UTF-16BE";
        break;
    default:
        SetEncoding(encoding, kUtf8CodePage);
        break;
    }
    bool stopped = false;
    auto deliver = [&](std::string_view text) {
        counts.Add(text);
        if (sink && !text.empty() && !sink(text)) stopped = true;
        return !stopped;
    };
    bool ok;
    size_t bad = 0;
    DecodeResult result = DecodeResult::Ok;
    if (!converterName) {
        // UTF-8 passes through as it is, once every sequence is known to be whole.
        ok = ScanFile(fd_, [&](std::string_view piece, bool) {
            const size_t invalid = FirstInvalidUtf8(piece);
            if (invalid != std::string::npos) {
                bad = skip + counts.textBytes + invalid;
                result = DecodeResult::Invalid;
                return false;
            }
            return deliver(piece);
        }, skip);
    } else {
        Decoder decoder(converterName);
        if (!decoder.Ready())
            return Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                        Text("ICU has no converter \"%s\"", converterName));
        size_t offset = skip;
        ok = ScanFile(fd_, [&](std::string_view piece, bool last) {
            size_t at = 0;
            result = decoder.Feed(piece, last, [&](std::string_view part) {
                if (!stopped) deliver(part);
            }, at);
            if (result != DecodeResult::Ok) {
                bad = offset + at;
                return false;
            }
            offset += piece.size();
            return !stopped;
        }, skip, true);
    }
    counts.Finish();
    if (stopped) return false;
    if (result == DecodeResult::Ok && !ok)
        return FailSystem(errno, TEXTFILEERROR_READ_FAILED, "cannot be read");
    if (result == DecodeResult::Ok) return true;
    if (encoding == TEXTENCODING_ANSI) {
        suggestedCodePage_ = SuggestCodePage(fd_, codePage);
        CString text = Text("'%s' is not valid in code page %d: byte 0x%02X at offset %zu (line %d)",
                            path_.c_str(), codePage, ByteAt(fd_, bad), bad, LineAt(bad));
        if (suggestedCodePage_)
            text.AppendFormat("; it can be read as code page %d", suggestedCodePage_);
        return Fail(TEXTFILEERROR_UNDECODABLE, EILSEQ, text);
    }
    if (!converterName)
        return Fail(TEXTFILEERROR_UNDECODABLE, EILSEQ,
                    Text("'%s' is not valid UTF-8: byte 0x%02X at offset %zu (line %d)",
                         path_.c_str(), ByteAt(fd_, bad), bad, LineAt(bad)));
    return Fail(TEXTFILEERROR_UNDECODABLE, EILSEQ,
                Text("'%s' is not valid UTF-16%s: %s at offset %zu", path_.c_str(),
                     encoding == TEXTENCODING_UTF16LE ? "LE" : "BE",
                     result == DecodeResult::Truncated ? "the file ends inside a character"
                                                       : "an unpaired surrogate",
                     bad));
}

int CKTTextFileRead::LineAt(size_t offset) {
    int line = 1;
    size_t seen = 0;
    ScanFile(fd_, [&](std::string_view piece, bool) {
        const std::string_view part = piece.substr(0, std::min(piece.size(), offset - seen));
        line += int(std::count(part.begin(), part.end(), '\n'));
        seen += part.size();
        return seen < offset;
    });
    return line;
}

size_t CKTTextFileRead::GetTextLength(size_t lineEndLength) const {
    const size_t breaks = crLfs_ + crs_ + lfs_;
    return textBytes_ - 2 * crLfs_ - crs_ - lfs_ + breaks * lineEndLength;
}

bool CKTTextFileRead::ReadPieces(const CString& lineEnd,
                                 const std::function<bool(const char*, size_t)>& sink) {
    if (!open_)
        return Fail(TEXTFILEERROR_NOT_OPEN, EBADF,
                    Text("'%s' is not open for reading", path_.c_str()));
    const std::string_view eol = lineEnd.view();
    // A text whose line ends are all `eol` already goes to the sink as it is decoded.
    const bool asIs = (eol == "\n" && crLfs_ + crs_ == 0) || (eol == "\r\n" && crs_ + lfs_ == 0) ||
                      (eol == "\r" && crLfs_ + lfs_ == 0);
    // Texts come from the decoding in pieces of a few MiB, or, from a legacy code page, in many
    // small parts; they are gathered into pieces of about kPiece bytes for the sink, except a
    // large text that needs no change, which goes as it is.
    constexpr size_t kPiece = size_t(4) << 20;
    std::string out;
    bool pendingCr = false;
    auto flush = [&] {
        const bool ok = out.empty() || sink(out.data(), out.size());
        out.clear();
        return ok;
    };
    auto convert = [&](std::string_view text) {
        if (asIs && out.empty() && text.size() >= kPiece / 4) return sink(text.data(), text.size());
        out.reserve(out.size() + text.size() + text.size() / 8 + 16);
        if (asIs) {
            out += text;
            return out.size() < kPiece || flush();
        }
        size_t i = 0;
        if (pendingCr) {
            out += eol;
            if (!text.empty() && text[0] == '\n') i = 1;
            pendingCr = false;
        }
        // The next CR and LF are remembered, so each byte value is searched once per text.
        const char* cr = Counts::Find(text, '\r', i);
        const char* lf = Counts::Find(text, '\n', i);
        while (i < text.size()) {
            if (cr && cr < text.data() + i) cr = Counts::Find(text, '\r', i);
            if (lf && lf < text.data() + i) lf = Counts::Find(text, '\n', i);
            const char* end = !cr ? lf : !lf ? cr : std::min(cr, lf);
            if (!end) {
                out.append(text.data() + i, text.size() - i);
                break;
            }
            const size_t at = size_t(end - text.data());
            out.append(text.data() + i, at - i);
            i = at + 1;
            if (*end == '\r') {
                if (i == text.size()) {
                    pendingCr = true;   // its LF, if any, starts the next text
                    break;
                }
                if (text[i] == '\n') ++i;
            }
            out += eol;
        }
        return out.size() < kPiece || flush();
    };
    Counts counts;
    if (!Decode(GetEncoding(), GetCodePage(), skip_, convert, counts)) {
        if (GetError() == TEXTFILEERROR_NONE) Fail(TEXTFILEERROR_READ_FAILED, ECANCELED,
                                                   Text("Reading '%s' was stopped", path_.c_str()));
        return false;
    }
    if (pendingCr) out += eol;
    if (!flush()) return false;
    if (counts.textBytes != textBytes_ || counts.crLfs != crLfs_ || counts.crs != crs_ ||
        counts.lfs != lfs_ || counts.sawNul)
        return Fail(TEXTFILEERROR_READ_FAILED, ESTALE,
                    Text("'%s' changed while it was being read", path_.c_str()));
    return true;
}

bool CKTTextFileRead::Read(CString& text, const CString& lineEnd) {
    if (!open_)
        return Fail(TEXTFILEERROR_NOT_OPEN, EBADF,
                    Text("'%s' is not open for reading", path_.c_str()));
    const size_t size = GetTextLength(size_t(lineEnd.GetLength()));
    if (size > size_t(INT_MAX))
        return Fail(TEXTFILEERROR_TOO_LARGE, EFBIG,
                    Text("The text of '%s' is too large: %zu MiB, more than the 2 GiB a text "
                         "may have", path_.c_str(), size >> 20));
    std::string out;
    try {
        out.reserve(size);
    } catch (const std::bad_alloc&) {
        return Fail(TEXTFILEERROR_TOO_LARGE, ENOMEM,
                    Text("The text of '%s' needs %zu MiB of memory, more than is free",
                         path_.c_str(), size >> 20));
    }
    if (!ReadPieces(lineEnd, [&](const char* piece, size_t n) {
            out.append(piece, n);
            return true;
        }))
        return false;
    text = CString(std::move(out));
    return true;
}

const char* CKTTextFileRead::GetLineEnd() const {
    if (lfs_ > crLfs_ && lfs_ >= crs_) return "\n";
    if (crs_ > crLfs_ && crs_ > lfs_) return "\r";
    return "\r\n";
}

bool CKTTextFileRead::CloseFile() {
    if (fd_ >= 0) CloseDescriptor(fd_);
    fd_ = -1;
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
        if (fd >= 0) CloseDescriptor(fd);
        fd = -1;
        if (!tempName.empty()) RemoveFileAt(dirFd, tempName.c_str());
        tempName.clear();
        if (dirFd >= 0) CloseDescriptor(dirFd);
        dirFd = -1;
    }
};

CKTTextFileWrite::CKTTextFileWrite(const char* path, TEXTENCODING encoding, int codePage)
    : CKTTextFileBase(path), impl_(std::make_unique<Impl>()) {
    if (path_.IsEmpty()) {
        Fail(TEXTFILEERROR_INVALID_ARGUMENT, EINVAL, "No file name was given");
        return;
    }
    int value = int(encoding);
    if (value < TEXTENCODING_ANSI || value > TEXTENCODING_UTF16BE) {
        // The file on disk decides, and a legacy file keeps its own code page.
        CKTTextFileRead existing(path, true, true, codePage);
        value = existing.IsOpen() ? int(existing.GetEncoding()) : int(TEXTENCODING_UTF8);
        if (existing.IsOpen()) codePage = existing.GetCodePage();
    }
    std::string_view bom;
    const char* converterName = nullptr;
    switch (TEXTENCODING(value)) {
    case TEXTENCODING_ANSI: {
        const int legacy = codePage ? codePage : GetSystemCodePage();
        const CodePageEntry* entry = FindCodePage(legacy);
        SetEncoding(TEXTENCODING_ANSI, legacy);
        if (!entry) {
            Fail(TEXTFILEERROR_UNSUPPORTED, ENOTSUP,
                 Text("Code page %d is not supported", legacy));
            return;
        }
        converterName = entry->converter;
        break;
    }
    case TEXTENCODING_UTF8:
        SetEncoding(TEXTENCODING_UTF8, kUtf8CodePage);
        break;
    case TEXTENCODING_UTF8_BOM:
        SetEncoding(TEXTENCODING_UTF8_BOM, kUtf8CodePage);
        bom = kUtf8Bom;
        break;
    case TEXTENCODING_UTF16LE:
        SetEncoding(TEXTENCODING_UTF16LE, kUtf16LECodePage);
        converterName = "UTF-16LE";
        bom = kUtf16LEBom;
        break;
    default:
        SetEncoding(TEXTENCODING_UTF16BE, kUtf16BECodePage);
        converterName = "UTF-16BE";
        bom = kUtf16BEBom;
        break;
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
    const auto [folder, targetName] = SaveTarget(path_.str());
    impl_->targetName = targetName;
    if (impl_->targetName.empty() || impl_->targetName == "." || impl_->targetName == "..")
        return Fail(TEXTFILEERROR_NOT_A_FILE, EISDIR,
                    Text("'%s' names a folder", path_.c_str()));

    impl_->dirFd = OpenFolder(folder.c_str());
    if (impl_->dirFd < 0)
        return FailSystem(errno, TEXTFILEERROR_WRITE_FAILED, "has no usable folder");
    const char* name = impl_->targetName.c_str();
    FileStatus info;
    if (StatusAt(impl_->dirFd, name, info)) {
        if (!info.regular)
            return Abandon(TEXTFILEERROR_NOT_A_FILE, info.directory ? EISDIR : EINVAL,
                           Text("'%s' is not a file", path_.c_str()));
        if (!CanWriteAt(impl_->dirFd, name))
            return AbandonSystem(errno, "cannot be written");
    } else if (errno != ENOENT) {
        return AbandonSystem(errno, "cannot be written");
    }
    RemoveStaleTemps(impl_->dirFd, impl_->targetName);

    // An unnamed temporary file vanishes by itself on any failure; it needs /proc to be given
    // a name later. File systems without them get a named file, removed on failure.
    if (g_allowUnnamedTemp.load() && CanNameUnnamedFiles()) {
        impl_->fd = OpenUnnamedFile(impl_->dirFd);
        if (impl_->fd < 0 && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
            return AbandonSystem(errno, "cannot be written");
    }
    for (int attempt = 0; impl_->fd < 0 && attempt < 100; ++attempt) {
        std::string temp = TempName(impl_->targetName);
        impl_->fd = CreateNewFileAt(impl_->dirFd, temp.c_str());
        if (impl_->fd >= 0) {
            impl_->tempName = std::move(temp);
        } else if (errno != EEXIST) {
            return AbandonSystem(errno, "cannot be written");
        }
    }
    if (impl_->fd < 0) return AbandonSystem(EEXIST, "has no free temporary file name");
    // The lock tells a later save or load that this file belongs to a save still running.
    TryLockExclusive(impl_->fd);
    return true;
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
        const long n = Injected(TEXTFILEFAULT_WRITE)
                           ? -1
                           : WriteSome(impl_->fd, data, std::min(size, size_t(1) << 30));
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
    const std::string_view text(data, size);
    const size_t invalid = FirstInvalidUtf8(text);
    if (invalid != std::string::npos)
        return Abandon(TEXTFILEERROR_INVALID_TEXT, EILSEQ,
                       Text("The text for '%s' is not UTF-8: byte 0x%02X at offset %zu",
                            path_.c_str(), unsigned((unsigned char)data[invalid]),
                            impl_->written + invalid));
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

bool CKTTextFileWrite::WriteRaw(const char* bytes, size_t size) {
    if (!open_)
        return Fail(TEXTFILEERROR_NOT_OPEN, EBADF,
                    Text("'%s' is not open for writing", path_.c_str()));
    if (!impl_->carry.empty())
        return Abandon(TEXTFILEERROR_INVALID_TEXT, EILSEQ,
                       Text("The text for '%s' breaks off inside a UTF-8 character", path_.c_str()));
    if (!bytes || size == 0) return true;
    if (!WriteBytes(bytes, size)) return false;
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
    if (Injected(TEXTFILEFAULT_SYNC) || !SyncFile(d.fd))
        return AbandonSystem(errno, "could not be synced to disk");

    // The new file takes the old one's permissions, or those of a newly created file.
    FileStatus old, mine;
    if (StatusAt(d.dirFd, d.targetName.c_str(), old) && old.regular) {
        if (StatusOf(d.fd, mine) && (mine.owner != old.owner || mine.group != old.group) &&
            !SetOwner(d.fd, old.owner, old.group)) {
            // Only the owner's own groups or root may hand a file over; the saver keeps it.
        }
        SetPermissions(d.fd, old.mode);
    } else {
        SetPermissions(d.fd, 0666 & ~CurrentUmask());
    }

    for (int attempt = 0; d.tempName.empty() && attempt < 100; ++attempt) {
        std::string temp = TempName(d.targetName);
        if (!Injected(TEXTFILEFAULT_LINK) && NameUnnamedFile(d.fd, d.dirFd, temp.c_str()))
            d.tempName = std::move(temp);
        else if (errno != EEXIST)
            return AbandonSystem(errno, "could not be saved: its temporary file got no name");
    }
    if (d.tempName.empty())
        return AbandonSystem(EEXIST, "could not be saved: its temporary file got no name");
    const int fd = d.fd;
    d.fd = -1;
    if (!CloseDescriptor(fd)) return AbandonSystem(errno, "could not be written");
    if (Injected(TEXTFILEFAULT_RENAME) ||
        !RenameAt(d.dirFd, d.tempName.c_str(), d.targetName.c_str()))
        return AbandonSystem(errno, "could not be replaced");
    d.tempName.clear();
    // Makes the rename durable; a folder opened for path use only cannot.
    if (!Injected(TEXTFILEFAULT_SYNC_FOLDER)) SyncFile(d.dirFd);
    d.Discard();
    open_ = false;
    committed_ = true;
    return true;
}

bool CKTTextFileWrite::CloseFile() { return Close(); }

// ============================================================================ test support

void CKTTextFileFaults::Set(TEXTFILEFAULT step, int nth, int systemError) {
    if (step < 0 || step >= TEXTFILEFAULT_COUNT) return;
    g_faults[step].error = systemError;
    g_faults[step].crash = false;
    g_faults[step].countdown = nth;
}

void CKTTextFileFaults::Crash(TEXTFILEFAULT step, int nth) {
    if (step < 0 || step >= TEXTFILEFAULT_COUNT) return;
    g_faults[step].crash = true;
    g_faults[step].countdown = nth;
}

void CKTTextFileFaults::AllowUnnamedTemp(bool allow) { g_allowUnnamedTemp = allow; }

void CKTTextFileFaults::Reset() {
    for (Fault& fault : g_faults) {
        fault.countdown = 0;
        fault.crash = false;
    }
    g_allowUnnamedTemp = true;
}
