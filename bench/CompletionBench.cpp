// Object completion: the time from a key press to the list shown, with a SQLite catalog of
// 50,000 columns and more, beside the engine's own cost of a key press with no completion; and the
// cost of finding the statement around the caret in a 100,000-line script.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <string>

#include "BenchSupport.h"
#include "CKTSQLEditWnd.h"
#include "SqliteNamekitMgr.h"

namespace {
void press(QWidget* w, Qt::Key key, const char* text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &event);
}

void BM_KeyPressToList(benchmark::State& state) {
    QTemporaryDir dir;
    SqliteNamekitMgr catalog(CString::fromQString(WriteCompletionCatalog(dir.path())));
    CNamekitMainWnd main;
    main.CreateEx(0, "QuillboxFrame", "main", WS_VISIBLE, RECT{0, 0, 800, 600}, nullptr, 0);
    main.SetNamekitMgr(&catalog);
    AfxSetMainWnd(&main);
    CKTSQLEditWnd window;
    window.Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 800, 600}, &main, 1);
    main.GetSafeHwnd()->activateWindow();
    window.GetSafeHwnd()->setFocus();
    QsciScintillaBase plain;
    plain.SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, QsciScintillaBase::SC_MOD_CHANGEFOLD);
    double ours = 0, stock = 0;
    for (auto _ : state) {
        window.SetText("select  from table_500 t\n", 0);
        window.SendMessage(SCI_GOTOPOS, 7);
        press(window.GetSafeHwnd(), Qt::Key_T, "t");
        press(window.GetSafeHwnd(), Qt::Key_Period, ".");
        QApplication::processEvents();
        ours = TimeMs([&] {
            press(window.GetSafeHwnd(), Qt::Key_C, "c");
            while (!window.SendMessage(SCI_AUTOCACTIVE)) QApplication::processEvents(QEventLoop::AllEvents, 5);
        });
        window.SendMessage(SCI_AUTOCCANCEL);
        stock = TimeMs([&] { press(&plain, Qt::Key_C, "c"); });
        state.SetIterationTime(ours / 1000.0);
    }
    AfxSetMainWnd(nullptr);
    state.counters["key_to_list_ms"] = ours;
    state.counters["plain_key_ms"] = stock;
    state.counters["ratio"] = ours / stock;
}

void BM_CurrentQuery100kLines(benchmark::State& state) {
    EditorOnFrame host(1);
    CKTSQLEditWnd window;
    window.Create("sql", WS_CHILD, RECT{0, 0, 800, 600}, host.frame.get(), 2);
    std::string script;
    for (int i = 0; i < 100000; ++i) script += (i % 7 == 6) ? "  where id = " + std::to_string(i) + ";\n" : "select col_a, col_b from t\n";
    window.SetText(CString(script), 0);
    window.SendMessage(SCI_GOTOPOS, WPARAM(window.GetTextLength() / 2));
    double ms = 0;
    CString query;
    for (auto _ : state) {
        ms = TimeMs([&] { query = window.GetCurrentQuery(); });
        state.SetIterationTime(ms / 1000.0);
    }
    state.counters["get_current_query_ms"] = ms;
    state.counters["query_bytes"] = query.GetLength();
}
}  // namespace

BENCHMARK(BM_KeyPressToList)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(BM_CurrentQuery100kLines)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
