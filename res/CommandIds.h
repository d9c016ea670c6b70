#pragma once
// Command ids of the editor windows' menus, accelerators and host toolbars.
#include "WinTypes.h"

namespace cmd {
constexpr UINT EditClear = 57633;      // Clear Content
constexpr UINT EditCopy = 57634;
constexpr UINT EditCut = 57635;
constexpr UINT EditPaste = 57637;
constexpr UINT EditSelectAll = 57642;
constexpr UINT EditUndo = 57643;
constexpr UINT EditRedo = 57644;
constexpr UINT DeleteWordRight = 8100;
constexpr UINT DeleteChar = 8101;
constexpr UINT DeleteBack = 8102;
constexpr UINT DeleteWordLeft = 8103;
constexpr UINT Left = 8107;
constexpr UINT Right = 8109;
constexpr UINT LeftWord = 8111;
constexpr UINT RightWord = 8113;
constexpr UINT Up = 8115;
constexpr UINT Down = 8117;
constexpr UINT ScrollUp = 8119;
constexpr UINT ScrollDown = 8120;
constexpr UINT PageUp = 8121;
constexpr UINT PageDown = 8123;
constexpr UINT LineEnd = 8125;
constexpr UINT LineHead = 8127;
constexpr UINT EditorHead = 8129;
constexpr UINT EditorEnd = 8131;
constexpr UINT GotoLine = 8172;
constexpr UINT LowerCase = 8167;
constexpr UINT UpperCase = 8168;
constexpr UINT Capitalize = 8169;
constexpr UINT Sentencize = 8170;
constexpr UINT InvertCase = 8171;
constexpr UINT Comment = 8176;
constexpr UINT Uncomment = 8177;
constexpr UINT MakeCode = 8179;
constexpr UINT StripCode = 8180;
constexpr UINT FormatSql = 8032;
}  // namespace cmd

// Accelerator tables: the SQL window's own, and the application editor window's.
constexpr UINT IDR_SQL_ACCELERATORS = 1000;
constexpr UINT IDR_EDITOR_ACCELERATORS = 1001;

// Registers the library's accelerator tables (done once when the library starts).
void RegisterLibraryAccelerators();
