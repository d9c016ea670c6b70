// PropSet: hashing, Set line forms, parents, $(name) expansion, file pattern keys, enumeration.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>

#include "PropSet.h"

namespace {

// Opens the protected parts that the tests check directly.
class Probe : public PropSet {
public:
    using PropSet::HashString;
    using PropSet::IncludesVar;

    int BucketOf(const char* key) const {
        for (int b = 0; b < hashRoots; ++b)
            for (const Property* p = buckets[b]; p; p = p->next)
                if (std::strcmp(p->key, key) == 0)
                    return b;
        return -1;
    }
};

std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

std::string toString(const PropSet& props) {
    const std::unique_ptr<char[]> all(props.ToString());
    return all.get();
}

// Checks get(input) == expected for each row.
using Rows = std::initializer_list<std::pair<const char*, std::string>>;
void expectEach(const std::function<SString(const char*)>& get, Rows rows) {
    for (const auto& [input, expected] : rows) {
        SCOPED_TRACE(input);
        EXPECT_EQ(expected, text(get(input)));
    }
}
void expectValues(const PropSet& props, Rows rows) {
    expectEach([&](const char* key) { return props.Get(key); }, rows);
}
struct WildRow { const char* prefix; const char* file; const char* expected; };
void expectWild(const PropSet& props, std::initializer_list<WildRow> rows) {
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, text(props.GetWild(r.prefix, r.file))) << r.prefix << r.file;
}
void setAll(PropSet& props, std::initializer_list<std::pair<const char*, const char*>> rows) {
    for (const auto& [key, value] : rows)
        props.Set(key, value);
}

// Restores the process-wide file name comparison after a test changes it.
struct CaseSensitiveNames {
    explicit CaseSensitiveNames(bool on) { PropSet::SetCaseSensitiveFilenames(on); }
    ~CaseSensitiveNames() { PropSet::SetCaseSensitiveFilenames(false); }
};

}   // namespace

TEST(PropSet, HashSignExtendsBytesAndPicksOneOf31Buckets) {
    EXPECT_EQ(0x672u, Probe::HashString("ab", 2));
    EXPECT_EQ(0xFFFFFFE9u, Probe::HashString("\xE9", 1));
    EXPECT_EQ(0xFFFFFEF1u, Probe::HashString("\xE9" "a", 2));
    Probe props;
    setAll(props, {{"a", "1"}, {"\xE9", "2"}});
    EXPECT_EQ(int(0x61u % 31), props.BucketOf("a"));
    EXPECT_EQ(int(0xFFFFFFE9u % 31), props.BucketOf("\xE9"));
    // Nine bytes shift the first one out entirely: equal hashes, told apart by their text.
    ASSERT_EQ(Probe::HashString("a12345678", 9), Probe::HashString("b12345678", 9));
    setAll(props, {{"a12345678", "first"}, {"b12345678", "second"}});
    expectValues(props, {{"a12345678", "first"}, {"b12345678", "second"}});
    props.Unset("b12345678");
    // A prefix of a key is another key.
    expectValues(props, {{"a12345678", "first"}, {"b12345678", ""}, {"a1234567", ""}});
}

TEST(PropSet, SetFormsParseKeysAndValuesWithoutTrimming) {
    PropSet props;
    for (const char* line : {"", "=nokey"})
        props.Set(line);
    props.Set("", "x");
    EXPECT_EQ("", toString(props));
    // '=' belongs to the value and the line ends at LF; '=' of a later line does not count.
    for (const char* line : {"flag", " \t k=v", "e=", "a = b", "u=1=2\nw=3", "bare\nlater=1"})
        props.Set(line);
    props.Set("lxyz", "vxyz", 1, 2);          // lengths: texts need no NUL
    props.Set("n\0tail", "v\0tail", 6, 6);    // both end at the embedded NUL
    expectValues(props, {{"flag", "1"}, {"k", "v"}, {"a ", " b"}, {"u", "1=2"}, {"w", ""},
                         {"bare", "1"}, {"later", ""}, {"l", "vx"}, {"n", "v"}});
    EXPECT_TRUE(props.Get("missing") == "");   // allocated and empty, not null
    EXPECT_EQ(5, props.GetInt("e", 5));
    EXPECT_EQ(0, props.GetInt("a ", 5));   // " b" is no number: 0, not the default

    props.SetMultiple("m1=1\r\n\n   \n m2=2\nm3");
    expectValues(props, {{"m1", "1\r"}, {"m2", "2"}, {"m3", "1"}});
}

