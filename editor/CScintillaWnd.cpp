#include "CScintillaWnd.h"

#include <Qsci/qsciscintillabase.h>

#include <QMimeData>
#include <algorithm>
#include <exception>
#include <iterator>

#include "CEditReplaceDlg.h"
#include "CFindTextDlg.h"
#include "CGotoDlg.h"
#include "CKTRegistry.h"
#include "Settings.h"
#include "SqlStyles.h"
#include "CKTUtilTrace.h"
#include "LibraryOnly.h"
#include "MessageBox.h"
#include "MessageHandlers.h"
#include "QuillEngine.h"
#include "System.h"

int CScintillaWnd::m_nCntCreation = 0;

namespace {
constexpr UINT kDragAndDropMessage = 0x4FF;
constexpr UINT kCheckCopyMessage = 0x343B;
// The name traced for the default engine library.
constexpr const char* kDefaultEngineLibrary = "scilexer.dll";

// The engine QScintilla library this library is linked with, held open by the loader.
HINSTANCE linkedEngineHandle() { return LibraryContaining(&QsciScintillaBase::staticMetaObject); }
}  // namespace

CScintillaWnd::CScintillaWnd() : logLevel(CKTUtilTrace::GetDebugLogLevel()) {
    ++m_nCntCreation;
    fontSetting.Format("font:%s,size:%d", CKTMgrSetting::GetGlobalFontName().c_str(),
                       CKTMgrSetting::GetGlobalFontHeight());
}

CScintillaWnd::~CScintillaWnd() { --m_nCntCreation; }

void CScintillaWnd::GotoLine() {
    if (!gotoDialog) {
        gotoDialog = std::make_unique<CGotoDlg>(this);
        gotoDialog->Create(CGotoDlg::IDD, this);
    }
    gotoDialog->ShowWindow(SW_SHOW);
    if (QWidget* edit = gotoDialog->GetDlgItem(CGotoDlg::IDC_LINE_NUMBER)) edit->setFocus();
}

void CScintillaWnd::trace(const char* text, int sourceLine) const {
    if (logLevel >= 9) CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", text, sourceLine);
}

HINSTANCE CScintillaWnd::LoadScintillaDll(const char* path) {
    const char* name = path ? path : kDefaultEngineLibrary;
    HINSTANCE handle = path ? LoadLibrary(path) : linkedEngineHandle();
    if (handle) {
        QuillEngine::registerWindowClass();
        return handle;
    }
    const DWORD code = GetLastError();
    const CString message = GetLastErrorText();
    if (CKTUtilTrace::GetDebugLogLevel() >= 9) {
        CString line;
        line.Format("CScintillaWnd::LoadScintillaDll Fail GetLastError:[%u],%s, %s", unsigned(code), name,
                    message.c_str());
        CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
    }
    CString box;
    box.Format("%s : %s", name, message.c_str());
    AfxMessageBox(box, MB_OK, 0);
    return nullptr;
}

int CScintillaWnd::Create(const char* windowName, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    trace("CScintillaWnd::Create", __LINE__);
    if (!parent) {
        // A window with no parent is a host's mistake; the pauses leave room for a parent
        // being made on another path to show in the trace, as the host's support expects.
        for (int i = 0; i < 10; ++i) {
            CString line;
            line.Format("CScintillaWnd::Create- pParentWnd==NULL-%d", i);
            Sleep(100);
            CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
        }
        trace("CScintillaWnd::Create-Final-pParentWnd==NULL", __LINE__);
        return 0;
    }
    try {
        if (!CreateEx(WS_EX_CLIENTEDGE, "Scintilla", windowName, style | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, rect,
                      parent, id)) {
            const DWORD code = GetLastError();
            if (logLevel >= 9) {
                CString line;
                line.Format("CScintillaWnd::Create Fail [iRet:%d][iErr:%u],%p,%s", 0, unsigned(code),
                            static_cast<void*>(parent->GetSafeHwnd()), GetLastErrorText().c_str());
                CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
            }
            return 0;
        }
    } catch (const std::exception& e) {
        if (logLevel >= 9) {
            CString line;
            line.Format("CScintillaWnd::Create CException:%.1024s", e.what());
            CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
            line.Format("CScintillaWnd::Create CException:GetLastError()%u", unsigned(GetLastError()));
            CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
            line.Format("CScintillaWnd::Create CException:pParentWnd.HWnd:%p", static_cast<void*>(parent->GetSafeHwnd()));
            CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
            AfxMessageBox(e.what(), MB_ICONSTOP, 0);
        }
        return m_hWnd ? 1 : 0;
    }
    trace("CScintillaWnd::Create Success", __LINE__);
    return 1;
}

