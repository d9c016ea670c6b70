#pragma once
// QuillEngine: the engine window. It is QScintilla's QsciScintillaBase with a message link
// that adds the library's own messages (delete a range, case modes, completion lists), turns
// the engine's Qt signals into SCNotification records for the owning window and its parent,
// and keeps every edit as cheap as the engine's own edit (see ModificationRelay below).
#include <Qsci/qsciscintillabase.h>

#include <cstdint>
#include <string>

#include "EngineTypes.h"

class CWnd;

class QUILLBOX_EXPORT QuillEngine : public QsciScintillaBase {
public:
    QuillEngine(CWnd* owner, QWidget* parent);
    ~QuillEngine() override;

    // One synchronous message to the engine, with the library's extension messages; returns
    // the engine's result. This is the one route every window operation takes.
    long send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // Hands a notification of the engine layer's own (9000, 9001) to the owner and parent.
    void emitNotification(UINT code);

    CWnd* owner() const { return owner_; }

    // Work counters, for tests that prove an edit's cost does not grow with the document.
    struct Counters {
        std::uint64_t messages = 0;      // messages that reached the engine
        std::uint64_t bytesCopied = 0;   // bytes the link copied for notifications
        std::uint64_t notifications = 0; // records delivered to the owner
        std::uint64_t bytesCounted = 0;  // bytes walked to turn positions into character offsets
        std::uint64_t framesKept = 0;    // whole repaints the screen skipped, its picture unchanged
    };
    const Counters& counters() const { return counters_; }
    void resetCounters() { counters_ = Counters{}; }
    void countScanned(std::uint64_t bytes) { counters_.bytesCounted += bytes; }

    // Registers the window class "Scintilla", whose windows are QuillEngines.
    static bool registerWindowClass();
    static void unregisterWindowClass();

protected:
    bool event(QEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    bool viewportEvent(QEvent* e) override;
    void contextMenuEvent(QContextMenuEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dragMoveEvent(QDragMoveEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    // Mouse chords as editors have them (EngineMouse.cpp): Ctrl+click adds a caret while
    // multiple selection is on, Alt+drag selects a rectangle, Ctrl+wheel zooms.
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;

private:
    using DirectFunction = std::intptr_t (*)(std::intptr_t, unsigned int, std::uintptr_t, std::intptr_t);

    long direct(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        ++counters_.messages;
        return long(directFunction_(directPointer_, message, wParam, lParam));
    }
    // A question about the view asked while painting. Not counted: each costs the same in any
    // document, and how many are asked depends on how far colouring has come.
    long ask(UINT message, WPARAM wParam = 0) const {
        return long(directFunction_(directPointer_, message, wParam, 0));
    }
    long deleteRange(long start, long end);
    long showList(WPARAM typed, const char* list);
    long appendToList(const char* more);
    long changeCase(WPARAM mode);
    void setModEventMask(long mask);
    // Asks the engine for the changes assistive technology needs when it starts or stops
    // listening. Checked at each Qt event of the window rather than at each message: the
    // check is off the path of a loop of edits, and an assistive technology comes and goes
    // through events.
    void followAssistiveTechnology();

    void connectSignals();
    void deliver(SCNotification& record);
    void onModified(int position, int type, const char* text, int length, int linesAdded, int line,
                    int foldNow, int foldPrev, int token, int annotationLinesAdded);
    void flushPendingChange();
    void keyPressEventInner(QKeyEvent* e);
    // Colours the text about to be painted when that is quick (at most kSyncColouringSeconds
    // by the rate measured so far); more is left to the engine's idle slices. Returns whether
    // the colouring still stops above the first line shown.
    bool colourWhatShows();
    // While colouring runs in the text above the view, each of the engine's idle slices asks
    // for a whole repaint that would draw the same picture again. The screen keeps the last
    // frame instead when nothing that shows has changed since it was painted.
    bool paintsToScreen() const;
    struct Frame;
    Frame shownFrame() const;
    bool carriesPrivateDrop(const QMimeData* data) const;

    CWnd* owner_;
    DirectFunction directFunction_ = nullptr;
    std::intptr_t directPointer_ = 0;
    Counters counters_;
    // A Ctrl+drag that adds a selection: the press added it, moves extend it.
    bool addingSelection_ = false;
    int zoomWheel_ = 0;  // wheel movement not yet turned into a zoom step

    // The engine's mask never holds insert and delete: QScintilla would otherwise scan the
    // document from its start on every edit for its accessibility events. The link asks for
    // the "before" notifications instead and delivers the insert or delete itself once the
    // change is done, with exactly the fields the engine would have given.
    // The list that shows, kept so that more items can be added to it.
    std::string listText_;
    long listTyped_ = 0;
    long listItems_ = 0;

    // What the last frame painted for the screen showed. The epoch moves with every message,
    // input or other Qt event that could change what shows; idle colouring sends none.
    struct Frame {
        std::uint64_t epoch = 0;
        long firstLine = -1, xOffset = 0;
        QSize view, store;
        bool operator==(const Frame&) const = default;
    };
    std::uint64_t viewEpoch_ = 1;
    Frame lastFrame_;

    double colouringBytesPerSecond_ = 20e6;  // a cautious start, corrected by each measurement
    long hostMask_;
    bool maskHearsAssistiveTechnology_ = false;
    struct PendingChange {
        bool active = false;
        int type = 0;             // SC_MOD_INSERTTEXT or SC_MOD_DELETETEXT, with performed flags
        long position = 0;
        long length = 0;
        long linesBefore = 0;
        long documentLengthBefore = 0;
        std::string deletedText;  // a delete's text, read before it goes
    } pending_;
};
