// The editor window as a window: creation, the start-up sequence, messages and notifications.
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

#include "CKTUtilTrace.h"
#include "EditorFixture.h"
#include "MessageBox.h"

namespace {
// Points the trace file at a fresh file for one test and reads it back.
class TraceCapture {
public:
    explicit TraceCapture(const char* level) {
        path_ = dir_.filePath("trace.log").toStdString();
        setenv("QUILLBOX_LOG_FILE", path_.c_str(), 1);
        setenv("QUILLBOX_LOG_LEVEL", level, 1);
    }
    ~TraceCapture() {
        unsetenv("QUILLBOX_LOG_FILE");
        setenv("QUILLBOX_LOG_LEVEL", "0", 1);
    }
    QStringList lines() const {
        QFile f(QString::fromStdString(path_));
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
    }

private:
    QTemporaryDir dir_;
    std::string path_;
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

TEST(EditorWindow, NullParentTracesTenTimesAtAnyLevelAndFails) {
    TraceCapture capture("0");
    TestEditor editor;
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(editor.Create("x", WS_CHILD, RECT{0, 0, 10, 10}, nullptr, 1), 0);
    EXPECT_GE(timer.elapsed(), 1000);
    const QStringList lines = capture.lines();
    ASSERT_EQ(lines.size(), 10);
    EXPECT_TRUE(lines[0].startsWith("CScintillaWnd::Create- pParentWnd==NULL-0 : ( "));
    EXPECT_TRUE(lines[9].startsWith("CScintillaWnd::Create- pParentWnd==NULL-9 : ( "));
    EXPECT_EQ(editor.GetSafeHwnd(), nullptr);
}

TEST(EditorWindow, EntryTracesAppearAtLevelNine) {
    TraceCapture capture("9");
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, "QuillboxFrame", "", 0, RECT{0, 0, 100, 100}, nullptr, 0));
    TestEditor editor;
    ASSERT_EQ(editor.Create("x", WS_CHILD, RECT{0, 0, 100, 100}, &frame, 1), 1);
    editor.initScintilla();
    const QString all = capture.lines().join('\n');
    EXPECT_TRUE(all.contains("CScintillaWnd::Create : ( "));
    EXPECT_TRUE(all.contains("CScintillaWnd::Create Success : ( "));
    EXPECT_TRUE(all.contains("CScintillaWnd::initScintilla : ( "));
}

TEST(EditorWindow, EngineLoadFailureIsTracedAndShown) {
    TraceCapture capture("9");
    CString shown;
    MessageBoxHook previous = SetMessageBoxHook([&](const char* text, const char*, UINT) {
        shown = text;
        return IDOK;
    });
    EXPECT_EQ(CScintillaWnd::LoadScintillaDll("/nonexistent/libscilexer.so"), nullptr);
    SetMessageBoxHook(previous);
    EXPECT_EQ(shown.Find("/nonexistent/libscilexer.so : "), 0);
    EXPECT_GT(shown.GetLength(), int(strlen("/nonexistent/libscilexer.so : ")));
    EXPECT_TRUE(capture.lines().join('\n').contains("CScintillaWnd::LoadScintillaDll Fail GetLastError:["));
    EXPECT_NE(CScintillaWnd::LoadScintillaDll(nullptr), nullptr);
}

TEST_F(EditorTest, InitialiseWithKeywordsDefinesFoldingAndNarrowsNotifications) {
    editor->initScintilla();
    EXPECT_EQ(send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER), SC_MARK_BOXPLUS);
    EXPECT_EQ(send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDERMIDTAIL), SC_MARK_TCORNER);
    EXPECT_EQ(send(SCI_GETMODEVENTMASK), SC_MOD_CHANGEFOLD);
    EXPECT_EQ(send(SCI_GETMARGINSENSITIVEN, 2), 1);
    EXPECT_EQ(send(SCI_GETEOLMODE), SC_EOL_CRLF);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0xFF0000);
    EXPECT_EQ(send(SCI_STYLEGETBOLD, STYLE_BRACELIGHT), 1);
    EXPECT_EQ(send(SCI_INDICGETSTYLE, 29), INDIC_STRAIGHTBOX);
    EXPECT_EQ(send(SCI_MARKERSYMBOLDEFINED, 2), SC_MARK_SHORTARROW);
    // The sequence may run again and again.
    editor->initScintilla();
    EXPECT_EQ(send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER), SC_MARK_BOXPLUS);
}

TEST_F(EditorTest, InitialiseWithoutKeywordsSkipsLexerAndFoldingButSetsTheRest) {
    editor->keyWordUsingPreCreate = 0;
    const long markerBefore = send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER);
    editor->initScintilla();
    EXPECT_EQ(send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER), markerBefore);
    EXPECT_EQ(send(SCI_GETMODEVENTMASK), SC_MODEVENTMASKALL);
    EXPECT_EQ(send(SCI_GETMARGINSENSITIVEN, 2), 0);
    EXPECT_EQ(send(SCI_GETEOLMODE), SC_EOL_CRLF);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 4), 0x0000FF);
    EXPECT_EQ(send(SCI_INDICGETALPHA, 29), 192);
}

