// Loading and saving files: encodings kept, backups moved, and failures that change nothing.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <fstream>
#include <string>
#include <unistd.h>

#include "EditorFixture.h"
#include "MemoryLimit.h"

class FileTest : public EditorTest {
protected:
    QString path(const char* name) const { return dir.filePath(name); }
    QByteArray local(const char* name) const { return path(name).toUtf8(); }
    QByteArray read(const char* name) const {
        QFile f(path(name));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
    }
    void write(const char* name, const QByteArray& bytes) {
        QFile f(path(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    // Loads the text and changes it by one more byte, so that it is modified.
    void loadModified(const char* content, const char* more) {
        load(content);
        send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>(more));
    }
    QTemporaryDir dir;
};

TEST_F(FileTest, LoadingLeavesNothingToUndoAndTheCaretAtTheStart) {
    EXPECT_EQ(editor->LoadFile(""), 1);
    EXPECT_EQ(editor->LoadFile(nullptr), 1);
    write("a.sql", "select 1\nfrom dual;\n");
    load("previous");
    send(SCI_GOTOPOS, 3);
    ASSERT_EQ(editor->LoadFile(local("a.sql")), 1);
    EXPECT_EQ(text(), "select 1\nfrom dual;\n");  // LF mode of the test window
    expectSends({{SCI_CANUNDO, 0, 0}, {SCI_GETMODIFY, 0, 0}, {SCI_GETCURRENTPOS, 0, 0}});
}

TEST_F(FileTest, AFileThatDoesNotDecodeLeavesTheDocumentAlone) {
    write("bad.sql", QByteArray("select '\x80\xff\x81' from t"));  // no code page fits
    loadModified("keep me", "!");
    EXPECT_EQ(editor->LoadFile(local("bad.sql")), 0);
    EXPECT_EQ(text(), "keep me!");
    EXPECT_EQ(send(SCI_GETMODIFY), 1);
    EXPECT_FALSE(editor->GetLastFileError().IsEmpty());
    EXPECT_EQ(editor->LoadFile(local("missing.sql")), 0);
    EXPECT_EQ(text(), "keep me!");
}

TEST_F(FileTest, AFileTooLargeForTheMemoryLeftFailsAndLeavesTheDocumentAlone) {
#ifdef QUILLBOX_SANITIZED_ALLOCATOR
    GTEST_SKIP() << "the sanitizers' allocator cannot run under an address space limit";
#else
    write("big.sql", QByteArray(64 << 20, 'x'));
    loadModified("keep me", "!");
    // Less room than the file's text needs in the engine.
    EXPECT_TRUE(PassesWithLittleMemory(
        [&] {
            return editor->LoadFile(local("big.sql")) == 0 && text() == "keep me!" && send(SCI_GETMODIFY) == 1 &&
                   send(SCI_CANUNDO) == 1 && editor->GetLastFileError().Find("memory") != -1;
        },
        32 << 20));
#endif
}

TEST_F(FileTest, TheFileDecidesItsEncodingAndLegacyBytesComeBackTheSame) {
    // "select '한글'" in code page 949, CR LF line ends: read and written back unchanged.
    const QByteArray korean("select '\xc7\xd1\xb1\xdb' from t;\r\nselect 2;\r\n");
    write("k.sql", korean);
    ASSERT_EQ(editor->LoadFile(local("k.sql")), 1);
    EXPECT_EQ(text(), "select '한글' from t;\nselect 2;\n");
    EXPECT_EQ(editor->SaveFile(local("k.sql"), -1, false), 1);
    EXPECT_EQ(read("k.sql"), korean);
    const QByteArray utf8Bom("\xef\xbb\xbfselect '\xed\x95\x9c';\r\n");
    write("u.sql", utf8Bom);
    ASSERT_EQ(editor->LoadFile(local("u.sql")), 1);
    EXPECT_EQ(editor->SaveFile(local("u.sql"), 5, false), 1);  // out of range: the file decides
    EXPECT_EQ(read("u.sql"), utf8Bom);
    load("new 한\n");
    EXPECT_EQ(editor->SaveFile(local("new.sql"), -1, false), 1);  // a new file: UTF-8
    EXPECT_EQ(read("new.sql"), "new \xed\x95\x9c\r\n");
}

TEST_F(FileTest, SavingWritesCrLfAndSetsTheSavePointButKeepsTheLineEndMode) {
    loadModified("a\nb\n", "c");
    ASSERT_EQ(editor->SaveFile(local("out.sql"), 1, false), 1);
    EXPECT_EQ(read("out.sql"), "a\r\nb\r\nc");
    EXPECT_EQ(text(), "a\r\nb\r\nc");
    expectSends({{SCI_GETEOLMODE, 0, SC_EOL_LF}, {SCI_GETMODIFY, 0, 0}});
    loadModified("raw", "\n");  // the raw save sets the save point as well
    ASSERT_EQ(editor->SaveFile(local("raw.sql")), 1);
    EXPECT_EQ(read("raw.sql"), "raw\r\n");
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
}

TEST_F(FileTest, TheBackupHoldsTheStateBeforeTheLastSave) {
    for (const char* content : {"one\n", "two\n", "three\n"}) {
        load(content);
        ASSERT_EQ(editor->SaveFile(local("b.sql"), 1, true), 1);
        if (content[1] == 'n') { EXPECT_FALSE(QFile::exists(path("b.sql.bak"))); }  // nothing to back up yet
    }
    EXPECT_EQ(read("b.sql"), "three\r\n");
    EXPECT_EQ(read("b.sql.bak"), "two\r\n");  // one generation
}

TEST_F(FileTest, AFailedSaveChangesNeitherTheDocumentNorItsSavePoint) {
    loadModified("text\n", "!");
    const QByteArray missingFolder = dir.filePath("no/such/folder/x.sql").toUtf8();
    EXPECT_EQ(editor->SaveFile(missingFolder, 1, true), 0);
    EXPECT_EQ(editor->SaveFile(missingFolder), 0);
    EXPECT_EQ(text(), "text\n!");
    EXPECT_EQ(send(SCI_GETMODIFY), 1);
    EXPECT_FALSE(editor->GetLastFileError().IsEmpty());
    // A character the legacy code page cannot hold fails the save after the backup moved the old file.
    write("old.sql", "old\r\n");
    loadModified("emoji 😀\n", "x");
    EXPECT_EQ(editor->SaveFile(local("old.sql"), 0, true), 0);
    EXPECT_EQ(text(), "emoji 😀\nx");
    EXPECT_EQ(send(SCI_GETMODIFY), 1);
    EXPECT_EQ(read("old.sql.bak"), "old\r\n");
    EXPECT_FALSE(QFile::exists(path("old.sql")));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"old.sql.bak"});  // no temporary file left
}
