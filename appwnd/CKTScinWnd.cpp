#include "CKTScinWnd.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QMimeData>
#include <QPalette>
#include <QProcess>
#include <algorithm>
#include <cstdlib>

#include "CEditorFailDlg.h"
#include "ColourTheme.h"
#include "TextAnnotations.h"
#include "CKTRegistry.h"
#include "Settings.h"
#include "SqlStyles.h"
#include "CKTUtil.h"
#include "CKTUtilTrace.h"
#include "CommandIds.h"
#include "MessageHandlers.h"
#include "QuillEngine.h"
#include "Resources.h"
#include "System.h"

namespace {
// The six colour groups; their default colours come from the colour theme.
struct ColourRow {
    EM_ColorIndex index;
    const char* valueName;
    std::vector<int> styles;  // styles of the SQL lexer the colour applies to
};

const ColourRow kColourRows[] = {
    {ColorText, "Text", {SCE_SQL_DEFAULT, SCE_SQL_OPERATOR, SCE_SQL_IDENTIFIER}},
    {ColorNumber, "Number", {SCE_SQL_NUMBER}},
    {ColorString, "String", {SCE_SQL_STRING, SCE_SQL_CHARACTER}},
    {ColorKeyword, "Keyword", {SCE_SQL_WORD}},
    {ColorFunction, "Function", {SCE_SQL_USER2}},
    {ColorComment, "Comment", {SCE_SQL_COMMENT, SCE_SQL_COMMENTLINE, SCE_SQL_COMMENTDOC, SCE_SQL_SQLPLUS_COMMENT}},
};

bool isGroupStyle(int style) {
    for (const ColourRow& row : kColourRows)
        if (std::find(row.styles.begin(), row.styles.end(), style) != row.styles.end()) return true;
    return false;
}

constexpr unsigned int kDefaultFontNameString = 277;

// The code page "ANSI" means for the system language.
int CodePageForLanguage(LANGID language) {
    switch (language) {
        case 1028: return 950;
        case 1041: return 932;
        case 2052: return 936;
        default: return 949;
    }
}
}  // namespace

COLORREF CKTScinWnd::SystemWindowColour() {
    // Read once, at the first use after the application object exists.
    static COLORREF colour = [] {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return COLORREF(0xFFFFFF);
        const QColor base = QApplication::palette().color(QPalette::Base);
        return RGB(base.red(), base.green(), base.blue());
    }();
    return colour;
}

CKTScinWnd::CKTScinWnd()
    : debugLogLevel(CKTUtilTrace::GetDebugLogLevel()),
      annotations(std::make_unique<TextAnnotations>(
          [this](long message, WPARAM wParam, LPARAM lParam) { return SendEditor(message, wParam, lParam); })) {
    traceEntry("CKTScinWnd::CKTScinWnd", __LINE__);
}

CKTScinWnd::~CKTScinWnd() = default;

void CKTScinWnd::traceEntry(const char* where, int sourceLine) const {
    if (debugLogLevel >= 9) CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", where, sourceLine);
}

int CKTScinWnd::Create(const char* name, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    traceEntry("CKTScinWnd::Create", __LINE__);
    if (!CScintillaWnd::Create(name, style, rect, parent, id)) {
        CEditorFailDlg failure;
        if (failure.DoModal() != IDCANCEL && failure.runLauncher) {
            const QString launcher = CKTFile::GetAppFolder().toQString() + QStringLiteral("/Launcher");
            if (QFileInfo(launcher).isFile()) QProcess::startDetached(launcher, {});
        }
        return 0;
    }
    accelerators = LoadAccelerators(IDR_EDITOR_ACCELERATORS);
    comfortAccelerators = LoadAccelerators(IDR_COMFORT_ACCELERATORS);
    ModifyStyle(0, WS_CLIPCHILDREN);
    initScintilla();
    SetEncoding(CodePageForLanguage(GetSystemDefaultLangID()));
    ApplyOptionOnRealtime();
    return 1;
}

bool CKTScinWnd::Save(const char*) { return false; }

int CKTScinWnd::LoadFile(CString path) {
    if (path.IsEmpty()) return 1;
    if (SendEditor(SCI_GETREADONLY)) {
        // A read-only window (the output viewer) replaces its text through its own guarded
        // SetText, which lifts read-only for the change.
        CString text;
        if (!readFileText(path, text)) return 0;
        lastFileError.Empty();
        SendEditor(SCI_CLEARALL);
        reconfigure();
        SetText(std::move(text), 0);
    } else {
        // The file streams into the engine without a second copy of its text; a load that
        // fails leaves the document as it was.
        if (!CScintillaWnd::LoadFile(path.c_str())) return 0;
        reconfigure();
    }
    SendEditor(SCI_EMPTYUNDOBUFFER);
    SendEditor(SCI_SETSAVEPOINT);  // also for an empty file
    GotoPosition(0);
    return 1;
}

