#include "TextAnnotations.h"

#include <algorithm>
#include <map>

#include "EngineTypes.h"

namespace {
constexpr int kLargestId = 0xFFFFFF;  // indicator values are 24 bits
constexpr long ANNOTATION_HIDDEN = 0;
constexpr long ANNOTATION_BOXED = 2;
}  // namespace

std::string TextAnnotations::textOf(long start, long end) const {
    std::string bytes(size_t(end - start) + 1, '\0');
    Sci_TextRange range;
    range.chrg = {start, end};
    range.lpstrText = bytes.data();
    send_(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    bytes.resize(size_t(end - start));
    return bytes;
}

void TextAnnotations::clearMark(long start, long end) {
    send_(SCI_SETINDICATORCURRENT, kIndicator, 0);
    send_(SCI_INDICATORCLEARRANGE, WPARAM(start), end - start);
}

int TextAnnotations::Add(long start, long end, const CString& message) {
    const long length = send_(SCI_GETLENGTH, 0, 0);
    if (message.IsEmpty() || length == 0) return 0;
    start = std::clamp(start, 0L, length);
    end = std::clamp(end, 0L, length);
    if (start > end) std::swap(start, end);
    if (start == end) {
        start = send_(SCI_WORDSTARTPOSITION, WPARAM(start), 1);
        end = send_(SCI_WORDENDPOSITION, WPARAM(end), 1);
        if (start == end) end = start < length ? send_(SCI_POSITIONAFTER, WPARAM(start), 0) : start;
        if (start == end && start > 0) start = send_(SCI_POSITIONBEFORE, WPARAM(start), 0);
    }
    const int id = nextId_;
    nextId_ = nextId_ >= kLargestId ? 1 : nextId_ + 1;
    Remove(id);  // only after the ids went once round
    // A range that overlaps another annotation's would mix their marks: the older one goes.
    for (long position = start; position < end;) {
        const long value = send_(SCI_INDICATORVALUEAT, kIndicator, position);
        const long runEnd = send_(SCI_INDICATOREND, kIndicator, position);
        if (value) Remove(int(value));
        if (runEnd <= position) break;
        position = runEnd;
    }
    send_(SCI_SETINDICATORCURRENT, kIndicator, 0);
    send_(SCI_SETINDICATORVALUE, WPARAM(id), 0);
    send_(SCI_INDICATORFILLRANGE, WPARAM(start), end - start);
    entries_.push_back({id, textOf(start, end), message, send_(SCI_LINEFROMPOSITION, WPARAM(start), 0)});
    show();
    return id;
}

bool TextAnnotations::Remove(int id) {
    auto it = std::find_if(entries_.begin(), entries_.end(), [id](const Entry& e) { return e.id == id; });
    if (it == entries_.end()) return false;
    const long length = send_(SCI_GETLENGTH, 0, 0);
    for (long position = 0; position < length;) {
        const long runEnd = send_(SCI_INDICATOREND, kIndicator, position);
        if (send_(SCI_INDICATORVALUEAT, kIndicator, position) == id) {
            clearMark(position, runEnd);
            break;
        }
        if (runEnd <= position) break;
        position = runEnd;
    }
    entries_.erase(it);
    show();
    return true;
}

void TextAnnotations::Clear() {
    if (entries_.empty()) return;
    entries_.clear();
    clearMark(0, send_(SCI_GETLENGTH, 0, 0));
    send_(SCI_ANNOTATIONCLEARALL, 0, 0);
}

void TextAnnotations::FollowEdits() {
    if (entries_.empty()) return;
    // Walk the runs of the indicator: two per annotation at most, plus one.
    struct Run {
        long start, end;
    };
    std::map<long, Run> runs;
    const long length = send_(SCI_GETLENGTH, 0, 0);
    for (long position = 0; position < length;) {
        const long value = send_(SCI_INDICATORVALUEAT, kIndicator, position);
        const long runEnd = send_(SCI_INDICATOREND, kIndicator, position);
        if (runEnd <= position) break;
        if (value) runs.emplace(value, Run{position, runEnd});
        position = runEnd;
    }
    bool changed = false;
    for (auto it = entries_.begin(); it != entries_.end();) {
        const auto run = runs.find(it->id);
        const bool intact = run != runs.end() && size_t(run->second.end - run->second.start) == it->text.size() &&
                            textOf(run->second.start, run->second.end) == it->text;
        if (!intact) {
            if (run != runs.end()) clearMark(run->second.start, run->second.end);
            it = entries_.erase(it);
            changed = true;
            continue;
        }
        const long line = send_(SCI_LINEFROMPOSITION, WPARAM(run->second.start), 0);
        if (line != it->line) {
            // Lines joined or split around it: the engine's annotation may be gone or elsewhere.
            it->line = line;
            changed = true;
        }
        ++it;
    }
    if (changed) show();
}

void TextAnnotations::show() {
    send_(SCI_ANNOTATIONCLEARALL, 0, 0);
    std::map<long, std::string> lines;
    for (const Entry& e : entries_) {
        std::string& text = lines[e.line];
        if (!text.empty()) text += '\n';
        text += e.message.str();
    }
    for (const auto& [line, text] : lines) {
        send_(SCI_ANNOTATIONSETTEXT, WPARAM(line), reinterpret_cast<LPARAM>(text.c_str()));
        send_(SCI_ANNOTATIONSETSTYLE, WPARAM(line), kStyle);
    }
    send_(SCI_ANNOTATIONSETVISIBLE, entries_.empty() ? ANNOTATION_HIDDEN : ANNOTATION_BOXED, 0);
}

void TextAnnotations::SetColours(COLORREF messageFore, COLORREF messageBack, COLORREF mark) {
    send_(SCI_STYLESETFORE, kStyle, LPARAM(messageFore));
    send_(SCI_STYLESETBACK, kStyle, LPARAM(messageBack));
    send_(SCI_INDICSETSTYLE, kIndicator, INDIC_SQUIGGLE);
    send_(SCI_INDICSETFORE, kIndicator, LPARAM(mark));
    send_(SCI_INDICSETUNDER, kIndicator, 0);
}
