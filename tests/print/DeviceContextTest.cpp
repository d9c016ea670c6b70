// Device contexts and the print dialog of the platform layer.
#include <gtest/gtest.h>

#include <QImage>
#include <QPrinter>
#include <QTemporaryDir>
#include <climits>

#include "CDC.h"
#include "LibraryOnly.h"
#include "PrintRecorder.h"

namespace {
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
}  // namespace

TEST(MulDivTest, RoundsHalfAwayFromZeroAndRefusesWhatDoesNotFit) {
    const int rows[][4] = {{9, 96, 72, 12}, {10, 3, 4, 8}, {-10, 3, 4, -8}, {10, 3, -4, -8}, {1, 1, 0, -1},
                           {INT_MAX, 2, 1, -1}, {INT_MAX, INT_MAX, INT_MAX, INT_MAX}};
    for (const auto& r : rows) EXPECT_EQ(MulDiv(r[0], r[1], r[2]), r[3]) << r[0] << " " << r[1] << " " << r[2];
}

TEST(CDCTest, ImageSheetMeasuresWholeAndDrawsAlignedTextBoxesAndLines) {
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
}

TEST(CDCTest, EmptyDeletedOrUnwritableContextsRefuseQuietly) {
    CDC empty;
    EXPECT_FALSE(empty.Attach(static_cast<QPaintDevice*>(nullptr)));
    QImage image(50, 50, QImage::Format_RGB32);
    CDC deleted;
    ASSERT_TRUE(deleted.Attach(&image));
    EXPECT_TRUE(deleted.DeleteDC());
    EXPECT_FALSE(deleted.DeleteDC());
    CDC unwritable;
    ASSERT_TRUE(unwritable.Attach(unwritablePrinter("out.pdf")));
    EXPECT_LE(unwritable.StartDoc("Temp"), 0);
    for (CDC* dc : {&empty, &deleted, &unwritable}) {
        EXPECT_EQ(dc->GetSafeHdc(), nullptr);
        EXPECT_LE(dc->StartPage(), 0);
        EXPECT_LE(dc->EndDoc(), 0);
        EXPECT_FALSE(dc->ExtTextOut(0, 0, ETO_OPAQUE, nullptr, "x", 1));
        EXPECT_FALSE(dc->LineTo(5, 5));
    }
    EXPECT_EQ(deleted.GetDeviceCaps(PHYSICALWIDTH), 0);
    TEXTMETRIC tm;
    EXPECT_FALSE(empty.GetTextMetrics(&tm));
    CFont huge;   // heights no sheet holds still make a font
    EXPECT_TRUE(huge.CreateFont(INT_MIN, 5000, FALSE, FALSE, nullptr));
}

TEST(PrintDialogTest, AnswersComeFromTheHookTheDefaultOrACancel) {
    QTemporaryDir dir;
    const CString chosen = dir.filePath("chosen.pdf").toUtf8().constData();
    const CString fallback = dir.filePath("default.pdf").toUtf8().constData();
    EXPECT_FALSE(PrintDlg(nullptr));
    // Offscreen with no hook nobody can answer: a cancel that keeps the caller's setup.
    PrintDialogHook previous = SetPrintDialogHook({});
    PRINTDLG pd;
    pd.Flags = PD_RETURNDC;
    pd.hDevMode = std::make_unique<DEVMODE>();
    pd.hDevMode->landscape = 1;
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(pd.hDevMode->landscape, 1);
    EXPECT_EQ(pd.hDevNames, nullptr);

    int asked = 0;
    SetPrintDialogHook([&](PRINTDLG& d) {
        ++asked;
        d.hDevNames->output = chosen;
        d.hDevMode->landscape = 0;
        return asked == 1 ? IDOK : IDCANCEL;
    });
    ASSERT_TRUE(PrintDlg(&pd));
    ASSERT_NE(pd.hDC, nullptr);
    ASSERT_NE(pd.hDC->GetPrinter(), nullptr);
    EXPECT_EQ(pd.hDC->GetPrinter()->outputFileName().toStdString(), chosen.str());
    EXPECT_LT(pd.hDC->GetDeviceCaps(PHYSICALWIDTH), pd.hDC->GetDeviceCaps(PHYSICALHEIGHT));
    pd.hDevMode->landscape = 1;
    pd.hDevNames->output = "kept.pdf";
    EXPECT_FALSE(PrintDlg(&pd));   // the hook's changes are undone by its cancel
    EXPECT_EQ(pd.hDevMode->landscape, 1);
    EXPECT_EQ(pd.hDevNames->output, CString("kept.pdf"));
    EXPECT_EQ(pd.hDC, nullptr);

    // PD_RETURNDEFAULT asks nobody and takes the default printer, here a PDF file.
    SetDefaultPrintOutput(fallback);
    PRINTDLG quiet;
    quiet.Flags = PD_RETURNDC | PD_RETURNDEFAULT | PD_SELECTION;
    ASSERT_TRUE(PrintDlg(&quiet));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(quiet.Flags, PD_RETURNDC | PD_RETURNDEFAULT | PD_SELECTION);
    ASSERT_NE(quiet.hDC, nullptr);
    EXPECT_EQ(quiet.hDC->GetPrinter()->outputFileName().toStdString(), fallback.str());
    EXPECT_EQ(quiet.hDC->GetDeviceCaps(LOGPIXELSY), 1200);
    EXPECT_EQ(SetDefaultPrintOutput(nullptr), fallback);
    SetPrintDialogHook(previous);
}
