// Printing: the device context and print dialog of the platform layer, and the editor's print
// passes (layout, header and footer, selection, page range, dialog, single pages).
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <climits>

#include "EditorFixture.h"
#include "LibraryOnly.h"
#include "MessageBox.h"
#include "PrintRecorder.h"

namespace {

constexpr int kWidth = 600, kHeight = 400, kDpi = 96;

class PrintEditor : public CScintillaWnd {
public:
    using CScintillaWnd::props, CScintillaWnd::SendEditor;
    const DEVMODE* savedMode() const { return printDevMode.get(); }
    const DEVNAMES* savedNames() const { return printDevNames.get(); }
};

int pdfPageCount(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? int(QString::fromLatin1(file.readAll()).count(QRegularExpression("/Type\\s*/Page[^s]"))) : -1;
}

int lineHeight(const QFont& font, const QPaintDevice& device) {
    const QFontMetrics fm(font, &device);
    return fm.ascent() + fm.descent() + std::max(0, fm.leading());
}

std::string numberedLines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += QString("line %1\n").arg(i, 3, 10, QChar('0')).toStdString();
    return text;
}

QString withoutBlanks(const std::string& text) { return QString::fromStdString(text).remove(' ').remove('\n'); }

// The rows of `image` in [y0, y1) that hold `colour` somewhere.
int rowsWith(const QImage& image, int y0, int y1, QRgb colour) {
    int rows = 0;
    for (int y = y0; y < y1; ++y) {
        bool found = false;
        for (int x = 0; x < image.width() && !found; ++x) found = image.pixel(x, y) == colour;
        rows += found;
    }
    return rows;
}

class PrintTest : public EditorHostTest<PrintEditor> {
protected:
    void SetUp() override {
        EditorHostTest::SetUp();
        // Each test names the templates it wants, whatever the property file holds.
        for (const char* key : {"print.header.format", "print.footer.format", "print.header.style", "print.footer.style"})
            editor->props.Set(key, "");
        previousMessageHook = SetMessageBoxHook([this](const char* text, const char*, UINT) { return messages.emplace_back(text), IDOK; });
        previousDialogHook = SetPrintDialogHook({});
    }
    void TearDown() override {
        SetMessageBoxHook(previousMessageHook);
        SetPrintDialogHook(previousDialogHook);
        EditorHostTest::TearDown();
    }
    void load(const std::string& text) { EditorHostTest::load(text.c_str()); }
    void setProp(const char* key, const char* value) { editor->props.Set(key, value); }
    struct Sheet {  // a recording device of the test size with a context on it
        PrintRecord record;
        RecordingDevice device{record, kWidth, kHeight, kDpi};
        RecordingDC dc{record, device};
    };
    // Print(true) with a dialog answer that draws on a recording device.
    void printRecorded(PrintRecord& record, std::function<void(PRINTDLG&)> choose = {}) {
        RecordingDevice device(record, kWidth, kHeight, kDpi);
        SetPrintDialogHook([&](PRINTDLG& pd) {
            if (choose) choose(pd);
            pd.hDC = std::make_unique<RecordingDC>(record, device);
            return IDOK;
        });
        editor->Print(true);
        SetPrintDialogHook({});
    }

    std::vector<std::string> messages;
    MessageBoxHook previousMessageHook;
    PrintDialogHook previousDialogHook;
};

}  // namespace

TEST(MulDivTest, RoundsHalfAwayFromZeroAndRefusesWhatDoesNotFit) {
    const int rows[][4] = {{9, 96, 72, 12}, {10, 3, 4, 8}, {-10, 3, 4, -8}, {10, 3, -4, -8}, {1, 1, 0, -1},
                           {INT_MAX, 2, 1, -1}, {INT_MAX, INT_MAX, INT_MAX, INT_MAX}};
    for (const auto& r : rows) EXPECT_EQ(MulDiv(r[0], r[1], r[2]), r[3]) << r[0] << " " << r[1] << " " << r[2];
}

