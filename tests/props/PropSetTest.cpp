// PropSet: hashing and buckets, the line forms of Set, parents, $(name) expansion with its
// shared budget and blocked names, file pattern keys, enumeration under removal, ToString.
#include <gtest/gtest.h>

#include <cstring>
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
    props.Set("a", "1");
    props.Set("\xE9", "2");
    EXPECT_EQ(int(0x61u % 31), props.BucketOf("a"));
    EXPECT_EQ(int(0xFFFFFFE9u % 31), props.BucketOf("\xE9"));
    // Nine bytes shift the first one out entirely: equal hashes, told apart by their text.
    ASSERT_EQ(Probe::HashString("a12345678", 9), Probe::HashString("b12345678", 9));
    props.Set("a12345678", "first");
    props.Set("b12345678", "second");
    EXPECT_EQ("first", text(props.Get("a12345678")));
    EXPECT_EQ("second", text(props.Get("b12345678")));
    props.Unset("b12345678");
    EXPECT_EQ("first", text(props.Get("a12345678")));
    EXPECT_EQ("", text(props.Get("b12345678")));
    EXPECT_EQ("", text(props.Get("a1234567")));   // a prefix of a key is another key
}

TEST(PropSet, SetFormsParseKeysAndValuesWithoutTrimming) {
    PropSet props;
    props.Set("");
    props.Set("", "x");
    props.Set("=nokey");
    EXPECT_EQ("", toString(props));
    props.Set("flag");
    props.Set(" \t k=v");
    props.Set("e=");
    props.Set("a = b");
    props.Set("u=1=2\nw=3");          // '=' belongs to the value; the line ends at LF
    props.Set("bare\nlater=1");       // '=' of a later line does not count
    props.Set("lxyz", "vxyz", 1, 2);  // lengths: texts need no NUL
    props.Set("n\0tail", "v\0tail", 6, 6);
    EXPECT_EQ("1", text(props.Get("flag")));
    EXPECT_EQ("v", text(props.Get("k")));
    EXPECT_EQ(" b", text(props.Get("a ")));
    EXPECT_EQ("1=2", text(props.Get("u")));
    EXPECT_EQ("", text(props.Get("w")));
    EXPECT_EQ("1", text(props.Get("bare")));
    EXPECT_EQ("", text(props.Get("later")));
    EXPECT_EQ("vx", text(props.Get("l")));
    EXPECT_EQ("v", text(props.Get("n")));   // both end at the embedded NUL
    const SString missing = props.Get("missing");
    EXPECT_TRUE(missing == "");            // allocated and empty, not null
    EXPECT_EQ(5, props.GetInt("e", 5));
    EXPECT_EQ(0, props.GetInt("a ", 5));   // " b" is no number: 0, not the default

    props.SetMultiple("m1=1\r\n\n   \n m2=2\nm3");
    EXPECT_EQ("1\r", text(props.Get("m1")));
    EXPECT_EQ("2", text(props.Get("m2")));
    EXPECT_EQ("1", text(props.Get("m3")));
}

TEST(PropSet, ParentsAnswerWhatTheChildLacks) {
    PropSet base, child;
    child.parent = &base;
    base.Set("shared", "base");
    base.Set("onlybase", "$(shared)-$(own)");
    child.Set("shared", "child");
    child.Set("own", "mine");
    EXPECT_EQ("child", text(child.Get("shared")));
    // The parent's value expands in the child's context.
    EXPECT_EQ("child-mine", text(child.GetExpanded("onlybase")));
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
    props.Set("cde", "c");
    props.Set("abc", "inner-first");
    props.Set("open", "(tail)");
    props.Set("tail", "T");
    props.Set("chain1", "<$(chain2)>");
    props.Set("chain2", "[$(chain3)]");
    props.Set("chain3", "end");
    props.Set("num", "$(n1)$(n2)");
    props.Set("n1", "4");
    props.Set("n2", "2");
    EXPECT_EQ("inner-first", text(props.Expand("$(ab$(cde))")));
    EXPECT_EQ("T", text(props.Expand("$$(open)")));   // '$' + "(tail)" is a new reference
    EXPECT_EQ("<[end]>", text(props.GetExpanded("chain1")));
    EXPECT_EQ("a  b", text(props.Expand("a $(unknown) b")));
    EXPECT_EQ("$(unclosed", text(props.Expand("$(unclosed")));
    EXPECT_EQ("x $(n1", text(props.Expand("x $(n1")));
    EXPECT_EQ(42, props.GetInt("num"));
    EXPECT_EQ("$(n1)", text(props.Expand("$(n1)", 0)));
}

TEST(PropSet, CyclesExpandToNothingAndAllDepthsShareOneBudget) {
    PropSet props;
    props.Set("x", "$(x)");
    props.Set("a", "$(b)");
    props.Set("b", "<$(a)>");
    props.Set("unclosed", "$(unclosed");
    EXPECT_EQ("", text(props.GetExpanded("x")));
    EXPECT_EQ("", text(props.GetNewExpand("x", "f.sql")));
    EXPECT_EQ("<>", text(props.GetExpanded("a")));
    EXPECT_EQ("$(unclosed", text(props.GetExpanded("unclosed")));
    // Expand blocks nothing at the top: the first x expands once, the inner one is blocked.
    EXPECT_EQ("", text(props.Expand("$(x)")));

    props.Set("two", "$(leaf)$(leaf)");
    props.Set("leaf", "y");
    EXPECT_EQ("y$(leaf)", text(props.Expand("$(two)", 2)));   // two + one leaf, then spent
    EXPECT_EQ("yy$(two)", text(props.Expand("$(two)$(two)", 3)));

    // A doubling chain would make 2^30 copies; 100 steps leave references behind.
    for (int i = 0; i < 30; ++i)
        props.Set(("d" + std::to_string(i)).c_str(),
                  ("$(d" + std::to_string(i + 1) + ")$(d" + std::to_string(i + 1) + ")").c_str());
    props.Set("d30", "z");
    const std::string doubled = text(props.GetExpanded("d0"));
    EXPECT_NE(std::string::npos, doubled.find("$(d"));
    EXPECT_LT(doubled.size(), 10000u);
}

