#pragma once
// Shared pieces of the benchmarks: a generated SQL script of a given size, a plain engine
// window for comparison, and a library editor window on a frame.
#include <Qsci/qsciscintillabase.h>

#include <QString>

#include <chrono>
#include <memory>
#include <string>

#include "CScintillaWnd.h"

// A script of about `bytes` bytes of varied SQL statements, lines ended by LF.
std::string GenerateSqlScript(size_t bytes);

// A SQLite catalog file in `folder`: the tables of the generated script and 1,000 tables
// table_0.. of 50 columns column_0.. each. Returns its path.
QString WriteCompletionCatalog(const QString& folder);

// Milliseconds a callable takes.
template <typename F>
double TimeMs(F&& f) {
    const auto start = std::chrono::steady_clock::now();
    f();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The library's editor window with its protected start-up reachable.
class BenchEditor : public CScintillaWnd {
public:
    using CScintillaWnd::initScintilla;
    using CScintillaWnd::keyWordUsingPreCreate;
    using CScintillaWnd::SendEditor;
};

struct EditorOnFrame {
    explicit EditorOnFrame(int keyWordUsingPreCreate = 1, bool initialise = true);
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<BenchEditor> editor;
};

// Runs the registered benchmarks on the offscreen platform with an application object.
int RunBenchmarks(int argc, char** argv);

// Peak resident memory of the process in bytes so far (VmHWM), and a way to reset it.
long PeakResidentBytes();
void ResetPeakResident();
long CurrentResidentBytes();
