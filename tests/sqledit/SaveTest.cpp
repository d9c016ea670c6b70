// Saving a script: a named window writes at once; an unnamed one asks where, and in which
// encoding, through the file dialog.
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

#include "CFileDialogEx.h"
#include "MessageBox.h"
#include "SqlWindow.h"

namespace {
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

// Answers the file dialog as a user would: a file, a file type and a sub type, or Cancel.
struct Choice {
    QString path;
    int fileType = 0;
    int subType = 0;
    bool cancel = false;
};

class DialogScript {
public:
    explicit DialogScript(Choice choice) {
        previous_ = SetFileDialogHook([this, choice](CFileDialogEx& dialog) {
            ++shown;
            defaultSuffix = dialog.fileDialog()->defaultSuffix();
            if (choice.cancel) return IDCANCEL;
            const QStringList filters = dialog.fileDialog()->nameFilters();
            dialog.fileDialog()->selectNameFilter(filters.value(choice.fileType));
            dialog.fileDialog()->selectFile(choice.path);
            dialog.subTypeCombo()->setCurrentIndex(choice.subType);
            return IDOK;
        });
    }
    ~DialogScript() { SetFileDialogHook(previous_); }
    int shown = 0;
    QString defaultSuffix;

private:
    FileDialogHook previous_;
};

class MessageRecorder {
public:
    MessageRecorder() {
        previous_ = SetMessageBoxHook([this](const char* text, const char*, UINT) {
            messages << QString::fromUtf8(text);
            return IDOK;
        });
    }
    ~MessageRecorder() { SetMessageBoxHook(previous_); }
    QStringList messages;

private:
    MessageBoxHook previous_;
};
}  // namespace

TEST_F(SqlWindowTest, AnUnnamedWindowAsksWhereAndInWhichEncoding) {
    QTemporaryDir dir;
    load("select '한' from t\n");
    DialogScript script({dir.filePath("new.sql"), 1, 1});  // "Unicode" under the second file type
    ASSERT_TRUE(window->Save(nullptr));
    EXPECT_EQ(script.shown, 1);
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

TEST_F(SqlWindowTest, AnsiWritesTheLegacyCodePageAndCancelChangesNothing) {
    QTemporaryDir dir;
    load("select '한' from t\n");
    {
        DialogScript cancel({QString(), 0, 0, true});
        EXPECT_FALSE(window->Save(nullptr));
        EXPECT_EQ(window->GetEncoding(), EncodingUndecided);
        EXPECT_EQ(window->GetFilePath(), "");
    }
    DialogScript ansi({dir.filePath("korean.sql"), 0, 0});
    ASSERT_TRUE(window->Save(dir.path().toUtf8().constData()));
    EXPECT_EQ(window->GetEncoding(), EncodingAnsi);
    EXPECT_EQ(readAll(dir.filePath("korean.sql")), "select '\xc7\xd1' from t\r\n");
}

TEST_F(SqlWindowTest, TheProposedExtensionFollowsTheLastDot) {
    QTemporaryDir dir;
    load("x");
    window->SetFilePath("report.final.sql");  // a name without a folder still asks
    DialogScript script({QString(), 0, 0, true});
    window->Save(nullptr);
    EXPECT_EQ(script.defaultSuffix, "sql");
    window->SetFilePath("noextension");
    window->Save(nullptr);
    EXPECT_EQ(script.defaultSuffix, "");
}

TEST_F(SqlWindowTest, AFailedSaveSaysSoAndTheNextSaveAsksAgain) {
    QTemporaryDir dir;
    load("emoji 😀\n");  // nothing the legacy code page can hold
    MessageRecorder recorder;
    DialogScript script({dir.filePath("e.sql"), 0, 0});
    EXPECT_FALSE(window->Save(nullptr));
    EXPECT_EQ(recorder.messages, QStringList{"Failed to save file"});
    EXPECT_EQ(window->GetEncoding(), EncodingAnsi);  // the choice stays
    EXPECT_EQ(window->GetFilePath(), "");
    EXPECT_FALSE(window->Save(nullptr));
    EXPECT_EQ(script.shown, 2);
}

TEST_F(SqlWindowTest, ANamedWindowKeepsTheFilesOwnEncoding) {
    QTemporaryDir dir;
    const QString path = dir.filePath("legacy.sql");
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("select '\xc7\xd1';\r\n");  // code page 949
    f.close();
    ASSERT_EQ(window->LoadFile(path.toUtf8().constData()), 1);
    window->SetFilePath(path.toUtf8().constData());
    send(SCI_APPENDTEXT, 3, reinterpret_cast<LPARAM>("--x"));
    ASSERT_TRUE(window->Save(nullptr));
    EXPECT_EQ(window->GetEncoding(), EncodingUndecided);
    EXPECT_EQ(readAll(path), "select '\xc7\xd1';\r\n--x");
}

TEST_F(SqlWindowTest, KeepLineEndsSavesTheLineEndsTheFileHad) {
    QTemporaryDir dir;
    struct Case { const char* name; QByteArray content; BOOL keep; QByteArray saved; };
    const Case cases[] = {
        {"lf.sql", "select 1;\nselect 2;\n", 1, "select 1;\nselect 2;\n--x\n"},
        {"cr.sql", "select 1;\rselect 2;\r", 1, "select 1;\rselect 2;\r--x\r"},
        {"mostly-lf.sql", "a\nb\r\nc\n", 1, "a\nb\nc\n--x\n"},
        {"crlf.sql", "select 1;\r\n", 1, "select 1;\r\n--x\r\n"},
        {"lf-not-kept.sql", "select 1;\n", 0, "select 1;\r\n--x\r\n"},  // the default: CR LF
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        {
            CKTMgrSetting setting(0);
            setting.SetBOOL("Keep Line Ends", c.keep);
        }
        window->ApplyOptionOnRealtime();
        const QString path = dir.filePath(c.name);
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(c.content);
        f.close();
        ASSERT_EQ(window->LoadFile(path.toUtf8().constData()), 1);
        window->SetFilePath(path.toUtf8().constData());
        send(SCI_DOCUMENTEND);
        QTest::keyClicks(window->GetSafeHwnd(), "--x");
        QTest::keyClick(window->GetSafeHwnd(), Qt::Key_Return);
        ASSERT_TRUE(window->Save(nullptr));
        EXPECT_EQ(readAll(path), c.saved);
    }
}