TEST(PropSet, ParentsAnswerWhatTheChildLacks) {
    PropSet base, child;
    child.parent = &base;
    setAll(base, {{"shared", "base"}, {"onlybase", "$(shared)-$(own)"}});
    setAll(child, {{"shared", "child"}, {"own", "mine"}});
    EXPECT_EQ("child", text(child.Get("shared")));
    EXPECT_EQ("child-mine", text(child.GetExpanded("onlybase")));   // expands in the child's context
    child.Unset("shared");
    EXPECT_EQ("base", text(child.Get("shared")));
    child.Unset("onlybase");   // not the child's: the parent keeps it
    EXPECT_EQ("$(shared)-$(own)", text(base.Get("onlybase")));
    EXPECT_EQ("own=mine", toString(child));   // ToString leaves the parent out
    base.parent = &child;                      // a loop of parents still ends
    EXPECT_EQ("", text(child.Get("nowhere")));
    EXPECT_EQ("", text(child.GetWild("nowhere.", "x.sql")));
    base.parent = nullptr;
}

TEST(PropSet, ExpansionGoesInnerFirstAndRescansWhatItBuilt) {
    PropSet props;
    setAll(props, {{"cde", "c"}, {"abc", "inner-first"}, {"open", "(tail)"}, {"tail", "T"},
                   {"chain1", "<$(chain2)>"}, {"chain2", "[$(chain3)]"}, {"chain3", "end"},
                   {"num", "$(n1)$(n2)"}, {"n1", "4"}, {"n2", "2"}});
    // "$$(open)": '$' + "(tail)" is a new reference.
    expectEach([&](const char* s) { return props.Expand(s); },
               {{"$(ab$(cde))", "inner-first"}, {"$$(open)", "T"}, {"a $(unknown) b", "a  b"},
                {"$(unclosed", "$(unclosed"}, {"x $(n1", "x $(n1"}});
    EXPECT_EQ("<[end]>", text(props.GetExpanded("chain1")));
    EXPECT_EQ(42, props.GetInt("num"));
    EXPECT_EQ("$(n1)", text(props.Expand("$(n1)", 0)));
}

TEST(PropSet, CyclesExpandToNothingAndAllDepthsShareOneBudget) {
    PropSet props;
    setAll(props, {{"x", "$(x)"}, {"a", "$(b)"}, {"b", "<$(a)>"}, {"unclosed", "$(unclosed"},
                   {"two", "$(leaf)$(leaf)"}, {"leaf", "y"}});
    expectEach([&](const char* k) { return props.GetExpanded(k); },
               {{"x", ""}, {"a", "<>"}, {"unclosed", "$(unclosed"}});
    EXPECT_EQ("", text(props.GetNewExpand("x", "f.sql")));
    // Expand blocks nothing at the top: the first x expands once, the inner one is blocked.
    EXPECT_EQ("", text(props.Expand("$(x)")));
    EXPECT_EQ("y$(leaf)", text(props.Expand("$(two)", 2)));   // two + one leaf, then spent
    EXPECT_EQ("yy$(two)", text(props.Expand("$(two)$(two)", 3)));

    // A doubling chain would make 2^30 copies; 100 steps leave references behind.
    for (int i = 0; i < 30; ++i) {
        const std::string next = "$(d" + std::to_string(i + 1) + ")";
        props.Set(("d" + std::to_string(i)).c_str(), (next + next).c_str());
    }
    props.Set("d30", "z");
    const std::string doubled = text(props.GetExpanded("d0"));
    EXPECT_NE(std::string::npos, doubled.find("$(d"));
    EXPECT_LT(doubled.size(), 10000u);
}

