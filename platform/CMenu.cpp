#include "CMenu.h"

#include <QApplication>
#include <QMenu>
#include <map>
#include <mutex>

#include "System.h"

namespace {
constexpr DWORD kResourceNotFound = 1814;

std::mutex& registryMutex() {
    static std::mutex mutex;
    return mutex;
}

std::map<UINT, std::vector<MenuTemplateItem>>& menuResources() {
    static std::map<UINT, std::vector<MenuTemplateItem>> resources;
    return resources;
}

TrackPopupHook& trackHook() {
    static TrackPopupHook hook;
    return hook;
}

// A menu can be shown only where a user can answer it.
bool canShowMenus() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           QGuiApplication::platformName() != QLatin1String("offscreen");
}
}  // namespace

void RegisterMenuResource(UINT id, std::vector<MenuTemplateItem> items) {
    std::lock_guard<std::mutex> lock(registryMutex());
    menuResources()[id] = std::move(items);
}

TrackPopupHook SetTrackPopupHook(TrackPopupHook hook) {
    TrackPopupHook previous = std::move(trackHook());
    trackHook() = std::move(hook);
    return previous;
}

CMenu::CMenu() = default;
CMenu::~CMenu() = default;

BOOL CMenu::LoadMenu(UINT resourceId) {
    std::vector<MenuTemplateItem> resource;
    {
        std::lock_guard<std::mutex> lock(registryMutex());
        const auto it = menuResources().find(resourceId & 0xFFFF);
        if (it == menuResources().end()) {
            SetLastError(kResourceNotFound, "The specified resource name cannot be found in the image file.");
            return FALSE;
        }
        resource = it->second;
    }
    DestroyMenu();
    copyFrom(resource);
    loaded_ = true;
    return TRUE;
}

void CMenu::copyFrom(const std::vector<MenuTemplateItem>& items) {
    for (const MenuTemplateItem& source : items) {
        Item item;
        if (source.text) item.text = CString(QCoreApplication::translate("Quillbox", source.text).toUtf8().constData());
        if (source.text && !source.items.empty()) {
            item.id = kPopupItemId;
            item.popup = std::make_unique<CMenu>();
            item.popup->copyFrom(source.items);
            item.popup->loaded_ = true;
        } else {
            item.id = source.id;
        }
        items_.push_back(std::move(item));
    }
}

BOOL CMenu::DestroyMenu() {
    const bool had = loaded_;
    items_.clear();
    loaded_ = false;
    return had ? TRUE : FALSE;
}

CMenu* CMenu::GetSubMenu(int position) const {
    if (position < 0 || position >= GetMenuItemCount()) return nullptr;
    return items_[size_t(position)].popup.get();
}

int CMenu::GetMenuItemCount() const { return int(items_.size()); }

UINT CMenu::GetMenuItemID(int position) const {
    if (position < 0 || position >= GetMenuItemCount()) return kPopupItemId;
    return items_[size_t(position)].id;
}

std::pair<CMenu*, int> CMenu::locate(UINT item, UINT flags) const {
    auto* self = const_cast<CMenu*>(this);
    if (flags & MF_BYPOSITION) {
        return item < UINT(GetMenuItemCount()) ? std::make_pair(self, int(item)) : std::make_pair(nullptr, -1);
    }
    for (size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].popup) {
            const auto found = items_[i].popup->locate(item, flags);
            if (found.first) return found;
        } else if (items_[i].id == item && item != 0) {
            return {self, int(i)};
        }
    }
    return {nullptr, -1};
}

CString CMenu::GetMenuString(UINT item, UINT flags) const {
    const auto [menu, index] = locate(item, flags);
    return menu ? menu->items_[size_t(index)].text : CString();
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const {
    const auto [menu, index] = locate(item, flags);
    if (!menu) return 0xFFFFFFFF;
    const Item& found = menu->items_[size_t(index)];
    return found.state | (found.id == 0 ? MF_SEPARATOR : 0) | (found.popup ? MF_POPUP : 0);
}

UINT CMenu::EnableMenuItem(UINT item, UINT flags) {
    const auto [menu, index] = locate(item, flags);
    if (!menu) return 0xFFFFFFFF;
    UINT& state = menu->items_[size_t(index)].state;
    const UINT previous = state & (MF_GRAYED | MF_DISABLED);
    state = (state & ~(MF_GRAYED | MF_DISABLED)) | (flags & (MF_GRAYED | MF_DISABLED));
    return previous;
}

UINT CMenu::CheckMenuItem(UINT item, UINT flags) {
    const auto [menu, index] = locate(item, flags);
    if (!menu) return 0xFFFFFFFF;
    UINT& state = menu->items_[size_t(index)].state;
    const UINT previous = state & MF_CHECKED;
    state = (state & ~MF_CHECKED) | (flags & MF_CHECKED);
    return previous;
}

BOOL CMenu::DeleteMenu(UINT item, UINT flags) {
    const auto [menu, index] = locate(item, flags);
    if (!menu) return FALSE;
    menu->items_.erase(menu->items_.begin() + index);
    return TRUE;
}

BOOL CMenu::RemoveMenu(UINT item, UINT flags) { return DeleteMenu(item, flags); }

QMenu* CMenu::buildQMenu(QWidget* parent, CWnd* owner, int index) {
    auto* menu = new QMenu(parent);
    // The owner brings the items up to date each time the popup opens; the actions follow.
    const QPointer<QWidget> ownerWindow = owner->GetSafeHwnd();
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this, menu, owner, ownerWindow, index] {
        if (ownerWindow) owner->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(this), LPARAM(index & 0xFFFF));
        menu->clear();
        for (size_t i = 0; i < items_.size(); ++i) {
            Item& item = items_[i];
            if (item.id == 0) {
                menu->addSeparator();
                continue;
            }
            QAction* action;
            if (item.popup) {
                QMenu* sub = item.popup->buildQMenu(menu, owner, int(i));
                sub->setTitle(QString::fromUtf8(item.text.c_str()));
                action = menu->addMenu(sub);
            } else {
                action = menu->addAction(QString::fromUtf8(item.text.c_str()));
                action->setData(item.id);
                action->setCheckable((item.state & MF_CHECKED) != 0);
                action->setChecked((item.state & MF_CHECKED) != 0);
            }
            action->setEnabled((item.state & (MF_GRAYED | MF_DISABLED)) == 0);
        }
    });
    return menu;
}

BOOL CMenu::TrackPopupMenu(UINT, int x, int y, CWnd* owner) {
    if (!owner || !loaded_) return FALSE;
    UINT chosen = 0;
    if (trackHook()) {
        owner->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(this), 0);
        chosen = trackHook()(*this, POINT{x, y}, owner);
    } else if (canShowMenus()) {
        // The menu has no parent, so nothing but this call deletes it; the owner may go while
        // the menu is open, and then the choice goes nowhere.
        const QPointer<QWidget> ownerWindow = owner->GetSafeHwnd();
        std::unique_ptr<QMenu> menu(buildQMenu(nullptr, owner, 0));
        QAction* action = menu->exec(QPoint(x, y));
        if (!ownerWindow) return TRUE;
        if (action) chosen = action->data().toUInt();
    } else {
        return FALSE;  // nobody can answer a menu here
    }
    if (chosen) owner->SendMessage(WM_COMMAND, MakeCommandWParam(chosen), 0);
    return TRUE;
}
