// Editor behaviours on large SQL scripts: replace all, the word highlight, word completion,
// SQL formatting, printing and find next. Where plain QScintilla can do the same work it runs
// beside the library in the same run and "ratio" = library / plain.
//
// Plain QScintilla with its default modification mask converts a byte position to a character
// offset from the start of the document on every insert and delete (for its accessibility
// events), which makes a replace-all on a large document quadratic. The plain windows that edit
// here therefore mask insert and delete out: they show the engine's own cost, which is what the
// library's engine link promises to stay close to.
#include <benchmark/benchmark.h>

#include <Qsci/qsciscintilla.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "CSQLFormatter.h"
#include "Registry.h"

namespace {
constexpr size_t kMB = 1u << 20;
constexpr size_t kScriptBytes = 10 * kMB;
constexpr size_t kHugeBytes = 50 * kMB;

const std::string& script10MB() {
    static const std::string s = GenerateSqlScript(kScriptBytes);
    return s;
}

using Plain = QsciScintillaBase;
long plainSend(Plain& p, unsigned message, unsigned long w = 0, long l = 0) { return p.SendScintilla(message, w, l); }

// A plain window holding `text` with insert and delete masked out and a UTF-8 document, as
// the library's engine has it.
void loadPlain(Plain& plain, const CString& text) {
    plainSend(plain, Plain::SCI_SETMODEVENTMASK, Plain::SC_MOD_CHANGEFOLD);
    plainSend(plain, Plain::SCI_SETCODEPAGE, Plain::SC_CP_UTF8);
    plain.SendScintilla(Plain::SCI_SETTEXT, 0UL, text.c_str());
    plainSend(plain, Plain::SCI_EMPTYUNDOBUFFER);
}

// The library's editor with the protected behaviours under test reachable.
class BehaviourEditor : public CScintillaWnd {
public:
    using CScintillaWnd::DoReplaceAll;
    using CScintillaWnd::findText;
    using CScintillaWnd::initScintilla;
    using CScintillaWnd::keyWordUsingPreCreate;
    using CScintillaWnd::matchCase;
    using CScintillaWnd::replaceText;
    using CScintillaWnd::SearchForward;
    using CScintillaWnd::SendEditor;
    using CScintillaWnd::StartAutoCompleteWord;
    using CScintillaWnd::UpdateUI;
    using CScintillaWnd::wholeWord;
    using CScintillaWnd::wrapSearch;
};

// As EditorOnFrame, with the subclass above and a frame that is shown, so that the view has
// its real size (the word highlight works on the lines on screen).
struct BehaviourHost {
    BehaviourHost() {
        frame = std::make_unique<CWnd>();
        frame->CreateEx(0, "QuillboxFrame", "bench", WS_VISIBLE, RECT{0, 0, 800, 600}, nullptr, 0);
        editor = std::make_unique<BehaviourEditor>();
        editor->keyWordUsingPreCreate = 1;
        editor->SetNoFocusOnSetText(1);
        editor->Create("editor", WS_CHILD | WS_VISIBLE, RECT{0, 0, 800, 600}, frame.get(), 1);
        editor->initScintilla();
    }
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<BehaviourEditor> editor;
};

// The SQL window with the formatter's keyword tests reachable.
class FormatWindow : public CKTScinWnd {
public:
    using CKTScinWnd::isSQLKeyword;
    using CKTScinWnd::isSQLKeyword2;
    using CKTScinWnd::SendEditor;
};

// ---------------------------------------------------------------------------------------------
// (1) Replace all of a common word in a 10 MB script.

constexpr const char* kFind = "where";
constexpr const char* kReplace = "WHERE";
constexpr int kReplaceFlags = SCFIND_MATCHCASE | SCFIND_WHOLEWORD;

// Plain QScintilla's replace-all: target search and replace in one undo action.
long plainReplaceAll(Plain& plain, const char* find, const char* replace, int flags) {
    const unsigned long findLength = std::strlen(find), replaceLength = std::strlen(replace);
    long count = 0;
    plainSend(plain, Plain::SCI_BEGINUNDOACTION);
    plainSend(plain, Plain::SCI_SETSEARCHFLAGS, (unsigned long)flags);
    long start = 0;
    for (;;) {
        plainSend(plain, Plain::SCI_SETTARGETSTART, (unsigned long)start);
        plainSend(plain, Plain::SCI_SETTARGETEND, (unsigned long)plainSend(plain, Plain::SCI_GETLENGTH));
        if (plain.SendScintilla(Plain::SCI_SEARCHINTARGET, findLength, find) < 0) break;
        plain.SendScintilla(Plain::SCI_REPLACETARGET, replaceLength, replace);
        start = plainSend(plain, Plain::SCI_GETTARGETEND);
        ++count;
    }
    plainSend(plain, Plain::SCI_ENDUNDOACTION);
    return count;
}

// Runs the library's replace-all (`ours`, on a window that holds the script) and plain's on
// the very bytes the window holds, and reports both; also whether one undo takes the whole
// replace-all back.
template <typename Window, typename ReplaceAll>
void replaceAllBeside(benchmark::State& state, Window& editor, ReplaceAll ours) {
    double oursMs = 0, plainMs = 0;
    long done = 0, plainDone = 0;
    bool oneUndo = false;
    for (auto _ : state) {
        state.PauseTiming();
        editor.SetText(CString(script10MB()), 0);
        const CString before = editor.GetText();  // the script with the window's line ends
        Plain plain;
        loadPlain(plain, before);
        state.ResumeTiming();
        oursMs = TimeMs([&] { done = ours(); });
        plainMs = TimeMs([&] { plainDone = plainReplaceAll(plain, kFind, kReplace, kReplaceFlags); });
        state.SetIterationTime(oursMs / 1000.0);
        state.PauseTiming();
        editor.SendEditor(SCI_UNDO);
        oneUndo = editor.GetText().view() == before.view();
        state.ResumeTiming();
    }
    state.counters["replacements"] = double(done);
    state.counters["plain_replacements"] = double(plainDone);
    state.counters["quillbox_ms"] = oursMs;
    state.counters["plain_ms"] = plainMs;
    state.counters["ratio"] = oursMs / plainMs;
    state.counters["one_undo_restores"] = oneUndo ? 1 : 0;
}

// The direct form: texts as arguments. It searches under the engine's flags as they stand.
void BM_ReplaceAllDirect10MB(benchmark::State& state) {
    BehaviourHost host;
    BehaviourEditor& editor = *host.editor;
    editor.SetSearchflags(kReplaceFlags);
    replaceAllBeside(state, editor, [&] {
        editor.SendEditor(SCI_SETSEARCHFLAGS, kReplaceFlags);
        return long(editor.ReplaceAll(kFind, kReplace, 0));
    });
}

// The replace dialog's loop on the window's kept find state (find text, match case, whole word).
void BM_ReplaceAllFindState10MB(benchmark::State& state) {
    BehaviourHost host;
    BehaviourEditor& editor = *host.editor;
    editor.findText = kFind;
    editor.replaceText = kReplace;
    editor.matchCase = 1;
    editor.wholeWord = 1;
    editor.wrapSearch = 1;
    replaceAllBeside(state, editor, [&] { return long(editor.DoReplaceAll(false)); });
}

// ---------------------------------------------------------------------------------------------
// (2) The word highlight: a whole word selected near the end of the document, and UpdateUI,
// which must cost what the lines on screen cost whatever the document's size.

struct HighlightRun {
    double firstUs = 0;    // the first update after the selection
    double medianUs = 0;   // later updates of the same selection, the median
    long lit = 0;          // highlighted matches
    long linesOnScreen = 0;
};

long countLit(BehaviourEditor& editor) {
    constexpr int kIndicator = indicator::WordHighlight;
    const long length = editor.SendEditor(SCI_GETLENGTH);
    const long first = editor.SendEditor(SCI_POSITIONFROMLINE,
                                         WPARAM(editor.SendEditor(SCI_GETFIRSTVISIBLELINE)));
    long lit = 0;
    for (long position = first; position < length;) {
        const long end = editor.SendEditor(SCI_INDICATOREND, kIndicator, position);
        if (end <= position) break;
        if (editor.SendEditor(SCI_INDICATORVALUEAT, kIndicator, position)) ++lit;
        position = end;
    }
    return lit;
}

HighlightRun highlightOn(size_t bytes, int updates) {
    BehaviourHost host;
    BehaviourEditor& editor = *host.editor;
    editor.SetText(CString(GenerateSqlScript(bytes)), 0);
    // The last "from orders o": "orders" stands between blanks, a whole word.
    const long length = editor.SendEditor(SCI_GETLENGTH);
    editor.SendEditor(SCI_SETSEARCHFLAGS, SCFIND_MATCHCASE);
    editor.SendEditor(SCI_SETTARGETSTART, WPARAM(length));
    editor.SendEditor(SCI_SETTARGETEND, 0);
    const char* needle = "from orders o";
    const long at = editor.SendEditor(SCI_SEARCHINTARGET, std::strlen(needle), reinterpret_cast<LPARAM>(needle));
    editor.SendEditor(SCI_SETSEL, WPARAM(at + 5), at + 11);
    editor.SendEditor(SCI_SCROLLCARET);
    QApplication::processEvents();
    editor.SendEditor(SCI_SETSEARCHFLAGS, 0);

    HighlightRun run;
    run.firstUs = TimeMs([&] { editor.UpdateUI(); }) * 1000.0;
    std::vector<double> times;
    for (int i = 0; i < updates; ++i) times.push_back(TimeMs([&] { editor.UpdateUI(); }));
    std::nth_element(times.begin(), times.begin() + updates / 2, times.end());
    run.medianUs = times[size_t(updates / 2)] * 1000.0;
    run.lit = countLit(editor);
    run.linesOnScreen = editor.SendEditor(SCI_LINESONSCREEN);
    return run;
}

void BM_WordHighlight(benchmark::State& state) {
    constexpr int kUpdates = 200;
    HighlightRun small, huge;
    for (auto _ : state) {
        small = highlightOn(kMB, kUpdates);
        huge = highlightOn(kHugeBytes, kUpdates);
        state.SetIterationTime(huge.medianUs / 1e6);
    }
    state.counters["update_1MB_us"] = small.medianUs;
    state.counters["update_50MB_us"] = huge.medianUs;
    state.counters["first_update_1MB_us"] = small.firstUs;
    state.counters["first_update_50MB_us"] = huge.firstUs;
    state.counters["ratio_50MB_to_1MB"] = huge.medianUs / small.medianUs;
    state.counters["lit_1MB"] = double(small.lit);
    state.counters["lit_50MB"] = double(huge.lit);
    state.counters["lines_on_screen"] = double(huge.linesOnScreen);
}

// ---------------------------------------------------------------------------------------------
// (3) Word completion from the document's words with a two-letter root, beside QScintilla's
// own completion from the document.

void BM_WordCompletion10MB(benchmark::State& state) {
    BehaviourHost host;
    BehaviourEditor& editor = *host.editor;
    editor.SetText(CString(script10MB() + "\ncu"), 0);
    editor.SendEditor(SCI_DOCUMENTEND);
    const CString text = editor.GetText();

    QsciScintilla plain;
    plain.SendScintilla(Plain::SCI_SETMODEVENTMASK, (unsigned long)Plain::SC_MOD_CHANGEFOLD);
    plain.SendScintilla(Plain::SCI_SETCODEPAGE, (unsigned long)Plain::SC_CP_UTF8);
    plain.SendScintilla(Plain::SCI_SETTEXT, 0UL, text.c_str());
    plain.SendScintilla(Plain::SCI_DOCUMENTEND);
    plain.setAutoCompletionSource(QsciScintilla::AcsDocument);
    plain.setAutoCompletionCaseSensitivity(false);

    // The engine's share: the word-start search for the root over the whole document alone.
    long rootMatches = 0;
    const double scanMs = TimeMs([&] {
        const long length = long(text.GetLength());
        Sci_TextToFind find;
        find.lpstrText = "cu";
        find.chrg.cpMin = 0;
        for (;;) {
            find.chrg.cpMax = length;
            const long at = editor.SendEditor(SCI_FINDTEXT, SCFIND_WORDSTART, reinterpret_cast<LPARAM>(&find));
            if (at < 0) break;
            ++rootMatches;
            find.chrg.cpMin = at + 2;
        }
    });

    double ours = 0, stock = 0, oursTotal = 0, stockTotal = 0;
    bool shown = false, plainShown = false;
    int n = 0;
    for (auto _ : state) {
        ours = TimeMs([&] { shown = editor.StartAutoCompleteWord(0); });
        shown = shown && editor.SendEditor(SCI_AUTOCACTIVE) != 0;
        editor.SendEditor(SCI_AUTOCCANCEL);
        stock = TimeMs([&] { plain.autoCompleteFromDocument(); });
        plainShown = plain.SendScintilla(Plain::SCI_AUTOCACTIVE) != 0;
        plain.SendScintilla(Plain::SCI_AUTOCCANCEL);
        oursTotal += ours;
        stockTotal += stock;
        ++n;
        state.SetIterationTime(ours / 1000.0);
    }
    state.counters["quillbox_ms"] = oursTotal / n;
    state.counters["plain_qsci_document_ms"] = stockTotal / n;
    state.counters["ratio"] = oursTotal / stockTotal;
    state.counters["list_shown"] = shown ? 1 : 0;
    state.counters["root_matches"] = double(rootMatches);
    state.counters["engine_scan_ms"] = scanMs;
    state.counters["plain_list_shown"] = plainShown ? 1 : 0;
}

// ---------------------------------------------------------------------------------------------
// (4) SQL formatting of a 1 MB script with every option on.

void BM_SqlFormatter1MB(benchmark::State& state) {
    const bool keywordTests = state.range(0) != 0;
    const CString input(GenerateSqlScript(kMB));
    double ms = 0;
    long outBytes = 0;
    for (auto _ : state) {
        CSQLFormatter formatter;
        if (keywordTests) {
            formatter.isKeywordFunc = &FormatWindow::isSQLKeyword;
            formatter.isListKeywordFunc = &FormatWindow::isSQLKeyword2;
        }
        CString out;
        ms = TimeMs([&] { out = formatter.Format(input, true, true, CSQLFormatter::UpperCase, true, true, 80); });
        outBytes = out.GetLength();
        state.SetIterationTime(ms / 1000.0);
    }
    state.counters["format_ms"] = ms;
    state.counters["MB_per_s"] = (double(input.GetLength()) / double(kMB)) / (ms / 1000.0);
    state.counters["out_bytes"] = double(outBytes);
}

// The window's Format SQL command on the whole 1 MB text, options from a private settings
// store with every option on; one undo must take it back.
void BM_FormatSqlCommand1MB(benchmark::State& state) {
    QTemporaryDir dir;
    RegSetStorePath(dir.filePath("registry.sqlite").toUtf8().constData());
    {
        CKTMgrSetting setting(0);
        for (const char* name : {"Keyword Align", "Comma in List", "Multiline"}) setting.SetInt(name, 1);
        setting.SetInt("Keyword Case", CSQLFormatter::UpperCase);
    }
    double ms = 0, formatterMs = 0;
    bool oneUndo = false;
    long bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CWnd frame;
        frame.CreateEx(0, "QuillboxFrame", "bench", WS_VISIBLE, RECT{0, 0, 800, 600}, nullptr, 0);
        FormatWindow window;
        window.SetKeyWordUsingPreCreate(true);
        window.Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 800, 600}, &frame, 7);
        window.SetText(CString(GenerateSqlScript(kMB)), 0);
        const CString before = window.GetText();
        bytes = before.GetLength();
        {
            CSQLFormatter formatter;
            formatter.isKeywordFunc = &FormatWindow::isSQLKeyword;
            formatter.isListKeywordFunc = &FormatWindow::isSQLKeyword2;
            formatterMs = TimeMs([&] { formatter.Format(before, true, true, CSQLFormatter::UpperCase, true, true, 80); });
        }
        state.ResumeTiming();
        ms = TimeMs([&] { window.FormatSql(); });
        state.SetIterationTime(ms / 1000.0);
        state.PauseTiming();
        const bool changed = window.GetText().view() != before.view();
        window.SendEditor(SCI_UNDO);
        oneUndo = changed && window.GetText().view() == before.view();
        state.ResumeTiming();
    }
    RegSetStorePath(nullptr);
    state.counters["format_sql_ms"] = ms;
    state.counters["formatter_alone_ms"] = formatterMs;
    state.counters["window_share_ms"] = ms - formatterMs;
    state.counters["MB_per_s"] = (double(bytes) / double(kMB)) / (ms / 1000.0);
    state.counters["one_undo_restores"] = oneUndo ? 1 : 0;
}

