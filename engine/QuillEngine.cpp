#include "QuillEngine.h"

#include <QBackingStore>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <vector>

#include "CMenu.h"
#include "CWnd.h"
#include "EngineAccessible.h"
#include "EngineExtensions.h"
#include "KeyCodes.h"
#include "OleData.h"

namespace {
constexpr long kInsertOrDelete = SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT;
constexpr long kBeforeInsertOrDelete = SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE;
// Flags that ride along with a change's type. The engine passes a notification on when any
// bit of its type or flags is in the mask, so a flag alone lets inserts and deletes through.
constexpr long kFlagBits = SC_PERFORMED_USER | SC_PERFORMED_UNDO | SC_PERFORMED_REDO | SC_MULTISTEPUNDOREDO |
                           SC_LASTSTEPINUNDOREDO | SC_MULTILINEUNDOREDO | SC_STARTACTION;
constexpr long kPerformedFlags = kFlagBits & ~long(SC_STARTACTION);

// The mask the engine itself gets for what the host asked: no insert or delete and no flag
// bits, which QScintilla would answer with a scan of the document; the "before"
// notifications stand in for inserts and deletes. A host that asked for a flag gets every
// other kind of change, filtered afterwards by the engine's own rule (type & mask). While
// assistive technology listens, the layer hears every insert and delete for it.
long engineMaskFor(long hostMask, bool assistiveTechnology) {
    long mask = hostMask & ~(kInsertOrDelete | kFlagBits);
    if (hostMask & kFlagBits) mask = SC_MODEVENTMASKALL & ~(kInsertOrDelete | kFlagBits);
    if ((hostMask & (kInsertOrDelete | kFlagBits)) || assistiveTechnology) mask |= kBeforeInsertOrDelete;
    return mask;
}

// The bytes of a code point in UTF-8, as the char-added record carries them.
void utf8Bytes(int codePoint, int bytes[4]) {
    unsigned cp = unsigned(codePoint);
    if (cp < 0x80) {
        bytes[0] = int(cp);
    } else if (cp < 0x800) {
        bytes[0] = int(0xC0 | (cp >> 6));
        bytes[1] = int(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        bytes[0] = int(0xE0 | (cp >> 12));
        bytes[1] = int(0x80 | ((cp >> 6) & 0x3F));
        bytes[2] = int(0x80 | (cp & 0x3F));
    } else {
        bytes[0] = int(0xF0 | (cp >> 18));
        bytes[1] = int(0x80 | ((cp >> 12) & 0x3F));
        bytes[2] = int(0x80 | ((cp >> 6) & 0x3F));
        bytes[3] = int(0x80 | (cp & 0x3F));
    }
}
}  // namespace

QuillEngine::QuillEngine(CWnd* owner, QWidget* parent)
    : QsciScintillaBase(parent), owner_(owner), hostMask_(SC_MODEVENTMASKALL) {
    directFunction_ = reinterpret_cast<DirectFunction>(SendScintillaPtrResult(SCI_GETDIRECTFUNCTION));
    directPointer_ = reinterpret_cast<std::intptr_t>(SendScintillaPtrResult(SCI_GETDIRECTPOINTER));
    // The document is always UTF-8: QScintilla on Qt 6 shows and accepts nothing else.
    direct(SCI_SETCODEPAGE, SC_CP_UTF8);
    setModEventMask(hostMask_);
    // Colouring runs in slices: a paint styles what one short slice allows and idle time
    // styles on up to what shows, while the window keeps answering. A jump to the end of a
    // large document shows at once and is coloured moments later; nothing beyond the view
    // is coloured before it is needed.
    direct(SCI_SETIDLESTYLING, SC_IDLESTYLING_TOVISIBLE);
    // The engine paints every pixel of its view, so Qt need not clear it first; a paint that
    // keeps the last frame (paintEvent) then leaves the picture as it was.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    EngineAccessible::install();
    connectSignals();
}

QuillEngine::~QuillEngine() = default;

bool QuillEngine::registerWindowClass() {
    return RegisterWindowClass("Scintilla", [](CWnd* owner, QWidget* parent) -> QWidget* {
        return new QuillEngine(owner, parent);
    });
}

void QuillEngine::unregisterWindowClass() { UnregisterWindowClass("Scintilla"); }

long QuillEngine::send(UINT message, WPARAM wParam, LPARAM lParam) {
    ++viewEpoch_;
    // A change left pending by a caller that reached the engine directly completes first.
    if (pending_.active) flushPendingChange();
    long result;
    switch (message) {
        case SCI_DELETERANGE_EXT: result = deleteRange(long(wParam), long(lParam)); break;
        // The engine's own case mapping knows ASCII only; the layer changes every letter.
        case SCI_UPPERCASE: result = changeCase(wParam); break;
        case SCI_LOWERCASE: result = changeCase(kCaseLower); break;
        case SCI_SETMODEVENTMASK: setModEventMask(long(wParam)); result = 0; break;
        case SCI_GETMODEVENTMASK: result = hostMask_; break;
        case SCI_SHOWLIST_EXT: result = showList(wParam, reinterpret_cast<const char*>(lParam)); break;
        case SCI_APPENDLIST_EXT: result = appendToList(reinterpret_cast<const char*>(lParam)); break;
        default: result = direct(message, wParam, lParam); break;
    }
    if (pending_.active) flushPendingChange();
    return result;
}

long QuillEngine::deleteRange(long start, long end) {
    const long length = direct(SCI_GETLENGTH);
    start = std::clamp(start, 0L, length);
    end = std::clamp(end, 0L, length);
    if (start > end) std::swap(start, end);
    if (start == end) return 0;
    direct(SCI_DELETERANGE, WPARAM(start), LPARAM(end - start));
    return length - direct(SCI_GETLENGTH);
}

long QuillEngine::changeCase(WPARAM mode) {
    if (mode > WPARAM(kCaseLower) || direct(SCI_GETREADONLY)) return 0;
    const long selections = direct(SCI_GETSELECTIONS);
    const long mainSelection = direct(SCI_GETMAINSELECTION);
    struct Range { long start, end, anchor, caret; };
    std::vector<Range> ranges;
    for (long i = 0; i < selections; ++i)
        ranges.push_back({direct(SCI_GETSELECTIONNSTART, WPARAM(i)), direct(SCI_GETSELECTIONNEND, WPARAM(i)),
                          direct(SCI_GETSELECTIONNANCHOR, WPARAM(i)), direct(SCI_GETSELECTIONNCARET, WPARAM(i))});
    // Work from the last range back, so that a change of length leaves earlier ranges in place.
    std::vector<size_t> order(ranges.size());
    for (size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) { return ranges[a].start > ranges[b].start; });
    direct(SCI_BEGINUNDOACTION);
    std::vector<long> growth(ranges.size(), 0);
    for (size_t index : order) {
        Range& r = ranges[index];
        if (r.start >= r.end) continue;
        std::string text(size_t(r.end - r.start), '\0');
        Sci_TextRange tr;
        std::vector<char> buffer(text.size() + 1);
        tr.chrg = {r.start, r.end};
        tr.lpstrText = buffer.data();
        direct(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&tr));
        text.assign(buffer.data(), text.size());
        std::string changed = ChangeCaseUtf8(text, int(mode));
        if (changed == text) continue;
        direct(SCI_SETTARGETRANGE, WPARAM(r.start), LPARAM(r.end));
        direct(SCI_REPLACETARGET, WPARAM(changed.size()), reinterpret_cast<LPARAM>(changed.data()));
        growth[index] = long(changed.size()) - long(text.size());
    }
    direct(SCI_ENDUNDOACTION);
    // Select the changed text again; ranges after a changed one move by its growth.
    long shift = 0;
    std::vector<size_t> ascending(order.rbegin(), order.rend());
    for (size_t n = 0; n < ascending.size(); ++n) {
        Range& r = ranges[ascending[n]];
        const long g = growth[ascending[n]];
        const bool forward = r.anchor <= r.caret;
        const long start = r.start + shift, end = r.end + shift + g;
        r.anchor = forward ? start : end;
        r.caret = forward ? end : start;
        shift += g;
    }
    if (ranges.size() == 1) {
        direct(SCI_SETSEL, WPARAM(ranges[0].anchor), LPARAM(ranges[0].caret));
    } else {
        for (size_t i = 0; i < ranges.size(); ++i) {
            if (i == 0) direct(SCI_SETSELECTION, WPARAM(ranges[i].caret), LPARAM(ranges[i].anchor));
            else direct(SCI_ADDSELECTION, WPARAM(ranges[i].caret), LPARAM(ranges[i].anchor));
        }
        direct(SCI_SETMAINSELECTION, WPARAM(mainSelection));
    }
    return 0;
}

