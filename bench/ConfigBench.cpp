// The start-up sequence (property file, lexer properties, keyword lists, styles) with the
// shipped property file and with a generated one of 5000 keys, beside plain QScintilla
// receiving the same keyword lists and styles directly.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "PropSetFile.h"

namespace {
QString propertyFile() { return CScintillaWnd::PropertiesFolder().toQString() + "/SciTEGlobal.properties"; }

// 5000 keys in the shapes real files use (plain values, references, patterns), spread over
// five imported files, since one file is read up to 60000 bytes.
struct GeneratedFiles {
    QByteArray main;
    std::vector<std::pair<QString, QByteArray>> imports;
};

GeneratedFiles generatedFiles() {
    GeneratedFiles files;
    std::string main = "file.patterns.sql=*.sql;*.pls\nbase.colour=#102030\n";
    for (int part = 0; part < 5; ++part) {
        std::string text;
        for (int j = 0; j < 999; ++j) {
            const int i = part * 1000 + j;
            switch (i % 4) {
                case 0: text += "setting." + std::to_string(i) + "=value " + std::to_string(i) + "\n"; break;
                case 1: text += "ref." + std::to_string(i) + "=$(setting." + std::to_string(i - 1) + ") more\n"; break;
                case 2: text += "style.sql." + std::to_string(i % 200) + "=fore:$(base.colour),size:10\n"; break;
                default: text += "words." + std::to_string(i) + ".$(file.patterns.sql)=alpha beta\n"; break;
            }
        }
        const std::string name = "generated" + std::to_string(part);
        files.imports.push_back({QString::fromStdString(name + ".properties"), QByteArray::fromStdString(text)});
        main += "import " + name + "\n";
    }
    main += "keywords.$(file.patterns.sql)=select from where $(setting.0)\n";
    for (int n = 2; n <= 9; ++n) main += "keywords" + std::to_string(n) + ".*.sql=w" + std::to_string(n) + " x y z\n";
    files.main = QByteArray::fromStdString(main);
    return files;
}

// What the start-up sequence hands the engine, sent straight to a plain engine.
double plainMs() {
    PropSetFile props;
    const FilePath folder(CScintillaWnd::PropertiesFolder().c_str());
    props.Read(FilePath(folder, FilePath("SciTEGlobal.properties")), folder);
    std::vector<SString> lists{props.GetNewExpand("keywords.", "x.sql")};
    for (int n = 2; n <= 9; ++n) lists.push_back(props.GetNewExpand(("keywords" + std::to_string(n) + ".").c_str(), "x.sql"));
    QsciScintillaBase plain;
    return TimeMs([&] {
        plain.SendScintilla(QsciScintillaBase::SCI_SETLEXERLANGUAGE, 0UL, "sql");
        for (size_t n = 0; n < lists.size(); ++n)
            plain.SendScintilla(QsciScintillaBase::SCI_SETKEYWORDS, (unsigned long)n, lists[n].c_str());
        for (int style = 0; style < 256; ++style) {
            plain.SendScintilla(QsciScintillaBase::SCI_STYLESETFORE, (unsigned long)style, 0L);
            plain.SendScintilla(QsciScintillaBase::SCI_STYLESETSIZE, (unsigned long)style, 10L);
        }
    });
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(bytes);
}

void run(benchmark::State& state, const GeneratedFiles* generated) {
    const QString path = propertyFile();
    QFile shipped(path);
    shipped.open(QIODevice::ReadOnly);
    const QByteArray original = shipped.readAll();
    shipped.close();
    const QString folder = CScintillaWnd::PropertiesFolder().toQString();
    if (generated) {
        writeFile(path, generated->main);
        for (const auto& [name, bytes] : generated->imports) writeFile(folder + "/" + name, bytes);
    }
    EditorOnFrame host(1, false);
    double ours = 0, stock = 0;
    for (auto _ : state) {
        ours = TimeMs([&] { host.editor->initScintilla(); });
        stock = plainMs();
        state.SetIterationTime(ours / 1000.0);
    }
    writeFile(path, original);
    if (generated)
        for (const auto& entry : generated->imports) QFile::remove(folder + "/" + entry.first);
    state.counters["quillbox_ms"] = ours;
    state.counters["plain_keywords_styles_ms"] = stock;
    state.counters["ratio"] = ours / stock;
}

void BM_InitShippedFile(benchmark::State& state) { run(state, nullptr); }
void BM_InitGenerated5000Keys(benchmark::State& state) {
    static const GeneratedFiles files = generatedFiles();
    run(state, &files);
}
}  // namespace

BENCHMARK(BM_InitShippedFile)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(BM_InitGenerated5000Keys)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
