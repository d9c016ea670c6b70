// LoadFile and SaveFile of a 100 MB and a 200 MB SQL script, in UTF-8 and in the legacy code
// pages 949 and 932, beside a plain read of the file into memory and plain QScintilla SCI_SETTEXT of
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
// The script with a comment in the language of the code page every 4 KiB, so that a legacy
// file really needs converting (Hangul for UTF-8 too).
std::string MakeScript(size_t bytes, int codePage) {
    std::string text = GenerateSqlScript(bytes);
    const std::string comment = codePage == 932 ? "\n-- 注文の集計\n" : "\n-- 주문 집계\n";
    for (size_t at = 0; at + 64 < text.size(); at += 4096) text.replace(at, comment.size(), comment);
    return text;
}

// The script of one size and its two files, UTF-8 and a legacy code page; only the last one
// asked for is kept.
struct Files {
    Files(size_t bytes, int page) : codePage(page), script(MakeScript(bytes, page)) {
        QFile u(QString::fromUtf8(utf8));
        u.open(QIODevice::WriteOnly);
        u.write(script.data(), qint64(script.size()));
        u.close();
        CKTTextFileWrite w(legacy.constData(), TEXTENCODING_ANSI, codePage);
        w.Write(script.c_str());
        w.Close();
    }
    int codePage;
    std::string script;
    QTemporaryDir dir;
    QByteArray utf8 = dir.filePath("script-utf8.sql").toUtf8();
    QByteArray legacy = dir.filePath("script-legacy.sql").toUtf8();
};

Files& files(size_t bytes, int codePage = 949) {
    static std::unique_ptr<Files> f;
    if (!f || f->script.size() != bytes || f->codePage != codePage) {
        f.reset();
        f = std::make_unique<Files>(bytes, codePage);
    }
    return *f;
}

// Sets the legacy code page the editor reads files in (a protected member, reached through a
// class of our own as a host's derived window would).
void SetLegacyCodePage(CScintillaWnd& editor, int codePage) {
    struct Access : CScintillaWnd {
        static auto Set() { return &Access::SetEncoding; }
    };
    (editor.*Access::Set())(codePage);
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
    const int codePage = int(state.range(0));
    const QByteArray& path = codePage ? files(bytes, codePage).legacy : files(bytes).utf8;
    EditorOnFrame host(1);
    if (codePage) SetLegacyCodePage(*host.editor, codePage);
    QsciScintillaBase plain;
    plain.SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, QsciScintillaBase::SC_MOD_CHANGEFOLD);
    double ours = 0, stock = 0, readOnly = 0, peak = 0;
    for (auto _ : state) {
        host.editor->Empty();
        plain.SendScintilla(QsciScintillaBase::SCI_CLEARALL);
        const long before = CurrentResidentBytes();
        ResetPeakResident();
        ours = TimeMs([&] {
            if (!host.editor->LoadFile(path.constData())) state.SkipWithError("the load failed");
        });
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

// Arguments: legacy code page (0: UTF-8), size in MiB.
BENCHMARK(BM_LoadFile)->ArgsProduct({{0, 949, 932}, {100, 200}})->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_SaveFile)->Args({0, 100})->Args({1, 100})->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