// ---------------------------------------------------------------------------------------------
// (5) Printing a 5,000-line script into an A4 sheet of 96 dots per inch, beside plain
// QScintilla formatting the same pages with the same lexer.

constexpr int kSheetWidth = 794, kSheetHeight = 1123;

QImage sheet() {
    QImage image(kSheetWidth, kSheetHeight, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::white);
    return image;
}

std::string firstLines(const std::string& text, int lines) {
    size_t at = 0;
    for (int i = 0; i < lines && at != std::string::npos; ++i) {
        at = text.find('\n', at);
        if (at != std::string::npos) ++at;
    }
    return text.substr(0, at == std::string::npos ? text.size() : at);
}

class CountingDC : public CDC {
public:
    int StartPage() override { return ++pages, CDC::StartPage(); }
    int pages = 0;
};

void BM_PrintPreview5000Lines(benchmark::State& state) {
    const std::string text = firstLines(script10MB(), 5000);
    EditorOnFrame host(1);
    host.editor->SetText(CString(text), 0);
    const CString held = host.editor->GetText();

    Plain plain;
    loadPlain(plain, held);
    plainSend(plain, Plain::SCI_SETLEXER, Plain::SCLEX_SQL);

    double ours = 0, stock = 0;
    int pages = 0, plainPages = 0;
    for (auto _ : state) {
        QImage image = sheet();
        CountingDC dc;
        dc.Attach(&image);
        ours = TimeMs([&] { host.editor->PrintPreview(&dc, nullptr); });
        pages = dc.pages;

        QImage plainImage = sheet();
        stock = TimeMs([&] {
            QPainter painter(&plainImage);
            const long length = plainSend(plain, Plain::SCI_GETLENGTH);
            plainPages = 0;
            for (long printed = 0; printed < length;) {
                painter.fillRect(plainImage.rect(), Qt::white);
                const long next = plain.SendScintilla(Plain::SCI_FORMATRANGE, 1UL, &painter,
                                                      QRect(0, 0, kSheetWidth - 1, kSheetHeight - 1), printed, length);
                ++plainPages;
                if (next <= printed) break;
                printed = next;
            }
            plainSend(plain, Plain::SCI_FORMATRANGE, 0UL, 0L);
        });
        state.SetIterationTime(ours / 1000.0);
    }
    state.counters["pages"] = pages;
    state.counters["pages_per_s"] = pages / (ours / 1000.0);
    state.counters["plain_pages"] = plainPages;
    state.counters["plain_pages_per_s"] = plainPages / (stock / 1000.0);
    state.counters["ratio_ms_per_page"] = (ours / pages) / (stock / plainPages);
}