TEST(CDCTest, ImageSheetMeasuresAndDrawsAlignedTextBoxesAndLinesAndBadContextsRefuseQuietly) {
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.setDotsPerMeterY(3780);   // 96 dots per inch
    CDC dc;
    ASSERT_TRUE(dc.Attach(&image));
    for (auto [cap, value] : {std::pair{PHYSICALWIDTH, 300}, {VERTRES, 200}, {PHYSICALOFFSETY, 0}, {LOGPIXELSY, 96}})
        EXPECT_EQ(dc.GetDeviceCaps(cap), value) << cap;
    ASSERT_GT(dc.StartDoc("doc"), 0);
    EXPECT_LE(dc.StartDoc("again"), 0);   // one document at a time
    ASSERT_GT(dc.StartPage(), 0);
    EXPECT_EQ(rowsWith(image, 0, 200, qRgb(255, 0, 0)), 0);   // a page starts blank
    CFont font;
    ASSERT_TRUE(font.CreateFont(30, FW_BOLD, FALSE, FALSE, "NoSuchFace, DejaVu Sans"));
    dc.SelectObject(&font);
    TEXTMETRIC tm;
    ASSERT_TRUE(dc.GetTextMetrics(&tm));
    EXPECT_NEAR(tm.tmHeight, 30, 1);   // a positive height is the cell height
    dc.SetTextColor(RGB(0, 0, 255));
    dc.SetBkColor(RGB(0, 255, 0));
    dc.SetTextAlign(TA_BOTTOM);
    const RECT box{0, 20, 300, 60};
    ASSERT_TRUE(dc.ExtTextOut(5, 60, ETO_OPAQUE, &box, "HH", 2));
    EXPECT_EQ(image.pixel(290, 25), qRgb(0, 255, 0));
    EXPECT_GT(rowsWith(image, 20, 60, qRgb(0, 0, 255)), 10);   // ink above a bottom-aligned y
    dc.SetTextAlign(TA_TOP);
    ASSERT_TRUE(dc.ExtTextOut(5, 100, 0, nullptr, "HH", 2));
    EXPECT_EQ(rowsWith(image, 60, 100, qRgb(0, 0, 255)), 0);   // below a top-aligned y
    EXPECT_GT(rowsWith(image, 100, 140, qRgb(0, 0, 255)), 10);
    CPen pen;
    ASSERT_TRUE(pen.CreatePen(PS_SOLID, 1, RGB(255, 0, 255)));
    dc.SelectObject(&pen);
    dc.MoveTo(10, 180);
    ASSERT_TRUE(dc.LineTo(290, 180));
    EXPECT_EQ(rowsWith(image, 170, 190, qRgb(255, 0, 255)), 1);

    CDC empty, deleted, unwritable;
    QImage other(50, 50, QImage::Format_RGB32);
    EXPECT_FALSE(empty.Attach(static_cast<QPaintDevice*>(nullptr)));
    ASSERT_TRUE(deleted.Attach(&other));
    EXPECT_TRUE(deleted.DeleteDC());
    EXPECT_FALSE(deleted.DeleteDC());
    ASSERT_TRUE(unwritable.Attach(unwritablePrinter("out.pdf")));
    EXPECT_LE(unwritable.StartDoc("Temp"), 0);
    for (CDC* bad : {&empty, &deleted, &unwritable}) {
        EXPECT_EQ(bad->GetSafeHdc(), nullptr);
        EXPECT_LE(bad->StartPage(), 0);
        EXPECT_LE(bad->EndDoc(), 0);
        EXPECT_FALSE(bad->ExtTextOut(0, 0, ETO_OPAQUE, nullptr, "x", 1));
        EXPECT_FALSE(bad->LineTo(5, 5));
    }
    EXPECT_EQ(deleted.GetDeviceCaps(PHYSICALWIDTH), 0);
    EXPECT_FALSE(empty.GetTextMetrics(&tm));
    CFont huge;   // heights no sheet holds still make a font
    EXPECT_TRUE(huge.CreateFont(INT_MIN, 5000, FALSE, FALSE, nullptr));
}