long QuillEngine::showList(WPARAM typed, const char* list) {
    if (!list || !*list) return 0;
    listText_ = list;
    listTyped_ = long(typed);
    const char separator = char(direct(SCI_AUTOCGETSEPARATOR));
    listItems_ = 1 + long(std::count(listText_.begin(), listText_.end(), separator));
    direct(SCI_AUTOCSHOW, typed, reinterpret_cast<LPARAM>(listText_.c_str()));
    return 0;
}

long QuillEngine::appendToList(const char* more) {
    // Only a list that shows grows; the item the user stands on stays chosen.
    if (!more || !*more || !direct(SCI_AUTOCACTIVE)) return 0;
    std::string current(size_t(direct(SCI_AUTOCGETCURRENTTEXT, 0, 0)) + 1, '\0');
    direct(SCI_AUTOCGETCURRENTTEXT, 0, reinterpret_cast<LPARAM>(current.data()));
    current.resize(std::strlen(current.c_str()));
    const char separator = char(direct(SCI_AUTOCGETSEPARATOR));
    std::string list = listText_ + separator + more;
    showList(WPARAM(listTyped_), list.c_str());
    if (!current.empty()) direct(SCI_AUTOCSELECT, 0, reinterpret_cast<LPARAM>(current.c_str()));
    return 0;
}

