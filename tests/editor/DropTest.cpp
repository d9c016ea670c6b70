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

TEST_F(DropTest, TheMouseDecidesNotTheRecordsPoint) {
    load("0123456789");
    std::unique_ptr<QMimeData> data(privateDrop("X"));
    SetDropCursorPos(editor->engine()->viewport()->mapToGlobal(pointOf(3)));
    EXPECT_EQ(dropMessage(data.get(), 9999, 9999), 1);  // the point the message claims is not the mouse's
    SetDropCursorPos(std::nullopt);
    EXPECT_EQ(text(), "012X3456789");
}

TEST_F(DropTest, PlainTextIsNotThePrivateFormatButTheEngineStillTakesIt) {
    load("abc");
    auto* plain = new QMimeData;
    plain->setText("zz");
    EXPECT_EQ(dropMessage(plain), 0);
    EXPECT_EQ(text(), "abc");
    EXPECT_TRUE(drop(plain, pointOf(1)));  // the user's plain drop: the engine inserts it
    EXPECT_EQ(text(), "azzbc");
}

TEST_F(DropTest, AReadOnlyEditorTakesEveryDropAndChangesNothing) {
    load("abc");
    send(SCI_SETREADONLY, 1);
    std::unique_ptr<QMimeData> data(privateDrop("zz"));
    EXPECT_EQ(dropMessage(data.get()), 1);
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(editor->SendMessage(0x4FF, 0, 0), 0);  // no record: nothing to drop
    POINT p{int(send(SCI_POINTXFROMPOSITION, 0, 1)), int(send(SCI_POINTYFROMPOSITION, 0, 1)) + 2};
    editor->DropText(&p, "zz");
    EXPECT_EQ(text(), "abc");
}
