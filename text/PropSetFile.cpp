#include "PropSetFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CKTUtilTrace.h"
#include "Files.h"

namespace {

bool isSeparator(char ch) {
    return ch == '/' || ch == '\\';
}

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

// The next logical line of data[pos .. size) into `line`; false when only line ends were
// left. CR, LF or CR LF ends a line; a backslash right before a line end joins the next line;
// line ends while nothing has been taken (blank lines, and those right after a joining
// backslash) are skipped.
bool nextLogicalLine(const char* data, std::size_t size, std::size_t& pos, std::string& line) {
    line.clear();
    while (line.empty() && pos < size) {
        bool atLineStart = true;
        while (line.size() < std::size_t(PropSetFile::maxLineBytes) && pos < size) {
            const char ch = data[pos++];
            if (ch == '\r' || ch == '\n') {
                if (!atLineStart) {
                    if (ch == '\r' && pos < size && data[pos] == '\n')
                        ++pos;
                    break;
                }
            } else if (ch == '\\' && pos < size && (data[pos] == '\r' || data[pos] == '\n')) {
                atLineStart = true;
            } else {
                atLineStart = false;
                line.push_back(ch);
            }
        }
    }
    return !line.empty();
}

void lowerCaseKey(std::string& line) {
    for (char& ch : line) {
        if (ch == '=')
            break;
        if (ch >= 'A' && ch <= 'Z')
            ch = char(ch - 'A' + 'a');
    }
}

// Records a file that was read in the first unset entry of the caller's list; a full list
// drops it.
void listImport(FilePath imports[], int importCount, const FilePath& path) {
    if (!imports)
        return;
    for (int i = 0; i < importCount; ++i) {
        if (!imports[i].IsSet()) {
            imports[i] = path;
            return;
        }
    }
}

using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;   // device, inode

}   // namespace

// One text being read: a file's bytes, or the caller's memory, with its reading place and
// its own "if" condition.
struct PropSetFile::Source {
    std::string bytes;               // a file's bytes, byte order mark dropped
    const char* memory = nullptr;    // the caller's text, when not a file
    std::size_t size = 0;
    std::size_t pos = 0;
    bool condition = true;
    std::optional<FileIdentity> file;
    FilePath listed;                 // recorded in the import list once the file is done

    const char* data() const { return memory ? memory : bytes.data(); }
};

// An outermost Read or ReadFromMemory: the texts open within one another and the files among
// them, which an import may not open again.
struct PropSetFile::ReadRun {
    std::vector<Source> sources;     // outermost first
    std::set<FileIdentity> onChain;
    int filesRead = 0;
    bool limitTraced = false;
    FilePath pendingImport;          // named by ReadLine, opened once the line is done
};

// Makes a call the outermost read when no read is under way, for as long as it runs.
class PropSetFile::RunScope {
public:
    explicit RunScope(PropSetFile& props) : props_(props), owner_(!props.run) {
        if (owner_)
            props_.run = &own_;
    }
    ~RunScope() {
        if (owner_)
            props_.run = nullptr;
    }
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;
    ReadRun& run() { return *props_.run; }

private:
    PropSetFile& props_;
    bool owner_;
    ReadRun own_;
};

// ---- FilePath ----

FilePath::FilePath(const FilePath& directory, const FilePath& name) {
    if (name.IsSet() && name.IsAbsolute()) {
        fileName = name.fileName;
        return;
    }
    fileName = directory.fileName;
    if (directory.IsSet())
        fileName += "/";
    fileName += name.fileName;
}

bool FilePath::IsAbsolute() const {
    return isSeparator(fileName[0]) || (fileName.length() >= 2 && fileName[1] == ':');
}

FilePath FilePath::Directory() const {
    const std::string_view path(fileName.c_str(), fileName.length());
    const std::size_t last = path.find_last_of("/\\");
    if (last == std::string_view::npos)
        return FilePath();
    std::size_t cut = last;
    if (path.size() >= 3 && path[1] == ':' && isSeparator(path[2]))
        cut = std::max<std::size_t>(cut, 3);   // "C:\" is a root of its own
    else if (isSeparator(path[0]))
        cut = std::max<std::size_t>(cut, 1);   // so is "/"
    return FilePath(SString(path.data(), 0, unsigned(cut)));
}

SString FilePath::AsFileSystem() const {
    SString path(fileName);
    path.substitute('\\', '/');
    return path;
}

// ---- PropSetFile ----

PropSetFile::PropSetFile(bool lowerCaseKeys_) : lowerCaseKeys(lowerCaseKeys_) {}

PropSetFile::~PropSetFile() {
    parent = nullptr;
    Clear();
}

