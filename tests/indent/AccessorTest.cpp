// The window accessor: read-ahead buffer, reads past the ends, batched styles, indentation, word grab.
#include "IndentFixture.h"
#include "PropSet.h"
#include "WindowAccessor.h"

namespace {
class ProbeAccessor : public WindowAccessor {
public:
    using WindowAccessor::WindowAccessor;
    int bufferStart() const { return startPos; }
    int bufferEnd() const { return endPos; }
};
}  // namespace

class AccessorTest : public IndentTest {
protected:
    PropSet props;
    std::string styles(long from, long to) {
        std::string out;
        for (long p = from; p < to; ++p) out += char('0' + send(SCI_GETSTYLEAT, WPARAM(p)));
        return out;
    }
};

TEST_F(AccessorTest, TheBufferLandsRoundThePositionAndIsPulledBackAtTheEnd) {
    std::string text;
    for (int i = 0; i < 10000; ++i) text += char('0' + i % 10);
    load(text.c_str());
    ProbeAccessor acc(editor.get(), props);
    EXPECT_EQ(acc[0], '0');
    EXPECT_EQ(acc.bufferStart(), 0);
    for (auto [at, ch, start, end] : {std::tuple{5001, '1', 4501, 8501}, {9000, '0', 6000, 10000}}) {
        EXPECT_EQ(acc[at], ch);
        EXPECT_EQ(acc.bufferStart(), start) << at;
        EXPECT_EQ(acc.bufferEnd(), end) << at;
    }
    for (int p = 0; p < 10000; p += 997) ASSERT_EQ(acc[p], text[size_t(p)]) << p;

    load("select 1");
    ProbeAccessor small(editor.get(), props);
    EXPECT_EQ(small[7], '1');
    EXPECT_EQ(small.bufferEnd(), 8);
    EXPECT_EQ(small.SafeGetCharAt(8, '#'), '#');
    EXPECT_EQ(small.SafeGetCharAt(-1, '#'), '#');
    EXPECT_TRUE(small.Match(7, "1  "));  // past the end each byte reads as a blank
    EXPECT_FALSE(small.Match(7, "1x"));
}

TEST_F(AccessorTest, StylesAreBatchedUntilFlushAndLargeSegmentsGoStraightThrough) {
    load(std::string(6000, 'x').c_str());
    WindowAccessor acc(editor.get(), props);
    acc.StartAt(0);
    acc.StartSegment(0);
    acc.ColourTo(1, 3);
    acc.ColourTo(1, 7);  // the empty segment: only its start moves
    EXPECT_EQ(acc.GetStartSegment(), 2u);
    acc.SetFlags(char(0x20), 4);
    acc.ColourTo(3, 4);  // the flags apply to style 4 ...
    acc.ColourTo(4, 5);  // ... and end at another style
    acc.ColourTo(5, 4);
    EXPECT_EQ(styles(0, 6), "000000");
    acc.Flush();
    EXPECT_EQ(styles(0, 2), "33");
    EXPECT_EQ(send(SCI_GETSTYLEAT, 3), 0x24);
    EXPECT_EQ(styles(4, 6), "54");
    acc.ColourTo(10, 2);
    acc.ColourTo(5010, 1);  // 4000 bytes or more: the buffer is flushed, then this is sent
    EXPECT_EQ(styles(10, 12), "21");
    EXPECT_EQ(styles(5010, 5011), "1");
    acc.ColourTo(20, 6);  // backwards: nothing is styled
    acc.Flush();
    EXPECT_EQ(styles(20, 21), "1");
    EXPECT_EQ(acc.GetStartSegment(), 21u);
}

TEST_F(AccessorTest, IndentAmountCountsColumnsAndReportsItsKinds) {
    load("x\n    a\n \tb\n\tc\n   \n        -- c");
    WindowAccessor acc(editor.get(), props);
    bool (*isComment)(Accessor&, int, int) = [](Accessor& a, int pos, int len) { return len >= 2 && a.Match(pos, "--"); };
    constexpr int base = SC_FOLDLEVELBASE, white = SC_FOLDLEVELWHITEFLAG, space = Accessor::wsSpace,
                  tab = Accessor::wsTab, mixed = Accessor::wsSpaceTab, inconsistent = Accessor::wsInconsistent;
    // {line, comments count as blank, amount, kinds (-1: not checked)}; a tab goes to column 8.
    for (auto [line, comments, amount, kinds] :
         {std::tuple{1, false, base + 4, space}, {2, false, base + 8, space | tab | mixed | inconsistent},
          {3, false, base + 8, tab | inconsistent}, {4, false, (base + 3) | white, -1}, {5, false, base + 8, -1},
          {5, true, (base + 8) | white, -1}}) {
        int flags = -1;
        EXPECT_EQ(acc.IndentAmount(line, &flags, comments ? isComment : nullptr), amount) << line;
        if (kinds >= 0) { EXPECT_EQ(flags, kinds) << line; }
    }
    load("");
    WindowAccessor empty(editor.get(), props);
    EXPECT_EQ(empty.IndentAmount(0, nullptr), SC_FOLDLEVELBASE | SC_FOLDLEVELWHITEFLAG);
}

TEST_F(AccessorTest, TheWordGrabTakesTheWordRoundAnEmptySelection) {
    load("select order_id  from t\r\n", 9);
    EXPECT_EQ(editor->SelectionWord(false), "order_id");
    send(SCI_SETSEL, 16, 16);  // between two blanks
    EXPECT_EQ(editor->SelectionWord(false), SString());
    send(SCI_SETSEL, 0, 3);  // a selection is never extended
    EXPECT_EQ(editor->SelectionWord(false), "sel");
    send(SCI_SETSEL, 22, 25);
    EXPECT_EQ(editor->SelectionWord(true), "t");  // CR LF goes as one
    load("a\n\n");
    send(SCI_SETSEL, 0, 3);
    EXPECT_EQ(editor->SelectionWord(true), "a\n");  // only one line end
    EXPECT_EQ(editor->RangeExtendAndGrab(-5, 99, nullptr, false), "a\n\n");
}
