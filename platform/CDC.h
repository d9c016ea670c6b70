#pragma once
// Device contexts for printing and preview. A CDC paints through one QPainter on a paint
// device: a QPrinter that the print dialog made (the DC owns it), or any QPaintDevice a caller
// previews on, such as a QImage (the caller owns it). The painter is the surface the engine's
// page formatting draws on (GetSafeHdc). Every number is a device pixel: the only mapping is
// the device's own, so DPtoLP changes nothing.
//
// A printer's painter exists between StartDoc and EndDoc, as a print job does; on any other
// device it exists from Attach on, so the DC can be drawn on at once. StartPage on such a
// device clears it to white paper, so a preview shows the page being drawn.
//
// The print dialog (PrintDlg) answers through one process-wide hook when one is set (tests,
// batch runs); with no hook and nobody to answer (offscreen), it cancels. The default printer
// can be redirected into a PDF file with SetDefaultPrintOutput.
#include <QFont>
#include <functional>
#include <memory>

#include "CString.h"
#include "WinTypes.h"

class QPainter;
class QPaintDevice;
class QPrinter;

// GetDeviceCaps indexes.
constexpr int HORZRES = 8;            // printable width
constexpr int VERTRES = 10;           // printable height
constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;
constexpr int PHYSICALWIDTH = 110;    // the whole sheet
constexpr int PHYSICALHEIGHT = 111;
constexpr int PHYSICALOFFSETX = 112;  // where the printable area starts on the sheet
constexpr int PHYSICALOFFSETY = 113;

// Text alignment: the reference point of ExtTextOut is the text's top, bottom or baseline,
// and its left, right or centre.
constexpr UINT TA_LEFT = 0;
constexpr UINT TA_TOP = 0;
constexpr UINT TA_RIGHT = 2;
constexpr UINT TA_CENTER = 6;
constexpr UINT TA_BOTTOM = 8;
constexpr UINT TA_BASELINE = 24;

// ExtTextOut options.
constexpr UINT ETO_OPAQUE = 0x2;   // fill the rectangle with the background colour first
constexpr UINT ETO_CLIPPED = 0x4;  // keep the text inside the rectangle

constexpr int PS_SOLID = 0;
constexpr int FW_NORMAL = 400;
constexpr int FW_BOLD = 700;

// Print dialog flags.
constexpr DWORD PD_ALLPAGES = 0x0;
constexpr DWORD PD_SELECTION = 0x1;          // in: preselect "selection"; out: print the selection
constexpr DWORD PD_PAGENUMS = 0x2;           // out: print nFromPage to nToPage
constexpr DWORD PD_NOSELECTION = 0x4;        // in: no selection to offer
constexpr DWORD PD_NOPAGENUMS = 0x8;         // in: no page range to offer
constexpr DWORD PD_COLLATE = 0x10;
constexpr DWORD PD_PRINTTOFILE = 0x20;
constexpr DWORD PD_RETURNDC = 0x100;         // in: make hDC for the chosen printer
constexpr DWORD PD_RETURNDEFAULT = 0x400;    // in: no dialog, take the default printer
constexpr DWORD PD_USEDEVMODECOPIES = 0x40000;

struct TEXTMETRIC {
    LONG tmHeight = 0;            // ascent + descent
    LONG tmAscent = 0;
    LONG tmDescent = 0;
    LONG tmInternalLeading = 0;
    LONG tmExternalLeading = 0;   // space the font asks for between lines, never negative
    LONG tmAveCharWidth = 0;
    LONG tmMaxCharWidth = 0;
    LONG tmWeight = 0;
    BYTE tmItalic = 0;
    BYTE tmUnderlined = 0;
};

// A font for a device context. Heights follow the Win32 rule: a positive height is the cell
// height (ascent + descent), a negative one the character height (the em), 0 the default size.
class QUILLBOX_EXPORT CFont {
public:
    // `faceName` may list fallbacks separated by commas; null or empty takes the default face.
    BOOL CreateFont(int height, int weight, BOOL italic, BOOL underline, const char* faceName);
    BOOL DeleteObject();
    bool IsCreated() const { return created_; }
    const QFont& font() const { return font_; }

private:
    QFont font_;
    bool created_ = false;
};

// A pen for lines: PS_SOLID of a width in device pixels (0 counts as 1).
class QUILLBOX_EXPORT CPen {
public:
    BOOL CreatePen(int style, int width, COLORREF colour);
    BOOL DeleteObject();
    bool IsCreated() const { return created_; }
    int width() const { return width_; }
    COLORREF colour() const { return colour_; }

private:
    int width_ = 1;
    COLORREF colour_ = 0;
    bool created_ = false;
};

// A printer's setup as the print dialog hands it from one showing to the next: the paper and
// job options (DEVMODE) and which printer it goes to (DEVNAMES).
struct DEVMODE {
    int pageSize = -1;      // QPageSize::PageSizeId; -1 keeps the printer's own
    int landscape = 0;
    int copies = 1;
    int colour = 1;         // 0 greys
    int duplex = 0;         // QPrinter::DuplexMode
    int resolution = 0;     // dots per inch; 0 keeps the printer's own
};

