#pragma once
// Text file test helpers: a scratch folder, raw file access and a save in pieces.
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <fstream>
#include <string>

#include "CKTTextFile.h"
#include "CaseFiles.h"
#include "System.h"

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
    static std::string Get(const std::string& path) { return ReadCase(path); }
    // Every scratch folder entry, hidden ones included, so that a left-over temporary file shows.
    QStringList Entries() const {
        return QDir(dir_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                           QDir::NoDotAndDotDot);
    }

    // Saves the text in three pieces, cut twice inside a character that starts at byte 3 or 4.
    static bool Save(const std::string& path, const std::string& text, TEXTENCODING encoding,
                     int codePage = 0) {
        CKTTextFileWrite file(path.c_str(), encoding, codePage);
        const size_t cut1 = std::min<size_t>(4, text.size()), cut2 = std::min<size_t>(5, text.size());
        return file.IsOpen() && file.Write(text.substr(0, cut1).c_str()) &&
               file.Write(text.substr(cut1, cut2 - cut1).c_str()) &&
               file.Write(text.substr(cut2).c_str()) && file.Close();
    }

    QTemporaryDir dir_;
};
