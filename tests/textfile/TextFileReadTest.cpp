// Reading: encoding detection, decoding into UTF-8, line ends, and files that must not load.
#include <sys/stat.h>

#include <climits>
#include <fstream>

#include "MemoryLimit.h"
#include "TextFileSupport.h"

namespace {
// The whole text with `lineEnd` line ends; a failed read leaves the text untouched.
std::string ReadAll(CKTTextFileRead& file, const char* lineEnd = "\r\n") {
    CString text = "untouched";
    const bool read = file.Read(text, lineEnd);
    EXPECT_EQ(read, file.IsOpen());
    if (!read) {
        EXPECT_EQ(text, "untouched");
    }
    return text.str();
}

constexpr int kDetect = -1;
}  // namespace

// Each row: the file, the system language, how it is opened (detection with a code page, or an
// encoding forced with one) and what the reader finds. Every text is read with CR LF and again
// with LF line ends.
TEST_F(TextFileTest, DetectsAndDecodesEachEncoding) {
    const LegacySample &uhc = kLegacySamples[0], &sjis = kLegacySamples[1], &gbk = kLegacySamples[2],
                       &big5 = kLegacySamples[3];
    const struct {
        std::string bytes;
        const char* langId;
        int encoding, codePage;   // encoding kDetect: detection
        TEXTENCODING found;
        int foundPage;
        std::string text;
    } cases[] = {
        {"", "1042", kDetect, 0, TEXTENCODING_UTF8, 65001, ""},
        {kMixedText, "1042", kDetect, 0, TEXTENCODING_UTF8, 65001, kMixedText},
        {"\xEF\xBB\xBF", "1042", kDetect, 0, TEXTENCODING_UTF8_BOM, 65001, ""},
        {std::string("\xEF\xBB\xBF") + kMixedText, "1042", kDetect, 0, TEXTENCODING_UTF8_BOM, 65001, kMixedText},
        {Utf16(kMixedText, true), "1042", kDetect, 0, TEXTENCODING_UTF16LE, 1200, kMixedText},
        {Utf16(kMixedText, false), "1042", kDetect, 0, TEXTENCODING_UTF16BE, 1201, kMixedText},
        {"\xFF\xFE", "1042", kDetect, 0, TEXTENCODING_UTF16LE, 1200, ""},
        // The system language picks the legacy code page; a caller's code page wins over it.
        {uhc.bytes, "1042", kDetect, 0, TEXTENCODING_ANSI, 949, uhc.utf8},
        {sjis.bytes, "1041", kDetect, 0, TEXTENCODING_ANSI, 932, sjis.utf8},
        {gbk.bytes, "2052", kDetect, 0, TEXTENCODING_ANSI, 936, gbk.utf8},
        {big5.bytes, "1028", kDetect, 0, TEXTENCODING_ANSI, 950, big5.utf8},
        {uhc.bytes, "1033", kDetect, 0, TEXTENCODING_ANSI, 949, uhc.utf8},   // any other language
        {sjis.bytes, "1042", kDetect, 932, TEXTENCODING_ANSI, 932, sjis.utf8},
        {sjis.bytes, "1042", TEXTENCODING_ANSI, 932, TEXTENCODING_ANSI, 932, sjis.utf8},
        // An encoding outside the enumeration lets the file decide.
        {sjis.bytes, "1042", 256, 932, TEXTENCODING_ANSI, 932, sjis.utf8},
        {sjis.bytes, "1042", INT_MIN, 932, TEXTENCODING_ANSI, 932, sjis.utf8},
        {Utf16("x", true), "1042", INT_MAX, 932, TEXTENCODING_UTF16LE, 1200, "x"},
        // A forced code page applies even to bytes that are valid UTF-8 as well.
        {"\xC2\xA1", "1042", TEXTENCODING_ANSI, 949, TEXTENCODING_ANSI, 949, "\xEC\xA7\x95"},
        {"\xC2\xA1", "1042", kDetect, 949, TEXTENCODING_UTF8, 65001, "\xC2\xA1"},
        // 932 gives three control codes other characters; a trail byte below 0x80 before a long
        // ASCII run, and a split lead byte, stay with their character.
        {"\x1A\x1C\x7F x", "1041", TEXTENCODING_ANSI, 932, TEXTENCODING_ANSI, 932, "\x1C\x7F\x1A x"},
        {"\x83\x41" + std::string(40, 'x') + "\x83\x41", "1041", kDetect, 0, TEXTENCODING_ANSI, 932,
         "ア" + std::string(40, 'x') + "ア"},
        // Line ends are found in the decoded text, not in the raw bytes.
        {"a\r\nb\nc\rd\r\r\n\n\re\r", "1042", kDetect, 0, TEXTENCODING_UTF8, 65001,
         "a\r\nb\r\nc\r\nd\r\n\r\n\r\n\r\ne\r\n"},
        {Utf16("x\ny\rz", false), "1042", kDetect, 0, TEXTENCODING_UTF16BE, 1201, "x\r\ny\r\nz"},
        {"\xC7\xD1\r\n\xC7\xD1\r", "1042", kDetect, 0, TEXTENCODING_ANSI, 949, "한\r\n한\r\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        setenv("QUILLBOX_LANGID", c.langId, 1);
        Put(Path("a.sql"), c.bytes);
        CKTTextFileRead file = c.encoding == kDetect
                                   ? CKTTextFileRead(Path("a.sql").c_str(), true, true, c.codePage)
                                   : CKTTextFileRead(Path("a.sql").c_str(), TEXTENCODING(c.encoding), c.codePage);
        EXPECT_TRUE(file.IsOpen()) << file.GetErrorText().c_str();
        EXPECT_EQ(ReadAll(file), c.text);
        EXPECT_EQ(file.GetTextLength(2), c.text.size());
        EXPECT_EQ(file.GetEncoding(), c.found);
        EXPECT_EQ(file.GetCodePage(), c.foundPage);
        std::string lf = c.text;
        for (size_t at; (at = lf.find("\r\n")) != std::string::npos;) lf.erase(at, 1);
        EXPECT_EQ(ReadAll(file, "\n"), lf);
        EXPECT_EQ(file.GetTextLength(1), lf.size());
    }
}

TEST_F(TextFileTest, FilesThatCannotBeReadFailWithoutGuessing) {
    setenv("QUILLBOX_LANGID", "1042", 1);
    ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);   // must not wait for a writer
    const int kNoDetection = -2;
    const struct {
        const char* what;
        std::string bytes;
        int how;   // kDetect with the system's 949, kNoDetection, or a code page forced
        TEXTFILEERROR error;
    } cases[] = {
        {"high bytes no code page has", "abc \xFD\xA0\x81\x20", kDetect, TEXTFILEERROR_UNDECODABLE},
        {"byte Shift-JIS does not use", "\x82\xA0\xFD", 932, TEXTFILEERROR_UNDECODABLE},
        {"GBK lead before a space", "\xD6\xD0\x81 ", 936, TEXTFILEERROR_UNDECODABLE},
        {"Big5 lead cut off at the end", "\xA4\xA4\xA4", 950, TEXTFILEERROR_UNDECODABLE},
        {"UTF-8 mark then broken UTF-8", "\xEF\xBB\xBF\xC7\xD1", kDetect, TEXTFILEERROR_UNDECODABLE},
        // Every byte pair here is valid in 949 as well, so only the UTF-8 check stops it.
        {"damaged UTF-8 is not read as a code page", "-- 가가가가가가\xEA\xB0", kDetect, TEXTFILEERROR_UNDECODABLE},
        {"a code page only with detection", kLegacySamples[0].bytes, kNoDetection, TEXTFILEERROR_UNDECODABLE},
        {"UTF-16 cut in the middle of a unit", std::string("\xFF\xFE" "a\0b", 5), kDetect, TEXTFILEERROR_UNDECODABLE},
        {"UTF-16 unpaired surrogate", std::string("\xFE\xFF\xDC\x00\x00" "a", 6), kDetect, TEXTFILEERROR_UNDECODABLE},
        {"UTF-32LE mark", std::string("\xFF\xFE\0\0a\0\0\0", 8), kDetect, TEXTFILEERROR_UNSUPPORTED},
        {"UTF-32BE mark", std::string("\0\0\xFE\xFF\0\0\0a", 8), kDetect, TEXTFILEERROR_UNSUPPORTED},
        {"NUL byte", std::string("SELECT\0 1", 9), kDetect, TEXTFILEERROR_BINARY},
        {"NUL character in UTF-16", std::string("\xFF\xFE" "a\0\0\0", 6), kDetect, TEXTFILEERROR_BINARY},
        {"UTF-16 without a mark", std::string("a\0b\0", 4), kDetect, TEXTFILEERROR_BINARY},
        {"unknown code page", "\xE9t\xE9", 1252, TEXTFILEERROR_UNSUPPORTED},
        {"missing", "", kDetect, TEXTFILEERROR_NOT_FOUND},
        {"folder", "", kDetect, TEXTFILEERROR_NOT_A_FILE},
        {"fifo", "", kDetect, TEXTFILEERROR_NOT_A_FILE},
        {"no name", "", kDetect, TEXTFILEERROR_INVALID_ARGUMENT},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Put(Path("bad.sql"), c.bytes);
        const std::string what = c.what, folder = dir_.path().toStdString();
        const std::string path = what == "missing" ? Path("none.sql") : what == "folder" ? folder
                                 : what == "fifo"  ? Path("fifo") : Path("bad.sql");
        const char* name = what == "no name" ? nullptr : path.c_str();
        CKTTextFileRead file = c.how == kDetect         ? CKTTextFileRead(name)
                               : c.how == kNoDetection ? CKTTextFileRead(name, false)
                                                       : CKTTextFileRead(name, TEXTENCODING_ANSI, c.how);
        ReadAll(file);
        EXPECT_FALSE(file.IsOpen());
        EXPECT_EQ(file.GetError(), c.error) << file.GetErrorText().c_str();
        EXPECT_FALSE(file.GetErrorText().IsEmpty());
        EXPECT_EQ(GetLastErrorText(), file.GetErrorText());
    }
    EXPECT_EQ(CKTTextFileWrite(Path("fifo").c_str(), TEXTENCODING_UTF8).GetError(), TEXTFILEERROR_NOT_A_FILE);
    // A reader closed by its owner reads nothing and keeps its encoding.
    Put(Path("a.sql"), "x");
    CKTTextFileRead closed(Path("a.sql").c_str());
    closed.Close();
    CString text = "kept";
    EXPECT_FALSE(closed.Read(text, "\r\n"));
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(closed.GetError(), TEXTFILEERROR_NOT_OPEN);
    EXPECT_EQ(closed.GetEncoding(), TEXTENCODING_UTF8);
    Put(Path("wide.sql"), Utf16("x", true));   // without detection a byte order mark still counts
    EXPECT_EQ(CKTTextFileRead(Path("wide.sql").c_str(), false).GetEncoding(), TEXTENCODING_UTF16LE);
}

