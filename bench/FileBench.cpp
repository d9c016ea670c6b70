// LoadFile and SaveFile of a 100 MB and a 200 MB SQL script, in UTF-8 and in a legacy code
// page (949), beside a plain read of the file into memory and plain QScintilla SCI_SETTEXT of
// the same bytes. Reports both ratios and the peak memory per document byte during the load.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>
#include <map>
#include <memory>

#include "BenchSupport.h"
#include "CKTTextFile.h"

namespace {
// The script with a Hangul comment every 4 KiB, so the legacy file really needs converting.
std::string MakeScript(size_t bytes) {
    std::string text = GenerateSqlScript(bytes);
    const std::string comment = "\n-- 주문 집계\n";
    for (size_t at = 0; at + 64 < text.size(); at += 4096) text.replace(at, comment.size(), comment);
    return text;
}

// The script of one size and its two files; only the last size asked for is kept.
struct Files {
    explicit Files(size_t bytes) : script(MakeScript(bytes)) {
        QFile u(QString::fromUtf8(utf8));
        u.open(QIODevice::WriteOnly);
        u.write(script.data(), qint64(script.size()));
        u.close();
        CKTTextFileWrite w(legacy.constData(), TEXTENCODING_ANSI, 949);
        w.Write(script.c_str());
        w.Close();
    }
    std::string script;
    QTemporaryDir dir;
    QByteArray utf8 = dir.filePath("script-utf8.sql").toUtf8();
    QByteArray legacy = dir.filePath("script-949.sql").toUtf8();
};

Files& files(size_t bytes) {
    static std::unique_ptr<Files> f;
    if (!f || f->script.size() != bytes) {
        f.reset();
        f = std::make_unique<Files>(bytes);
    }
    return *f;
}

size_t SizeOf(const benchmark::State& state) { return size_t(state.range(1)) << 20; }

double plainLoadMs(const QByteArray& path, QsciScintillaBase& plain) {
    return TimeMs([&] {
        QFile f(QString::fromUtf8(path));
        f.open(QIODevice::ReadOnly);
        const QByteArray bytes = f.readAll();
        plain.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, bytes.constData());
    });
}

void BM_LoadFile(benchmark::State& state) {
    const size_t bytes = SizeOf(state);
    const QByteArray& path = state.range(0) ? files(bytes).legacy : files(bytes).utf8;
    EditorOnFrame host(1);
    QsciScintillaBase plain;
    plain.SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, QsciScintillaBase::SC_MOD_CHANGEFOLD);
    double ours = 0, stock = 0, readOnly = 0, peak = 0;
    for (auto _ : state) {
        host.editor->Empty();
        plain.SendScintilla(QsciScintillaBase::SCI_CLEARALL);
        const long before = CurrentResidentBytes();
        ResetPeakResident();
        ours = TimeMs([&] { host.editor->LoadFile(path.constData()); });
        peak = double(PeakResidentBytes() - before) / double(bytes);
        stock = plainLoadMs(path, plain);
        readOnly = TimeMs([&] {
            QFile f(QString::fromUtf8(path));
            f.open(QIODevice::ReadOnly);
            benchmark::DoNotOptimize(f.readAll());
        });
        state.SetIterationTime(ours / 1000.0);
    }
    state.counters["quillbox_ms"] = ours;
    state.counters["plain_read_ms"] = readOnly;
    state.counters["plain_read_settext_ms"] = stock;
    state.counters["ratio_vs_read"] = ours / readOnly;
    state.counters["ratio_vs_read_settext"] = ours / stock;
    state.counters["peak_bytes_per_doc_byte"] = peak;
}

void BM_SaveFile(benchmark::State& state) {
    const bool legacy = state.range(0) != 0;
    EditorOnFrame host(1);
    host.editor->SetText(CString(files(SizeOf(state)).script), 0);
    QTemporaryDir dir;
    const QByteArray out = dir.filePath("out.sql").toUtf8();
    const CString text = host.editor->GetText();
    double ours = 0, plain = 0;
    for (auto _ : state) {
        ours = TimeMs([&] { host.editor->SaveFile(out.constData(), legacy ? 0 : 1, false); });
        plain = TimeMs([&] {
            QFile f(QString::fromUtf8(out + ".plain"));
            f.open(QIODevice::WriteOnly);
            f.write(text.c_str(), text.GetLength());
        });
        state.SetIterationTime(ours / 1000.0);
    }
    state.counters["quillbox_ms"] = ours;
    state.counters["plain_write_ms"] = plain;
    state.counters["ratio"] = ours / plain;
}
}  // namespace

// Arguments: legacy code page (0 or 1), size in MiB.
BENCHMARK(BM_LoadFile)->Args({0, 100})->Args({1, 100})->Args({0, 200})->Args({1, 200})->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_SaveFile)->Args({0, 100})->Args({1, 100})->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