// ---------------------------------------------------------------------------------------------
// (6) Find next, 10,000 times in a row over the 10 MB script.

constexpr int kFinds = 10000;
constexpr const char* kFindWord = "audit_log";

void BM_FindNext10000(benchmark::State& state) {
    BehaviourHost host;
    BehaviourEditor& editor = *host.editor;
    editor.SetText(CString(script10MB()), 0);
    Plain plain;
    loadPlain(plain, editor.GetText());

    double forwardMs = 0, findNextMs = 0, plainMs = 0, plainSelectMs = 0;
    int forwardFound = 0, findNextFound = 0, plainFound = 0;
    long forwardEnd = 0, plainEnd = 0;
    const long wordLength = long(std::strlen(kFindWord));
    for (auto _ : state) {
        // The direct path: from the caret, selects the match.
        editor.SetSearchflags(0);
        editor.SendEditor(SCI_GOTOPOS, 0);
        forwardFound = 0;
        forwardMs = TimeMs([&] {
            for (int i = 0; i < kFinds; ++i) forwardFound += editor.SearchForward(kFindWord);
        });
        forwardEnd = editor.SendEditor(SCI_GETCURRENTPOS);

        // The dialog's find next on the kept find state, without messages.
        editor.findText = kFindWord;
        editor.matchCase = 0;
        editor.wholeWord = 0;
        editor.wrapSearch = 1;
        editor.SendEditor(SCI_GOTOPOS, 0);
        findNextFound = 0;
        findNextMs = TimeMs([&] {
            for (int i = 0; i < kFinds; ++i) findNextFound += editor.FindNext(false, false) >= 0;
        });

        // Plain: the bare target search, and the search with the match selected and scrolled to.
        plainSend(plain, Plain::SCI_SETSEARCHFLAGS, 0);
        plainFound = 0;
        plainMs = TimeMs([&] {
            const long length = plainSend(plain, Plain::SCI_GETLENGTH);
            long from = 0;
            for (int i = 0; i < kFinds; ++i) {
                plainSend(plain, Plain::SCI_SETTARGETSTART, (unsigned long)from);
                plainSend(plain, Plain::SCI_SETTARGETEND, (unsigned long)length);
                if (plain.SendScintilla(Plain::SCI_SEARCHINTARGET, (unsigned long)wordLength, kFindWord) < 0) break;
                from = plainSend(plain, Plain::SCI_GETTARGETEND);
                ++plainFound;
            }
            plainEnd = from;
        });
        plainSend(plain, Plain::SCI_GOTOPOS, 0);
        plainSelectMs = TimeMs([&] {
            const long length = plainSend(plain, Plain::SCI_GETLENGTH);
            for (int i = 0; i < kFinds; ++i) {
                plainSend(plain, Plain::SCI_SETTARGETSTART, (unsigned long)plainSend(plain, Plain::SCI_GETCURRENTPOS));
                plainSend(plain, Plain::SCI_SETTARGETEND, (unsigned long)length);
                if (plain.SendScintilla(Plain::SCI_SEARCHINTARGET, (unsigned long)wordLength, kFindWord) < 0) break;
                const long end = plainSend(plain, Plain::SCI_GETTARGETEND);
                plainSend(plain, Plain::SCI_SETSEL, (unsigned long)plainSend(plain, Plain::SCI_GETTARGETSTART), end);
                plainSend(plain, Plain::SCI_SCROLLCARET);
            }
        });
        state.SetIterationTime(forwardMs / 1000.0);
    }
    state.counters["search_forward_us"] = forwardMs * 1000.0 / kFinds;
    state.counters["find_next_us"] = findNextMs * 1000.0 / kFinds;
    state.counters["plain_search_us"] = plainMs * 1000.0 / kFinds;
    state.counters["plain_search_select_us"] = plainSelectMs * 1000.0 / kFinds;
    state.counters["ratio"] = forwardMs / plainMs;
    state.counters["ratio_vs_select"] = forwardMs / plainSelectMs;
    state.counters["find_next_ratio"] = findNextMs / plainMs;
    state.counters["found"] = forwardFound;
    state.counters["find_next_found"] = findNextFound;
    state.counters["plain_found"] = plainFound;
    state.counters["ends_agree"] = forwardEnd == plainEnd ? 1 : 0;
}
}  // namespace

BENCHMARK(BM_ReplaceAllDirect10MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ReplaceAllFindState10MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_WordHighlight)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(1);
BENCHMARK(BM_WordCompletion10MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SqlFormatter1MB)->Arg(1)->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_FormatSqlCommand1MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_PrintPreview5000Lines)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_FindNext10000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
