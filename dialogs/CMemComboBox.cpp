#include "CMemComboBox.h"

#include <QComboBox>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <iterator>
#include <vector>

#include "MessageHandlers.h"
#include "Registry.h"

CMemComboBox::GroupMap CMemComboBox::groups;

namespace {
// The list keeps this far from the screen's right and lower edges.
constexpr int kScreenMargin = 48;
// Added to the items' height so that the list shows its frame and the field above it.
constexpr int kListExtra = 16;

// The groups whose histories are read back from the registry.
constexpr const char* kStoredGroups[] = {"FindText", "ReplaceText"};

constexpr DWORD kRegLink = 6;  // REG_LINK: a text type the registry may hold

QRect screenOf(const QWidget* widget) {
    QScreen* screen = widget->screen() ? widget->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}
}  // namespace

CMemComboBox::CMemComboBox() = default;

CMemComboBox::~CMemComboBox() = default;

void CMemComboBox::Fill(const char* text) {
    if (!text || !*text) return;
    if (!GetSafeHwnd()) return;
    const int existing = FindStringExact(-1, text);
    if (existing != CB_ERR) DeleteString(existing);
    InsertString(0, text);
    if (GetCount() > kMaxItems) DeleteString(GetCount() - 1);
    fitDroppedHeight();
    fitDroppedWidth();
    SetCurSel(0);
    if (group.IsEmpty()) return;

    // An item of the history is one line of it, so a text that holds an LF stays in this list
    // but is not written to the history: read back, it would come apart into two items.
    CString history;
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        CString item;
        GetLBText(i, item);
        if (item.Find('\n') >= 0) continue;
        history += item;
        history += '\n';
    }
    groups[group] = history;
}

void CMemComboBox::FillCurrent() { Fill(GetWindowText()); }

void CMemComboBox::OnKillFocus(CWnd*) { FillCurrent(); }

void CMemComboBox::OnDestroy() {
    FillCurrent();
    Default();
}

void CMemComboBox::OnSetfocus() {
    if (!historyPending || group.IsEmpty()) return;
    historyPending = 0;
    const CString typed = GetWindowText();
    auto found = groups.find(group);
    if (found == groups.end()) return;

    // Each stretch that an LF ends is one item; a stretch after the last LF is no item.
    const std::string& history = found->second.str();
    size_t start = 0;
    for (size_t end = history.find('\n'); end != std::string::npos; end = history.find('\n', start)) {
        AddString(history.substr(start, end - start).c_str());
        start = end + 1;
    }
    fitDroppedHeight();
    fitDroppedWidth();
    SetCurSel(0);
    if (!typed.IsEmpty()) SetWindowText(typed);
}

void CMemComboBox::fitDroppedHeight() {
    QComboBox* box = combo();
    if (!box) return;
    const QRect screen = screenOf(box);
    const int top = box->mapToGlobal(QPoint(0, 0)).y();
    int height = GetCount() * box->height() + kListExtra;
    if (top + height > screen.bottom() + 1 - kScreenMargin) height = screen.bottom() + 1 - kScreenMargin - top;
    SetDroppedHeight(height);
}

void CMemComboBox::fitDroppedWidth() {
    QComboBox* box = combo();
    const int count = GetCount();
    if (!box || count == 0) return;
    const QRect screen = screenOf(box);
    QScreen* s = box->screen() ? box->screen() : QGuiApplication::primaryScreen();
    const double dpi = s ? s->logicalDotsPerInchY() : 96.0;
    // A small sans serif face of 9 points, thin, as the list's items are measured.
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, int(9 * dpi / 72 + 0.5)));
    font.setWeight(QFont::Thin);
    const QFontMetrics metrics(font);
    int width = 0;
    for (int i = 0; i < count; ++i) {
        CString item;
        GetLBText(i, item);
        width = std::max(width, metrics.horizontalAdvance(item.toQString()));
    }
    const int left = box->mapToGlobal(QPoint(0, 0)).x();
    const int limit = screen.right() + 1 - kScreenMargin;
    if (left + width > limit) width = limit - left;
    SetDroppedWidth(width);
}

void CMemComboBox::LoadSettings() {
    HKEY key = nullptr;
    if (RegOpenKeyEx(HKEY_CURRENT_USER, kRegistryKey, 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    for (const char* name : kStoredGroups) {
        DWORD type = REG_NONE, size = 0;
        if (RegQueryValueEx(key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) continue;
        if (type != REG_SZ && type != REG_EXPAND_SZ && type != kRegLink && type != REG_MULTI_SZ) continue;
        std::vector<BYTE> data(size_t(size) + 1, 0);
        if (RegQueryValueEx(key, name, nullptr, &type, data.data(), &size) != ERROR_SUCCESS) continue;
        data[std::min<size_t>(size, data.size() - 1)] = 0;
        groups[name] = CString(reinterpret_cast<const char*>(data.data()));  // up to the first NUL
    }
    RegCloseKey(key);
}

void CMemComboBox::SaveSettings() {
    HKEY key = nullptr;
    if (RegCreateKeyEx(HKEY_CURRENT_USER, kRegistryKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr,
                       &key, nullptr) != ERROR_SUCCESS)
        return;
    for (const auto& [name, history] : groups)
        RegSetValueEx(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(history.c_str()),
                      DWORD(history.GetLength() + 1));
    RegCloseKey(key);
}

const MessageMap* CMemComboBox::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CMemComboBox::GetThisMessageMap() {
    static const MessageMapEntry entries[] = {
        {WM_KILLFOCUS, 0,
         [](CWnd* w, WPARAM wParam, LPARAM) -> LRESULT {
             static_cast<CMemComboBox*>(w)->OnKillFocus(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)));
             return 0;
         }},
        {OCM_COMMAND, 0,
         [](CWnd* w, WPARAM wParam, LPARAM) -> LRESULT {
             if (HIWORD(wParam) == CBN_SETFOCUS) static_cast<CMemComboBox*>(w)->OnSetfocus();
             return 0;
         }},
        {WM_DESTROY, 0, OnMessage<&CMemComboBox::OnDestroy>},
    };
    static const MessageMap map{CComboBox::GetThisMessageMap(), entries, std::size(entries)};
    return &map;
}
