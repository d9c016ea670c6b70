#include "EngineAccessible.h"

#include <QAccessible>
#include <QFontMetrics>
#include <algorithm>
#include <utility>
#include <vector>

#include "QuillEngine.h"

// --- offsets -----------------------------------------------------------------------------

void EngineTextOffsets::ensureIndex() const {
    if (!(engine_.send(SCI_GETLINECHARACTERINDEX) & SC_LINECHARACTERINDEX_UTF16))
        engine_.send(SCI_ALLOCATELINECHARACTERINDEX, SC_LINECHARACTERINDEX_UTF16);
}

long EngineTextOffsets::offsetOf(long position) const {
    ensureIndex();
    position = std::clamp(position, 0L, engine_.send(SCI_GETLENGTH));
    const long line = engine_.send(SCI_LINEFROMPOSITION, WPARAM(position));
    const long lineStart = engine_.send(SCI_POSITIONFROMLINE, WPARAM(line));
    engine_.countScanned(std::uint64_t(position - lineStart));
    return engine_.send(SCI_INDEXPOSITIONFROMLINE, WPARAM(line), SC_LINECHARACTERINDEX_UTF16) +
           engine_.send(SCI_COUNTCODEUNITS, WPARAM(lineStart), position);
}

long EngineTextOffsets::positionOf(long offset) const {
    ensureIndex();
    const long documentLength = engine_.send(SCI_GETLENGTH);
    if (offset <= 0) return 0;
    if (offset >= length()) return documentLength;
    const long line = engine_.send(SCI_LINEFROMINDEXPOSITION, WPARAM(offset), SC_LINECHARACTERINDEX_UTF16);
    const long lineStart = engine_.send(SCI_POSITIONFROMLINE, WPARAM(line));
    const long within = offset - engine_.send(SCI_INDEXPOSITIONFROMLINE, WPARAM(line), SC_LINECHARACTERINDEX_UTF16);
    const long position =
        within > 0 ? engine_.send(SCI_POSITIONRELATIVECODEUNITS, WPARAM(lineStart), within) : lineStart;
    engine_.countScanned(std::uint64_t(std::max(0L, position - lineStart)));
    return std::clamp(position, 0L, documentLength);
}

long EngineTextOffsets::length() const { return offsetOf(engine_.send(SCI_GETLENGTH)); }

// --- the accessible object -----------------------------------------------------------------

namespace {
QAccessibleInterface* engineFactory(const QString&, QObject* object) {
    if (auto* engine = dynamic_cast<QuillEngine*>(object)) return new EngineAccessible(engine);
    return nullptr;
}

EngineAccessible::Listener hostListener = nullptr;

void publish(QAccessibleEvent* event) {
    if (hostListener) hostListener(event);
    else QAccessible::updateAccessibility(event);
}

EngineAccessible* accessibleOf(QuillEngine* engine) {
    return dynamic_cast<EngineAccessible*>(QAccessible::queryAccessibleInterface(engine));
}
}  // namespace

EngineAccessible::EngineAccessible(QuillEngine* engine)
    : QAccessibleWidget(engine, QAccessible::EditableText), offsets_(*engine) {}

void EngineAccessible::install() {
    static const bool installed = [] {
        QAccessible::installFactory(engineFactory);
        return true;
    }();
    (void)installed;
}

bool EngineAccessible::listening() { return hostListener || QAccessible::isActive(); }

EngineAccessible::Listener EngineAccessible::installListener(Listener listener) {
    return std::exchange(hostListener, listener);
}

void EngineAccessible::textChanged(QuillEngine* engine, bool inserted, long position, const char* text, long length) {
    if (!listening()) return;
    EngineAccessible* accessible = accessibleOf(engine);
    if (!accessible) return;
    // Text before the change's position is untouched by it, so its offset is the same before
    // and after.
    const int offset = int(accessible->offsets_.offsetOf(position));
    const QString changed = QString::fromUtf8(text ? text : "", qsizetype(text ? length : 0));
    if (inserted) {
        QAccessibleTextInsertEvent event(engine, offset, changed);
        publish(&event);
    } else {
        QAccessibleTextRemoveEvent event(engine, offset, changed);
        publish(&event);
    }
}

void EngineAccessible::uiUpdated(QuillEngine* engine) {
    if (!listening()) return;
    if (EngineAccessible* accessible = accessibleOf(engine)) accessible->announceUpdate();
}

