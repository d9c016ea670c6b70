// Printing and preview: the document goes to a device context page by page through the
// engine's SCI_FORMATRANGE, which draws one page and says where the next one starts. Around it
// the window lays out the page from the device's physical numbers, draws a header and a footer
// from the templates in the property file, counts pages and picks the range to print.
#include <QDate>
#include <QLocale>
#include <QTime>
#include <algorithm>
#include <cstdio>

#include "CScintillaWnd.h"
#include "LibraryOnly.h"
#include "MessageBox.h"
#include "Resources.h"

namespace {

// The engine's page request. EngineTypes.h has no copy of it: only this file asks for pages.
// The surfaces are QPainter pointers, the layout the Qt engine reads.
struct Sci_Rectangle {
    int left;
    int top;
    int right;
    int bottom;
};

struct Sci_RangeToFormat {
    void* hdc;
    void* hdcTarget;
    Sci_Rectangle rc;
    Sci_Rectangle rcPage;
    Sci_CharacterRange chrg;
};

constexpr const char* kPrintDocumentName = "Temp";
constexpr UINT kCannotStartDocument = 8200;   // "Can not start printer document."
constexpr int kDateTimeLimit = 100;            // bytes of a date or time text, with its NUL

Sci_Rectangle toSciRect(const RECT& r) { return Sci_Rectangle{r.left, r.top, r.right, r.bottom}; }

// The date and time texts end before the limit, on a whole character.
CString limitedText(const QString& text) {
    QByteArray bytes = text.toUtf8();
    QString shorter = text;
    while (bytes.size() > kDateTimeLimit - 1 && !shorter.isEmpty()) {
        shorter.chop(1);
        bytes = shorter.toUtf8();
    }
    return CString(bytes.toStdString());
}

// A header or footer line: its template key, style and font for one pass.
struct PageLine {
    const char* formatKey;
    bool present = false;     // a template is set: the line is drawn and has its room
    StyleDefinition style;
    CFont font;
    int lineHeight = 0;
    COLORREF fore = 0;
    COLORREF back = 0;

    explicit PageLine(const char* key) : formatKey(key) {}

    void prepare(const PropSet& props, const char* styleKey, CDC& dc) {
        present = props.Get(formatKey).length() > 0;
        style.ParseStyleDefinition(props.GetExpanded(styleKey).c_str());
        const int size = (style.specified & StyleDefinition::sdSize) ? style.size : 9;
        const int height = MulDiv(size, dc.GetDeviceCaps(LOGPIXELSY), 72);
        const char* face = (style.specified & StyleDefinition::sdFont) && style.font.length() ? style.font.c_str() : "Arial";
        font.CreateFont(height, style.bold ? FW_BOLD : FW_NORMAL, style.italics, style.underlined, face);
        dc.SelectObject(&font);
        TEXTMETRIC metrics;
        dc.GetTextMetrics(&metrics);
        lineHeight = metrics.tmHeight + metrics.tmExternalLeading;
        // A colour the style does not name is black.
        fore = (style.specified & StyleDefinition::sdFore) ? COLORREF(style.ForeAsLong()) : 0;
        back = (style.specified & StyleDefinition::sdBack) ? COLORREF(style.BackAsLong()) : 0;
    }
};

// A header sits above the text frame and a footer below it, each on a box of its background
// colour, with a rule between it and the body. Text and rule lie half a line and a quarter of
// a line from the frame.
enum class PageEdge { Top, Bottom };

void drawPageLine(CDC& dc, const PropSet& pass, PageLine& line, const RECT& frame, PageEdge edge) {
    const bool top = edge == PageEdge::Top;
    const int outward = top ? -1 : 1;
    const int border = top ? frame.top : frame.bottom;
    const int height = line.lineHeight;
    const SString text = pass.GetExpanded(line.formatKey);
    dc.SetTextColor(line.fore);
    dc.SetBkColor(line.back);
    dc.SelectObject(&line.font);
    const UINT alignment = dc.SetTextAlign(top ? TA_BOTTOM : TA_TOP);
    const int y = border + outward * (height / 2);
    const RECT box{frame.left, top ? y - height : y, frame.right, top ? y : y + height};
    dc.ExtTextOut(frame.left + 5, y, ETO_OPAQUE, &box, text.c_str(), text.length());
    dc.SetTextAlign(alignment);

    CPen pen;
    pen.CreatePen(PS_SOLID, 1, line.fore);
    CPen* previous = dc.SelectObject(&pen);
    dc.MoveTo(frame.left, border + outward * (height / 4));
    dc.LineTo(frame.right, border + outward * (height / 4));
    dc.SelectObject(previous);
    pen.DeleteObject();
}

}  // namespace