TEST_F(PrintTest, AnEmptyDocumentPrintsNoPageAndOneThatCannotStartSaysSo) {
    setProp("print.header.format", "H $(CurrentPage)");
    Sheet sheet;
    EXPECT_EQ(editor->PrintPreview(&sheet.dc, nullptr), 0);
    EXPECT_EQ(sheet.record.documents, std::vector<QString>{"Temp"});
    EXPECT_TRUE(sheet.record.documentsEnded == 1 && sheet.record.page == 0 && sheet.record.texts.empty());
    EXPECT_EQ(sheet.dc.GetDevice(), nullptr);  // the pass deletes the context it was given
    EXPECT_EQ(editor->PrintPreview(nullptr, nullptr), 0);

    const std::string text = numberedLines(5);
    load(text);
    SetPrintDialogHook([](PRINTDLG& pd) { return pd.hDevNames->output = "/nonexistent-folder/quillbox/print.pdf", IDOK; });
    editor->Print(true);
    EXPECT_EQ(messages, std::vector<std::string>{"Can not start printer document."});
    // A preview goes on after the message, with nothing to draw on.
    CDC dc;
    ASSERT_TRUE(dc.Attach(unwritablePrinter("preview.pdf")));
    EXPECT_EQ(editor->PrintPreview(&dc, nullptr), 0);
    EXPECT_EQ(messages.size(), 2u);
    EXPECT_EQ(editor->GetText(), CString(text));
}

TEST_F(PrintTest, EveryPageGetsItsHeaderBodyAndFooterWithoutLosingALine) {
    setProp("title", "Quill");
    setProp("print.header.format", "$(title) [$(FileTime)$(FileDate)$(FileAttr)] page $(CurrentPage)");
    setProp("print.footer.format", "Page $(CurrentPage)");
    const std::string text = numberedLines(60);
    load(text);
    // The header and the footer, styled and unstyled (9 point Arial, black on black). Each lies on
    // a box of its background across the sheet, with a rule of its colour between it and the body.
    struct Look { const char* style; QColor fore, back; const char* family; int points; bool bold, italic; };
    struct Row { Look header, footer; };
    const Row rows[] = {
        {{"font:DejaVu Sans,size:12,bold,fore:#FF0000,back:#00FF00", Qt::red, Qt::green, "DejaVu Sans", 12, true, false},
         {"italics,fore:#0000FF", Qt::blue, Qt::black, "Arial", 9, false, true}},
        {{"", Qt::black, Qt::black, "Arial", 9, false, false}, {"", Qt::black, Qt::black, "Arial", 9, false, false}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.header.style);
        setProp("print.header.style", row.header.style);
        setProp("print.footer.style", row.footer.style);
        Sheet sheet;
        auto& [record, device, dc] = sheet;
        editor->PrintPreview(&dc, nullptr);
        ASSERT_GE(record.page, 2);
        EXPECT_EQ(record.pagesEnded, record.page);
        const PrintRecord::Text* header = record.find("Quill [] page 1");
        const PrintRecord::Text* footer = record.find("Page 1");
        ASSERT_TRUE(header && footer);
        const int hh = lineHeight(header->font, device), fh = lineHeight(footer->font, device);
        const int top = hh + hh / 2, bottom = kHeight - fh - fh / 2;
        const std::pair<const PrintRecord::Text*, const Look*> lines[] = {{header, &row.header}, {footer, &row.footer}};
        for (auto [line, look] : lines) {
            EXPECT_EQ(line->colour, look->fore);
            EXPECT_EQ(line->font.families().value(0), QString(look->family));
            EXPECT_EQ(line->font.weight() == QFont::Bold, look->bold);
            EXPECT_EQ(line->font.italic(), look->italic);
            EXPECT_NEAR(QFontMetrics(line->font, &device).height(), MulDiv(look->points, kDpi, 72), 1);
            const bool isHeader = line == header;
            const QRectF box = isHeader ? QRectF(0, 0, kWidth, hh) : QRectF(0, bottom + fh / 2, kWidth, fh);
            const double ruleY = isHeader ? top - hh / 4 : bottom + fh / 4;
            EXPECT_TRUE(std::any_of(record.fills.begin(), record.fills.end(),
                                    [&](const PrintRecord::Fill& f) { return f.colour == look->back && f.rect == box; }));
            EXPECT_TRUE(std::any_of(record.lines.begin(), record.lines.end(), [&](const PrintRecord::Line& l) {
                return l.colour == look->fore && l.line == QLineF(0, ruleY, kWidth, ruleY);
            }));
        }
        QString body;
        for (int page = 1; page <= record.page; ++page) {
            EXPECT_EQ(record.textOf(page, -1e9, top - hh / 4), "Quill[]page" + QString::number(page));
            EXPECT_EQ(record.textOf(page, bottom + fh / 4, 1e9), "Page" + QString::number(page));
            body += record.textOf(page, top, bottom);
        }
        EXPECT_EQ(body, withoutBlanks(text));
    }
}

