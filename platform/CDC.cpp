#include "CDC.h"
#include "LibraryOnly.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <mutex>

namespace {

QColor toQColor(COLORREF c) { return QColor(GetRValue(c), GetGValue(c), GetBValue(c)); }

std::mutex hookLock;
PrintDialogHook& currentHook() {
    static PrintDialogHook hook;
    return hook;
}
CString& defaultOutput() {
    static CString path;
    return path;
}

bool canShowModal() {
    auto* app = qobject_cast<QApplication*>(QCoreApplication::instance());
    return app && QGuiApplication::platformName() != QLatin1String("offscreen");
}

// The setup of the printer that prints when nobody chooses one.
std::unique_ptr<DEVNAMES> defaultNames() {
    auto names = std::make_unique<DEVNAMES>();
    {
        std::lock_guard<std::mutex> guard(hookLock);
        names->output = defaultOutput();
    }
    if (names->output.IsEmpty()) names->device = CString(QPrinterInfo::defaultPrinterName().toUtf8().toStdString());
    return names;
}

std::unique_ptr<QPrinter> makePrinter(const DEVMODE* mode, const DEVNAMES* names) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (names && !names->output.IsEmpty()) {
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(QString::fromUtf8(names->output.c_str()));
    } else if (names && !names->device.IsEmpty()) {
        printer->setPrinterName(QString::fromUtf8(names->device.c_str()));
    }
    if (mode) {
        if (mode->pageSize >= 0 && mode->pageSize <= int(QPageSize::LastPageSize) &&
            mode->pageSize != int(QPageSize::Custom))
            printer->setPageSize(QPageSize(QPageSize::PageSizeId(mode->pageSize)));
        printer->setPageOrientation(mode->landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        printer->setCopyCount(std::clamp(mode->copies, 1, 9999));
        printer->setColorMode(mode->colour ? QPrinter::Color : QPrinter::GrayScale);
        printer->setDuplex(QPrinter::DuplexMode(std::clamp(mode->duplex, 0, int(QPrinter::DuplexShortSide))));
        if (mode->resolution > 0) printer->setResolution(std::clamp(mode->resolution, 72, 4800));
    }
    return printer;
}

std::unique_ptr<DEVMODE> captureMode(const QPrinter& printer) {
    auto mode = std::make_unique<DEVMODE>();
    const QPageSize size = printer.pageLayout().pageSize();
    mode->pageSize = size.id() == QPageSize::Custom ? -1 : int(size.id());
    mode->landscape = printer.pageLayout().orientation() == QPageLayout::Landscape ? 1 : 0;
    mode->copies = printer.copyCount();
    mode->colour = printer.colorMode() == QPrinter::Color ? 1 : 0;
    mode->duplex = int(printer.duplex());
    mode->resolution = printer.resolution();
    return mode;
}

std::unique_ptr<DEVNAMES> captureNames(const QPrinter& printer) {
    auto names = std::make_unique<DEVNAMES>();
    if (printer.outputFormat() == QPrinter::PdfFormat)
        names->output = CString(printer.outputFileName().toUtf8().toStdString());
    else
        names->device = CString(printer.printerName().toUtf8().toStdString());
    return names;
}

// The interactive dialog, on a platform where someone can answer it.
int showPrintDialog(PRINTDLG& pd) {
    std::unique_ptr<QPrinter> printer = makePrinter(pd.hDevMode.get(), pd.hDevNames.get());
    QPrintDialog dialog(printer.get(), pd.hwndOwner);
    QAbstractPrintDialog::PrintDialogOptions options = dialog.options();
    options.setFlag(QAbstractPrintDialog::PrintSelection, !(pd.Flags & PD_NOSELECTION));
    options.setFlag(QAbstractPrintDialog::PrintPageRange, !(pd.Flags & PD_NOPAGENUMS));
    options.setFlag(QAbstractPrintDialog::PrintToFile, true);
    dialog.setOptions(options);
    const int minPage = pd.nMinPage, maxPage = std::max<int>(pd.nMinPage, pd.nMaxPage);
    dialog.setMinMax(minPage, maxPage);
    const int from = std::clamp<int>(pd.nFromPage, minPage, maxPage);
    dialog.setFromTo(from, std::clamp<int>(pd.nToPage, from, maxPage));
    if (pd.Flags & PD_SELECTION) dialog.setPrintRange(QAbstractPrintDialog::Selection);
    if (dialog.exec() != QDialog::Accepted) return IDCANCEL;
    pd.Flags &= ~(PD_SELECTION | PD_PAGENUMS);
    if (dialog.printRange() == QAbstractPrintDialog::Selection) pd.Flags |= PD_SELECTION;
    if (dialog.printRange() == QAbstractPrintDialog::PageRange) {
        pd.Flags |= PD_PAGENUMS;
        pd.nFromPage = WORD(dialog.fromPage());
        pd.nToPage = WORD(dialog.toPage());
    }
    pd.hDevMode = captureMode(*printer);
    pd.hDevNames = captureNames(*printer);
    return IDOK;
}

}  // namespace

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const long long product = static_cast<long long>(number) * numerator;
    long long half = std::llabs(static_cast<long long>(denominator)) / 2;
    // Round half away from zero, on the sign of the true quotient.
    const bool negative = (product < 0) != (denominator < 0);
    const long long magnitude = (std::llabs(product) + half) / std::llabs(static_cast<long long>(denominator));
    const long long result = negative ? -magnitude : magnitude;
    if (result > INT_MAX || result < INT_MIN) return -1;
    return int(result);
}

