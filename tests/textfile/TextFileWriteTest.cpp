// Writing: conversion per encoding, refused characters, and failed saves that leave no trace.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include <QFileInfo>

#include "TextFileSupport.h"

// A save that fails, at once or once text is written, leaves the old file and nothing else.
TEST_F(TextFileTest, AFailedSaveLeavesTheTargetUntouched) {
    const std::string folder = dir_.path().toStdString();
    // `text` follows a line written apart (nullptr: the save fails when opened); `mention` is in
    // the error text.
    const struct { std::string path; TEXTENCODING encoding; int codePage; const char* text;
                   TEXTFILEERROR error; const char* mention; } cases[] = {
        {Path("a.sql"), TEXTENCODING_ANSI, 932, "SELECT 1;\r\n-- 한글\r\n", TEXTFILEERROR_UNREPRESENTABLE, "line 3"},
        {Path("a.sql"), TEXTENCODING_ANSI, 949, "-- 😀", TEXTFILEERROR_UNREPRESENTABLE, "U+1F600"},
        {Path("a.sql"), TEXTENCODING_ANSI, 936, "-- 가", TEXTFILEERROR_UNREPRESENTABLE, "U+AC00"},
        {Path("a.sql"), TEXTENCODING_ANSI, 950, "-- 简", TEXTFILEERROR_UNREPRESENTABLE, "U+7B80"},
        {Path("a.sql"), TEXTENCODING_UTF8, 0, "abc \xC3(", TEXTFILEERROR_INVALID_TEXT, "offset 15"},
        {Path("a.sql"), TEXTENCODING_UTF16LE, 0, "\xED\xA0\x80", TEXTFILEERROR_INVALID_TEXT, "offset 11"},
        {Path("a.sql"), TEXTENCODING_UTF8_BOM, 0, "ends inside \xE2\x82", TEXTFILEERROR_INVALID_TEXT, "ends inside"},
        {Path("no/such/folder.sql"), TEXTENCODING_UTF8, 0, nullptr, TEXTFILEERROR_NOT_FOUND, "no/such"},
        {folder, TEXTENCODING_UTF8, 0, nullptr, TEXTFILEERROR_NOT_A_FILE, "is not a file"},
        {folder + "/", TEXTENCODING_UTF8, 0, nullptr, TEXTFILEERROR_NOT_A_FILE, "names a folder"},
        {"", TEXTENCODING_UTF8, 0, nullptr, TEXTFILEERROR_INVALID_ARGUMENT, "name"},
        {Path("a.sql"), TEXTENCODING_ANSI, 1252, nullptr, TEXTFILEERROR_UNSUPPORTED, "1252"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text ? c.text : c.path.c_str());
        Put(Path("a.sql"), "old text");
        CKTTextFileWrite file(c.path.c_str(), c.encoding, c.codePage);
        ASSERT_EQ(file.IsOpen(), c.text != nullptr);
        if (c.text) {
            EXPECT_TRUE(file.Write("SELECT 2;\r\n"));
            file.Write(c.text);
        }
        EXPECT_FALSE(file.Close());
        EXPECT_FALSE(file.IsOpen());
        EXPECT_EQ(file.GetError(), c.error);
        EXPECT_NE(file.GetErrorText().Find(c.mention), -1) << file.GetErrorText().c_str();
        EXPECT_FALSE(file.Write("more"));
        EXPECT_EQ(Get(Path("a.sql")), "old text");
        EXPECT_EQ(Entries(), QStringList({"a.sql"}));
    }
}

