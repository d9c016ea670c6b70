#pragma once
// The window of the quillbox program: an SQL edit window in a main window with a File menu,
// object completion from an SQLite catalog, a title that names the file and shows unsaved
// changes, and a question before unsaved changes are closed.
#include <QMainWindow>
#include <QObject>
#include <functional>

#include "CKTSQLEditWnd.h"
#include "CNamekitMgr.h"
#include "SqliteNamekitMgr.h"

// The text of a file error, naming the path once: the library's own texts name it already.
CString FileErrorText(const char* path, const CString& error);

class EditorHost : public QObject {
public:
    enum class CloseAnswer { Save, Discard, Cancel };
    // Asked before a window with unsaved changes closes; the default asks the user.
    using CloseQuestion = std::function<CloseAnswer(const QString& fileName)>;

    explicit EditorHost(const CString& database);
    ~EditorHost() override;

    bool create();
    // Loads `path`; on failure `error` (if given) says why and the window keeps its text.
    bool open(const char* path, CString* error = nullptr);

    QMainWindow& window() { return window_; }
    CKTSQLEditWnd& editor() { return editor_; }
    void setCloseQuestion(CloseQuestion question) { closeQuestion_ = std::move(question); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The main window as the SQL window sees it: it hands out the catalog and passes on the
    // engine's save-point notifications, which keep the title's modified mark.
    class Frame : public CNamekitMainWnd {
    public:
        std::function<void()> savePointChanged;
        BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    };

    void updateTitle();
    bool mayClose();
    QString fileName() const;

    SqliteNamekitMgr catalog_;
    QMainWindow window_;
    Frame frame_;
    CKTSQLEditWnd editor_;
    CloseQuestion closeQuestion_;
};
