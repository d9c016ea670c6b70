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

TEST_F(SqlWindowTest, AnUnnamedWindowAsksWhereAndInWhichEncodingAndAFailedSaveAsksAgain) {
    QTemporaryDir dir;
    // The dialog's answer: a file (none: Cancel) under a file type and a sub type.
    struct Row { const char* text; const char* file; int fileType, subType; EM_TesselEncoding encoding; QByteArray saved; const char* message; };
    const Row rows[] = {
        {"select '한' from t\n", nullptr, 0, 0, EncodingUndecided, "<missing>", nullptr},
        // Nothing the legacy code page can hold: the choice stays, the window stays unnamed.
        {"emoji 😀\n", "e.sql", 0, 0, EncodingAnsi, "<missing>", "Failed to save file"},
        {"select '한' from t\n", "korean.sql", 0, 0, EncodingAnsi, "select '\xc7\xd1' from t\r\n", nullptr},
        {"select '한' from t\n", "new.sql", 1, 1, EncodingUnicode, "select '\xed\x95\x9c' from t\r\n", nullptr},  // "Unicode" under the second file type
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        load(row.text);
        window->SetFilePath("");
        const QString path = row.file ? dir.filePath(row.file) : QString();
        DialogScript script(path, row.fileType, row.subType);
        EXPECT_EQ(window->Save(dir.path().toUtf8().constData()), row.saved != "<missing>");
        EXPECT_EQ(script.shown, 1);
        EXPECT_EQ(script.messages, row.message ? QStringList{row.message} : QStringList{});
        EXPECT_EQ(window->GetEncoding(), row.encoding);
        EXPECT_EQ(window->GetFilePath().toQString(), row.saved != "<missing>" ? path : QString());
        EXPECT_EQ(readAll(path), row.saved);
    }
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
    // Named now: the next save writes at once, in the chosen encoding.
    DialogScript cancel{QString()};
    send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>("x"));
    ASSERT_TRUE(window->Save(nullptr));
    EXPECT_EQ(cancel.shown, 0);
    EXPECT_EQ(readAll(dir.filePath("new.sql")), "select '\xed\x95\x9c' from t\r\nx");
    // The proposed extension follows the last dot; a name without a folder still asks.
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
