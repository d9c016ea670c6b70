// What the engine layer adds to Scintilla: case modes, typed-character records, edits of constant cost.
#include <QAccessible>
#include <QTest>
#include <optional>

#include "EditorFixture.h"
#include "EngineAccessible.h"
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
    expectSteps({{[&] { send(SCI_UPPERCASE, SCI_CASE_CAPITALISE); }, "say Hello Wörld now"},
                 {[&] { expectSends({{SCI_GETSELECTIONSTART, 0, 4}, {SCI_GETSELECTIONEND, 0, 16}}); }, "say Hello Wörld now"},
                 {[&] { send(SCI_UPPERCASE, SCI_CASE_INVERT); }, "say hELLO wÖRLD now"},
                 {[&] { send(SCI_UNDO); }, "say Hello Wörld now"},
                 {[&] { send(SCI_SETSEL, 4, 16), send(SCI_UPPERCASE, SCI_CASE_UPPER); }, "say HELLO WÖRLD now"},
                 {[&] { send(SCI_LOWERCASE); }, "say hello wörld now"}});
    load("x straße y");  // a change of byte length keeps the whole changed text selected
    expectSteps({{[&] { send(SCI_SETSEL, 2, 9), send(SCI_UPPERCASE, SCI_CASE_INVERT); }, "x STRASSE y"},
                 {[&] { send(SCI_SETSEL, 9, 2), send(SCI_UPPERCASE, SCI_CASE_SENTENCE); }, "x Strasse y"}});
    expectSends({{SCI_GETANCHOR, 0, 9}, {SCI_GETCURRENTPOS, 0, 2}});  // a backward selection stays backward
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
    EXPECT_EQ(std::tuple(a.ch, a.ch2, han.ch, han.ch2, han.ch3), std::tuple('a', 0, 0xED, 0x95, 0x9C));  // U+D55C
    EXPECT_EQ(text(), "a한");
}