void CScintillaWnd::SetFileProperties(PropSet& target) {
    // The window keeps no path for its document, so the file's own keys stay empty.
    target.Set("FileTime", "");
    target.Set("FileDate", "");
    target.Set("FileAttr", "");
    const QLocale locale = QLocale::system();
    target.Set("CurrentDate", limitedText(locale.toString(QDate::currentDate(), QLocale::ShortFormat)).c_str());
    target.Set("CurrentTime", limitedText(locale.toString(QTime::currentTime(), QLocale::ShortFormat)).c_str());
}

void CScintillaWnd::Print(bool showDialog) {
    PRINTDLG dialog;
    dialog.hwndOwner = GetSafeHwnd();
    dialog.Flags = PD_USEDEVMODECOPIES | PD_RETURNDC;
    const long selectionStart = SendEditor(SCI_GETSELECTIONSTART);
    const long selectionEnd = SendEditor(SCI_GETSELECTIONEND);
    dialog.Flags |= selectionStart == selectionEnd ? PD_NOSELECTION : PD_SELECTION;
    if (!showDialog) dialog.Flags |= PD_RETURNDEFAULT;
    dialog.nFromPage = 1;
    dialog.nToPage = 1;
    dialog.nMinPage = 1;
    dialog.nMaxPage = 0xFFFF;
    dialog.nCopies = 1;
    dialog.hDevMode = std::move(printDevMode);
    dialog.hDevNames = std::move(printDevNames);

    const BOOL chosen = PrintDlg(&dialog);
    // The setup goes back to the window either way, for the next dialog to start from.
    printDevMode = std::move(dialog.hDevMode);
    printDevNames = std::move(dialog.hDevNames);
    if (!chosen) {
        trace("CScintillaWnd::Print print dialog cancelled", __LINE__);
        return;
    }
    if (!dialog.hDC) {
        AfxMessageBox(kCannotStartDocument, MB_OK);
        return;
    }
    const bool pageRange = (dialog.Flags & PD_PAGENUMS) != 0;
    printPass(*dialog.hDC, (dialog.Flags & PD_SELECTION) != 0, pageRange, dialog.nFromPage, dialog.nToPage, true);
}

long CScintillaWnd::PrintPreview(CDC* dc, CPrintInfo*) {
    if (!dc) return 0;
    const bool selection = SendEditor(SCI_GETSELECTIONSTART) != SendEditor(SCI_GETSELECTIONEND);
    return printPass(*dc, selection, false, 0, 0, false);
}

