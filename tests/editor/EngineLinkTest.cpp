// What the engine layer adds to Scintilla: case modes, typed-character records, edits of constant cost.
#include <QTest>

#include "EditorFixture.h"
#include "EngineExtensions.h"

TEST(CaseModes, WorkOnWholeUtf8Characters) {
    const std::string broken("a\xC3(b", 4);  // not UTF-8: left as it is
    const struct { std::string in; int mode; std::string out; } rows[] = {
        {"Hello wORLD ÉtÉ ß", SCI_CASE_INVERT, "hELLO World éTé SS"},
        {"hELLO. wORLD! é? ok", SCI_CASE_SENTENCE, "Hello. World! É? Ok"},
        {"élan vital x_y don't", SCI_CASE_CAPITALISE, "Élan Vital X_y Don't"},
        {"mixed 한글 Text", SCI_CASE_CAPITALISE, "Mixed 한글 Text"}, {"no change", 7, "no change"},
        {broken, SCI_CASE_INVERT, broken}};
    for (const auto& row : rows) EXPECT_EQ(ChangeCaseUtf8(row.in, row.mode), row.out) << row.in;
}

TEST_F(EditorTest, CaseModesChangeTheSelectionAsOneUndoStep) {
    load("say hELLO wörld now");
    send(SCI_SETSEL, 4, 16);  // "hELLO wörld" (ö is two bytes)
    send(SCI_UPPERCASE, SCI_CASE_CAPITALISE);
    EXPECT_EQ(text(), "say Hello Wörld now");
    expectSends({{SCI_GETSELECTIONSTART, 0, 4}, {SCI_GETSELECTIONEND, 0, 16}});
    expectSteps({{[&] { send(SCI_UPPERCASE, SCI_CASE_INVERT); }, "say hELLO wÖRLD now"},
                 {[&] { send(SCI_UNDO); }, "say Hello Wörld now"},
                 {[&] { send(SCI_SETSEL, 4, 16), send(SCI_UPPERCASE, SCI_CASE_UPPER); }, "say HELLO WÖRLD now"},
                 {[&] { send(SCI_LOWERCASE); }, "say hello wörld now"}});
    load("x straße y");  // a change of byte length keeps the whole changed text selected
    send(SCI_SETSEL, 2, 9);
    send(SCI_UPPERCASE, SCI_CASE_INVERT);
    EXPECT_EQ(text(), "x STRASSE y");
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 9);
    send(SCI_SETSEL, 9, 2);  // a backward selection stays backward
    send(SCI_UPPERCASE, SCI_CASE_SENTENCE);
    EXPECT_EQ(text(), "x Strasse y");
    expectSends({{SCI_GETANCHOR, 0, 9}, {SCI_GETCURRENTPOS, 0, 2}});
    send(SCI_SETREADONLY, 1);
    send(SCI_SETSEL, 0, 11);
    send(SCI_UPPERCASE, SCI_CASE_INVERT);
    EXPECT_EQ(text(), "x Strasse y");
}

TEST_F(EditorTest, TypedCharactersCarryTheirUtf8Bytes) {
    focusEditor();
    editor->notifications.clear();
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_A);
    QTest::sendKeyEvent(QTest::Click, editor->GetSafeHwnd(), Qt::Key_unknown, QString::fromUtf8("한"), Qt::NoModifier);
    const std::vector<size_t> added = notified(SCN_CHARADDED);
    ASSERT_EQ(added.size(), 2u);
    const SCNotification &a = editor->notifications[added[0]], &han = editor->notifications[added[1]];
    EXPECT_EQ(a.ch, 'a');
    EXPECT_EQ(a.ch2, 0);
    EXPECT_EQ(han.ch, 0xED);  // U+D55C in UTF-8 is ED 95 9C
    EXPECT_EQ(han.ch2, 0x95);
    EXPECT_EQ(han.ch3, 0x9C);
    EXPECT_EQ(text(), "a한");
}

TEST_F(EditorTest, AnEditCostsTheSameInASmallAndALargeDocument) {
    // Engine messages and copied bytes of one character typed at the end of a document.
    auto costOfTyping = [&](size_t documentBytes) {
        std::string content;
        content.reserve(documentBytes);
        while (content.size() < documentBytes) content += "select col_a, col_b from some_table where id = 42;\n";
        editor->SetText(CString(std::move(content)), 0);
        send(SCI_DOCUMENTEND);
        editor->engine()->resetCounters();
        QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_X);
        return editor->engine()->counters();
    };
    for (long mask : {long(SC_MODEVENTMASKALL), long(SC_MOD_CHANGEFOLD)}) {
        SCOPED_TRACE(mask);
        send(SCI_SETMODEVENTMASK, WPARAM(mask));
        const QuillEngine::Counters small = costOfTyping(1 << 20), large = costOfTyping(8 << 20);
        EXPECT_EQ(small.messages, large.messages);
        EXPECT_EQ(small.bytesCopied, large.bytesCopied);
        EXPECT_EQ(small.notifications, large.notifications);
        // The engine's own mask never holds insert or delete, whatever was asked.
        EXPECT_EQ(editor->engine()->SendScintilla(SCI_GETMODEVENTMASK) & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT), 0);
        EXPECT_EQ(send(SCI_GETMODEVENTMASK), mask);
    }
}

TEST_F(EditorTest, TheEngineNeverReportsInsertsOrDeletesToQScintillasScanningPath) {
    // QScintilla scans from the start for each insert or delete it hears of: none may reach it.
    int scanningNotifications = 0;
    QObject::connect(editor->engine(), &QsciScintillaBase::SCN_MODIFIED, [&](int, int type, const char*, int, int, int,
                                                                             int, int, int, int) {
        if (type & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) ++scanningNotifications;
    });
    // Each mask with the host's changes among a typed insert, a delete and its undo.
    const std::pair<long, size_t> cases[] = {{SC_MODEVENTMASKALL, 3}, {SC_PERFORMED_USER, 2}, {SC_MOD_INSERTTEXT, 2},
                                             {SC_MOD_DELETETEXT | SC_PERFORMED_UNDO, 2}, {SC_MOD_CHANGEFOLD, 0}};
    for (auto [mask, expected] : cases) {
        load("select 1;\n");
        send(SCI_SETMODEVENTMASK, WPARAM(mask));
        editor->notifications.clear();
        send(SCI_DOCUMENTEND);
        QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Y);
        send(SCI_DELETERANGE, 0, 2);
        send(SCI_UNDO);
        size_t changes = 0;
        for (size_t i : notified(SCN_MODIFIED))
            changes += (editor->notifications[i].modificationType & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) != 0;
        EXPECT_EQ(changes, expected) << "mask " << mask;
    }
    EXPECT_EQ(scanningNotifications, 0);
}