TEST(PropSet, FilePatternKeysMatchSuffixesNamesAndLists) {
    PropSet props;
    setAll(props, {{"keywords.*.SQL", "upper-suffix"}, {"lexer.makefile", "make"},
                   {"api.*.pls;*.pkb", "plsql"}, {"file.patterns.sql", "*.sql;*.pls"},
                   {"kw2.$(file.patterns.sql)", "via-list"}, {"tail.$(part);*.txt", "joined"},
                   {"part", "*.s"}, {"tail.$(part)ql", "spanning"}, {"plain.", "bare"}});
    // "sql" is shorter than ".sql", whole names are exact, "spanning" is "*.s" + "ql".
    expectWild(props, {{"keywords.", "x.sql", "upper-suffix"}, {"keywords.", "sql", ""},
                       {"lexer.", "makefile", "make"}, {"lexer.", "Makefile", ""}, {"api.", "b.PKB", "plsql"},
                       {"kw2.", "a.pls", "via-list"}, {"kw2.", "a.sql", "via-list"}, {"tail.", "r.txt", "joined"},
                       {"tail.", "q.sql", "spanning"}, {"plain.", "any.thing", "bare"}});
    EXPECT_TRUE(props.GetWild("none.", "x.sql") == "");
    EXPECT_EQ("via-list", text(props.Get("kw2.$(file.patterns.sql)")));   // key left intact
    {
        const CaseSensitiveNames exact(true);
        EXPECT_EQ("", text(props.GetWild("keywords.", "x.sql")));
    }
    PropSet child;
    child.parent = &props;
    expectWild(child, {{"lexer.", "makefile", "make"}});
}

TEST(PropSet, NewExpandSeesTheFileNameAndStopsAfter1000Replacements) {
    PropSet props;
    setAll(props, {{"keywords.*.sql", "$(kw.base.) $(kw.extra)"}, {"kw.base.*.sql", "select"},
                   {"kw.base.*.txt", "wrong"}, {"kw.extra", "from"}, {"open", "$$(paren)"},
                   {"paren", "(leaf)"}, {"leaf", "L"}});
    EXPECT_EQ("select from", text(props.GetNewExpand("keywords.", "x.sql")));
    EXPECT_EQ("L", text(props.GetNewExpand("open", "")));
    // b and c refer to each other: each replacement adds one byte, 1000 of them.
    setAll(props, {{"a", "$(b)"}, {"b", "$(c)y"}, {"c", "$(b)z"}});
    const std::string cycled = text(props.GetNewExpand("a", ""));
    ASSERT_EQ(1004u, cycled.size());
    EXPECT_EQ("$(b)zyzy", cycled.substr(0, 8));
    // 1000 replacements of 4 bytes by 2000 stay fast: the result is built in linear time.
    std::string refs;
    for (int i = 0; i < 500; ++i)
        refs += "$(q)";
    setAll(props, {{"p", refs.c_str()}, {"q", refs.c_str()}, {"start", "$(p)"}});
    EXPECT_EQ(4u + 1000u * 1996u, props.GetNewExpand("start", "").length());
}

TEST(PropSet, EnumerationSurvivesRemovalAndClear) {
    Probe props;
    // Both in bucket 27, the newer first in the chain; "Z" is alone in bucket 28.
    setAll(props, {{"a12345678", "1"}, {"b12345678", "2"}, {"Z", "3"}});
    ASSERT_EQ(27, props.BucketOf("a12345678"));
    ASSERT_EQ(28, props.BucketOf("Z"));
    char* key = nullptr;
    char* val = nullptr;
    ASSERT_TRUE(props.GetFirst(&key, &val));
    EXPECT_STREQ("b12345678", key);
    EXPECT_STREQ("2", val);
    props.Unset("a12345678");   // the node GetNext would hand out next
    ASSERT_TRUE(props.GetNext(&key, &val));
    EXPECT_STREQ("Z", key);
    props.Unset(key);           // removing what was just handed out is safe too
    EXPECT_FALSE(props.GetNext(&key, &val));

    setAll(props, {{"k", "v"}, {"m", "w"}});
    ASSERT_TRUE(props.GetFirst(&key, &val));
    props.Clear();
    EXPECT_FALSE(props.GetNext(&key, &val));
    EXPECT_FALSE(props.GetFirst(&key, &val));
}

TEST(PropSet, ToStringWritesBucketOrderWithoutFinalLineEnd) {
    PropSet props;
    EXPECT_EQ("", toString(props));
    setAll(props, {{"b", "2"}, {"a", "1"}, {"empty", ""}});   // buckets 5 and 4
    const std::string all = toString(props);
    EXPECT_EQ(0u, all.find("a=1\nb=2\n"));
    EXPECT_NE(std::string::npos, all.find("empty="));
    EXPECT_NE('\n', all.back());
}

TEST(PropSet, IncludesVarFindsWholeReferences) {
    // After a failed test the search resumes behind the next ')', past "$(k".
    const std::pair<const char*, bool> rows[] = {
        {"x $(k) y", true}, {"$(a) $(k)", true}, {"$(kk)", false}, {"$(k", false}, {"$(a $(k)", false}};
    for (const auto& [value, found] : rows)
        EXPECT_EQ(found, Probe::IncludesVar(value, "k")) << value;
}
