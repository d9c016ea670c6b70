// Reading: encoding detection, decoding into UTF-8, line ends, and files that must not load.
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "MemoryLimit.h"
#include "TextFileSupport.h"

namespace {

struct Detected {
    bool open;
    TEXTENCODING encoding;
    int codePage;
    std::string text;
    TEXTFILEERROR error;
};

Detected ReadWith(CKTTextFileRead& file) {
    CString text = "untouched";
    const bool read = file.Read(text, "\r\n");
    EXPECT_EQ(read, file.IsOpen());
    if (!read) {
        EXPECT_EQ(text, "untouched");
    }
    return {file.IsOpen(), file.GetEncoding(), file.GetCodePage(), text.str(), file.GetError()};
}

}  // namespace

TEST_F(TextFileTest, DetectsByteOrderMarksUtf8AndEmptyFiles) {
    struct Case {
        std::string bytes;
        TEXTENCODING encoding;
        int codePage;
        std::string text;
    } cases[] = {
        {"", TEXTENCODING_UTF8, 65001, ""},
        {"SELECT 1;", TEXTENCODING_UTF8, 65001, "SELECT 1;"},
        {kMixedText, TEXTENCODING_UTF8, 65001, kMixedText},
        {"\xEF\xBB\xBF", TEXTENCODING_UTF8_BOM, 65001, ""},
        {std::string("\xEF\xBB\xBF") + kMixedText, TEXTENCODING_UTF8_BOM, 65001, kMixedText},
        {Utf16(kMixedText, true), TEXTENCODING_UTF16LE, 1200, kMixedText},
        {Utf16(kMixedText, false), TEXTENCODING_UTF16BE, 1201, kMixedText},
        {"\xFF\xFE", TEXTENCODING_UTF16LE, 1200, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Put(Path("a.sql"), c.bytes);
        CKTTextFileRead file(Path("a.sql").c_str(), true, true);
        const Detected d = ReadWith(file);
        EXPECT_TRUE(d.open) << file.GetErrorText().c_str();
        EXPECT_EQ(d.encoding, c.encoding);
        EXPECT_EQ(d.codePage, c.codePage);
        EXPECT_EQ(d.text, c.text);
    }
}

TEST_F(TextFileTest, LegacyCodePageComesFromTheSystemLanguageOrTheCaller) {
    EXPECT_EQ(CKTTextFileBase::CodePageForLanguage(1033), 949);   // every other language

    const struct { const char* langId; int codePage; } systems[] = {
        {"1042", 949}, {"1041", 932}, {"2052", 936}, {"1028", 950}};
    for (const auto& system : systems) {
        SCOPED_TRACE(system.langId);
        setenv("QUILLBOX_LANGID", system.langId, 1);
        ASSERT_EQ(CKTTextFileBase::GetSystemCodePage(), system.codePage);
        const LegacySample& sample =
            *std::find_if(std::begin(kLegacySamples), std::end(kLegacySamples),
                          [&](const LegacySample& s) { return s.codePage == system.codePage; });
        Put(Path("a.sql"), sample.bytes);
        CKTTextFileRead detected(Path("a.sql").c_str());
        const Detected d = ReadWith(detected);
        EXPECT_TRUE(d.open) << detected.GetErrorText().c_str();
        EXPECT_EQ(d.encoding, TEXTENCODING_ANSI);
        EXPECT_EQ(d.codePage, system.codePage);
        EXPECT_EQ(d.text, sample.utf8);
    }

    // A caller's code page wins over the system's, for detection and for a forced read.
    setenv("QUILLBOX_LANGID", "1042", 1);
    Put(Path("sjis.sql"), kLegacySamples[1].bytes);
    CKTTextFileRead override(Path("sjis.sql").c_str(), true, true, 932), forced(Path("sjis.sql").c_str(), TEXTENCODING_ANSI, 932);
    EXPECT_EQ(ReadWith(override).text, kLegacySamples[1].utf8);
    EXPECT_EQ(ReadWith(forced).codePage, 932);

    // Forcing a code page applies it even to bytes that are valid UTF-8 as well.
    Put(Path("both.sql"), "\xC2\xA1");
    CKTTextFileRead asKorean(Path("both.sql").c_str(), TEXTENCODING_ANSI, 949), asUtf8(Path("both.sql").c_str());
    EXPECT_EQ(ReadWith(asKorean).text, "\xEC\xA7\x95");   // U+C9D5, not U+00A1
    EXPECT_EQ(ReadWith(asUtf8).text, "\xC2\xA1");
}

TEST_F(TextFileTest, EveryLineEndBecomesTheRequestedOne) {
    Put(Path("a.sql"), "a\r\nb\nc\rd\r\r\n\n\re\r");
    CKTTextFileRead file(Path("a.sql").c_str());
    CString crlf, lf;
    ASSERT_TRUE(file.Read(crlf, "\r\n"));
    ASSERT_TRUE(file.Read(lf, "\n"));
    EXPECT_EQ(crlf, "a\r\nb\r\nc\r\nd\r\n\r\n\r\n\r\ne\r\n");
    EXPECT_EQ(lf, "a\nb\nc\nd\n\n\n\ne\n");

    // In UTF-16 the line ends are found after decoding, not in the raw bytes.
    Put(Path("b.sql"), Utf16("x\ny\rz", false));
    CKTTextFileRead wide(Path("b.sql").c_str());
    EXPECT_EQ(ReadWith(wide).text, "x\r\ny\r\nz");
}

TEST_F(TextFileTest, UndecodableFilesFailWithoutGuessing) {
    setenv("QUILLBOX_LANGID", "1042", 1);
    struct Case {
        const char* what;
        std::string bytes;
        int forcedCodePage;   // 0: detection with the system's 949
        TEXTFILEERROR error;
    } cases[] = {
        {"high bytes no code page has", "abc \xFD\xA0\x81\x20", 0, TEXTFILEERROR_UNDECODABLE},
        {"byte Shift-JIS does not use", "\x82\xA0\xFD", 932, TEXTFILEERROR_UNDECODABLE},
        {"GBK lead before a space", "\xD6\xD0\x81 ", 936, TEXTFILEERROR_UNDECODABLE},
        {"Big5 lead cut off at the end", "\xA4\xA4\xA4", 950, TEXTFILEERROR_UNDECODABLE},
        {"UTF-8 mark then broken UTF-8", "\xEF\xBB\xBF\xC7\xD1", 0, TEXTFILEERROR_UNDECODABLE},
        // Every byte pair here is valid in 949 as well, so only the UTF-8 check stops it.
        {"damaged UTF-8 is not read as a code page", "-- 가가가가가가\xEA\xB0", 0,
         TEXTFILEERROR_UNDECODABLE},
        {"UTF-16 cut in the middle of a unit", std::string("\xFF\xFE" "a\0b", 5), 0,
         TEXTFILEERROR_UNDECODABLE},
        {"UTF-16 unpaired surrogate", std::string("\xFE\xFF\xDC\x00\x00" "a", 6), 0,
         TEXTFILEERROR_UNDECODABLE},
        {"UTF-32LE mark", std::string("\xFF\xFE\0\0a\0\0\0", 8), 0, TEXTFILEERROR_UNSUPPORTED},
        {"UTF-32BE mark", std::string("\0\0\xFE\xFF\0\0\0a", 8), 0, TEXTFILEERROR_UNSUPPORTED},
        {"NUL byte", std::string("SELECT\0 1", 9), 0, TEXTFILEERROR_BINARY},
        {"NUL character in UTF-16", std::string("\xFF\xFE" "a\0\0\0", 6), 0, TEXTFILEERROR_BINARY},
        {"UTF-16 without a mark", std::string("a\0b\0", 4), 0, TEXTFILEERROR_BINARY},
        {"unknown code page", "\xE9t\xE9", 1252, TEXTFILEERROR_UNSUPPORTED},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Put(Path("bad.sql"), c.bytes);
        std::unique_ptr<CKTTextFileRead> file =
            c.forcedCodePage ? std::make_unique<CKTTextFileRead>(Path("bad.sql").c_str(), TEXTENCODING_ANSI,
                                                                 c.forcedCodePage)
                             : std::make_unique<CKTTextFileRead>(Path("bad.sql").c_str());
        const Detected d = ReadWith(*file);
        EXPECT_FALSE(d.open);
        EXPECT_EQ(d.error, c.error) << file->GetErrorText().c_str();
        EXPECT_FALSE(file->GetErrorText().IsEmpty());
        EXPECT_EQ(GetLastErrorText(), file->GetErrorText());
    }
}

TEST_F(TextFileTest, ForeignCodePageIsOnlySuggested) {
    // Shift-JIS with trail bytes (0x40, 0x5C) that code page 949 does not have.
    setenv("QUILLBOX_LANGID", "1042", 1);
    const std::string sjis =
        "-- \x83\x66\x81\x5B\x83\x5E\x83\x78\x81\x5B\x83\x58\x81\x40\x83\x5C\x81\x5B\x83\x67\r\n"
        "SELECT '\x93\xFA\x96\x7B\x8C\xEA\x82\xCC\x83\x65\x83\x4C\x83\x58\x83\x67';\r\n";
    Put(Path("sjis.sql"), sjis);
    CKTTextFileRead file(Path("sjis.sql").c_str());
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.GetError(), TEXTFILEERROR_UNDECODABLE);
    EXPECT_EQ(file.GetSuggestedCodePage(), 932);
    EXPECT_NE(file.GetErrorText().Find("line 1"), -1) << file.GetErrorText().c_str();

    CKTTextFileRead again(Path("sjis.sql").c_str(), TEXTENCODING_ANSI, file.GetSuggestedCodePage());
    CString text;
    ASSERT_TRUE(again.Read(text, "\r\n"));
    EXPECT_EQ(text, "-- データベース　ソート\r\nSELECT '日本語のテキスト';\r\n");
}

