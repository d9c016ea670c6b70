// The editor window as a window: creation, the start-up sequence, messages and notifications.
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

#include "EditorFixture.h"
#include "MessageBox.h"

namespace {
// Points the trace file at a fresh file for one test and reads it back.
struct TraceCapture {
    explicit TraceCapture(const char* level) {
        setenv("QUILLBOX_LOG_FILE", dir.filePath("trace.log").toUtf8().constData(), 1);
        setenv("QUILLBOX_LOG_LEVEL", level, 1);
    }
    ~TraceCapture() { unsetenv("QUILLBOX_LOG_FILE"), setenv("QUILLBOX_LOG_LEVEL", "0", 1); }
    QString all() const {
        QFile f(dir.filePath("trace.log"));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    QTemporaryDir dir;
};
}  // namespace

TEST(EditorWindow, CreationCountFollowsObjectsNotWindows) {
    const int before = CScintillaWnd::m_nCntCreation;
    {
        TestEditor a, b;
        EXPECT_EQ(CScintillaWnd::m_nCntCreation, before + 2);
        EXPECT_EQ(a.Destroy(), 1);  // before Create, and nothing happens
        EXPECT_EQ(a.GetSafeHwnd(), nullptr);
        EXPECT_EQ(a.GetTextLength(), 0);  // no window: engine calls answer 0
    }
    EXPECT_EQ(CScintillaWnd::m_nCntCreation, before);
}

TEST(EditorWindow, FailuresTraceAtAnyLevelAndEntriesAtLevelNine) {
    {
        TraceCapture capture("0");
        TestEditor orphan;
        EXPECT_EQ(orphan.Create("x", WS_CHILD, RECT{0, 0, 10, 10}, nullptr, 1), 0);
        const QStringList lines = capture.all().split('\n', Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), 10);
        EXPECT_TRUE(lines[0].startsWith("CScintillaWnd::Create- pParentWnd==NULL-0 : ( "));
        EXPECT_TRUE(lines[9].startsWith("CScintillaWnd::Create- pParentWnd==NULL-9 : ( "));
        EXPECT_EQ(orphan.GetSafeHwnd(), nullptr);
    }
    TraceCapture capture("9");
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, "QuillboxFrame", "", 0, RECT{0, 0, 100, 100}, nullptr, 0));
    TestEditor editor;
    ASSERT_EQ(editor.Create("x", WS_CHILD, RECT{0, 0, 100, 100}, &frame, 1), 1);
    editor.initScintilla();
    CString shown;
    MessageBoxHook previous = SetMessageBoxHook([&](const char* text, const char*, UINT) { return shown = text, IDOK; });
    EXPECT_EQ(CScintillaWnd::LoadScintillaDll("/nonexistent/libscilexer.so"), nullptr);
    SetMessageBoxHook(previous);
    EXPECT_EQ(shown.Find("/nonexistent/libscilexer.so : "), 0);
    EXPECT_GT(shown.GetLength(), int(strlen("/nonexistent/libscilexer.so : ")));
    EXPECT_NE(CScintillaWnd::LoadScintillaDll(nullptr), nullptr);
    const QString all = capture.all();
    for (const char* entry : {"CScintillaWnd::Create : ( ", "CScintillaWnd::Create Success : ( ",
                              "CScintillaWnd::initScintilla : ( ", "CScintillaWnd::LoadScintillaDll Fail GetLastError:["})
        EXPECT_TRUE(all.contains(entry)) << entry;
}

TEST_F(EditorTest, InitialiseWithOrWithoutKeywordsAndAgain) {
    const long markerBefore = send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER);
    editor->keyWordUsingPreCreate = 0;  // skips lexer and folding but sets the rest
    editor->initScintilla();
    expectSends({{SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER, markerBefore}, {SCI_GETMODEVENTMASK, 0, SC_MODEVENTMASKALL},
                 {SCI_GETMARGINSENSITIVEN, 2, 0}, {SCI_GETEOLMODE, 0, SC_EOL_CRLF}, {SCI_STYLEGETFORE, 4, 0x0000FF},
                 {SCI_INDICGETALPHA, 29, 192}});
    editor->keyWordUsingPreCreate = 1;
    for (int round = 0; round < 2; ++round) {  // the sequence may run again and again
        SCOPED_TRACE(round);
        editor->initScintilla();
        expectSends({{SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER, SC_MARK_BOXPLUS},
                     {SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDERMIDTAIL, SC_MARK_TCORNER},
                     {SCI_GETMODEVENTMASK, 0, SC_MOD_CHANGEFOLD}, {SCI_GETMARGINSENSITIVEN, 2, 1},
                     {SCI_GETEOLMODE, 0, SC_EOL_CRLF}, {SCI_STYLEGETFORE, 5, 0xFF0000}, {SCI_STYLEGETBOLD, STYLE_BRACELIGHT, 1},
                     {SCI_INDICGETSTYLE, 29, INDIC_STRAIGHTBOX}, {SCI_MARKERSYMBOLDEFINED, 2, SC_MARK_SHORTARROW}});
    }
}

