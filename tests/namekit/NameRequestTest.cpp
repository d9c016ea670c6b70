// A completion request read without a database: the parts of the dotted name typed, and the
// aliases that the query around the caret binds through literals, quoted names and comments.
#include <gtest/gtest.h>

#include <string>

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
}  // namespace

TEST(NameRequest, AliasesAreReadPastLiteralsQuotedNamesAndComments) {
    const struct {
        const char* query;
        const char* aliases;
    } rows[] = {
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
    };
    for (const auto& row : rows) EXPECT_EQ(Aliases(row.query), row.aliases) << row.query;
}

TEST(NameRequest, SplitNameKeepsTheRawTextAndReadsDoubledQuotes) {
    const struct {
        const char* name;
        const char* parts;
    } rows[] = {
        {"o.c", "o>o | c>c"},
        {"\"a\"\"b\".[c.d].`e``", "\"a\"\"b\">a\"b | [c.d]>c.d | `e``>e`"},
        {"x\"y.", "x\"y>x\"y | >"},
        {"", ">"},
    };
    for (const auto& row : rows) EXPECT_EQ(Parts(row.name), row.parts) << row.name;
}