QuillEngine* CScintillaWnd::engine() const {
    QWidget* w = m_hWnd.data();
    if (!w) return nullptr;
    if (static_cast<QWidget*>(engine_) != w) const_cast<CScintillaWnd*>(this)->engine_ = dynamic_cast<QuillEngine*>(w);
    return engine_;
}

long CScintillaWnd::SendEditor(long message, WPARAM wParam, LPARAM lParam) {
    QuillEngine* e = engine();
    return e ? e->send(UINT(message), wParam, lParam) : 0;
}

int CScintillaWnd::sendStringToScin(int message, CString text) {
    const WPARAM wParam = message == SCI_APPENDTEXT ? WPARAM(text.GetLength()) : 0;
    SendEditor(message, wParam, reinterpret_cast<LPARAM>(text.c_str()));
    return 0;
}

int CScintillaWnd::sendEditorString(int message, WPARAM wParam, CString text) {
    return int(SendEditor(message, wParam, reinterpret_cast<LPARAM>(text.c_str())));
}

LRESULT CScintillaWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    // Engine messages start at 2000; window messages below that have no engine meaning.
    if (message >= 2000) return SendEditor(long(message), wParam, lParam);
    return CWnd::DefWindowProc(message, wParam, lParam);
}

void CScintillaWnd::initScintilla() {
    trace("CScintillaWnd::initScintilla", __LINE__);
    matchDocumentStyling(keyWordUsingPreCreate != 0);
    ApplyProFile();
    if (keyWordUsingPreCreate) {
        SetKeywordStyle();
        SendEditor(SCI_SETFOLDFLAGS, SC_FOLDFLAG_LINEAFTER_CONTRACTED);
        SendEditor(SCI_SETMARGINMASKN, 2, LPARAM(SC_MASK_FOLDERS));
        SendEditor(SCI_SETMODEVENTMASK, SC_MOD_CHANGEFOLD);
        SendEditor(SCI_SETMARGINSENSITIVEN, 2, 1);
        SendEditor(SCI_SETMARGINTYPEN, 2, SC_MARGIN_SYMBOL);
        static constexpr struct { long marker, symbol; } kFoldMarkers[] = {
            {SC_MARKNUM_FOLDEROPEN, SC_MARK_BOXMINUS},
            {SC_MARKNUM_FOLDER, SC_MARK_BOXPLUS},
            {SC_MARKNUM_FOLDERSUB, SC_MARK_VLINE},
            {SC_MARKNUM_FOLDERTAIL, SC_MARK_LCORNER},
            {SC_MARKNUM_FOLDEREND, SC_MARK_BOXPLUSCONNECTED},
            {SC_MARKNUM_FOLDEROPENMID, SC_MARK_BOXMINUSCONNECTED},
            {SC_MARKNUM_FOLDERMIDTAIL, SC_MARK_TCORNER},
        };
        for (const auto& m : kFoldMarkers) {
            SendEditor(SCI_MARKERDEFINE, WPARAM(m.marker), m.symbol);
            SendEditor(SCI_MARKERSETFORE, WPARAM(m.marker), 0xFFFFFF);
            SendEditor(SCI_MARKERSETBACK, WPARAM(m.marker), 0x808080);
        }
    } else {
        // "font:NAME,size:N": the name runs from the sixth character to the first comma.
        const int comma = fontSetting.Find(',');
        const int colon = fontSetting.ReverseFind(':');
        const CString name = comma > 5 ? fontSetting.Mid(5, comma - 5) : CString();
        const int size = colon >= 0 ? atoi(fontSetting.Mid(colon + 1)) : 0;
        SetFont(name, (unsigned long)(size * 10));
    }
    indentClosing = props.GetInt("indent.closing", 0);
    blockEnd = GetStyleAndWords("block.end");

    static constexpr struct { long style; COLORREF colour; } kStyleColours[] = {
        {SCE_SQL_DEFAULT, 0x000000},     {SCE_SQL_COMMENT, 0x009100},    {SCE_SQL_COMMENTLINE, 0x009100},
        {SCE_SQL_COMMENTDOC, 0x009100},  {SCE_SQL_NUMBER, 0x0000FF},     {SCE_SQL_WORD, 0xFF0000},
        {SCE_SQL_STRING, 0x000080},      {SCE_SQL_CHARACTER, 0x000080},  {SCE_SQL_OPERATOR, 0x000000},
        {SCE_SQL_IDENTIFIER, 0x000000},  {SCE_SQL_SQLPLUS_COMMENT, 0x009100}, {SCE_SQL_USER2, 0x800080},
    };
    for (const auto& s : kStyleColours) SendEditor(SCI_STYLESETFORE, WPARAM(s.style), LPARAM(s.colour));
    SendEditor(SCI_SETSELBACK, 1, 0xFFD6AD);
    SendEditor(SCI_STYLESETBACK, STYLE_BRACELIGHT, 0xD7D7D7);
    SendEditor(SCI_STYLESETFORE, STYLE_BRACELIGHT, 0x0000E1);
    SendEditor(SCI_STYLESETBOLD, STYLE_BRACELIGHT, 1);
    SendEditor(SCI_SETEOLMODE, SC_EOL_CRLF);
    SendEditor(SCI_SETTABINDENTS, 0);
    static constexpr struct { long marker, symbol; COLORREF back; } kMarks[] = {
        {0, SC_MARK_ROUNDRECT, 0xFDD228}, {1, SC_MARK_ROUNDRECT, 0x9F80FF}, {2, SC_MARK_SHORTARROW, 0x0FFFF3}};
    for (const auto& m : kMarks) DefineMarker(int(m.marker), int(m.symbol), 0x000000, m.back);
    {
        CKTMgrSetting setting(0);
        SetDisplayFolding(settings::FoldingMargin.Read(setting));
    }
    SendEditor(SCI_SETHSCROLLBAR, 1);
    SendEditor(SCI_SETVIRTUALSPACEOPTIONS, SCVS_RECTANGULARSELECTION);
    SendEditor(SCI_SETADDITIONALSELECTIONTYPING, 1);
    SendEditor(SCI_SETSCROLLWIDTHTRACKING, 1);
    SendEditor(SCI_SETSCROLLWIDTH, 1);
    SendEditor(SCI_INDICSETFORE, kWordHighlightIndicator, 0x00E0E0);
    SendEditor(SCI_INDICSETSTYLE, kWordHighlightIndicator, INDIC_STRAIGHTBOX);
    SendEditor(SCI_INDICSETALPHA, kWordHighlightIndicator, 192);
    SendEditor(SCI_INDICSETUNDER, kWordHighlightIndicator, 1);
    // The current match: a box with a solid outline, drawn after the word highlight so that
    // it shows on top of it and of the selection.
    SendEditor(SCI_INDICSETSTYLE, kCurrentMatchIndicator, INDIC_STRAIGHTBOX);
    SendEditor(SCI_INDICSETFORE, kCurrentMatchIndicator, 0x0080FF);
    SendEditor(SCI_INDICSETALPHA, kCurrentMatchIndicator, 110);
    SendEditor(SCI_INDICSETOUTLINEALPHA, kCurrentMatchIndicator, 255);
    SendEditor(SCI_INDICSETUNDER, kCurrentMatchIndicator, 1);
}

