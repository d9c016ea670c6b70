// Seeded random scripts: the query is the piece of the document around the caret (up to the
// collapse of white space runs) and never holds a ';'.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "SQLCharClass.h"
#include "StatementExtraction.h"

namespace {

bool IsSpace(char c) { return sqlchar::isBlank(static_cast<unsigned char>(c)); }

// Every run of white space made one blank; `ends[k]` is the index behind the k-th output byte.
std::string Collapse(std::string_view text, std::vector<size_t>& ends) {
    std::string out;
    for (size_t i = 0; i < text.size();) {
        size_t next = i + 1;
        while (IsSpace(text[i]) && next < text.size() && IsSpace(text[next])) ++next;
        out += IsSpace(text[i]) ? ' ' : text[i];
        ends.push_back(next);
        i = next;
    }
    return out;
}

// True when some text[s, e) with s <= caret <= e collapses as `query` does.
bool IsPieceAroundCaret(const std::string& text, size_t caret, const std::string& query) {
    std::vector<size_t> ends;
    const std::string wanted = Collapse(query, ends);
    if (wanted.empty()) return true;
    for (size_t s = 0; s <= caret; ++s) {
        ends.clear();
        const std::string tail = Collapse(std::string_view(text).substr(s), ends);
        if (tail.compare(0, wanted.size(), wanted) == 0 && s + ends[wanted.size() - 1] >= caret)
            return true;
    }
    return false;
}

}  // namespace

TEST(StatementExtractionProperty, QueryIsThePieceAroundTheCaret) {
    static const std::vector<std::string> words = {
        "select", "SELECT", "(select", "Select)", "as", "is", "begin", "for", "loop(", "from",
        "x.", ";", "'q;'", "/*", "\xC3\xA9", "\xFF", std::string(1, '\0'), "-"};
    static const std::vector<std::string> gaps = {" ", " ", "  ", "\t", "\n", "\r\n", "\r", ""};
    std::mt19937 rng(20240611u);
    for (int trial = 0; trial < 2000; ++trial) {
        std::string text;
        for (int i = int(rng() % 30); i > 0; --i) text += words[rng() % words.size()] + gaps[rng() % gaps.size()];
        const size_t caret = rng() % (text.size() + 1);
        const VectorStatementSource source = VectorStatementSource::FromText(CString(text), int(caret));
        const std::string query = StatementExtractor::GetCurrentQuery(source).str();
        SCOPED_TRACE("trial " + std::to_string(trial) + " caret " + std::to_string(caret));

        ASSERT_EQ(query.find(';'), std::string::npos);
        ASSERT_LE(query.size(), text.size());
        // Without line comments the query is the text around the caret; the engine never puts
        // the caret between CR and LF, and the source moves it before both.
        const bool splitsCrLf = caret > 0 && caret < text.size() && text[caret - 1] == '\r' &&
                                text[caret] == '\n';
        if (text.find("--") == std::string::npos) {
            ASSERT_TRUE(IsPieceAroundCaret(text, splitsCrLf ? caret - 1 : caret, query))
                << "text [" << text << "] query [" << query << "]";
        }
    }
}
