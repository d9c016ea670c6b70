// The program's window: its title names the file and marks unsaved changes, and closing it
// with unsaved changes asks first and does what the answer says, without losing text.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstring>

#include "EditorHost.h"
#include "ScratchRegistry.h"

namespace {
QByteArray fileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class EditorHostTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath("orders.sql");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("select 1;\n");
        file.close();
        ASSERT_TRUE(host.create());
        ASSERT_TRUE(host.open(path.toUtf8().constData()));
        host.window().show();
    }
    void type(const char* text) { host.editor().SendMessage(SCI_ADDTEXT, std::strlen(text), reinterpret_cast<LPARAM>(text)); }

    ScratchRegistry registry;
    QTemporaryDir dir;
    QString path;
    EditorHost host{CString()};
};
}  // namespace

TEST_F(EditorHostTest, TitleNamesTheFileAndMarksUnsavedChanges) {
    EXPECT_TRUE(host.window().windowTitle().startsWith("orders.sql[*]"));
    EXPECT_FALSE(host.window().isWindowModified());
    type("x");
    EXPECT_TRUE(host.window().isWindowModified());
    host.editor().SendMessage(SCI_UNDO);
    EXPECT_FALSE(host.window().isWindowModified());
}

TEST_F(EditorHostTest, ClosingWithUnsavedChangesDoesWhatTheAnswerSays) {
    struct Case {
        EditorHost::CloseAnswer answer;
        bool closes;
        QByteArray onDisk;
    };
    const Case cases[] = {
        {EditorHost::CloseAnswer::Cancel, false, "select 1;\n"},
        {EditorHost::CloseAnswer::Discard, true, "select 1;\n"},
        {EditorHost::CloseAnswer::Save, true, "-- new\nselect 1;\n"},
    };
    for (const Case& c : cases) {
        EditorHost other{CString()};
        ASSERT_TRUE(other.create());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("select 1;\n");
        file.close();
        ASSERT_TRUE(other.open(path.toUtf8().constData()));
        other.window().show();
        int asked = 0;
        other.setCloseQuestion([&](const QString& name) {
            ++asked;
            EXPECT_EQ(name, "orders.sql");
            return c.answer;
        });
        other.editor().SendMessage(SCI_ADDTEXT, 7, reinterpret_cast<LPARAM>("-- new\n"));
        const QByteArray typed = QByteArray(other.editor().GetText().c_str()).replace("\r\n", "\n");
        EXPECT_EQ(other.window().close(), c.closes);
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(fileBytes(path).replace("\r\n", "\n"), c.onDisk);  // the save writes the window's line ends
        // Asking never loses the text (a save may turn its line ends into the file's).
        EXPECT_EQ(QByteArray(other.editor().GetText().c_str()).replace("\r\n", "\n"), typed);
    }
}

TEST_F(EditorHostTest, ClosingWithoutChangesAsksNothing) {
    int asked = 0;
    host.setCloseQuestion([&](const QString&) {
        ++asked;
        return EditorHost::CloseAnswer::Cancel;
    });
    EXPECT_TRUE(host.window().close());
    EXPECT_EQ(asked, 0);
}
