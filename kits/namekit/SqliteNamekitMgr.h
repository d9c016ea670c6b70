#pragma once
// SqliteNamekitMgr: the default completion manager, over an SQLite database file.
//
// The catalog (tables and views of every schema, and their columns) is read on a worker
// thread when the manager starts and again on Refresh(), and kept in memory in sorted
// vectors, so that a lookup is a binary search even over tens of thousands of objects.
// Lookups run on the same worker; only the newest request waiting is served, older ones are
// dropped. Answers are delivered on the GUI thread by WM_NAMEKIT_ANSWER, a page at a time;
// ShowMore hands out the following pages.
//
// What a name asks for:
//   "ord"          tables and views of the main schema whose name starts with "ord"
//   "o.cu"         columns starting with "cu" of the table the query binds alias o to, or of
//                  the table named o; failing both, tables of the attached schema named o
//   "aux.orders.c" columns of table orders of schema aux
// Matching ignores ASCII case. Quoted parts ("Order Lines", [x], `x`) match their content;
// items that are no plain identifier, or asked for with an opening quote, come back quoted.
//
// The manager must be destroyed before the QCoreApplication. After the destructor returns,
// no answer reaches any window.
#include <memory>

#include "CNamekitMgr.h"

class QUILLBOX_EXPORT SqliteNamekitMgr : public CNamekitMgr {
public:
    static constexpr int kDefaultPageSize = 200;

    // A missing or unreadable file gives an empty catalog (every answer is an empty list).
    explicit SqliteNamekitMgr(const CString& databasePath, int pageSize = kDefaultPageSize);
    ~SqliteNamekitMgr() override;
    SqliteNamekitMgr(const SqliteNamekitMgr&) = delete;
    SqliteNamekitMgr& operator=(const SqliteNamekitMgr&) = delete;

    bool GetObjectList(CWnd* window, CString name, CString query) override;
    bool ShowMore(CStringArray& items) override;
    bool Refresh() override;

    // Attaches another database file under `schema` for the next catalog read (call Refresh
    // to read it now). False for an empty or reserved schema name.
    bool AttachDatabase(const CString& schema, const CString& path);

    int PageSize() const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};
