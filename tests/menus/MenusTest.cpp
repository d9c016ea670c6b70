// The context menu of the application editor window, the update walk over its items, and the
// commands behind them, driven by right clicks, keys and a scripted menu choice.
#include <QContextMenuEvent>
#include <QTemporaryDir>

#include <fstream>
#include <map>
#include <sstream>

#include "AppWindow.h"
#include "CFileDialogEx.h"
#include "CKTScinReadWnd.h"
#include "CMenu.h"
#include "CommandIds.h"
#include "MessageBox.h"
#include "QuillEngine.h"
#include "Resources.h"

namespace {
// Answers the context menu: records every command id with its state (submenus included),
// the top level's ids and the submenus' states, then picks `choose` (0 for none).
class MenuScript {
public:
    explicit MenuScript(UINT choose = 0) {
        previous_ = SetTrackPopupHook([this, choose](CMenu& menu, POINT, CWnd*) -> UINT {
            ++opened, topLevel.clear(), states.clear(), popupStates.clear();
            collect(menu, true);
            return choose;
        });
    }
    ~MenuScript() { SetTrackPopupHook(previous_); }
    void collect(CMenu& menu, bool top) {
        for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
            const UINT id = menu.GetMenuItemID(i);
            if (top) topLevel.push_back(id);
            if (CMenu* sub = menu.GetSubMenu(i)) {
                popupStates.push_back(menu.GetMenuState(UINT(i), MF_BYPOSITION));
                collect(*sub, false);
            } else if (id != 0) {
                states[id] = menu.GetMenuState(UINT(i), MF_BYPOSITION);
            }
        }
    }
    bool has(UINT id) const { return states.count(id) != 0; }
    bool enabled(UINT id) const { return has(id) && (states.at(id) & MF_GRAYED) == 0; }
    long onTop(UINT id) const { return std::count(topLevel.begin(), topLevel.end(), id); }
    int opened = 0;
    std::vector<UINT> topLevel, popupStates;
    std::map<UINT, UINT> states;

private:
    TrackPopupHook previous_;
};

class MenusTest : public AppWindowTest {
protected:
    void SetUp() override {
        AppWindowTest::SetUp();
        create();
        window->SetText("select a\nfrom t\nwhere x = 1\n", 0);
        send(SCI_EMPTYUNDOBUFFER);
    }
    // A right click at a position of the text, or at a point of another window.
    void rightClick(long position) {
        rightClick(QPoint(int(send(SCI_POINTXFROMPOSITION, 0, position)), int(send(SCI_POINTYFROMPOSITION, 0, position)) + 2));
    }
    void rightClick(QPoint at, CWnd* target = nullptr) {
        QWidget* viewport = static_cast<QuillEngine*>((target ? target : window.get())->GetSafeHwnd())->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, viewport->mapToGlobal(at));
        QCoreApplication::sendEvent(viewport, &event);
    }
};
}  // namespace

TEST_F(MenusTest, ARightClickOpensTheEditorsMenuAndItsChoiceRuns) {
    MenuScript script(cmd::ToggleBookmark);
    const long target = send(SCI_POSITIONFROMLINE, 1) + 2;
    rightClick(target);
    ASSERT_EQ(script.opened, 1);
    // No selection: the caret went to the click before the menu opened, and the command ran there.
    EXPECT_EQ(send(SCI_GETCURRENTPOS), target);
    EXPECT_EQ(send(SCI_MARKERGET, 1), 1);
    // The editor's menu: editing rows first, the case commands in a submenu of their own.
    EXPECT_EQ(script.topLevel.front(), cmd::EditUndo);
    EXPECT_TRUE(script.has(cmd::LowerCase) && script.has(cmd::ClearAllBookmarks));
    EXPECT_EQ(script.onTop(cmd::LowerCase), 0);

    // A click beside a selection keeps it; switched-off menus neither open nor move the caret.
    send(SCI_SETSEL, 0, 6);
    rightClick(send(SCI_POSITIONFROMLINE, 2));
    EXPECT_EQ(script.opened, 2);
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 6);
    send(SCI_SETEMPTYSELECTION, 0);
    window->ShowPopupMenu(false);
    rightClick(20);
    window->ShowPopupMenu(true);
    window->SetPopupMenu(UINT(-1), 0);
    rightClick(20);
    EXPECT_EQ(script.opened, 2);
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 0);
}

