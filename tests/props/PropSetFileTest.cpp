// PropSetFile and FilePath: logical lines, "if" scopes, imports, lower-cased keys, byte limits.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <string>
#include <vector>

#include "PropSetFile.h"

namespace {

std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

void expectValues(const PropSet& props, std::initializer_list<std::pair<const char*, std::string>> rows) {
    for (const auto& [key, expected] : rows)
        EXPECT_EQ(expected, text(props.Get(key))) << key;
}

void read(PropSetFile& props, const std::string& bytes) {
    props.ReadFromMemory(bytes.data(), int(bytes.size()));
}

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
        return QDir(dir.path()).relativeFilePath(QString::fromUtf8(path.AsInternal())).toStdString();
    }

    QTemporaryDir dir;
    PropSetFile props;
};

}   // namespace

TEST(PropSetFileLines, LineEndsAndContinuationsBuildLogicalLines) {
    PropSetFile props;
    read(props, "cr=1\rlf=2\ncrlf=3\r\n\r\n\n"
                "joined=1\\\n  2\n"
                "crlfjoin=a\\\r\n\r\n\n b\n"
                "path=C:\\dir\\x\n"
                "lfcr=4\n\rafter=5\n"
                "last=\\");
    // Blank lines after a join vanish; the data's last line needs no end.
    expectValues(props, {{"cr", "1"}, {"lf", "2"}, {"crlf", "3"}, {"joined", "1  2"}, {"crlfjoin", "a b"},
                         {"path", "C:\\dir\\x"}, {"lfcr", "4"}, {"after", "5"}, {"last", "\\"}});

    PropSetFile odd;   // a NUL ends its line's text
    read(odd, std::string("nul=1\0hidden=2\nb\xFF=\xFE\x01\n\n", 20));
    expectValues(odd, {{"nul", "1"}, {"hidden", ""}, {"b\xFF", "\xFE\x01"}});
    odd.ReadFromMemory(nullptr, 5);
    odd.ReadFromMemory("x=1", -3);
    EXPECT_EQ("", text(odd.Get("x")));

    PropSetFile limit;   // the 60000th byte starts a new line
    const std::string value(59997, 'v');
    read(limit, "k=" + value + "y=1\n\\\nz=2");
    expectValues(limit, {{"k", value}, {"y", "1"}, {"z", "2"}});
}

TEST(PropSetFileLines, IfScopesCoverTheIndentedLinesThatFollow) {
    PropSetFile props;
    // "if $(flag)" tests the key "$(flag)" itself; an indented "if" is no directive; a second
    // "if" replaces the condition, no nesting; an unindented comment closes the scope.
    read(props, "flag=1\n" "if flag\n" "  inFlag=1\n" "\tinFlagTab=1\n" "outside=1\n" "  afterScope=1\n"
                "if $(flag)\n" "  literal=1\n"
                "if missing\n" "  # comment\n" "  hidden=1\n" "  if flag\n"
                "if flag\n" "if missing\n" "  replaced=1\n"
                "if missing\n" "#closes the scope\n" "  stillRead=1\n"
                "if missing\n" "  \n" "   \t# x=1\n" "closed=1\n");
    // afterScope: the condition was true again.
    expectValues(props, {{"inFlag", "1"}, {"inFlagTab", "1"}, {"outside", "1"}, {"afterScope", "1"},
                         {"literal", ""}, {"hidden", ""}, {"if flag", ""}, {"replaced", ""},
                         {"stillRead", "1"}, {"closed", "1"}, {"#closes the scope", ""}});

    PropSetFile plain;   // no folder for imports: plain keys
    read(plain, "  if x\nimport other\n");
    expectValues(plain, {{"if x", "1"}, {"import other", "1"}});
}

