#include "EditorHost.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <cstring>

namespace {
EditorHost::CloseAnswer askUser(QWidget* parent, const QString& fileName) {
    const auto answer =
        QMessageBox::warning(parent, QCoreApplication::translate("QuillboxApp", "Quillbox"),
                             QCoreApplication::translate("QuillboxApp", "Save the changes to %1?").arg(fileName),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save) return EditorHost::CloseAnswer::Save;
    if (answer == QMessageBox::Discard) return EditorHost::CloseAnswer::Discard;
    return EditorHost::CloseAnswer::Cancel;
}
}  // namespace

CString FileErrorText(const char* path, const CString& error) {
    if (error.IsEmpty()) return CString("cannot open ") + path;
    if (std::strstr(error.c_str(), path)) return error;
    return CString("cannot open ") + path + ": " + error;
}

BOOL EditorHost::Frame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* n = reinterpret_cast<const SCNotification*>(lParam);
    if (n && (n->nmhdr.code == SCN_SAVEPOINTREACHED || n->nmhdr.code == SCN_SAVEPOINTLEFT) && savePointChanged)
        savePointChanged();
    return CNamekitMainWnd::OnNotify(wParam, lParam, result);
}

EditorHost::EditorHost(const CString& database) : catalog_(database) {
    window_.resize(900, 600);
    frame_.Attach(&window_);
    frame_.SetNamekitMgr(&catalog_);
    frame_.savePointChanged = [this] { updateTitle(); };
    AfxSetMainWnd(&frame_);
    window_.installEventFilter(this);
    closeQuestion_ = [this](const QString& name) { return askUser(&window_, name); };

    QMenu* file = window_.menuBar()->addMenu(QCoreApplication::translate("QuillboxApp", "&File"));
    file->addAction(QCoreApplication::translate("QuillboxApp", "&Open..."), QKeySequence::Open, [this] {
        const QString path = QFileDialog::getOpenFileName(
            &window_, QString(), QString(),
            QCoreApplication::translate("QuillboxApp", "SQL Files (*.sql);;All Files (*)"));
        if (path.isEmpty()) return;
        CString error;
        if (!open(path.toUtf8().constData(), &error))
            QMessageBox::warning(&window_, QCoreApplication::translate("QuillboxApp", "Quillbox"),
                                 QString::fromUtf8(error.c_str()));
    });
    file->addAction(QCoreApplication::translate("QuillboxApp", "&Save"), QKeySequence::Save, [this] {
        if (editor_.Save(nullptr)) updateTitle();
    });
    file->addAction(QCoreApplication::translate("QuillboxApp", "&Print..."), QKeySequence::Print,
                    [this] { editor_.Print(true); });
    file->addSeparator();
    file->addAction(QCoreApplication::translate("QuillboxApp", "&Quit"), QKeySequence::Quit,
                    [this] { window_.close(); });
    updateTitle();
}

EditorHost::~EditorHost() {
    window_.removeEventFilter(this);
    AfxSetMainWnd(nullptr);
    frame_.Detach();
}

bool EditorHost::create() {
    RECT rect{0, 0, window_.width(), window_.height()};
    if (!editor_.Create("editor", WS_CHILD | WS_VISIBLE, rect, &frame_, 100)) return false;
    window_.setCentralWidget(editor_.GetSafeHwnd());
    updateTitle();
    return true;
}

bool EditorHost::open(const char* path, CString* error) {
    if (!editor_.LoadFile(path)) {
        if (error) *error = FileErrorText(path, editor_.GetLastFileError());
        return false;
    }
    editor_.SetFilePath(path);
    updateTitle();
    return true;
}

QString EditorHost::fileName() const {
    const CString path = editor_.GetFilePath();
    return path.IsEmpty() ? QCoreApplication::translate("QuillboxApp", "Untitled")
                          : QFileInfo(QString::fromUtf8(path.c_str())).fileName();
}

void EditorHost::updateTitle() {
    // "[*]" is where Qt shows the modified mark.
    window_.setWindowTitle(QCoreApplication::translate("QuillboxApp", "%1[*] - Quillbox").arg(fileName()));
    window_.setWindowModified(editor_.GetSafeHwnd() && editor_.IsModified());
}

bool EditorHost::mayClose() {
    if (!editor_.GetSafeHwnd() || !editor_.IsModified()) return true;
    switch (closeQuestion_(fileName())) {
        case CloseAnswer::Save:
            return editor_.Save(nullptr);  // a failed or cancelled save keeps the window open
        case CloseAnswer::Discard:
            return true;
        case CloseAnswer::Cancel:
            return false;
    }
    return false;
}

bool EditorHost::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::Close && !mayClose()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
