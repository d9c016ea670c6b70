// A completion request read without a database: the parts of the dotted name typed, and the
// aliases that the query around the caret binds through literals, quoted names and comments.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "NameRequest.h"

using namespace namekit;

namespace {
// The aliases as "alias=schema.table", in alias order.
std::string Aliases(std::string_view query) {
    std::string out;
    for (const auto& [alias, ref] : ReadAliases(query))
        out += (out.empty() ? "" : " ") + alias + "=" + (ref.schemaKey.empty() ? "" : ref.schemaKey + ".") + ref.tableKey;
    return out;
}

// The parts as "raw>value", joined by " | ".
std::string Parts(std::string_view name) {
    std::string out;
    for (const NamePart& part : SplitName(name)) out += (out.empty() ? "" : " | ") + part.raw + ">" + part.value;
    return out;
}

struct Row {
    const char* input;
    const char* expected;
};

// Each row's input as `read` shows it, against the row's expected text.
void ExpectRows(std::string (*read)(std::string_view), std::initializer_list<Row> rows) {
    for (const Row& row : rows) EXPECT_EQ(read(row.input), row.expected) << row.input;
}
}  // namespace

TEST(NameRequest, AliasesAreReadPastLiteralsQuotedNamesAndComments) {
    ExpectRows(Aliases, {
        {"select 'from x a', 'it''s' -- from y b\n/* join z c */ from t d", "d=t"},
        {"select * from S.\"Order \"\"Lines\"\"\" AS \"L\", [x y] b, `u` c", "b=x y c=u l=s.order \"lines\""},
        // An alternative quote may hold a lone quote; what follows it still binds.
        {"select q'[it's]' from t a", "a=t"},
        {"select NQ'{a'}', Q'<'>', q'!'!' from t a", "a=t"},
        {"select q' x' from t a", "a=t"},  // a blank behind the quote: a plain literal
        // A function body between dollar quotes is read as SQL, and its tags bind nothing.
        {"create function f() returns int as $body$ select a. from t a $body$", "a=t"},
        {"select 1 from t $$ language sql", ""},
        {"select $1 from t a", "a=t"},
        {"select * from t a where x = 'open", "a=t"},
        {"/* open from t a", ""},
    });
}

TEST(NameRequest, SplitNameKeepsTheRawTextAndReadsDoubledQuotes) {
    ExpectRows(Parts, {
        {"o.c", "o>o | c>c"},
        {"\"a\"\"b\".[c.d].`e``", "\"a\"\"b\">a\"b | [c.d]>c.d | `e``>e`"},
        {"x\"y.", "x\"y>x\"y | >"},
        {"", ">"},
    });
}
