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
constexpr UINT Find = 57636;
constexpr UINT FindNext = 57640;  // the framework's "repeat"
constexpr UINT FindPrevious = 8133;
constexpr UINT Replace = 57641;
constexpr UINT MatchBrace = 8166;
constexpr UINT MatchBraceExtend = 8028;
constexpr UINT IncreaseIndent = 8104;
constexpr UINT DecreaseIndent = 8105;
constexpr UINT AutoComplete = 8164;
constexpr UINT ToggleBookmark = 8157;
constexpr UINT NextBookmark = 8158;
constexpr UINT PreviousBookmark = 8159;
constexpr UINT ClearAllBookmarks = 8160;
constexpr UINT FileSaveAsInternal = 8027;
constexpr UINT FilePrint = 57607;
constexpr UINT IndicatorOvr = 59140;
constexpr UINT IndicatorRows = 59147;
// Editing comforts: zoom, and running the statement at the caret (the SQL window).
constexpr UINT ZoomIn = 8210;
constexpr UINT ZoomOut = 8211;
constexpr UINT ZoomReset = 8212;
constexpr UINT RunStatement = 8213;
// Keys of the editor's table that a host answers itself; the library has no handler.
constexpr UINT HostCtrlShift0 = 8154;
constexpr UINT HostCtrlShiftG = 8161;
}  // namespace cmd

// Accelerator tables: the SQL window's own, and the application editor window's.
constexpr UINT IDR_SQL_ACCELERATORS = 1000;
constexpr UINT IDR_EDITOR_ACCELERATORS = 1001;
// Keys of the editing comforts, looked at after the two tables above: a key either of them
// takes stays theirs.
constexpr UINT IDR_COMFORT_ACCELERATORS = 1002;

// Context menus of the editor windows.
constexpr UINT IDR_EDITOR_MENU = 8206;
constexpr UINT IDR_READONLY_MENU = 8207;
constexpr UINT IDR_SQL_MENU = 8208;

// Registers the library's accelerator tables (done once when the library starts).
void RegisterLibraryAccelerators();
// Registers the library's context menus (done once when the library starts).
void RegisterLibraryMenus();
// Registers the status bar and tool tip prompts of the commands in the string table.
void RegisterCommandPrompts();
