// Any bytes as a text file, read with the encoding and code page chosen by the first byte
// (detection with and without legacy code pages, each encoding forced, values outside the
// enumeration) and one of the three line ends. A file that opens must give UTF-8 text without
// NUL, with only the chosen line end and of the length announced; saved again in the encoding
// it was read in, it must read back as the same text. Read in a legacy code page, it must give
// what ICU gives for the whole file at once, and fail exactly where ICU fails.
#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include "CKTTextFile.h"
#include "Utf8.h"

namespace {
// A scratch folder of this run, removed with its two files when the fuzzer exits. A plain
// array, so that it outlives every destructor that runs at exit.
char g_folder[] = "/tmp/fuzz_textfile.XXXXXX";

std::string Folder() {
    static const bool made = [] {
        if (!mkdtemp(g_folder)) std::abort();
        std::atexit([] {
            for (const char* file : {"/in.sql", "/out.sql"})
                unlink((std::string(g_folder) + file).c_str());
            rmdir(g_folder);
        });
        return true;
    }();
    return made ? std::string(g_folder) : std::string();
}

void Put(const std::string& path, const uint8_t* data, size_t size) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0) std::abort();
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n <= 0) std::abort();
        data += n;
        size -= size_t(n);
    }
    ::close(fd);
}

void Check(bool condition) {
    if (!condition) std::abort();
}

bool IsUtf8(std::string_view text) {
    const auto* s = reinterpret_cast<const unsigned char*>(text.data());
    for (size_t i = 0; i < text.size();) {
        const size_t length = Utf8SequenceLength(s, i, text.size());
        if (length == 0) return false;
        i += length;
    }
    return true;
}

// Each line end is exactly `eol`.
bool OnlyLineEnd(std::string_view text, std::string_view eol) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') continue;
        if (text.substr(i, eol.size()) != eol) return false;
        i += eol.size() - 1;
    }
    return true;
}

// The legacy code page's text as ICU decodes the whole file in one call, stopping at the first
// byte sequence it cannot decode (then false), with every line end made `eol`.
bool ReferenceDecode(int codePage, std::string_view bytes, std::string_view eol, std::string& out) {
    const char* name = codePage == 932 ? "ibm-943_P15A-2003"
                       : codePage == 936 ? "windows-936-2000"
                       : codePage == 950 ? "windows-950-2000"
                                         : "windows-949-2000";
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name, &status);
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    std::u16string units(2 * bytes.size() + 2, u'\0');
    const int32_t count = ucnv_toUChars(converter, units.data(), int32_t(units.size()), bytes.data(),
                                        int32_t(bytes.size()), &status);
    ucnv_close(converter);
    if (U_FAILURE(status)) return false;
    std::string utf8(size_t(count) * 3 + 1, '\0');
    int32_t length = 0;
    u_strToUTF8(utf8.data(), int32_t(utf8.size()), &length, units.data(), count, &status);
    Check(U_SUCCESS(status));
    utf8.resize(size_t(length));
    for (size_t i = 0; i < utf8.size(); ++i) {
        if (utf8[i] != '\r' && utf8[i] != '\n') {
            out += utf8[i];
            continue;
        }
        if (utf8[i] == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n') ++i;
        out += eol;
    }
    return true;
}

CKTTextFileRead* Open(const std::string& path, unsigned choice, int codePage) {
    switch (choice) {
    case 0: return new CKTTextFileRead(path.c_str(), true, true, codePage);
    case 1: return new CKTTextFileRead(path.c_str(), false, true, codePage);
    case 2: return new CKTTextFileRead(path.c_str(), TEXTENCODING(-1), codePage);
    case 3: return new CKTTextFileRead(path.c_str(), TEXTENCODING(1000), codePage);
    default: return new CKTTextFileRead(path.c_str(), TEXTENCODING(choice - 4), codePage);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    static const int kCodePages[] = {0, 949, 932, 936, 950, 1252, -1, 65001};
    static const char* const kLineEnds[] = {"\r\n", "\n", "\r"};
    const unsigned options = data[0];
    const unsigned choice = options % 9;              // 0..3 detection, 4..8 each encoding
    const int codePage = kCodePages[(options / 9) % 8];
    const char* eol = kLineEnds[(options / 72) % 3];
    const std::string path = Folder() + "/in.sql";
    Put(path, data + 1, size - 1);

    CKTTextFileRead* file = Open(path, choice, codePage);
    CString text;
    const bool read = file->IsOpen() && file->Read(text, eol);
    Check(read == file->IsOpen());
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const bool forcedLegacy = choice == 4 && CKTTextFileBase::IsSupportedCodePage(file->GetCodePage());
    if ((read && file->GetEncoding() == TEXTENCODING_ANSI) || forcedLegacy) {
        std::string expected;
        const bool decodes = ReferenceDecode(file->GetCodePage(), bytes, eol, expected);
        if (read) Check(decodes && text.view() == expected);
        else Check(!decodes || file->GetError() == TEXTFILEERROR_BINARY);
    }
    if (!read) {
        Check(!file->GetErrorText().IsEmpty());
        delete file;
        return 0;
    }
    const std::string_view view = text.view();
    Check(size_t(text.GetLength()) == file->GetTextLength(std::strlen(eol)));
    Check(view.find('\0') == std::string_view::npos);
    Check(IsUtf8(view));
    Check(OnlyLineEnd(view, eol));

    const TEXTENCODING encoding = file->GetEncoding();
    const int readCodePage = file->GetCodePage();
    delete file;
    const std::string out = Folder() + "/out.sql";
    CKTTextFileWrite writer(out.c_str(), encoding, readCodePage);
    Check(writer.IsOpen());
    if (writer.Write(text.c_str()) && writer.Close()) {
        CKTTextFileRead again(out.c_str(), encoding, readCodePage);
        CString back;
        Check(again.Read(back, eol));
        Check(back == text);
    } else {
        // Only a legacy code page may lack a way back for a character it decodes to.
        Check(encoding == TEXTENCODING_ANSI &&
              writer.GetError() == TEXTFILEERROR_UNREPRESENTABLE);
    }
    return 0;
}
