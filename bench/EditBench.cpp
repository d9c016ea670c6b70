// Edits on a large SQL script through CScintillaWnd beside plain QsciScintillaBase doing the
// same work in the same run. Plain QScintilla with its default modification mask converts a
// byte position to a character offset from the start of the document on every insert and
// delete, so its slow cases run on a smaller document and are scaled by the document ratio
// ("plain_scaled_ms"). Every benchmark reports "ratio" = library / plain (scaled where noted).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <cstdlib>
#include <memory>

#include "BenchSupport.h"
#include "CKTScinReadWnd.h"

namespace {
constexpr size_t kLargeBytes = 50u << 20;
constexpr size_t kSmallBytes = 2u << 20;  // for plain QScintilla's per-edit scans

const std::string& largeScript() {
    static const std::string s = GenerateSqlScript(kLargeBytes);
    return s;
}
const std::string& smallScript() {
    static const std::string s = GenerateSqlScript(kSmallBytes);
    return s;
}

using Plain = QsciScintillaBase;
long plainSend(Plain& p, unsigned message, unsigned long w = 0, long l = 0) { return p.SendScintilla(message, w, l); }

void typeAtEnd(QWidget* widget) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
    QApplication::sendEvent(widget, &press);
}

// (1) One typed character at the end of the document, through the window's key handling.
void BM_KeystrokeAtEnd(benchmark::State& state) {
    const int keywords = int(state.range(0));
    EditorOnFrame host(keywords);
    host.editor->SetText(CString(largeScript()), 0);
    host.editor->SendEditor(SCI_DOCUMENTEND);
    Plain plain;
    plain.SendScintilla(Plain::SCI_SETTEXT, 0UL, smallScript().c_str());
    plainSend(plain, Plain::SCI_DOCUMENTEND);
    double ours = 0, stock = 0;
    int n = 0;
    for (auto _ : state) {
        const double one = TimeMs([&] { typeAtEnd(host.editor->GetSafeHwnd()); });
        stock += TimeMs([&] { typeAtEnd(&plain); });
        ours += one;
        ++n;
        state.SetIterationTime(one / 1000.0);
    }
    const double scale = double(kLargeBytes) / double(kSmallBytes);
    state.counters["quillbox_ms"] = ours / n;
    state.counters["plain_small_ms"] = stock / n;
    state.counters["plain_scaled_ms"] = stock / n * scale;
    state.counters["ratio"] = (ours / n) / (stock / n * scale);
}

// Replaces "id" targets inside one undo action; returns the count.
template <typename Send>
long replaceAll(Send send, long maxCount) {
    const char* what = "id";
    const char* with = "ID";
    long count = 0;
    send(SCI_BEGINUNDOACTION, 0, 0);
    send(SCI_SETSEARCHFLAGS, SCFIND_MATCHCASE, 0);
    long start = 0;
    for (; count < maxCount; ++count) {
        send(SCI_SETTARGETSTART, start, 0);
        send(SCI_SETTARGETEND, send(SCI_GETLENGTH, 0, 0), 0);
        if (send(SCI_SEARCHINTARGET, 2, reinterpret_cast<long>(what)) < 0) break;
        send(SCI_REPLACETARGET, 2, reinterpret_cast<long>(with));
        start = send(SCI_GETTARGETEND, 0, 0);
    }
    send(SCI_ENDUNDOACTION, 0, 0);
    return count;
}

// (2) 500,000 target replacements in one undo action.
void BM_ReplaceTargets(benchmark::State& state) {
    constexpr long kTargets = 500000;
    constexpr long kPlainTargets = 2000;
    double ours = 0, stock = 0;
    long done = 0;
    for (auto _ : state) {
        state.PauseTiming();
        EditorOnFrame host(1);
        host.editor->SetText(CString(largeScript()), 0);
        Plain plain;
        plain.SendScintilla(Plain::SCI_SETTEXT, 0UL, smallScript().c_str());
        state.ResumeTiming();
        ours = TimeMs([&] {
            done = replaceAll([&](long m, long w, long l) { return host.editor->SendEditor(m, WPARAM(w), LPARAM(l)); },
                              kTargets);
        });
        stock = TimeMs([&] {
            replaceAll([&](long m, long w, long l) { return plainSend(plain, unsigned(m), (unsigned long)w, l); },
                       kPlainTargets);
        });
        state.SetIterationTime(ours / 1000.0);
    }
    // Plain cost per replacement grows with the document; scale by count and by length.
    const double scaled = stock * (double(done) / kPlainTargets) * (double(kLargeBytes) / double(kSmallBytes));
    state.counters["replacements"] = double(done);
    state.counters["quillbox_ms"] = ours;
    state.counters["plain_2000_on_2MB_ms"] = stock;
    state.counters["plain_scaled_ms"] = scaled;
    state.counters["ratio"] = ours / scaled;
}

