// Statement extraction over arbitrary text at arbitrary carets: the first four bytes place the
// caret (as a byte offset into the text, and as a raw line and column that may lie outside the
// document), the rest is the document. Besides the sanitizers it checks the read bound and
// that the statement is made of the document's bytes.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "StatementExtraction.h"

namespace {

void check(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "fuzz_extract: %s\n", what);
    std::abort();
}

// Every byte of the statement, but the one blank that may stand for cut white space, occurs
// in the document.
void checkFromDocument(const CString& query, std::string_view document) {
    for (char ch : query.view())
        check(ch == ' ' || document.find(ch) != std::string_view::npos, "a byte the document does not have");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4 || size > 200000) return 0;
    const std::string_view document(reinterpret_cast<const char*>(data) + 4, size - 4);
    const int offset = int((data[0] | data[1] << 8) % (document.size() + 2));
    const CString text{std::string(document)};

    VectorStatementSource source = VectorStatementSource::FromText(text, offset);
    const CString query = StatementExtractor::GetCurrentQuery(source);
    check(source.ReadCount() <= StatementExtractor::kLineBudget + 1, "more lines read than the budget allows");
    checkFromDocument(query, document);

    // Where the statement lies: the same text, inside the document, between bytes that are
    // not white space.
    VectorStatementSource again = VectorStatementSource::FromText(text, offset);
    StatementExtractor::Extent extent;
    check(StatementExtractor::GetCurrentQuery(again, extent) == query, "the extent changed the statement");
    if (extent.found) {
        const CString first = again.LineWithEnd(extent.firstLine), last = again.LineWithEnd(extent.lastLine);
        check(extent.firstLine <= extent.lastLine && extent.firstColumn < first.GetLength() && extent.endColumn > 0 &&
                  extent.endColumn <= last.GetLength() &&
                  (extent.firstLine < extent.lastLine || extent.firstColumn < extent.endColumn),
              "an extent outside the document");
        const auto blank = [](char ch) { return ch == ' ' || (ch >= '\t' && ch <= '\r'); };
        check(!blank(first[extent.firstColumn]) && !blank(last[extent.endColumn - 1]), "an extent that ends in white space");
    }

    // The same lines with a caret the engine would never give: negative, or past the end.
    std::vector<CString> lines;
    for (int i = 0; i < source.LineCount(); ++i) lines.push_back(source.LineWithEnd(i));
    const int caretLine = int(std::int8_t(data[2])) * 3;
    const int caretColumn = int(std::int8_t(data[3])) * 7;
    FunctionStatementSource outside(int(lines.size()), caretLine, caretColumn, [&](int line) {
        return line >= 0 && line < int(lines.size()) ? lines[std::size_t(line)] : CString();
    });
    checkFromDocument(StatementExtractor::GetCurrentQuery(outside), document);

    // The scanner and the comment check on the first line alone, both ways.
    if (!lines.empty()) {
        for (bool forward : {false, true}) {
            CString piece = lines.front();
            bool armed = data[2] & 1;
            const int before = piece.GetLength();
            if (StatementExtractor::GetSingleQuery(piece, armed, forward))
                check(piece.GetLength() == before, "a scan without a boundary changed its text");
        }
        CStringArray ranges;
        ranges.Add(CString(std::to_string(caretLine) + "," + std::to_string(caretLine + data[3] % 4)));
        ranges.Add(CString("x"));
        StatementExtractor::CheckComment(lines.front(), ranges, caretLine, caretColumn);
        StatementExtractor::InitToken(lines.front());
    }
    return 0;
}