TEST_F(MenusTest, HiddenIdsLeaveOnlyTheTopLevelAndRemovedIdsLeaveEverywhere) {
    // Each opening starts from the resource again, and an empty list clears the earlier one.
    // "Delete" stands twice at the top level; hiding it takes only the first.
    struct Row { std::vector<int> hide; std::vector<UINT> remove, present, absent; long deletesOnTop; };
    const Row rows[] = {
        {{int(cmd::LowerCase), int(cmd::EditUndo), int(cmd::DeleteChar)}, {}, {cmd::LowerCase}, {cmd::EditUndo}, 1},
        {{}, {cmd::LowerCase, cmd::Find, cmd::DeleteChar}, {}, {cmd::LowerCase, cmd::Find}, 0},
        {{}, {}, {cmd::LowerCase, cmd::Find, cmd::EditUndo}, {}, 2},
    };
    MenuScript script;
    for (const Row& row : rows) {
        std::vector<int> hide = row.hide;
        CUIntArray remove;
        for (UINT id : row.remove) remove.Add(id);
        window->SetHideMenuID(hide);
        window->SetRemovePopupMenu(remove);
        rightClick(0);
        for (UINT id : row.present) EXPECT_TRUE(script.has(id)) << id;
        for (UINT id : row.absent) EXPECT_FALSE(script.has(id)) << id;
        EXPECT_EQ(script.onTop(cmd::DeleteChar), row.deletesOnTop);
    }
}

TEST_F(MenusTest, UpdateHandlersFollowSelectionReadOnlyAndContent) {
    MenuScript script;
    struct Row { std::function<void()> change; long at; std::vector<UINT> enabled, disabled; };
    const Row rows[] = {
        // Find has no update handler: it keeps its state.
        {[] {}, 0, {cmd::EditClear, cmd::Find}, {cmd::EditCopy, cmd::EditCut, cmd::EditUndo}},
        {[&] { window->ReplaceSelection("x"), send(SCI_SETSEL, 0, 3); }, 1, {cmd::EditCopy, cmd::EditCut, cmd::EditUndo}, {}},
        {[&] { send(SCI_SETREADONLY, 1); }, 1, {cmd::EditCopy}, {cmd::EditCut, cmd::EditPaste}},
        {[&] { send(SCI_SETREADONLY, 0), window->Empty(); }, 0, {}, {cmd::EditClear}},
    };
    for (const Row& row : rows) {
        row.change();
        rightClick(row.at);
        for (UINT id : row.enabled) EXPECT_TRUE(script.enabled(id)) << id;
        for (UINT id : row.disabled) EXPECT_FALSE(script.enabled(id)) << id;
    }
}

TEST_F(MenusTest, ASubmenuGoesGreyOnlyWhenItsFirstCommandHasNoHandler) {
    // "Copy to Clipboard" opens with Copy as Selected Code, disabled without a selection; the
    // languages in it must stay reachable.
    RegisterMenuResource(9100, {{0, "Host", {{9001, "Unhandled", {}},
                                             {0, "Nothing here", {{9002, "Unhandled too", {}}}},
                                             {0, "Case", {{cmd::LowerCase, "Lower", {}}}},
                                             {0, "Code", {{cmd::EditCopy, "Copy", {}}, {cmd::EditSelectAll, "All", {}}}}}}});
    MenuScript script;
    window->SetPopupMenu(9100, 0);
    rightClick(0);
    ASSERT_EQ(script.popupStates.size(), 3u);
    EXPECT_NE(script.popupStates[0] & MF_GRAYED, 0u);
    EXPECT_EQ(script.popupStates[1] & MF_GRAYED, 0u);
    EXPECT_EQ(script.popupStates[2] & MF_GRAYED, 0u);
    EXPECT_TRUE(script.enabled(9001));  // a command without handlers keeps its state
}