void QuillEngine::setModEventMask(long mask) {
    hostMask_ = mask;
    maskHearsAssistiveTechnology_ = EngineAccessible::listening();
    direct(SCI_SETMODEVENTMASK, WPARAM(engineMaskFor(mask, maskHearsAssistiveTechnology_)));
}

void QuillEngine::emitNotification(UINT code) {
    SCNotification record;
    record.nmhdr.code = code;
    record.position = direct(SCI_GETCURRENTPOS);
    deliver(record);
}

void QuillEngine::connectSignals() {
    connect(this, &QsciScintillaBase::SCN_CHARADDED, this, [this](int ch) {
        SCNotification r;
        r.nmhdr.code = ::SCN_CHARADDED;
        int bytes[4] = {0, 0, 0, 0};
        utf8Bytes(ch, bytes);
        r.ch = bytes[0];
        r.ch2 = bytes[1];
        r.ch3 = bytes[2];
        r.position = direct(SCI_GETCURRENTPOS);
        deliver(r);
    });
    connect(this, &QsciScintillaBase::SCN_SAVEPOINTREACHED, this, [this] {
        SCNotification r;
        r.nmhdr.code = ::SCN_SAVEPOINTREACHED;
        deliver(r);
    });
    connect(this, &QsciScintillaBase::SCN_SAVEPOINTLEFT, this, [this] {
        SCNotification r;
        r.nmhdr.code = ::SCN_SAVEPOINTLEFT;
        deliver(r);
    });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        EngineAccessible::uiUpdated(this);
        SCNotification r;
        r.nmhdr.code = ::SCN_UPDATEUI;
        r.updated = updated;
        deliver(r);
    });
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this, &QuillEngine::onModified);
    connect(this, &QsciScintillaBase::SCN_MARGINCLICK, this, [this](int position, int modifiers, int margin) {
        SCNotification r;
        r.nmhdr.code = ::SCN_MARGINCLICK;
        r.position = position;
        r.modifiers = modifiers;
        r.margin = margin;
        deliver(r);
    });
    // Deleting back into the name while a list shows asks the owner to refresh the list.
    connect(this, &QsciScintillaBase::SCN_AUTOCCHARDELETED, this, [this] { emitNotification(SCN_LISTREFRESH_EXT); });
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, [this] {
        SCNotification r;
        r.nmhdr.code = ::SCN_ZOOM;
        deliver(r);
    });
    connect(this, &QsciScintillaBase::SCN_NEEDSHOWN, this, [this](int position, int length) {
        SCNotification r;
        r.nmhdr.code = ::SCN_NEEDSHOWN;
        r.position = position;
        r.length = length;
        deliver(r);
    });
}

