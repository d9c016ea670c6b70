#include "CKTSQLEditWnd.h"
#include "SQLCharClass.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <cstring>
#include <vector>
#include <QGuiApplication>

#include "CFileDialogEx.h"
#include "CKTRegistry.h"
#include "Settings.h"
#include "BindScanner.h"
#include "CNamekitMgr.h"
#include "StatementExtraction.h"
#include "CopyAsCode.h"
#include "PasteFromCode.h"
#include "CKTUtil.h"
#include "MessageBox.h"
#include "MessageHandlers.h"
#include "CommandIds.h"
#include "QuillEngine.h"

namespace {
// The direct line hands every message to the engine link, extension messages included.
long directCall(void* pointer, unsigned int message, std::uintptr_t wParam, std::intptr_t lParam) {
    return pointer ? static_cast<QuillEngine*>(pointer)->send(message, wParam, lParam) : 0;
}
}  // namespace

CKTSQLEditWnd::CKTSQLEditWnd() {
    SetPopupMenu(IDR_SQL_MENU, 0);
    setOption();
}

CKTSQLEditWnd::~CKTSQLEditWnd() = default;

int CKTSQLEditWnd::OnCreate() {
    if (Default() == -1) return -1;
    sqlAccelerators = LoadAccelerators(IDR_SQL_ACCELERATORS);
    SetAutoCompletionEnv();
    return 0;
}

void CKTSQLEditWnd::SetAutoCompletionEnv() {
    directFunction = directCall;
    directPointer = engine();
    directFunction(directPointer, SCI_AUTOCSETSEPARATOR, 124, 0);
    // SQL names match whatever their case: the case option may change the list's case.
    directFunction(directPointer, SCI_AUTOCSETIGNORECASE, 1, 0);
}

BOOL CKTSQLEditWnd::PreTranslateMessage(MSG* msg) {
    // The SQL window's own table first, then the editor's.
    if (IsKeyMessage(msg) && sqlAccelerators && TranslateAccelerator(this, sqlAccelerators, msg)) return TRUE;
    return CKTScinWnd::PreTranslateMessage(msg);
}

BOOL CKTSQLEditWnd::IsAcceleratorKey(const MSG* msg) const {
    return (IsKeyMessage(msg) && FindAccelerator(sqlAccelerators, msg)) || CKTScinWnd::IsAcceleratorKey(msg);
}

void CKTSQLEditWnd::ApplyOptionOnRealtime() {
    CKTMgrSetting setting(0);
    if (setting.GetKey()) changeCase = settings::ChangeCase.Read(setting);
    CKTScinWnd::ApplyOptionOnRealtime();
}

void CKTSQLEditWnd::GotoPosition(int position, bool selectWord) {
    SendEditor(SCI_GOTOPOS, WPARAM(position));
    if (selectWord) SelectWordFromCurrentPos();
}

void CKTSQLEditWnd::setOption() {
    CKTMgrSetting setting(0);
    CString stored = LangCodeStoredName(scriptLangCode);
    stored = settings::EditorDefaultCode.Read(setting, stored);
    LangCodeFromStoredName(stored, scriptLangCode);  // a text that names no language changes nothing
}

void CKTSQLEditWnd::saveOption() {
    CKTMgrSetting setting(0);
    settings::EditorDefaultCode.Write(setting, LangCodeStoredName(scriptLangCode));
}

void CKTSQLEditWnd::setScriptLangCode(EM_LangCode code) {
    scriptLangCode = code;
    saveOption();
}

LRESULT CKTSQLEditWnd::OnInsertText(WPARAM wParam, LPARAM) {
    const char* sent = reinterpret_cast<const char*>(wParam);
    const CString text(sent ? sent : "");  // the sender keeps its text: copy it first
    ReplaceSelection(text, 0);
    CPoint from, to;
    GetSelection(from, to);
    const long position = SendEditor(SCI_POSITIONFROMLINE, WPARAM(to.y)) + to.x;
    SendEditor(SCI_SETSEL, WPARAM(position), position);
    SendEditor(SCI_GOTOPOS, WPARAM(position));
    if (CWnd* main = AfxGetMainWnd()) {
        main->SetFocus();
        if (QWidget* w = main->GetSafeHwnd()) w->activateWindow();
    }
    return 0;
}