void CKTScinWnd::reconfigure() {
    initScintilla();
    ApplyOptionOnRealtime();  // the property file's styles must not stand for the user's own
}

int CKTScinWnd::SaveFile(const char* path, int encoding) { return CScintillaWnd::SaveFile(path, encoding, fileBackup != 0); }

void CKTScinWnd::OnModified(bool) {}

void CKTScinWnd::ApplyOptionOnRealtime() {
    CKTMgrSetting setting(0);
    const char* fontResource = LoadResourceString(kDefaultFontNameString);
    CString fontName = fontResource && *fontResource ? CString(fontResource) : CKTMgrSetting::GetGlobalFontName();
    applyComfortOptions(setting);
    fontName = settings::EditorFontName.Read(setting, fontName);
    const int fontSize = settings::EditorFontSize.Read(setting);
    const int folding = settings::FoldingMargin.Read(setting);
    const int keepTab = settings::KeepTab.Read(setting);
    const int backup = settings::FileBackup.Read(setting);
    const int tabSize = settings::TabSize.Read(setting);
    blankAfterComment = settings::BlankAfterComment.Read(setting, blankAfterComment);
    const int keepEnds = settings::KeepLineEnds.Read(setting);
    SetFont(fontName, (unsigned long)(fontSize * 10));
    SetDisplayFolding(folding);
    SendEditor(SCI_SETTABWIDTH, WPARAM(tabSize));
    SendEditor(SCI_SETUSETABS, keepTab ? 1 : 0);
    if (keepTab) {
        SendEditor(SCI_SETTABINDENTS, WPARAM(keepTab));
        SendEditor(SCI_SETINDENT, WPARAM(SendEditor(SCI_GETTABWIDTH)));
    }
    fileBackup = backup;
    keepLineEnds = keepEnds != 0;
    SetColorFromReg(SendEditor(SCI_GETREADONLY) == 0 ? 1 : 0);
    applyThemeColours();
}

void CKTScinWnd::ApplyVisualOption() {
    reconfigure();
    Refresh();
}

void CKTScinWnd::setForegroundColor(EM_ColorIndex index, unsigned long colour) {
    for (const ColourRow& row : kColourRows) {
        if (row.index != index) continue;
        if (!keyWordUsingPreCreate) {
            // Without the SQL lexer only the text colour means anything, on the default style.
            if (index == ColorText) SendEditor(SCI_STYLESETFORE, SCE_SQL_DEFAULT, LPARAM(colour));
            return;
        }
        for (int style : row.styles) SendEditor(SCI_STYLESETFORE, WPARAM(style), LPARAM(colour));
    }
}

void CKTScinWnd::SetColorFromReg(int editable) {
    const ColourTheme& theme = ColourTheme::ForSetting(colourTheme);
    COLORREF editBackground =
        theme.editBackground == ColourTheme::kEngineDefault ? SystemWindowColour() : theme.editBackground;
    COLORREF readOnlyBackground = theme.readOnlyBackground;
    CKTMgrSetting setting(0);
    CKTRegistry colours, mode;
    if (setting.GetKey() && colours.Open(setting.GetKey(), settings::EditorColorKey)) {
        editBackground = colours.GetDWORD(settings::EditBackgroundColor, editBackground);
        readOnlyBackground = colours.GetDWORD(settings::ReadOnlyBackgroundColor, readOnlyBackground);
        mode.Open(colours.GetKey(), editable ? settings::EditableColorsKey : settings::ReadOnlyColorsKey);
    }
    for (const ColourRow& row : kColourRows) {
        const COLORREF fallback = theme.groups[row.index];
        setForegroundColor(row.index, mode.GetKey() ? mode.GetDWORD(row.valueName, fallback) : fallback);
    }
    const COLORREF background = editable ? editBackground : readOnlyBackground;
    if (GetBackgroundColor() != background) SetBackgroundColor(background);
}