void QuillEngine::onModified(int position, int type, const char* text, int length, int linesAdded, int line,
                             int foldNow, int foldPrev, int token, int annotationLinesAdded) {
    // Any notification after a "before" one means that change is done: deliver it first.
    if (pending_.active) flushPendingChange();
    if (type & kBeforeInsertOrDelete) {
        const bool insert = type & SC_MOD_BEFOREINSERT;
        const int changeType = int(insert ? SC_MOD_INSERTTEXT : SC_MOD_DELETETEXT) | (type & int(kPerformedFlags));
        // Assistive technology hears of every change, whatever the host asked for.
        if ((changeType & hostMask_) || maskHearsAssistiveTechnology_) {
            pending_.active = true;
            pending_.type = changeType;
            pending_.position = position;
            pending_.length = length;
            pending_.linesBefore = direct(SCI_GETLINECOUNT);
            pending_.documentLengthBefore = direct(SCI_GETLENGTH);
            pending_.deletedText.clear();
            if (!insert && length > 0) {
                auto* p = reinterpret_cast<const char*>(direct(SCI_GETRANGEPOINTER, WPARAM(position), LPARAM(length)));
                if (p) pending_.deletedText.assign(p, size_t(length));
                counters_.bytesCopied += std::uint64_t(length);
            }
        }
    }
    // The engine's own rule: a notification goes out when its type or a flag is asked for.
    if (!(type & hostMask_)) return;
    SCNotification r;
    r.nmhdr.code = ::SCN_MODIFIED;
    r.position = position;
    r.modificationType = type;
    r.text = text;
    r.length = length;
    r.linesAdded = linesAdded;
    r.line = line;
    r.foldLevelNow = foldNow;
    r.foldLevelPrev = foldPrev;
    r.token = token;
    r.annotationLinesAdded = annotationLinesAdded;
    deliver(r);
}

void QuillEngine::flushPendingChange() {
    PendingChange change = std::move(pending_);
    pending_ = PendingChange{};
    const bool insert = change.type & SC_MOD_INSERTTEXT;
    const long documentLength = direct(SCI_GETLENGTH);
    // A change the engine refused leaves the length as it was: nothing to report.
    if (documentLength != change.documentLengthBefore + (insert ? change.length : -change.length)) return;

    SCNotification r;
    r.nmhdr.code = ::SCN_MODIFIED;
    r.modificationType = change.type;
    r.position = change.position;
    r.length = change.length;
    r.linesAdded = direct(SCI_GETLINECOUNT) - change.linesBefore;
    if (insert)
        r.text = change.length
                     ? reinterpret_cast<const char*>(direct(SCI_GETRANGEPOINTER, WPARAM(change.position), LPARAM(change.length)))
                     : "";
    else
        r.text = change.deletedText.c_str();

    EngineAccessible::textChanged(this, insert, change.position, r.text, change.length);
    if (change.type & hostMask_) deliver(r);
}

void QuillEngine::deliver(SCNotification& record) {
    if (pending_.active && record.nmhdr.code != ::SCN_MODIFIED) flushPendingChange();
    ++counters_.notifications;
    record.nmhdr.hwndFrom = this;
    record.nmhdr.idFrom = owner_ ? owner_->GetDlgCtrlID() : 0;
    // The window's own handler first, then its parent, as a notification to the parent that
    // the window also sees.
    if (owner_) {
        LRESULT result = 0;
        owner_->OnNotify(record.nmhdr.idFrom, reinterpret_cast<LPARAM>(&record), &result);
        if (CWnd* parent = owner_->GetParent())
            parent->SendMessage(WM_NOTIFY, record.nmhdr.idFrom, reinterpret_cast<LPARAM>(&record));
    }
}

namespace {
// The key message of a Qt key event; the keypad's minus and plus have key codes of their own.
MSG keyMessage(QWidget* window, QKeyEvent* e) {
    MSG msg;
    msg.hwnd = window;
    msg.message = WM_KEYDOWN;
    const bool keypad = e->modifiers() & Qt::KeypadModifier;
    msg.wParam = keypad && e->key() == Qt::Key_Minus ? VK_SUBTRACT
                 : keypad && e->key() == Qt::Key_Plus ? VK_ADD
                                                       : VirtualKeyFromQtKey(e->key());
    msg.event = e;
    return msg;
}
}  // namespace

void QuillEngine::followAssistiveTechnology() {
    if (EngineAccessible::listening() != maskHearsAssistiveTechnology_) setModEventMask(hostMask_);
}