TEST_F(TextFileTest, OnlyCloseReplacesTheTarget) {
    Put(Path("a.sql"), "old text");
    for (bool unnamed : {true, false}) {
        CKTTextFileFaults::AllowUnnamedTemp(unnamed);
        CKTTextFileWrite abandoned(Path("a.sql").c_str(), TEXTENCODING_UTF8);
        ASSERT_TRUE(abandoned.Write("new text"));
        // A load of the target meanwhile must not take the running save's temporary file.
        EXPECT_TRUE(CKTTextFileRead(Path("a.sql").c_str()).IsOpen());
        EXPECT_EQ(Entries().size(), unnamed ? 1 : 2);   // a named temporary file shows
    }
    EXPECT_EQ(Entries(), QStringList({"a.sql"}));
    EXPECT_EQ(Get(Path("a.sql")), "old text");
    CKTTextFileWrite file(Path("a.sql").c_str(), TEXTENCODING_UTF8);
    ASSERT_TRUE(file.Write("new text") && file.Write(nullptr));
    EXPECT_TRUE(file.Close() && file.Close());   // a second Close gives the same answer
    EXPECT_FALSE(file.Write("more"));
    EXPECT_EQ(Get(Path("a.sql")), "new text");
    // Raw bytes go as they are, but not after a character that Write left open.
    const std::string bytes = "\xC7\xD1 not UTF-8 \xFF\r\n";
    CKTTextFileWrite raw(Path("raw.sql").c_str(), TEXTENCODING_UTF8);
    ASSERT_TRUE(raw.WriteRaw(bytes.data(), bytes.size()) && raw.WriteRaw(nullptr, 0) && raw.Close());
    EXPECT_EQ(Get(Path("raw.sql")), bytes);
    CKTTextFileWrite open(Path("raw.sql").c_str(), TEXTENCODING_UTF8);
    ASSERT_TRUE(open.Write("\xE2\x82"));
    EXPECT_FALSE(open.WriteRaw("x", 1));
    EXPECT_EQ(open.GetError(), TEXTFILEERROR_INVALID_TEXT);
}

TEST_F(TextFileTest, ReplacingKeepsPermissionsAndSymbolicLinks) {
    const auto mode = [](const std::string& path) {
        struct stat info {};
        return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : ~0u;
    };
    const mode_t mask = umask(022);
    umask(mask);
    Put(Path("a.sql"), "old");
    ASSERT_EQ(chmod(Path("a.sql").c_str(), 0640), 0);
    ASSERT_TRUE(Save(Path("a.sql"), "new", TEXTENCODING_UTF8) && Save(Path("new.sql"), "new", TEXTENCODING_UTF8));
    EXPECT_EQ(mode(Path("a.sql")), 0640u);
    EXPECT_EQ(mode(Path("new.sql")), 0666u & ~mask);

    ASSERT_EQ(symlink("a.sql", Path("link.sql").c_str()), 0);
    ASSERT_TRUE(Save(Path("link.sql"), "through the link", TEXTENCODING_UTF8));
    EXPECT_TRUE(QFileInfo(QString::fromStdString(Path("link.sql"))).isSymLink());
    EXPECT_EQ(Get(Path("a.sql")), "through the link");
}

TEST_F(TextFileTest, PermissionDeniedFailsCleanly) {
    if (geteuid() == 0) GTEST_SKIP() << "root ignores permission bits; injected failures cover this";
    Put(Path("locked.sql"), "secret");
    ASSERT_EQ(chmod(Path("locked.sql").c_str(), 0), 0);
    EXPECT_EQ(CKTTextFileRead(Path("locked.sql").c_str()).GetError(), TEXTFILEERROR_PERMISSION);
    Put(Path("a.sql"), "old text");
    const std::string folder = dir_.path().toStdString();
    // A read-only file, then a read-only folder.
    for (const auto& [locked, target] : {std::pair{Path("a.sql"), "a.sql"}, std::pair{folder, "new.sql"}}) {
        ASSERT_EQ(chmod(locked.c_str(), locked != folder ? 0444 : 0555), 0);
        EXPECT_EQ(CKTTextFileWrite(Path(target).c_str(), TEXTENCODING_UTF8).GetError(), TEXTFILEERROR_PERMISSION);
        ASSERT_EQ(chmod(locked.c_str(), locked != folder ? 0644 : 0755), 0);
    }
}