bool PropSetFile::Read(FilePath filename, FilePath importDir, FilePath imports[], int importCount) {
    RunScope scope(*this);
    ReadRun& current = scope.run();
    const std::size_t depth = current.sources.size();
    if (!OpenSource(current, filename, FilePath()))
        return false;
    ReadSources(current, depth, importDir, imports, importCount);
    return true;
}

void PropSetFile::ReadFromMemory(const char* data, int len, FilePath importDir, FilePath imports[],
                                 int importCount) {
    if (!data || len <= 0)
        return;
    RunScope scope(*this);
    ReadRun& current = scope.run();
    const std::size_t depth = current.sources.size();
    Source source;
    source.memory = data;
    source.size = std::size_t(len);
    current.sources.push_back(std::move(source));
    ReadSources(current, depth, importDir, imports, importCount);
}

bool PropSetFile::OpenSource(ReadRun& current, const FilePath& filename, const FilePath& listed) {
    const SString path = filename.AsFileSystem();
    if (!path.length())
        return false;
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return false;
    // Only regular files: a directory reads as nothing and a pipe or device could block or
    // never end.
    FileStatus info;
    if (!StatusOf(file.get(), info) || !info.regular)
        return false;
    // A file that is already being read, further out on the chain of imports, would import
    // itself again without end.
    const FileIdentity identity{info.device, info.inode};
    if (current.onChain.count(identity))
        return false;
    if (current.filesRead >= maxFilesPerRead) {
        if (!current.limitTraced) {
            current.limitTraced = true;
            CKTUtilTrace::WriteLogFileInTemp("PropSetFile: %d files read, further imports skipped from %s : ( %d )",
                                             maxFilesPerRead, path.c_str(), __LINE__);
        }
        return false;
    }
    try {
        Source source;
        source.file = identity;
        source.listed = listed;
        const std::size_t expected = std::size_t(std::min<std::uint64_t>(info.size, std::uint64_t(maxFileBytes)));
        source.bytes.reserve(expected);
        char chunk[4096];
        while (source.bytes.size() < std::size_t(maxFileBytes)) {
            const std::size_t want = std::min(sizeof chunk, maxFileBytes - source.bytes.size());
            const std::size_t got = std::fread(chunk, 1, want, file.get());
            if (got == 0)
                break;
            source.bytes.append(chunk, got);
        }
        // Closed before the file's imports are opened, so that a long chain holds no descriptors.
        file.reset();
        if (source.bytes.compare(0, 3, "\xEF\xBB\xBF") == 0)
            source.bytes.erase(0, 3);
        source.size = source.bytes.size();
        current.onChain.insert(identity);
        current.sources.push_back(std::move(source));
    } catch (const std::bad_alloc&) {
        current.onChain.erase(identity);
        return false;
    }
    ++current.filesRead;
    return true;
}

void PropSetFile::ReadSources(ReadRun& current, std::size_t depth, FilePath importDir,
                              FilePath imports[], int importCount) {
    std::string line;
    while (current.sources.size() > depth) {
        Source& source = current.sources.back();
        if (!nextLogicalLine(source.data(), source.size, source.pos, line)) {
            const FilePath listed = source.listed;
            if (source.file)
                current.onChain.erase(*source.file);
            current.sources.pop_back();
            if (listed.IsSet())
                listImport(imports, importCount, listed);
            continue;
        }
        if (lowerCaseKeys)
            lowerCaseKey(line);
        source.condition = ReadLine(line.c_str(), source.condition, importDir, imports, importCount);
        if (current.pendingImport.IsSet()) {
            const FilePath path = current.pendingImport;
            current.pendingImport = FilePath();
            OpenSource(current, path, path);   // read on from the next turn of the loop
        }
    }
}

bool PropSetFile::ReadLine(const char* line, bool condition, FilePath importDir, FilePath imports[],
                           int importCount) {
    if (!line)
        return condition;
    if (line[0] != ' ' && line[0] != '\t')
        condition = true;   // a line at column 0 ends the body of an "if"
    if (std::strncmp(line, "if ", 3) == 0)
        return GetInt(line + 3, 0) != 0;
    if (importDir.IsSet() && std::strncmp(line, "import ", 7) == 0) {
        // Imports are carried out whatever the condition. Within a read the loop of
        // ReadSources opens the file once this line is done; a line handed in alone reads it now.
        SString name(line + 7);
        name += ".properties";
        const FilePath path(importDir, FilePath(name));
        if (run)
            run->pendingImport = path;
        else if (Read(path, importDir, imports, importCount))
            listImport(imports, importCount, path);
        return condition;
    }
    if (!condition)
        return condition;
    const char* text = line + std::strspn(line, " \t");
    if (*text != '#')
        Set(line);
    return condition;
}

void PropSetFile::SetInteger(const char* key, long value) {
    char number[32];
    std::snprintf(number, sizeof number, "%ld", value);
    Set(key, number);
}
