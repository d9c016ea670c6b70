#pragma once
// Menus. A menu resource is a tree of items registered under an id; CMenu::LoadMenu makes a
// fresh, editable copy of it, so changes to one loaded menu never reach the next. Items are
// found by command id or by position: a command item has its id, a separator 0, and a popup
// item 0xFFFFFFFF with a submenu behind it. TrackPopupMenu shows the menu as a QMenu, lets
// the owner update the items of each popup before it opens (WM_INITMENUPOPUP), and sends the
// chosen command to the owner.
#include <functional>
#include <memory>
#include <vector>

#include "CWnd.h"

class QMenu;

constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_DISABLED = 0x0002;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT MF_SEPARATOR = 0x0800;
constexpr UINT MF_POPUP = 0x0010;
constexpr UINT TPM_LEFTALIGN = 0x0000;
constexpr UINT TPM_RIGHTBUTTON = 0x0002;
constexpr UINT kPopupItemId = 0xFFFFFFFF;

// One item of a menu resource: a command (id and text), a separator (id 0, no text), or a
// popup (text and items). Texts are in the source language and translated when loaded.
struct MenuTemplateItem {
    UINT id = 0;
    const char* text = nullptr;
    std::vector<MenuTemplateItem> items;
};

QUILLBOX_EXPORT void RegisterMenuResource(UINT id, std::vector<MenuTemplateItem> items);

class QUILLBOX_EXPORT CMenu {
public:
    CMenu();
    ~CMenu();
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    // Makes this menu a copy of the registered resource; FALSE (and the last error set) when
    // there is no such resource.
    BOOL LoadMenu(UINT resourceId);
    BOOL DestroyMenu();
    bool IsValid() const { return loaded_; }

    // The popup at `position`, owned by this menu; null for a command, a separator or no item.
    CMenu* GetSubMenu(int position) const;
    int GetMenuItemCount() const;
    UINT GetMenuItemID(int position) const;
    CString GetMenuString(UINT item, UINT flags) const;
    // MF_GRAYED, MF_DISABLED and MF_CHECKED of the item; 0xFFFFFFFF when there is none.
    UINT GetMenuState(UINT item, UINT flags) const;
    UINT EnableMenuItem(UINT item, UINT flags);
    UINT CheckMenuItem(UINT item, UINT flags);
    // Takes the item out; by command it is searched in popups too. DeleteMenu also destroys a
    // popup behind the item, RemoveMenu gives the same result here (nothing is shared).
    BOOL DeleteMenu(UINT item, UINT flags);
    BOOL RemoveMenu(UINT item, UINT flags);

    // Shows the menu at the screen point and sends the chosen command to `owner`; before each
    // popup opens, `owner` gets WM_INITMENUPOPUP with the popup and its index.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner);

private:
    struct Item {
        UINT id = 0;
        CString text;
        UINT state = 0;
        std::unique_ptr<CMenu> popup;
    };
    // The item list holding `item` (by command: searched depth first) and its index there.
    std::pair<CMenu*, int> locate(UINT item, UINT flags) const;
    void copyFrom(const std::vector<MenuTemplateItem>& items);
    QMenu* buildQMenu(QWidget* parent, CWnd* owner, int index);

    std::vector<Item> items_;
    bool loaded_ = false;
};

// A host's own menu presentation (a command bar toolkit): it shows the popup at the screen
// point and routes the chosen command to `owner` as WM_COMMAND.
class QUILLBOX_EXPORT CXTPCommandBars {
public:
    virtual ~CXTPCommandBars() = default;
    virtual BOOL TrackPopupMenu(CMenu* popup, UINT flags, int x, int y, CWnd* owner) = 0;
};

// Answers TrackPopupMenu without showing anything (tests, batch runs): the hook sees the
// menu after the owner updated its top popup, and returns the command chosen, or 0.
using TrackPopupHook = std::function<UINT(CMenu& menu, POINT at, CWnd* owner)>;
QUILLBOX_EXPORT TrackPopupHook SetTrackPopupHook(TrackPopupHook hook);
