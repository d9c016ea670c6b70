// PropSetFile and FilePath: logical lines, "if" scopes, imports with their overrides and
// cycles, lower-cased keys, the byte limit, the byte order mark, and odd bytes.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <string>
#include <vector>

#include "PropSetFile.h"

namespace {

std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

class PropFiles : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir.isValid()); }

    // Writes name.properties into the scratch folder and returns its path.
    FilePath Write(const std::string& name, const std::string& bytes) {
        const QString path = dir.filePath(QString::fromStdString(name) + ".properties");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), qint64(bytes.size()));
        return FilePath(path.toUtf8().constData());
    }
    FilePath Dir() const { return FilePath(dir.path().toUtf8().constData()); }
    std::string Name(const FilePath& path) const {
        return QDir(dir.path()).relativeFilePath(QString::fromUtf8(path.AsInternal())).toStdString();
    }

    QTemporaryDir dir;
    PropSetFile props;
};

void read(PropSetFile& props, const std::string& bytes) {
    props.ReadFromMemory(bytes.data(), int(bytes.size()));
}

}   // namespace

TEST(PropSetFileLines, LineEndsAndContinuationsBuildLogicalLines) {
    PropSetFile props;
    read(props, "cr=1\rlf=2\ncrlf=3\r\n\r\n\n"
                "joined=1\\\n  2\n"
                "crlfjoin=a\\\r\n\r\n\n b\n"
                "path=C:\\dir\\x\n"
                "lfcr=4\n\rafter=5\n"
                "last=\\");
    EXPECT_EQ("1", text(props.Get("cr")));
    EXPECT_EQ("2", text(props.Get("lf")));
    EXPECT_EQ("3", text(props.Get("crlf")));
    EXPECT_EQ("1  2", text(props.Get("joined")));
    EXPECT_EQ("a b", text(props.Get("crlfjoin")));   // blank lines after the join vanish
    EXPECT_EQ("C:\\dir\\x", text(props.Get("path")));
    EXPECT_EQ("4", text(props.Get("lfcr")));
    EXPECT_EQ("5", text(props.Get("after")));
    EXPECT_EQ("\\", text(props.Get("last")));      // the data's last line needs no end

    PropSetFile odd;
    read(odd, std::string("nul=1\0hidden=2\nb\xFF=\xFE\x01\n\n", 20));
    EXPECT_EQ("1", text(odd.Get("nul")));           // a NUL ends its line's text
    EXPECT_EQ("", text(odd.Get("hidden")));
    EXPECT_EQ("\xFE\x01", text(odd.Get("b\xFF")));
    odd.ReadFromMemory(nullptr, 5);
    odd.ReadFromMemory("x=1", -3);
    EXPECT_EQ("", text(odd.Get("x")));
}

TEST(PropSetFileLines, LogicalLinesEndAt59999Bytes) {
    PropSetFile props;
    const std::string value(59997, 'v');
    read(props, "k=" + value + "y=1\n\\\nz=2");
    EXPECT_EQ(value, text(props.Get("k")));
    EXPECT_EQ("1", text(props.Get("y")));   // the 60000th byte starts a new line
    EXPECT_EQ("2", text(props.Get("z")));
}

TEST(PropSetFileLines, IfScopesCoverTheIndentedLinesThatFollow) {
    PropSetFile props;
    read(props, "flag=1\n"
                "if flag\n"
                "  inFlag=1\n"
                "\tinFlagTab=1\n"
                "outside=1\n"
                "  afterScope=1\n"
                "if $(flag)\n"          // the key is "$(flag)" itself: not set
                "  literal=1\n"
                "if missing\n"
                "  # comment\n"
                "  hidden=1\n"
                "  if flag\n"           // indented: no directive (and skipped here)
                "if flag\n"
                "if missing\n"          // replaces the condition, no nesting
                "  replaced=1\n"
                "if missing\n"
                "#closes the scope\n"
                "  stillRead=1\n"
                "if missing\n"
                "  \n"
                "   \t# x=1\n"
                "closed=1\n");
    EXPECT_EQ("1", text(props.Get("inFlag")));
    EXPECT_EQ("1", text(props.Get("inFlagTab")));
    EXPECT_EQ("1", text(props.Get("outside")));
    EXPECT_EQ("1", text(props.Get("afterScope")));   // condition was true again
    EXPECT_EQ("", text(props.Get("literal")));
    EXPECT_EQ("", text(props.Get("hidden")));
    EXPECT_EQ("", text(props.Get("if flag")));
    EXPECT_EQ("", text(props.Get("replaced")));
    EXPECT_EQ("1", text(props.Get("stillRead")));
    EXPECT_EQ("1", text(props.Get("closed")));
    EXPECT_EQ("", text(props.Get("#closes the scope")));

    PropSetFile plain;
    read(plain, "  if x\nimport other\n");   // no folder for imports: plain keys
    EXPECT_EQ("1", text(plain.Get("if x")));
    EXPECT_EQ("1", text(plain.Get("import other")));
}

