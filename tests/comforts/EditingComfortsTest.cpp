// Editing comforts, tried through real key and mouse events: zoom, the current match, several
// carets, the host's hooks (Ctrl+Enter, annotations) and the dark colour set.
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <string>
#include <vector>

#include "AppWindow.h"
#include "CEditReplaceDlg.h"
#include "CFindTextDlg.h"
#include "KeyCodes.h"
#include "CommandIds.h"
#include "ColourTheme.h"
#include "QuillEngine.h"
#include "SqlWindow.h"
#include "WindowHost.h"

namespace {
// A parent that keeps the notifications its window sends it.
class RecordingFrame : public CWnd {
public:
    struct Note {
        UINT code;
        long position, length;
        std::string text;
    };
    std::vector<Note> notes;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NOTIFY) {
            const auto* n = reinterpret_cast<const SCNotification*>(lParam);
            notes.push_back({n->nmhdr.code, n->position, n->length, n->text ? n->text : ""});
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
    std::vector<Note> withCode(UINT code) const {
        std::vector<Note> found;
        std::copy_if(notes.begin(), notes.end(), std::back_inserter(found), [&](const Note& n) { return n.code == code; });
        return found;
    }
};

class ComfortsTest : public WindowHostTest<TestSqlWindow, RecordingFrame> {
protected:
    void SetUp() override {
        WindowHostTest::SetUp();
        createChild(5);
        focus(*window);
    }
    std::unique_ptr<TestAppWindow> makeAppWindow() {
        auto app = std::make_unique<TestAppWindow>();
        EXPECT_EQ(app->Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 6), 1);
        focus(*app);
        return app;
    }
    void load(const char* content) {
        send(SCI_SETEOLMODE, SC_EOL_LF);
        window->SetText(content, 0);
    }
    void key(CWnd& w, int k, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QTest::keyClick(w.GetSafeHwnd(), Qt::Key(k), m);
    }
    void key(int k, Qt::KeyboardModifiers m = Qt::NoModifier) { key(*window, k, m); }
    QWidget* viewport() { return window->engine()->viewport(); }
    QPoint pointOf(long position) {
        return QPoint(int(send(SCI_POINTXFROMPOSITION, 0, position)) + 1,
                      int(send(SCI_POINTYFROMPOSITION, 0, position)) + int(send(SCI_TEXTHEIGHT, 0)) / 2);
    }
    void wheel(CWnd& w, int delta, Qt::KeyboardModifiers m) {
        QWidget* port = static_cast<QuillEngine*>(w.GetSafeHwnd())->viewport();
        QWheelEvent e(QPointF(40, 10), port->mapToGlobal(QPointF(40, 10)), QPoint(), QPoint(0, delta), Qt::NoButton, m,
                      Qt::NoScrollPhase, false);
        QApplication::sendEvent(port, &e);
    }
    static int storedZoom() { return CKTMgrSetting(0).GetInt("Editor Zoom", -99); }

    ScratchRegistry registry;
};

const Qt::KeyboardModifiers kCtrl = Qt::ControlModifier;
const Qt::KeyboardModifiers kCtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
}  // namespace

TEST_F(ComfortsTest, ZoomKeysAndWheelZoomWithoutTypingAndTheLevelIsKept) {
    load("abc\n");
    send(SCI_GOTOPOS, 3);
    window->SetDisplayLinenumbers(1);
    const long narrow = send(SCI_GETMARGINWIDTHN, 0);
    struct Step { int key; Qt::KeyboardModifiers modifiers; long zoom; };
    for (const Step& s : {Step{Qt::Key_Equal, kCtrl, 1}, Step{Qt::Key_Plus, kCtrlShift, 2},
                          Step{Qt::Key_Plus, kCtrl | Qt::KeypadModifier, 3}, Step{Qt::Key_0, kCtrl, 0},
                          Step{Qt::Key_Plus, kCtrl, 1}}) {
        key(s.key, s.modifiers);
        EXPECT_EQ(send(SCI_GETZOOM), s.zoom) << "key " << s.key;
        EXPECT_EQ(storedZoom(), s.zoom);
    }
    EXPECT_GT(send(SCI_GETMARGINWIDTHN, 0), narrow);  // line numbers grow with the text
    // Ctrl+minus is the SQL window's Comment: the table wins and the zoom stays.
    key(Qt::Key_Minus, kCtrl);
    EXPECT_EQ(send(SCI_GETZOOM), 1);
    EXPECT_NE(std::string(window->GetText().c_str()), "abc\n");  // commented
    // A whole notch of the wheel is one step; parts of one add up; a plain wheel scrolls.
    for (auto [delta, modifiers, zoom] : {std::tuple{120, kCtrl, 2}, {-60, kCtrl, 2}, {-60, kCtrl, 1},
                                          {120, Qt::KeyboardModifiers(Qt::NoModifier), 1}}) {
        wheel(*window, delta, modifiers);
        EXPECT_EQ(send(SCI_GETZOOM), zoom) << delta;
    }

    // In the editor window Ctrl+minus is free, and a new window opens at the stored level.
    auto app = makeAppWindow();
    EXPECT_EQ(app->SendEditor(SCI_GETZOOM), 1);
    key(*app, Qt::Key_Minus, kCtrl);
    key(*app, Qt::Key_Minus, kCtrl | Qt::KeypadModifier);
    EXPECT_EQ(app->SendEditor(SCI_GETZOOM), -1);
    EXPECT_EQ(storedZoom(), -1);
    EXPECT_EQ(app->GetText(), "");
    CKTMgrSetting(0).SetInt("Editor Zoom", 99);  // out of bounds: the engine's largest
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(send(SCI_GETZOOM), 20);
}

