// The editor's print passes: layout, header and footer, selection, page range, dialog, single pages.
#include <QFile>
#include <QFontMetrics>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>

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

TEST_F(PrintTest, AnEmptyDocumentPrintsNoPageAndOneThatCannotStartSaysSo) {
    setProp("print.header.format", "H $(CurrentPage)");
    Sheet sheet;
    EXPECT_EQ(editor->PrintPreview(&sheet.dc, nullptr), 0);
    EXPECT_EQ(sheet.record.documents, std::vector<QString>{"Temp"});
    EXPECT_EQ(sheet.record.documentsEnded, 1);
    EXPECT_EQ(sheet.record.page, 0);
    EXPECT_TRUE(sheet.record.texts.empty());
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
    setProp("print.header.style", "font:DejaVu Sans,size:12,bold,fore:#FF0000,back:#00FF00");
    setProp("print.footer.format", "Page $(CurrentPage)");
    setProp("print.footer.style", "italics,fore:#0000FF");
    const std::string text = numberedLines(60);
    load(text);
    Sheet sheet;
    auto& [record, device, dc] = sheet;
    editor->PrintPreview(&dc, nullptr);
    ASSERT_GE(record.page, 2);
    EXPECT_EQ(record.pagesEnded, record.page);

    const PrintRecord::Text* header = record.find("Quill [] page 1");
    const PrintRecord::Text* footer = record.find("Page 1");
    ASSERT_TRUE(header && footer);
    EXPECT_EQ(header->colour, QColor(255, 0, 0));
    EXPECT_EQ(header->font.families().value(0), QString("DejaVu Sans"));
    EXPECT_EQ(header->font.weight(), QFont::Bold);
    EXPECT_NEAR(QFontMetrics(header->font, &device).height(), MulDiv(12, kDpi, 72), 1);
    EXPECT_EQ(footer->colour, QColor(0, 0, 255));
    EXPECT_EQ(footer->font.families().value(0), QString("Arial"));
    EXPECT_TRUE(footer->font.italic());

    // The header's box spans the sheet above the text frame; each rule lies between its line and the body.
    const int hh = lineHeight(header->font, device), fh = lineHeight(footer->font, device);
    const int top = hh + hh / 2, bottom = kHeight - fh - fh / 2;
    bool box = false, headerRule = false, footerRule = false;
    for (const auto& f : record.fills) box = box || (f.colour == QColor(0, 255, 0) && f.rect == QRectF(0, 0, kWidth, hh));
    for (const auto& l : record.lines) {
        headerRule = headerRule || (l.colour == QColor(255, 0, 0) && l.line == QLineF(0, top - hh / 4, kWidth, top - hh / 4));
        footerRule = footerRule || (l.colour == QColor(0, 0, 255) && l.line.y1() == bottom + fh / 4);
    }
    EXPECT_TRUE(box && headerRule && footerRule);

    QString body;
    for (int page = 1; page <= record.page; ++page) {
        EXPECT_EQ(record.textOf(page, -1e9, top - hh / 4), "Quill[]page" + QString::number(page));
        EXPECT_EQ(record.textOf(page, bottom + fh / 4, 1e9), "Page" + QString::number(page));
        body += record.textOf(page, top, bottom);
    }
    EXPECT_EQ(body, QString::fromStdString(text).remove(' ').remove('\n'));
}

TEST_F(PrintTest, HeaderWithoutStyleIsNinePointArialInBlackOnBlack) {
    setProp("print.header.format", "X$(CurrentPage)");
    load("select 1 from dual\n");
    Sheet sheet;
    editor->PrintPreview(&sheet.dc, nullptr);
    const PrintRecord::Text* header = sheet.record.find("X1");
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->font.families().value(0), QString("Arial"));
    EXPECT_NE(header->font.weight(), QFont::Bold);
    EXPECT_NEAR(QFontMetrics(header->font, &sheet.device).height(), MulDiv(9, kDpi, 72), 1);
    EXPECT_EQ(header->colour, QColor(Qt::black));
    const QRectF box(0, 0, kWidth, lineHeight(header->font, sheet.device));
    EXPECT_TRUE(std::any_of(sheet.record.fills.begin(), sheet.record.fills.end(),
                            [&](const PrintRecord::Fill& f) { return f.colour == Qt::black && f.rect == box; }));
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
    EXPECT_EQ(range.textOf(1), all.textOf(2));
    EXPECT_EQ(range.textOf(2), all.textOf(3));
    EXPECT_TRUE(range.textOf(1).startsWith("page2"));
    EXPECT_TRUE(range.textOf(2).startsWith("page3"));
    // One engine request a page: the pages after the range are never formatted.
    EXPECT_EQ(allMessages - editor->engine()->counters().messages, std::uint64_t(all.page - 3));
}

TEST_F(PrintTest, DialogKeepsTheSetupACancelIsSilentAndTheDefaultPrinterNeedsNoDialog) {
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
    ASSERT_TRUE(editor->savedMode() && editor->savedMode()->landscape == 1);
    ASSERT_TRUE(QFile::remove(chosen));
    SetPrintDialogHook([&](PRINTDLG& pd) {
        EXPECT_EQ(pd.hDevMode->landscape, 1);
        EXPECT_EQ(pd.hDevNames->output.str(), chosen.toStdString());
        return IDCANCEL;
    });
    editor->Print(true);
    EXPECT_FALSE(QFile::exists(chosen));

    SetDefaultPrintOutput(fallback.toUtf8().constData());
    SetPrintDialogHook([](PRINTDLG&) { ADD_FAILURE() << "no dialog expected"; return IDCANCEL; });
    editor->Print(false);
    SetDefaultPrintOutput(nullptr);
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
    EXPECT_EQ(all, QString::fromStdString(text).remove(' ').remove('\n'));
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
