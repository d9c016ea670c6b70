// Reading: encoding detection, decoding into UTF-8, line ends, and files that must not load.
#include <sys/stat.h>

#include <climits>
#include <map>
#include <sstream>

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

constexpr int kDetect = -100, kNoDetection = -101;
const std::map<std::string, int> kWords = {
    {"detect", kDetect}, {"nodetect", kNoDetection}, {"ansi", TEXTENCODING_ANSI},
    {"utf8", TEXTENCODING_UTF8}, {"utf8bom", TEXTENCODING_UTF8_BOM},
    {"utf16le", TEXTENCODING_UTF16LE}, {"utf16be", TEXTENCODING_UTF16BE},
    {"undecodable", TEXTFILEERROR_UNDECODABLE}, {"unsupported", TEXTFILEERROR_UNSUPPORTED},
    {"binary", TEXTFILEERROR_BINARY}};

int Word(const std::string& word) {
    const auto found = kWords.find(word);
    return found != kWords.end() ? found->second : std::stoi(word);   // an encoding by number
}

CKTTextFileRead Open(const char* path, int how, int codePage) {
    return how == kDetect         ? CKTTextFileRead(path, true, true, codePage)
           : how == kNoDetection ? CKTTextFileRead(path, false)
                                 : CKTTextFileRead(path, TEXTENCODING(how), codePage);
}
}  // namespace

// textfile/read/<name>.bytes is a file; the first line of <name>.expected says how it is read:
//   <language id> detect|nodetect|<encoding> <code page> -> <encoding> <code page> [same]
//   <language id> detect|nodetect|<encoding> <code page> -> <error> [<suggested code page>]
// and the rest is the text read with CR LF line ends, or words of the error text. With `same`,
// saving the text in the encoding found gives the file's bytes back, and so does saving it over
// the file with an encoding outside the enumeration, which lets the file decide as detection did.
TEST_F(TextFileTest, EachCaseFileReadsAsExpected) {
    const int outside[] = {-1, 5, 256, INT_MIN, INT_MAX};
    size_t saves = 0;
    for (const auto& input : CaseFiles("textfile/read", ".bytes")) {
        SCOPED_TRACE(input.filename().string());
        const std::string expected = ReadCase(std::filesystem::path(input).replace_extension(".expected"));
        const std::string text = expected.substr(expected.find('\n') + 1);
        std::istringstream header(expected.substr(0, expected.find('\n')));
        std::string language, how, arrow, found, same;
        int codePage = 0, foundPage = 0;
        header >> language >> how >> codePage >> arrow >> found >> foundPage >> same;
        setenv("QUILLBOX_LANGID", language.c_str(), 1);
        CKTTextFileRead file = Open(input.c_str(), Word(how), codePage);
        if (found == "undecodable" || found == "unsupported" || found == "binary") {
            ReadAll(file);
            EXPECT_FALSE(file.IsOpen());
            EXPECT_EQ(file.GetError(), Word(found)) << file.GetErrorText().c_str();
            EXPECT_FALSE(file.GetErrorText().IsEmpty());
            EXPECT_NE(file.GetErrorText().Find(text.c_str()), -1) << file.GetErrorText().c_str();
            EXPECT_EQ(GetLastErrorText(), file.GetErrorText());
            if (foundPage) {
                EXPECT_EQ(file.GetSuggestedCodePage(), foundPage);
            }
            continue;
        }
        EXPECT_TRUE(file.IsOpen()) << file.GetErrorText().c_str();
        EXPECT_EQ(ReadAll(file), text);
        EXPECT_EQ(file.GetTextLength(2), text.size());
        EXPECT_EQ(file.GetEncoding(), Word(found));
        EXPECT_EQ(file.GetCodePage(), foundPage);
        std::string lf = text;
        for (size_t at; (at = lf.find("\r\n")) != std::string::npos;) lf.erase(at, 1);
        EXPECT_EQ(ReadAll(file, "\n"), lf);
        EXPECT_EQ(file.GetTextLength(1), lf.size());
        if (same == "same") {
            ASSERT_TRUE(Save(Path("a.sql"), text, file.GetEncoding(), file.GetCodePage()));
            EXPECT_EQ(Get(Path("a.sql")), ReadCase(input));
            if (how == "detect") {
                ASSERT_TRUE(Save(Path("a.sql"), text, TEXTENCODING(outside[saves++ % 5]), foundPage));
                EXPECT_EQ(Get(Path("a.sql")), ReadCase(input));
            }
        }
    }
    EXPECT_EQ(Entries(), QStringList({"a.sql"}));
}

TEST_F(TextFileTest, WhatIsNotAFileFailsAndAClosedReaderReadsNothing) {
    ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);   // must not wait for a writer
    const std::string folder = dir_.path().toStdString(), missing = Path("none.sql"), fifo = Path("fifo");
    const struct { const char* path; TEXTFILEERROR error; } cases[] = {
        {missing.c_str(), TEXTFILEERROR_NOT_FOUND}, {folder.c_str(), TEXTFILEERROR_NOT_A_FILE},
        {fifo.c_str(), TEXTFILEERROR_NOT_A_FILE}, {nullptr, TEXTFILEERROR_INVALID_ARGUMENT}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path ? c.path : "no name");
        CKTTextFileRead file(c.path);
        ReadAll(file);
        EXPECT_EQ(file.GetError(), c.error) << file.GetErrorText().c_str();
        EXPECT_EQ(GetLastErrorText(), file.GetErrorText());
    }
    EXPECT_EQ(CKTTextFileWrite(fifo.c_str(), TEXTENCODING_UTF8).GetError(), TEXTFILEERROR_NOT_A_FILE);
    // A reader closed by its owner reads nothing and keeps its encoding.
    Put(Path("a.sql"), "x");
    CKTTextFileRead closed(Path("a.sql").c_str());
    closed.Close();
    ReadAll(closed);
    EXPECT_EQ(closed.GetError(), TEXTFILEERROR_NOT_OPEN);
    EXPECT_EQ(closed.GetEncoding(), TEXTENCODING_UTF8);
}

TEST_F(TextFileTest, CharactersAndLineEndsSplitBetweenPiecesSurvive) {
    constexpr size_t kPiece = size_t(4) << 20;   // the reader's piece size
    // `unit` is one filler character in the encoding, `text` is `special` decoded with LF line ends.
    const struct { const char* what; std::string bom, unit, special; const char* text; int codePage; } cases[] = {
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
