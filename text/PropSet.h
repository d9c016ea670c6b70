#pragma once
// PropSet: the table of text properties behind the editor's configuration. A key maps to a
// value; values may name other properties as $(name), and a table may fall back on a parent.
// Keys and values are byte texts (UTF-8 in practice) that are never converted; keys are
// case-sensitive at this level.
#include <cstddef>
#include <string>

#include "QuillboxExport.h"
#include "SString.h"

class QUILLBOX_EXPORT PropSet {
public:
    // Decides whether the "*suffix" items of file patterns compare ASCII letters exactly
    // (true) or folded (false, the default).
    static bool caseSensitiveFilenames;

    PropSet();
    ~PropSet();
    PropSet(const PropSet&) = delete;
    PropSet& operator=(const PropSet&) = delete;

    // Sets or replaces. A length of -1 (any negative length) measures the text; a text given
    // with a length need not be NUL-terminated. Key and value end at an embedded NUL, as
    // every reader of the table sees them that way. An empty or null key is ignored; a null
    // value counts as empty.
    void Set(const char* key, const char* val, int keyLength = -1, int valueLength = -1);
    // One "key=value" text: white space before the key is skipped, the line ends at LF or NUL,
    // the key runs to the first '=' of the line and the value behind it; nothing is trimmed.
    // A line without '=' sets its whole text to "1".
    void Set(const char* line);
    // Set(line) for each LF-separated line; a CR before the LF stays in the value.
    void SetMultiple(const char* s);
    // Removes the key from this table (not from the parent). An enumeration in progress
    // survives the removal of its next element.
    void Unset(const char* key, int keyLength = -1);

    // The raw value from this table or the parent chain; missing gives an allocated empty text.
    SString Get(const char* key) const;
    // Get, then $(name) references expanded with a budget of 100 steps, the key itself blocked.
    SString GetExpanded(const char* key) const;
    // Expands the caller's text with the caller's step budget and no blocked names.
    SString Expand(const char* text, int maxSteps = 100) const;
    // GetExpanded read as a decimal number; an empty text gives the default, and a text with
    // no leading number gives 0.
    int GetInt(const char* key, int defaultValue = 0) const;
    // The value of the first key in walk order that is keyPrefix followed by a file pattern
    // list ("keywords.*.sql", "keywords.$(file.patterns.sql)") matching filename, or that is
    // keyPrefix itself; then the parent's answer; then an allocated empty text.
    SString GetWild(const char* keyPrefix, const char* filename) const;
    // GetWild, then up to 1000 replacements of $(name) by GetWild(name, filename), so that
    // references inside pattern-keyed values see the same file name.
    SString GetNewExpand(const char* keyPrefix, const char* filename) const;

    // Removes every entry of this table; the parent stays. An enumeration must start anew.
    void Clear();
    // "key=value" lines joined by LF, bucket by bucket, without a final LF; an empty table
    // gives an empty text. The caller frees the result with delete[].
    char* ToString() const;

    // Enumeration of this table's own entries (not the parent's). The pointers point into the
    // table and stay valid until the entry is changed or removed.
    bool GetFirst(char** key, char** val);
    bool GetNext(char** key, char** val);

    static void SetCaseSensitiveFilenames(bool on) { caseSensitiveFilenames = on; }

protected:
    // One entry, a node of its bucket's chain. Key and value are owned arrays.
    struct Property {
        unsigned int hash;
        char* key;
        char* val;
        Property* next;
    };

    static constexpr int hashRoots = 31;   // a prime: the table never resizes

    // hash = (hash << 4) ^ byte, the byte sign-extended as a signed char.
    static unsigned int HashString(const char* s, unsigned int len);
    // True when value holds "$(" key ")".
    static bool IncludesVar(const char* value, const char* key);

    Property* buckets[hashRoots];
    Property* enumNode;   // next node for GetNext
    int enumBucket;       // bucket of enumNode

public:
    PropSet* parent;      // lookups fall back on this table; not owned

private:
    struct BlockedName;   // a name on the chain of an expansion in progress
    struct WildCache;     // list expansions shared by the nodes of one GetWild walk

    const Property* Find(const char* key, std::size_t len) const;
    const char* Lookup(const char* key, std::size_t len) const;
    void SetLine(const char* start, const char* end);
    int ExpandText(std::string& text, int maxSteps, const BlockedName* blocked) const;
    const char* FindWild(const char* keyPrefix, std::size_t prefixLength, const char* filename,
                         std::size_t filenameLength, WildCache& cache) const;
    SString WildValue(const char* keyPrefix, std::size_t prefixLength, const char* filename) const;
};