TEST_F(PrintTest, SelectionIsPrintedWhenThereIsOneOrTheDialogKeepsIt) {
    load(numberedLines(30));
    const long start = editor->SendEditor(SCI_POSITIONFROMLINE, 4) + 2;
    const long end = editor->SendEditor(SCI_POSITIONFROMLINE, 6) + 6;
    editor->SendEditor(SCI_SETSEL, end, start);   // the caret before the anchor
    // The engine lays out whole lines: those of the selection's ends and between.
    const QString selected("line005line006line007");
    Sheet preview;
    PrintRecord kept, dropped;
    editor->PrintPreview(&preview.dc, nullptr);
    EXPECT_EQ(preview.record.textOf(1), selected);
    printRecorded(kept, [](PRINTDLG& pd) { EXPECT_EQ(pd.Flags & (PD_SELECTION | PD_NOSELECTION), PD_SELECTION); });
    EXPECT_EQ(kept.textOf(1), selected);
    printRecorded(dropped, [](PRINTDLG& pd) { pd.Flags &= ~PD_SELECTION; });
    EXPECT_TRUE(dropped.textOf(1).startsWith("line001line002"));
    EXPECT_EQ(editor->SendEditor(SCI_GETSELECTIONSTART), start);
    EXPECT_EQ(editor->SendEditor(SCI_GETSELECTIONEND), end);
}

TEST_F(PrintTest, PageRangeDrawsOnlyItsPagesWithTheirOwnNumbers) {
    setProp("print.header.format", "page $(CurrentPage)");
    load(numberedLines(150));
    PrintRecord all, range;
    editor->engine()->resetCounters();
    printRecorded(all, [](PRINTDLG& pd) {
        EXPECT_EQ(pd.Flags, PD_USEDEVMODECOPIES | PD_RETURNDC | PD_NOSELECTION);
        EXPECT_TRUE(pd.nFromPage == 1 && pd.nToPage == 1 && pd.nMinPage == 1 && pd.nMaxPage == 0xFFFF && pd.nCopies == 1);
    });
    const auto allMessages = editor->engine()->counters().messages;
    ASSERT_GE(all.page, 5);
    editor->engine()->resetCounters();
    printRecorded(range, [](PRINTDLG& pd) {
        pd.Flags |= PD_PAGENUMS;
        pd.nFromPage = 2;
        pd.nToPage = 3;
    });
    EXPECT_EQ(range.page, 2);
    for (int page : {2, 3}) {
        EXPECT_EQ(range.textOf(page - 1), all.textOf(page));
        EXPECT_TRUE(range.textOf(page - 1).startsWith("page" + QString::number(page)));
    }
    // One engine request a page: the pages after the range are never formatted.
    EXPECT_EQ(allMessages - editor->engine()->counters().messages, std::uint64_t(all.page - 3));
}