void EngineAccessible::announceUpdate() {
    QuillEngine* e = engine();
    if (!e) return;
    const int cursor = cursorPosition();
    if (cursor != lastCursor_) {
        lastCursor_ = cursor;
        QAccessibleTextCursorEvent event(e, cursor);
        publish(&event);
    }
    int start = 0, end = 0;
    selection(0, &start, &end);
    if (start != lastSelectionStart_ || end != lastSelectionEnd_) {
        lastSelectionStart_ = start;
        lastSelectionEnd_ = end;
        QAccessibleTextSelectionEvent event(e, start, end);
        event.setCursorPosition(cursor);
        publish(&event);
    }
}

QuillEngine* EngineAccessible::engine() const { return static_cast<QuillEngine*>(widget()); }

long EngineAccessible::send(unsigned message, unsigned long wParam, long lParam) const {
    QuillEngine* e = engine();
    return e ? e->send(message, WPARAM(wParam), LPARAM(lParam)) : 0;
}

void* EngineAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface) return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State EngineAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    const bool readOnly = send(SCI_GETREADONLY) != 0;
    s.editable = !readOnly;
    s.readOnly = readOnly;
    s.multiLine = true;
    s.selectableText = true;
    return s;
}

// The engine's main selection is the one selection assistive technology sees.
void EngineAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    *startOffset = *endOffset = 0;
    if (selectionIndex != 0 || !engine()) return;
    const long start = send(SCI_GETSELECTIONSTART), end = send(SCI_GETSELECTIONEND);
    if (start == end) return;
    *startOffset = int(offsets_.offsetOf(start));
    *endOffset = int(offsets_.offsetOf(end));
}

int EngineAccessible::selectionCount() const {
    return engine() && send(SCI_GETSELECTIONSTART) != send(SCI_GETSELECTIONEND) ? 1 : 0;
}

void EngineAccessible::addSelection(int startOffset, int endOffset) { setSelection(0, startOffset, endOffset); }

void EngineAccessible::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) send(SCI_SETEMPTYSELECTION, (unsigned long)send(SCI_GETCURRENTPOS));
}

void EngineAccessible::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex != 0 || !engine()) return;
    send(SCI_SETSEL, (unsigned long)offsets_.positionOf(startOffset), offsets_.positionOf(endOffset));
}

int EngineAccessible::cursorPosition() const {
    return engine() ? int(offsets_.offsetOf(send(SCI_GETCURRENTPOS))) : 0;
}

void EngineAccessible::setCursorPosition(int position) {
    if (engine()) send(SCI_GOTOPOS, (unsigned long)offsets_.positionOf(position));
}

QString EngineAccessible::textBetween(long start, long end) const {
    if (end <= start) return QString();
    std::vector<char> bytes(size_t(end - start) + 1, '\0');
    Sci_TextRange range;
    range.chrg = {start, end};
    range.lpstrText = bytes.data();
    send(SCI_GETTEXTRANGE, 0, reinterpret_cast<long>(&range));
    return QString::fromUtf8(bytes.data(), qsizetype(end - start));
}

QString EngineAccessible::text(int startOffset, int endOffset) const {
    if (!engine()) return QString();
    // -1 stands for the end of the text.
    const long end = endOffset < 0 ? send(SCI_GETLENGTH) : offsets_.positionOf(endOffset);
    return textBetween(offsets_.positionOf(startOffset), end);
}

int EngineAccessible::characterCount() const { return engine() ? int(offsets_.length()) : 0; }

// The range of the boundary around a byte position. A word boundary gives the word that
// holds or ends at the position, else the run of blanks or punctuation there.
bool EngineAccessible::boundaries(long position, QAccessible::TextBoundaryType type, long* start, long* end) const {
    const long length = send(SCI_GETLENGTH);
    switch (type) {
        case QAccessible::CharBoundary:
            if (position >= length) return false;
            *start = position;
            *end = send(SCI_POSITIONAFTER, (unsigned long)position);
            return true;
        case QAccessible::WordBoundary: {
            long wordStart = send(SCI_WORDSTARTPOSITION, (unsigned long)position, 1);
            long wordEnd = send(SCI_WORDENDPOSITION, (unsigned long)position, 1);
            if (wordStart == wordEnd) {
                wordStart = send(SCI_WORDSTARTPOSITION, (unsigned long)position, 0);
                wordEnd = send(SCI_WORDENDPOSITION, (unsigned long)position, 0);
            }
            if (wordStart == wordEnd) return false;
            *start = wordStart;
            *end = wordEnd;
            return true;
        }
        case QAccessible::LineBoundary:
        case QAccessible::ParagraphBoundary: {
            const long line = send(SCI_LINEFROMPOSITION, (unsigned long)position);
            *start = send(SCI_POSITIONFROMLINE, (unsigned long)line);
            *end = send(SCI_POSITIONFROMLINE, (unsigned long)(line + 1));
            if (*end < *start) *end = length;
            return *start < *end;
        }
        case QAccessible::NoBoundary:
            *start = 0;
            *end = length;
            return true;
        case QAccessible::SentenceBoundary:
            break;
    }
    return false;
}

