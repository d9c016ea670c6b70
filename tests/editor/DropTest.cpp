// Drops: the host's private text format goes in where the mouse is, as one undo step; plain
// text is the engine's own drop.
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>

#include "EditorFixture.h"

namespace {
QMimeData* privateDrop(const char* text) {
    auto* data = new QMimeData;
    data->setData(ClipboardFormatMimeType(RegisterClipboardFormat("Tessel_OLEFormat")), QByteArray(text));
    return data;
}
}  // namespace

class DropTest : public EditorTest {
protected:
    // The point in the text area where position `pos` is drawn.
    QPoint pointOf(long pos) {
        return QPoint(int(send(SCI_POINTXFROMPOSITION, 0, pos)) + 1, int(send(SCI_POINTYFROMPOSITION, 0, pos)) + 2);
    }
    bool drop(QMimeData* data, QPoint at) {
        // As a real drag does: the area must accept the drag's entry before it gets the drop.
        QWidget* area = editor->engine()->viewport();
        QDragEnterEvent enter(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &enter);
        QDropEvent event(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &event);
        delete data;
        return event.isAccepted();
    }
};

TEST_F(DropTest, PrivateTextLandsUnderTheMouseSelectedAndUndoable) {
    load("select  from t;\nsecond line\n");
    EXPECT_TRUE(drop(privateDrop("a,\r\nb"), pointOf(7)));
    EXPECT_EQ(text(), "select a,\r\nb from t;\nsecond line\n");  // its own line ends stay
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 7);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 12);
    send(SCI_UNDO);
    EXPECT_EQ(text(), "select  from t;\nsecond line\n");
}

TEST_F(DropTest, TheMouseDecidesNotTheRecordsPoint) {
    load("0123456789");
    QMimeData* data = privateDrop("X");
    DropRecord record;
    record.dataObject = data;
    record.x = 9999;  // a point the message claims; the mouse is elsewhere
    record.y = 9999;
    SetDropCursorPos(editor->engine()->viewport()->mapToGlobal(pointOf(3)));
    EXPECT_EQ(editor->SendMessage(0x4FF, reinterpret_cast<WPARAM>(&record), 0), 1);
    SetDropCursorPos(std::nullopt);
    EXPECT_EQ(text(), "012X3456789");
    delete data;
}

TEST_F(DropTest, PlainTextIsNotThePrivateFormatButTheEngineStillTakesIt) {
    load("abc");
    auto* plain = new QMimeData;
    plain->setText("zz");
    DropRecord record;
    record.dataObject = plain;
    EXPECT_EQ(editor->SendMessage(0x4FF, reinterpret_cast<WPARAM>(&record), 0), 0);
    EXPECT_EQ(text(), "abc");
    EXPECT_TRUE(drop(plain, pointOf(1)));  // the user's plain drop: the engine inserts it
    EXPECT_EQ(text(), "azzbc");
}

TEST_F(DropTest, AReadOnlyEditorTakesTheDropAndChangesNothing) {
    load("abc");
    send(SCI_SETREADONLY, 1);
    QMimeData* data = privateDrop("zz");
    DropRecord record;
    record.dataObject = data;
    EXPECT_EQ(editor->SendMessage(0x4FF, reinterpret_cast<WPARAM>(&record), 0), 1);
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(editor->SendMessage(0x4FF, 0, 0), 0);  // no record: nothing to drop
    delete data;
}