// ---- Fonts and pens ----

BOOL CFont::CreateFont(int height, int weight, BOOL italic, BOOL underline, const char* faceName) {
    QFont font;
    QStringList faces;
    for (const QString& face : QString::fromUtf8(faceName ? faceName : "").split(u',', Qt::SkipEmptyParts))
        if (!face.trimmed().isEmpty()) faces << face.trimmed();
    if (!faces.isEmpty()) font.setFamilies(faces);
    // A height beyond any paper is a mistake in a style string; keep it drawable.
    constexpr int largest = 1 << 16;
    if (height < 0) {
        font.setPixelSize(std::min(largest, height == INT_MIN ? largest : -height));
    } else if (height > 0) {
        // The cell height is asked for: scale the em so that ascent + descent come out at it.
        const int cell = std::min(largest, height);
        font.setPixelSize(cell);
        const int measured = QFontMetrics(font).height();
        if (measured > 0 && measured != cell)
            font.setPixelSize(std::max(1, int(std::lround(double(cell) * cell / measured))));
    }
    font.setWeight(QFont::Weight(std::clamp(weight <= 0 ? FW_NORMAL : weight, 100, 900)));
    font.setItalic(italic != 0);
    font.setUnderline(underline != 0);
    font_ = font;
    created_ = true;
    return TRUE;
}

BOOL CFont::DeleteObject() {
    const bool was = created_;
    font_ = QFont();
    created_ = false;
    return was ? TRUE : FALSE;
}

BOOL CPen::CreatePen(int style, int width, COLORREF colour) {
    if (style != PS_SOLID) return FALSE;
    width_ = std::max(1, width);
    colour_ = colour;
    created_ = true;
    return TRUE;
}

BOOL CPen::DeleteObject() {
    const bool was = created_;
    created_ = false;
    width_ = 1;
    colour_ = 0;
    return was ? TRUE : FALSE;
}

// ---- The device context ----

CDC::CDC() = default;

CDC::~CDC() { DeleteDC(); }

BOOL CDC::Attach(QPaintDevice* device) {
    DeleteDC();
    if (!device) return FALSE;
    device_ = device;
    paged_ = dynamic_cast<QPagedPaintDevice*>(device) != nullptr;
    if (!paged_ && !beginPainting()) {
        device_ = nullptr;
        return FALSE;
    }
    return TRUE;
}

BOOL CDC::Attach(std::unique_ptr<QPrinter> printer) {
    if (!printer) {
        DeleteDC();
        return FALSE;
    }
    QPrinter* raw = printer.get();
    if (!Attach(static_cast<QPaintDevice*>(raw))) return FALSE;
    ownedPrinter_ = std::move(printer);
    return TRUE;
}

BOOL CDC::DeleteDC() {
    const bool had = device_ != nullptr;
    endPainting();
    ownedPrinter_.reset();
    device_ = nullptr;
    paged_ = false;
    inDocument_ = false;
    font_ = nullptr;
    pen_ = nullptr;
    return had ? TRUE : FALSE;
}

QPrinter* CDC::GetPrinter() const { return dynamic_cast<QPrinter*>(device_); }

QPainter* CDC::GetSafeHdc() const { return painter_ && painter_->isActive() ? painter_.get() : nullptr; }

bool CDC::beginPainting() {
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(device_)) {
        painter_.reset();
        return false;
    }
    return true;
}

void CDC::endPainting() {
    if (painter_ && painter_->isActive()) painter_->end();
    painter_.reset();
}

