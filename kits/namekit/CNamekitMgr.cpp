#include "CNamekitMgr.h"

CNamekitMgr::~CNamekitMgr() = default;

const MessageMap* CNamekitMainWnd::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CNamekitMainWnd::GetThisMessageMap() {
    static const MessageMapEntry entries[] = {
        {WM_ASK_NAMEKIT, 0,
         [](CWnd* w, WPARAM wParam, LPARAM) -> LRESULT {
             return wParam == 9 ? reinterpret_cast<LRESULT>(static_cast<CNamekitMainWnd*>(w)->GetNamekitMgr()) : 0;
         }},
    };
    static const MessageMap map{CWnd::GetThisMessageMap(), entries, std::size(entries)};
    return &map;
}
