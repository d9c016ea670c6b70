// PropSet: hashing, key and value lengths, parents, expansion budgets, enumeration. The line
// forms, expansion and pattern key cases are reading cases in tests/data/props.
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
                if (std::strcmp(p->key, key) == 0) return b;
        return -1;
    }
};

std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

std::string toString(const PropSet& props) {
    const std::unique_ptr<char[]> all(props.ToString());
    return all.get();
}

void setAll(PropSet& props, std::initializer_list<std::pair<const char*, const char*>> rows) {
    for (const auto& [key, value] : rows) props.Set(key, value);
}

// Restores the process-wide file name comparison after a test changes it.
struct CaseSensitiveNames {
    explicit CaseSensitiveNames(bool on) { PropSet::SetCaseSensitiveFilenames(on); }
    ~CaseSensitiveNames() { PropSet::SetCaseSensitiveFilenames(false); }
};

}  // namespace

TEST(PropSet, HashSignExtendsBytesAndTellsEqualHashesApartByText) {
    EXPECT_EQ(0x672u, Probe::HashString("ab", 2));
    EXPECT_EQ(0xFFFFFEF1u, Probe::HashString("\xE9" "a", 2));
    Probe props;
    props.Set("\xE9", "2");
    EXPECT_EQ(int(0xFFFFFFE9u % 31), props.BucketOf("\xE9"));
    // Nine bytes shift the first one out entirely: equal hashes, told apart by their text.
    ASSERT_EQ(Probe::HashString("a12345678", 9), Probe::HashString("b12345678", 9));
    setAll(props, {{"a12345678", "first"}, {"b12345678", "second"}});
    props.Unset("b12345678");
    EXPECT_EQ("first", text(props.Get("a12345678")));
    EXPECT_EQ("", text(props.Get("b12345678")));
    EXPECT_EQ("", text(props.Get("a1234567")));  // a prefix of a key is another key
}

TEST(PropSet, SetTakesLengthsAndLinesAndToStringListsBuckets) {
    PropSet props;
    for (const char* line : {"", "=nokey"}) props.Set(line);
    props.Set("", "x");
    EXPECT_EQ("", toString(props));
    EXPECT_TRUE(props.Get("missing") == "");  // allocated and empty, not null
    props.Set("bare\nlater=1");               // the line ends at LF
    props.Set("lxyz", "vxyz", 1, 2);          // lengths: texts need no NUL
    props.Set("n\0tail", "v\0tail", 6, 6);    // both end at the embedded NUL
    props.SetMultiple("m1=1\r\n\n   \n m2=2\nm3");
    const std::pair<const char*, const char*> rows[] = {{"bare", "1"}, {"later", ""}, {"l", "vx"}, {"n", "v"},
                                                        {"m1", "1\r"}, {"m2", "2"}, {"m3", "1"}};
    for (const auto& [key, value] : rows) EXPECT_EQ(value, text(props.Get(key))) << key;

    PropSet buckets;
    setAll(buckets, {{"b", "2"}, {"a", "1"}, {"empty", ""}});  // buckets 5 and 4
    const std::string all = toString(buckets);
    EXPECT_EQ(0u, all.find("a=1\nb=2\n"));
    EXPECT_NE(std::string::npos, all.find("empty="));
    EXPECT_NE('\n', all.back());
}

TEST(PropSet, ParentsAnswerWhatTheChildLacks) {
    PropSet base, child;
    child.parent = &base;
    setAll(base, {{"shared", "base"}, {"onlybase", "$(shared)-$(own)"}, {"lexer.makefile", "make"}});
    setAll(child, {{"shared", "child"}, {"own", "mine"}});
    EXPECT_EQ("child", text(child.Get("shared")));
    EXPECT_EQ("child-mine", text(child.GetExpanded("onlybase")));  // expands in the child's context
    EXPECT_EQ("make", text(child.GetWild("lexer.", "makefile")));
    child.Unset("shared");
    EXPECT_EQ("base", text(child.Get("shared")));
    child.Unset("onlybase");  // not the child's: the parent keeps it
    EXPECT_EQ("$(shared)-$(own)", text(base.Get("onlybase")));
    EXPECT_EQ("own=mine", toString(child));  // ToString leaves the parent out
    base.parent = &child;                     // a loop of parents still ends
    EXPECT_EQ("", text(child.Get("nowhere")));
    EXPECT_EQ("", text(child.GetWild("nowhere.", "x.sql")));
    base.parent = nullptr;
    {
        const CaseSensitiveNames exact(true);
        setAll(base, {{"keywords.*.SQL", "upper-suffix"}});
        EXPECT_EQ("", text(base.GetWild("keywords.", "x.sql")));
    }
}

TEST(PropSet, ExpansionBudgetsBoundTheWork) {
    PropSet props;
    setAll(props, {{"two", "$(leaf)$(leaf)"}, {"leaf", "y"}, {"n1", "4"}});
    EXPECT_EQ("$(n1)", text(props.Expand("$(n1)", 0)));
    EXPECT_EQ("y$(leaf)", text(props.Expand("$(two)", 2)));  // two + one leaf, then spent
    EXPECT_EQ("yy$(two)", text(props.Expand("$(two)$(two)", 3)));

    // A doubling chain would make 2^30 copies; 100 steps leave references behind.
    for (int i = 0; i < 30; ++i) {
        const std::string next = std::string("$(d").append(std::to_string(i + 1)).append(")");
        props.Set(std::string("d").append(std::to_string(i)).c_str(), (next + next).c_str());
    }
    props.Set("d30", "z");
    const std::string doubled = text(props.GetExpanded("d0"));
    EXPECT_NE(std::string::npos, doubled.find("$(d"));
    EXPECT_LT(doubled.size(), 10000u);

    // GetNewExpand: b and c refer to each other; each replacement adds one byte, 1000 of them.
    setAll(props, {{"a", "$(b)"}, {"b", "$(c)y"}, {"c", "$(b)z"}});
    const std::string cycled = text(props.GetNewExpand("a", ""));
    ASSERT_EQ(1004u, cycled.size());
    EXPECT_EQ("$(b)zyzy", cycled.substr(0, 8));
    // 1000 replacements of 4 bytes by 2000: the result is built in linear time.
    std::string refs;
    for (int i = 0; i < 500; ++i) refs += "$(q)";
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
    props.Unset("a12345678");  // the node GetNext would hand out next
    ASSERT_TRUE(props.GetNext(&key, &val));
    EXPECT_STREQ("Z", key);
    props.Unset(key);  // removing what was just handed out is safe too
    EXPECT_FALSE(props.GetNext(&key, &val));

    setAll(props, {{"k", "v"}, {"m", "w"}});
    ASSERT_TRUE(props.GetFirst(&key, &val));
    props.Clear();
    EXPECT_FALSE(props.GetNext(&key, &val));
    EXPECT_FALSE(props.GetFirst(&key, &val));
}

TEST(PropSet, IncludesVarFindsWholeReferences) {
    // After a failed test the search resumes behind the next ')', past "$(k".
    const std::pair<const char*, bool> rows[] = {
        {"x $(k) y", true}, {"$(a) $(k)", true}, {"$(kk)", false}, {"$(k", false}, {"$(a $(k)", false}};
    for (const auto& [value, found] : rows) EXPECT_EQ(found, Probe::IncludesVar(value, "k")) << value;
}
