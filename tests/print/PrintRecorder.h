#pragma once
// A paint device recording texts, fills and lines page by page; RecordingDC counts documents and pages.
#include <QImage>
#include <QPaintEngine>
#include <QPaintEngineState>
#include <QPrinter>
#include <QTextItem>
#include <memory>
#include <vector>

#include "CDC.h"

struct PrintRecord {
    struct Text { int page; QString text; QPointF baseline; QFont font; QColor colour; };
    struct Fill { int page; QRectF rect; QColor colour; };
    struct Line { int page; QLineF line; QColor colour; };
    std::vector<Text> texts;
    std::vector<Fill> fills;
    std::vector<Line> lines;
    std::vector<QString> documents;  // names given to StartDoc
    int page = 0;                    // pages started so far; drawings belong to the last
    int pagesEnded = 0, documentsEnded = 0;

    // The texts of one page whose baselines lie in [top, bottom), joined without blanks.
    QString textOf(int onPage, double top = -1e9, double bottom = 1e9) const {
        QString joined;
        for (const Text& t : texts)
            if (t.page == onPage && t.baseline.y() >= top && t.baseline.y() < bottom) joined += t.text;
        return joined.remove(' ').remove('\n');
    }
    const Text* find(const QString& needle) const {
        for (const Text& t : texts)
            if (t.text.contains(needle)) return &t;
        return nullptr;
    }
};

// A PDF printer whose file cannot be written.
inline std::unique_ptr<QPrinter> unwritablePrinter(const char* name) {
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString("/nonexistent-folder/quillbox/") + name);
    return printer;
}

// Records texts, rectangles and lines (the integer kinds arrive through QPaintEngine's
// conversions); paths, polygons and pictures are drawn nowhere.
class RecordingEngine : public QPaintEngine {
public:
    explicit RecordingEngine(PrintRecord& record) : QPaintEngine(AllFeatures), r_(record) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& s) override {
        if (s.state() & DirtyFont) font_ = s.font();
        if (s.state() & DirtyPen) pen_ = s.pen();
        if (s.state() & DirtyBrush) brush_ = s.brush();
    }
    void drawTextItem(const QPointF& p, const QTextItem& item) override {
        r_.texts.push_back({r_.page, item.text(), p, font_, pen_.color()});
    }
    void drawRects(const QRectF* rects, int n) override {
        for (int i = 0; i < n; ++i) r_.fills.push_back({r_.page, rects[i], brush_.color()});
    }
    void drawLines(const QLineF* lines, int n) override {
        for (int i = 0; i < n; ++i) r_.lines.push_back({r_.page, lines[i], pen_.color()});
    }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

private:
    PrintRecord& r_;
    QFont font_;
    QPen pen_;
    QBrush brush_;
};

// A sheet of the given size and resolution whose drawings go to the recording engine.
class RecordingDevice : public QImage {
public:
    RecordingDevice(PrintRecord& record, int width, int height, int dpi)
        : QImage(width, height, QImage::Format_RGB32), engine_(record) {
        setDotsPerMeterX(qRound(dpi / 0.0254)), setDotsPerMeterY(qRound(dpi / 0.0254));
    }
    QPaintEngine* paintEngine() const override { return const_cast<RecordingEngine*>(&engine_); }

private:
    RecordingEngine engine_;
};

class RecordingDC : public CDC {
public:
    RecordingDC(PrintRecord& record, RecordingDevice& device) : r_(record) { Attach(&device); }
    int StartDoc(const char* name) override { return r_.documents.push_back(QString::fromUtf8(name)), CDC::StartDoc(name); }
    int EndDoc() override { return ++r_.documentsEnded, CDC::EndDoc(); }
    int StartPage() override { return ++r_.page, CDC::StartPage(); }
    int EndPage() override { return ++r_.pagesEnded, CDC::EndPage(); }

private:
    PrintRecord& r_;
};
