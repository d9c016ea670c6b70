// The context menu of the application editor window, the update walk over its items, and the
// commands behind them, driven by right clicks, keys and a scripted menu choice.
#include <QContextMenuEvent>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

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
// What one opening of a menu showed: every command id with its state, by position path.
struct MenuSeen {
    int opened = 0;
    std::vector<UINT> topLevel;
    std::map<UINT, UINT> states;  // id -> MF_GRAYED etc., submenus included
    std::vector<UINT> popupStates;
};

void collect(CMenu& menu, MenuSeen& seen, bool top) {
    for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
        const UINT id = menu.GetMenuItemID(i);
        if (top) seen.topLevel.push_back(id);
        if (CMenu* sub = menu.GetSubMenu(i)) {
            seen.popupStates.push_back(menu.GetMenuState(UINT(i), MF_BYPOSITION));
            collect(*sub, seen, false);
        } else if (id != 0) {
            seen.states[id] = menu.GetMenuState(UINT(i), MF_BYPOSITION);
        }
    }
}

// Answers the context menu: records it, then picks `choose` (0 for none).
class MenuScript {
public:
    explicit MenuScript(UINT choose = 0) {
        previous_ = SetTrackPopupHook([this, choose](CMenu& menu, POINT at, CWnd*) -> UINT {
            seen = MenuSeen{seen.opened + 1, {}, {}, {}};
            where = at;
            collect(menu, seen, true);
            return choose;
        });
    }
    ~MenuScript() { SetTrackPopupHook(previous_); }
    bool has(UINT id) const { return seen.states.count(id) != 0; }
    bool enabled(UINT id) const { return has(id) && (seen.states.at(id) & MF_GRAYED) == 0; }
    MenuSeen seen;
    POINT where{};

private:
    TrackPopupHook previous_;
};

struct BoxSeen {
    std::string text, caption;
    UINT type = 0;
};

class MenusTest : public AppWindowTest {
protected:
    void SetUp() override {
        AppWindowTest::SetUp();
        create();
        window->SetText("select a\nfrom t\nwhere x = 1\n", 0);
        send(SCI_EMPTYUNDOBUFFER);
    }
    // A right click at a point of the text area, in the window's own coordinates.
    void rightClick(QPoint at, CWnd* target = nullptr) {
        QWidget* viewport = static_cast<QuillEngine*>((target ? target : window.get())->GetSafeHwnd())->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, viewport->mapToGlobal(at));
        QCoreApplication::sendEvent(viewport, &event);
    }
    QPoint pointOf(long position) {
        return QPoint(int(send(SCI_POINTXFROMPOSITION, 0, position)), int(send(SCI_POINTYFROMPOSITION, 0, position)) + 2);
    }
};

TEST_F(MenusTest, ARightClickOpensTheEditorsMenuAndItsChoiceRuns) {
    MenuScript script(cmd::ToggleBookmark);
    const long target = send(SCI_POSITIONFROMLINE, 1) + 2;
    rightClick(pointOf(target));
    ASSERT_EQ(script.seen.opened, 1);
    // No selection: the caret went to the click before the menu opened, and the command ran there.
    EXPECT_EQ(send(SCI_GETCURRENTPOS), target);
    EXPECT_EQ(send(SCI_MARKERGET, 1), 1);
    // The editor's menu: editing rows first, the case commands in a submenu of their own.
    EXPECT_EQ(script.seen.topLevel.front(), cmd::EditUndo);
    EXPECT_TRUE(script.has(cmd::LowerCase));
    EXPECT_EQ(std::count(script.seen.topLevel.begin(), script.seen.topLevel.end(), cmd::LowerCase), 0);
    EXPECT_TRUE(script.has(cmd::ClearAllBookmarks));
}