bool QuillEngine::event(QEvent* e) {
    followAssistiveTechnology();
    if (e->type() != QEvent::Paint) ++viewEpoch_;
    if (e->type() == QEvent::ShortcutOverride && owner_) {
        // A key the window translates itself must reach it before any shortcut of the host.
        MSG msg = keyMessage(this, static_cast<QKeyEvent*>(e));
        for (CWnd* w = owner_; w; w = w->GetParent())
            if (w->IsAcceleratorKey(&msg)) {
                e->accept();
                return true;
            }
    }
    const bool handled = QsciScintillaBase::event(e);
    if (pending_.active) flushPendingChange();
    return handled;
}

void QuillEngine::keyPressEvent(QKeyEvent* e) {
    // A list moved onto its last item asks its owner for more.
    const bool listMove = direct(SCI_AUTOCACTIVE) &&
                          (e->key() == Qt::Key_Down || e->key() == Qt::Key_PageDown || e->key() == Qt::Key_End);
    keyPressEventInner(e);
    // Asked once the key is handled: the owner's answer rebuilds the list, which must not
    // happen while the engine is still moving in it.
    if (listMove && direct(SCI_AUTOCACTIVE) && direct(SCI_AUTOCGETCURRENT) >= listItems_ - 1)
        QMetaObject::invokeMethod(
            this, [this] { if (direct(SCI_AUTOCACTIVE)) emitNotification(SCN_LISTMORE_EXT); }, Qt::QueuedConnection);
}

void QuillEngine::keyPressEventInner(QKeyEvent* e) {
    if (owner_) {
        MSG msg = keyMessage(this, e);
        if (owner_->PreTranslateTree(&msg)) {
            e->accept();
            return;
        }
    }
    // A Ctrl chord is a command, never text: the engine gets the key without its character.
    // Ctrl with Alt is left alone, since AltGr layouts type characters with it.
    const Qt::KeyboardModifiers chord = e->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (chord == Qt::ControlModifier && !e->text().isEmpty()) {
        QKeyEvent bare(e->type(), e->key(), e->modifiers(), e->nativeScanCode(), e->nativeVirtualKey(),
                       e->nativeModifiers(), QString(), e->isAutoRepeat(), ushort(e->count()));
        QsciScintillaBase::keyPressEvent(&bare);
        e->accept();
        return;
    }
    QsciScintillaBase::keyPressEvent(e);
}

void QuillEngine::focusInEvent(QFocusEvent* e) {
    QsciScintillaBase::focusInEvent(e);
    if (owner_) owner_->SendMessage(WM_SETFOCUS, 0, 0);
}

// Mouse, wheel and resize reach the engine through its viewport.
bool QuillEngine::viewportEvent(QEvent* e) {
    if (e->type() != QEvent::Paint) ++viewEpoch_;
    return QsciScintillaBase::viewportEvent(e);
}

void QuillEngine::paintEvent(QPaintEvent* e) {
    const bool colouringAboveView = colourWhatShows();
    const bool toScreen = paintsToScreen();
    if (toScreen && colouringAboveView && shownFrame() == lastFrame_ && e->rect().contains(viewport()->rect()) &&
        !window()->testAttribute(Qt::WA_TranslucentBackground) && ask(SCI_GETWRAPMODE) == SC_WRAP_NONE) {
        // The same picture as the last one on the screen: keep it. (A translucent window's
        // backing store is cleared before each paint; wrapping can move lines in the view
        // while colouring runs above it.)
        ++counters_.framesKept;
        return;
    }
    QsciScintillaBase::paintEvent(e);
    // Read after the paint: the window answers the engine's UI update during it (brace and
    // word highlight), and what those messages change the paint has shown.
    if (toScreen) lastFrame_ = shownFrame();
}

// A paint for the screen goes to the top-level window's backing store; grab() and render()
// redirect the viewport to their own pixmap or image, which must always be painted whole.
bool QuillEngine::paintsToScreen() const {
    QBackingStore* store = viewport()->backingStore();
    if (!store) return false;
    // QWidget::redirected is protected; naming it through this class lets the engine ask it of
    // its viewport.
    QPaintDevice* (QWidget::*redirectedOf)(QPoint*) const = &QuillEngine::redirected;
    QPoint offset;
    return (viewport()->*redirectedOf)(&offset) == store->paintDevice();
}