// A save stopped at each step, by a failing system call or killed before it: the target holds
// the old or the new text and nothing else is left, at once after a failure, after the next
// load or save of the target after a kill.
TEST_F(TextFileTest, ASaveStoppedAtAnyStepLeavesOldOrNewTextAndNothingElse) {
    const std::string oldBytes = "old text\r\n";
    const std::string newText = std::string(1 << 20, 'n') + "\r\n";
    const std::string newBytes = "\xEF\xBB\xBF" + newText + newText;
    // The byte order mark, the first and second piece of text, the sync, the link (of an unnamed
    // file only), the rename, the folder's sync (which a save does not fail for: it is replaced).
    const std::pair<TEXTFILEFAULT, int> steps[] = {
        {TEXTFILEFAULT_WRITE, 1}, {TEXTFILEFAULT_WRITE, 2}, {TEXTFILEFAULT_WRITE, 3}, {TEXTFILEFAULT_SYNC, 1},
        {TEXTFILEFAULT_LINK, 1}, {TEXTFILEFAULT_RENAME, 1}, {TEXTFILEFAULT_SYNC_FOLDER, 1}};
    int use = 0;
    for (bool kill : {false, true}) {
        for (bool unnamed : {true, false}) {
            for (const auto& [step, nth] : steps) {
                if (step == TEXTFILEFAULT_LINK && !unnamed) continue;
                const bool replaced = step == TEXTFILEFAULT_SYNC_FOLDER;
                SCOPED_TRACE(testing::Message() << (kill ? "kill" : "fail") << ", unnamed " << unnamed
                                                << ", step " << step << "/" << nth);
                Put(Path("a.sql"), oldBytes);
                const pid_t child = kill ? fork() : 0;
                ASSERT_GE(child, 0);
                if (child == 0) {
                    CKTTextFileFaults::AllowUnnamedTemp(unnamed);
                    if (kill) CKTTextFileFaults::Crash(step, nth);
                    else CKTTextFileFaults::Set(step, nth, ENOSPC);
                    CKTTextFileWrite file(Path("a.sql").c_str(), TEXTENCODING_UTF8_BOM);
                    file.Write(newText.c_str());
                    file.Write(newText.c_str());
                    const bool closed = file.Close();
                    if (kill) _exit(0);   // the step was never reached
                    CKTTextFileFaults::Reset();
                    EXPECT_EQ(closed, replaced);
                    if (!closed) {
                        EXPECT_EQ(file.GetError(), TEXTFILEERROR_WRITE_FAILED);
                        EXPECT_NE(file.GetErrorText().Find("No space left"), -1) << file.GetErrorText().c_str();
                    }
                } else {
                    int status = 0;
                    ASSERT_EQ(waitpid(child, &status, 0), child);
                    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
                }
                EXPECT_EQ(Get(Path("a.sql")), replaced ? newBytes : oldBytes);
                if (kill) {
                    // A name exists while the file is named and the target not yet replaced.
                    const bool named = !replaced && (!unnamed || step == TEXTFILEFAULT_RENAME);
                    EXPECT_EQ(Entries().size(), named ? 2 : 1);
                    // By turns the next load or the next save of the target cleans up.
                    EXPECT_TRUE(++use % 2 ? CKTTextFileRead(Path("a.sql").c_str()).IsOpen()
                                          : Save(Path("a.sql"), "saved", TEXTENCODING_UTF8));
                }
                EXPECT_EQ(Entries(), QStringList({"a.sql"}));
            }
        }
    }
}

// Left open by the caller, the encoding of a new file is UTF-8, and the code page of ANSI the
// system language's.
TEST_F(TextFileTest, WithoutAFileTheSystemDecides) {
    ASSERT_TRUE(Save(Path("new.sql"), "한", TEXTENCODING(-1)));
    EXPECT_EQ(Get(Path("new.sql")), "한");
    setenv("QUILLBOX_LANGID", "1041", 1);
    ASSERT_TRUE(Save(Path("new.sql"), "體", TEXTENCODING_ANSI));
    EXPECT_EQ(Get(Path("new.sql")), "\xE9\x93");
}
