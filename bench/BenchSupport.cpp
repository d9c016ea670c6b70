#include "BenchSupport.h"

#include <QApplication>
#include <sqlite3.h>
#include <benchmark/benchmark.h>
#include <cstdlib>

#include <fstream>
#include <sstream>

std::string GenerateSqlScript(size_t bytes) {
    static const char* const kStatements[] = {
        "select o.id, o.customer_id, sum(l.amount) as total\n  from orders o\n  join order_lines l on l.order_id = o.id\n"
        " where o.created_at >= :start_date -- recent orders\n group by o.id, o.customer_id;\n",
        "insert into audit_log (event, payload) values ('login', '{\"user\": 42}');\n",
        "update customers set status = 'active' where last_seen > current_date - 30;\n",
        "/* maintenance */\ndelete from sessions where expires_at < now();\n",
        "create table if not exists t_metrics (id integer primary key, name varchar(80), value numeric(12,2));\n",
    };
    std::string out;
    out.reserve(bytes + 256);
    for (size_t i = 0; out.size() < bytes; ++i) out += kStatements[i % std::size(kStatements)];
    out.resize(bytes);
    return out;
}

QString WriteCompletionCatalog(const QString& folder) {
    const QString path = folder + "/catalog.sqlite";
    sqlite3* db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    std::string sql =
        "begin;create table orders(id integer, customer_id integer, created_at text);"
        "create table order_lines(order_id integer, amount numeric);"
        "create table customers(id integer, status text, last_seen text);"
        "create table audit_log(event text, payload text);create table sessions(expires_at text);";
    for (int t = 0; t < 1000; ++t) {
        sql += "create table table_" + std::to_string(t) + "(";
        for (int c = 0; c < 50; ++c) sql += (c ? "," : "") + std::string("column_") + std::to_string(c) + " text";
        sql += ");";
    }
    sql += "commit;";
    sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return path;
}

EditorOnFrame::EditorOnFrame(int keyWordUsingPreCreate, bool initialise) {
    frame = std::make_unique<CWnd>();
    frame->CreateEx(0, "QuillboxFrame", "bench", 0, RECT{0, 0, 800, 600}, nullptr, 0);
    editor = std::make_unique<BenchEditor>();
    editor->keyWordUsingPreCreate = keyWordUsingPreCreate;
    editor->SetNoFocusOnSetText(1);
    editor->Create("editor", WS_CHILD | WS_VISIBLE, RECT{0, 0, 800, 600}, frame.get(), 1);
    if (initialise) editor->initScintilla();
}

namespace {
long statusField(const char* name) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(name, 0) == 0) {
            std::istringstream fields(line.substr(std::string(name).size()));
            long kb = 0;
            fields >> kb;
            return kb * 1024;
        }
    return 0;
}
}  // namespace

long PeakResidentBytes() { return statusField("VmHWM:"); }
long CurrentResidentBytes() { return statusField("VmRSS:"); }

void ResetPeakResident() {
    std::ofstream clear("/proc/self/clear_refs");
    clear << "5";
}

int RunBenchmarks(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
