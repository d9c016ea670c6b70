#pragma once
// PropSetFile reads property files into a PropSet; FilePath is the small path value it needs.
//
// The format, line by line: "key=value" (white space before the key skipped, nothing else
// trimmed; no '=' means the value "1"), "# comment" lines, "if key" with its indented body,
// and "import name" (name.properties from the import folder). A backslash at a line end joins
// the next line. Files are read up to 60000 bytes; a UTF-8 byte order mark is dropped.
#include <cstddef>

#include "PropSet.h"
#include "QuillboxExport.h"
#include "SString.h"

// A file path as text. Both '/' and '\' separate its parts; joining writes '/'. A path that
// starts with a separator, or has ':' as its second character ("C:\x"), is absolute.
class QUILLBOX_EXPORT FilePath {
public:
    FilePath() : fileName("") {}
    FilePath(const char* path) : fileName(path ? path : "") {}
    FilePath(const SString& path) : fileName(path.length() ? path : SString("")) {}
    // name as it stands when it is absolute, otherwise directory + '/' + name (no '/' for an
    // empty directory). A directory that ends in a separator gets a second one, which the
    // file system reads as one.
    FilePath(const FilePath& directory, const FilePath& name);

    bool IsSet() const { return fileName.length() > 0; }
    bool IsAbsolute() const;
    // What stands before the last separator; a root ("/", "C:\") is its own directory, and a
    // path without separator has an empty one.
    FilePath Directory() const;
    const char* AsInternal() const { return fileName.c_str(); }
    // The path as this system's file operations take it: '\' becomes '/'.
    SString AsFileSystem() const;

    SString fileName;
};

class QUILLBOX_EXPORT PropSetFile : public PropSet {
public:
    static constexpr int maxFileBytes = 60000;              // bytes of a file that are read
    static constexpr int maxLineBytes = maxFileBytes - 1;   // bytes of one logical line
    // Files one outermost read may open. Imports of imports have no depth limit, but a file
    // that imports another one twice doubles the work at each level; past this count further
    // imports are skipped and a trace line names the first one left out.
    static constexpr int maxFilesPerRead = 10000;

    explicit PropSetFile(bool lowerCaseKeys = false);
    virtual ~PropSetFile();

    // Reads the file's first 60000 bytes into the table. False when the file can't be opened
    // as a regular file, or when reading it would repeat a file that is already being read
    // (an import cycle: each file of a cycle is read once) or pass maxFilesPerRead; the table
    // is then unchanged. importDir enables "import" lines; each imported file that was read is
    // recorded, once its own imports are done, in the first unset entry of
    // imports[0 .. importCount - 1], if there is one. Imports are followed in a loop, not by
    // recursion, so that a chain of any length fits on the stack.
    bool Read(FilePath filename, FilePath importDir = FilePath(), FilePath imports[] = nullptr,
              int importCount = 0);
    // Reads property text; the condition of "if" starts true.
    void ReadFromMemory(const char* data, int len, FilePath importDir = FilePath(),
                        FilePath imports[] = nullptr, int importCount = 0);
    // Handles one logical line and returns the condition for the next one.
    bool ReadLine(const char* line, bool condition, FilePath importDir = FilePath(),
                  FilePath imports[] = nullptr, int importCount = 0);
    void SetInteger(const char* key, long value);

protected:
    bool lowerCaseKeys;   // keys are lower-cased (ASCII) as lines are read

private:
    struct Source;
    struct ReadRun;
    class RunScope;
    // Reads the texts on the run's stack until it is back to `depth` texts.
    void ReadSources(ReadRun& current, std::size_t depth, FilePath importDir, FilePath imports[],
                     int importCount);
    // Puts the file on the run's stack, if it is a regular file that may be read now; a set
    // `listed` goes into the import list once the file is done.
    bool OpenSource(ReadRun& current, const FilePath& filename, const FilePath& listed);

    ReadRun* run = nullptr;   // the outermost Read or ReadFromMemory under way, if any
};
