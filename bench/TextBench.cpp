// SetText and GetText of a 50 MB SQL script through CScintillaWnd, beside plain
// QsciScintillaBase SCI_SETTEXT and SCI_GETTEXT in the same run. Counters report both times
// and their ratio (library / plain).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>
#include <vector>

#include "BenchSupport.h"

namespace {
constexpr size_t kDocumentBytes = 50u << 20;

const std::string& script() {
    static const std::string s = GenerateSqlScript(kDocumentBytes);
    return s;
}

void BM_SetText50MB(benchmark::State& state) {
    EditorOnFrame host(1);
    QsciScintillaBase plain;
    const CString text(script());
    double ours = 0, stock = 0;
    for (auto _ : state) {
        stock = TimeMs([&] { plain.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, script().c_str()); });
        CString copy = text;  // the by-value argument is the caller's copy, made before timing
        ours = TimeMs([&] { host.editor->SetText(std::move(copy), 0); });
        state.SetIterationTime(ours / 1000.0);
        // Start each round from empty documents, as a file load does.
        plain.SendScintilla(QsciScintillaBase::SCI_CLEARALL);
        host.editor->Empty();
    }
    state.counters["plain_ms"] = stock;
    state.counters["quillbox_ms"] = ours;
    state.counters["ratio"] = ours / stock;
}

void BM_GetText50MB(benchmark::State& state) {
    EditorOnFrame host(1);
    QsciScintillaBase plain;
    plain.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, script().c_str());
    host.editor->SetText(CString(script()), 0);
    std::vector<char> buffer(kDocumentBytes + 1);
    double ours = 0, stock = 0;
    for (auto _ : state) {
        stock = TimeMs([&] {
            plain.SendScintilla(QsciScintillaBase::SCI_GETTEXT, (unsigned long)buffer.size(), buffer.data());
        });
        CString got;
        ours = TimeMs([&] { got = host.editor->GetText(); });
        benchmark::DoNotOptimize(got);
        state.SetIterationTime(ours / 1000.0);
    }
    state.counters["plain_ms"] = stock;
    state.counters["quillbox_ms"] = ours;
    state.counters["ratio"] = ours / stock;
}
}  // namespace

BENCHMARK(BM_SetText50MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_GetText50MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