TEST(PropSetFileLines, LowerCasingTouchesKeysOnly) {
    PropSetFile props(true);
    read(props, "Style.SQL.1=Fore:#FF0000\nFLAG\n\xD0\x9A\x41=V\n");
    EXPECT_EQ("Fore:#FF0000", text(props.Get("style.sql.1")));
    EXPECT_EQ("", text(props.Get("Style.SQL.1")));
    EXPECT_EQ("1", text(props.Get("flag")));
    EXPECT_EQ("V", text(props.Get("\xD0\x9A" "a")));   // bytes above 0x7F untouched
    PropSetFile exact;
    read(exact, "Key=1\n");
    EXPECT_EQ("1", text(exact.Get("Key")));
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
    EXPECT_EQ("1", text(props.Get("first")));
    EXPECT_EQ("0123456789abcdef", text(props.Get("cut")));   // cut in mid-line, still read
    EXPECT_EQ("", text(props.Get("beyond")));

    props.Set("kept", "yes");
    EXPECT_FALSE(props.Read(FilePath(dir.filePath("missing.properties").toUtf8().constData()), Dir()));
    EXPECT_FALSE(props.Read(Dir(), Dir()));   // a folder is no file
    EXPECT_FALSE(props.Read(FilePath(), Dir()));
    EXPECT_EQ("yes", text(props.Get("kept")));
}

TEST_F(PropFiles, ImportsOverrideInFileOrderAndAreListed) {
    ASSERT_TRUE(QDir(dir.path()).mkdir("sub"));
    Write("base", "a=base\nb=base\nflag=0\nc=base\n");
    Write("sub/inner", "inner=1\n");
    Write("late", "late=1\n");
    const FilePath main = Write("main",
        "b=main-before\n"
        "import base\n"
        "a=main-after\n"
        "import missing\n"
        "import sub\\inner\n"
        "if flag\n"
        "  import late\n"       // indented: no directive, and the condition is false
        "  c=skipped\n"
        "import\n");
    FilePath imports[3];
    EXPECT_TRUE(props.Read(main, Dir(), imports, 3));
    EXPECT_EQ("main-after", text(props.Get("a")));
    EXPECT_EQ("base", text(props.Get("b")));
    EXPECT_EQ("base", text(props.Get("c")));
    EXPECT_EQ("1", text(props.Get("inner")));
    EXPECT_EQ("", text(props.Get("late")));
    EXPECT_EQ("1", text(props.Get("import")));   // "import" without a name is a plain key
    EXPECT_EQ("base.properties", Name(imports[0]));
    EXPECT_EQ("sub/inner.properties", Name(FilePath(imports[1].AsFileSystem())));
    EXPECT_FALSE(imports[2].IsSet());

    FilePath one[1];   // a full list drops further entries
    PropSetFile again;
    EXPECT_TRUE(again.Read(main, Dir(), one, 1));
    EXPECT_EQ("base.properties", Name(one[0]));
    EXPECT_TRUE(again.Read(main, Dir(), nullptr, 5));

    // An absolute name stands for itself, whatever the import folder.
    PropSetFile absolute;
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
    EXPECT_EQ("1", text(props.Get("before")));
    EXPECT_EQ("1", text(props.Get("after")));
    EXPECT_EQ("1", text(props.Get("ping.after")));
    EXPECT_EQ("top", text(props.Get("shared")));
    // Files that were read are listed; a blocked repeat of a file on the chain is not.
    EXPECT_EQ("self.properties", Name(imports[0]));
    EXPECT_EQ("pong.properties", Name(imports[1]));
    EXPECT_EQ("ping.properties", Name(imports[2]));
    EXPECT_FALSE(imports[3].IsSet());

    // A chain of 40 files: 32 of them open within one another.
    for (int i = 0; i < 40; ++i)
        Write("chain" + std::to_string(i),
              "import chain" + std::to_string(i + 1) + "\nv" + std::to_string(i) + "=1\n");
    PropSetFile chain;
    EXPECT_TRUE(chain.Read(FilePath(dir.filePath("chain0.properties").toUtf8().constData()), Dir()));
    EXPECT_EQ("1", text(chain.Get("v31")));
    EXPECT_EQ("", text(chain.Get("v32")));

    // Repeated imports of one file are legitimate, but one read opens at most 1000 files.
    Write("leaf", "n=1\n");
    std::string many;
    for (int i = 0; i < 1200; ++i)
        many += "import leaf\n";
    std::vector<FilePath> listed(1200);
    PropSetFile wide;
    EXPECT_TRUE(wide.Read(Write("wide", many), Dir(), listed.data(), int(listed.size())));
    EXPECT_TRUE(listed[998].IsSet());
    EXPECT_FALSE(listed[999].IsSet());
    // The count starts again with the next outermost read.
    std::vector<FilePath> second(5);
    EXPECT_TRUE(wide.Read(Write("few", "import leaf\n"), Dir(), second.data(), 5));
    EXPECT_TRUE(second[0].IsSet());
}