TEST_F(MenusTest, AClickBesideASelectionKeepsItAndSwitchedOffMenusDoNothing) {
    MenuScript script;
    send(SCI_SETSEL, 0, 6);
    rightClick(pointOf(send(SCI_POSITIONFROMLINE, 2)));
    EXPECT_EQ(script.seen.opened, 1);
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 6);

    send(SCI_SETEMPTYSELECTION, 0);
    window->ShowPopupMenu(false);
    rightClick(pointOf(20));
    window->ShowPopupMenu(true);
    window->SetPopupMenu(UINT(-1), 0);
    rightClick(pointOf(20));
    EXPECT_EQ(script.seen.opened, 1);
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 0);  // the caret did not move either
}

TEST_F(MenusTest, HiddenIdsLeaveOnlyTheTopLevelAndRemovedIdsLeaveEverywhere) {
    MenuScript script;
    std::vector<int> hide{int(cmd::LowerCase), int(cmd::EditUndo), int(cmd::DeleteChar)};
    window->SetHideMenuID(hide);
    rightClick(pointOf(0));
    EXPECT_TRUE(script.has(cmd::LowerCase));  // it stands only in a submenu
    EXPECT_FALSE(script.has(cmd::EditUndo));
    // "Delete" stands twice at the top level: only the first goes.
    EXPECT_EQ(std::count(script.seen.topLevel.begin(), script.seen.topLevel.end(), cmd::DeleteChar), 1);
    window->SetHideMenuID(hide = {});

    CUIntArray remove;
    remove.Add(cmd::LowerCase);
    remove.Add(cmd::Find);
    remove.Add(cmd::DeleteChar);
    window->SetRemovePopupMenu(remove);
    rightClick(pointOf(0));
    EXPECT_FALSE(script.has(cmd::LowerCase));
    EXPECT_FALSE(script.has(cmd::Find));
    EXPECT_EQ(std::count(script.seen.topLevel.begin(), script.seen.topLevel.end(), cmd::DeleteChar), 0);

    // Each opening starts from the resource again, and an empty list clears the earlier one.
    CUIntArray none;
    window->SetRemovePopupMenu(none);
    std::vector<int> noHide;
    window->SetHideMenuID(noHide);
    rightClick(pointOf(0));
    EXPECT_TRUE(script.has(cmd::LowerCase));
    EXPECT_TRUE(script.has(cmd::Find));
    EXPECT_TRUE(script.has(cmd::EditUndo));
}

TEST_F(MenusTest, UpdateHandlersFollowSelectionReadOnlyAndContent) {
    MenuScript script;
    rightClick(pointOf(0));
    EXPECT_FALSE(script.enabled(cmd::EditCopy));
    EXPECT_FALSE(script.enabled(cmd::EditCut));
    EXPECT_FALSE(script.enabled(cmd::EditUndo));
    EXPECT_TRUE(script.enabled(cmd::EditClear));
    EXPECT_TRUE(script.enabled(cmd::Find));  // no update handler: it keeps its state

    window->ReplaceSelection("x");
    send(SCI_SETSEL, 0, 3);
    rightClick(pointOf(1));
    EXPECT_TRUE(script.enabled(cmd::EditCopy));
    EXPECT_TRUE(script.enabled(cmd::EditCut));
    EXPECT_TRUE(script.enabled(cmd::EditUndo));

    send(SCI_SETREADONLY, 1);
    rightClick(pointOf(1));
    EXPECT_TRUE(script.enabled(cmd::EditCopy));
    EXPECT_FALSE(script.enabled(cmd::EditCut));
    EXPECT_FALSE(script.enabled(cmd::EditPaste));
    send(SCI_SETREADONLY, 0);

    window->Empty();
    rightClick(pointOf(0));
    EXPECT_FALSE(script.enabled(cmd::EditClear));
}

TEST_F(MenusTest, ASubmenuGoesGreyWhenItsFirstCommandHasNoHandler) {
    RegisterMenuResource(9100, {{0, "Host", {{9001, "Unhandled", {}},
                                             {0, "Nothing here", {{9002, "Unhandled too", {}}}},
                                             {0, "Case", {{cmd::LowerCase, "Lower", {}}}}}}});
    MenuScript script;
    window->SetPopupMenu(9100, 0);
    rightClick(pointOf(0));
    ASSERT_EQ(script.seen.popupStates.size(), 2u);
    EXPECT_NE(script.seen.popupStates[0] & MF_GRAYED, 0u);
    EXPECT_EQ(script.seen.popupStates[1] & MF_GRAYED, 0u);
    EXPECT_TRUE(script.enabled(9001));  // a command without handlers keeps its state
}