TEST_F(EditorTest, DocumentKeepsStyleBytesOnlyWhileALexerNeedsThem) {
    // The fixture's window starts with a lexer; an empty window without one drops its styles.
    EXPECT_EQ(send(SCI_GETDOCUMENTOPTIONS) & SC_DOCUMENTOPTION_STYLES_NONE, 0);
    send(SCI_SETTABWIDTH, 7);
    editor->keyWordUsingPreCreate = 0;
    editor->initScintilla();
    EXPECT_NE(send(SCI_GETDOCUMENTOPTIONS) & SC_DOCUMENTOPTION_STYLES_NONE, 0);
    EXPECT_EQ(send(SCI_GETCODEPAGE), SC_CP_UTF8);
    EXPECT_EQ(send(SCI_GETTABWIDTH), 7);

    // Back to a lexer with text in the window: the text, its save point and the read-only
    // state go over to the styled document, and the lexer colours it.
    editor->SetText("select 1 -- \xed\x95\x9c\r\n", 0);
    send(SCI_SETSAVEPOINT);
    send(SCI_SETREADONLY, 1);
    editor->keyWordUsingPreCreate = 1;
    editor->initScintilla();
    EXPECT_EQ(send(SCI_GETDOCUMENTOPTIONS) & SC_DOCUMENTOPTION_STYLES_NONE, 0);
    EXPECT_STREQ(text().c_str(), "select 1 -- \xed\x95\x9c\r\n");
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    EXPECT_EQ(send(SCI_GETCODEPAGE), SC_CP_UTF8);
    send(SCI_COLOURISE, 0, -1);
    EXPECT_EQ(send(SCI_GETSTYLEAT, 0), 5);  // keyword

    // A document with text never loses it to drop style bytes.
    editor->keyWordUsingPreCreate = 0;
    editor->initScintilla();
    EXPECT_EQ(send(SCI_GETDOCUMENTOPTIONS) & SC_DOCUMENTOPTION_STYLES_NONE, 0);
    EXPECT_STREQ(text().c_str(), "select 1 -- \xed\x95\x9c\r\n");
}

TEST_F(EditorTest, MessagesReachTheEngineThroughTheWindow) {
    load("abc");
    EXPECT_EQ(editor->SendMessage(SCI_GETLENGTH), 3);
    EXPECT_EQ(editor->SendMessage(0x343B), 1);             // the copy check answers 1
    EXPECT_EQ(editor->SendMessage(WM_USER + 5), 0);        // unknown window messages do nothing
    EXPECT_EQ(editor->SendMessage(SCI_DELETERANGE_EXT, 0, 1), 1);
    EXPECT_EQ(text(), "bc");
}

TEST_F(EditorTest, NotificationsReachTheWindowWithTheirFields) {
    load("line\n");
    editor->SendEditor(SCI_SETMODEVENTMASK, SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT);
    editor->notifications.clear();
    editor->notifiedTexts.clear();
    editor->SendEditor(SCI_INSERTTEXT, 2, reinterpret_cast<LPARAM>("a\nb\n"));
    editor->SendEditor(SCI_DELETERANGE, 1, 3);
    std::vector<size_t> modified;
    for (size_t i = 0; i < editor->notifications.size(); ++i)
        if (editor->notifications[i].nmhdr.code == SCN_MODIFIED) modified.push_back(i);
    ASSERT_EQ(modified.size(), 2u);
    const SCNotification& ins = editor->notifications[modified[0]];
    EXPECT_TRUE(ins.modificationType & SC_MOD_INSERTTEXT);
    EXPECT_TRUE(ins.modificationType & SC_PERFORMED_USER);
    EXPECT_EQ(ins.position, 2);
    EXPECT_EQ(ins.length, 4);
    EXPECT_EQ(ins.linesAdded, 2);
    EXPECT_EQ(editor->notifiedTexts[modified[0]], "a\nb\n");
    EXPECT_EQ(ins.nmhdr.hwndFrom, editor->GetSafeHwnd());
    EXPECT_EQ(ins.nmhdr.idFrom, 42u);
    const SCNotification& del = editor->notifications[modified[1]];
    EXPECT_TRUE(del.modificationType & SC_MOD_DELETETEXT);
    EXPECT_EQ(del.position, 1);
    EXPECT_EQ(del.length, 3);
    EXPECT_EQ(del.linesAdded, -1);
    EXPECT_EQ(editor->notifiedTexts[modified[1]], "ia\n");
}