long CScintillaWnd::PrintPage(CDC* dc, CPrintInfo*, long start, long end, CRect rect) {
    QPainter* surface = dc ? dc->GetSafeHdc() : nullptr;
    if (!surface) return 0;   // nothing to draw on: the engine's own answer for a missing surface
    const long length = SendEditor(SCI_GETLENGTH);
    start = std::clamp(start, 0L, length);
    end = std::clamp(end, start, length);
    // A rectangle that holds no line would make the engine wrap into nothing.
    if (rect.Width() <= 0 || rect.Height() <= 0) return start;
    Sci_RangeToFormat range{};
    range.hdc = range.hdcTarget = surface;
    range.rc = range.rcPage = toSciRect(rect);
    range.chrg.cpMin = start;
    range.chrg.cpMax = end;
    const long next = SendEditor(SCI_FORMATRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
    SendEditor(SCI_FORMATRANGE, FALSE, 0);
    return next;
}

long CScintillaWnd::printPass(CDC& dc, bool selectionOnly, bool pageRange, int firstPage, int lastPage,
                              bool endWhenNotStarted) {
    // Page geometry from the device's physical numbers: the margins are the unprintable
    // borders of the sheet, nothing more.
    POINT pageSize{dc.GetDeviceCaps(PHYSICALWIDTH), dc.GetDeviceCaps(PHYSICALHEIGHT)};
    dc.DPtoLP(&pageSize);
    const int offsetLeft = dc.GetDeviceCaps(PHYSICALOFFSETX);
    const int offsetTop = dc.GetDeviceCaps(PHYSICALOFFSETY);
    RECT margins{offsetLeft, offsetTop, pageSize.x - dc.GetDeviceCaps(HORZRES) - offsetLeft,
                 pageSize.y - dc.GetDeviceCaps(VERTRES) - offsetTop};
    dc.DPtoLP(&margins);
    RECT frame{0, 0, pageSize.x - margins.right - margins.left, pageSize.y - margins.bottom - margins.top};
    const RECT pageFrame{0, 0, pageSize.x - margins.left - margins.right - 1,
                         pageSize.y - margins.top - margins.bottom - 1};

    PageLine header("print.header.format");
    PageLine footer("print.footer.format");
    header.prepare(props, "print.header.style", dc);
    footer.prepare(props, "print.footer.style", dc);
    if (header.present) frame.top += header.lineHeight + header.lineHeight / 2;
    if (footer.present) frame.bottom -= footer.lineHeight + footer.lineHeight / 2;

    PropSet pass;
    auto finish = [&]() {
        dc.EndDoc();
        dc.DeleteDC();
        header.font.DeleteObject();
        footer.font.DeleteObject();
        pass.Clear();
    };

    if (dc.StartDoc(kPrintDocumentName) <= 0) {
        AfxMessageBox(kCannotStartDocument, MB_OK);
        if (endWhenNotStarted) {
            finish();
            return 0;
        }
    }

    const long length = SendEditor(SCI_GETLENGTH);
    long start = 0, end = length;
    if (selectionOnly) {
        const long a = SendEditor(SCI_GETSELECTIONSTART), b = SendEditor(SCI_GETSELECTIONEND);
        start = std::max(0L, std::min(a, b));
        end = std::min(length, std::max(a, b));
    }

    pass.parent = &props;
    SetFileProperties(pass);

    // Without a surface or with a frame that holds no line the engine cannot lay out a page.
    QPainter* surface = dc.GetSafeHdc();
    const bool canFormat = surface && frame.right > frame.left && frame.bottom > frame.top;
    long printed = start;
    for (int page = 1; canFormat && printed < end; ++page) {
        const bool counts = !pageRange || (page >= firstPage && page <= lastPage);
        char number[16];
        std::snprintf(number, sizeof number, "%0d", page);
        pass.Set("CurrentPage", number);

        if (counts) {
            dc.StartPage();
            if (header.present) drawPageLine(dc, pass, header, frame, PageEdge::Top);
        }
        Sci_RangeToFormat range{};
        range.hdc = range.hdcTarget = surface;
        range.rc = toSciRect(frame);
        range.rcPage = toSciRect(pageFrame);
        range.chrg.cpMin = printed;
        range.chrg.cpMax = end;
        // A page outside the range is measured, not drawn, so the numbers and the next
        // page's start stay right.
        const long next = SendEditor(SCI_FORMATRANGE, counts ? TRUE : FALSE, reinterpret_cast<LPARAM>(&range));
        if (counts) {
            if (footer.present) drawPageLine(dc, pass, footer, frame, PageEdge::Bottom);
            dc.EndPage();
        }
        if (next <= printed) break;   // the page took no text: more pages would not either
        printed = next;
        if (pageRange && page + 1 > lastPage) break;
    }

    // Lets the engine release what it holds for printing.
    const long result = SendEditor(SCI_FORMATRANGE, FALSE, 0);
    finish();
    return result;
}