TEST_F(MenusTest, ASubmenuStaysOpenWhenItsFirstCommandIsMerelyDisabled) {
    // "Copy to Clipboard" opens with Copy as Selected Code, disabled without a selection; the
    // languages in it must stay reachable.
    RegisterMenuResource(9101, {{0, "Host", {{0, "Code", {{cmd::EditCopy, "Copy", {}}, {cmd::EditSelectAll, "All", {}}}}}}});
    MenuScript script;
    window->SetPopupMenu(9101, 0);
    rightClick(pointOf(0));
    ASSERT_EQ(script.seen.popupStates.size(), 1u);
    EXPECT_EQ(script.seen.popupStates[0] & MF_GRAYED, 0u);
}

TEST_F(MenusTest, AMissingMenuOrPopupIsReportedAndNothingOpens) {
    std::vector<BoxSeen> boxes;
    MessageBoxHook previous = SetMessageBoxHook([&](const char* text, const char* caption, UINT type) {
        boxes.push_back({text, caption ? caption : "", type});
        return IDOK;
    });
    MenuScript script;
    window->SetPopupMenu(4242, 0);
    rightClick(pointOf(0));
    window->SetPopupMenu(IDR_EDITOR_MENU, 3);
    rightClick(pointOf(0));
    SetMessageBoxHook(previous);
    EXPECT_EQ(script.seen.opened, 0);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].caption, "Error");
    EXPECT_EQ(boxes[0].type & 0xF0, MB_ICONINFORMATION);
    EXPECT_FALSE(boxes[0].text.empty());
    EXPECT_EQ(boxes[1].text, "Cannot Load Menu");
    EXPECT_EQ(boxes[1].type & 0xF0, MB_ICONSTOP);
}

TEST_F(MenusTest, AHostsCommandBarsShowThePopupInsteadOfTheFrameworks) {
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
    rightClick(pointOf(0));
    EXPECT_EQ(bars.shown, 1);
    EXPECT_EQ(script.seen.opened, 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), send(SCI_GETLENGTH));
}

TEST_F(MenusTest, TheViewerAndTheSqlWindowOpenTheirOwnMenus) {
    CKTScinReadWnd viewer;
    CRect rect(0, 0, 300, 200);
    ASSERT_NE(viewer.Create("out", rect, frame.get(), 0), 0);
    MenuScript script;
    rightClick(QPoint(5, 5), &viewer);
    EXPECT_TRUE(script.has(cmd::FileSaveAsInternal));
    EXPECT_FALSE(script.enabled(cmd::FileSaveAsInternal));  // nothing to save yet
    EXPECT_FALSE(script.has(cmd::EditCut));
}