TEST_F(ComfortsTest, NoCtrlChordTypesItsCharacter) {
    load("x");
    send(SCI_GOTOPOS, 1);
    for (int k : {Qt::Key_Equal, Qt::Key_Plus, Qt::Key_Semicolon, Qt::Key_Apostrophe, Qt::Key_Slash, Qt::Key_Period,
                  Qt::Key_Q, Qt::Key_Backslash, Qt::Key_Return})
        key(k, kCtrl);
    EXPECT_EQ(window->GetText(), "x");
    // Ctrl with Alt is how AltGr layouts type: those characters still arrive.
    QKeyEvent altGr(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    QApplication::sendEvent(window->GetSafeHwnd(), &altGr);
    EXPECT_EQ(window->GetText(), "x@");
}

TEST_F(ComfortsTest, TheCurrentMatchStandsOutFromTheOtherOccurrencesInBothThemes) {
    frame->GetSafeHwnd()->resize(640, 480);
    load("select id from t;\nselect id from u;\nselect id from v;\n");
    for (int theme : {0, 1}) {
        CKTMgrSetting(0).SetInt("Color Theme", theme);
        window->ApplyOptionOnRealtime();
        window->SetFindFlag(0, 0, 0, 0, 1);
        send(SCI_GOTOPOS, 20);
        key(Qt::Key_F, kCtrl);  // the find dialog takes the word at the caret
        window->GetFindDialog()->ShowWindow(SW_HIDE);
        focus(*window);
        key(Qt::Key_F3);  // Find Next: the second "select"... or the word at the caret
        const long start = send(SCI_GETSELECTIONSTART), end = send(SCI_GETSELECTIONEND);
        ASSERT_LT(start, end);
        send(SCI_SETINDICATORCURRENT, 30);
        EXPECT_EQ(send(SCI_INDICATOREND, 30, start), end);
        EXPECT_EQ(send(SCI_INDICATORVALUEAT, 30, start), 1);
        QApplication::processEvents();
        // A pixel inside the match differs clearly from one inside another occurrence.
        const QImage shot = window->GetSafeHwnd()->grab().toImage();
        const QPoint origin = viewport()->mapTo(window->GetSafeHwnd(), QPoint(0, 0));
        const QColor inMatch = shot.pixelColor(origin + pointOf(start)),
                     inOther = shot.pixelColor(origin + pointOf(start == 0 ? 18 : 0));
        const int distance = std::abs(inMatch.red() - inOther.red()) + std::abs(inMatch.green() - inOther.green()) +
                             std::abs(inMatch.blue() - inOther.blue());
        EXPECT_GT(distance, 60) << "theme " << theme;
        // Moving on takes the light away.
        key(Qt::Key_Right);
        QApplication::processEvents();
        EXPECT_EQ(send(SCI_INDICATORVALUEAT, 30, start), 0);
    }
}

TEST_F(ComfortsTest, SeveralCaretsTypeDeletePasteAndEscapeBackToOne) {
    load("abc\ndef\nghi\n");
    QTest::mouseClick(viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(1));
    QTest::mouseClick(viewport(), Qt::LeftButton, kCtrl, pointOf(5));
    QTest::mouseClick(viewport(), Qt::LeftButton, kCtrl, pointOf(9));
    EXPECT_EQ(send(SCI_GETSELECTIONS), 3);
    key(Qt::Key_X);
    EXPECT_EQ(window->GetText(), "axbc\ndxef\ngxhi\n");
    key(Qt::Key_Backspace);
    key(Qt::Key_Delete);
    QApplication::clipboard()->setText("--");
    key(Qt::Key_V, kCtrl);
    EXPECT_EQ(window->GetText(), "a--c\nd--f\ng--i\n");  // one deleted before and after each caret
    key(Qt::Key_Escape);
    EXPECT_EQ(send(SCI_GETSELECTIONS), 1);

    // Alt+drag: a rectangle over two lines; typing goes to each of its lines.
    load("abcd\nefgh\n");
    QTest::mousePress(viewport(), Qt::LeftButton, Qt::AltModifier, pointOf(1));
    QMouseEvent drag(QEvent::MouseMove, pointOf(8), viewport()->mapToGlobal(pointOf(8)), Qt::NoButton, Qt::LeftButton,
                     Qt::AltModifier);
    QApplication::sendEvent(viewport(), &drag);
    QTest::mouseRelease(viewport(), Qt::LeftButton, Qt::AltModifier, pointOf(8));
    EXPECT_TRUE(send(SCI_SELECTIONISRECTANGLE));
    key(Qt::Key_Z);
    EXPECT_EQ(window->GetText(), "azd\nezh\n");
    key(Qt::Key_Escape);
    EXPECT_EQ(send(SCI_GETSELECTIONS), 1);

    // With the setting off a Ctrl+click moves the one caret, and a paste goes in once.
    CKTMgrSetting(0).SetInt("Multiple Selection", 0);
    window->ApplyOptionOnRealtime();
    QTest::mouseClick(viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(1));
    QTest::mouseClick(viewport(), Qt::LeftButton, kCtrl, pointOf(5));
    EXPECT_EQ(send(SCI_GETSELECTIONS), 1);
    EXPECT_EQ(send(SCI_GETMULTIPASTE), SC_MULTIPASTE_ONCE);
}

TEST_F(ComfortsTest, CtrlEnterSendsTheStatementAtTheCaretToTheParent) {
    // Neither table takes the key.
    for (UINT table : {IDR_SQL_ACCELERATORS, IDR_EDITOR_ACCELERATORS})
        for (const ACCEL& entry : *LoadAccelerators(table)) EXPECT_FALSE(entry.key == VK_RETURN);
    load("select 1 from dual;\n\n  select a,\n    b -- the b\n  from t\n where x = 1 ;\n-- note\n");
    struct Case { long caret; const char* text; long start; long end; };
    const Case cases[] = {
        {3, "select 1 from dual", 0, 18},
        {35, "\n\n  select a,\n    b   from t\n where x = 1 ", 23, 69},  // the comment is left out
        {76, "", 76, 76},  // inside a line comment: nothing to run
    };
    for (const Case& c : cases) {
        send(SCI_GOTOPOS, WPARAM(c.caret));
        frame->notes.clear();
        key(Qt::Key_Return, kCtrl);
        const auto notes = frame->withCode(SCN_RUNSTATEMENT_EXT);
        ASSERT_EQ(notes.size(), 1u);
        EXPECT_EQ(notes[0].text, c.text);
        const Sci_CharacterRange range = window->GetCurrentQueryRange();  // what the parent hears, too
        EXPECT_EQ(std::pair(range.cpMin, range.cpMax), std::pair(notes[0].position, notes[0].position + notes[0].length));
        EXPECT_EQ(std::pair(range.cpMin, range.cpMax), std::pair(c.start, c.end));
    }
    EXPECT_EQ(send(SCI_GETLINECOUNT), 8);  // no line break was typed
    // The plain editor window has no such hook: the key does nothing there.
    auto app = makeAppWindow();
    frame->notes.clear();
    key(*app, Qt::Key_Return, kCtrl);
    EXPECT_TRUE(frame->withCode(SCN_RUNSTATEMENT_EXT).empty());
    EXPECT_EQ(app->GetText(), "");
}

TEST_F(ComfortsTest, AnAnnotationStaysUntilItsRangeIsEditedOrTheHostRemovesIt) {
    load("select * from customers;\nselect 2;\n");
    const int missing = window->AddAnnotation(14, 23, "no such table");
    const int second = window->AddAnnotation(0, 6, "second note");
    ASSERT_GT(missing, 0);
    const auto annotation = [&](long line) {
        std::string text(size_t(send(SCI_ANNOTATIONGETTEXT, WPARAM(line), 0)), '\0');
        send(SCI_ANNOTATIONGETTEXT, WPARAM(line), reinterpret_cast<LPARAM>(text.data()));
        return text;
    };
    EXPECT_EQ(annotation(0), "no such table\nsecond note");
    EXPECT_EQ(send(SCI_INDICATORVALUEAT, 31, 14), missing);
    EXPECT_EQ(window->AddAnnotation(0, 5, ""), 0);

    // Typing elsewhere, a new line above included, leaves it where its text went.
    send(SCI_GOTOPOS, 0);
    key(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(window->GetAnnotationCount(), 2);
    EXPECT_EQ(annotation(1), "no such table\nsecond note");
    // Typing inside "customers" drops that annotation, and its mark.
    send(SCI_GOTOPOS, 20);
    key(Qt::Key_X);
    QApplication::processEvents();
    EXPECT_EQ(window->GetAnnotationCount(), 1);
    EXPECT_EQ(annotation(1), "second note");
    EXPECT_EQ(send(SCI_INDICATORVALUEAT, 31, 20), 0);
    EXPECT_FALSE(window->RemoveAnnotation(missing));
    EXPECT_TRUE(window->RemoveAnnotation(second));
    EXPECT_EQ(annotation(1), "");
    // An empty range takes the word at the position; ClearAnnotations takes everything away.
    const int word = window->AddAnnotation(28, 28, "here");  // in "select" of the last line
    EXPECT_EQ(send(SCI_INDICATORSTART, 31, 28), 27);
    EXPECT_EQ(send(SCI_INDICATOREND, 31, 28), 33);
    EXPECT_GT(word, 0);
    window->ClearAnnotations();
    EXPECT_EQ(window->GetAnnotationCount(), 0);
    EXPECT_EQ(annotation(2), "");
}

TEST_F(ComfortsTest, TheDarkThemeKeepsContrastAndTheUsersColoursWin) {
    load("select 'a' from t; -- c\n");
    CKTMgrSetting setting(0);
    setting.SetInt("Color Theme", 1);
    CKTRegistry colours, editable;
    colours.Open(setting.GetKey(), "Editor Color");
    editable.Open(colours.GetKey(), "Editable");
    editable.SetDWORD("Keyword", 0x00FFFF);
    window->ApplyOptionOnRealtime();
    const COLORREF background = COLORREF(send(SCI_STYLEGETBACK, 0));
    EXPECT_LT(ContrastRatio(background, 0x000000), 2.0);  // a dark background
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0x00FFFF);       // the user's keyword colour
    const ColourTheme& dark = ColourTheme::ForSetting(1);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 1), long(dark.groups[ColorComment]));
    for (int style = 0; style <= STYLE_LASTPREDEFINED; ++style) {
        if (style == 5 || style == STYLE_LINENUMBER) continue;
        EXPECT_GE(ContrastRatio(COLORREF(send(SCI_STYLEGETFORE, WPARAM(style))), background), 4.5) << style;
    }
    for (auto [fore, back] : {std::pair{COLORREF(send(SCI_STYLEGETFORE, STYLE_LINENUMBER)),
                                        COLORREF(send(SCI_STYLEGETBACK, STYLE_LINENUMBER))},
                              {COLORREF(send(SCI_STYLEGETFORE, 0)), dark.selectionBack}})
        EXPECT_GE(ContrastRatio(fore, back), 4.5);
    EXPECT_EQ(send(SCI_GETCARETFORE), long(dark.caret));
    EXPECT_EQ(send(SCI_INDICGETFORE, 30), long(dark.currentMatch));
    EXPECT_EQ(send(SCI_MARKERSYMBOLDEFINED, SC_MARKNUM_FOLDER), SC_MARK_BOXPLUS);

    // Back to light: the property file's colours and the light defaults return.
    editable.Close();
    colours.Close();
    setting.SetInt("Color Theme", 0);
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(COLORREF(send(SCI_STYLEGETBACK, 0)), CKTScinWnd::SystemWindowColour());
    EXPECT_EQ(send(SCI_STYLEGETFORE, 1), long(ColourTheme::ForSetting(0).groups[ColorComment]));
    EXPECT_EQ(send(SCI_STYLEGETFORE, STYLE_BRACEBAD), 0x0000FF);
    EXPECT_EQ(send(SCI_GETCARETFORE), 0x000000);
}

TEST_F(ComfortsTest, TheReplaceDialogOffersTheFindTextSelectedAsTheFindDialogDoes) {
    load("select * from customers;\n");
    send(SCI_SETSEL, 14, 23);
    key(Qt::Key_H, kCtrl);
    auto* combo = qobject_cast<QComboBox*>(window->GetReplaceDialog()->GetDlgItem(CEditReplaceDlg::IDC_FIND_TEXT));
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->lineEdit()->selectedText(), "customers");
}