void CScintillaWnd::matchDocumentStyling(bool styled) {
    const bool hasStyles = !(SendEditor(SCI_GETDOCUMENTOPTIONS) & SC_DOCUMENTOPTION_STYLES_NONE);
    if (hasStyles == styled) return;
    // A window without a lexer shows everything in style 0, so its document keeps no style
    // bytes: every edit then moves half the memory, which is what an output window that
    // appends and trims on every line spends its time on. The swap happens only while the
    // document is empty, or when a styled document is needed again, carrying the text over.
    const long length = SendEditor(SCI_GETLENGTH);
    if (!styled && length > 0) return;
    CString text;
    if (length > 0) text = GetText();
    const bool modified = SendEditor(SCI_GETMODIFY) != 0;
    // Settings that belong to the document rather than the view go over to the new one.
    static constexpr struct { long get, set; } kDocumentSettings[] = {
        {SCI_GETCODEPAGE, SCI_SETCODEPAGE}, {SCI_GETEOLMODE, SCI_SETEOLMODE},
        {SCI_GETTABWIDTH, SCI_SETTABWIDTH}, {SCI_GETINDENT, SCI_SETINDENT},
        {SCI_GETUSETABS, SCI_SETUSETABS}, {SCI_GETTABINDENTS, SCI_SETTABINDENTS},
        {SCI_GETBACKSPACEUNINDENTS, SCI_SETBACKSPACEUNINDENTS}, {SCI_GETUNDOCOLLECTION, SCI_SETUNDOCOLLECTION},
        {SCI_GETREADONLY, SCI_SETREADONLY}};
    long values[std::size(kDocumentSettings)];
    for (size_t i = 0; i < std::size(kDocumentSettings); ++i) values[i] = SendEditor(kDocumentSettings[i].get);
    const LPARAM document = LPARAM(SendEditor(SCI_CREATEDOCUMENT, 0, styled ? SC_DOCUMENTOPTION_DEFAULT
                                                                              : SC_DOCUMENTOPTION_STYLES_NONE));
    SendEditor(SCI_SETDOCPOINTER, 0, document);
    SendEditor(SCI_RELEASEDOCUMENT, 0, document);  // the window holds the only reference now
    if (length > 0) {
        SendEditor(SCI_SETUNDOCOLLECTION, 0);
        SendEditor(SCI_APPENDTEXT, WPARAM(text.GetLength()), reinterpret_cast<LPARAM>(text.c_str()));
        if (!modified) SendEditor(SCI_SETSAVEPOINT);
    }
    for (size_t i = 0; i < std::size(kDocumentSettings); ++i) SendEditor(kDocumentSettings[i].set, WPARAM(values[i]));
}

