#pragma once
// Helpers of the completion manager's tests: small SQLite databases written in a temporary
// folder, and a real window that records the answers it receives.
#include <QString>
#include <vector>

#include "CNamekitMgr.h"
#include "CWnd.h"

// Runs `sql` on the database file (made when missing); fails the test on an error.
void execSql(const QString& file, const char* sql);

// The order-tracking schema most tests ask about.
void makeOrdersDatabase(const QString& file);

// A copy of an answer as the window saw it while handling the message.
struct SeenAnswer {
    WPARAM wParam = 0;
    CString requestName;
    CString requestNameEx;
    std::vector<CString> items;
    std::vector<CString> nameParts;
};

class AnswerWindow : public CWnd {
public:
    AnswerWindow();  // creates the window
    std::vector<SeenAnswer> answers;

protected:
    const MessageMap* GetMessageMap() const override { return GetThisMessageMap(); }
    static const MessageMap* GetThisMessageMap();
};

// Processes events until `window` has `count` answers or five seconds passed.
bool waitForAnswers(const AnswerWindow& window, size_t count);

// Asks for `name` and waits for the answer; an empty SeenAnswer with requestName "<none>"
// when none came.
SeenAnswer ask(CNamekitMgr& mgr, AnswerWindow& window, const char* name, const char* query = "");

std::vector<CString> items(std::initializer_list<const char*> list);