TEST(PropSetFileLines, LowerCasingTouchesKeysOnlyAndSetIntegerKeepsTheWholeLong) {
    PropSetFile props(true);   // bytes above 0x7F untouched
    read(props, "Style.SQL.1=Fore:#FF0000\nFLAG\n\xD0\x9A\x41=V\n");
    expectValues(props, {{"style.sql.1", "Fore:#FF0000"}, {"Style.SQL.1", ""}, {"flag", "1"},
                         {"\xD0\x9A" "a", "V"}});
    PropSetFile exact;
    read(exact, "Key=1\n");
    exact.SetInteger("neg", -42);
    exact.SetInteger("big", 1234567890123L);
    expectValues(exact, {{"Key", "1"}, {"neg", "-42"}, {"big", "1234567890123"}});
}

TEST_F(PropFiles, ReadHonoursTheByteOrderMarkAndTheByteLimit) {
    EXPECT_TRUE(props.Read(Write("bom", "\xEF\xBB\xBF" "a=1\n"), Dir()));
    EXPECT_EQ("1", text(props.Get("a")));
    EXPECT_TRUE(props.Read(Write("onlybom", "\xEF\xBB\xBF"), Dir()));
    EXPECT_TRUE(props.Read(Write("empty", ""), Dir()));

    std::string big = "first=1\n";
    big += "filler=" + std::string(59980 - big.size() - 8, 'f') + "\n";   // ends at byte 59980
    big += "cut=0123456789abcdefghijklmnop\nbeyond=1\n";
    ASSERT_GT(big.size(), 60000u);
    EXPECT_TRUE(props.Read(Write("big", big), Dir()));
    // cut in mid-line, still read
    expectValues(props, {{"first", "1"}, {"cut", "0123456789abcdef"}, {"beyond", ""}});

    props.Set("kept", "yes");   // a folder is no file
    for (const FilePath& bad : {Path("missing.properties"), Dir(), FilePath()})
        EXPECT_FALSE(props.Read(bad, Dir())) << bad.AsInternal();
    EXPECT_EQ("yes", text(props.Get("kept")));
}

TEST_F(PropFiles, ImportsOverrideInFileOrderAndAreListed) {
    ASSERT_TRUE(QDir(dir.path()).mkdir("sub"));
    Write("base", "a=base\nb=base\nflag=0\nc=base\n");
    Write("sub/inner", "inner=1\n");
    Write("late", "late=1\n");
    // The indented import is no directive, and its condition is false anyway.
    const FilePath main = Write("main", "b=main-before\n" "import base\n" "a=main-after\n" "import missing\n"
                                        "import sub\\inner\n" "if flag\n" "  import late\n" "  c=skipped\n"
                                        "import\n");
    FilePath imports[3];
    EXPECT_TRUE(props.Read(main, Dir(), imports, 3));
    // "import" without a name is a plain key.
    expectValues(props, {{"a", "main-after"}, {"b", "base"}, {"c", "base"}, {"inner", "1"}, {"late", ""},
                         {"import", "1"}});
    EXPECT_EQ("base.properties", Name(imports[0]));
    EXPECT_EQ("sub/inner.properties", Name(FilePath(imports[1].AsFileSystem())));
    EXPECT_FALSE(imports[2].IsSet());

    FilePath one[1];   // a full list drops further entries
    PropSetFile again;
    EXPECT_TRUE(again.Read(main, Dir(), one, 1));
    EXPECT_EQ("base.properties", Name(one[0]));
    EXPECT_TRUE(again.Read(main, Dir(), nullptr, 5));

    PropSetFile absolute;   // an absolute name stands for itself, whatever the import folder
    const std::string line = "import " + std::string(dir.filePath("base").toUtf8().constData());
    absolute.ReadFromMemory(line.data(), int(line.size()), FilePath("/nonexistent"));
    EXPECT_EQ("base", text(absolute.Get("a")));
}

