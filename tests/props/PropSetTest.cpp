// PropSet and PropSetFile: hashing and enumeration, key and value lengths, parents, expansion
// budgets; then the reading cases of tests/data/props, which hold the line forms, "if"
// scopes, expansion, pattern keys and imports; then files: the byte limit, runaway imports, paths.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "CaseFiles.h"
#include "PropSetFile.h"

namespace {

std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

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

// Checks each "Call arguments=value" line of an expected file against the properties and the
// names of the files a read listed.
void expectLines(const PropSet& props, const std::string& expected, const std::string& imports = "") {
    size_t start = 0;
    for (size_t end; (end = expected.find('\n', start)) != std::string::npos; start = end + 1) {
        const std::string line = expected.substr(start, end - start);
        const size_t space = line.find(' '), equals = line.find('=', space);
        if (line.empty() || line[0] == '#') continue;
        ASSERT_NE(equals, std::string::npos) << line;
        const std::string call = line.substr(0, space), args = line.substr(space + 1, equals - space - 1);
        const size_t split = std::min(args.find(' '), args.size());
        const std::string prefix = args.substr(0, split), file = args.substr(std::min(split + 1, args.size()));
        std::string got = "<unknown call>";
        if (call == "Get") got = text(props.Get(args.c_str()));
        if (call == "GetExpanded") got = text(props.GetExpanded(args.c_str()));
        if (call == "GetInt") got = std::to_string(props.GetInt(args.c_str(), -1));
        if (call == "Expand") got = text(props.Expand(args.c_str()));
        if (call == "GetWild") got = text(props.GetWild(prefix.c_str(), file.c_str()));
        if (call == "GetNewExpand") got = text(props.GetNewExpand(prefix.c_str(), file.c_str()));
        if (call == "Imports") got = imports;
        EXPECT_EQ(line.substr(equals + 1), got) << line;
    }
}

const std::filesystem::path kImports = std::filesystem::path(QUILLBOX_TEST_DATA) / "props" / "imports";

// The names of the files in a read's import list, within kImports.
std::string listed(const FilePath* imports, int count) {
    std::string names;
    for (int i = 0; i < count && imports[i].IsSet(); ++i) {
        const std::filesystem::path path(imports[i].AsFileSystem().c_str());
        names.append(names.empty() ? "" : " ").append(path.lexically_relative(kImports).generic_string());
    }
    return names;
}

}  // namespace