TEST_F(TextFileTest, MissingFilesFoldersAndClosedReaders) {
    ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);   // must not wait for a writer
    const std::string none = Path("none.sql"), folder = dir_.path().toStdString(), fifo = Path("fifo");
    const std::pair<const char*, TEXTFILEERROR> cases[] = {{none.c_str(), TEXTFILEERROR_NOT_FOUND},
        {folder.c_str(), TEXTFILEERROR_NOT_A_FILE}, {nullptr, TEXTFILEERROR_INVALID_ARGUMENT},
        {fifo.c_str(), TEXTFILEERROR_NOT_A_FILE}};
    for (const auto& [path, error] : cases) {
        CKTTextFileRead file(path);
        EXPECT_FALSE(file.IsOpen()) << (path ? path : "null");
        EXPECT_EQ(file.GetError(), error) << (path ? path : "null");
    }
    EXPECT_EQ(CKTTextFileWrite(fifo.c_str(), TEXTENCODING_UTF8).GetError(), TEXTFILEERROR_NOT_A_FILE);

    // Without detection a byte order mark still counts, but nothing is read as a code page.
    Put(Path("ansi.sql"), kLegacySamples[0].bytes);
    EXPECT_EQ(CKTTextFileRead(Path("ansi.sql").c_str(), false).GetError(), TEXTFILEERROR_UNDECODABLE);
    Put(Path("wide.sql"), Utf16("x", true));
    EXPECT_EQ(CKTTextFileRead(Path("wide.sql").c_str(), false).GetEncoding(), TEXTENCODING_UTF16LE);

    Put(Path("a.sql"), "x");
    CKTTextFileRead file(Path("a.sql").c_str());
    file.Close();
    CString text = "kept";
    EXPECT_FALSE(file.Read(text, "\r\n"));
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(file.GetError(), TEXTFILEERROR_NOT_OPEN);
    EXPECT_EQ(file.GetEncoding(), TEXTENCODING_UTF8);
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
        {"UTF-16LE surrogates", "\xFF\xFE", std::string("x\0", 2), std::string("\x3D\xD8\x00\xDE", 4), "😀", 0},
        {"UTF-16BE CR LF", "\xFE\xFF", std::string("\0x", 2), std::string("\0\r\0\n", 4), "\n", 0},
    };
    for (const auto& c : cases) {
        for (size_t into = 1; into <= 3; ++into) {
            SCOPED_TRACE(testing::Message() << c.what << ", " << into << " bytes in");
            const size_t units = (kPiece - into) / c.unit.size();
            std::string bytes = c.bom;
            for (size_t i = 0; i < units; ++i) bytes += c.unit;
            bytes += c.special;
            Put(Path("big.sql"), bytes);
            CKTTextFileRead file(Path("big.sql").c_str(), true, true, c.codePage);
            CString text;
            ASSERT_TRUE(file.Read(text, "\n")) << file.GetErrorText().c_str();
            const std::string expected = std::string(units, 'x') + c.text;
            EXPECT_EQ(text.GetLength(), int(expected.size()));
            EXPECT_EQ(file.GetTextLength(1), expected.size());
            EXPECT_TRUE(text.str() == expected);
        }
    }
}