TEST(PropSet, FilePatternKeysMatchSuffixesNamesAndLists) {
    PropSet props;
    props.Set("keywords.*.SQL", "upper-suffix");
    props.Set("lexer.makefile", "make");
    props.Set("api.*.pls;*.pkb", "plsql");
    props.Set("file.patterns.sql", "*.sql;*.pls");
    props.Set("kw2.$(file.patterns.sql)", "via-list");
    props.Set("tail.$(part);*.txt", "joined");
    props.Set("part", "*.s");
    props.Set("tail.$(part)ql", "spanning");
    props.Set("plain.", "bare");
    EXPECT_EQ("upper-suffix", text(props.GetWild("keywords.", "x.sql")));
    EXPECT_EQ("", text(props.GetWild("keywords.", "sql")));   // shorter than ".sql"
    EXPECT_EQ("make", text(props.GetWild("lexer.", "makefile")));
    EXPECT_EQ("", text(props.GetWild("lexer.", "Makefile")));  // whole names are exact
    EXPECT_EQ("plsql", text(props.GetWild("api.", "b.PKB")));
    EXPECT_EQ("via-list", text(props.GetWild("kw2.", "a.pls")));
    EXPECT_EQ("via-list", text(props.GetWild("kw2.", "a.sql")));
    EXPECT_EQ("joined", text(props.GetWild("tail.", "r.txt")));
    EXPECT_EQ("spanning", text(props.GetWild("tail.", "q.sql")));   // "*.s" + "ql"
    EXPECT_EQ("bare", text(props.GetWild("plain.", "any.thing")));
    EXPECT_TRUE(props.GetWild("none.", "x.sql") == "");
    EXPECT_EQ("via-list", text(props.Get("kw2.$(file.patterns.sql)")));   // key left intact
    {
        const CaseSensitiveNames exact(true);
        EXPECT_EQ("", text(props.GetWild("keywords.", "x.sql")));
    }
    PropSet child;
    child.parent = &props;
    EXPECT_EQ("make", text(child.GetWild("lexer.", "makefile")));
}

TEST(PropSet, NewExpandSeesTheFileNameAndStopsAfter1000Replacements) {
    PropSet props;
    props.Set("keywords.*.sql", "$(kw.base.) $(kw.extra)");
    props.Set("kw.base.*.sql", "select");
    props.Set("kw.base.*.txt", "wrong");
    props.Set("kw.extra", "from");
    props.Set("open", "$$(paren)");
    props.Set("paren", "(leaf)");
    props.Set("leaf", "L");
    EXPECT_EQ("select from", text(props.GetNewExpand("keywords.", "x.sql")));
    EXPECT_EQ("L", text(props.GetNewExpand("open", "")));
    // b and c refer to each other: each replacement adds one byte, 1000 of them.
    props.Set("a", "$(b)");
    props.Set("b", "$(c)y");
    props.Set("c", "$(b)z");
    const std::string cycled = text(props.GetNewExpand("a", ""));
    ASSERT_EQ(1004u, cycled.size());
    EXPECT_EQ("$(b)zyzy", cycled.substr(0, 8));
    // 1000 replacements of 4 bytes by 2000 stay fast: the result is built in linear time.
    std::string refs;
    for (int i = 0; i < 500; ++i)
        refs += "$(q)";
    props.Set("p", refs.c_str());
    props.Set("q", refs.c_str());
    props.Set("start", "$(p)");
    EXPECT_EQ(4u + 1000u * 1996u, props.GetNewExpand("start", "").length());
}

TEST(PropSet, EnumerationSurvivesRemovalAndClear) {
    Probe props;
    // Both in bucket 27, the newer first in the chain; "Z" is alone in bucket 28.
    props.Set("a12345678", "1");
    props.Set("b12345678", "2");
    props.Set("Z", "3");
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

    props.Set("k", "v");
    props.Set("m", "w");
    ASSERT_TRUE(props.GetFirst(&key, &val));
    props.Clear();
    EXPECT_FALSE(props.GetNext(&key, &val));
    EXPECT_FALSE(props.GetFirst(&key, &val));
}

TEST(PropSet, ToStringWritesBucketOrderWithoutFinalLineEnd) {
    PropSet props;
    EXPECT_EQ("", toString(props));
    props.Set("b", "2");   // bucket 5
    props.Set("a", "1");   // bucket 4
    props.Set("empty", "");
    const std::string all = toString(props);
    EXPECT_EQ(0u, all.find("a=1\nb=2\n"));
    EXPECT_NE(std::string::npos, all.find("empty="));
    EXPECT_NE('\n', all.back());
}

TEST(PropSet, IncludesVarFindsWholeReferences) {
    EXPECT_TRUE(Probe::IncludesVar("x $(k) y", "k"));
    EXPECT_TRUE(Probe::IncludesVar("$(a) $(k)", "k"));
    EXPECT_FALSE(Probe::IncludesVar("$(kk)", "k"));
    EXPECT_FALSE(Probe::IncludesVar("$(k", "k"));
    // After a failed test the search resumes behind the next ')', past "$(k".
    EXPECT_FALSE(Probe::IncludesVar("$(a $(k)", "k"));
}
