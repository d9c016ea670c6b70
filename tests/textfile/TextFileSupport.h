#pragma once
// Text file test helpers: scratch folder, raw file access, and legacy code page samples whose bytes
// come from the published code page tables, not from the converter under test.
#include <gtest/gtest.h>

#include <QDir>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <fstream>
#include <iterator>
#include <string>

#include "CKTTextFile.h"
#include "System.h"

struct LegacySample {
    int codePage;
    const char* utf8;    // text the code page can hold, lines ended by CR LF
    std::string bytes;   // the same text in the code page
};

inline const LegacySample kLegacySamples[] = {
    {949, "SELECT '한글' -- 똠\r\n~\\ ÆØ", "SELECT '\xC7\xD1\xB1\xDB' -- \x8C\x63\r\n~\\ \xA8\xA1\xA8\xAA"},
    {932, "SELECT 'あア漢字'\r\n~\\ 繁體", "SELECT '\x82\xA0\x83\x41\x8A\xBF\x8E\x9A'\r\n~\\ \x94\xC9\xE9\x93"},
    {936, "SELECT '简体中文'\r\n~\\ é€", "SELECT '\xBC\xF2\xCC\xE5\xD6\xD0\xCE\xC4'\r\n~\\ \xA8\xA6\x80"},
    {950, "SELECT '繁體中文'\r\n~\\ €", "SELECT '\xC1\x63\xC5\xE9\xA4\xA4\xA4\xE5'\r\n~\\ \xA3\xE1"},
};

// Every script the tests care about in one text: only the Unicode encodings hold all of it.
inline const char kMixedText[] = "-- 한글 あア漢字 简体中文 繁體中文 àéüñ Ω 😀\r\nSELECT 1;\r\n";

class TextFileTest : public ::testing::Test {
protected:
    void TearDown() override {
        CKTTextFileFaults::Reset();
        unsetenv("QUILLBOX_LANGID");
    }

    std::string Path(const char* name) const { return dir_.filePath(name).toStdString(); }

    static void Put(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Get(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    // Every scratch folder entry, hidden ones included, so that a left-over temporary file shows.
    QStringList Entries() const {
        return QDir(dir_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                           QDir::NoDotAndDotDot);
    }

    QTemporaryDir dir_;
};

// The UTF-16 form of UTF-8 text, by Qt, with its byte order mark.
inline std::string Utf16(const char* utf8, bool little) {
    QStringEncoder encoder(little ? QStringEncoder::Utf16LE : QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom);
    return QByteArray(encoder(QString::fromUtf8(utf8))).toStdString();
}