TEST_F(TextFileTest, AFileChangedBetweenCheckAndReadIsNotDelivered) {
    Put(Path("a.sql"), "one\r\ntwo\r\n");
    CKTTextFileRead file(Path("a.sql").c_str());
    ASSERT_TRUE(file.IsOpen());
    std::ofstream(Path("a.sql"), std::ios::binary | std::ios::in) << "one\ntwo\n\n";   // same file
    CString text = "untouched";
    EXPECT_FALSE(file.Read(text, "\r\n"));
    EXPECT_EQ(text, "untouched");
    EXPECT_NE(file.GetErrorText().Find("changed"), -1) << file.GetErrorText().c_str();
}

TEST_F(TextFileTest, ATextThatDoesNotFitInMemoryFailsClearly) {
#ifdef QUILLBOX_SANITIZED_ALLOCATOR
    GTEST_SKIP() << "the sanitizers' allocator cannot run under an address space limit";
#else
    Put(Path("big.sql"), std::string(size_t(64) << 20, 'x'));
    // Room for the reader's pieces but not for the whole text.
    EXPECT_TRUE(PassesWithLittleMemory(
        [&] {
            CKTTextFileRead file(Path("big.sql").c_str());
            CString text = "untouched";
            return file.IsOpen() && !file.Read(text, "\r\n") && text == "untouched" &&
                   file.GetError() == TEXTFILEERROR_TOO_LARGE && file.GetErrorText().Find("memory") != -1;
        },
        32 << 20));
#endif
}
