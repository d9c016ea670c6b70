// Mouse chords of the engine window. QScintilla on Qt reads Ctrl as the rectangle key and
// never adds a caret by mouse; editors use Ctrl+click to add a caret and Alt+drag for a
// rectangle, so the events are translated before QScintilla sees them.
#include <QMouseEvent>
#include <QWheelEvent>

#include "QuillEngine.h"

namespace {
constexpr Qt::KeyboardModifiers kChordKeys = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
constexpr int kWheelStep = 120;  // one notch of a wheel

// The event as QScintilla is to see it: Alt alone becomes the Ctrl that QScintilla reads as
// the rectangle key.
QMouseEvent forQScintilla(const QMouseEvent* e) {
    Qt::KeyboardModifiers modifiers = e->modifiers();
    if ((modifiers & kChordKeys & ~Qt::ShiftModifier) == Qt::AltModifier)
        modifiers = (modifiers & ~Qt::AltModifier) | Qt::ControlModifier;
    return QMouseEvent(e->type(), e->position(), e->scenePosition(), e->globalPosition(), e->button(), e->buttons(),
                       modifiers, e->pointingDevice());
}

bool altChord(const QMouseEvent* e) { return (e->modifiers() & kChordKeys & ~Qt::ShiftModifier) == Qt::AltModifier; }
}  // namespace

void QuillEngine::mousePressEvent(QMouseEvent* e) {
    const QPoint at = e->position().toPoint();
    long marginsWidth = 0;
    for (WPARAM margin = 0; margin < 5; ++margin) marginsWidth += direct(SCI_GETMARGINWIDTHN, margin);
    const bool addCaret = e->button() == Qt::LeftButton && (e->modifiers() & kChordKeys) == Qt::ControlModifier &&
                          at.x() >= marginsWidth && direct(SCI_GETMULTIPLESELECTION);
    if (!addCaret) {
        // For Alt, multiple selection is off for a moment, so that the engine starts a
        // rectangle rather than adding a selection.
        QMouseEvent passed = forQScintilla(e);
        const bool rectangle = altChord(e) && direct(SCI_GETMULTIPLESELECTION);
        if (rectangle) direct(SCI_SETMULTIPLESELECTION, 0);
        QsciScintillaBase::mousePressEvent(&passed);
        if (rectangle) direct(SCI_SETMULTIPLESELECTION, 1);
        e->setAccepted(passed.isAccepted());
        return;
    }
    setFocus(Qt::MouseFocusReason);
    const long position = direct(SCI_POSITIONFROMPOINT, WPARAM(at.x()), at.y());
    direct(SCI_ADDSELECTION, WPARAM(position), position);
    addingSelection_ = true;
    e->accept();
}

void QuillEngine::mouseMoveEvent(QMouseEvent* e) {
    if (addingSelection_ && (e->buttons() & Qt::LeftButton)) {
        // The added selection is the main one; dragging moves its caret.
        const QPoint at = e->position().toPoint();
        const long position = direct(SCI_POSITIONFROMPOINT, WPARAM(at.x()), at.y());
        direct(SCI_SETSELECTIONNCARET, WPARAM(direct(SCI_GETMAINSELECTION)), position);
        e->accept();
        return;
    }
    QMouseEvent passed = forQScintilla(e);
    QsciScintillaBase::mouseMoveEvent(&passed);
    e->setAccepted(passed.isAccepted());
}

void QuillEngine::mouseReleaseEvent(QMouseEvent* e) {
    if (addingSelection_ && e->button() == Qt::LeftButton) {
        addingSelection_ = false;
        e->accept();
        return;
    }
    QMouseEvent passed = forQScintilla(e);
    QsciScintillaBase::mouseReleaseEvent(&passed);
    e->setAccepted(passed.isAccepted());
}

void QuillEngine::wheelEvent(QWheelEvent* e) {
    if ((e->modifiers() & kChordKeys) != Qt::ControlModifier) {
        zoomWheel_ = 0;
        QsciScintillaBase::wheelEvent(e);
        return;
    }
    // Fine-grained wheels and touchpads send parts of a notch: a step needs a whole one.
    zoomWheel_ += e->angleDelta().y();
    for (; zoomWheel_ >= kWheelStep; zoomWheel_ -= kWheelStep) direct(SCI_ZOOMIN);
    for (; zoomWheel_ <= -kWheelStep; zoomWheel_ += kWheelStep) direct(SCI_ZOOMOUT);
    e->accept();
}
