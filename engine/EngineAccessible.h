#pragma once
// Accessibility of the engine window. QScintilla's own accessible object turns byte positions
// into character offsets by counting from the start of the document, on every UI update
// whether or not assistive technology listens. The engine window answers with the object
// below instead: it does nothing while no assistive technology is active, and when one is, a
// conversion costs a lookup in the engine's per-line index of UTF-16 code units plus a count
// within one line.
#include <QAccessibleWidget>

#include "EngineTypes.h"

class QuillEngine;

// Byte positions of the engine and character offsets of Qt's text interfaces (UTF-16 code
// units, as QString counts them) turned into each other. The engine's line index of code
// units is made on first use and kept up to date by the engine with every edit.
class EngineTextOffsets {
public:
    explicit EngineTextOffsets(QuillEngine& engine) : engine_(engine) {}
    long offsetOf(long position) const;
    long positionOf(long offset) const;
    long length() const;

private:
    void ensureIndex() const;
    QuillEngine& engine_;
};

class QUILLBOX_EXPORT EngineAccessible : public QAccessibleWidget,
                                         public QAccessibleTextInterface,
                                         public QAccessibleEditableTextInterface {
public:
    explicit EngineAccessible(QuillEngine* engine);

    // Installs, once, the factory that gives engine windows this object. It must come after
    // QScintilla's own factory, which the first engine window installs: Qt asks the newest
    // factory first.
    static void install();

    // Whether assistive technology listens: Qt's platform says so, or a listener of the
    // host's own is installed. Such a listener hears every event of the engine windows
    // instead of Qt's platform (a host that bridges assistive technology itself, or a test);
    // installing returns the one it replaces.
    using Listener = void (*)(QAccessibleEvent* event);
    static bool listening();
    static Listener installListener(Listener listener);

    // Event sources of the engine layer; each returns at once while no assistive technology
    // listens.
    static void textChanged(QuillEngine* engine, bool inserted, long position, const char* text, long length);
    static void uiUpdated(QuillEngine* engine);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    // QAccessibleTextInterface
    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType, int* startOffset,
                             int* endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType, int* startOffset,
                            int* endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType, int* startOffset,
                         int* endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    // QAccessibleEditableTextInterface
    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int startOffset, int endOffset, const QString& text) override;

    using QAccessibleWidget::text;

private:
    QuillEngine* engine() const;
    long send(unsigned message, unsigned long wParam = 0, long lParam = 0) const;
    QString textBetween(long start, long end) const;
    bool boundaries(long position, QAccessible::TextBoundaryType type, long* start, long* end) const;
    QString textInRange(long start, long end, int* startOffset, int* endOffset) const;
    void announceUpdate();

    EngineTextOffsets offsets_;
    int lastCursor_ = -1;
    int lastSelectionStart_ = -1;
    int lastSelectionEnd_ = -1;
};