void CKTScinWnd::applyThemeColours() {
    const ColourTheme& theme = ColourTheme::ForSetting(colourTheme);
    SendEditor(SCI_SETSELBACK, 1, LPARAM(theme.selectionBack));
    SendEditor(SCI_SETADDITIONALSELBACK, theme.additionalSelectionBack);
    SendEditor(SCI_SETCARETFORE, theme.caret);
    SendEditor(SCI_SETADDITIONALCARETFORE, theme.additionalCaret);
    SendEditor(SCI_SETCARETLINEBACK, theme.caretLineBack);
    SendEditor(SCI_STYLESETFORE, STYLE_LINENUMBER, LPARAM(theme.marginFore));
    SendEditor(SCI_STYLESETBACK, STYLE_LINENUMBER, LPARAM(theme.marginBack));
    const bool ownFoldMargin = theme.foldMarginBack != ColourTheme::kEngineDefault;
    SendEditor(SCI_SETFOLDMARGINCOLOUR, ownFoldMargin, ownFoldMargin ? LPARAM(theme.foldMarginBack) : 0);
    SendEditor(SCI_SETFOLDMARGINHICOLOUR, ownFoldMargin, ownFoldMargin ? LPARAM(theme.foldMarginBack) : 0);
    for (long marker = SC_MARKNUM_FOLDEREND; marker <= SC_MARKNUM_FOLDEROPEN; ++marker) {
        SendEditor(SCI_MARKERSETFORE, WPARAM(marker), LPARAM(theme.foldMarkerFore));
        SendEditor(SCI_MARKERSETBACK, WPARAM(marker), LPARAM(theme.foldMarkerBack));
    }
    SendEditor(SCI_STYLESETFORE, STYLE_BRACELIGHT, LPARAM(theme.braceFore));
    SendEditor(SCI_STYLESETBACK, STYLE_BRACELIGHT, LPARAM(theme.braceBack));
    SendEditor(SCI_STYLESETFORE, STYLE_BRACEBAD, LPARAM(theme.badBraceFore));
    SendEditor(SCI_INDICSETFORE, kWordHighlightIndicator, LPARAM(theme.wordHighlight));
    SendEditor(SCI_INDICSETFORE, kCurrentMatchIndicator, LPARAM(theme.currentMatch));
    SendEditor(SCI_INDICSETALPHA, kCurrentMatchIndicator, theme.currentMatchAlpha);
    annotations->SetColours(theme.annotationFore, theme.annotationBack, theme.annotationMark);
    if (!theme.dark) return;
    // Styles the groups do not cover keep the colours the property file gave them, made
    // readable on the background: the property file's colours are chosen for a light one.
    const COLORREF background = GetBackgroundColor();
    constexpr double kReadable = 4.5;
    for (int style = 0; style <= STYLE_LASTPREDEFINED; ++style) {
        if (isGroupStyle(style) || style == STYLE_LINENUMBER || style == STYLE_BRACELIGHT || style == STYLE_BRACEBAD)
            continue;
        if (style > STYLE_DEFAULT) SendEditor(SCI_STYLESETBACK, WPARAM(style), LPARAM(background));
        // A style left at the default black is text like any other.
        COLORREF fore = COLORREF(SendEditor(SCI_STYLEGETFORE, WPARAM(style)));
        if (fore == 0x000000) fore = theme.groups[ColorText];
        SendEditor(SCI_STYLESETFORE, WPARAM(style), LPARAM(WithContrast(fore, background, kReadable)));
    }
}

void CKTScinWnd::SetFilePath(CString path) {
    const int separator = std::max(path.ReverseFind('/'), path.ReverseFind('\\'));
    if (separator > 0) {
        fileFolder = path.Left(separator);
        fileName = path.Mid(separator + 1);
    } else {
        fileFolder.Empty();
        fileName = path;
    }
}

CString CKTScinWnd::GetFilePath() const {
    if (!fileFolder.IsEmpty() && !fileName.IsEmpty()) return fileFolder + "/" + fileName;
    if (!fileName.IsEmpty()) return fileName;
    return CString();
}

CString CKTScinWnd::GetFontName() const {
    CString name = fontSetting;
    name.TrimLeft();
    name = name.Mid(5);
    const int end = name.Find(",size:");
    return end >= 0 ? name.Left(end) : name;
}

int CKTScinWnd::GetFontSize() const {
    CString size = fontSetting;
    size.Trim();
    return atoi(size.Mid(size.ReverseFind(':') + 1));
}

void CKTScinWnd::SetReadOnlyMode(int on) {
    SendEditor(SCI_SETREADONLY, on != 0 ? 1 : 0);
    SetBackgroundColor(on ? 0xC3C3C3 : 0xFFFFFF);
}