TEST_F(TextFileTest, ForeignCodePageIsOnlySuggested) {
    // Shift-JIS with trail bytes (0x40, 0x5C) that code page 949 does not have.
    setenv("QUILLBOX_LANGID", "1042", 1);
    Put(Path("sjis.sql"),
        "-- \x83\x66\x81\x5B\x83\x5E\x83\x78\x81\x5B\x83\x58\x81\x40\x83\x5C\x81\x5B\x83\x67\r\n"
        "SELECT '\x93\xFA\x96\x7B\x8C\xEA\x82\xCC\x83\x65\x83\x4C\x83\x58\x83\x67';\r\n");
    CKTTextFileRead file(Path("sjis.sql").c_str());
    EXPECT_EQ(file.GetError(), TEXTFILEERROR_UNDECODABLE);
    EXPECT_EQ(file.GetSuggestedCodePage(), 932);
    EXPECT_NE(file.GetErrorText().Find("line 1"), -1) << file.GetErrorText().c_str();
    CKTTextFileRead again(Path("sjis.sql").c_str(), TEXTENCODING_ANSI, file.GetSuggestedCodePage());
    EXPECT_EQ(ReadAll(again), "-- データベース　ソート\r\nSELECT '日本語のテキスト';\r\n");
}

TEST_F(TextFileTest, CharactersAndLineEndsSplitBetweenPiecesSurvive) {
    constexpr size_t kPiece = size_t(4) << 20;   // the reader's piece size
    const struct {
        const char* what;
        std::string bom, unit, special;   // `unit` is one filler character in the encoding
        const char* text;                 // `special` decoded, with LF line ends
        int codePage;
    } cases[] = {
        {"UTF-8", "", "x", "\xF0\x9F\x98\x80\xE2\x82\xAC", "😀€", 0},
        {"UTF-8 with mark", "\xEF\xBB\xBF", "x", "\xE2\x82\xAC\xE2\x82\xAC", "€€", 0},
        {"CR LF", "", "x", "\r\n\r\n", "\n\n", 0},
        {"lone CR", "", "x", "\r\rx", "\n\nx", 0},
        {"code page 949", "", "x", "\xC7\xD1\xB1\xDB", "한글", 949},
        {"code page 932, trail byte below 0x80", "", "x", "\x83\x41\x83\x41", "アア", 932},
        {"UTF-16LE surrogates", "\xFF\xFE", std::string("x\0", 2), std::string("\x3D\xD8\x00\xDE", 4), "😀", 0},
        {"UTF-16BE CR LF", "\xFE\xFF", std::string("\0x", 2), std::string("\0\r\0\n", 4), "\n", 0},
    };
    for (const auto& c : cases) {
        for (size_t into = 1; into <= 3; ++into) {
            SCOPED_TRACE(testing::Message() << c.what << ", " << into << " bytes in");
            const size_t units = (kPiece - into) / c.unit.size();
            std::string bytes = c.bom;
            for (size_t i = 0; i < units; ++i) bytes += c.unit;
            Put(Path("big.sql"), bytes + c.special);
            CKTTextFileRead file(Path("big.sql").c_str(), true, true, c.codePage);
            const std::string expected = std::string(units, 'x') + c.text;
            EXPECT_TRUE(ReadAll(file, "\n") == expected) << file.GetErrorText().c_str();
            EXPECT_EQ(file.GetTextLength(1), expected.size());
        }
    }
}