// Bytes are sign-extended into the hash; nine bytes shift the first one out entirely, so
// "a12345678" and "b12345678" share bucket 27 (the newer first in its chain), told apart by
// their text. Enumeration goes by bucket and survives removal and clearing.
TEST(PropSet, HashBucketsAndEnumeration) {
    EXPECT_EQ(0x672u, Probe::HashString("ab", 2));
    EXPECT_EQ(0xFFFFFEF1u, Probe::HashString("\xE9" "a", 2));
    ASSERT_EQ(Probe::HashString("a12345678", 9), Probe::HashString("b12345678", 9));
    Probe props;
    setAll(props, {{"\xE9", "1"}, {"a12345678", "1"}, {"b12345678", "2"}, {"Z", "3"}});
    EXPECT_EQ(int(0xFFFFFFE9u % 31), props.BucketOf("\xE9"));
    ASSERT_EQ(27, props.BucketOf("a12345678"));
    ASSERT_EQ(28, props.BucketOf("Z"));
    char* key = nullptr;
    char* val = nullptr;
    ASSERT_TRUE(props.GetFirst(&key, &val) && props.GetNext(&key, &val));
    EXPECT_STREQ("b12345678", key);
    EXPECT_STREQ("2", val);
    props.Unset("a12345678");  // the node GetNext would hand out next
    expectLines(props, "Get b12345678=2\nGet a12345678=\nGet b1234567=\n");  // a prefix is another key
    ASSERT_TRUE(props.GetNext(&key, &val));
    EXPECT_STREQ("Z", key);
    props.Unset(key);  // removing what was just handed out is safe too
    EXPECT_FALSE(props.GetNext(&key, &val));
    ASSERT_TRUE(props.GetFirst(&key, &val));
    props.Clear();
    EXPECT_FALSE(props.GetNext(&key, &val));
    EXPECT_FALSE(props.GetFirst(&key, &val));
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
    expectLines(props, "Get bare=1\nGet later=\nGet l=vx\nGet n=v\nGet m1=1\r\nGet m2=2\nGet m3=1\n");

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
    // The parent's value expands in the child's context.
    expectLines(child, "Get shared=child\nGetExpanded onlybase=child-mine\nGetWild lexer. makefile=make\n");
    child.Unset("shared");
    EXPECT_EQ("base", text(child.Get("shared")));
    child.Unset("onlybase");  // not the child's: the parent keeps it
    EXPECT_EQ("$(shared)-$(own)", text(base.Get("onlybase")));
    EXPECT_EQ("own=mine", toString(child));  // ToString leaves the parent out
    base.parent = &child;                     // a loop of parents still ends
    expectLines(child, "Get nowhere=\nGetWild nowhere. x.sql=\n");
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

TEST(PropSet, IncludesVarFindsWholeReferences) {
    // After a failed test the search resumes behind the next ')', past "$(k".
    const std::pair<const char*, bool> rows[] = {
        {"x $(k) y", true}, {"$(a) $(k)", true}, {"$(kk)", false}, {"$(k", false}, {"$(a $(k)", false}};
    for (const auto& [value, found] : rows) EXPECT_EQ(found, Probe::IncludesVar(value, "k")) << value;
}

TEST(PropSetFileCases, ReadingCases) {
    const auto cases = CaseFiles("props", ".properties");
    ASSERT_FALSE(cases.empty());
    for (const auto& path : cases) {
        SCOPED_TRACE(path.filename().string());
        const std::string expected = ReadCase(std::filesystem::path(path).replace_extension(".expected"));
        ASSERT_FALSE(expected.empty());
        PropSetFile props(path.filename().string().rfind("lowercase-", 0) == 0);
        FilePath imports[4];
        EXPECT_TRUE(props.Read(FilePath(path.c_str()), FilePath(kImports.c_str()), imports, 4));
        expectLines(props, expected, listed(imports, 4));
    }
}

TEST(PropSetFileCases, ImportListsAndAbsoluteImports) {
    const FilePath main((kImports.parent_path() / "imports.properties").c_str());
    FilePath one[1];  // a full list drops further entries
    PropSetFile props;
    EXPECT_TRUE(props.Read(main, FilePath(kImports.c_str()), one, 1));
    EXPECT_EQ("base.properties", listed(one, 1));
    EXPECT_TRUE(props.Read(main, FilePath(kImports.c_str()), nullptr, 5));
    // An absolute name stands for itself, whatever the import folder.
    const std::string line = std::string("import ").append((kImports / "base").string());
    PropSetFile absolute;
    absolute.ReadFromMemory(line.data(), int(line.size()), FilePath("/nonexistent"));
    EXPECT_EQ("base", text(absolute.Get("a")));
}

TEST(PropSetFileLines, MemoryBadArgumentsAndTheLineLimit) {
    PropSetFile props;
    props.ReadFromMemory(nullptr, 5);
    props.ReadFromMemory("x=1", -3);
    EXPECT_EQ("", text(props.Get("x")));
    const std::string plain = "  if x\nimport other\n";  // without a folder for imports: plain keys
    props.ReadFromMemory(plain.data(), int(plain.size()));
    expectLines(props, "Get if x=1\nGet import other=1\n");
    // The 60000th byte starts a new line.
    const std::string value(59997, 'v'), input = "k=" + value + "y=1\n\\\nz=2";
    props.ReadFromMemory(input.data(), int(input.size()));
    EXPECT_EQ(value, text(props.Get("k")));
    expectLines(props, "Get y=1\nGet z=2\n");
    props.SetInteger("neg", -42);
    props.SetInteger("big", 1234567890123L);  // the whole long
    expectLines(props, "Get neg=-42\nGet big=1234567890123\n");
}

namespace {
class PropFiles : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir.isValid()); }

    // Writes name.properties into the scratch folder and returns its path.
    FilePath Write(const std::string& name, const std::string& bytes) {
        QFile file(dir.filePath(QString::fromStdString(name) + ".properties"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), qint64(bytes.size()));
        return Path(name + ".properties");
    }
    FilePath Path(const std::string& name) const {
        return FilePath(dir.filePath(QString::fromStdString(name)).toUtf8().constData());
    }
    FilePath Dir() const { return FilePath(dir.path().toUtf8().constData()); }
    std::string Name(const FilePath& path) const {
        return QDir(dir.path()).relativeFilePath(QString::fromUtf8(path.AsFileSystem().c_str())).toStdString();
    }

    QTemporaryDir dir;
    PropSetFile props;
};

}  // namespace

