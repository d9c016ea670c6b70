// The file dialog: pipe-form filters into Qt name filters, well-formed and not; then the dialog
// answered through its hook, as a person would answer it.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QWidget>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "CFileDialogEx.h"
#include "MessageBox.h"

namespace {
// The widget dialog keeps its layout in the user's Qt settings when it closes; these tests
// keep theirs apart. This runs before main, ahead of the first settings read.
const bool settingsApart = [] {
    const auto dir = std::filesystem::temp_directory_path() / "quillbox-tablekit-test-config";
    return setenv("XDG_CONFIG_HOME", dir.string().c_str(), 1) == 0;
}();

const char* const kSqlFilter = "SQL Files (*.sql)|*.sql|Text files (*.txt)|*.txt|All Files (*.*)|*.*||";
constexpr unsigned long kSaveFlags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_LONGNAMES;

// Runs the dialog with `answer` as the person in front of it.
int runWith(CFileDialogEx& dialog, FileDialogHook answer) {
    FileDialogHook previous = SetFileDialogHook(std::move(answer));
    const int result = dialog.DoModal();
    SetFileDialogHook(std::move(previous));
    return result;
}
int accept(CFileDialogEx&) { return IDOK; }

// What DoModal left chosen: file type index, sub type index and file name.
std::string choice(const CFileDialogEx& d) {
    return std::to_string(d.GetFileTypeIndex()) + " " + std::to_string(d.GetSubIndex()) + " " + d.GetFileName().str();
}

QStringList items(const QComboBox* combo) {
    QStringList texts;
    for (int i = 0; combo && i < combo->count(); ++i) texts << combo->itemText(i);
    return texts;
}

class FileDialogEx : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(settingsApart && folder.isValid()); }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    // A dialog on the scratch folder; `editor` gives it the editor's ANSI/Unicode choice per type.
    std::unique_ptr<CFileDialogEx> make(int open, const char* name, unsigned long flags, bool editor = false) {
        auto d = std::make_unique<CFileDialogEx>(open, ".sql", name, flags, kSqlFilter, nullptr);
        d->GetOFN().lpstrInitialDir = folderUtf8.c_str();
        d->MultySubtype(editor);
        for (int type = 0; editor && type < 3; ++type) {
            d->AddSubType(type, "ANSI", 0);
            d->AddSubType(type, "Unicode", 0);
        }
        return d;
    }
    QTemporaryDir folder;
    std::string folderUtf8 = folder.path().toStdString();
    // Message boxes are collected instead of shown.
    QStringList messages;
    MessageBoxHook previous = SetMessageBoxHook([this](const char* text, const char*, UINT) {
        messages << QString::fromUtf8(text);
        return IDOK;
    });
    void TearDown() override { SetMessageBoxHook(std::move(previous)); }
};
}  // namespace

TEST(FileDialogFilter, FiltersBecomeLabelsWithTheirPatterns) {
    const std::pair<const char*, QStringList> rows[] = {
        {"SQL Files (*.sql)|*.sql|Text files (*.txt)|*.txt|All Files (*.*)|*.*||",
         {"SQL Files (*.sql)", "Text files (*.txt)", "All Files (*)"}},
        // Several patterns, a label without parentheses, parentheses that are not patterns.
        {"Scripts|*.sql; *.ddl|Logs (SQL)|*.log||", {"Scripts (*.sql *.ddl)", "Logs (SQL) (*.log)"}},
        {"Scripts (*.sql)|*.sql;*.ddl||", {"Scripts (*.sql *.ddl)"}},  // the real patterns win
        // Malformed: nothing usable gives every file; an empty label ends the list at once.
        {nullptr, {"All Files (*)"}},
        {"", {"All Files (*)"}},
        {"||||", {"All Files (*)"}},
        {"|*.sql|Text|*.txt||", {"All Files (*)"}},
        // A missing pattern list comes from the label's parentheses, else shows every file.
        {"SQL Files (*.sql)||Text|*.txt||", {"SQL Files (*.sql)", "Text (*.txt)"}},
        {"SQL|*.sql|Text", {"SQL (*.sql)", "Text (*)"}},  // an odd count
        {"SQL|;;", {"SQL (*)"}},
        {"(*.sql)|", {"*.sql (*.sql)"}},
        // Patterns Qt could not read are dropped; a space inside one becomes a wildcard.
        {"Data|*.donn\xC3\xA9" "es;*.dat|Mine|my file.*||", {"Data (*.dat)", "Mine (my?file.*)"}},
    };
    for (const auto& [filter, expected] : rows)
        EXPECT_EQ(CFileDialogEx::ConvertFilter(filter), expected) << (filter ? filter : "null");
}