CString CKTSQLEditWnd::codeSource() {
    CPoint from(0, 0), to;
    if (IsSelection()) {
        GetSelection(from, to);
    } else {
        to.y = GetLineCount() - 1;
        to.x = int(SendEditor(SCI_LINELENGTH, WPARAM(to.y)));
    }
    return GetText(from, to);
}

void CKTSQLEditWnd::putCode(const CString& code) {
    if (!code.IsEmpty()) PutToClipboard(code);
}

void CKTSQLEditWnd::pasteSql(const CString& sql) {
    SendEditor(SCI_BEGINUNDOACTION);
    PasteText(sql);
    SendEditor(SCI_ENDUNDOACTION);
}

void CKTSQLEditWnd::OnMakeCode() {
    if (FindCodeLanguage(scriptLangCode) == nullptr) return;
    putCode(MakeCode(scriptLangCode, codeSource()));
}

void CKTSQLEditWnd::copyToLanguageCode(CString variable, CString quote, CString escape, CString continuation,
                                       CString lineTail, CString terminator) {
    putCode(CopyToLanguageCode(codeSource(), variable, quote, escape, continuation, lineTail, terminator));
}

void CKTSQLEditWnd::copyToLanguageCodeEx(CString variable, CString quote, CString escape, CString continuation,
                                         CString lineTail, CString terminator, CString assign, bool alignToVariable) {
    putCode(CopyToLanguageCodeEx(codeSource(), variable, quote, escape, continuation, lineTail, terminator, assign,
                                 alignToVariable));
}

void CKTSQLEditWnd::copyToLanguageCodeEx2(CString variable, CString quote, CString openWrap, CString closeWrap,
                                          CString escape, CString continuation, CString lineTail,
                                          CString terminator, CString assign, bool alignToVariable) {
    putCode(CopyToLanguageCodeEx2(codeSource(), variable, quote, openWrap, closeWrap, escape, continuation, lineTail,
                                  terminator, assign, alignToVariable));
}

void CKTSQLEditWnd::copyToPerlCode(CString variable, CString quote, CString escape, CString continuation,
                                   CString lineTail, CString terminator) {
    putCode(CopyToPerlCode(codeSource(), variable, quote, escape, continuation, lineTail, terminator));
}

void CKTSQLEditWnd::copyToJavaCode(CString variable, CString builderType, CString appendMethod) {
    putCode(CopyToJavaCode(codeSource(), variable, builderType, appendMethod));
}

void CKTSQLEditWnd::pasteFromLanguageCode(char escape, CString text) {
    if (text.IsEmpty() && !GetFromClipboard(text)) return;
    pasteSql(PasteFromLanguageCode(escape, text));
}

void CKTSQLEditWnd::pasteFromCCode() {
    CString text;
    if (!GetFromClipboard(text)) return;
    pasteSql(PasteFromCCode(text));
}

void CKTSQLEditWnd::pasteFromJavaCode() {
    CString text;
    if (!GetFromClipboard(text)) return;
    pasteSql(PasteFromJavaCode(text));
}

int CKTSQLEditWnd::findBindPosition(CString text, int& start, int& end) { return FindBindPosition(text, start, end); }

int CKTSQLEditWnd::findBindReplacePosition(CString text, int& position) {
    return FindBindReplacePosition(text, position);
}

bool CKTSQLEditWnd::GetSingleQuery(CString& text, bool& armed, bool forward) {
    return StatementExtractor::GetSingleQuery(text, armed, forward);
}

CString CKTSQLEditWnd::InitToken(CString word) { return StatementExtractor::InitToken(word); }

CString CKTSQLEditWnd::CheckComment(CString line, CStringArray& ranges, int lineNo, int column) {
    return StatementExtractor::CheckComment(line, ranges, lineNo, column);
}

void CKTSQLEditWnd::OnUpdateMakeCode(CCmdUI* ui) {
    if (ui) ui->Enable(SendEditor(SCI_GETLENGTH) > 0 && IsSelection());
}

void CKTSQLEditWnd::OnStripCode() {
    CString clipboard, sql;
    if (!GetFromClipboard(clipboard)) return;
    if (!PasteFromCode(scriptLangCode, clipboard, sql)) return;
    pasteSql(sql);
}