TEST_F(PropFiles, TheByteLimitCutsAFileAndOnlyFilesAreRead) {
    std::string big = "first=1\n";
    big += "filler=" + std::string(59980 - big.size() - 8, 'f') + "\n";  // ends at byte 59980
    big += "cut=0123456789abcdefghijklmnop\nbeyond=1\n";
    EXPECT_TRUE(props.Read(Write("big", big), Dir()));
    expectLines(props, "Get first=1\nGet cut=0123456789abcdef\nGet beyond=\n");  // cut in mid-line
    props.Set("kept", "yes");  // a folder is no file
    for (const FilePath& bad : {Path("missing.properties"), Dir(), FilePath()})
        EXPECT_FALSE(props.Read(bad, Dir())) << bad.AsInternal();
    EXPECT_EQ("yes", text(props.Get("kept")));
}

TEST_F(PropFiles, RunawayImportsEnd) {
    // Imports have no depth limit: a long chain reads whole, far deeper than a recursive
    // reader's stack or the process's file descriptors would allow.
    const int length = 2000;
    for (int i = 0; i < length; ++i)
        Write("chain" + std::to_string(i), "import chain" + std::to_string(i + 1) + "\nv=" + std::to_string(i) + "\n");
    PropSetFile chain;
    std::vector<FilePath> chained(length);
    EXPECT_TRUE(chain.Read(Path("chain0.properties"), Dir(), chained.data(), length));
    EXPECT_EQ("0", text(chain.Get("v")));  // the outermost file's line comes last
    // Innermost first: a file is listed once its own imports are done; the missing end of the
    // chain is not.
    EXPECT_EQ("chain1999.properties", Name(chained[0]));
    EXPECT_EQ("chain1.properties", Name(chained[length - 2]));
    EXPECT_FALSE(chained.back().IsSet());

    // Each level imports the next twice: 2^15 reads, cut at the limit and traced once.
    for (int i = 0; i < 15; ++i) {
        const std::string next = "import twice" + std::to_string(i + 1) + "\n";
        Write("twice" + std::to_string(i), next + next + "n" + std::to_string(i) + "=1\n");
    }
    Write("twice15", "leaf=1\n");
    const QString log = dir.filePath("trace.log");
    qputenv("QUILLBOX_LOG_FILE", log.toUtf8());
    std::vector<FilePath> listed(PropSetFile::maxFilesPerRead + 1);
    EXPECT_TRUE(props.Read(Path("twice0.properties"), Dir(), listed.data(), int(listed.size())));
    qunsetenv("QUILLBOX_LOG_FILE");
    EXPECT_TRUE(listed[std::size_t(PropSetFile::maxFilesPerRead) - 2].IsSet());
    EXPECT_FALSE(listed[std::size_t(PropSetFile::maxFilesPerRead) - 1].IsSet());
    expectLines(props, "Get leaf=1\nGet n0=1\nGet n14=1\n");
    QFile trace(log);
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = trace.readAll().split('\n');
    EXPECT_EQ(2, lines.size());  // one line and the empty rest after its end
    EXPECT_TRUE(lines[0].contains("twice")) << lines[0].constData();
    // The count starts again with the next outermost read.
    std::vector<FilePath> second(5);
    EXPECT_TRUE(props.Read(Write("few", "import twice15\n"), Dir(), second.data(), 5));
    EXPECT_TRUE(second[0].IsSet());
}

TEST(FilePath, JoinsSplitsAndKnowsAbsolutePaths) {
    EXPECT_FALSE(FilePath().IsSet());
    EXPECT_TRUE(FilePath().fileName == "");  // allocated, not null
    EXPECT_FALSE(FilePath("rel/x").IsAbsolute());
    EXPECT_FALSE(FilePath("plain").Directory().IsSet());
    EXPECT_EQ("a/b/c", std::string(FilePath("a\\b/c").AsFileSystem().c_str()));
    const struct { const char* dir; const char* name; const char* joined; } joins[] = {
        {"dir", "name", "dir/name"}, {"", "name", "name"}, {"dir/", "name", "dir//name"},
        {"dir", "/abs", "/abs"}, {"dir", "\\abs", "\\abs"}, {"dir", "C:\\x", "C:\\x"}};
    for (const auto& j : joins) {
        const FilePath dir = *j.dir ? FilePath(j.dir) : FilePath();
        EXPECT_STREQ(j.joined, FilePath(dir, FilePath(j.name)).AsInternal()) << j.dir << " + " << j.name;
    }
    const std::pair<const char*, const char*> dirs[] = {
        {"/a/b/c.properties", "/a/b"}, {"/a/b\\c", "/a/b"}, {"/top", "/"}, {"/", "/"},
        {"C:\\x", "C:\\"}, {"C:\\", "C:\\"}, {"rel/x", "rel"}};
    for (const auto& [path, directory] : dirs) EXPECT_STREQ(directory, FilePath(path).Directory().AsInternal()) << path;
}