TEST_F(FileDialogEx, SubTypesFollowTheFileType) {
    auto d = make(0, "script", kSaveFlags);
    d->MultySubtype(true);
    const std::pair<int, const char*> subTypes[] = {{1, "A"}, {1, "B"}, {2, "C"}, {-1, "ignored"}};
    for (const auto& [type, label] : subTypes) d->AddSubType(type, label, 0);
    d->SetShowIndex(1);
    ASSERT_EQ(runWith(*d, [](CFileDialogEx& dlg) {
        QComboBox* sub = dlg.subTypeCombo();
        EXPECT_TRUE(items(sub).isEmpty());  // type 0 has no list: the row stays, with no choice
        EXPECT_FALSE(sub->isHidden() || sub->isEnabled());
        dlg.SelectFileType(2);
        EXPECT_EQ(items(sub), QStringList({"C"}));
        EXPECT_EQ(sub->currentIndex(), 0);  // the show index is past this list's end
        dlg.fileDialog()->selectNameFilter("Text files (*.txt)");  // Qt's own call refills too
        EXPECT_EQ(items(sub), QStringList({"A", "B"}));
        EXPECT_EQ(sub->currentIndex(), 1);
        EXPECT_FALSE(dlg.SelectFileType(3) || dlg.SelectFileType(-1) || dlg.SelectSubType(2));
        EXPECT_TRUE(dlg.SelectSubType(0));
        return IDOK;
    }), IDOK);
    EXPECT_EQ(choice(*d), "1 0 script.sql");
    EXPECT_EQ(d->GetOFN().nFilterIndex, 2u);

    auto shared = make(0, "a", 0);  // without MultySubtype one common list, whatever the type
    shared->AddSubType(0, "ANSI", 0);
    shared->AddSubType(2, "Unicode", 0);
    shared->SetShowIndex(7);
    shared->GetOFN().nFilterIndex = 3;
    ASSERT_EQ(runWith(*shared, [](CFileDialogEx& dlg) {
        EXPECT_EQ(items(dlg.subTypeCombo()), QStringList({"ANSI", "Unicode"}));
        EXPECT_EQ(dlg.subTypeCombo()->currentIndex(), 0);
        return dlg.SelectSubType(1) ? IDOK : IDCANCEL;
    }), IDOK);
    EXPECT_EQ(choice(*shared), "2 1 a.sql");

    auto plain = make(0, "a", 0);
    plain->GetOFN().nFilterIndex = 99;  // out of range: the first type
    ASSERT_EQ(runWith(*plain, [](CFileDialogEx& dlg) {
        EXPECT_TRUE(dlg.subTypeCombo()->isHidden());  // no sub types: looks like the plain dialog
        return IDOK;
    }), IDOK);
    EXPECT_EQ(choice(*plain), "0 0 a.sql");
}

