#pragma once
// Win32-shaped scalar types, records and constants that the window classes are written in.
// WPARAM and LPARAM are pointer-sized so that -1 and pointers survive a message.
#include <cstdint>

#include "QuillboxExport.h"

class QWidget;

using BOOL = int;
using BYTE = unsigned char;
using WORD = unsigned short;
using UINT = unsigned int;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using QWORD = std::uint64_t;
using UINT_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using COLORREF = std::uint32_t;
using LANGID = unsigned short;
using HWND = QWidget*;          // the window handle is the Qt widget itself
using HINSTANCE = void*;
using HMODULE = void*;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

constexpr COLORREF RGB(int r, int g, int b) {
    return COLORREF(r & 0xFF) | (COLORREF(g & 0xFF) << 8) | (COLORREF(b & 0xFF) << 16);
}
constexpr int GetRValue(COLORREF c) { return int(c & 0xFF); }
constexpr int GetGValue(COLORREF c) { return int((c >> 8) & 0xFF); }
constexpr int GetBValue(COLORREF c) { return int((c >> 16) & 0xFF); }
constexpr WORD LOWORD(std::uintptr_t v) { return WORD(v & 0xFFFF); }
constexpr WORD HIWORD(std::uintptr_t v) { return WORD((v >> 16) & 0xFFFF); }

struct POINT {
    int x = 0;
    int y = 0;
};

struct RECT {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct CPoint : POINT {
    CPoint() = default;
    CPoint(int px, int py) { x = px; y = py; }
    bool operator==(const CPoint& o) const { return x == o.x && y == o.y; }
};

struct CRect : RECT {
    CRect() = default;
    CRect(int l, int t, int r, int b) { left = l; top = t; right = r; bottom = b; }
    CRect(const RECT& r) : RECT(r) {}
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

// A queued or translated window message, as PreTranslateMessage sees it.
struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    void* event = nullptr;   // the Qt event behind a key message, when there is one
};

struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT_PTR idFrom = 0;
    UINT code = 0;
};

// Window messages the library handles or sends.
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_KEYFIRST = 0x0100;
constexpr UINT WM_KEYLAST = 0x0109;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_INITMENUPOPUP = 0x0117;
constexpr UINT WM_USER = 0x0400;

// Window styles, kept as the numbers a host passes; only WS_VISIBLE changes anything here.
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;

// Message box flags and results.
constexpr UINT MB_OK = 0x0;
constexpr UINT MB_OKCANCEL = 0x1;
constexpr UINT MB_YESNO = 0x4;
constexpr UINT MB_ICONHAND = 0x10;
constexpr UINT MB_ICONSTOP = 0x10;
constexpr UINT MB_ICONQUESTION = 0x20;
constexpr UINT MB_ICONEXCLAMATION = 0x30;
constexpr UINT MB_ICONWARNING = 0x30;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
