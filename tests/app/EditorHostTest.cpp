// The program's window: its title names the file and marks unsaved changes, and closing it
// with unsaved changes asks first and does what the answer says, without losing text.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstring>

#include "EditorHost.h"
#include "ScratchRegistry.h"

namespace {
QByteArray withLf(QByteArray text) { return text.replace("\r\n", "\n"); }
}  // namespace

TEST(EditorHostTest, TheTitleMarksChangesAndClosingDoesWhatTheAnswerSays) {
    ScratchRegistry registry;
    QTemporaryDir dir;
    const QString path = dir.filePath("orders.sql");
    struct Case { const char* typed; EditorHost::CloseAnswer answer; bool closes; QByteArray onDisk; int asked; };
    const Case cases[] = {
        {"", EditorHost::CloseAnswer::Cancel, true, "select 1;\n", 0},  // without changes nothing is asked
        {"-- new\n", EditorHost::CloseAnswer::Cancel, false, "select 1;\n", 1},
        {"-- new\n", EditorHost::CloseAnswer::Discard, true, "select 1;\n", 1},
        {"-- new\n", EditorHost::CloseAnswer::Save, true, "-- new\nselect 1;\n", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(int(c.answer));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("select 1;\n") == 10);
        file.close();
        EditorHost host{CString()};
        ASSERT_TRUE(host.create() && host.open(path.toUtf8().constData()));
        host.window().show();
        EXPECT_TRUE(host.window().windowTitle().startsWith("orders.sql[*]"));
        EXPECT_FALSE(host.window().isWindowModified());
        host.editor().SendMessage(SCI_ADDTEXT, strlen(c.typed), reinterpret_cast<LPARAM>(c.typed));
        EXPECT_EQ(host.window().isWindowModified(), *c.typed != 0);
        int asked = 0;
        host.setCloseQuestion([&](const QString& name) {
            EXPECT_EQ(name, "orders.sql");
            return ++asked, c.answer;
        });
        const QByteArray typed = withLf(host.editor().GetText().c_str());
        EXPECT_EQ(host.window().close(), c.closes);
        EXPECT_EQ(asked, c.asked);
        QFile saved(path);
        EXPECT_TRUE(saved.open(QIODevice::ReadOnly));
        EXPECT_EQ(withLf(saved.readAll()), c.onDisk);  // the save writes the window's line ends
        // Asking never loses the text (a save may turn its line ends into the file's).
        EXPECT_EQ(withLf(host.editor().GetText().c_str()), typed);
        if (*c.typed) host.editor().SendMessage(SCI_UNDO);  // an undo back to the save point clears the mark
        EXPECT_EQ(host.window().isWindowModified(), c.answer == EditorHost::CloseAnswer::Save);
    }
}