TEST_F(PropFiles, ImportCyclesAndRunawayImportsEnd) {
    Write("self", "before=1\nimport self\nafter=1\n");
    Write("ping", "ping=1\nimport pong\nping.after=1\n");
    Write("pong", "pong=1\nimport ping\nshared=pong\n");
    FilePath imports[4];
    EXPECT_TRUE(props.Read(Write("top", "import self\nimport ping\nshared=top\n"), Dir(), imports, 4));
    expectValues(props, {{"before", "1"}, {"after", "1"}, {"ping.after", "1"}, {"shared", "top"}});
    // Files that were read are listed; a blocked repeat of a file on the chain is not.
    EXPECT_EQ("self.properties", Name(imports[0]));
    EXPECT_EQ("pong.properties", Name(imports[1]));
    EXPECT_EQ("ping.properties", Name(imports[2]));
    EXPECT_FALSE(imports[3].IsSet());

    // Imports have no depth limit: long chains read whole, far deeper than a recursive
    // reader's stack or the process's file descriptors would allow.
    for (const int length : {100, 2000}) {
        const std::string prefix = "chain" + std::to_string(length) + "-";
        for (int i = 0; i < length; ++i) {
            const std::string n = std::to_string(i);
            Write(prefix + n, "import " + prefix + std::to_string(i + 1) + "\nv" + n + "=" + n + "\n");
        }
        PropSetFile chain;
        std::vector<FilePath> listed(static_cast<std::size_t>(length));
        EXPECT_TRUE(chain.Read(Path(prefix + "0.properties"), Dir(), listed.data(), length));
        const std::string last = std::to_string(length - 1);
        const std::string lastKey = std::string("v").append(last);
        expectValues(chain, {{"v0", "0"}, {lastKey.c_str(), last}});
        // Innermost first: a file is listed once its own imports are done; the missing end
        // of the chain is not.
        EXPECT_EQ(prefix + last + ".properties", Name(listed[0]));
        EXPECT_EQ(prefix + "1.properties", Name(listed[listed.size() - 2]));
        EXPECT_FALSE(listed.back().IsSet());
    }
}

TEST_F(PropFiles, RepeatedImportsStopAtTheFileLimitWithATraceLine) {
    // Each level imports the next twice: 2^15 reads, cut at the limit and traced once.
    const int levels = 15;
    for (int i = 0; i < levels; ++i) {
        const std::string next = "import twice" + std::to_string(i + 1) + "\n";
        Write("twice" + std::to_string(i), next + next + "n" + std::to_string(i) + "=1\n");
    }
    Write("twice" + std::to_string(levels), "leaf=1\n");
    const QString log = dir.filePath("trace.log");
    qputenv("QUILLBOX_LOG_FILE", log.toUtf8());
    std::vector<FilePath> listed(PropSetFile::maxFilesPerRead + 1);
    EXPECT_TRUE(props.Read(Path("twice0.properties"), Dir(), listed.data(), int(listed.size())));
    qunsetenv("QUILLBOX_LOG_FILE");
    EXPECT_TRUE(listed[std::size_t(PropSetFile::maxFilesPerRead) - 2].IsSet());
    EXPECT_FALSE(listed[std::size_t(PropSetFile::maxFilesPerRead) - 1].IsSet());
    expectValues(props, {{"leaf", "1"}, {"n0", "1"}, {"n14", "1"}});
    QFile trace(log);
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = trace.readAll().split('\n');
    EXPECT_EQ(2, lines.size());   // one line and the empty rest after its end
    EXPECT_TRUE(lines[0].contains("twice")) << lines[0].constData();

    // The count starts again with the next outermost read.
    std::vector<FilePath> second(5);
    EXPECT_TRUE(props.Read(Write("few", "import twice15\n"), Dir(), second.data(), 5));
    EXPECT_TRUE(second[0].IsSet());
}

TEST(FilePath, JoinsSplitsAndKnowsAbsolutePaths) {
    EXPECT_FALSE(FilePath().IsSet());
    EXPECT_TRUE(FilePath().fileName == "");   // allocated, not null
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
    for (const auto& [path, directory] : dirs)
        EXPECT_STREQ(directory, FilePath(path).Directory().AsInternal()) << path;
}