void CScintillaWnd::UpdateUI() {
    trace("CScintillaWnd::UpdateUI", __LINE__);
    long position = GetCurrentPosition() - 1;
    long match = SendEditor(SCI_BRACEMATCH, WPARAM(position), 0);
    if (match < 0) position = match = -1;
    SendEditor(SCI_BRACEHIGHLIGHT, WPARAM(position), match);
    SetMarginWidth();
    HighLightingText();
    followCurrentMatch();
}

void CScintillaWnd::Refresh() { SendEditor(SCI_COLOURISE, 0, -1); }

void CScintillaWnd::ensureStyledTo(long position) {
    const long endStyled = SendEditor(SCI_GETENDSTYLED);
    if (endStyled < position) SendEditor(SCI_COLOURISE, WPARAM(std::max<long>(endStyled, 0)), position);
}

void CScintillaWnd::SetLexer(int lexer) { SendEditor(SCI_SETLEXER, WPARAM(lexer)); }

int CScintillaWnd::SetEncoding(int codePage) {
    if (codePage == SC_CP_UTF8) return int(SendEditor(SCI_SETCODEPAGE, SC_CP_UTF8));
    if (codePage > 0) ansiCodePage = codePage;
    return ansiCodePage;
}

long CScintillaWnd::OnCheckCopy(WPARAM, LPARAM) { return 1; }

void CScintillaWnd::OnSetFocus(CWnd* oldWindow) {
    SendEditor(SCI_GRABFOCUS);
    CWnd::OnSetFocus(oldWindow);
}

void CScintillaWnd::OnSize(UINT type, int cx, int cy) {
    CWnd::OnSize(type, cx, cy);
    HighLightingText();
}

LRESULT CScintillaWnd::OnDragNDrop(WPARAM wParam, LPARAM) {
    const auto* record = reinterpret_cast<const DropRecord*>(wParam);
    if (!record) return 0;
    COleDataObject data;
    data.Attach(static_cast<const QMimeData*>(record->dataObject), FALSE);
    const int result = DoDropText(&data, CPoint(record->x, record->y));
    data.Release();
    return result;
}

int CScintillaWnd::DoDropText(COleDataObject* data, const CPoint&) {
    const std::optional<QByteArray> bytes = data ? data->GetGlobalData(RegisterClipboardFormat("Tessel_OLEFormat"))
                                                 : std::nullopt;
    if (!bytes) return 0;
    // The text lands where the mouse is now, in coordinates of the text area (inside the
    // window's frame), which is what the engine's positions are measured in.
    POINT cursor;
    ::GetCursorPos(&cursor);
    QuillEngine* e = engine();
    const QPoint origin = e ? e->viewport()->mapToGlobal(QPoint(0, 0)) : QPoint();
    POINT at{cursor.x - origin.x(), cursor.y - origin.y()};
    DropText(&at, CString(bytes->constData()));
    return 1;
}

const MessageMap* CScintillaWnd::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CScintillaWnd::GetThisMessageMap() {
    static const MessageMapEntry entries[] = {
        {WM_SETFOCUS, 0,
         [](CWnd* w, WPARAM wParam, LPARAM) -> LRESULT {
             static_cast<CScintillaWnd*>(w)->OnSetFocus(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)));
             return 0;
         }},
        {kDragAndDropMessage, 0, OnMessage<&CScintillaWnd::OnDragNDrop>},
        {WM_SIZE, 0,
         [](CWnd* w, WPARAM wParam, LPARAM lParam) -> LRESULT {
             static_cast<CScintillaWnd*>(w)->OnSize(UINT(wParam), LOWORD(WPARAM(lParam)), HIWORD(WPARAM(lParam)));
             return 0;
         }},
        {kCheckCopyMessage, 0, OnMessage<&CScintillaWnd::OnCheckCopy>},
    };
    static const MessageMap map{CWnd::GetThisMessageMap(), entries, std::size(entries)};
    return &map;
}
