// The context menu of CKTScinWnd, the update walk over a popup's items, and the command and
// update handlers that are more than one call of the editor.
#include <QApplication>
#include <algorithm>

#include "CFileDialogEx.h"
#include "CKTScinWnd.h"
#include "CommandIds.h"
#include "MessageBox.h"
#include "MessageHandlers.h"
#include "Resources.h"
#include "System.h"

namespace {
constexpr UINT kErrorCaptionString = 2300;
constexpr UINT kCannotLoadMenuString = 2301;
constexpr unsigned long kSaveAsFlags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_LONGNAMES;

class WaitCursor {
public:
    WaitCursor() {
        if (qobject_cast<QApplication*>(QCoreApplication::instance())) QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~WaitCursor() {
        if (qobject_cast<QApplication*>(QCoreApplication::instance())) QApplication::restoreOverrideCursor();
    }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

void CKTScinWnd::SetPopupMenu(UINT menuId, UINT subIndex) {
    popupMenuId = menuId;
    popupSubIndex = subIndex;
}

void CKTScinWnd::SetRemovePopupMenu(CUIntArray& ids) {
    removeMenuIds.RemoveAll();
    removeMenuIds.Copy(ids);
}

void CKTScinWnd::OnContextMenu(CWnd*, CPoint screenPoint) {
    if (!showPopup || popupMenuId == UINT(-1) || popupSubIndex == UINT(-1)) return;
    CMenu menu;
    if (!menu.LoadMenu(popupMenuId & 0xFFFF)) {
        CString caption;
        caption.LoadString(kErrorCaptionString);
        ::MessageBox(GetSafeHwnd(), GetLastErrorText().c_str(), caption.c_str(), MB_ICONINFORMATION);
    }
    if (menu.IsValid()) {
        if (CMenu* popup = menu.GetSubMenu(int(popupSubIndex))) {
            for (int i = 0; i < removeMenuIds.GetSize(); ++i)
                while (popup->DeleteMenu(removeMenuIds[i], MF_BYCOMMAND)) {
                }
            // A click beside a selection keeps it; otherwise the caret goes where the click was.
            if (!IsSelection()) GoToPosFromWindowPoint(screenPoint);
            for (int id : hideMenuIds) {
                for (int position = 0; position < popup->GetMenuItemCount(); ++position) {
                    if (popup->GetMenuItemID(position) == UINT(id)) {
                        popup->RemoveMenu(UINT(position), MF_BYPOSITION);
                        break;
                    }
                }
            }
            if (commandBars)
                commandBars->TrackPopupMenu(popup, TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, this);
            else
                popup->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, this);
        } else {
            AfxMessageBox(kCannotLoadMenuString, MB_ICONSTOP, 0);
        }
    }
    menu.DestroyMenu();
}

void CKTScinWnd::OnInitMenuPopup(CMenu* popup, UINT, BOOL) {
    // The window has no menu bar, so the popup being opened is always its own parent.
    if (!popup) return;
    CCmdUI state;
    state.m_pMenu = popup;
    state.m_nIndexMax = popup->GetMenuItemCount();
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        state.m_nID = popup->GetMenuItemID(state.m_nIndex);
        if (state.m_nID == 0) continue;  // a separator
        if (state.m_nID == kPopupItemId) {
            // A submenu follows its first command, and goes grey when nothing handles it.
            state.m_pSubMenu = popup->GetSubMenu(state.m_nIndex);
            if (!state.m_pSubMenu || state.m_pSubMenu->GetMenuItemCount() == 0) continue;
            state.m_nID = state.m_pSubMenu->GetMenuItemID(0);
            if (state.m_nID == 0 || state.m_nID == kPopupItemId) continue;
            state.DoUpdate(this, TRUE);
        } else {
            state.m_pSubMenu = nullptr;
            state.DoUpdate(this, FALSE);
        }
        // A handler may have removed items: step back by as many, then past this command.
        const int count = popup->GetMenuItemCount();
        if (count < state.m_nIndexMax) {
            state.m_nIndex -= state.m_nIndexMax - count;
            while (state.m_nIndex < count && popup->GetMenuItemID(state.m_nIndex) == state.m_nID) ++state.m_nIndex;
        }
        state.m_nIndexMax = count;
    }
}

void CKTScinWnd::OnFind() {
    Find();
    UpdateData(FALSE);
}

void CKTScinWnd::OnEditRepeat() { FindNext(false, true); }
void CKTScinWnd::OnEditFindPrevious() { FindNext(true, true); }

void CKTScinWnd::OnEditTab() { shiftSelectedLines(int(SendEditor(SCI_GETTABWIDTH))); }
void CKTScinWnd::OnEditUnTab() { shiftSelectedLines(-int(SendEditor(SCI_GETTABWIDTH))); }

void CKTScinWnd::shiftSelectedLines(int columns) {
    const long first = SendEditor(SCI_LINEFROMPOSITION, WPARAM(GetSelectionStart()));
    const long last = SendEditor(SCI_LINEFROMPOSITION, WPARAM(GetSelectionEnd()));
    SendEditor(SCI_BEGINUNDOACTION);
    for (long line = first; line <= last; ++line)
        SetLineIndentationForFileEditor(int(line), std::max(0, GetLineIndentation(int(line)) + columns));
    SendEditor(SCI_ENDUNDOACTION);
}

void CKTScinWnd::OnEditAutoComplete() { StartAutoCompleteWord(0); }
void CKTScinWnd::OnEditMatchBrace() { GoMatchingBrace(false); }
void CKTScinWnd::OnEditMatchBreaceExtend() { GoMatchingBrace(true); }
void CKTScinWnd::OnEditToggleBookMark() { ToggleMark(0, -1); }
void CKTScinWnd::OnEditGotoNextBookMark() { FindNextMark(0); }
void CKTScinWnd::OnEditGotoPrevBookMark() { FindPreviousMark(0); }
void CKTScinWnd::OnClearAllBookmarks() { SendEditor(SCI_MARKERDELETEALL, 0); }
void CKTScinWnd::OnPrint() { Print(true); }

void CKTScinWnd::OnFileSaveAsInternal() {
    CFileDialogEx dialog(0, "txt", nullptr, kSaveAsFlags, "Text Files (*.txt)|*.txt|All Files (*.*)|*.*||", this, 0, 0);
    if (!defaultPath.IsEmpty()) dialog.GetOFN().lpstrInitialDir = defaultPath.c_str();
    if (dialog.DoModal() != IDOK) return;
    WaitCursor wait;
    saveAsPath = dialog.GetPathName();
    // An export: the document keeps its line ends, its save point and its own file.
    writeDocument(saveAsPath.c_str(), 0, fileBackup != 0);
}

void CKTScinWnd::OnUpdateEditCopy(CCmdUI* ui) { ui->Enable(IsSelection()); }
void CKTScinWnd::OnUpdateEditCut(CCmdUI* ui) { ui->Enable(IsSelection() && !SendEditor(SCI_GETREADONLY)); }
void CKTScinWnd::OnUpdateEditPaste(CCmdUI* ui) { ui->Enable(CanPaste() && !SendEditor(SCI_GETREADONLY)); }
void CKTScinWnd::OnUpdateEditUndo(CCmdUI* ui) { ui->Enable(CanUndo()); }
void CKTScinWnd::OnUpdateEditRedo(CCmdUI* ui) { ui->Enable(CanRedo()); }
void CKTScinWnd::OnUpdateEditClearContent(CCmdUI* ui) { ui->Enable(!IsEmpty()); }
void CKTScinWnd::OnUpdateIndicatorOvr(CCmdUI* ui) { ui->Enable(GetOverstrike()); }
void CKTScinWnd::OnUpdateIndicatorRows(CCmdUI* ui) { ui->Enable(TRUE); }

std::vector<MessageMapEntry> CKTScinWnd::MenuCommandEntries() {
    using C = CKTScinWnd;
    return {
        {WM_CONTEXTMENU, 0,
         [](CWnd* w, WPARAM wParam, LPARAM lParam) -> LRESULT {
             const CPoint at(short(lParam & 0xFFFF), short((lParam >> 16) & 0xFFFF));
             static_cast<C*>(w)->OnContextMenu(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), at);
             return 0;
         }},
        {WM_INITMENUPOPUP, 0,
         [](CWnd* w, WPARAM wParam, LPARAM lParam) -> LRESULT {
             static_cast<C*>(w)->OnInitMenuPopup(reinterpret_cast<CMenu*>(wParam), UINT(lParam & 0xFFFF),
                                                 BOOL((lParam >> 16) & 0xFFFF));
             return 0;
         }},
        {WM_COMMAND, cmd::Find, OnMessage<&C::OnFind>},
        {WM_COMMAND, cmd::FindNext, OnMessage<&C::OnEditRepeat>},
        {WM_COMMAND, cmd::FindPrevious, OnMessage<&C::OnEditFindPrevious>},
        {WM_COMMAND, cmd::Replace, OnMessage<&C::Replace>},
        {WM_COMMAND, cmd::IncreaseIndent, OnMessage<&C::OnEditTab>},
        {WM_COMMAND, cmd::DecreaseIndent, OnMessage<&C::OnEditUnTab>},
        {WM_COMMAND, cmd::AutoComplete, OnMessage<&C::OnEditAutoComplete>},
        {WM_COMMAND, cmd::MatchBrace, OnMessage<&C::OnEditMatchBrace>},
        {WM_COMMAND, cmd::MatchBraceExtend, OnMessage<&C::OnEditMatchBreaceExtend>},
        {WM_COMMAND, cmd::ToggleBookmark, OnMessage<&C::OnEditToggleBookMark>},
        {WM_COMMAND, cmd::NextBookmark, OnMessage<&C::OnEditGotoNextBookMark>},
        {WM_COMMAND, cmd::PreviousBookmark, OnMessage<&C::OnEditGotoPrevBookMark>},
        {WM_COMMAND, cmd::ClearAllBookmarks, OnMessage<&C::OnClearAllBookmarks>},
        {WM_COMMAND, cmd::FilePrint, OnMessage<&C::OnPrint>},
        {WM_COMMAND, cmd::FileSaveAsInternal, OnMessage<&C::OnFileSaveAsInternal>},
        {WM_UPDATE_COMMAND_UI, cmd::EditClear, OnMessage<&C::OnUpdateEditClearContent>},
        {WM_UPDATE_COMMAND_UI, cmd::EditCut, OnMessage<&C::OnUpdateEditCut>},
        {WM_UPDATE_COMMAND_UI, cmd::EditCopy, OnMessage<&C::OnUpdateEditCopy>},
        {WM_UPDATE_COMMAND_UI, cmd::EditPaste, OnMessage<&C::OnUpdateEditPaste>},
        {WM_UPDATE_COMMAND_UI, cmd::EditUndo, OnMessage<&C::OnUpdateEditUndo>},
        {WM_UPDATE_COMMAND_UI, cmd::EditRedo, OnMessage<&C::OnUpdateEditRedo>},
        {WM_UPDATE_COMMAND_UI, cmd::FileSaveAsInternal, OnMessage<&C::OnUpdateFileSaveAsInternal>},
        {WM_UPDATE_COMMAND_UI, cmd::IndicatorOvr, OnMessage<&C::OnUpdateIndicatorOvr>},
        {WM_UPDATE_COMMAND_UI, cmd::IndicatorRows, OnMessage<&C::OnUpdateIndicatorRows>},
    };
}
