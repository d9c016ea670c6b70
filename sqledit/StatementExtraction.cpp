#include "StatementExtraction.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "SQLCharClass.h"

namespace {

using sqlchar::isBlank;

// Length of the terminator at the end of `line`: 2 for CR LF, 1 for LF or CR, else 0.
int terminatorLength(std::string_view line) {
    if (line.empty()) return 0;
    if (line.back() == '\n') return line.size() >= 2 && line[line.size() - 2] == '\r' ? 2 : 1;
    return line.back() == '\r' ? 1 : 0;
}

enum class Verdict { PassOver, Arm, Stop };

// The pairing rule for one normalised word.
Verdict judge(std::string_view word, bool armed, bool forward) {
    if (word == "begin" || word == "for" || word == "loop") return Verdict::Stop;
    const bool pairWord = word == "is" || word == "as";
    const bool selectWord = word == "select";
    if (forward) {
        if (pairWord && !armed) return Verdict::Arm;
        if (selectWord && armed) return Verdict::Stop;
    } else {
        if (selectWord && !armed) return Verdict::Arm;
        if (pairWord && armed) return Verdict::Stop;
    }
    return Verdict::PassOver;
}

// Tests the word text[start, end): true when it stops the scan. Updates `armed`.
bool testWord(std::string_view text, size_t start, size_t end, bool& armed, bool forward) {
    const CString token =
        StatementExtractor::InitToken(CString(std::string(text.substr(start, end - start))));
    switch (judge(token.view(), armed, forward)) {
    case Verdict::Arm:
        armed = true;
        return false;
    case Verdict::Stop:
        armed = false;
        return true;
    case Verdict::PassOver:
        return false;
    }
    return false;
}

// The boundary a scan met: the byte range to drop. `found` false when there is none.
struct Boundary {
    bool found = false;
    size_t start = 0;
    size_t end = 0;
};

Boundary scanForward(std::string_view text, bool& armed) {
    size_t wordStart = 0;
    bool inWord = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == ';') return {true, i, i + 1};
        if (isBlank(c)) {
            if (inWord && testWord(text, wordStart, i, armed, true)) return {true, wordStart, i};
            inWord = false;
        } else if (!inWord) {
            inWord = true;
            wordStart = i;
        }
    }
    if (inWord && testWord(text, wordStart, text.size(), armed, true))
        return {true, wordStart, text.size()};
    return {};
}

Boundary scanBackward(std::string_view text, bool& armed) {
    size_t wordEnd = 0;   // one past the word's last byte
    bool inWord = false;
    for (size_t i = text.size(); i-- > 0;) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == ';') return {true, i, i + 1};
        if (isBlank(c)) {
            if (inWord && testWord(text, i + 1, wordEnd, armed, false)) return {true, i + 1, wordEnd};
            inWord = false;
        } else if (!inWord) {
            inWord = true;
            wordEnd = i + 1;
        }
    }
    if (inWord && testWord(text, 0, wordEnd, armed, false)) return {true, 0, wordEnd};
    return {};
}

// A kept piece that begins with a blank gets all its leading white space replaced by one blank.
std::string normaliseFront(std::string_view kept) {
    if (kept.empty() || kept.front() != ' ') return std::string(kept);
    size_t first = 0;
    while (first < kept.size() && isBlank(static_cast<unsigned char>(kept[first]))) ++first;
    if (first == kept.size()) return std::string();
    std::string out(1, ' ');
    out.append(kept.substr(first));
    return out;
}