int CDC::GetDeviceCaps(int index) const {
    if (!device_) return 0;
    const int dpiX = device_->logicalDpiX(), dpiY = device_->logicalDpiY();
    QRect paper(0, 0, device_->width(), device_->height());
    QRect printable = paper;
    if (auto* paged = dynamic_cast<QPagedPaintDevice*>(device_)) {
        const QPageLayout layout = paged->pageLayout();
        paper = layout.fullRectPixels(dpiX);
        printable = layout.paintRectPixels(dpiX);
    }
    switch (index) {
        case HORZRES: return printable.width();
        case VERTRES: return printable.height();
        case LOGPIXELSX: return dpiX;
        case LOGPIXELSY: return dpiY;
        case PHYSICALWIDTH: return paper.width();
        case PHYSICALHEIGHT: return paper.height();
        case PHYSICALOFFSETX: return printable.left() - paper.left();
        case PHYSICALOFFSETY: return printable.top() - paper.top();
        default: return 0;
    }
}

BOOL CDC::DPtoLP(POINT* points, int count) const { return points && count >= 0 ? TRUE : FALSE; }

BOOL CDC::DPtoLP(RECT* rect) const { return rect ? TRUE : FALSE; }

int CDC::StartDoc(const char* docName) {
    if (!device_ || inDocument_) return -1;
    if (paged_) {
        if (QPrinter* printer = GetPrinter()) printer->setDocName(QString::fromUtf8(docName ? docName : ""));
        if (!beginPainting()) return -1;
    } else if (!GetSafeHdc()) {
        return -1;
    }
    inDocument_ = true;
    pages_ = 0;
    return 1;
}

int CDC::EndDoc() {
    if (!inDocument_) return -1;
    inDocument_ = false;
    if (paged_) endPainting();   // a printer's job is complete when its painter ends
    return 1;
}

int CDC::StartPage() {
    QPainter* painter = GetSafeHdc();
    if (!painter) return 0;
    if (paged_) {
        if (pages_ > 0) {
            auto* paged = dynamic_cast<QPagedPaintDevice*>(device_);
            if (!paged || !paged->newPage()) return 0;
        }
    } else {
        // A screen or image has one sheet: each page starts on blank paper.
        painter->save();
        painter->setClipping(false);
        painter->resetTransform();
        painter->fillRect(QRect(0, 0, device_->width(), device_->height()), Qt::white);
        painter->restore();
    }
    ++pages_;
    return 1;
}

int CDC::EndPage() { return GetSafeHdc() ? 1 : 0; }

CFont* CDC::SelectObject(CFont* font) {
    CFont* previous = font_;
    font_ = font;
    return previous;
}

CPen* CDC::SelectObject(CPen* pen) {
    CPen* previous = pen_;
    pen_ = pen;
    return previous;
}

BOOL CDC::GetTextMetrics(TEXTMETRIC* metrics) const {
    if (!metrics || !device_) return FALSE;
    const QFont font = font_ ? font_->font() : QFont();
    const QFontMetrics fm(font, device_);
    *metrics = TEXTMETRIC{};
    metrics->tmAscent = fm.ascent();
    metrics->tmDescent = fm.descent();
    metrics->tmHeight = fm.ascent() + fm.descent();
    const int em = font.pixelSize() > 0 ? font.pixelSize() : fm.height();
    metrics->tmInternalLeading = std::max(0, int(metrics->tmHeight) - em);
    metrics->tmExternalLeading = std::max(0, fm.leading());
    metrics->tmAveCharWidth = fm.averageCharWidth();
    metrics->tmMaxCharWidth = fm.maxWidth();
    metrics->tmWeight = font.weight();
    metrics->tmItalic = font.italic() ? 1 : 0;
    metrics->tmUnderlined = font.underline() ? 1 : 0;
    return TRUE;
}

COLORREF CDC::SetTextColor(COLORREF colour) {
    const COLORREF previous = textColour_;
    textColour_ = colour;
    return previous;
}

COLORREF CDC::SetBkColor(COLORREF colour) {
    const COLORREF previous = bkColour_;
    bkColour_ = colour;
    return previous;
}

