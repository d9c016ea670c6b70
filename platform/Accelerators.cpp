#include "Accelerators.h"

#include <QKeyEvent>
#include <map>

namespace {
std::map<UINT, AcceleratorTable>& tables() {
    static std::map<UINT, AcceleratorTable> all;
    return all;
}
}  // namespace

void RegisterAcceleratorTable(UINT id, AcceleratorTable table) { tables()[id] = std::move(table); }

HACCEL LoadAccelerators(UINT id) {
    auto it = tables().find(id);
    return it == tables().end() ? nullptr : &it->second;
}

unsigned char KeyModifierFlags(const MSG* msg) {
    const auto* event = msg ? static_cast<const QKeyEvent*>(msg->event) : nullptr;
    if (!event) return 0;
    unsigned char flags = 0;
    if (event->modifiers() & Qt::ShiftModifier) flags |= FSHIFT;
    if (event->modifiers() & Qt::ControlModifier) flags |= FCONTROL;
    if (event->modifiers() & Qt::AltModifier) flags |= FALT;
    return flags;
}

UINT FindAccelerator(HACCEL table, const MSG* msg) {
    if (!table || !msg || (msg->message != WM_KEYDOWN && msg->message != WM_SYSKEYDOWN)) return 0;
    const unsigned char modifiers = KeyModifierFlags(msg);
    for (const ACCEL& entry : *table)
        if (entry.key == msg->wParam && (entry.fVirt & (FSHIFT | FCONTROL | FALT)) == modifiers) return entry.cmd;
    return 0;
}

int TranslateAccelerator(CWnd* target, HACCEL table, MSG* msg) {
    const UINT command = FindAccelerator(table, msg);
    if (!command || !target) return 0;
    target->SendMessage(WM_COMMAND, MakeCommandWParam(command, 1), 0);
    return 1;
}
