// The library's context menus: the editor's (8206), the read-only viewer's (8207) and the SQL
// window's (8208), each one popup at index 0, built from the same groups of commands.
#include <QCoreApplication>

#include "CMenu.h"
#include "CodeLanguages.h"
#include "CommandIds.h"

namespace {
using Items = std::vector<MenuTemplateItem>;
const MenuTemplateItem kSeparator{};

MenuTemplateItem command(UINT id, const char* text) { return MenuTemplateItem{id, text, {}}; }
MenuTemplateItem popup(const char* text, Items items) { return MenuTemplateItem{0, text, std::move(items)}; }
void append(Items& to, const Items& group) { to.insert(to.end(), group.begin(), group.end()); }

Items findGroup() {
    return {command(cmd::Find, QT_TRANSLATE_NOOP("Quillbox", "&Find...\tCtrl+F")),
            command(cmd::FindNext, QT_TRANSLATE_NOOP("Quillbox", "Find &Next")),
            command(cmd::FindPrevious, QT_TRANSLATE_NOOP("Quillbox", "Find Previous")),
            command(cmd::Replace, QT_TRANSLATE_NOOP("Quillbox", "R&eplace...\tCtrl+H")),
            kSeparator,
            command(cmd::MatchBrace, QT_TRANSLATE_NOOP("Quillbox", "Match Bracket\tCtrl+[]")),
            command(cmd::MatchBraceExtend, QT_TRANSLATE_NOOP("Quillbox", "Match Select Bracket\tCtrl+Shift+[]"))};
}

Items deleteGroup() {
    return {command(cmd::DeleteChar, QT_TRANSLATE_NOOP("Quillbox", "Delete\tDel")),
            command(cmd::DeleteBack, QT_TRANSLATE_NOOP("Quillbox", "Backward Delete \tBackspace")),
            command(cmd::DeleteWordRight, QT_TRANSLATE_NOOP("Quillbox", "Delete Word\tCtrl+Del")),
            command(cmd::DeleteWordLeft, QT_TRANSLATE_NOOP("Quillbox", "Backward Delete Word\tCtrl+Backspace"))};
}

Items moveGroup() {
    return {command(cmd::GotoLine, QT_TRANSLATE_NOOP("Quillbox", "&Go to Line...\tCtrl+G")),
            kSeparator,
            command(cmd::Down, QT_TRANSLATE_NOOP("Quillbox", "Line Down\tDown")),
            command(cmd::ScrollDown, QT_TRANSLATE_NOOP("Quillbox", "Scroll Down\tCtrl+Down")),
            command(cmd::Up, QT_TRANSLATE_NOOP("Quillbox", "Line Up\tUp")),
            command(cmd::ScrollUp, QT_TRANSLATE_NOOP("Quillbox", "Scroll Up\tCtrl+Up")),
            command(cmd::Left, QT_TRANSLATE_NOOP("Quillbox", "Left\tLeft")),
            command(cmd::LeftWord, QT_TRANSLATE_NOOP("Quillbox", "Word Left\tCtrl+Left")),
            command(cmd::Right, QT_TRANSLATE_NOOP("Quillbox", "Right\tRight")),
            command(cmd::RightWord, QT_TRANSLATE_NOOP("Quillbox", "Word Right\tCtrl+Right")),
            kSeparator,
            command(cmd::PageUp, QT_TRANSLATE_NOOP("Quillbox", "Page Up\tPage Up")),
            command(cmd::PageDown, QT_TRANSLATE_NOOP("Quillbox", "Page Down\tPage Down")),
            kSeparator,
            command(cmd::LineHead, QT_TRANSLATE_NOOP("Quillbox", "Line Head\tHome")),
            command(cmd::EditorHead, QT_TRANSLATE_NOOP("Quillbox", "Editor Head\tCtrl+Home")),
            command(cmd::LineEnd, QT_TRANSLATE_NOOP("Quillbox", "Line End\tEnd")),
            command(cmd::EditorEnd, QT_TRANSLATE_NOOP("Quillbox", "Editor End\tCtrl+End"))};
}

Items shiftGroup() {
    return {command(cmd::IncreaseIndent, QT_TRANSLATE_NOOP("Quillbox", "Increase Indent\tTab")),
            command(cmd::DecreaseIndent, QT_TRANSLATE_NOOP("Quillbox", "Decrease Indent\tShift+Tab"))};
}

Items caseGroup() {
    return {command(cmd::LowerCase, QT_TRANSLATE_NOOP("Quillbox", "Lower Case\tCtrl+U")),
            command(cmd::UpperCase, QT_TRANSLATE_NOOP("Quillbox", "Upper Case\tCtrl+Shift+U")),
            command(cmd::Capitalize, QT_TRANSLATE_NOOP("Quillbox", "Capitalize")),
            command(cmd::InvertCase, QT_TRANSLATE_NOOP("Quillbox", "Invert Case")),
            command(cmd::Sentencize, QT_TRANSLATE_NOOP("Quillbox", "Sentencize"))};
}

Items bookmarkGroup() {
    return {command(cmd::ToggleBookmark, QT_TRANSLATE_NOOP("Quillbox", "Toggle Bookmark\tCtrl+F2")),
            command(cmd::NextBookmark, QT_TRANSLATE_NOOP("Quillbox", "Next Bookmark\tF2")),
            command(cmd::PreviousBookmark, QT_TRANSLATE_NOOP("Quillbox", "Previous Bookmark\tShift+F2")),
            kSeparator,
            command(cmd::ClearAllBookmarks, QT_TRANSLATE_NOOP("Quillbox", "Clear All Bookmarks\tCtrl+Shift+F2"))};
}

// A code popup of the SQL window: the command for the chosen language, then one entry per
// language, in the languages' own order.
Items codeLanguageRows(UINT selectedCommand, const char* selectedText, unsigned int CodeLanguage::*menuId) {
    Items items{command(selectedCommand, selectedText), kSeparator};
    for (const CodeLanguage& language : CodeLanguages()) items.push_back(command(language.*menuId, language.menuLabel));
    return items;
}

// The editing rows that open the editor's and the SQL window's menus.
Items editingRows() {
    return {command(cmd::EditUndo, QT_TRANSLATE_NOOP("Quillbox", "&Undo\tCtrl+Z")),
            command(cmd::EditRedo, QT_TRANSLATE_NOOP("Quillbox", "&Redo\tCtrl+Y")),
            kSeparator,
            command(cmd::EditClear, QT_TRANSLATE_NOOP("Quillbox", "Clear Content")),
            command(cmd::EditCut, QT_TRANSLATE_NOOP("Quillbox", "Cu&t\tCtrl+X")),
            command(cmd::EditCopy, QT_TRANSLATE_NOOP("Quillbox", "&Copy\tCtrl+C")),
            command(cmd::EditPaste, QT_TRANSLATE_NOOP("Quillbox", "&Paste\tCtrl+V")),
            command(cmd::DeleteChar, QT_TRANSLATE_NOOP("Quillbox", "&Delete\tDel")),
            command(cmd::EditSelectAll, QT_TRANSLATE_NOOP("Quillbox", "Select &All\tCtrl+A"))};
}

Items editorMenu() {
    Items items = editingRows();
    items.push_back(kSeparator);
    append(items, findGroup());
    append(items, deleteGroup());
    append(items, moveGroup());
    append(items, shiftGroup());
    items.push_back(popup(QT_TRANSLATE_NOOP("Quillbox", "Modification"), caseGroup()));
    append(items, bookmarkGroup());
    return {popup("Default", std::move(items))};
}

Items readOnlyMenu() {
    Items items{command(cmd::EditClear, QT_TRANSLATE_NOOP("Quillbox", "Clear Content")),
                kSeparator,
                command(cmd::EditCopy, QT_TRANSLATE_NOOP("Quillbox", "Copy")),
                command(cmd::EditSelectAll, QT_TRANSLATE_NOOP("Quillbox", "Select All")),
                kSeparator,
                command(cmd::FileSaveAsInternal, QT_TRANSLATE_NOOP("Quillbox", "Save As...")),
                kSeparator};
    append(items, moveGroup());
    append(items, bookmarkGroup());
    return {popup("Readonly", std::move(items))};
}

Items sqlMenu() {
    Items items = editingRows();
    items.push_back(popup(QT_TRANSLATE_NOOP("Quillbox", "Copy to Clipboard"),
                          codeLanguageRows(cmd::MakeCode, QT_TRANSLATE_NOOP("Quillbox", "Copy as Selected Code\tCtrl+Shift+C"),
                                           &CodeLanguage::copyMenuId)));
    items.push_back(popup(QT_TRANSLATE_NOOP("Quillbox", "Paste from Clipboard"),
                          codeLanguageRows(cmd::StripCode, QT_TRANSLATE_NOOP("Quillbox", "Paste from Selected Code\tCtrl+Shift+V"),
                                           &CodeLanguage::pasteMenuId)));
    items.push_back(kSeparator);
    items.push_back(command(cmd::Comment, QT_TRANSLATE_NOOP("Quillbox", "Co&mment\tCtrl+-")));
    items.push_back(command(cmd::Uncomment, QT_TRANSLATE_NOOP("Quillbox", "U&ncomment\tCtrl+Shift+-")));
    items.push_back(kSeparator);
    items.push_back(command(cmd::FormatSql, QT_TRANSLATE_NOOP("Quillbox", "Format SQL\tCtrl+Shift+F")));
    items.push_back(kSeparator);
    append(items, findGroup());
    append(items, deleteGroup());
    append(items, moveGroup());
    append(items, shiftGroup());
    append(items, caseGroup());
    append(items, bookmarkGroup());
    return {popup("SQL Tool", std::move(items))};
}
}  // namespace

void RegisterLibraryMenus() {
    RegisterMenuResource(IDR_EDITOR_MENU, editorMenu());
    RegisterMenuResource(IDR_READONLY_MENU, readOnlyMenu());
    RegisterMenuResource(IDR_SQL_MENU, sqlMenu());
}
