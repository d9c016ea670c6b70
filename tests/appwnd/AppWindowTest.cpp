// The application editor window: options from the settings, user colours, file paths.
#include <QApplication>
#include <cstdlib>
#include <cstring>
#include <QFile>
#include <QTemporaryDir>

#include "AppWindow.h"

namespace {
void setSetting(const char* name, int value) {
    CKTMgrSetting setting(0);
    setting.SetInt(name, value);
}

void setColour(const char* subKey, const char* name, DWORD colour) {
    CKTMgrSetting setting(0);
    CKTRegistry colours, inner;
    colours.Open(setting.GetKey(), "Editor Color");
    if (!subKey) {
        colours.SetDWORD(name, colour);
        return;
    }
    inner.Open(colours.GetKey(), subKey);
    inner.SetDWORD(name, colour);
}
}  // namespace

TEST_F(AppWindowTest, OptionsComeFromTheSettingsAndApplyAgainWhileOpen) {
    create();
    EXPECT_EQ(window->GetFontSize(), 10);
    EXPECT_EQ(send(SCI_GETTABWIDTH), 4);
    EXPECT_EQ(send(SCI_GETUSETABS), 0);
    EXPECT_EQ(window->GetDisplayFolding(), 1);

    setSetting("Editor Font Size", 4);  // too small: 10 points
    setSetting("Tab Size", 8);
    setSetting("Keep Tab", 1);
    setSetting("File Backup", 1);
    setSetting("Folding Margin", 0);
    setSetting("Blank After Comment", 1);
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(window->GetFontSize(), 10);
    EXPECT_EQ(send(SCI_STYLEGETSIZE, 0), 10);
    EXPECT_EQ(send(SCI_GETTABWIDTH), 8);
    EXPECT_EQ(send(SCI_GETUSETABS), 1);
    EXPECT_EQ(send(SCI_GETINDENT), 8);
    EXPECT_EQ(window->fileBackup, 1);
    EXPECT_EQ(window->blankAfterComment, 1);
    EXPECT_EQ(send(SCI_GETMARGINWIDTHN, 2), 0);

    setSetting("Editor Font Size", 5);
    {
        CKTMgrSetting setting(0);
        setting.SetString("Editor Font Name", "DejaVu Serif");
    }
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(window->GetFontSize(), 5);
    EXPECT_EQ(window->GetFontName(), "DejaVu Serif");
    EXPECT_EQ(window->fontSetting, "font:DejaVu Serif,size:5");

    // Values no window can use fall back to the defaults.
    setSetting("Editor Font Size", 2000000000);
    setSetting("Tab Size", 0);
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(window->GetFontSize(), 10);
    EXPECT_EQ(send(SCI_GETTABWIDTH), 4);
}

TEST_F(AppWindowTest, DefaultColoursWithoutAColourKey) {
    create();
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0xFF0000);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 20), 0x800080);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 13), 0x009100);
    EXPECT_EQ(window->GetBackgroundColor(), CKTScinWnd::SystemWindowColour());
}

TEST_F(AppWindowTest, ColoursFromTheSettingsFollowTheEditingMode) {
    setColour(nullptr, "Edit Mode Background Color", 0x00F0F0F0);
    setColour(nullptr, "ReadOnly Mode Background Color", 0x00E0E0E0);
    setColour("Editable", "Keyword", 0x00123456);
    create();
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0x123456);
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
    // Restyling from the property file keeps the user's colours.
    window->ApplyVisualOption();
    EXPECT_EQ(send(SCI_STYLEGETFORE, 6), 0xABCDEF);
}

TEST_F(AppWindowTest, WithoutKeywordsOnlyTheTextColourActs) {
    create(0);
    const long keywordBefore = send(SCI_STYLEGETFORE, 5);
    window->setForegroundColor(ColorKeyword, 0x0000AA);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), keywordBefore);
    window->setForegroundColor(ColorText, 0x0000BB);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 0), 0x0000BB);
    EXPECT_NE(send(SCI_STYLEGETFORE, 10), 0x0000BB);
}

TEST_F(AppWindowTest, FilePathsSplitAtTheLaterSeparator) {
    window->SetFilePath("/home/me/q.sql");
    EXPECT_EQ(window->GetFilePath(), "/home/me/q.sql");
    window->SetFilePath("C:\\a/b\\p.sql");
    EXPECT_EQ(window->GetFilePath(), "C:\\a/b/p.sql");
    window->SetFilePath("/only");  // the one separator at index 0 keeps the whole path as the name
    EXPECT_EQ(window->GetFilePath(), "/only");
    window->SetFilePath("plain.sql");
    EXPECT_EQ(window->GetFilePath(), "plain.sql");
    window->SetFilePath("folder/");  // a folder with no name gives nothing
    EXPECT_EQ(window->GetFilePath(), "");
}

