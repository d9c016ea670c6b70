// The SQL formatter: layout rules, keyword case, and the two properties every layout keeps:
// the tokens stay (only whitespace and the case of keywords change), and a second pass
// changes nothing.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <strings.h>
#include <vector>

#include "CSQLFormatter.h"

namespace {
int reserved(const char* word, int length) {
    for (const char* w : {"SELECT", "FROM", "WHERE", "AND", "OR", "IN", "AS", "ON", "BY", "DESC", "NOT", "NULL", "IS"})
        if (int(std::strlen(w)) == length && strncasecmp(w, word, std::size_t(length)) == 0) return 1;
    return 0;
}
int functions(const char* word, int length) {
    for (const char* w : {"COUNT", "NVL", "MAX"})
        if (int(std::strlen(w)) == length && strncasecmp(w, word, std::size_t(length)) == 0) return 1;
    return 0;
}

struct Options {
    bool align = true, commaFirst = false;
    int keywordCase = CSQLFormatter::UpperCase;
    bool multiline = false, layout = true;
    int width = 80;
};

std::string format(const std::string& sql, Options o = {}) {
    CSQLFormatter f;
    f.isKeywordFunc = reserved;
    f.isListKeywordFunc = functions;
    return f.Format(CString(sql), o.align, o.commaFirst, o.keywordCase, o.multiline, o.layout, o.width).str();
}

bool sameTokens(const std::string& a, const std::string& b) {
    const auto x = CSQLFormatter::Tokenize(a), y = CSQLFormatter::Tokenize(b);
    if (x.size() != y.size()) return false;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (x[i].kind != y[i].kind) return false;
        if (x[i].kind == CSQLFormatter::TokenKind::Word) {
            if (x[i].text.size() != y[i].text.size() ||
                strncasecmp(x[i].text.data(), y[i].text.data(), x[i].text.size()) != 0)
                return false;
        } else if (x[i].text != y[i].text) {
            return false;
        }
    }
    return true;
}

const char* const kSamples[] = {
    "select a.id, b.name, count(*) n from orders a join customers b on a.cid = b.id and b.ok = 1 "
    "left outer join items c on c.oid = a.id where a.d between :d1 and :d2 and (a.s = 'OPEN' or a.s = 'HELD') "
    "group by a.id, b.name order by 3 desc;",
    "insert into t (a, b) values (1, 'x''y'), (2, N'ünï'); update t set a = -1, b = q'[it's]' where id = :id",
    "select * from (select x from z union all select y from w) q where q.x in (select 1 from dual) -- end\n",
    "WITH c AS (SELECT a FROM t) SELECT CASE WHEN a = 1 AND b = 2 THEN 'x' ELSE 'y' END FROM c",
    "select /* inline */ a -- note\n-- own line\n, b from \"Quoted Table\" where x <> -1 and y||z = `q`",
    "select 'multi\nline string', 1.5e-3, .5, 0x1F, 1..10, :new.col, &&sub, @x, ? from t",
    "select f(g(h(i(j(k(l(m(n(o(p(q(r(s(t(u(v(w(x(y(z(1)))))))))))))))))))))) from dual",
    "select a from t where b = 'unterminated\n   string",
    "begin x := 1; if x > 0 then null; end if; end;\n/* open comment  \n",
    ")))) select ( from where , ; ; and or",
    "select 漢字, données from テーブル where 名前 = 'ÿ'",
};
}  // namespace

TEST(SQLFormatter, AlignedClausesListsAndSubqueries) {
    EXPECT_EQ(format("select a, b from t where x = 1 and y in (select z from u where v = 2) order by a"),
              "SELECT a, b\n"
              "  FROM t\n"
              " WHERE x = 1\n"
              "   AND y IN (SELECT z\n"
              "               FROM u\n"
              "              WHERE v = 2)\n"
              "ORDER BY a");
    Options lower;
    lower.keywordCase = CSQLFormatter::LowerCase;
    EXPECT_EQ(format("SELECT A FROM T JOIN U ON T.K = U.K AND T.J BETWEEN 1 AND 2", lower),
              "select A\n"
              "  from T\n"
              "  join U\n"
              "    on T.K = U.K\n"
              "   and T.J between 1 and 2");
}

TEST(SQLFormatter, KeywordsOnTheirOwnLinesWithLeadingCommas) {
    Options o;
    o.align = false;
    o.commaFirst = true;
    o.multiline = true;
    o.keywordCase = CSQLFormatter::UpperCase;
    EXPECT_EQ(format("select a, nvl(b, 0) from (select a, b from t) q group by a, b", o),
              "SELECT\n"
              "    a\n"
              "  , NVL(b, 0)\n"
              "FROM\n"
              "    (\n"
              "        SELECT\n"
              "            a\n"
              "          , b\n"
              "        FROM\n"
              "            t\n"
              "    ) q\n"
              "GROUP BY\n"
              "    a\n"
              "  , b");
    o.align = true;
    o.commaFirst = false;
    EXPECT_EQ(format("select a, b, c from t", o), "SELECT a,\n       b,\n       c\n  FROM t");
    o.commaFirst = true;
    EXPECT_EQ(format("select a, b from t", o), "SELECT a\n     , b\n  FROM t");
}