TEST_F(MenusTest, KeysOfTheEditorTableReachTheirCommands) {
    auto key = [&](Qt::Key k, Qt::KeyboardModifiers m) { QTest::keyClick(window->GetSafeHwnd(), k, m); };
    send(SCI_GOTOLINE, 1);
    key(Qt::Key_F2, Qt::ControlModifier);
    EXPECT_EQ(send(SCI_MARKERGET, 1), 1);
    send(SCI_GOTOLINE, 2);
    key(Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(send(SCI_LINEFROMPOSITION, send(SCI_GETCURRENTPOS)), 1);
    key(Qt::Key_F2, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(send(SCI_MARKERGET, 1), 0);

    // Ctrl+] jumps to the partner bracket; Ctrl+Shift+0 is the host's and changes nothing.
    window->SetText("(a, b)", 0);
    send(SCI_COLOURISE, 0, -1);
    send(SCI_GOTOPOS, 0);
    key(Qt::Key_BracketRight, Qt::ControlModifier);
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 6);
    key(Qt::Key_0, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_STREQ(window->GetText().c_str(), "(a, b)");
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

TEST_F(MenusTest, TabCommandsShiftEveryLineOfTheSelection) {
    send(SCI_SETTABWIDTH, 4);
    send(SCI_SETSEL, 2, send(SCI_POSITIONFROMLINE, 1) + 1);
    window->SendMessage(WM_COMMAND, cmd::IncreaseIndent, 0);
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 0), 4);
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 1), 4);
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 2), 0);
    send(SCI_UNDO);  // one step for all the lines
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 0), 0);
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 1), 0);
    send(SCI_REDO);
    send(SCI_SETSEL, 2, send(SCI_POSITIONFROMLINE, 1) + 1);
    window->SendMessage(WM_COMMAND, cmd::DecreaseIndent, 0);
    window->SendMessage(WM_COMMAND, cmd::DecreaseIndent, 0);
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 0), 0);
    EXPECT_EQ(send(SCI_GETLINEINDENTATION, 1), 0);
}

TEST_F(MenusTest, SaveAsExportsTheTextAndLeavesTheDocumentAsItWas) {
    QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath("export.txt");
    FileDialogHook previous = SetFileDialogHook([&](CFileDialogEx& dialog) {
        dialog.EnterFileName(CString(path.toUtf8().constData()));
        return IDOK;
    });
    window->SetFilePath("/work/doc.sql");
    send(SCI_SETSAVEPOINT);
    send(SCI_APPENDTEXT, 5, reinterpret_cast<LPARAM>("-- x\n"));  // an unsaved edit with a bare LF
    window->SendMessage(WM_COMMAND, cmd::FileSaveAsInternal, 0);
    SetFileDialogHook(previous);
    std::ifstream in(path.toStdString(), std::ios::binary);
    std::stringstream written;
    written << in.rdbuf();
    EXPECT_EQ(written.str(), "select a\r\nfrom t\r\nwhere x = 1\r\n-- x\r\n");
    // The export is no save: the document's path, line ends and unsaved state stand.
    EXPECT_STREQ(window->GetFilePath().c_str(), "/work/doc.sql");
    EXPECT_STREQ(window->GetText().c_str(), "select a\r\nfrom t\r\nwhere x = 1\r\n-- x\n");
    EXPECT_EQ(send(SCI_GETMODIFY), 1);
}
}  // namespace

namespace {
void collectIds(CMenu& menu, std::vector<UINT>& ids) {
    for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
        if (CMenu* sub = menu.GetSubMenu(i))
            collectIds(*sub, ids);
        else if (menu.GetMenuItemID(i) != 0)
            ids.push_back(menu.GetMenuItemID(i));
    }
}

TEST(CommandPrompts, CommandsOfTheMenusCarryAStatusTextAndATip) {
    EXPECT_STREQ(LoadResourceString(57636), "Find the specified text\nFind(Ctrl+F)");
    EXPECT_STREQ(LoadResourceString(8195), "Select MFC Code to copy SQL to clipboard\nMFC Code");
    // Every command of the three menus but the few without one (Save As, Format SQL, the
    // comment and code commands of the SQL window, Match Select Bracket) has a prompt.
    const std::vector<UINT> without{cmd::FileSaveAsInternal, cmd::FormatSql, cmd::Comment, cmd::Uncomment,
                                    cmd::MakeCode, cmd::StripCode, cmd::MatchBraceExtend};
    for (UINT menuId : {IDR_EDITOR_MENU, IDR_READONLY_MENU, IDR_SQL_MENU}) {
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(menuId));
        std::vector<UINT> ids;
        collectIds(menu, ids);
        for (UINT id : ids) {
            if (std::find(without.begin(), without.end(), id) != without.end()) continue;
            const char* prompt = LoadResourceString(id);
            ASSERT_NE(prompt, nullptr) << id;
            EXPECT_NE(std::string(prompt).find('\n'), std::string::npos) << id;
        }
    }
}
}  // namespace