TEST_F(AppWindowTest, ReadOnlyModeAndTextForIt) {
    create();
    window->SetReadOnlyMode(1);
    EXPECT_EQ(window->GetBackgroundColor(), 0xC3C3C3u);
    EXPECT_EQ(window->SetTextForReadOnly("output\n", 0), 0);
    EXPECT_EQ(window->GetText(), "output\r\n");
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    window->SetReadOnlyMode(0);
    EXPECT_EQ(window->GetBackgroundColor(), 0xFFFFFFu);
}

TEST_F(AppWindowTest, LineFlagsMarkTheCaretsLineOrALineCountedFromOne) {
    create();
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

TEST_F(AppWindowTest, LegacyCodePageFollowsTheSystemLanguageAndTheDocumentStaysUtf8) {
    setenv("QUILLBOX_LANGID", "1041", 1);
    create();
    unsetenv("QUILLBOX_LANGID");
    EXPECT_EQ(window->GetAnsiCodePage(), 932);
    EXPECT_EQ(send(SCI_GETCODEPAGE), SC_CP_UTF8);
}

TEST_F(AppWindowTest, NotificationsOfTheOwnEngineAreRoutedAndAnswered) {
    create();
    window->SetText("x", 0);
    window->modifiedCalls = 0;
    QApplication::processEvents();
    send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>("y"));  // leaves the save point
    EXPECT_GE(window->modifiedCalls, 1);
    EXPECT_TRUE(window->lastModified);
    send(SCI_SETSAVEPOINT);
    EXPECT_FALSE(window->lastModified);

    SCNotification foreign;
    foreign.nmhdr.code = SCN_SAVEPOINTLEFT;
    foreign.nmhdr.hwndFrom = frame->GetSafeHwnd();
    LRESULT result = 0;
    EXPECT_FALSE(window->OnNotify(0, reinterpret_cast<LPARAM>(&foreign), &result));
    SCNotification own = foreign;
    own.nmhdr.hwndFrom = window->GetSafeHwnd();
    own.nmhdr.code = 9999;  // not one of the routed codes: still answered
    EXPECT_TRUE(window->OnNotify(0, reinterpret_cast<LPARAM>(&own), &result));
    EXPECT_EQ(result, 1);
}

TEST_F(AppWindowTest, ClipboardTextIsReadAsUtf8) {
    create();
    const char* copied = "select 한";
    send(SCI_COPYTEXT, strlen(copied), reinterpret_cast<LPARAM>(copied));
    CString text;
    EXPECT_EQ(window->IsTextInClipboard(), 1);
    EXPECT_EQ(window->GetFromClipboard(text), 1);
    EXPECT_EQ(text, "select 한");
}

TEST_F(AppWindowTest, LoadingAFileThatCannotBeReadKeepsTheOpenDocument) {
    create();
    window->SetText("unsaved work\n", 1);
    QTemporaryDir dir;
    const QByteArray bad = dir.filePath("bad.sql").toUtf8();
    QFile f(QString::fromUtf8(bad));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("select \x80\xff\x81 not text");  // no byte order mark, and no code page fits
    f.close();
    EXPECT_EQ(window->LoadFile(bad.constData()), 0);
    EXPECT_EQ(window->GetText(), "unsaved work\r\n");
    EXPECT_EQ(send(SCI_CANUNDO), 1);

    const QByteArray good = dir.filePath("good.sql").toUtf8();
    QFile g(QString::fromUtf8(good));
    ASSERT_TRUE(g.open(QIODevice::WriteOnly));
    g.write("select 1;\n");
    g.close();
    EXPECT_EQ(window->LoadFile(good.constData()), 1);
    EXPECT_EQ(window->GetText(), "select 1;\r\n");
    EXPECT_EQ(send(SCI_CANUNDO), 0);
    window->GetSafeHwnd()->grab();  // a paint: the loaded text is lexed as it shows
    EXPECT_EQ(send(SCI_GETSTYLEAT, 0), 5);  // the SQL lexer's keyword style

    // An empty file leaves an empty, unmodified document.
    const QByteArray empty = dir.filePath("empty.sql").toUtf8();
    QFile e(QString::fromUtf8(empty));
    ASSERT_TRUE(e.open(QIODevice::WriteOnly));
    e.close();
    EXPECT_EQ(window->LoadFile(empty.constData()), 1);
    EXPECT_TRUE(window->IsEmpty());
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
}