TEST_F(EditorTest, AnEditCostsTheSameInASmallAndALargeDocument) {
    // Engine messages and copied bytes of one character typed at the end of a document.
    auto costOfTyping = [&](size_t documentBytes) {
        editor->SetText(CString(RepeatedLines("select col_a, col_b from some_table where id = 42;\n", documentBytes)), 0);
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

namespace {
// Collects what assistive technology would hear while it is switched on for one scope.
struct ListeningAssistiveTechnology {
    struct Heard { QAccessible::Event type; int offset; QString text; };
    static inline std::vector<Heard> heard;
    EngineAccessible::Listener previous;
    ListeningAssistiveTechnology() {
        heard.clear();
        previous = EngineAccessible::installListener([](QAccessibleEvent* event) {
            Heard h{event->type(), -1, {}};
            if (event->type() == QAccessible::TextCaretMoved)
                h.offset = static_cast<QAccessibleTextCursorEvent*>(event)->cursorPosition();
            else if (event->type() == QAccessible::TextInserted) {
                h.offset = static_cast<QAccessibleTextInsertEvent*>(event)->changePosition();
                h.text = static_cast<QAccessibleTextInsertEvent*>(event)->textInserted();
            } else if (event->type() == QAccessible::TextRemoved) {
                h.offset = static_cast<QAccessibleTextRemoveEvent*>(event)->changePosition();
                h.text = static_cast<QAccessibleTextRemoveEvent*>(event)->textRemoved();
            }
            heard.push_back(h);
        });
    }
    ~ListeningAssistiveTechnology() { EngineAccessible::installListener(previous); }
    static std::vector<Heard> of(QAccessible::Event type) {
        std::vector<Heard> out;
        for (const Heard& h : heard)
            if (h.type == type) out.push_back(h);
        return out;
    }
};

// A document of about `bytes` bytes whose lines hold characters of one, two, three and four
// UTF-8 bytes (the last two UTF-16 units), so that bytes, characters and offsets all differ.
std::string mixedDocument(size_t bytes) { return RepeatedLines("select '한글 \xF0\x9F\x98\x80 é' from t;\n", bytes); }
}  // namespace

TEST_F(EditorTest, AssistiveTechnologyHearsOffsetsThatCostTheSameInAnyDocument) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(editor->engine());
    ASSERT_NE(dynamic_cast<EngineAccessible*>(accessible), nullptr) << "QScintilla's own object answered";
    QAccessibleTextInterface* text = accessible->textInterface();
    ASSERT_NE(text, nullptr);

    // One key typed at the end and one in the middle; what was counted, and what was heard.
    auto typeIn = [&](size_t documentBytes, bool listening) {
        const std::string content = mixedDocument(documentBytes);
        editor->SetText(CString(content), 0);
        QuillEngine::Counters cost;
        for (long position : {long(content.size()), long(content.find('\n', content.size() / 2) + 1)}) {
            send(SCI_GOTOPOS, WPARAM(position));
            QApplication::processEvents();
            std::optional<ListeningAssistiveTechnology> at;
            if (listening) {
                at.emplace();
                text->cursorPosition();  // the engine's index of offsets is made on first use
            }
            editor->engine()->resetCounters();
            for (Qt::Key key : {Qt::Key_X, Qt::Key_Backspace}) {
                QTest::keyClick(editor->GetSafeHwnd(), key);
                QApplication::processEvents();  // the paint that tells of the caret's move
            }
            const QuillEngine::Counters& c = editor->engine()->counters();
            cost.messages += c.messages, cost.bytesCounted += c.bytesCounted;
            if (!listening) continue;
            const int expected = int(QString::fromUtf8(content.data(), qsizetype(position)).size());
            const auto inserted = at->of(QAccessible::TextInserted), removed = at->of(QAccessible::TextRemoved),
                       moved = at->of(QAccessible::TextCaretMoved);
            EXPECT_TRUE(inserted.size() == 1 && inserted[0].offset == expected && inserted[0].text == "x");
            EXPECT_TRUE(removed.size() == 1 && removed[0].offset == expected && removed[0].text == "x");
            EXPECT_TRUE(moved.size() == 2 && moved[0].offset == expected + 1 && moved[1].offset == expected);
            EXPECT_EQ(text->cursorPosition(), expected);
        }
        return cost;
    };
    for (bool listening : {false, true}) {
        SCOPED_TRACE(listening ? "listening" : "nobody listening");
        const QuillEngine::Counters small = typeIn(1 << 20, listening), large = typeIn(8 << 20, listening);
        EXPECT_EQ(small.messages, large.messages);
        EXPECT_EQ(small.bytesCounted, large.bytesCounted);
        if (!listening) {
            EXPECT_EQ(large.bytesCounted, 0u);
        }
    }

    // The text interface in characters of UTF-16, as QString counts them.
    load("select '한글 \xF0\x9F\x98\x80 é' from t;\nsecond line\n");
    const QString all = QString::fromUtf8(text->text(0, -1).toUtf8());
    EXPECT_EQ(all, QString::fromUtf8("select '한글 \xF0\x9F\x98\x80 é' from t;\nsecond line\n"));
    EXPECT_EQ(text->characterCount(), all.size());
    EXPECT_EQ(text->text(8, 14), QString::fromUtf8("한글 \xF0\x9F\x98\x80 "));
    text->setSelection(0, 8, 14);
    expectSends({{SCI_GETSELECTIONSTART, 0, 8}, {SCI_GETSELECTIONEND, 0, 8 + 6 + 1 + 4 + 1}});
    int start = -1, end = -1;
    text->selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(8, 14));
    EXPECT_EQ(text->textAtOffset(9, QAccessible::WordBoundary, &start, &end), QString::fromUtf8("한글"));
    EXPECT_EQ(std::pair(start, end), std::pair(8, 10));
    const int second = int(all.indexOf("second"));
    for (auto [got, expected] : {std::pair{text->textAtOffset(second + 2, QAccessible::LineBoundary, &start, &end),
                                           QString("second line\n")},
                                 {text->textAfterOffset(0, QAccessible::LineBoundary, &start, &end), "second line\n"},
                                 {text->textBeforeOffset(second, QAccessible::LineBoundary, &start, &end),
                                  all.left(second)}})
        EXPECT_EQ(got, expected);
    accessible->editableTextInterface()->replaceText(8, 10, "ab");
    EXPECT_EQ(text->text(0, 11), "select 'ab ");
    send(SCI_SETREADONLY, 1);
    accessible->editableTextInterface()->insertText(0, "no");
    EXPECT_EQ(text->text(0, 6), "select");
    EXPECT_TRUE(accessible->state().readOnly);
}

TEST_F(EditorTest, AJumpFarAheadIsColouredBeforeItShowsOnlyWhenThatIsQuick) {
    // Whether the last line is coloured when the window first paints after a jump to the end,
    // and that it is coloured once the window has been idle.
    editor->keyWordUsingPreCreate = 1;
    editor->initScintilla();
    auto jumpToEnd = [&](size_t bytes) {
        std::string content = RepeatedLines("select col_a from some_table where id = 42;\n", bytes) + "select 1;";
        editor->SetText(CString(std::move(content)), 0);
        editor->GetSafeHwnd()->grab();  // the top shows, coloured
        QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_End, Qt::ControlModifier);
        editor->GetSafeHwnd()->grab();
        const long last = send(SCI_GETLENGTH) - 2;
        const bool colouredAtOnce = send(SCI_GETENDSTYLED) > last;
        for (int pass = 0; pass < 100000 && send(SCI_GETENDSTYLED) <= last; ++pass) QApplication::processEvents();
        EXPECT_EQ(send(SCI_GETSTYLEAT, WPARAM(last - 6)), 5) << "the keyword of the last line";
        return colouredAtOnce;
    };
    EXPECT_TRUE(jumpToEnd(64 << 10));   // well within one paint's budget
    EXPECT_FALSE(jumpToEnd(16 << 20));  // far beyond it: shown first, coloured moments later
}
