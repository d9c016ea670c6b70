#include "PropSetFile.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace {

bool isSeparator(char ch) {
    return ch == '/' || ch == '\\';
}

// Counts a call as under way for as long as it runs.
class Nesting {
public:
    explicit Nesting(int& counter) : counter_(counter) { ++counter_; }
    ~Nesting() { --counter_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    int& counter_;
};

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

}   // namespace

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
    if (readNesting == 0)
        filesRead = 0;
    const SString path = filename.AsFileSystem();
    if (!path.length())
        return false;
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return false;
    // Only regular files: a directory reads as nothing and a pipe or device could block or
    // never end.
    struct stat info {};
    if (fstat(fileno(file.get()), &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    // A file that is already being read, further out on the chain of imports, would import
    // itself again without end; chains that are too deep, or too many files, stop as well.
    const FileIdentity identity{std::uint64_t(info.st_dev), std::uint64_t(info.st_ino)};
    const bool onChain = std::any_of(readChain.begin(), readChain.end(), [&](const FileIdentity& f) {
        return f.device == identity.device && f.inode == identity.inode;
    });
    if (onChain || readChain.size() >= std::size_t(maxImportDepth) || filesRead >= maxFilesPerRead)
        return false;

    const std::unique_ptr<char[]> data(new (std::nothrow) char[maxFileBytes]);
    if (!data)
        return false;
    std::size_t length = 0;
    while (length < std::size_t(maxFileBytes)) {
        const std::size_t got = std::fread(data.get() + length, 1, maxFileBytes - length, file.get());
        if (got == 0)
            break;
        length += got;
    }
    ++filesRead;

    const char* text = data.get();
    if (length >= 3 && std::memcmp(text, "\xEF\xBB\xBF", 3) == 0) {
        text += 3;
        length -= 3;
    }
    readChain.push_back(identity);
    {
        const Nesting nesting(readNesting);
        ReadFromMemory(text, int(length), importDir, imports, importCount);
    }
    readChain.pop_back();
    return true;
}

void PropSetFile::ReadFromMemory(const char* data, int len, FilePath importDir, FilePath imports[],
                                 int importCount) {
    if (readNesting == 0)
        filesRead = 0;
    if (!data || len <= 0)
        return;
    const Nesting nesting(readNesting);
    const std::size_t size = std::size_t(len);
    std::string line;
    bool condition = true;
    std::size_t pos = 0;
    while (pos < size) {
        // One logical line: CR, LF or CR LF ends it; a backslash right before a line end joins
        // the next line; line ends while nothing has been taken (blank lines, and those right
        // after a joining backslash) are skipped.
        line.clear();
        bool atLineStart = true;
        while (line.size() < std::size_t(maxLineBytes) && pos < size) {
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
        if (line.empty())
            continue;   // only line ends were left
        if (lowerCaseKeys) {
            for (char& ch : line) {
                if (ch == '=')
                    break;
                if (ch >= 'A' && ch <= 'Z')
                    ch = char(ch - 'A' + 'a');
            }
        }
        condition = ReadLine(line.c_str(), condition, importDir, imports, importCount);
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
        // Imports are carried out whatever the condition.
        SString name(line + 7);
        name += ".properties";
        const FilePath path(importDir, FilePath(name));
        if (Read(path, importDir, imports, importCount) && imports) {
            for (int i = 0; i < importCount; ++i) {
                if (!imports[i].IsSet()) {
                    imports[i] = path;
                    break;
                }
            }
        }
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