TEST_F(PrintTest, TheDialogsSetupIsKeptACancelUndoesItsChangesAndTheDefaultPrinterAsksNobody) {
    EXPECT_FALSE(PrintDlg(nullptr));
    QTemporaryDir dir;
    const QString chosen = dir.filePath("chosen.pdf"), fallback = dir.filePath("default.pdf");
    load(numberedLines(200));
    SetPrintDialogHook([&](PRINTDLG& pd) {
        pd.hDevNames->output = chosen.toUtf8().constData();
        pd.hDevMode->landscape = 1;
        return IDOK;
    });
    editor->Print(true);
    const int pages = pdfPageCount(chosen);
    EXPECT_GE(pages, 2);
    ASSERT_TRUE(QFile::remove(chosen));
    // A cancel, by the hook after its changes or by nobody answering offscreen, keeps the setup.
    SetPrintDialogHook([&](PRINTDLG& pd) {
        EXPECT_TRUE(pd.hDevMode->landscape == 1 && pd.hDevNames->output.str() == chosen.toStdString());
        pd.hDevNames->output = "elsewhere.pdf";
        pd.hDevMode->landscape = 0;
        return IDCANCEL;
    });
    editor->Print(true);
    SetPrintDialogHook({});
    editor->Print(true);
    EXPECT_FALSE(QFile::exists(chosen));
    ASSERT_TRUE(editor->savedMode() && editor->savedNames());
    EXPECT_EQ(editor->savedMode()->landscape, 1);
    EXPECT_EQ(editor->savedNames()->output.str(), chosen.toStdString());

    SetDefaultPrintOutput(fallback.toUtf8().constData());
    SetPrintDialogHook([](PRINTDLG&) { ADD_FAILURE() << "no dialog expected"; return IDCANCEL; });
    editor->Print(false);
    PRINTDLG quiet;
    quiet.Flags = PD_RETURNDC | PD_RETURNDEFAULT | PD_SELECTION;
    ASSERT_TRUE(PrintDlg(&quiet) && quiet.hDC);
    EXPECT_EQ(quiet.Flags, PD_RETURNDC | PD_RETURNDEFAULT | PD_SELECTION);
    EXPECT_EQ(quiet.hDC->GetPrinter()->outputFileName(), fallback);
    EXPECT_EQ(quiet.hDC->GetDeviceCaps(LOGPIXELSY), 1200);
    EXPECT_EQ(SetDefaultPrintOutput(nullptr), CString(fallback.toUtf8().constData()));
    // The default printer has its own portrait setup: more lines a page than the kept landscape.
    EXPECT_GE(pdfPageCount(fallback), 1);
    EXPECT_LT(pdfPageCount(fallback), pages);
    EXPECT_TRUE(messages.empty());
}

TEST_F(PrintTest, PrintPageFormatsOneRangeInTheCallersRectangle) {
    setProp("print.header.format", "never");
    const std::string text = numberedLines(40);
    const long length = long(text.size());
    load(text);
    Sheet sheet;
    auto& [record, device, dc] = sheet;
    ASSERT_TRUE(dc.StartDoc("pages") > 0 && dc.StartPage() > 0);
    const CRect rect(20, 30, 320, 130);
    long next = 0;
    QString all;
    for (int guard = 0; next < length && guard < 100; ++guard) {
        record.texts.clear();
        const long from = next;
        next = editor->PrintPage(&dc, nullptr, from, length, rect);
        ASSERT_GT(next, from);
        for (const auto& t : record.texts)
            EXPECT_TRUE(t.baseline.x() >= rect.left && t.baseline.y() > rect.top && t.baseline.y() < rect.bottom);
        all += record.textOf(1);
    }
    EXPECT_EQ(next, length);
    EXPECT_EQ(all, withoutBlanks(text));
    EXPECT_NE(dc.GetSafeHdc(), nullptr);   // neither started nor ended here
    EXPECT_EQ(record.documentsEnded, 0);
    // Bad input: no surface, an empty rectangle, a range outside the document.
    CDC unstarted;
    EXPECT_EQ(editor->PrintPage(nullptr, nullptr, 0, length, rect), 0);
    EXPECT_EQ(editor->PrintPage(&unstarted, nullptr, 0, length, rect), 0);
    EXPECT_EQ(editor->PrintPage(&dc, nullptr, 7, length, CRect(50, 50, 50, 200)), 7);
    EXPECT_EQ(editor->PrintPage(&dc, nullptr, length + 50, length + 90, rect), length);
}

TEST_F(PrintTest, FilePropertiesAreEmptyAndDateAndTimeAreShortTexts) {
    PropSet pass;
    pass.Set("FileTime", "old");
    editor->SetFileProperties(pass);
    const std::unique_ptr<char[]> all(pass.ToString());
    const QStringList entries = QString::fromUtf8(all.get()).split('\n');
    for (const char* key : {"FileTime=", "FileDate=", "FileAttr="}) EXPECT_TRUE(entries.contains(key)) << key;
    for (const char* key : {"CurrentDate", "CurrentTime"}) EXPECT_TRUE(pass.Get(key).length() > 0 && pass.Get(key).length() < 100) << key;
}
