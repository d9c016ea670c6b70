// Saving a script: a named window writes at once, in the file's own encoding and, when asked,
// its own line ends; an unnamed one asks where, and in which encoding, through the file dialog.
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

#include "CFileDialogEx.h"
#include "MessageBox.h"
#include "SqlWindow.h"

namespace {
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

// Answers the file dialog as a user would: a file, a file type and a sub type, or Cancel
// (no path); records the messages shown meanwhile.
class DialogScript {
public:
    DialogScript(const QString& path, int fileType = 0, int subType = 0) {
        previous_ = SetFileDialogHook([=, this](CFileDialogEx& dialog) {
            ++shown;
            defaultSuffix = dialog.fileDialog()->defaultSuffix();
            if (path.isEmpty()) return IDCANCEL;
            dialog.fileDialog()->selectNameFilter(dialog.fileDialog()->nameFilters().value(fileType));
            dialog.fileDialog()->selectFile(path);
            dialog.subTypeCombo()->setCurrentIndex(subType);
            return IDOK;
        });
        previousBox_ = SetMessageBoxHook([this](const char* text, const char*, UINT) {
            return messages << QString::fromUtf8(text), IDOK;
        });
    }
    ~DialogScript() { SetFileDialogHook(previous_), SetMessageBoxHook(previousBox_); }
    int shown = 0;
    QString defaultSuffix;
    QStringList messages;

private:
    FileDialogHook previous_;
    MessageBoxHook previousBox_;
};
}  // namespace

TEST_F(SqlWindowTest, AnUnnamedWindowAsksWhereAndInWhichEncoding) {
    QTemporaryDir dir;
    load("select '한' from t\n");
    {
        DialogScript cancel{QString()};
        EXPECT_FALSE(window->Save(nullptr));
        EXPECT_EQ(window->GetEncoding(), EncodingUndecided);
        EXPECT_EQ(window->GetFilePath(), "");
    }
    {
        DialogScript ansi(dir.filePath("korean.sql"));
        ASSERT_TRUE(window->Save(dir.path().toUtf8().constData()));
        EXPECT_EQ(window->GetEncoding(), EncodingAnsi);
        EXPECT_EQ(readAll(dir.filePath("korean.sql")), "select '\xc7\xd1' from t\r\n");
    }
    window->SetFilePath("");
    DialogScript script(dir.filePath("new.sql"), 1, 1);  // "Unicode" under the second file type
    ASSERT_TRUE(window->Save(nullptr));
    EXPECT_EQ(window->GetEncoding(), EncodingUnicode);
    EXPECT_EQ(window->GetFilePath().toQString(), dir.filePath("new.sql"));
    EXPECT_EQ(readAll(dir.filePath("new.sql")), "select '\xed\x95\x9c' from t\r\n");
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
    // Named now: the next save writes at once.
    send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>("x"));
    ASSERT_TRUE(window->Save(nullptr));
    EXPECT_EQ(script.shown, 1);
    EXPECT_EQ(readAll(dir.filePath("new.sql")), "select '\xed\x95\x9c' from t\r\nx");
}

TEST_F(SqlWindowTest, AFailedSaveSaysSoAndTheNextSaveAsksAgain) {
    QTemporaryDir dir;
    load("emoji 😀\n");  // nothing the legacy code page can hold
    DialogScript script(dir.filePath("e.sql"));
    EXPECT_FALSE(window->Save(nullptr));
    EXPECT_EQ(script.messages, QStringList{"Failed to save file"});
    EXPECT_EQ(window->GetEncoding(), EncodingAnsi);  // the choice stays
    EXPECT_EQ(window->GetFilePath(), "");
    EXPECT_FALSE(window->Save(nullptr));
    EXPECT_EQ(script.shown, 2);
    // The proposed extension follows the last dot; a name without a folder still asks.
    DialogScript cancel{QString()};
    for (auto [name, suffix] : {std::pair{"report.final.sql", "sql"}, {"noextension", ""}}) {
        window->SetFilePath(name);
        window->Save(nullptr);
        EXPECT_EQ(cancel.defaultSuffix, suffix);
    }
}

TEST_F(SqlWindowTest, ANamedWindowKeepsTheFilesEncodingAndWhenAskedItsLineEnds) {
    QTemporaryDir dir;
    struct Case { const char* name; QByteArray content; BOOL keep; QByteArray saved; };
    const Case cases[] = {
        {"lf.sql", "select 1;\nselect 2;\n", 1, "select 1;\nselect 2;\n--x\n"},
        {"cr.sql", "select 1;\rselect 2;\r", 1, "select 1;\rselect 2;\r--x\r"},
        {"mostly-lf.sql", "a\nb\r\nc\n", 1, "a\nb\nc\n--x\n"},
        {"crlf.sql", "select 1;\r\n", 1, "select 1;\r\n--x\r\n"},
        {"lf-not-kept.sql", "select 1;\n", 0, "select 1;\r\n--x\r\n"},  // the default: CR LF
        {"cp949.sql", "select '\xc7\xd1';\r\n", 0, "select '\xc7\xd1';\r\n--x\r\n"},  // the legacy code page stays
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CKTMgrSetting(0).SetBOOL("Keep Line Ends", c.keep);
        window->ApplyOptionOnRealtime();
        const QString path = dir.filePath(c.name);
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(c.content) == c.content.size());
        f.close();
        ASSERT_EQ(window->LoadFile(path.toUtf8().constData()), 1);
        window->SetFilePath(path.toUtf8().constData());
        send(SCI_DOCUMENTEND);
        QTest::keyClicks(window->GetSafeHwnd(), "--x");
        key(Qt::Key_Return);
        ASSERT_TRUE(window->Save(nullptr));
        EXPECT_EQ(window->GetEncoding(), EncodingUndecided);
        EXPECT_EQ(readAll(path), c.saved);
    }
}