struct DEVNAMES {
    CString device;         // printer name; empty is the default printer
    CString output;         // a PDF file to print into instead of a printer; empty prints
};

// What MFC's print views hand along; the editor's own passes do not read it.
struct CPrintInfo {
    BOOL m_bPreview = FALSE;
    UINT m_nCurPage = 1;
    UINT m_nNumPreviewPages = 1;
    CRect m_rectDraw;
};

class QUILLBOX_EXPORT CDC {
public:
    CDC();
    virtual ~CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    // Draws on `device`, which the caller keeps alive until DeleteDC or the DC's end. A
    // printer (a paged device) starts painting at StartDoc; anything else at once. False for a
    // null device or one that cannot be painted on; the DC stays empty then.
    BOOL Attach(QPaintDevice* device);
    // The same with a printer that the DC owns and releases at DeleteDC.
    BOOL Attach(std::unique_ptr<QPrinter> printer);
    // Ends painting (an open document is closed as it stands) and lets go of the device.
    // Afterwards the DC is empty: it measures 0 and draws nothing.
    BOOL DeleteDC();

    QPaintDevice* GetDevice() const { return device_; }
    QPrinter* GetPrinter() const;
    // The painter, which is the engine's drawing surface; null while nothing can be drawn.
    QPainter* GetSafeHdc() const;

    int GetDeviceCaps(int index) const;
    BOOL DPtoLP(POINT* points, int count = 1) const;
    BOOL DPtoLP(RECT* rect) const;

    // A document of pages. StartDoc gives a positive job number, or a value <= 0 when the
    // device cannot take a document (a printer file that cannot be written, an empty DC).
    virtual int StartDoc(const char* docName);
    virtual int EndDoc();
    virtual int StartPage();
    virtual int EndPage();
    int GetPageCount() const { return pages_; }

    // Selection returns what was selected before (null at first).
    CFont* SelectObject(CFont* font);
    CPen* SelectObject(CPen* pen);
    BOOL GetTextMetrics(TEXTMETRIC* metrics) const;
    COLORREF SetTextColor(COLORREF colour);
    COLORREF SetBkColor(COLORREF colour);
    COLORREF GetTextColor() const { return textColour_; }
    COLORREF GetBkColor() const { return bkColour_; }
    UINT SetTextAlign(UINT align);
    UINT GetTextAlign() const { return align_; }

    // `text` is `count` bytes of UTF-8 (the document's bytes), placed at (x, y) by the text
    // alignment; the rectangle is filled first with ETO_OPAQUE and clips with ETO_CLIPPED.
    virtual BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const char* text, UINT count);
    CPoint MoveTo(int x, int y);
    // A line in the selected pen from the current point to (x, y), which becomes current.
    virtual BOOL LineTo(int x, int y);

private:
    bool beginPainting();
    void endPainting();

    std::unique_ptr<QPrinter> ownedPrinter_;
    QPaintDevice* device_ = nullptr;
    std::unique_ptr<QPainter> painter_;
    bool paged_ = false;
    bool inDocument_ = false;
    int pages_ = 0;
    CFont* font_ = nullptr;
    CPen* pen_ = nullptr;
    COLORREF textColour_ = 0;
    COLORREF bkColour_ = RGB(255, 255, 255);
    UINT align_ = TA_LEFT | TA_TOP;
    CPoint current_;
};

// The print dialog's record. The setup handles are owned by the record while it is in the
// dialog's hands: the caller moves its saved ones in and takes the chosen ones back out.
struct PRINTDLG {
    HWND hwndOwner = nullptr;
    DWORD Flags = 0;
    WORD nFromPage = 1;
    WORD nToPage = 1;
    WORD nMinPage = 1;
    WORD nMaxPage = 0xFFFF;
    WORD nCopies = 1;
    std::unique_ptr<DEVMODE> hDevMode;
    std::unique_ptr<DEVNAMES> hDevNames;
    std::unique_ptr<CDC> hDC;   // with PD_RETURNDC: the chosen printer's device context
};

// Shows the print dialog, or with PD_RETURNDEFAULT takes the default printer without one.
// TRUE when a printer was chosen: Flags then say what to print (PD_SELECTION, PD_PAGENUMS or
// neither), the setup handles describe the printer, and with PD_RETURNDC hDC draws on it.
// FALSE when the dialog was cancelled; the record's handles stay as they came in.
QUILLBOX_EXPORT BOOL PrintDlg(PRINTDLG* dialog);

// Answers the print dialog: the hook sees the record with the setup handles filled in, may
// change flags, pages and setup (for instance DEVNAMES::output), may put a DC of its own into
// hDC, and returns IDOK or IDCANCEL. It is not asked with PD_RETURNDEFAULT, as no dialog shows.
using PrintDialogHook = std::function<int(PRINTDLG& dialog)>;
// Installs `hook` (an empty function removes it) and returns the one it replaces.
QUILLBOX_EXPORT PrintDialogHook SetPrintDialogHook(PrintDialogHook hook);

// Makes the default printer a PDF writer into `pdfPath` (machines without a printer, batch
// runs, tests); null or empty returns to the system's default printer. Returns the former path.
QUILLBOX_EXPORT CString SetDefaultPrintOutput(const char* pdfPath);
