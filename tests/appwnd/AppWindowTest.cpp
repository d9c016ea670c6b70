// The application editor window: options from the settings, user colours, file paths, the
// read-only mode, markers, notifications, the clipboard and loading files.
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <cstdlib>
#include <cstring>

#include "AppWindow.h"

namespace {
void setSetting(const char* name, int value) { CKTMgrSetting(0).SetInt(name, value); }

void setColour(const char* subKey, const char* name, DWORD colour) {
    CKTMgrSetting setting(0);
    CKTRegistry colours, inner;
    colours.Open(setting.GetKey(), "Editor Color");
    if (subKey) inner.Open(colours.GetKey(), subKey);
    (subKey ? inner : colours).SetDWORD(name, colour);
}
}  // namespace

TEST_F(AppWindowTest, OptionsComeFromTheSettingsAndApplyAgainWhileOpen) {
    create();
    using Send = std::array<long, 3>;  // message, wParam, expected answer
    struct Step { std::vector<std::pair<const char*, int>> settings; int fontSize; std::vector<Send> sends; };
    const Step steps[] = {
        {{}, 10, {{SCI_GETTABWIDTH, 0, 4}, {SCI_GETUSETABS, 0, 0}, {SCI_GETMARGINWIDTHN, 2, 16}}},
        {{{"Editor Font Size", 4}, {"Tab Size", 8}, {"Keep Tab", 1}, {"Folding Margin", 0}},  // 4 points: too small
         10, {{SCI_STYLEGETSIZE, 0, 10}, {SCI_GETTABWIDTH, 0, 8}, {SCI_GETUSETABS, 0, 1}, {SCI_GETINDENT, 0, 8},
              {SCI_GETMARGINWIDTHN, 2, 0}}},
        {{{"Editor Font Size", 5}}, 5, {{SCI_STYLEGETSIZE, 0, 5}}},
        {{{"Editor Font Size", 2000000000}, {"Tab Size", 0}}, 10, {{SCI_GETTABWIDTH, 0, 4}}},  // unusable: defaults
    };
    for (const Step& step : steps) {
        for (auto [name, value] : step.settings) setSetting(name, value);
        window->ApplyOptionOnRealtime();
        EXPECT_EQ(window->GetFontSize(), step.fontSize);
        for (const Send& s : step.sends) EXPECT_EQ(send(s[0], WPARAM(s[1])), s[2]) << s[0];
    }
    setSetting("File Backup", 1);
    setSetting("Blank After Comment", 1);
    CKTMgrSetting(0).SetString("Editor Font Name", "DejaVu Serif");
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(window->fileBackup, 1);
    EXPECT_EQ(window->blankAfterComment, 1);
    EXPECT_EQ(window->GetFontName(), "DejaVu Serif");
    EXPECT_EQ(window->fontSetting, "font:DejaVu Serif,size:10");
}

TEST_F(AppWindowTest, ColoursComeFromTheTableOrTheSettingsByEditingMode) {
    setColour(nullptr, "Edit Mode Background Color", 0x00F0F0F0);
    setColour(nullptr, "ReadOnly Mode Background Color", 0x00E0E0E0);
    setColour("Editable", "Keyword", 0x00123456);
    create();
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0x123456);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 20), 0x800080);  // from the table
    EXPECT_EQ(send(SCI_STYLEGETFORE, 13), 0x009100);
    EXPECT_EQ(window->GetBackgroundColor(), 0xF0F0F0u);

    // No "Readonly" subkey: backgrounds from the settings, foregrounds from the table.
    send(SCI_SETREADONLY, 1);
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(window->GetBackgroundColor(), 0xE0E0E0u);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0xFF0000);
    setColour("Readonly", "String", 0x00ABCDEF);
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(send(SCI_STYLEGETFORE, 6), 0xABCDEF);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 7), 0xABCDEF);
    window->ApplyVisualOption();  // restyling from the property file keeps the user's colours
    EXPECT_EQ(send(SCI_STYLEGETFORE, 6), 0xABCDEF);

    window->SetReadOnlyMode(1);
    EXPECT_EQ(window->GetBackgroundColor(), 0xC3C3C3u);
    EXPECT_EQ(window->SetTextForReadOnly("output\n", 0), 0);
    EXPECT_EQ(text(), "output\r\n");
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    window->SetReadOnlyMode(0);
    EXPECT_EQ(window->GetBackgroundColor(), 0xFFFFFFu);
}

