#include "MessageBox.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <mutex>

#include "Resources.h"

namespace {
std::mutex hookLock;
MessageBoxHook& currentHook() {
    static MessageBoxHook hook;
    return hook;
}

int firstButton(UINT type) { return (type & 0xF) == MB_YESNO ? IDYES : IDOK; }

bool canShowModal() {
    auto* app = qobject_cast<QApplication*>(QCoreApplication::instance());
    return app && QGuiApplication::platformName() != QLatin1String("offscreen");
}

int showBox(QWidget* owner, const char* text, const char* caption, UINT type) {
    QMessageBox box(owner);
    box.setWindowTitle(QString::fromUtf8(caption && *caption ? caption : "Quillbox"));
    box.setText(QString::fromUtf8(text ? text : ""));
    switch (type & 0xF0) {
        case MB_ICONSTOP: box.setIcon(QMessageBox::Critical); break;
        case MB_ICONQUESTION: box.setIcon(QMessageBox::Question); break;
        case MB_ICONWARNING: box.setIcon(QMessageBox::Warning); break;
        case MB_ICONINFORMATION: box.setIcon(QMessageBox::Information); break;
        default: break;
    }
    switch (type & 0xF) {
        case MB_OKCANCEL: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
        case MB_YESNO: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
        default: box.setStandardButtons(QMessageBox::Ok); break;
    }
    switch (box.exec()) {
        case QMessageBox::Cancel: return IDCANCEL;
        case QMessageBox::Yes: return IDYES;
        case QMessageBox::No: return IDNO;
        default: return IDOK;
    }
}
}  // namespace

MessageBoxHook SetMessageBoxHook(MessageBoxHook hook) {
    std::lock_guard<std::mutex> guard(hookLock);
    MessageBoxHook previous = std::move(currentHook());
    currentHook() = std::move(hook);
    return previous;
}

int MessageBox(HWND owner, const char* text, const char* caption, UINT type) {
    MessageBoxHook hook;
    {
        std::lock_guard<std::mutex> guard(hookLock);
        hook = currentHook();
    }
    if (hook) return hook(text ? text : "", caption ? caption : "", type);
    if (!canShowModal()) {
        std::fprintf(stderr, "quillbox: %s%s%s\n", caption && *caption ? caption : "",
                     caption && *caption ? ": " : "", text ? text : "");
        return firstButton(type);
    }
    return showBox(owner, text, caption, type);
}

int AfxMessageBox(const char* text, UINT type, UINT) { return MessageBox(nullptr, text, "", type); }

int AfxMessageBox(UINT stringId, UINT type, UINT helpId) {
    const char* text = LoadResourceString(stringId);
    return AfxMessageBox(text ? text : "", type, helpId);
}
