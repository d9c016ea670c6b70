// Builds the sample database from its SQL script: make_sample_db SCRIPT.sql OUT.sqlite
#include <sqlite3.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_sample_db SCRIPT.sql OUT.sqlite\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    std::stringstream script;
    script << in.rdbuf();
    std::remove(argv[2]);
    sqlite3* db = nullptr;
    if (!in || sqlite3_open(argv[2], &db) != SQLITE_OK) {
        std::fprintf(stderr, "make_sample_db: cannot open %s or %s\n", argv[1], argv[2]);
        sqlite3_close(db);
        return 1;
    }
    char* error = nullptr;
    const int rc = sqlite3_exec(db, script.str().c_str(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK) std::fprintf(stderr, "make_sample_db: %s\n", error ? error : "failed");
    sqlite3_free(error);
    sqlite3_close(db);
    return rc == SQLITE_OK ? 0 : 1;
}
