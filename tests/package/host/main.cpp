// A host program outside the tree, built against the installed package only: its own headers
// of the library's header names stay its own, the property file lies beside it, and the SQL
// window's members that a derived window uses work through the installed library.
#include <quillbox/Quillbox.h>

#include <Controls.h>
#include <Registry.h>
#include <Resources.h>
#include <System.h>

#include <QApplication>
#include <QClipboard>
#include <QWidget>
#include <cstdio>
#include <cstring>

static_assert(HOST_OWN_SYSTEM_H && HOST_OWN_REGISTRY_H && HOST_OWN_RESOURCES_H && HOST_OWN_CONTROLS_H);
#if __has_include(<CWnd.h>)
#error "only include/ may be on a host's include path"
#endif

namespace {
int failures = 0;

void check(bool ok, const char* what, const CString& got = CString()) {
    if (ok) return;
    ++failures;
    std::printf("host: FAILED %s (got \"%s\")\n", what, got.c_str());
}

bool has(const CString& text, const char* part) { return std::strstr(text.c_str(), part) != nullptr; }

CString clipboard() { return CString(QGuiApplication::clipboard()->text().toUtf8().constData()); }

// A host's own SQL window: what the library gives derived windows, made public here.
class HostSqlWindow : public CKTSQLEditWnd {
public:
    using CKTSQLEditWnd::CheckComment;
    using CKTSQLEditWnd::copyToJavaCode;
    using CKTSQLEditWnd::copyToLanguageCode;
    using CKTSQLEditWnd::copyToLanguageCodeEx;
    using CKTSQLEditWnd::copyToLanguageCodeEx2;
    using CKTSQLEditWnd::copyToPerlCode;
    using CKTSQLEditWnd::GetSingleQuery;
    using CKTSQLEditWnd::InitToken;
    using CKTSQLEditWnd::pasteFromCCode;
    using CKTSQLEditWnd::pasteFromJavaCode;
    using CKTSQLEditWnd::pasteFromLanguageCode;
};

// Each protected member once: copies of the whole script, the others on an empty window with
// the clipboard given. The answer is `expected`, or holds it when not `whole`.
void checkMembers(HostSqlWindow& sql) {
    struct Row { const char* what; bool whole; const char* clipboard; CString (*run)(HostSqlWindow&); const char* expected; };
    const Row rows[] = {
        {"copyToLanguageCode", false, nullptr, [](HostSqlWindow& w) { return w.copyToLanguageCode("pszSQL", "\"", "\\", "", "", ";"), clipboard(); }, "pszSQL = \"select a \""},
        {"copyToLanguageCodeEx", false, nullptr, [](HostSqlWindow& w) { return w.copyToLanguageCodeEx("sSQL", "'", "'", "+", "", ";", ":=", true), clipboard(); }, "sSQL := 'select a '"},
        {"copyToLanguageCodeEx2", false, nullptr, [](HostSqlWindow& w) { return w.copyToLanguageCodeEx2("CString q", "\"", "_T(", ")", "\\", "", "", ";", "=", true), clipboard(); }, "_T(\"  from t \")"},
        {"copyToPerlCode", false, nullptr, [](HostSqlWindow& w) { return w.copyToPerlCode("my $stmt", "'", "\\", ".", "", ";"), clipboard(); }, "k = :1 '"},
        {"copyToJavaCode", false, nullptr, [](HostSqlWindow& w) { return w.copyToJavaCode("strSQL", "StringBuffer", "append"), clipboard(); }, "strSQL.append(\" where k = ? \");"},
        {"pasteFromLanguageCode", false, "", [](HostSqlWindow& w) { return w.pasteFromLanguageCode('"', "SQL = \"a \"\"b\"\"\""), w.GetText(); }, "a \"b\""},
        {"pasteFromCCode", true, "\"select 1;\"", [](HostSqlWindow& w) { return w.pasteFromCCode(), w.GetText(); }, "select 1"},
        {"pasteFromJavaCode", false, "sb.append(\"where k = ? \");", [](HostSqlWindow& w) { return w.pasteFromJavaCode(), w.GetText(); }, "where k = :Bind1"},
        {"InitToken", true, "", [](HostSqlWindow& w) { return w.InitToken("((SELECT)"); }, "select"},
        {"CheckComment", true, "", [](HostSqlWindow& w) { CStringArray ranges; return w.CheckComment("x -- y", ranges, 0, 0); }, "x "},
        {"GetSingleQuery", true, "", [](HostSqlWindow& w) { CString t = "a from t; select b"; bool armed = false; return w.GetSingleQuery(t, armed, true) ? CString() : t; }, "a from t"},
    };
    sql.SetText("select a\n  from t\n where k = :key;", 0);
    const CString script = sql.GetText();
    for (const Row& row : rows) {
        if (row.clipboard) sql.SendMessage(SCI_CLEARALL), QGuiApplication::clipboard()->setText(row.clipboard);
        else sql.SendMessage(SCI_SELECTALL), QGuiApplication::clipboard()->clear();
        const CString got = row.run(sql);
        check(row.whole ? got == row.expected : has(got, row.expected), row.what, got);
        if (!row.clipboard) check(sql.GetText() == script, "copying leaves the script alone", sql.GetText());
    }
    int start = 0, end = 0, position = 1;
    check(HostSqlWindow::findBindPosition("where a = :b", start, end) == 1 && start == 10 && end == 12, "findBindPosition");
    check(sql.findBindReplacePosition("? '?' ?", position) == 1 && position == 6, "findBindReplacePosition");
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    CScintillaWnd editor;
    if (!editor.Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 400, 300}, CWnd::FromWidget(&window), 1)) return 1;
    editor.SetText("select 1\nfrom dual\n", 0);
    SString copy(editor.GetText().c_str());
    std::printf("host: %d lines, %u bytes\n", editor.GetLineCount(), copy.length());
    check(editor.GetLineCount() == 3, "three lines");

    HostSqlWindow sql;
    if (!sql.Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 400, 300}, CWnd::FromWidget(&window), 2)) return 1;
    // The property file beside the program colours keywords; without it they would be black.
    sql.SetText("select 1 from t\n", 0);
    sql.SendMessage(SCI_COLOURISE, 0, -1);
    const auto keywordStyle = sql.SendMessage(SCI_GETSTYLEAT, 0);
    check(keywordStyle != 0 && sql.SendMessage(SCI_STYLEGETFORE, WPARAM(keywordStyle)) != 0, "keywords in colour");

    checkMembers(sql);
    std::printf("host: %s\n", failures ? "FAILED" : "ok");
    return failures ? 1 : 0;
}
