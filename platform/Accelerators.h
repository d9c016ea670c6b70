#pragma once
// Accelerator tables: key combinations that become WM_COMMAND messages before the key
// reaches the window. Tables are registered by resource id and loaded by it.
#include <vector>

#include "CWnd.h"

// Flags of an entry, as accelerator resources write them.
constexpr unsigned char FVIRTKEY = 0x01;
constexpr unsigned char FSHIFT = 0x04;
constexpr unsigned char FCONTROL = 0x08;
constexpr unsigned char FALT = 0x10;

struct ACCEL {
    unsigned char fVirt;  // FVIRTKEY with the modifier flags that must be down
    WORD key;             // virtual-key code
    WORD cmd;             // command id sent with WM_COMMAND
};

using AcceleratorTable = std::vector<ACCEL>;
using HACCEL = const AcceleratorTable*;

QUILLBOX_EXPORT void RegisterAcceleratorTable(UINT id, AcceleratorTable table);
// The table of that id, or null when there is none.
QUILLBOX_EXPORT HACCEL LoadAccelerators(UINT id);

// The command a key message stands for in the table, or 0.
QUILLBOX_EXPORT UINT FindAccelerator(HACCEL table, const MSG* msg);
// Sends the command of a matching key down message to `target`; 1 when one matched.
QUILLBOX_EXPORT int TranslateAccelerator(CWnd* target, HACCEL table, MSG* msg);

// The virtual-key code and modifier flags of the Qt key event behind a key message.
QUILLBOX_EXPORT unsigned char KeyModifierFlags(const MSG* msg);