QString EngineAccessible::textInRange(long start, long end, int* startOffset, int* endOffset) const {
    *startOffset = int(offsets_.offsetOf(start));
    *endOffset = int(offsets_.offsetOf(end));
    return textBetween(start, end);
}

QString EngineAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType type, int* startOffset,
                                       int* endOffset) const {
    *startOffset = *endOffset = -1;
    long start = 0, end = 0;
    if (!engine() || !boundaries(offsets_.positionOf(offset), type, &start, &end)) return QString();
    return textInRange(start, end, startOffset, endOffset);
}

QString EngineAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* startOffset,
                                           int* endOffset) const {
    *startOffset = *endOffset = -1;
    long start = 0, end = 0;
    if (!engine()) return QString();
    const long position = offsets_.positionOf(offset);
    // The boundary at the position, if any, starts where the one before it ends.
    const long limit = boundaries(position, type, &start, &end) ? start : position;
    if (limit <= 0 || !boundaries(send(SCI_POSITIONBEFORE, (unsigned long)limit), type, &start, &end))
        return QString();
    return textInRange(start, end, startOffset, endOffset);
}

QString EngineAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* startOffset,
                                          int* endOffset) const {
    *startOffset = *endOffset = -1;
    long start = 0, end = 0;
    if (!engine() || !boundaries(offsets_.positionOf(offset), type, &start, &end)) return QString();
    if (end >= send(SCI_GETLENGTH) || !boundaries(end, type, &start, &end)) return QString();
    return textInRange(start, end, startOffset, endOffset);
}

QRect EngineAccessible::characterRect(int offset) const {
    QuillEngine* e = engine();
    if (!e) return QRect();
    const long position = offsets_.positionOf(offset);
    const long next = send(SCI_POSITIONAFTER, (unsigned long)position);
    const long line = send(SCI_LINEFROMPOSITION, (unsigned long)position);
    const int x = int(send(SCI_POINTXFROMPOSITION, 0, position));
    const int y = int(send(SCI_POINTYFROMPOSITION, 0, position));
    int width = int(send(SCI_POINTXFROMPOSITION, 0, next)) - x;
    if (next == position || send(SCI_LINEFROMPOSITION, (unsigned long)next) != line || width <= 0)
        width = QFontMetrics(e->font()).averageCharWidth();
    const QRect local(x, y, width, int(send(SCI_TEXTHEIGHT, (unsigned long)line)));
    return QRect(e->viewport()->mapToGlobal(local.topLeft()), local.size());
}

int EngineAccessible::offsetAtPoint(const QPoint& point) const {
    QuillEngine* e = engine();
    if (!e) return -1;
    const QPoint local = e->viewport()->mapFromGlobal(point);
    const long position = send(SCI_POSITIONFROMPOINTCLOSE, (unsigned long)local.x(), local.y());
    return position < 0 ? -1 : int(offsets_.offsetOf(position));
}

void EngineAccessible::scrollToSubstring(int startIndex, int endIndex) {
    if (engine()) send(SCI_SCROLLRANGE, (unsigned long)offsets_.positionOf(endIndex), offsets_.positionOf(startIndex));
}

// No attributes are published; the range is the character at the offset.
QString EngineAccessible::attributes(int offset, int* startOffset, int* endOffset) const {
    *startOffset = offset;
    *endOffset = std::min(offset + 1, characterCount());
    return QString();
}

void EngineAccessible::deleteText(int startOffset, int endOffset) { replaceText(startOffset, endOffset, QString()); }

void EngineAccessible::insertText(int offset, const QString& text) { replaceText(offset, offset, text); }

void EngineAccessible::replaceText(int startOffset, int endOffset, const QString& text) {
    if (!engine() || send(SCI_GETREADONLY)) return;
    const long start = offsets_.positionOf(startOffset);
    const long end = std::max(start, offsets_.positionOf(endOffset));
    const QByteArray bytes = text.toUtf8();
    send(SCI_SETTARGETRANGE, (unsigned long)start, end);
    send(SCI_REPLACETARGET, (unsigned long)bytes.size(), reinterpret_cast<long>(bytes.constData()));
}