TEST(PropSetFileValues, SetIntegerKeepsTheWholeLong) {
    PropSetFile props;
    props.SetInteger("neg", -42);
    props.SetInteger("big", 1234567890123L);
    EXPECT_EQ("-42", text(props.Get("neg")));
    EXPECT_EQ("1234567890123", text(props.Get("big")));
}

TEST(FilePath, JoinsSplitsAndKnowsAbsolutePaths) {
    EXPECT_FALSE(FilePath().IsSet());
    EXPECT_TRUE(FilePath().fileName == "");   // allocated, not null
    EXPECT_EQ("dir/name", std::string(FilePath(FilePath("dir"), FilePath("name")).AsInternal()));
    EXPECT_EQ("name", std::string(FilePath(FilePath(), FilePath("name")).AsInternal()));
    EXPECT_EQ("dir//name", std::string(FilePath(FilePath("dir/"), FilePath("name")).AsInternal()));
    EXPECT_EQ("/abs", std::string(FilePath(FilePath("dir"), FilePath("/abs")).AsInternal()));
    EXPECT_EQ("\\abs", std::string(FilePath(FilePath("dir"), FilePath("\\abs")).AsInternal()));
    EXPECT_EQ("C:\\x", std::string(FilePath(FilePath("dir"), FilePath("C:\\x")).AsInternal()));
    EXPECT_FALSE(FilePath("rel/x").IsAbsolute());

    EXPECT_EQ("/a/b", std::string(FilePath("/a/b/c.properties").Directory().AsInternal()));
    EXPECT_EQ("/a/b", std::string(FilePath("/a/b\\c").Directory().AsInternal()));
    EXPECT_EQ("/", std::string(FilePath("/top").Directory().AsInternal()));
    EXPECT_EQ("/", std::string(FilePath("/").Directory().AsInternal()));
    EXPECT_EQ("C:\\", std::string(FilePath("C:\\x").Directory().AsInternal()));
    EXPECT_EQ("C:\\", std::string(FilePath("C:\\").Directory().AsInternal()));
    EXPECT_EQ("rel", std::string(FilePath("rel/x").Directory().AsInternal()));
    EXPECT_FALSE(FilePath("plain").Directory().IsSet());
    EXPECT_EQ("a/b/c", std::string(FilePath("a\\b/c").AsFileSystem().c_str()));
}