TEST_F(MenusTest, AMissingMenuOrPopupIsReportedAndNothingOpens) {
    std::vector<std::tuple<std::string, std::string, UINT>> boxes;  // text, caption, type
    MessageBoxHook previous = SetMessageBoxHook([&](const char* text, const char* caption, UINT type) {
        return boxes.emplace_back(text, caption ? caption : "", type), IDOK;
    });
    MenuScript script;
    window->SetPopupMenu(4242, 0);
    rightClick(0);
    window->SetPopupMenu(IDR_EDITOR_MENU, 3);
    rightClick(0);
    SetMessageBoxHook(previous);
    EXPECT_EQ(script.opened, 0);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_FALSE(std::get<0>(boxes[0]).empty());
    EXPECT_EQ(std::get<1>(boxes[0]), "Error");
    EXPECT_EQ(std::get<2>(boxes[0]) & 0xF0, MB_ICONINFORMATION);
    EXPECT_EQ(std::get<0>(boxes[1]), "Cannot Load Menu");
    EXPECT_EQ(std::get<2>(boxes[1]) & 0xF0, MB_ICONSTOP);
}

TEST_F(MenusTest, AHostsCommandBarsAndTheViewerShowTheirOwnMenus) {
    struct Bars : CXTPCommandBars {
        int shown = 0;
        BOOL TrackPopupMenu(CMenu* popup, UINT flags, int, int, CWnd* owner) override {
            ++shown;
            EXPECT_EQ(flags & TPM_RIGHTBUTTON, TPM_RIGHTBUTTON);
            EXPECT_GT(popup->GetMenuItemCount(), 0);
            owner->SendMessage(WM_COMMAND, cmd::EditSelectAll, 0);
            return TRUE;
        }
    } bars;
    MenuScript script;
    window->SetCommandBar(&bars);
    rightClick(0);
    EXPECT_EQ(bars.shown, 1);
    EXPECT_EQ(script.opened, 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), send(SCI_GETLENGTH));

    CKTScinReadWnd viewer;
    CRect rect(0, 0, 300, 200);
    ASSERT_NE(viewer.Create("out", rect, frame.get(), 0), 0);
    rightClick(QPoint(5, 5), &viewer);
    EXPECT_TRUE(script.has(cmd::FileSaveAsInternal));
    EXPECT_FALSE(script.enabled(cmd::FileSaveAsInternal));  // nothing to save yet
    EXPECT_FALSE(script.has(cmd::EditCut));
}

