// PropSetFile and FilePath: the reading cases of tests/data/props, then files: byte order
// marks, the byte limit, imports and their cycles and limits, paths.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <string>
#include <vector>

#include "CaseFiles.h"
#include "PropSetFile.h"

namespace {

std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

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