UINT CDC::SetTextAlign(UINT align) {
    const UINT previous = align_;
    align_ = align;
    return previous;
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT* rect, const char* text, UINT count) {
    QPainter* painter = GetSafeHdc();
    if (!painter) return FALSE;
    const QString s = QString::fromUtf8(text ? text : "", text ? qsizetype(count) : 0);
    // The engine's drawing leaves its clip and state on the painter; text of our own is
    // placed on the whole sheet.
    painter->save();
    painter->setClipping(false);
    painter->setFont(font_ ? font_->font() : QFont());
    if (rect) {
        const QRect box(QPoint(rect->left, rect->top), QPoint(rect->right - 1, rect->bottom - 1));
        if (options & ETO_OPAQUE) painter->fillRect(box, toQColor(bkColour_));
        if (options & ETO_CLIPPED) painter->setClipRect(box);
    }
    const QFontMetrics fm = painter->fontMetrics();
    const int width = fm.horizontalAdvance(s);
    int left = x;
    if ((align_ & TA_CENTER) == TA_CENTER) left = x - width / 2;
    else if (align_ & TA_RIGHT) left = x - width;
    int baseline = y + fm.ascent();
    if ((align_ & TA_BASELINE) == TA_BASELINE) baseline = y;
    else if (align_ & TA_BOTTOM) baseline = y - fm.descent();
    painter->setPen(toQColor(textColour_));
    painter->drawText(QPoint(left, baseline), s);
    painter->restore();
    return TRUE;
}

CPoint CDC::MoveTo(int x, int y) {
    const CPoint previous = current_;
    current_ = CPoint(x, y);
    return previous;
}

BOOL CDC::LineTo(int x, int y) {
    QPainter* painter = GetSafeHdc();
    if (!painter) return FALSE;
    painter->save();
    painter->setClipping(false);
    painter->setRenderHint(QPainter::Antialiasing, false);
    QPen pen(toQColor(pen_ ? pen_->colour() : 0));
    pen.setWidth(pen_ ? pen_->width() : 1);
    pen.setCapStyle(Qt::FlatCap);
    painter->setPen(pen);
    painter->drawLine(QPoint(current_.x, current_.y), QPoint(x, y));
    painter->restore();
    current_ = CPoint(x, y);
    return TRUE;
}

// ---- The print dialog ----

PrintDialogHook SetPrintDialogHook(PrintDialogHook hook) {
    std::lock_guard<std::mutex> guard(hookLock);
    PrintDialogHook previous = std::move(currentHook());
    currentHook() = std::move(hook);
    return previous;
}

CString SetDefaultPrintOutput(const char* pdfPath) {
    std::lock_guard<std::mutex> guard(hookLock);
    CString previous = defaultOutput();
    defaultOutput() = pdfPath ? pdfPath : "";
    return previous;
}

BOOL PrintDlg(PRINTDLG* pd) {
    if (!pd) return FALSE;
    // A cancelled dialog gives the caller's handles back as they came.
    std::unique_ptr<DEVMODE> keptMode = pd->hDevMode ? std::make_unique<DEVMODE>(*pd->hDevMode) : nullptr;
    std::unique_ptr<DEVNAMES> keptNames = pd->hDevNames ? std::make_unique<DEVNAMES>(*pd->hDevNames) : nullptr;
    const DWORD keptFlags = pd->Flags;
    const WORD keptFrom = pd->nFromPage, keptTo = pd->nToPage;
    pd->hDC.reset();

    const bool useDefault = (pd->Flags & PD_RETURNDEFAULT) != 0;
    if (useDefault || !pd->hDevNames) pd->hDevNames = defaultNames();
    if (useDefault || !pd->hDevMode) pd->hDevMode = captureMode(*makePrinter(nullptr, pd->hDevNames.get()));

    int answer = IDOK;
    if (!useDefault) {
        PrintDialogHook hook;
        {
            std::lock_guard<std::mutex> guard(hookLock);
            hook = currentHook();
        }
        if (hook) answer = hook(*pd);
        else if (canShowModal()) answer = showPrintDialog(*pd);
        else answer = IDCANCEL;  // nobody can answer: the safe choice
    }
    if (answer != IDOK) {
        pd->hDevMode = std::move(keptMode);
        pd->hDevNames = std::move(keptNames);
        pd->Flags = keptFlags;
        pd->nFromPage = keptFrom;
        pd->nToPage = keptTo;
        pd->hDC.reset();
        return FALSE;
    }
    if (!pd->hDevNames) pd->hDevNames = defaultNames();
    if ((pd->Flags & PD_RETURNDC) && !pd->hDC) {
        auto dc = std::make_unique<CDC>();
        if (dc->Attach(makePrinter(pd->hDevMode.get(), pd->hDevNames.get()))) pd->hDC = std::move(dc);
    }
    return TRUE;
}