void CKTSQLEditWnd::OnUpdateStripCode(CCmdUI* ui) {
    if (ui) ui->Enable(IsTextInClipboard());
}

void CKTSQLEditWnd::OnCopyTo(UINT commandId) {
    if (const CodeLanguage* language = FindCodeLanguageByCommand(commandId)) setScriptLangCode(language->code);
}

void CKTSQLEditWnd::OnUpdateCopyTo(UINT commandId, CCmdUI* ui) {
    const CodeLanguage* language = FindCodeLanguageByCommand(commandId);
    if (ui && language) ui->SetCheck(language->code == scriptLangCode ? 1 : 0);
}

bool CKTSQLEditWnd::SelectCodeLanguage(const char* storedName) {
    EM_LangCode code = scriptLangCode;
    if (!storedName || !LangCodeFromStoredName(storedName, code)) return false;
    setScriptLangCode(code);
    return true;
}

namespace {
using sqlchar::isBlank;

// A character that starts a request: ASCII letters and digits and _ . # $ @.
bool startsRequest(int ch) {
    return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9') || ch == '_' ||
           ch == '.' || ch == '#' || ch == '$' || ch == '@';
}
}  // namespace

CNamekitMgr* CKTSQLEditWnd::completionManager() {
    CWnd* main = AfxGetMainWnd();
    return main ? reinterpret_cast<CNamekitMgr*>(main->SendMessage(kAskCompletionManager, 9, 0)) : nullptr;
}

void CKTSQLEditWnd::cancelList() { SendEditor(SCI_AUTOCCANCEL); }

CString CKTSQLEditWnd::applyChangeCase(CString list) const {
    if (changeCase == 1) list.MakeUpper();
    else if (changeCase == 2) list.MakeLower();
    return list;
}

int CKTSQLEditWnd::isTableWord(CString line, int index) {
    if (index < 0 || index >= line.GetLength()) return 0;
    const unsigned char c = static_cast<unsigned char>(line[index]);
    // Any byte of a multi-byte character belongs to a name, so such a character is taken whole.
    if (c >= 0x80) return 1;
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return 1;
    return std::strchr("$#_.@\")", char(c)) != nullptr && c != 0 ? 1 : 0;
}

CString CKTSQLEditWnd::getObjectAtCaret() {
    if (IsSelection()) {
        CString selected = GetSelectedText();
        return selected.Trim();
    }
    const long caret = GetCurrentPosition();
    const int lineNo = int(SendEditor(SCI_LINEFROMPOSITION, WPARAM(caret)));
    const CString line = GetLineChars(lineNo);
    const int length = line.GetLength();
    const int column = int(caret - SendEditor(SCI_POSITIONFROMLINE, WPARAM(lineNo)));
    int start = column;
    if (column > 0) {
        const unsigned char at = column < length ? static_cast<unsigned char>(line[column]) : 0;
        const bool behindWord = column >= length || at == ';' || at == ',' || isBlank(at);
        if (behindWord && !isBlank(static_cast<unsigned char>(line[column - 1]))) start = column - 1;
    }
    if (length == 0 || start >= length || !isTableWord(line, start)) return CString();
    int first = start;
    while (first > 0 && isTableWord(line, first - 1)) --first;
    CString name = line.Mid(first, column - first);
    return name.Trim();
}

namespace {
// The statement at the window's caret, and the document range it was taken from (empty at the
// caret when there is no statement).
CString statementAtCaret(CKTSQLEditWnd& window, Sci_CharacterRange& range) {
    const CPoint caret = window.GetCursorPos();
    FunctionStatementSource source(window.GetLineCount(), caret.y, caret.x,
                                   [&window](int line) { return window.GetLineChars(line); });
    StatementExtractor::Extent extent;
    CString query = StatementExtractor::GetCurrentQuery(source, extent);
    const long position = window.GetCurrentPosition();
    range = extent.found ? Sci_CharacterRange{window.GetPositionFromLine(extent.firstLine) + extent.firstColumn,
                                              window.GetPositionFromLine(extent.lastLine) + extent.endColumn}
                         : Sci_CharacterRange{position, position};
    return query;
}
}  // namespace