int CKTScinWnd::SetTextForReadOnly(CString text, int keepUndo) {
    SendEditor(SCI_SETREADONLY, 0);
    const int result = SetText(std::move(text), keepUndo);
    SendEditor(SCI_SETREADONLY, 1);
    return result;
}

void CKTScinWnd::GoToPosFromWindowPoint(CPoint screenPoint) {
    traceEntry("CKTScinWnd::GoToPosFromWindowPoint", __LINE__);
    // Engine coordinates are those of the text area inside the window's frame.
    QuillEngine* e = engine();
    if (!e) return;
    const QPoint origin = e->viewport()->mapToGlobal(QPoint(0, 0));
    const long position = SendEditor(SCI_POSITIONFROMPOINT, WPARAM(screenPoint.x - origin.x()), screenPoint.y - origin.y());
    GotoPosition(position);
}

void CKTScinWnd::GotoOffset(int delta) { SetCurrentPosition(int(GetCurrentPosition()) + delta); }

void CKTScinWnd::EnsureVisible(CPoint place) {
    SendEditor(SCI_GOTOPOS, WPARAM(SendEditor(SCI_POSITIONFROMLINE, WPARAM(place.y)) + place.x));
}

void CKTScinWnd::GetSelectLocation(int& start, int& end) {
    start = int(GetSelectionStart());
    end = int(GetSelectionEnd());
}

int CKTScinWnd::GetFromClipboard(CString& text) {
    const QMimeData* data = QGuiApplication::clipboard() ? QGuiApplication::clipboard()->mimeData() : nullptr;
    if (!data || !data->hasText()) return 0;
    const QByteArray bytes = data->text().toUtf8();
    text = CString(bytes.constData());  // the clipboard's text ends at its first NUL
    return 1;
}

int CKTScinWnd::IsTextInClipboard() {
    const QMimeData* data = QGuiApplication::clipboard() ? QGuiApplication::clipboard()->mimeData() : nullptr;
    return data && data->hasText() ? 1 : 0;
}

int CKTScinWnd::GetLinesOnScreen() { return int(SendEditor(SCI_LINESONSCREEN)); }

void CKTScinWnd::SetLineFlag(int line, int marker, int set) {
    if (set)
        AddMark(marker, line);
    else
        DeleteMark(marker, line);
}

void CKTScinWnd::refreshHScrollSize(int samples) {
    const long charWidth = std::max(1L, SendEditor(SCI_TEXTWIDTH, STYLE_DEFAULT, reinterpret_cast<LPARAM>("A")));
    long longest = std::max(1L, SendEditor(SCI_GETSCROLLWIDTH) / charWidth);
    const long lines = SendEditor(SCI_GETLINECOUNT);
    const long step = std::max(1L, lines / std::max(samples, 1));
    for (long line = 1; line < lines; line += step) longest = std::max(longest, SendEditor(SCI_LINELENGTH, WPARAM(line)));
    const long width = longest * charWidth;
    if (width > SendEditor(SCI_GETSCROLLWIDTH)) SendEditor(SCI_SETSCROLLWIDTH, WPARAM(width));
}

BOOL CKTScinWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* n = reinterpret_cast<const SCNotification*>(lParam);
    if (!n || n->nmhdr.hwndFrom != GetSafeHwnd()) return CScintillaWnd::OnNotify(wParam, lParam, result);
    switch (n->nmhdr.code) {
        case SCN_CHARADDED: CharAdded(char(n->ch)); break;
        case SCN_SAVEPOINTREACHED: OnModified(false); break;
        case SCN_SAVEPOINTLEFT: OnModified(true); break;
        case SCN_UPDATEUI:
            if (n->updated & SC_UPDATE_CONTENT) annotations->FollowEdits();
            UpdateUI();
            break;
        case SCN_ZOOM: storeZoom(); break;
        case SCN_MODIFIED:
            if (n->modificationType & SC_MOD_CHANGEFOLD) FoldChanged(int(n->line), n->foldLevelNow, n->foldLevelPrev);
            break;
        case SCN_MARGINCLICK: DoDefaultFolding(n->margin, n->position); break;
        case SCN_NEEDSHOWN: EnsureRangeVisible(int(n->position), int(n->position + n->length), false); break;
        default: break;
    }
    if (result) *result = 1;
    return TRUE;
}

bool CKTScinWnd::IsKeyMessage(const MSG* msg) { return msg && msg->message >= WM_KEYFIRST && msg->message <= WM_KEYLAST; }

