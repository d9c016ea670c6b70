// The prompts of the library's commands in the string table, under each command's id: the
// status bar text, a line feed, and the tool tip. The library never shows them itself; the
// host's status bar and tool tips read them.
#include <QCoreApplication>

#include "CommandIds.h"
#include "Resources.h"

namespace {
struct Prompt {
    unsigned int id;
    const char* text;
};

const Prompt kPrompts[] = {
    {8100, QT_TRANSLATE_NOOP("Quillbox", "Delete the word after the caret\nDelete Word(Ctrl+Del)")},
    {8101, QT_TRANSLATE_NOOP("Quillbox", "Delete the character after the caret or the selection\nDelete(Del)")},
    {8102, QT_TRANSLATE_NOOP("Quillbox", "Delete the character before the caret\nBackward Delete(Backspace)")},
    {8103, QT_TRANSLATE_NOOP("Quillbox", "Delete the word before the caret\nBackward Delete Word(Ctrl+Backspace)")},
    {8104, QT_TRANSLATE_NOOP("Quillbox", "Indent the selected lines by one tab\nIncrease Indent(Tab)")},
    {8105, QT_TRANSLATE_NOOP("Quillbox", "Unindent the selected lines by one tab\nDecrease Indent(Shift+Tab)")},
    {8107, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one character left\nLeft")},
    {8109, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one character right\nRight")},
    {8111, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one word left\nWord Left(Ctrl+Left)")},
    {8113, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one word right\nWord Right(Ctrl+Right)")},
    {8115, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one line up\nLine Up")},
    {8117, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one line down\nLine Down")},
    {8119, QT_TRANSLATE_NOOP("Quillbox", "Scroll the text one line up\nScroll Up(Ctrl+Up)")},
    {8120, QT_TRANSLATE_NOOP("Quillbox", "Scroll the text one line down\nScroll Down(Ctrl+Down)")},
    {8121, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one page up\nPage Up")},
    {8123, QT_TRANSLATE_NOOP("Quillbox", "Move the caret one page down\nPage Down")},
    {8125, QT_TRANSLATE_NOOP("Quillbox", "Move the caret to the end of the line\nLine End(End)")},
    {8127, QT_TRANSLATE_NOOP("Quillbox", "Move the caret to the start of the line\nLine Head(Home)")},
    {8129, QT_TRANSLATE_NOOP("Quillbox", "Move the caret to the start of the text\nEditor Head(Ctrl+Home)")},
    {8131, QT_TRANSLATE_NOOP("Quillbox", "Move the caret to the end of the text\nEditor End(Ctrl+End)")},
    {8133, QT_TRANSLATE_NOOP("Quillbox", "Find the previous occurrence of the text\nFind Previous(Shift+F3)")},
    {8157, QT_TRANSLATE_NOOP("Quillbox", "Toggle Bookmark\nToggle Bookmark(Ctrl+F2)")},
    {8158, QT_TRANSLATE_NOOP("Quillbox", "Go to the next bookmark\nNext Bookmark(F2)")},
    {8159, QT_TRANSLATE_NOOP("Quillbox", "Go to the previous bookmark\nPrevious Bookmark(Shift+F2)")},
    {8160, QT_TRANSLATE_NOOP("Quillbox", "Clear all bookmarks\nClear All Bookmarks(Ctrl+Shift+F2)")},
    {8164, QT_TRANSLATE_NOOP("Quillbox", "Complete the word at the caret\nAuto Complete(Ctrl+Space)")},
    {8166, QT_TRANSLATE_NOOP("Quillbox", "Go to the matching bracket\nMatch Bracket(Ctrl+[])")},
    {8167, QT_TRANSLATE_NOOP("Quillbox", "Make the selection lower case\nLower Case(Ctrl+U)")},
    {8168, QT_TRANSLATE_NOOP("Quillbox", "Make the selection upper case\nUpper Case(Ctrl+Shift+U)")},
    {8169, QT_TRANSLATE_NOOP("Quillbox", "Capitalize the words of the selection\nCapitalize")},
    {8170, QT_TRANSLATE_NOOP("Quillbox", "Make the selection sentence case\nSentencize")},
    {8171, QT_TRANSLATE_NOOP("Quillbox", "Invert the case of the selection\nInvert Case")},
    {8172, QT_TRANSLATE_NOOP("Quillbox", "Go to a line\nGo to Line(Ctrl+G)")},
    {8181, QT_TRANSLATE_NOOP("Quillbox", "Select Visual Basic Code to copy SQL to clipboard\nVisual Basic Code")},
    {8182, QT_TRANSLATE_NOOP("Quillbox", "Select C/C++ Code to copy SQL to clipboard\nC/C++ Code")},
    {8183, QT_TRANSLATE_NOOP("Quillbox", "Select PowerBuilder Code to copy SQL to clipboard\nPowerBuilder Code")},
    {8184, QT_TRANSLATE_NOOP("Quillbox", "Select Visual Basic Code to paste SQL from clipboard\nVisual Basic Code")},
    {8185, QT_TRANSLATE_NOOP("Quillbox", "Select C/C++ Code to paste SQL from clipboard\nC/C++ Code")},
    {8186, QT_TRANSLATE_NOOP("Quillbox", "Select PowerBuilder Code to paste SQL from clipboard\nPowerBuilder Code")},
    {8187, QT_TRANSLATE_NOOP("Quillbox", "Select Delphi Code to copy SQL to clipboard\nDelphi Code")},
    {8188, QT_TRANSLATE_NOOP("Quillbox", "Select Delphi Code to paste SQL from clipboard\nDelphi Code")},
    {8189, QT_TRANSLATE_NOOP("Quillbox", "Select Java Code to copy SQL to clipboard\nJava Code")},
    {8190, QT_TRANSLATE_NOOP("Quillbox", "Select Java Code to paste SQL from clipboard\nJava Code")},
    {8191, QT_TRANSLATE_NOOP("Quillbox", "Select Perl Code to copy SQL to clipboard\nPerl Code")},
    {8192, QT_TRANSLATE_NOOP("Quillbox", "Select Perl Code to paste SQL from clipboard\nPerl Code")},
    {8193, QT_TRANSLATE_NOOP("Quillbox", "Select PHP Code to copy SQL to clipboard\nPHP Code")},
    {8194, QT_TRANSLATE_NOOP("Quillbox", "Select PHP Code to paste SQL from clipboard\nPHP Code")},
    {8195, QT_TRANSLATE_NOOP("Quillbox", "Select MFC Code to copy SQL to clipboard\nMFC Code")},
    {8196, QT_TRANSLATE_NOOP("Quillbox", "Select C# Code to copy SQL to clipboard\nC# Code")},
    {8197, QT_TRANSLATE_NOOP("Quillbox", "Select MFC Code to paste SQL from clipboard\nMFC Code")},
    {8198, QT_TRANSLATE_NOOP("Quillbox", "Select C# Code to paste SQL from clipboard\nC# Code")},
    {57633, QT_TRANSLATE_NOOP("Quillbox", "Clear the whole text\nClear Content")},
    {57634, QT_TRANSLATE_NOOP("Quillbox", "Copy the selection to the clipboard\nCopy(Ctrl+C)")},
    {57635, QT_TRANSLATE_NOOP("Quillbox", "Cut the selection to the clipboard\nCut(Ctrl+X)")},
    {57636, QT_TRANSLATE_NOOP("Quillbox", "Find the specified text\nFind(Ctrl+F)")},
    {57637, QT_TRANSLATE_NOOP("Quillbox", "Insert the clipboard's text\nPaste(Ctrl+V)")},
    {57640, QT_TRANSLATE_NOOP("Quillbox", "Find the next occurrence of the text\nFind Next(F3)")},
    {57641, QT_TRANSLATE_NOOP("Quillbox", "Replace the specified text with another\nReplace(Ctrl+H)")},
    {57642, QT_TRANSLATE_NOOP("Quillbox", "Select the whole text\nSelect All(Ctrl+A)")},
    {57643, QT_TRANSLATE_NOOP("Quillbox", "Undo the last change\nUndo(Ctrl+Z)")},
    {57644, QT_TRANSLATE_NOOP("Quillbox", "Redo the last undone change\nRedo(Ctrl+Y)")},
    {32349, QT_TRANSLATE_NOOP("Quillbox", "Option\nOption")},
    {59152, QT_TRANSLATE_NOOP("Quillbox", "Ln 999999, Col 9999")},
};
}  // namespace

void RegisterCommandPrompts() {
    for (const Prompt& prompt : kPrompts) RegisterResourceString(prompt.id, prompt.text);
}