TEST_F(AppWindowTest, FilePathsSplitAtTheLaterSeparator) {
    const std::pair<const char*, const char*> rows[] = {
        {"/home/me/q.sql", "/home/me/q.sql"}, {"C:\\a/b\\p.sql", "C:\\a/b/p.sql"}, {"plain.sql", "plain.sql"},
        {"/only", "/only"},  // the one separator at index 0 keeps the whole path as the name
        {"folder/", ""},     // a folder with no name gives nothing
    };
    for (auto [path, expected] : rows) {
        window->SetFilePath(path);
        EXPECT_EQ(window->GetFilePath(), expected) << path;
    }
}

TEST_F(AppWindowTest, LineFlagsMarkTheCaretsLineOrALineCountedFromOne) {
    setenv("QUILLBOX_LANGID", "1041", 1);
    create();
    unsetenv("QUILLBOX_LANGID");
    EXPECT_EQ(window->GetAnsiCodePage(), 932);  // the legacy code page follows the system language
    EXPECT_EQ(send(SCI_GETCODEPAGE), SC_CP_UTF8);  // and the document stays UTF-8

    window->SetText("a\nb\nc\nd\ne\nf\n", 0);
    send(SCI_GOTOLINE, 2);
    window->SetLineFlag(-1, 2, 1);
    window->SetLineFlag(5, 2, 1);
    EXPECT_EQ(send(SCI_MARKERGET, 2), 1 << 2);
    EXPECT_EQ(send(SCI_MARKERGET, 4), 1 << 2);
    window->SetLineFlag(-1, 2, 0);
    window->SetLineFlag(5, 1, 0);  // another marker: the line keeps its own
    EXPECT_EQ(send(SCI_MARKERGET, 2), 0);
    EXPECT_EQ(send(SCI_MARKERGET, 4), 1 << 2);
}

TEST_F(AppWindowTest, NotificationsOfTheOwnEngineAreRoutedAndTheClipboardIsUtf8) {
    create();
    EXPECT_EQ(window->GetBackgroundColor(), CKTScinWnd::SystemWindowColour());  // no colour set
    window->SetText("x", 0);
    window->modifiedCalls = 0;
    QApplication::processEvents();
    send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>("y"));  // leaves the save point
    EXPECT_GE(window->modifiedCalls, 1);
    EXPECT_TRUE(window->lastModified);
    send(SCI_SETSAVEPOINT);
    EXPECT_FALSE(window->lastModified);

    SCNotification n;
    n.nmhdr.code = SCN_SAVEPOINTLEFT;
    n.nmhdr.hwndFrom = frame->GetSafeHwnd();
    LRESULT result = 0;
    EXPECT_FALSE(window->OnNotify(0, reinterpret_cast<LPARAM>(&n), &result));
    n.nmhdr.hwndFrom = window->GetSafeHwnd();
    n.nmhdr.code = 9999;  // not one of the routed codes: still answered
    EXPECT_TRUE(window->OnNotify(0, reinterpret_cast<LPARAM>(&n), &result));
    EXPECT_EQ(result, 1);

    const char* copied = "select 한";
    send(SCI_COPYTEXT, strlen(copied), reinterpret_cast<LPARAM>(copied));
    CString pasted;
    EXPECT_EQ(window->IsTextInClipboard(), 1);
    EXPECT_EQ(window->GetFromClipboard(pasted), 1);
    EXPECT_EQ(pasted, copied);
}

TEST_F(AppWindowTest, LoadingAFileThatCannotBeReadKeepsTheOpenDocument) {
    create();
    window->SetText("unsaved work\n", 1);
    QTemporaryDir dir;
    auto file = [&](const char* name, const QByteArray& bytes) {
        QFile f(dir.filePath(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return dir.filePath(name).toUtf8();
    };
    // No byte order mark, and no code page fits.
    EXPECT_EQ(window->LoadFile(file("bad.sql", "select \x80\xff\x81 not text").constData()), 0);
    EXPECT_EQ(text(), "unsaved work\r\n");
    EXPECT_EQ(send(SCI_CANUNDO), 1);

    EXPECT_EQ(window->LoadFile(file("good.sql", "select 1;\n").constData()), 1);
    EXPECT_EQ(text(), "select 1;\r\n");
    EXPECT_EQ(send(SCI_CANUNDO), 0);
    window->GetSafeHwnd()->grab();  // a paint: the loaded text is lexed as it shows
    EXPECT_EQ(send(SCI_GETSTYLEAT, 0), 5);  // the SQL lexer's keyword style

    EXPECT_EQ(window->LoadFile(file("empty.sql", "").constData()), 1);
    EXPECT_TRUE(window->IsEmpty());
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
}