CString CKTSQLEditWnd::GetCurrentQuery() {
    const long caret = GetCurrentPosition();
    const int caretLine = int(SendEditor(SCI_LINEFROMPOSITION, WPARAM(caret)));
    const int caretColumn = int(caret - SendEditor(SCI_POSITIONFROMLINE, WPARAM(caretLine)));
    FunctionStatementSource source(GetLineCount(), caretLine, caretColumn,
                                   [this](int line) { return GetLineChars(line); });
    return StatementExtractor::GetCurrentQuery(source);
}

Sci_CharacterRange CKTSQLEditWnd::GetCurrentQueryRange() {
    Sci_CharacterRange range;
    statementAtCaret(*this, range);
    return range;
}

void CKTSQLEditWnd::OnRunStatement() {
    Sci_CharacterRange range;
    const CString query = statementAtCaret(*this, range);
    SCNotification record;
    record.nmhdr.hwndFrom = GetSafeHwnd();
    record.nmhdr.idFrom = GetDlgCtrlID();
    record.nmhdr.code = SCN_RUNSTATEMENT_EXT;
    record.position = range.cpMin;
    record.length = range.cpMax - range.cpMin;
    record.text = query.c_str();
    if (CWnd* parent = GetParent()) parent->SendMessage(WM_NOTIFY, record.nmhdr.idFrom, reinterpret_cast<LPARAM>(&record));
}

BOOL CKTSQLEditWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* n = reinterpret_cast<const SCNotification*>(lParam);
    if (!n || n->nmhdr.hwndFrom != GetSafeHwnd()) return CKTScinWnd::OnNotify(wParam, lParam, result);
    // Only the completion events ask the main window for the manager: most notifications
    // (fold changes while colouring, UI updates) have nothing to do with it.
    const UINT code = n->nmhdr.code;
    if (code != SCN_LISTREFRESH_EXT && code != SCN_LISTMORE_EXT && code != SCN_CHARADDED)
        return CKTScinWnd::OnNotify(wParam, lParam, result);
    CNamekitMgr* manager = completionManager();
    if (code == SCN_LISTREFRESH_EXT) {
        if (manager) manager->Refresh();
    } else if (code == SCN_LISTMORE_EXT) {
        CStringArray items;
        if (manager) manager->ShowMore(items);
        const CString more = CKTString::ArrayToString(items, "|", false);
        if (!more.IsEmpty() && directFunction)
            directFunction(directPointer, SCI_APPENDLIST_EXT, 0, reinterpret_cast<std::intptr_t>(applyChangeCase(more).c_str()));
    } else if (manager) {
        // A multi-byte character counts as a letter.
        if (!startsRequest(n->ch) && n->ch2 == 0) {
            cancelList();
            return CKTScinWnd::OnNotify(wParam, lParam, result);
        }
        if (n->ch == '.') cancelList();
        const CString name = getObjectAtCaret();
        if (name.IsEmpty()) {
            cancelList();
            return CKTScinWnd::OnNotify(wParam, lParam, result);
        }
        const CString query = name.Find('.') > 0 ? GetCurrentQuery() : CString();
        if (!manager->GetObjectList(this, name, query)) cancelList();
        return TRUE;  // a character that asked for completion does no indentation
    }
    return CKTScinWnd::OnNotify(wParam, lParam, result);
}

LRESULT CKTSQLEditWnd::OnGetData(WPARAM, LPARAM lParam) {
    const auto* answer = reinterpret_cast<const NamekitAnswer*>(lParam);
    // An answer that comes after the user has moved on is dropped.
    if (!answer || !SendEditor(SCI_GETFOCUS)) return 0;
    const CString name = getObjectAtCaret();
    const CString asked = answer->requestNameEx.IsEmpty() ? answer->requestName : answer->requestNameEx;
    if (asked != name) {
        cancelList();
        return 0;
    }
    const CString list = CKTString::ArrayToString(answer->items, "|", false);
    if (list.IsEmpty()) {
        cancelList();
        return 0;
    }
    const int typed = answer->nameParts.GetSize() > 0
                          ? answer->nameParts[answer->nameParts.GetSize() - 1].GetLength()
                          : name.GetLength();
    const CString shown = applyChangeCase(list);
    if (directFunction)
        directFunction(directPointer, SCI_SHOWLIST_EXT, std::uintptr_t(typed), reinterpret_cast<std::intptr_t>(shown.c_str()));
    return 0;
}

int CKTSQLEditWnd::DoDropAnother(COleDataObject*, const CPoint&) { return 0; }

