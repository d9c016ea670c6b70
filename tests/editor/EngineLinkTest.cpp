// What the engine layer adds to stock Scintilla: case modes, typed-character records, and
// edits whose cost does not depend on the document's length.
#include <QApplication>
#include <QTest>

#include "EditorFixture.h"
#include "EngineExtensions.h"

TEST(CaseModes, WorkOnWholeUtf8Characters) {
    EXPECT_EQ(ChangeCaseUtf8("Hello wORLD ÉtÉ ß", SCI_CASE_INVERT), "hELLO World éTé SS");
    EXPECT_EQ(ChangeCaseUtf8("hELLO. wORLD! é? ok", SCI_CASE_SENTENCE), "Hello. World! É? Ok");
    EXPECT_EQ(ChangeCaseUtf8("élan vital x_y don't", SCI_CASE_CAPITALISE), "Élan Vital X_y Don't");
    EXPECT_EQ(ChangeCaseUtf8("mixed 한글 Text", SCI_CASE_CAPITALISE), "Mixed 한글 Text");
    EXPECT_EQ(ChangeCaseUtf8("no change", 7), "no change");
    const std::string broken("a\xC3(b", 4);  // not UTF-8: left as it is
    EXPECT_EQ(ChangeCaseUtf8(broken, SCI_CASE_INVERT), broken);
}

TEST_F(EditorTest, CaseModesChangeTheSelectionAsOneUndoStep) {
    load("say hELLO wörld now");
    send(SCI_SETSEL, 4, 16);  // "hELLO wörld" (ö is two bytes)
    send(SCI_UPPERCASE, SCI_CASE_CAPITALISE);
    EXPECT_EQ(text(), "say Hello Wörld now");
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 4);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 16);
    send(SCI_UPPERCASE, SCI_CASE_INVERT);
    EXPECT_EQ(text(), "say hELLO wÖRLD now");
    send(SCI_UNDO);
    EXPECT_EQ(text(), "say Hello Wörld now");
    send(SCI_SETSEL, 4, 16);
    send(SCI_UPPERCASE, SCI_CASE_UPPER);
    EXPECT_EQ(text(), "say HELLO WÖRLD now");
    send(SCI_LOWERCASE);
    EXPECT_EQ(text(), "say hello wörld now");

    // A change of byte length keeps the whole changed text selected.
    load("x straße y");
    send(SCI_SETSEL, 2, 9);
    send(SCI_UPPERCASE, SCI_CASE_INVERT);
    EXPECT_EQ(text(), "x STRASSE y");
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 9);
    send(SCI_SETSEL, 9, 2);  // a backward selection stays backward
    send(SCI_UPPERCASE, SCI_CASE_SENTENCE);
    EXPECT_EQ(text(), "x Strasse y");
    EXPECT_EQ(send(SCI_GETANCHOR), 9);
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 2);

    send(SCI_SETREADONLY, 1);
    send(SCI_SETSEL, 0, 11);
    send(SCI_UPPERCASE, SCI_CASE_INVERT);
    EXPECT_EQ(text(), "x Strasse y");
}

TEST_F(EditorTest, TypedCharactersCarryTheirUtf8Bytes) {
    frame->GetSafeHwnd()->activateWindow();
    editor->GetSafeHwnd()->setFocus();
    QApplication::processEvents();
    editor->notifications.clear();
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_A);
    QTest::sendKeyEvent(QTest::Click, editor->GetSafeHwnd(), Qt::Key_unknown, QString::fromUtf8("한"), Qt::NoModifier);
    std::vector<SCNotification> added;
    for (const auto& n : editor->notifications)
        if (n.nmhdr.code == SCN_CHARADDED) added.push_back(n);
    ASSERT_EQ(added.size(), 2u);
    EXPECT_EQ(added[0].ch, 'a');
    EXPECT_EQ(added[0].ch2, 0);
    EXPECT_EQ(added[1].ch, 0xED);  // U+D55C in UTF-8 is ED 95 9C
    EXPECT_EQ(added[1].ch2, 0x95);
    EXPECT_EQ(added[1].ch3, 0x9C);
    EXPECT_EQ(text(), "a한");
}

namespace {
// Engine messages and copied bytes of one typed character at the end of a document.
QuillEngine::Counters costOfTypingAtTheEnd(EditorTest& test, TestEditor& editor, size_t documentBytes) {
    std::string content;
    content.reserve(documentBytes);
    while (content.size() < documentBytes) content += "select col_a, col_b from some_table where id = 42;\n";
    editor.SetText(CString(std::move(content)), 0);
    editor.SendEditor(SCI_DOCUMENTEND);
    QuillEngine* engine = editor.engine();
    engine->resetCounters();
    QTest::keyClick(editor.GetSafeHwnd(), Qt::Key_X);
    (void)test;
    return engine->counters();
}
}  // namespace

TEST_F(EditorTest, AnEditCostsTheSameInASmallAndALargeDocument) {
    for (long mask : {long(SC_MODEVENTMASKALL), long(SC_MOD_CHANGEFOLD)}) {
        editor->SendEditor(SCI_SETMODEVENTMASK, WPARAM(mask));
        const QuillEngine::Counters small = costOfTypingAtTheEnd(*this, *editor, 1 << 20);
        const QuillEngine::Counters large = costOfTypingAtTheEnd(*this, *editor, 8 << 20);
        EXPECT_EQ(small.messages, large.messages) << "mask " << mask;
        EXPECT_EQ(small.bytesCopied, large.bytesCopied) << "mask " << mask;
        EXPECT_EQ(small.notifications, large.notifications) << "mask " << mask;
        // The engine's own mask never holds insert or delete, whatever was asked.
        EXPECT_EQ(editor->engine()->SendScintilla(SCI_GETMODEVENTMASK) & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT), 0);
        EXPECT_EQ(editor->SendEditor(SCI_GETMODEVENTMASK), mask);
    }
}

TEST_F(EditorTest, TheEngineNeverReportsInsertsOrDeletesToQScintillasScanningPath) {
    // QScintilla converts the position of every insert or delete it is told of into a
    // character offset, scanning from the document's start. Whatever mask the host asks for,
    // none may reach it, while the host still gets its notifications.
    int scanningNotifications = 0;
    QObject::connect(editor->engine(), &QsciScintillaBase::SCN_MODIFIED, [&](int, int type, const char*, int, int, int,
                                                                             int, int, int, int) {
        if (type & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) ++scanningNotifications;
    });
    // Each mask with the changes it selects by the engine's rule (type or flag in the mask) of
    // a typed insert, a delete and the undo that inserts the deleted text again.
    const std::pair<long, size_t> cases[] = {{SC_MODEVENTMASKALL, 3}, {SC_PERFORMED_USER, 2}, {SC_MOD_INSERTTEXT, 2},
                                             {SC_MOD_DELETETEXT | SC_PERFORMED_UNDO, 2}, {SC_MOD_CHANGEFOLD, 0}};
    for (auto [mask, expected] : cases) {
        load("select 1;\n");
        editor->SendEditor(SCI_SETMODEVENTMASK, WPARAM(mask));
        editor->notifications.clear();
        send(SCI_DOCUMENTEND);
        QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Y);
        send(SCI_DELETERANGE, 0, 2);
        send(SCI_UNDO);
        size_t changes = 0;
        for (const auto& n : editor->notifications)
            if (n.nmhdr.code == SCN_MODIFIED && (n.modificationType & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT))) ++changes;
        EXPECT_EQ(changes, expected) << "mask " << mask;
    }
    EXPECT_EQ(scanningNotifications, 0);
}
