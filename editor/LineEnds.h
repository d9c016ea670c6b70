#pragma once
// Rewriting of line ends: a CR, an LF or a CR LF pair is one line end and becomes the line
// end of an engine mode (SC_EOL_CR, SC_EOL_LF, else CR LF). Texts end at their first NUL.
#include <cstring>
#include <string>
#include <string_view>

#include "ScintillaConstants.h"

namespace lineends {

// The text up to its first NUL.
inline std::string_view AsCText(std::string_view text) {
    const void* nul = std::memchr(text.data(), '\0', text.size());
    return nul ? text.substr(0, size_t(static_cast<const char*>(nul) - text.data())) : text;
}

inline const char* EolOf(int eolMode) {
    return eolMode == SC_EOL_CR ? "\r" : (eolMode == SC_EOL_LF ? "\n" : "\r\n");
}

inline int EolModeOf(std::string_view eol) {
    return eol == "\r" ? int(SC_EOL_CR) : (eol == "\n" ? int(SC_EOL_LF) : int(SC_EOL_CRLF));
}

// Finds line-end bytes from left to right. Each byte value is searched with memchr and its
// next position remembered, so a whole text costs one pass per byte value.
class LineEndScanner {
public:
    explicit LineEndScanner(std::string_view text) : text_(text), nextCr_(find('\r', 0)), nextLf_(find('\n', 0)) {}
    // The position of the next CR or LF at or after `from`, or npos.
    size_t next(size_t from) {
        if (nextCr_ < from) nextCr_ = find('\r', from);
        if (nextLf_ < from) nextLf_ = find('\n', from);
        return nextCr_ < nextLf_ ? nextCr_ : nextLf_;
    }

private:
    size_t find(char c, size_t from) const {
        if (from >= text_.size()) return std::string_view::npos;
        const void* hit = std::memchr(text_.data() + from, c, text_.size() - from);
        return hit ? size_t(static_cast<const char*>(hit) - text_.data()) : std::string_view::npos;
    }
    std::string_view text_;
    size_t nextCr_, nextLf_;
};

struct Plan {
    size_t convertedLength = 0;
    bool changes = false;  // false when the text is already in the mode's form
};

// Measures the converted text without writing it.
inline Plan Measure(std::string_view text, int eolMode) {
    const std::string_view eol = EolOf(eolMode);
    LineEndScanner scanner(text);
    Plan plan;
    for (size_t i = 0; i < text.size();) {
        const size_t end = scanner.next(i);
        if (end == std::string_view::npos) {
            plan.convertedLength += text.size() - i;
            break;
        }
        plan.convertedLength += end - i + eol.size();
        const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        const std::string_view found = pair ? std::string_view("\r\n") : text.substr(end, 1);
        plan.changes = plan.changes || found != eol;
        i = end + (pair ? 2 : 1);
    }
    return plan;
}

// Hands the converted text to `sink(const char*, size_t)` in pieces of about `chunk` bytes, so
// that a large text never needs a second whole copy.
template <typename Sink>
void Convert(std::string_view text, int eolMode, size_t chunk, Sink&& sink) {
    const std::string_view eol = EolOf(eolMode);
    LineEndScanner scanner(text);
    std::string piece;
    piece.reserve(chunk + 2);
    for (size_t i = 0; i < text.size();) {
        size_t end = scanner.next(i);
        if (end == std::string_view::npos) end = text.size();
        piece.append(text.data() + i, end - i);
        i = end;
        if (end < text.size()) {
            const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
            piece.append(eol);
            i = end + (pair ? 2 : 1);
        }
        if (piece.size() >= chunk) {
            sink(piece.data(), piece.size());
            piece.clear();
        }
    }
    if (!piece.empty()) sink(piece.data(), piece.size());
}

}  // namespace lineends