// (3) SetText of the whole script, beside plain SCI_SETTEXT with the default mask and with
// insert/delete masked out (the engine's own cost).
void BM_SetTextWhole(benchmark::State& state) {
    EditorOnFrame host(1);
    Plain plain, masked;
    plainSend(masked, Plain::SCI_SETMODEVENTMASK, Plain::SC_MOD_CHANGEFOLD);
    const CString text(largeScript());
    double ours = 0, stock = 0, engine = 0, peak = 0;
    for (auto _ : state) {
        host.editor->Empty();
        plainSend(plain, Plain::SCI_CLEARALL);
        plainSend(masked, Plain::SCI_CLEARALL);
        CString copy = text;  // the by-value argument is the caller's copy, made before timing
        const long before = CurrentResidentBytes();
        ResetPeakResident();
        ours = TimeMs([&] { host.editor->SetText(std::move(copy), 0); });
        peak = double(PeakResidentBytes() - before) / double(kLargeBytes);
        stock = TimeMs([&] { plain.SendScintilla(Plain::SCI_SETTEXT, 0UL, largeScript().c_str()); });
        engine = TimeMs([&] { masked.SendScintilla(Plain::SCI_SETTEXT, 0UL, largeScript().c_str()); });
        state.SetIterationTime(ours / 1000.0);
    }
    state.counters["quillbox_ms"] = ours;
    state.counters["plain_ms"] = stock;
    state.counters["masked_engine_ms"] = engine;
    state.counters["ratio"] = ours / stock;
    state.counters["ratio_vs_engine"] = ours / engine;
    state.counters["peak_bytes_per_doc_byte"] = peak;
}

// Plain QScintilla's share of an output window's load: `count` appends of `line`, each
// trimming the front to keep 10,000 lines less a slack of 100.
void plainAppendWithLimit(Plain& plain, const CString& line, int count) {
    for (int i = 0; i < count; ++i) {
        const long lines = plainSend(plain, Plain::SCI_GETLINECOUNT);
        if (10000 < lines + 100) {
            const long end = plainSend(plain, Plain::SCI_GETLINEENDPOSITION, (unsigned long)(lines - 10000 + 100));
            plainSend(plain, Plain::SCI_DELETERANGE, 0, end);
        }
        plainSend(plain, Plain::SCI_APPENDTEXT, (unsigned long)line.GetLength(), reinterpret_cast<long>(line.c_str()));
    }
}

// Times `appends` one-line appends with a 10,000-line limit through `append` (made ready by
// `setUp` outside the timing), beside plain QScintilla's bare append and trim of `plainAppends`
// lines, scaled to the same count.
template <typename SetUp>
void appendBenchmark(benchmark::State& state, int appends, int plainAppends, SetUp setUp) {
    const CString line("2026-11-23 10:00:00 INFO statement executed: 42 rows affected\r\n");
    double ours = 0, stock = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto append = setUp();
        Plain plain;
        state.ResumeTiming();
        ours = TimeMs([&] {
            for (int i = 0; i < appends; ++i) append(line);
        });
        stock = TimeMs([&] { plainAppendWithLimit(plain, line, plainAppends); });
        state.SetIterationTime(ours / 1000.0);
    }
    const double plainScaled = stock * double(appends) / plainAppends;
    state.counters["quillbox_lines_per_s"] = appends / (ours / 1000.0);
    state.counters["quillbox_ms"] = ours;
    state.counters["plain_scaled_ms"] = plainScaled;
    state.counters["ratio"] = ours / plainScaled;
}

// (4) 100,000 one-line appends with a 10,000-line limit (an output window's load).
void BM_AppendWithLimit(benchmark::State& state) {
    appendBenchmark(state, 100000, 5000, [] {
        auto host = std::make_shared<EditorOnFrame>(0);
        return [host](const CString& line) { host->editor->AppendTextWithLimit(line, 10000, 100, false); };
    });
}

// The read-only viewer pouring output: each append lifts read-only, trims, appends, widens
// the scroll range over the lines it touched and updates the view.
void BM_ViewerAppendWithLimit(benchmark::State& state) {
    appendBenchmark(state, 20000, 2000, [] {
        struct Viewer {
            CWnd frame;
            CKTScinReadWnd viewer;
        };
        auto host = std::make_shared<Viewer>();
        host->frame.CreateEx(0, "QuillboxFrame", "bench", WS_VISIBLE, RECT{0, 0, 800, 600}, nullptr, 0);
        CRect rect(0, 0, 780, 580);
        host->viewer.Create("output", rect, &host->frame, 0);
        return [host](const CString& line) { host->viewer.AppendText(line, 10000, 100, false); };
    });
}
}  // namespace

BENCHMARK(BM_KeystrokeAtEnd)->Arg(1)->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(BM_ReplaceTargets)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_SetTextWhole)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_AppendWithLimit)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ViewerAppendWithLimit)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
