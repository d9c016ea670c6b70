// Drops: the host's private text goes in where the mouse is, as one undo step; plain text is the engine's.
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>

#include "EditorFixture.h"

class DropTest : public EditorTest {
protected:
    static QMimeData* privateDrop(const char* text) {
        auto* data = new QMimeData;
        data->setData(ClipboardFormatMimeType(RegisterClipboardFormat("Tessel_OLEFormat")), QByteArray(text));
        return data;
    }
    static QMimeData* plainDrop(const char* text) {
        auto* data = new QMimeData;
        data->setText(text);
        return data;
    }
    // The point in the text area where position `pos` is drawn.
    QPoint pointOf(long pos) {
        return QPoint(int(send(SCI_POINTXFROMPOSITION, 0, pos)) + 1, int(send(SCI_POINTYFROMPOSITION, 0, pos)) + 2);
    }
    // As a real drag does: the area accepts the drag's entry before it gets the drop.
    bool drop(QMimeData* data, QPoint at) {
        QWidget* area = editor->engine()->viewport();
        QDragEnterEvent enter(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &enter);
        QDropEvent event(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &event);
        delete data;
        return event.isAccepted();
    }
    // The drop message with a record of this data object and claimed point.
    long dropMessage(QMimeData* data, int x = 0, int y = 0) {
        DropRecord record;
        record.dataObject = data;
        record.x = x, record.y = y;
        return editor->SendMessage(0x4FF, reinterpret_cast<WPARAM>(&record), 0);
    }
};

TEST_F(DropTest, PrivateTextLandsUnderTheMouseSelectedAndUndoable) {
    load("select  from t;\nsecond line\n");
    EXPECT_TRUE(drop(privateDrop("a,\r\nb"), pointOf(7)));
    EXPECT_EQ(text(), "select a,\r\nb from t;\nsecond line\n");  // its own line ends stay
    expectSends({{SCI_GETSELECTIONSTART, 0, 7}, {SCI_GETSELECTIONEND, 0, 12}});
    send(SCI_UNDO);
    EXPECT_EQ(text(), "select  from t;\nsecond line\n");
}

TEST_F(DropTest, TheDropMessageTakesPrivateTextAtTheMouseAndRefusesPlainText) {
    // {read-only, private (else plain) text, answer, text after}; the record's point is not the mouse's.
    for (auto [readOnly, isPrivate, answer, after] : {std::tuple{false, true, 1L, "aXbc"}, {false, false, 0L, "abc"},
                                                       {true, true, 1L, "abc"}}) {  // read-only: taken, no change
        load("abc");
        send(SCI_SETREADONLY, readOnly);
        std::unique_ptr<QMimeData> data(isPrivate ? privateDrop("X") : plainDrop("zz"));
        SetDropCursorPos(editor->engine()->viewport()->mapToGlobal(pointOf(1)));
        EXPECT_EQ(dropMessage(data.get(), 9999, 9999), answer);
        SetDropCursorPos(std::nullopt);
        EXPECT_EQ(text(), after);
    }
    EXPECT_EQ(editor->SendMessage(0x4FF, 0, 0), 0);  // no record: nothing to drop
    POINT p{int(send(SCI_POINTXFROMPOSITION, 0, 1)), int(send(SCI_POINTYFROMPOSITION, 0, 1)) + 2};
    editor->DropText(&p, "zz");
    EXPECT_EQ(text(), "abc");
    send(SCI_SETREADONLY, 0);
    EXPECT_TRUE(drop(plainDrop("zz"), pointOf(1)));  // the user's plain drop: the engine inserts it
    EXPECT_EQ(text(), "azzbc");
}