// The number at the front of `text`, read as atoi reads it (leading white space, a sign,
// digits; 0 when there are none), but held to the range of int instead of overflowing.
int leadingNumber(const CString& text) {
    const long long value = std::strtoll(text, nullptr, 10);
    return int(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

}  // namespace

VectorStatementSource::VectorStatementSource(std::vector<CString> lines, int caretLine,
                                             int caretColumn)
    : lines_(std::move(lines)), caretLine_(caretLine), caretColumn_(caretColumn) {}

VectorStatementSource VectorStatementSource::FromText(const CString& text, int caretPosition) {
    const std::string_view all = text.view();
    std::vector<CString> lines;
    size_t start = 0;
    for (size_t i = 0; i < all.size(); ++i) {
        if (all[i] == '\r' && i + 1 < all.size() && all[i + 1] == '\n') ++i;
        if (all[i] == '\n' || all[i] == '\r') {
            lines.emplace_back(all.substr(start, i + 1 - start));
            start = i + 1;
        }
    }
    lines.emplace_back(all.substr(start));   // the last line, possibly empty, as in the engine

    const size_t caret = size_t(std::clamp(caretPosition, 0, text.GetLength()));
    int line = 0;
    size_t lineStart = 0;
    while (line + 1 < int(lines.size()) && lineStart + size_t(lines[size_t(line)].GetLength()) <= caret)
        lineStart += size_t(lines[size_t(line++)].GetLength());
    return VectorStatementSource(std::move(lines), line, int(caret - lineStart));
}

CString VectorStatementSource::LineWithEnd(int line) const {
    if (line < 0 || line >= LineCount()) return CString();
    ++reads_;
    lowest_ = lowest_ < 0 ? line : std::min(lowest_, line);
    highest_ = std::max(highest_, line);
    return lines_[size_t(line)];
}

FunctionStatementSource::FunctionStatementSource(int lineCount, int caretLine, int caretColumn,
                                                 std::function<CString(int)> lineWithEnd)
    : lineCount_(lineCount), caretLine_(caretLine), caretColumn_(caretColumn),
      lineWithEnd_(std::move(lineWithEnd)) {}

CString FunctionStatementSource::LineWithEnd(int line) const {
    if (line < 0 || line >= lineCount_ || !lineWithEnd_) return CString();
    return lineWithEnd_(line);
}

CString StatementExtractor::InitToken(CString word) {
    word.MakeLower();
    std::string_view w = word.view();
    while (!w.empty() && w.front() == '(') w.remove_prefix(1);
    while (!w.empty() && w.front() == ')') w.remove_prefix(1);
    while (!w.empty() && w.back() == '(') w.remove_suffix(1);
    while (!w.empty() && w.back() == ')') w.remove_suffix(1);
    return CString(w);
}

bool StatementExtractor::GetSingleQuery(CString& text, bool& armed, bool forward) {
    const std::string_view all = text.view();
    const Boundary b = forward ? scanForward(all, armed) : scanBackward(all, armed);
    if (!b.found) return true;
    const std::string_view kept = forward ? all.substr(0, b.start) : all.substr(b.end);
    text = CString(normaliseFront(kept));
    return false;
}

namespace {
// Blank bytes at the start of `text`.
size_t leadingBlanks(std::string_view text) {
    size_t n = 0;
    while (n < text.size() && isBlank(static_cast<unsigned char>(text[n]))) ++n;
    return n;
}

// The document span of a kept piece. GetSingleQuery keeps the piece whole when no boundary
// stopped it; at a boundary it keeps the side towards the caret with its leading white
// space made one blank, so what follows that blank is found again in the piece as it was.
struct Span {
    size_t start, end;  // columns in the piece as read
};
Span keptSpan(std::string_view original, std::string_view kept, bool goesOn, bool forward) {
    if (goesOn) return {0, original.size()};
    const std::string_view core = kept.substr(leadingBlanks(kept));
    if (forward) {
        const size_t start = leadingBlanks(original);
        return {start, start + core.size()};
    }
    return {original.size() - core.size(), original.size()};
}

// The statement around the caret and, when `extent` is given, where it lies.
CString currentQuery(const StatementSource& source, StatementExtractor::Extent* extent) {
    if (extent) *extent = StatementExtractor::Extent{};
    const int lineCount = source.LineCount();
    if (lineCount <= 0) return CString();
    const int caretLine = std::clamp(source.CaretLine(), 0, lineCount - 1);

    // The caret's line is fetched once; each pass takes its half of it and pays one line of
    // budget for it, as for any other line.
    const CString caretText = source.LineWithEnd(caretLine);
    const std::string_view caretView = caretText.view();
    const int contentLength = int(caretView.size()) - terminatorLength(caretView);
    const size_t caretColumn = size_t(std::clamp(source.CaretColumn(), 0, contentLength));

    std::vector<CString> before;   // pieces in the order read, that is last line first
    std::vector<CString> after;
    int budget = StatementExtractor::kLineBudget;
    bool armed = false;
    // The document's span of the statement, widened by each piece that keeps text.
    bool spanFound = false;
    int firstLine = 0, lastLine = 0;
    size_t firstColumn = 0, endColumn = 0;
    const auto widen = [&](int line, size_t offset, Span span) {
        if (span.start >= span.end) return;
        const size_t start = offset + span.start, end = offset + span.end;
        if (!spanFound || line < firstLine || (line == firstLine && start < firstColumn)) {
            firstLine = line;
            firstColumn = start;
        }
        if (!spanFound || line > lastLine || (line == lastLine && end > endColumn)) {
            lastLine = line;
            endColumn = end;
        }
        spanFound = true;
    };

    // Unlike the other scanners of SQL text, this one skips no literal and no block comment:
    // it runs on every keystroke over text that is half typed, where an open quote would hide
    // the rest of the script. A "--" is found by a plain search, inside a literal too.

    // Backward pass: from the caret towards line 0.
    for (int line = caretLine; line >= 0 && budget >= 0; --line, --budget) {
        CString piece = line == caretLine ? CString(caretView.substr(0, caretColumn))
                                          : source.LineWithEnd(line);
        const int comment = piece.Find("--");
        if (comment >= 0) {
            if (line == caretLine) return CString();   // the caret stands in a line comment
            piece = piece.Left(comment);
        }
        if (piece.IsEmpty()) continue;
        const CString read = piece;
        const bool goesOn = StatementExtractor::GetSingleQuery(piece, armed, false);
        widen(line, 0, keptSpan(read.view(), piece.view(), goesOn, false));
        if (!piece.IsEmpty()) before.push_back(std::move(piece));
        if (!goesOn) break;
    }

    // Forward pass: from the caret to the last line, with what is left of the budget.
    armed = false;
    for (int line = caretLine; line < lineCount && budget >= 0; ++line, --budget) {
        CString piece = line == caretLine ? CString(caretView.substr(caretColumn))
                                          : source.LineWithEnd(line);
        const int comment = piece.Find("--");
        if (comment >= 0) piece = piece.Left(comment);
        if (piece.IsEmpty()) continue;
        const CString read = piece;
        const bool goesOn = StatementExtractor::GetSingleQuery(piece, armed, true);
        widen(line, line == caretLine ? caretColumn : 0, keptSpan(read.view(), piece.view(), goesOn, true));
        if (!piece.IsEmpty()) after.push_back(std::move(piece));
        if (!goesOn) break;
    }

    std::string query;
    for (auto it = before.rbegin(); it != before.rend(); ++it) query += it->str();
    for (const CString& piece : after) query += piece.str();
    if (spanFound && extent) {
        // The span's ends move inwards over white space, line ends included.
        CString firstText = source.LineWithEnd(firstLine);
        while (spanFound) {
            const std::string_view text = firstText.view();
            while (firstColumn < text.size() && isBlank(static_cast<unsigned char>(text[firstColumn]))) ++firstColumn;
            if (firstLine == lastLine && firstColumn >= endColumn) spanFound = false;
            else if (firstColumn < text.size()) break;
            else if (firstLine < lastLine) firstText = source.LineWithEnd(++firstLine), firstColumn = 0;
            else spanFound = false;
        }
        CString lastText = source.LineWithEnd(lastLine);
        while (spanFound) {
            const std::string_view text = lastText.view();
            endColumn = std::min(endColumn, text.size());
            while (endColumn > 0 && isBlank(static_cast<unsigned char>(text[endColumn - 1]))) --endColumn;
            if (firstLine == lastLine && endColumn <= firstColumn) spanFound = false;
            else if (endColumn > 0) break;
            else if (lastLine > firstLine) lastText = source.LineWithEnd(--lastLine), endColumn = lastText.view().size();
            else spanFound = false;
        }
    }
    if (spanFound && extent)
        *extent = StatementExtractor::Extent{true, firstLine, int(firstColumn), lastLine, int(endColumn)};
    return CString(std::move(query));
}
}  // namespace

CString StatementExtractor::GetCurrentQuery(const StatementSource& source) { return currentQuery(source, nullptr); }

CString StatementExtractor::GetCurrentQuery(const StatementSource& source, Extent& extent) {
    return currentQuery(source, &extent);
}

CString StatementExtractor::CheckComment(CString line, const CStringArray& ranges, int lineNo,
                                         int column) {
    const int at = std::clamp(column, 0, line.GetLength());
    const int open = line.Find("/*");
    const bool openedBefore = open >= 0 && open + 2 <= at;
    const bool closedAfter = line.Find("*/", at) >= 0;

    for (const CString& range : ranges) {
        // "first,last": the numbers before the first ',' and between it and any next ','.
        const int comma = range.Find(',');
        if (comma < 0) continue;
        const int first = leadingNumber(range.Left(comma));
        const int last = leadingNumber(range.Mid(comma + 1));
        bool inside;
        if (first == last)
            inside = lineNo == first && openedBefore && closedAfter;
        else
            inside = (lineNo > first && lineNo < last) || (lineNo == first && openedBefore) ||
                     (lineNo == last && closedAfter);
        if (inside) return CString();
    }

    const int comment = line.Find("--", at);
    return comment >= 0 ? line.Left(comment) : line;
}