int CKTSQLEditWnd::DoDropText(COleDataObject* data, const CPoint& point) {
    if (DoDropAnother(data, point)) return 1;
    if (!CKTScinWnd::DoDropText(data, point)) return 0;
    SetFocus();
    return 1;
}

namespace {
constexpr UINT kSaveFailedString = 1016;
constexpr UINT kSaveFilterString = 1017;
constexpr UINT kAnsiString = 1018;
constexpr UINT kUnicodeString = 1019;
constexpr unsigned long kSaveDialogFlags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_LONGNAMES;

// The wait cursor for the length of a write.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};
}  // namespace

bool CKTSQLEditWnd::Save(const char* startFolder) {
    if (!fileFolder.IsEmpty()) {
        // A named window writes at once, in the encoding it has (-1: the file decides).
        if (SaveFile(GetFilePath(), int(encoding))) return true;
        CKTResChange resources(nullptr);
        AfxMessageBox(kSaveFailedString, MB_ICONSTOP, 0);
        return false;
    }
    const int dot = fileName.ReverseFind('.');
    const CString extension = dot >= 0 ? fileName.Mid(dot + 1) : CString();
    CKTResChange resources(nullptr);
    CString filter, ansi, unicode;
    filter.LoadString(kSaveFilterString);
    ansi.LoadString(kAnsiString);
    unicode.LoadString(kUnicodeString);
    resources.Restore();

    CFileDialogEx dialog(0, extension, fileName, kSaveDialogFlags, filter, this, 0, 0);
    dialog.MultySubtype(true);
    for (int fileType = 0; fileType < 3; ++fileType) {
        dialog.AddSubType(fileType, ansi, 0);
        dialog.AddSubType(fileType, unicode, 0);
    }
    dialog.SetShowIndex(0);
    if (startFolder) dialog.GetOFN().lpstrInitialDir = startFolder;
    if (dialog.DoModal() != IDOK) return false;

    WaitCursor wait;
    const CString path = dialog.GetPathName();
    encoding = dialog.GetSubIndex() == 0 ? EncodingAnsi : EncodingUnicode;
    if (!SaveFile(path, int(encoding))) {
        AfxMessageBox(kSaveFailedString, MB_ICONSTOP, 0);
        return false;
    }
    fileName = dialog.GetFileName();
    const int cut = path.GetLength() - fileName.GetLength() - 1;
    fileFolder = cut > 0 ? path.Left(cut) : CString();
    return true;
}

const MessageMap* CKTSQLEditWnd::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CKTSQLEditWnd::GetThisMessageMap() {
    using W = CKTSQLEditWnd;
    static const std::vector<MessageMapEntry> entries = [] {
        std::vector<MessageMapEntry> list = {
            {WM_CREATE, 0, OnMessage<&W::OnCreate>},
            {WM_COMMAND, cmd::Comment, OnMessage<&W::OnEditComment>},
            {WM_COMMAND, cmd::RunStatement, OnMessage<&W::OnRunStatement>},
            {WM_COMMAND, cmd::Uncomment, OnMessage<&W::OnEditUncomment>},
            {kInsertTextMessage, 0, OnMessage<&W::OnInsertText>},
            {kCompletionAnswer, 0, OnMessage<&W::OnGetData>},
            {WM_COMMAND, cmd::MakeCode, OnMessage<&W::OnMakeCode>},
            {WM_UPDATE_COMMAND_UI, cmd::MakeCode, OnMessage<&W::OnUpdateMakeCode>},
            {WM_COMMAND, cmd::StripCode, OnMessage<&W::OnStripCode>},
            {WM_UPDATE_COMMAND_UI, cmd::StripCode, OnMessage<&W::OnUpdateStripCode>},
        };
        // Both menus' language entries choose the same language.
        for (const CodeLanguage& language : CodeLanguages())
            for (UINT id : {language.copyMenuId, language.pasteMenuId}) {
                list.push_back({WM_COMMAND, id, OnMessage<&W::OnCopyTo>});
                list.push_back({WM_UPDATE_COMMAND_UI, id, OnMessage<&W::OnUpdateCopyTo>});
            }
        return list;
    }();
    static const MessageMap map{CKTScinWnd::GetThisMessageMap(), entries.data(), entries.size()};
    return &map;
}
