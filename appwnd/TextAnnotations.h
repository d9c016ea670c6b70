#pragma once
// Messages a host shows in the text: each one marks a range with an indicator and shows its
// message under the range's first line (the engine's annotations). An annotation lives until
// the host removes it or the text of its range is edited. Each range carries its own
// indicator value, so that the marks tell the annotations apart however close they stand.
#include <functional>
#include <string>
#include <vector>

#include "CString.h"
#include "Indicators.h"
#include "WinTypes.h"

class TextAnnotations {
public:
    using Send = std::function<long(long message, WPARAM wParam, LPARAM lParam)>;
    static constexpr int kIndicator = indicator::Annotation;
    static constexpr int kStyle = 63;  // the style of the message lines; no lexer style uses it

    explicit TextAnnotations(Send send) : send_(std::move(send)) {}

    // Marks [start, end), clamped to the document, and shows `message` under its first line.
    // An empty range takes the word at `start`, or else the character there. The id (above
    // 0) for Remove; 0 when nothing can be marked or the message is empty.
    int Add(long start, long end, const CString& message);
    // False when no annotation has that id (any more).
    bool Remove(int id);
    void Clear();
    int Count() const { return int(entries_.size()); }

    // Drops every annotation whose range no longer holds the text it marked: an edit inside
    // the range, or one that deleted it. The work grows with the number of annotations, not
    // with the document.
    void FollowEdits();
    // Sets the indicator and the message style; called again whenever the colours change.
    void SetColours(COLORREF messageFore, COLORREF messageBack, COLORREF mark);

private:
    struct Entry {
        int id;
        std::string text;  // the bytes of the range when it was marked
        CString message;
        long line;         // the line the message shows under
    };
    std::string textOf(long start, long end) const;
    void clearMark(long start, long end);
    // Sets the engine's annotation lines from the entries, messages of one line together.
    void show();

    Send send_;
    std::vector<Entry> entries_;
    int nextId_ = 1;
};
