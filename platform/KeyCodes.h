#pragma once
// Virtual-key codes of key messages, as accelerator tables and PreTranslateMessage name keys.
#include "WinTypes.h"

constexpr UINT VK_BACK = 0x08, VK_TAB = 0x09, VK_RETURN = 0x0D, VK_SHIFT = 0x10, VK_CONTROL = 0x11,
               VK_MENU = 0x12, VK_ESCAPE = 0x1B, VK_SPACE = 0x20, VK_PRIOR = 0x21, VK_NEXT = 0x22,
               VK_END = 0x23, VK_HOME = 0x24, VK_LEFT = 0x25, VK_UP = 0x26, VK_RIGHT = 0x27,
               VK_DOWN = 0x28, VK_INSERT = 0x2D, VK_DELETE = 0x2E, VK_ADD = 0x6B, VK_SUBTRACT = 0x6D,
               VK_F1 = 0x70, VK_OEM_1 = 0xBA, VK_OEM_PLUS = 0xBB, VK_OEM_COMMA = 0xBC,
               VK_OEM_MINUS = 0xBD, VK_OEM_PERIOD = 0xBE, VK_OEM_2 = 0xBF, VK_OEM_3 = 0xC0,
               VK_OEM_4 = 0xDB, VK_OEM_5 = 0xDC, VK_OEM_6 = 0xDD, VK_OEM_7 = 0xDE;

// The virtual-key code of a Qt key (Qt::Key); 0 when the key has none. Shifted symbols map to
// their unshifted key, as the keyboard sends them (Ctrl+Shift+minus arrives as underscore).
QUILLBOX_EXPORT UINT VirtualKeyFromQtKey(int qtKey);
