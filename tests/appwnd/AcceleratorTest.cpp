// Keys reach the window's commands through its accelerator table, before any shortcut of
// the host; the host can send the same commands.
#include <QShortcut>

#include "AppWindow.h"
#include "CommandIds.h"

TEST_F(AppWindowTest, KeysRunTheirCommandsBeforeTheHostsShortcuts) {
    create();
    focus(*window);
    window->SetText("  Select Name\nfrom t\n", 0);
    send(SCI_SETSEL, 2, 13);
    struct Row { int key; Qt::KeyboardModifiers modifiers; const char* text; long caret; };
    const Row rows[] = {
        {Qt::Key_U, Qt::ControlModifier, "  select name\r\nfrom t\r\n", -1},  // lower case
        {Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier, "  SELECT NAME\r\nfrom t\r\n", -1},
        {Qt::Key_End, Qt::ControlModifier, nullptr, 23},
        {Qt::Key_Home, Qt::ControlModifier, nullptr, 0},
        {Qt::Key_Home, Qt::NoModifier, nullptr, 2},  // line head: after the indentation
        {Qt::Key_Delete, Qt::ControlModifier, "  NAME\r\nfrom t\r\n", -1},
        {Qt::Key_Z, Qt::ControlModifier, "  SELECT NAME\r\nfrom t\r\n", -1},
    };
    for (const Row& row : rows) {
        key(row.key, row.modifiers);
        if (row.text) { EXPECT_EQ(text(), row.text) << row.key; }
        if (row.caret >= 0) { EXPECT_EQ(window->GetCurrentPosition(), row.caret) << row.key; }
    }

    int selectAllShortcut = 0, otherShortcut = 0;
    QShortcut selectAll(QKeySequence(Qt::CTRL | Qt::Key_A), frame->GetSafeHwnd());
    QShortcut other(QKeySequence(Qt::CTRL | Qt::Key_K), frame->GetSafeHwnd());
    QObject::connect(&selectAll, &QShortcut::activated, [&] { ++selectAllShortcut; });
    QObject::connect(&other, &QShortcut::activated, [&] { ++otherShortcut; });
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectAllShortcut, 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND) - send(SCI_GETSELECTIONSTART), 23);
    key(Qt::Key_K, Qt::ControlModifier);  // a key the window does not translate is still the host's
    EXPECT_EQ(otherShortcut, 1);

    window->SendMessage(WM_COMMAND, MakeCommandWParam(cmd::UpperCase), 0);
    EXPECT_EQ(text(), "  SELECT NAME\r\nFROM T\r\n");
    window->SendMessage(WM_COMMAND, MakeCommandWParam(cmd::EditClear), 0);
    EXPECT_EQ(text(), "");
}