QuillEngine::Frame QuillEngine::shownFrame() const {
    return {viewEpoch_, ask(SCI_GETFIRSTVISIBLELINE), ask(SCI_GETXOFFSET), viewport()->size(),
            viewport()->backingStore()->size()};
}

bool QuillEngine::colourWhatShows() {
    constexpr double kSyncColouringSeconds = 0.05;
    // Text that shows already, or follows what is coloured, the engine's paint colours itself
    // (an edit, a scroll by a page); this is for a jump far ahead of the colouring.
    if (ask(SCI_GETLEXER) <= SCLEX_NULL) return false;  // nothing to colour without a lexer
    const long endStyled = ask(SCI_GETENDSTYLED);
    const long firstVisible = ask(SCI_GETFIRSTVISIBLELINE);
    if (endStyled >= ask(SCI_POSITIONFROMLINE, WPARAM(ask(SCI_DOCLINEFROMVISIBLE, WPARAM(firstVisible))))) return false;
    const long lastShown = ask(SCI_DOCLINEFROMVISIBLE, WPARAM(firstVisible + ask(SCI_LINESONSCREEN) + 1));
    const long shownEnd = std::min(ask(SCI_GETLENGTH), ask(SCI_GETLINEENDPOSITION, WPARAM(lastShown)));
    const long missing = shownEnd - endStyled;
    if (missing <= 0) return false;
    if (double(missing) > colouringBytesPerSecond_ * kSyncColouringSeconds) return true;
    const auto start = std::chrono::steady_clock::now();
    direct(SCI_COLOURISE, WPARAM(endStyled), shownEnd);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    // Only runs long enough to time well correct the rate; it moves a quarter of the way.
    if (missing >= (64 << 10) && seconds > 0)
        colouringBytesPerSecond_ = 0.75 * colouringBytesPerSecond_ + 0.25 * (double(missing) / seconds);
    return false;
}

void QuillEngine::resizeEvent(QResizeEvent* e) {
    QsciScintillaBase::resizeEvent(e);
    if (owner_)
        owner_->SendMessage(WM_SIZE, 0, LPARAM((width() & 0xFFFF) | ((height() & 0xFFFF) << 16)));
}

// The window decides on its context menu (WM_CONTEXTMENU with the screen point); the
// engine's own menu never shows.
void QuillEngine::contextMenuEvent(QContextMenuEvent* e) {
    if (owner_) {
        const QPoint at = e->globalPos();
        owner_->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(static_cast<QWidget*>(this)),
                            LPARAM((at.x() & 0xFFFF) | ((at.y() & 0xFFFF) << 16)));
    }
    e->accept();
}

// Drops in the host's private text format go to the window (message 0x4FF with a drop
// record); everything else is the engine's own drag and drop.
bool QuillEngine::carriesPrivateDrop(const QMimeData* data) const {
    static const CLIPFORMAT format = RegisterClipboardFormat("Tessel_OLEFormat");
    return data && data->hasFormat(ClipboardFormatMimeType(format));
}

void QuillEngine::dragEnterEvent(QDragEnterEvent* e) {
    if (carriesPrivateDrop(e->mimeData())) e->acceptProposedAction();
    else QsciScintillaBase::dragEnterEvent(e);
}

void QuillEngine::dragMoveEvent(QDragMoveEvent* e) {
    if (carriesPrivateDrop(e->mimeData())) {
        e->acceptProposedAction();
        QsciScintillaBase::dragMoveEvent(e);  // the engine shows where the text would go
        e->acceptProposedAction();
    } else {
        QsciScintillaBase::dragMoveEvent(e);
    }
}

void QuillEngine::dropEvent(QDropEvent* e) {
    if (owner_ && carriesPrivateDrop(e->mimeData())) {
        constexpr UINT kDragAndDropMessage = 0x4FF;
        const QPoint at = e->position().toPoint();
        DropRecord record;
        record.dataObject = e->mimeData();
        record.x = at.x();
        record.y = at.y();
        SetDropCursorPos(viewport()->mapToGlobal(at));
        const LRESULT taken = owner_->SendMessage(kDragAndDropMessage, reinterpret_cast<WPARAM>(&record), 0);
        SetDropCursorPos(std::nullopt);
        if (taken) {
            e->acceptProposedAction();
            return;
        }
    }
    QsciScintillaBase::dropEvent(e);
}