TEST_F(FileDialogEx, ChosenPathNameAndSubIndexAsTheEditorSavesWithThem) {
    auto d = make(0, "query", kSaveFlags, true);
    // Accepting the proposal: the folder given, the default extension appended.
    ASSERT_EQ(runWith(*d, accept), IDOK);
    EXPECT_EQ(d->GetPathName().toQString(), path("query.sql"));
    EXPECT_EQ(choice(*d), "0 0 query.sql");
    // Another name and type, "Unicode": a name with an extension keeps it.
    ASSERT_EQ(runWith(*d, [this](CFileDialogEx& dlg) {
        dlg.SelectFileType(1);
        dlg.EnterFileName(CString::fromQString(path("notes.txt")));
        dlg.subTypeCombo()->setCurrentIndex(1);
        return IDOK;
    }), IDOK);
    EXPECT_EQ(d->GetPathName().toQString(), path("notes.txt"));
    EXPECT_EQ(choice(*d), "1 1 notes.txt");
    // Cancel, or any answer but OK, leaves nothing chosen.
    for (int answer : {IDCANCEL, 0, IDYES}) {
        EXPECT_EQ(runWith(*d, [answer](CFileDialogEx&) { return answer; }), IDCANCEL);
        EXPECT_TRUE(d->GetPathName().IsEmpty());
        EXPECT_EQ(choice(*d), "0 0 ");
    }
    EXPECT_EQ(d->DoModal(), IDCANCEL);  // nobody to answer on the offscreen platform

    // Long and UTF-8 names cross as UTF-8.
    const char* folderName = "my scripts/\xEB\x8D\xB0\xEC\x9D\xB4\xED\x84\xB0 fichiers \xC3\xA9t\xC3\xA9";
    ASSERT_TRUE(QDir(folder.path()).mkpath(QString::fromUtf8(folderName)));
    const std::string start = folderUtf8 + "/" + folderName;
    const char* name = "\xEC\x8A\xA4\xED\x81\xAC\xEB\xA6\xBD\xED\x8A\xB8 1 (copy)";
    auto utf8 = make(0, name, kSaveFlags);
    utf8->GetOFN().lpstrInitialDir = start.c_str();
    ASSERT_EQ(runWith(*utf8, accept), IDOK);
    EXPECT_EQ(utf8->GetPathName().str(), start + "/" + name + ".sql");
    EXPECT_EQ(utf8->GetFileName().str(), std::string(name) + ".sql");
}

TEST_F(FileDialogEx, FlagsAskBeforeOverwritingAndRefuseMissingPlaces) {
    auto d = make(0, "x", kSaveFlags);
    EXPECT_FALSE(d->fileDialog()->testOption(QFileDialog::DontConfirmOverwrite));
    d->GetOFN().Flags = OFN_LONGNAMES;  // a change before DoModal counts
    // Without OFN_PATHMUSTEXIST any folder goes; with it a missing one is refused and said so.
    const QString missing = path("missing/x.sql");
    auto chooseMissing = [&](CFileDialogEx& dlg) {
        EXPECT_EQ(dlg.fileDialog()->testOption(QFileDialog::DontConfirmOverwrite), dlg.GetOFN().Flags == OFN_LONGNAMES);
        dlg.EnterFileName(CString::fromQString(missing));
        return IDOK;
    };
    EXPECT_EQ(runWith(*d, chooseMissing), IDOK);
    EXPECT_EQ(d->GetPathName().toQString(), missing);
    d->GetOFN().Flags = kSaveFlags;
    EXPECT_EQ(runWith(*d, chooseMissing), IDCANCEL);
    EXPECT_TRUE(d->GetPathName().IsEmpty());
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].contains(QDir::toNativeSeparators(path("missing"))));
    // The dialog's own OK button refuses it too, and the dialog stays open.
    runWith(*d, [&](CFileDialogEx& dlg) {
        chooseMissing(dlg);
        static_cast<QDialog*>(dlg.fileDialog())->accept();  // the dialog's OK
        EXPECT_NE(dlg.fileDialog()->result(), QDialog::Accepted);
        return IDCANCEL;
    });
    EXPECT_EQ(messages.size(), 2);

    // An open dialog with OFN_FILEMUSTEXIST takes only a file that is there.
    QFile existing(path("there.sql"));
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    existing.close();
    auto open = make(1, "absent", OFN_FILEMUSTEXIST);
    EXPECT_EQ(runWith(*open, accept), IDCANCEL);
    EXPECT_EQ(runWith(*open, [&](CFileDialogEx& dlg) {
        dlg.EnterFileName(CString::fromQString(existing.fileName()));
        return IDOK;
    }), IDOK);
    EXPECT_EQ(open->GetFileName(), "there.sql");
    EXPECT_EQ(messages.size(), 3);
}

TEST_F(FileDialogEx, ParentGoneBeforeTheDialogRuns) {
    auto parent = std::make_unique<QWidget>();
    CFileDialogEx d(0, "sql", "x", kSaveFlags, kSqlFilter, CWnd::FromWidget(parent.get()));
    ASSERT_NE(d.fileDialog(), nullptr);
    EXPECT_EQ(d.fileDialog()->parentWidget(), parent.get());
    parent.reset();  // takes the dialog with it
    EXPECT_EQ(d.fileDialog(), nullptr);
    d.AddSubType(0, "ANSI", 0);
    EXPECT_EQ(runWith(d, accept), IDCANCEL);
}