TEST_F(EditorTest, DocumentKeepsStyleBytesOnlyWhileALexerNeedsThem) {
    const CString styled("select 1 -- \xed\x95\x9c\r\n");
    auto stylesDropped = [&] { return send(SCI_GETDOCUMENTOPTIONS) & SC_DOCUMENTOPTION_STYLES_NONE; };
    EXPECT_EQ(stylesDropped(), 0);  // the fixture's window starts with a lexer
    send(SCI_SETTABWIDTH, 7);
    editor->keyWordUsingPreCreate = 0;
    editor->initScintilla();  // an empty window without a lexer drops its styles
    EXPECT_NE(stylesDropped(), 0);
    expectSends({{SCI_GETCODEPAGE, 0, SC_CP_UTF8}, {SCI_GETTABWIDTH, 0, 7}});
    // Back to a lexer: text, save point and read-only state go over, and the lexer colours it.
    editor->SetText(styled, 0);
    send(SCI_SETSAVEPOINT);
    send(SCI_SETREADONLY, 1);
    editor->keyWordUsingPreCreate = 1;
    editor->initScintilla();
    EXPECT_EQ(stylesDropped(), 0);
    EXPECT_STREQ(text().c_str(), styled.c_str());
    expectSends({{SCI_GETMODIFY, 0, 0}, {SCI_GETREADONLY, 0, 1}, {SCI_GETCODEPAGE, 0, SC_CP_UTF8}});
    send(SCI_COLOURISE, 0, -1);
    EXPECT_EQ(send(SCI_GETSTYLEAT, 0), 5);  // keyword
    editor->keyWordUsingPreCreate = 0;
    editor->initScintilla();  // a document with text never loses it to drop style bytes
    EXPECT_EQ(stylesDropped(), 0);
    EXPECT_STREQ(text().c_str(), styled.c_str());
}

TEST_F(EditorTest, MessagesReachTheEngineAndNotificationsTheWindow) {
    load("abc");
    EXPECT_EQ(editor->SendMessage(SCI_GETLENGTH), 3);
    EXPECT_EQ(editor->SendMessage(0x343B), 1);       // the copy check answers 1
    EXPECT_EQ(editor->SendMessage(WM_USER + 5), 0);  // unknown window messages do nothing
    EXPECT_EQ(editor->SendMessage(SCI_DELETERANGE_EXT, 0, 1), 1);
    EXPECT_EQ(text(), "bc");

    load("line\n");
    send(SCI_SETMODEVENTMASK, SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT);
    editor->notifications.clear();
    editor->notifiedTexts.clear();
    send(SCI_INSERTTEXT, 2, reinterpret_cast<LPARAM>("a\nb\n"));
    send(SCI_DELETERANGE, 1, 3);
    const std::vector<size_t> modified = notified(SCN_MODIFIED);
    ASSERT_EQ(modified.size(), 2u);
    const struct { int type; long position, length, linesAdded; const char* text; } rows[] = {
        {SC_MOD_INSERTTEXT, 2, 4, 2, "a\nb\n"}, {SC_MOD_DELETETEXT, 1, 3, -1, "ia\n"}};
    for (size_t i = 0; i < 2; ++i) {
        SCOPED_TRACE(i);
        const SCNotification& n = editor->notifications[modified[i]];
        EXPECT_TRUE((n.modificationType & rows[i].type) && (n.modificationType & SC_PERFORMED_USER));
        EXPECT_EQ(n.nmhdr.hwndFrom, editor->GetSafeHwnd());
        EXPECT_EQ(n.nmhdr.idFrom, 42u);
        EXPECT_EQ(n.position, rows[i].position);
        EXPECT_EQ(n.length, rows[i].length);
        EXPECT_EQ(n.linesAdded, rows[i].linesAdded);
        EXPECT_EQ(editor->notifiedTexts[modified[i]], rows[i].text);
    }
}