TEST(SQLFormatter, KeywordCaseTouchesOnlyKeywords) {
    const std::string sql = "Select nvl(Name, 'select') From \"from\" where Count(*) > 0";
    Options o;
    o.keywordCase = CSQLFormatter::KeepCase;
    EXPECT_EQ(format(sql, o), "Select nvl(Name, 'select')\n  From \"from\"\n where Count(*) > 0");
    o.keywordCase = CSQLFormatter::UpperCase;
    EXPECT_EQ(format(sql, o), "SELECT NVL(Name, 'select')\n  FROM \"from\"\n WHERE COUNT(*) > 0");
    o.keywordCase = CSQLFormatter::CapitalCase;
    EXPECT_EQ(format(sql, o), "Select Nvl(Name, 'select')\n  From \"from\"\n Where Count(*) > 0");
    const std::string kept = format(sql, Options{.keywordCase = CSQLFormatter::KeepCase});
    o.keywordCase = 9;  // unknown: kept
    EXPECT_EQ(format(sql, o), kept);

    // Clause words are keywords even without the caller's tests.
    CSQLFormatter bare;
    EXPECT_EQ(bare.Format("select x from t", true, false, 1, false, true, 80), "SELECT x\n  FROM t");
}

TEST(SQLFormatter, CommentsKeepTheirLines) {
    EXPECT_EQ(format("select a -- why\n, b /* inline */ from t"),
              "SELECT a -- why\n       , b /* inline */\n  FROM t");
    EXPECT_EQ(format("-- heading\nselect 1 from dual -- tail"), "-- heading\nSELECT 1\n  FROM dual -- tail");
    // An unterminated comment takes the rest, so nothing may be added behind it.
    EXPECT_EQ(format("select 1 /* open\n"), "SELECT 1 /* open\n");
}

TEST(SQLFormatter, LongLinesWrapAtTheWidth) {
    std::string sql = "select ";
    for (int i = 0; i < 30; ++i) sql += "column_number_" + std::to_string(i) + ", ";
    sql += "x from t where " + std::string(100, 'w') + " = 1";
    const std::string out = format(sql);
    std::size_t start = 0, longest = 0;
    for (std::size_t end; (end = out.find('\n', start)) != std::string::npos || start < out.size(); start = end + 1) {
        if (end == std::string::npos) end = out.size();
        const std::string line = out.substr(start, end - start);
        if (line.find(std::string(100, 'w')) == std::string::npos) longest = std::max(longest, line.size());
        if (end == out.size()) break;
    }
    EXPECT_LE(longest, 80u);
    EXPECT_NE(out.find(std::string(100, 'w')), std::string::npos);  // a long token stays whole
    EXPECT_NE(out.find("\n       column_number_"), std::string::npos);
}

TEST(SQLFormatter, LineEndsAndWhitespaceOnlyInput) {
    EXPECT_EQ(format("select 1\r\nfrom dual\r\n"), "SELECT 1\r\n  FROM dual\r\n");
    EXPECT_EQ(format("select 1;select 2"), "SELECT 1;\nSELECT 2");
    EXPECT_EQ(format(""), "");
    EXPECT_EQ(format("  \n\t "), "  \n\t ");
    Options caseOnly;
    caseOnly.layout = false;
    caseOnly.keywordCase = CSQLFormatter::UpperCase;
    EXPECT_EQ(format("  select a,\n\tb  from t -- from\n", caseOnly), "  SELECT a,\n\tb  FROM t -- from\n");
}

TEST(SQLFormatter, EveryLayoutKeepsTheTokensAndIsStable) {
    for (const char* sample : kSamples) {
        for (int bits = 0; bits < 64; ++bits) {
            Options o;
            o.align = bits & 1;
            o.commaFirst = bits & 2;
            o.multiline = bits & 4;
            o.layout = !(bits & 8);
            o.keywordCase = (bits >> 4) & 3;
            o.width = bits & 8 ? 0 : 30;
            const std::string once = format(sample, o);
            ASSERT_TRUE(sameTokens(sample, once)) << "options " << bits << "\n" << sample << "\n---\n" << once;
            ASSERT_EQ(format(once, o), once) << "options " << bits << "\n" << sample;
        }
    }
}

TEST(SQLFormatter, TokenizerKeepsOddTextWhole) {
    const auto tokens = CSQLFormatter::Tokenize("q'{a'b}' N'x' 'it''s' \"a\"\"b\" :b1 &&s 1e+5 a.b --c  \nx");
    std::vector<std::string> texts;
    for (const auto& t : tokens) texts.emplace_back(t.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"q'{a'b}'", "N'x'", "'it''s'", "\"a\"\"b\"", ":b1", "&&s", "1e+5", "a",
                                               ".", "b", "--c", "x"}));
    EXPECT_TRUE(tokens.back().ownLine);
    EXPECT_FALSE(tokens[1].ownLine);
    EXPECT_FALSE(CSQLFormatter::Tokenize("'open").front().terminated);
}