// A key of the table whose command this window does not handle (the host's own keys) is not
// claimed ahead of the host's shortcuts; one that reaches the window does nothing.
// The comfort keys come after the table, so that a key the table takes stays the table's.
BOOL CKTScinWnd::PreTranslateMessage(MSG* msg) {
    if (IsKeyMessage(msg) && accelerators && TranslateAccelerator(this, accelerators, msg)) return TRUE;
    if (const UINT command = comfortCommand(msg)) {
        SendMessage(WM_COMMAND, MakeCommandWParam(command, 1), 0);
        return TRUE;
    }
    if (isEscapeToOneCaret(msg)) {
        returnToOneCaret();
        return TRUE;
    }
    return CScintillaWnd::PreTranslateMessage(msg);
}

BOOL CKTScinWnd::IsAcceleratorKey(const MSG* msg) const {
    if (!IsKeyMessage(msg)) return FALSE;
    const UINT command = accelerators ? FindAccelerator(accelerators, msg) : 0;
    if (command != 0 && HasCommandHandler(command)) return TRUE;
    return comfortCommand(msg) != 0 || isEscapeToOneCaret(msg);
}

const MessageMap* CKTScinWnd::GetMessageMap() const { return GetThisMessageMap(); }

namespace {
using SimpleCommand = void (CScintillaWnd::*)();
struct CommandRow {
    UINT id;
    SimpleCommand member;
};

// The commands that are one call of the editor window; filled by GetThisMessageMap, which
// may name the protected members.
std::vector<CommandRow>& simpleCommands() {
    static std::vector<CommandRow> rows;
    return rows;
}

LRESULT runSimpleCommand(CWnd* window, WPARAM wParam, LPARAM) {
    for (const CommandRow& row : simpleCommands())
        if (row.id == LOWORD(wParam)) (static_cast<CScintillaWnd*>(window)->*row.member)();
    return 0;
}
}  // namespace

const MessageMap* CKTScinWnd::GetThisMessageMap() {
    static const std::vector<MessageMapEntry> entries = [] {
        using C = CKTScinWnd;
        simpleCommands() = {
            {cmd::EditClear, &C::ClearContent},     {cmd::EditCut, &C::Cut},
            {cmd::EditCopy, &C::Copy},              {cmd::EditPaste, &C::Paste},
            {cmd::EditUndo, &C::Undo},              {cmd::EditRedo, &C::Redo},
            {cmd::EditSelectAll, &C::SelectAll},    {cmd::DeleteChar, &C::Clear},
            {cmd::DeleteBack, &C::DeleteBack},      {cmd::DeleteWordRight, &C::DelWordRight},
            {cmd::DeleteWordLeft, &C::DelCtrlBack}, {cmd::Left, &C::Left},
            {cmd::Right, &C::Right},                {cmd::LeftWord, &C::LeftWord},
            {cmd::RightWord, &C::RightWord},        {cmd::Up, &C::Up},
            {cmd::Down, &C::Down},                  {cmd::ScrollUp, &C::UpScroll},
            {cmd::ScrollDown, &C::DownScroll},      {cmd::PageUp, &C::PageUp},
            {cmd::PageDown, &C::PageDown},          {cmd::LineEnd, &C::LineEnd},
            {cmd::LineHead, &C::LineHead},          {cmd::EditorHead, &C::PageHead},
            {cmd::EditorEnd, &C::PageEnd},          {cmd::LowerCase, &C::LowerCase},
            {cmd::UpperCase, &C::UpperCase},        {cmd::Capitalize, &C::Capitalize},
            {cmd::Sentencize, &C::Sentencize},      {cmd::InvertCase, &C::Invertcase},
            {cmd::GotoLine, static_cast<void (CScintillaWnd::*)()>(&C::GotoLine)},
        };
        std::vector<MessageMapEntry> list;
        for (const CommandRow& row : simpleCommands()) list.push_back({WM_COMMAND, row.id, runSimpleCommand});
        list.push_back({WM_COMMAND, cmd::FormatSql, OnMessage<&CKTScinWnd::OnFormatSql>});
        list.push_back({WM_UPDATE_COMMAND_UI, cmd::FormatSql, OnMessage<&CKTScinWnd::OnUpdateFormatSql>});
        for (const std::vector<MessageMapEntry>& more : {MenuCommandEntries(), ComfortCommandEntries()})
            list.insert(list.end(), more.begin(), more.end());
        return list;
    }();
    static const MessageMap map{CScintillaWnd::GetThisMessageMap(), entries.data(), entries.size()};
    return &map;
}
