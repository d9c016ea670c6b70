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

void checkCopyAndPaste(HostSqlWindow& sql) {
    sql.SetText("select a\n  from t\n where k = :key;", 0);
    const CString script = sql.GetText();
    sql.SendMessage(SCI_SELECTALL);
    struct Copy {
        void (*run)(HostSqlWindow&);
        const char* expected;
    };
    const Copy copies[] = {
        {[](HostSqlWindow& w) { w.copyToLanguageCode("pszSQL", "\"", "\\", "", "", ";"); }, "pszSQL = \"select a \""},
        {[](HostSqlWindow& w) { w.copyToLanguageCodeEx("sSQL", "'", "'", "+", "", ";", ":=", true); }, "sSQL := 'select a '"},
        {[](HostSqlWindow& w) { w.copyToLanguageCodeEx2("CString q", "\"", "_T(", ")", "\\", "", "", ";", "=", true); },
         "_T(\"  from t \")"},
        {[](HostSqlWindow& w) { w.copyToPerlCode("my $stmt", "'", "\\", ".", "", ";"); }, "k = :1 '"},
        {[](HostSqlWindow& w) { w.copyToJavaCode("strSQL", "StringBuffer", "append"); }, "strSQL.append(\" where k = ? \");"},
    };
    for (const Copy& copy : copies) {
        QGuiApplication::clipboard()->clear();
        copy.run(sql);
        check(has(clipboard(), copy.expected), copy.expected, clipboard());
    }
    check(sql.GetText() == script, "copying leaves the script alone", sql.GetText());

    sql.SendMessage(SCI_CLEARALL);
    sql.pasteFromLanguageCode('"', "SQL = \"a \"\"b\"\"\"");
    check(has(sql.GetText(), "a \"b\""), "pasteFromLanguageCode", sql.GetText());
    sql.SendMessage(SCI_CLEARALL);
    QGuiApplication::clipboard()->setText("\"select 1;\"");
    sql.pasteFromCCode();
    check(sql.GetText() == "select 1", "pasteFromCCode", sql.GetText());
    sql.SendMessage(SCI_CLEARALL);
    QGuiApplication::clipboard()->setText("sb.append(\"where k = ? \");");
    sql.pasteFromJavaCode();
    check(has(sql.GetText(), "where k = :Bind1"), "pasteFromJavaCode", sql.GetText());
}

void checkScanners(HostSqlWindow& sql) {
    int start = 0, end = 0;
    check(HostSqlWindow::findBindPosition("where a = :b", start, end) == 1 && start == 10 && end == 12,
          "findBindPosition");
    int position = 1;
    check(sql.findBindReplacePosition("? '?' ?", position) == 1 && position == 6, "findBindReplacePosition");

    CString text = "a from t; select b";
    bool armed = false;
    check(!sql.GetSingleQuery(text, armed, true) && text == "a from t", "GetSingleQuery", text);
    check(sql.InitToken("((SELECT)") == "select", "InitToken", sql.InitToken("((SELECT)"));
    CStringArray ranges;
    check(sql.CheckComment("x -- y", ranges, 0, 0) == "x ", "CheckComment", sql.CheckComment("x -- y", ranges, 0, 0));
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

    checkCopyAndPaste(sql);
    checkScanners(sql);
    std::printf("host: %s\n", failures ? "FAILED" : "ok");
    return failures ? 1 : 0;
}