TEST_F(TextFileTest, AFileChangedOrTooLargeIsNotDelivered) {
    Put(Path("a.sql"), "one\r\ntwo\r\n");
    CKTTextFileRead file(Path("a.sql").c_str());
    ASSERT_TRUE(file.IsOpen());
    std::ofstream(Path("a.sql"), std::ios::binary | std::ios::in) << "one\ntwo\n\n";   // same file
    CString text = "untouched";
    EXPECT_FALSE(file.Read(text, "\r\n"));
    EXPECT_EQ(text, "untouched");
    EXPECT_NE(file.GetErrorText().Find("changed"), -1) << file.GetErrorText().c_str();
#ifndef QUILLBOX_SANITIZED_ALLOCATOR   // the sanitizers' allocator cannot run under a limit
    Put(Path("big.sql"), std::string(size_t(64) << 20, 'x'));
    // Room for the reader's pieces but not for the whole text.
    EXPECT_TRUE(PassesWithLittleMemory(
        [&] {
            CKTTextFileRead big(Path("big.sql").c_str());
            CString whole = "untouched";
            return big.IsOpen() && !big.Read(whole, "\r\n") && whole == "untouched" &&
                   big.GetError() == TEXTFILEERROR_TOO_LARGE && big.GetErrorText().Find("memory") != -1;
        },
        32 << 20));
#endif
}