TEST_F(MenusTest, KeysOfTheEditorTableReachTheirCommands) {
    // Bookmarks on line 1, Ctrl+] to the partner bracket; Ctrl+Shift+0 is the host's and changes nothing.
    window->SetText("(a, b)\nfrom t\nwhere x = 1\n", 0);
    send(SCI_COLOURISE, 0, -1);
    struct Row { long from; int key; Qt::KeyboardModifiers modifiers; long caret, bookmark; };
    const Row rows[] = {
        {8, Qt::Key_F2, Qt::ControlModifier, 8, 1},
        {16, Qt::Key_F2, Qt::ShiftModifier, 8, 1},
        {8, Qt::Key_F2, Qt::ControlModifier | Qt::ShiftModifier, 8, 0},
        {0, Qt::Key_BracketRight, Qt::ControlModifier, 6, 0},
        {0, Qt::Key_0, Qt::ControlModifier | Qt::ShiftModifier, 0, 0},
    };
    for (const Row& row : rows) {
        send(SCI_GOTOPOS, row.from);
        key(row.key, row.modifiers);
        EXPECT_EQ(send(SCI_GETCURRENTPOS), row.caret) << row.key;
        EXPECT_EQ(send(SCI_MARKERGET, 1), row.bookmark) << row.key;
        EXPECT_EQ(text(), "(a, b)\r\nfrom t\r\nwhere x = 1\r\n") << row.key;
    }
    // The host's keys are not claimed, so the host's own shortcuts see them.
    auto claimed = [&](Qt::Key k, Qt::KeyboardModifiers m) {
        QKeyEvent event(QEvent::ShortcutOverride, k, m);
        event.ignore();
        QCoreApplication::sendEvent(window->GetSafeHwnd(), &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(claimed(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier));
    EXPECT_TRUE(claimed(Qt::Key_F, Qt::ControlModifier));
}

TEST_F(MenusTest, TabCommandsShiftEveryLineOfTheSelectionInOneUndoStep) {
    send(SCI_SETTABWIDTH, 4);
    auto indents = [&] { return std::vector<long>{send(SCI_GETLINEINDENTATION, 0), send(SCI_GETLINEINDENTATION, 1), send(SCI_GETLINEINDENTATION, 2)}; };
    send(SCI_SETSEL, 2, send(SCI_POSITIONFROMLINE, 1) + 1);
    window->SendMessage(WM_COMMAND, cmd::IncreaseIndent, 0);
    EXPECT_EQ(indents(), (std::vector<long>{4, 4, 0}));
    send(SCI_UNDO);
    EXPECT_EQ(indents(), (std::vector<long>{0, 0, 0}));
    send(SCI_REDO);
    send(SCI_SETSEL, 2, send(SCI_POSITIONFROMLINE, 1) + 1);
    window->SendMessage(WM_COMMAND, cmd::DecreaseIndent, 0);
    window->SendMessage(WM_COMMAND, cmd::DecreaseIndent, 0);
    EXPECT_EQ(indents(), (std::vector<long>{0, 0, 0}));
}

TEST_F(MenusTest, SaveAsExportsTheTextAndLeavesTheDocumentAsItWas) {
    QTemporaryDir folder;
    const QString path = folder.filePath("export.txt");
    FileDialogHook previous = SetFileDialogHook([&](CFileDialogEx& dialog) { return dialog.EnterFileName(CString(path.toUtf8().constData())), IDOK; });
    window->SetFilePath("/work/doc.sql");
    send(SCI_SETSAVEPOINT);
    send(SCI_APPENDTEXT, 5, reinterpret_cast<LPARAM>("-- x\n"));  // an unsaved edit with a bare LF
    window->SendMessage(WM_COMMAND, cmd::FileSaveAsInternal, 0);
    SetFileDialogHook(previous);
    std::stringstream written;
    written << std::ifstream(path.toStdString(), std::ios::binary).rdbuf();
    EXPECT_EQ(written.str(), "select a\r\nfrom t\r\nwhere x = 1\r\n-- x\r\n");
    // The export is no save: the document's path, line ends and unsaved state stand.
    EXPECT_EQ(window->GetFilePath(), "/work/doc.sql");
    EXPECT_EQ(text(), "select a\r\nfrom t\r\nwhere x = 1\r\n-- x\n");
    EXPECT_EQ(send(SCI_GETMODIFY), 1);
}

TEST(CommandPrompts, CommandsOfTheMenusCarryAStatusTextAndATip) {
    // Every command of the three menus but the few without one (Save As, Format SQL, the
    // comment and code commands of the SQL window, Match Select Bracket) has a prompt.
    const std::vector<UINT> without{cmd::FileSaveAsInternal, cmd::FormatSql, cmd::Comment, cmd::Uncomment,
                                    cmd::MakeCode, cmd::StripCode, cmd::MatchBraceExtend};
    for (UINT menuId : {IDR_EDITOR_MENU, IDR_READONLY_MENU, IDR_SQL_MENU}) {
        MenuScript ids;
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(menuId));
        ids.collect(menu, true);
        for (auto [id, state] : ids.states) {
            if (std::find(without.begin(), without.end(), id) != without.end()) continue;
            const char* prompt = LoadResourceString(id);
            ASSERT_NE(prompt, nullptr) << id;
            EXPECT_NE(std::string(prompt).find('\n'), std::string::npos) << id;
        }
    }
}
