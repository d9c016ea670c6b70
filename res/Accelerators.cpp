// The library's accelerator tables.
#include "Accelerators.h"
#include "CommandIds.h"
#include "KeyCodes.h"

namespace {
constexpr unsigned char V = FVIRTKEY, C = FVIRTKEY | FCONTROL, S = FVIRTKEY | FSHIFT,
                        CS = FVIRTKEY | FCONTROL | FSHIFT, A = FVIRTKEY | FALT;

// The SQL window's keys. The minus key counts on the main row and on the keypad.
AcceleratorTable sqlTable() {
    return {
        {C, VK_OEM_MINUS, cmd::Comment},    {C, VK_SUBTRACT, cmd::Comment},
        {CS, VK_OEM_MINUS, cmd::Uncomment}, {CS, VK_SUBTRACT, cmd::Uncomment},
        {CS, 'C', cmd::MakeCode},           {CS, 'V', cmd::StripCode},
        {CS, 'F', cmd::FormatSql},
    };
}

// The application editor window's keys.
AcceleratorTable editorTable() {
    return {
        {C, 'X', cmd::EditCut},          {S, VK_DELETE, cmd::EditCut},
        {C, 'C', cmd::EditCopy},         {C, VK_INSERT, cmd::EditCopy},
        {C, 'V', cmd::EditPaste},        {S, VK_INSERT, cmd::EditPaste},
        {C, 'Z', cmd::EditUndo},         {A, VK_BACK, cmd::EditUndo},
        {C, 'Y', cmd::EditRedo},         {C, 'A', cmd::EditSelectAll},
        {V, VK_DELETE, cmd::DeleteChar}, {V, VK_BACK, cmd::DeleteBack},
        {C, VK_DELETE, cmd::DeleteWordRight}, {C, VK_BACK, cmd::DeleteWordLeft},
        {V, VK_LEFT, cmd::Left},         {V, VK_RIGHT, cmd::Right},
        {V, VK_UP, cmd::Up},             {V, VK_DOWN, cmd::Down},
        {C, VK_LEFT, cmd::LeftWord},     {C, VK_RIGHT, cmd::RightWord},
        {C, VK_UP, cmd::ScrollUp},       {C, VK_DOWN, cmd::ScrollDown},
        {V, VK_PRIOR, cmd::PageUp},      {V, VK_NEXT, cmd::PageDown},
        {V, VK_END, cmd::LineEnd},       {V, VK_HOME, cmd::LineHead},
        {C, VK_HOME, cmd::EditorHead},   {C, VK_END, cmd::EditorEnd},
        {C, 'U', cmd::LowerCase},        {CS, 'U', cmd::UpperCase},
        {C, 'G', cmd::GotoLine},
        {CS, 'C', cmd::MakeCode},        {CS, 'V', cmd::StripCode},
        {CS, 'F', cmd::FormatSql},
        {C, 'F', cmd::Find},             {V, VK_F1 + 2, cmd::FindNext},
        {S, VK_F1 + 2, cmd::FindPrevious}, {C, 'H', cmd::Replace},
        {C, VK_F1 + 1, cmd::ToggleBookmark}, {V, VK_F1 + 1, cmd::NextBookmark},
        {S, VK_F1 + 1, cmd::PreviousBookmark}, {CS, VK_F1 + 1, cmd::ClearAllBookmarks},
        {C, VK_SPACE, cmd::AutoComplete},
        // Ctrl+[ and Ctrl+] (the keys that type the control codes 0x1B and 0x1D).
        {C, VK_OEM_4, cmd::MatchBrace},  {C, VK_OEM_6, cmd::MatchBrace},
        {CS, VK_OEM_4, cmd::MatchBraceExtend}, {CS, VK_OEM_6, cmd::MatchBraceExtend},
        {CS, '0', cmd::HostCtrlShift0},  {CS, 'G', cmd::HostCtrlShiftG},
    };
}

// Zoom (plus on the main row, shifted or not, and on the keypad; minus where the tables leave
// it free; 0 back to the normal size) and Ctrl+Enter for the statement at the caret.
AcceleratorTable comfortTable() {
    return {
        {C, VK_OEM_PLUS, cmd::ZoomIn},    {CS, VK_OEM_PLUS, cmd::ZoomIn}, {C, VK_ADD, cmd::ZoomIn},
        {C, VK_OEM_MINUS, cmd::ZoomOut},  {C, VK_SUBTRACT, cmd::ZoomOut}, {C, '0', cmd::ZoomReset},
        {C, VK_RETURN, cmd::RunStatement},
    };
}
}  // namespace

void RegisterLibraryAccelerators() {
    RegisterAcceleratorTable(IDR_SQL_ACCELERATORS, sqlTable());
    RegisterAcceleratorTable(IDR_EDITOR_ACCELERATORS, editorTable());
    RegisterAcceleratorTable(IDR_COMFORT_ACCELERATORS, comfortTable());
}
