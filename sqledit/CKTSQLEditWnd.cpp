#include "CKTSQLEditWnd.h"

#include <QApplication>
#include <QGuiApplication>

#include "CKTRegistry.h"
#include "CommandIds.h"
#include "QuillEngine.h"

namespace {
// The direct line hands every message to the engine link, extension messages included.
long directCall(void* pointer, unsigned int message, std::uintptr_t wParam, std::intptr_t lParam) {
    return pointer ? static_cast<QuillEngine*>(pointer)->send(message, wParam, lParam) : 0;
}
}  // namespace

CKTSQLEditWnd::CKTSQLEditWnd() { setOption(); }

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
    if (setting.GetKey()) changeCase = setting.GetInt("Change Case", 0);
    CKTScinWnd::ApplyOptionOnRealtime();
}

void CKTSQLEditWnd::GotoPosition(int position, bool selectWord) {
    SendEditor(SCI_GOTOPOS, WPARAM(position));
    if (selectWord) SelectWordFromCurrentPos();
}

void CKTSQLEditWnd::setOption() {
    CKTMgrSetting setting(0);
    CString stored = LangCodeStoredName(scriptLangCode);
    if (setting.GetKey()) stored = setting.GetString("Editor Default Code", stored);
    LangCodeFromStoredName(stored, scriptLangCode);  // a text that names no language changes nothing
}

void CKTSQLEditWnd::saveOption() {
    CKTMgrSetting setting(0);
    if (setting.GetKey()) setting.SetString("Editor Default Code", LangCodeStoredName(scriptLangCode));
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

int CKTSQLEditWnd::DoDropAnother(COleDataObject*, const CPoint&) { return 0; }

int CKTSQLEditWnd::DoDropText(COleDataObject* data, const CPoint& point) {
    if (DoDropAnother(data, point)) return 1;
    if (!CKTScinWnd::DoDropText(data, point)) return 0;
    SetFocus();
    return 1;
}

bool CKTSQLEditWnd::Save(const char*) { return false; }

const MessageMap* CKTSQLEditWnd::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CKTSQLEditWnd::GetThisMessageMap() {
    static const MessageMapEntry entries[] = {
        {WM_CREATE, 0, [](CWnd* w, WPARAM, LPARAM) -> LRESULT { return static_cast<CKTSQLEditWnd*>(w)->OnCreate(); }},
        {WM_COMMAND, cmd::Comment,
         [](CWnd* w, WPARAM, LPARAM) -> LRESULT {
             static_cast<CKTSQLEditWnd*>(w)->OnEditComment();
             return 0;
         }},
        {WM_COMMAND, cmd::Uncomment,
         [](CWnd* w, WPARAM, LPARAM) -> LRESULT {
             static_cast<CKTSQLEditWnd*>(w)->OnEditUncomment();
             return 0;
         }},
        {kInsertTextMessage, 0,
         [](CWnd* w, WPARAM wParam, LPARAM lParam) -> LRESULT {
             return static_cast<CKTSQLEditWnd*>(w)->OnInsertText(wParam, lParam);
         }},
    };
    static const MessageMap map{CKTScinWnd::GetThisMessageMap(), entries, std::size(entries)};
    return &map;
}
