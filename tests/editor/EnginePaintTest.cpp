// The screen keeps its last frame while colouring runs above the view, and never a stale one.
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTest>

#include "EditorFixture.h"

TEST_F(EditorTest, ColouringAboveTheViewKeepsTheFrameAndTheScreenEndsUpRight) {
    editor->keyWordUsingPreCreate = 1;
    editor->initScintilla();
    send(SCI_SETCARETPERIOD, 0);  // the caret stays as it is between two pictures
    QWidget* engine = editor->GetSafeHwnd();
    QWidget* top = engine->window();
    top->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(top));
    // What the screen shows of the engine's view, beside what a fresh paint of it would show.
    auto onScreen = [&] {
        QWidget* view = editor->engine()->viewport();
        const QPoint at = view->mapTo(top, QPoint(0, 0));
        return top->screen()->grabWindow(top->winId(), at.x(), at.y(), view->width(), view->height()).toImage();
    };
    auto painted = [&] { return editor->engine()->viewport()->grab().toImage(); };

    editor->SetText(CString(RepeatedLines("select col_a from some_table where id = 42;\n", 16 << 20) + "select 1;"), 0);
    QTest::keyClick(engine, Qt::Key_End, Qt::ControlModifier);
    QApplication::processEvents();
    const long lastLine = send(SCI_POSITIONFROMLINE, WPARAM(send(SCI_GETLINECOUNT) - 1));
    ASSERT_LT(send(SCI_GETENDSTYLED), lastLine) << "the end shows before it is coloured";

    // While the engine colours the text above the view, its whole repaints keep the frame; a
    // grab during that time still paints the whole view. (The engine's progress is read past
    // the window: any message through it might change what shows.)
    auto endStyled = [&] { return long(editor->engine()->SendScintilla(SCI_GETENDSTYLED)); };
    editor->engine()->resetCounters();
    while (endStyled() < (1 << 20)) QApplication::processEvents();
    EXPECT_GT(editor->engine()->counters().framesKept, 0u);
    EXPECT_EQ(painted(), onScreen());

    // Once colouring reaches the view, the screen shows the coloured text; so does a scroll or
    // a key typed meanwhile.
    QTest::keyClick(engine, Qt::Key_Up);
    while (endStyled() <= lastLine) QApplication::processEvents();
    QApplication::processEvents();
    EXPECT_EQ(send(SCI_GETSTYLEAT, WPARAM(lastLine + 1)), 5) << "the keyword of the last line";
    EXPECT_EQ(painted(), onScreen());
}
