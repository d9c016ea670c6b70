#include "PropSet.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>
#include <unordered_map>
#include <vector>

bool PropSet::caseSensitiveFilenames = false;

namespace {

constexpr int expandedStepBudget = 100;     // GetExpanded's shared budget of replacements
constexpr int newExpandAttempts = 1000;     // GetNewExpand's limit of replacements
constexpr int maxParentHops = 256;          // a parent chain made into a loop still ends
constexpr int maxExpandNesting = 1000;      // keeps huge caller budgets off the stack's edge

bool isSpace(char ch) {
    return ch == ' ' || (ch >= 9 && ch <= 13);
}

// The length a (text, length) argument stands for: negative measures; an embedded NUL ends
// the text either way.
std::size_t textLength(const char* s, int length) {
    if (!s)
        return 0;
    if (length < 0)
        return std::strlen(s);
    const void* nul = std::memchr(s, '\0', std::size_t(length));
    return nul ? std::size_t(static_cast<const char*>(nul) - s) : std::size_t(length);
}

char foldAscii(char ch) {
    return (ch >= 'A' && ch <= 'Z') ? char(ch - 'A' + 'a') : ch;
}

bool sameBytes(std::string_view a, std::string_view b, bool fold) {
    if (a.size() != b.size())
        return false;
    if (!fold)
        return a == b;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (foldAscii(a[i]) != foldAscii(b[i]))
            return false;
    return true;
}

// One file pattern item, given as the concatenation head + tail (an item can be made of the
// end of an expanded list and the start of the key's own text). "*rest" matches a file name
// that ends in rest, other items match an equal name. The cost depends on the file name's
// length, not the item's, so a huge expanded list is cheap to test.
bool matchItem(std::string_view head, std::string_view tail, std::string_view filename) {
    const bool star = !head.empty() ? head.front() == '*' : (!tail.empty() && tail.front() == '*');
    if (!star)
        return filename.size() == head.size() + tail.size() &&
               filename.substr(0, head.size()) == head && filename.substr(head.size()) == tail;
    if (!head.empty())
        head.remove_prefix(1);
    else
        tail.remove_prefix(1);
    const std::size_t restLength = head.size() + tail.size();
    if (filename.size() < restLength)
        return false;
    const std::string_view end = filename.substr(filename.size() - restLength);
    const bool fold = !PropSet::caseSensitiveFilenames;
    return sameBytes(end.substr(0, head.size()), head, fold) &&
           sameBytes(end.substr(head.size()), tail, fold);
}

// A ';'-separated list whose first item is prefixed by head (which holds no ';').
bool matchList(std::string_view head, std::string_view list, std::string_view filename) {
    std::size_t semicolon = list.find(';');
    if (matchItem(head, list.substr(0, semicolon), filename))
        return true;
    while (semicolon != std::string_view::npos) {
        const std::size_t next = list.find(';', semicolon + 1);
        const std::size_t itemLength = next == std::string_view::npos ? next : next - semicolon - 1;
        if (matchItem({}, list.substr(semicolon + 1, itemLength), filename))
            return true;
        semicolon = next;
    }
    return false;
}

SString toSString(std::string_view text) {
    return SString(text.data(), 0, unsigned(text.size()));
}

}   // namespace

// A name whose expansion is under way; a reference to any name on the chain expands to nothing.
struct PropSet::BlockedName {
    std::string_view name;
    const BlockedName* outer;

    static bool Contains(const BlockedName* chain, std::string_view name) {
        for (; chain; chain = chain->outer)
            if (chain->name == name)
                return true;
        return false;
    }
};

// For one walk of GetWild over one table: a pattern list written as "$(name)" is the same
// expansion for every key that uses it, so each name is expanded and split once. Only what
// matching needs is kept: whether an item before the last ';' matched, and the last item,
// which joins the text that follows ")" in the key.
struct PropSet::WildCache {
    struct Entry {
        std::string name;
        bool earlierItemMatched;
        std::string lastItem;
    };
    std::vector<Entry> entries;
};

PropSet::PropSet() : buckets{}, enumNode(nullptr), enumBucket(0), parent(nullptr) {}

PropSet::~PropSet() {
    parent = nullptr;
    Clear();
}

unsigned int PropSet::HashString(const char* s, unsigned int len) {
    unsigned int hash = 0;
    for (unsigned int i = 0; i < len; ++i)
        hash = (hash << 4) ^ static_cast<unsigned int>(static_cast<int>(static_cast<signed char>(s[i])));
    return hash;
}

const PropSet::Property* PropSet::Find(const char* key, std::size_t len) const {
    if (!key || len == 0)
        return nullptr;
    const unsigned int hash = HashString(key, unsigned(len));
    for (const Property* p = buckets[hash % hashRoots]; p; p = p->next)
        if (p->hash == hash && std::strlen(p->key) == len && std::memcmp(p->key, key, len) == 0)
            return p;
    return nullptr;
}

const char* PropSet::Lookup(const char* key, std::size_t len) const {
    int hops = 0;
    for (const PropSet* table = this; table && hops < maxParentHops; table = table->parent, ++hops)
        if (const Property* p = table->Find(key, len))
            return p->val;
    return nullptr;
}

void PropSet::Set(const char* key, const char* val, int keyLength, int valueLength) {
    const std::size_t keyLen = textLength(key, keyLength);
    if (keyLen == 0)
        return;
    const std::size_t valLen = textLength(val, valueLength);
    if (!val)
        val = "";
    if (Property* p = const_cast<Property*>(Find(key, keyLen))) {
        // The node keeps its place in the chain, so an enumeration is not disturbed.
        char* copy = SContainer::StringAllocate(val, unsigned(valLen));
        if (!copy)
            return;
        delete[] p->val;
        p->val = copy;
        return;
    }
    Property* node = new (std::nothrow) Property{HashString(key, unsigned(keyLen)), nullptr, nullptr, nullptr};
    if (!node)
        return;
    node->key = SContainer::StringAllocate(key, unsigned(keyLen));
    node->val = SContainer::StringAllocate(val, unsigned(valLen));
    if (!node->key || !node->val) {
        delete[] node->key;
        delete[] node->val;
        delete node;
        return;
    }
    Property*& head = buckets[node->hash % hashRoots];
    node->next = head;
    head = node;
}

void PropSet::SetLine(const char* start, const char* end) {
    while (start < end && isSpace(*start))
        ++start;
    if (start >= end)
        return;
    // '=' is looked for within this line only, never in a later one.
    const void* eq = std::memchr(start, '=', std::size_t(end - start));
    if (eq) {
        const char* equals = static_cast<const char*>(eq);
        Set(start, equals + 1, int(equals - start), int(end - equals - 1));
    } else {
        Set(start, "1", int(end - start), 1);
    }
}

void PropSet::Set(const char* line) {
    if (!line)
        return;
    while (isSpace(*line))
        ++line;
    SetLine(line, line + std::strcspn(line, "\n"));
}

void PropSet::SetMultiple(const char* s) {
    if (!s)
        return;
    for (;;) {
        const char* eol = std::strchr(s, '\n');
        const char* end = eol ? eol : s + std::strlen(s);
        SetLine(s, end);
        if (!eol)
            return;
        s = eol + 1;
    }
}

void PropSet::Unset(const char* key, int keyLength) {
    const std::size_t keyLen = textLength(key, keyLength);
    if (keyLen == 0)
        return;
    const unsigned int hash = HashString(key, unsigned(keyLen));
    for (Property** link = &buckets[hash % hashRoots]; *link; link = &(*link)->next) {
        Property* p = *link;
        if (p->hash == hash && std::strlen(p->key) == keyLen && std::memcmp(p->key, key, keyLen) == 0) {
            *link = p->next;
            if (enumNode == p)
                enumNode = p->next;   // the enumeration goes on with the successor
            delete[] p->key;
            delete[] p->val;
            delete p;
            return;
        }
    }
}

SString PropSet::Get(const char* key) const {
    const char* val = Lookup(key, key ? std::strlen(key) : 0);
    return SString(val ? val : "");
}

int PropSet::ExpandText(std::string& text, int maxSteps, const BlockedName* blocked) const {
    int nesting = 0;
    for (const BlockedName* b = blocked; b; b = b->outer)
        ++nesting;
    std::size_t from = 0;
    while (maxSteps >= 1) {
        std::size_t start = text.find("$(", from);
        if (start == std::string::npos)
            break;
        const std::size_t end = text.find(')', start + 2);
        if (end == std::string::npos)
            break;   // an unterminated reference stays as written
        // Nothing before the first "$(" changes, except that a '$' right before it may meet a
        // '(' that the replacement brings: the next search starts one byte earlier.
        from = start ? start - 1 : 0;
        // '$(ab$(cde))' expands the inner reference first.
        const std::string_view head(text.data(), end);
        for (std::size_t inner = head.find("$(", start + 2); inner != std::string_view::npos;
             inner = head.find("$(", start + 2))
            start = inner;
        const std::string name = text.substr(start + 2, end - start - 2);
        std::string value;
        if (!BlockedName::Contains(blocked, name))
            if (const char* v = Lookup(name.data(), name.size()))
                value = v;
        --maxSteps;
        if (nesting < maxExpandNesting) {
            const BlockedName link{name, blocked};
            maxSteps = ExpandText(value, maxSteps, &link);
        }
        text.replace(start, end - start + 1, value);
    }
    return maxSteps;
}

SString PropSet::GetExpanded(const char* key) const {
    const std::size_t keyLen = key ? std::strlen(key) : 0;
    const char* val = Lookup(key, keyLen);
    std::string text = val ? val : "";
    const BlockedName self{std::string_view(key ? key : "", keyLen), nullptr};
    ExpandText(text, expandedStepBudget, &self);
    return toSString(text);
}

SString PropSet::Expand(const char* text, int maxSteps) const {
    std::string expanded = text ? text : "";
    ExpandText(expanded, maxSteps, nullptr);
    return toSString(expanded);
}

int PropSet::GetInt(const char* key, int defaultValue) const {
    const SString val = GetExpanded(key);
    return val.length() ? val.value() : defaultValue;
}

const char* PropSet::FindWild(const char* keyPrefix, std::size_t prefixLength, const char* filename,
                              std::size_t filenameLength, WildCache& cache) const {
    const std::string_view file(filename, filenameLength);
    for (const Property* bucket : buckets) {
        for (const Property* p = bucket; p; p = p->next) {
            if (std::strncmp(p->key, keyPrefix, prefixLength) != 0)
                continue;
            const char* rest = p->key + prefixLength;   // within the key: it starts with keyPrefix
            if (*rest == '\0')
                return p->val;   // the bare key serves any file name
            const char* close = (rest[0] == '$' && rest[1] == '(') ? std::strchr(rest + 2, ')') : nullptr;
            if (!close) {
                if (matchList({}, rest, file))
                    return p->val;
                continue;
            }
            // "$(name)..." stands for the expanded value of name followed by the rest.
            const std::string_view name(rest + 2, std::size_t(close - rest - 2));
            auto entry = std::find_if(cache.entries.begin(), cache.entries.end(),
                                      [&](const WildCache::Entry& e) { return e.name == name; });
            if (entry == cache.entries.end()) {
                const std::string nameText(name);
                const SString expanded = GetExpanded(nameText.c_str());
                const std::string_view list(expanded.c_str(), expanded.length());
                const std::size_t last = list.rfind(';');
                WildCache::Entry computed{nameText, false, std::string(list)};
                if (last != std::string_view::npos) {
                    computed.earlierItemMatched = matchList({}, list.substr(0, last), file);
                    computed.lastItem = list.substr(last + 1);
                }
                cache.entries.push_back(std::move(computed));
                entry = cache.entries.end() - 1;
            }
            if (entry->earlierItemMatched || matchList(entry->lastItem, close + 1, file))
                return p->val;
        }
    }
    return nullptr;
}

SString PropSet::WildValue(const char* keyPrefix, std::size_t prefixLength, const char* filename) const {
    const std::size_t filenameLength = std::strlen(filename);
    int hops = 0;
    for (const PropSet* table = this; table && hops < maxParentHops; table = table->parent, ++hops) {
        WildCache cache;
        if (const char* val = table->FindWild(keyPrefix, prefixLength, filename, filenameLength, cache))
            return SString(val);
    }
    return SString("");
}

SString PropSet::GetWild(const char* keyPrefix, const char* filename) const {
    if (!keyPrefix)
        keyPrefix = "";
    return WildValue(keyPrefix, std::strlen(keyPrefix), filename ? filename : "");
}

SString PropSet::GetNewExpand(const char* keyPrefix, const char* filename) const {
    if (!keyPrefix)
        keyPrefix = "";
    if (!filename)
        filename = "";
    const std::string_view prefix(keyPrefix);
    const SString base = WildValue(keyPrefix, prefix.size(), filename);

    // The text is kept as `done`, which holds no "$(", and `pending`, stored backwards so that
    // a value is put in front of it in proportion to the value's length. Every replacement
    // happens at the front of `pending`, so the whole expansion is linear in its result.
    std::string done;
    std::string pending(base.c_str(), base.length());
    std::reverse(pending.begin(), pending.end());
    std::unordered_map<std::string, SString> values;   // the table doesn't change meanwhile

    for (int attempt = 0; attempt < newExpandAttempts; ++attempt) {
        while (!pending.empty() && !(pending.size() >= 2 && pending.back() == '$' &&
                                     pending[pending.size() - 2] == '(')) {
            done.push_back(pending.back());
            pending.pop_back();
        }
        if (pending.size() < 3)
            break;
        const std::size_t close = pending.rfind(')', pending.size() - 3);
        if (close == std::string::npos)
            break;   // the text stays as it is, so every further attempt would fail too
        std::string name(pending.rbegin() + 2, pending.rend() - std::ptrdiff_t(close) - 1);
        pending.resize(close);
        if (name != prefix) {
            auto known = values.find(name);
            if (known == values.end())
                known = values.emplace(name, WildValue(name.c_str(), name.size(), filename)).first;
            const SString& value = known->second;
            pending.append(std::make_reverse_iterator(value.c_str() + value.length()),
                           std::make_reverse_iterator(value.c_str()));
        }
        if (!done.empty() && done.back() == '$' && !pending.empty() && pending.back() == '(') {
            pending.push_back('$');   // a '$' left behind now starts a reference again
            done.pop_back();
        }
    }
    done.append(pending.rbegin(), pending.rend());
    return toSString(done);
}

void PropSet::Clear() {
    for (Property*& head : buckets) {
        Property* p = head;
        while (p) {
            Property* next = p->next;
            delete[] p->key;
            delete[] p->val;
            delete p;
            p = next;
        }
        head = nullptr;
    }
    enumNode = nullptr;   // no pointer to a freed node is kept; GetFirst starts anew
}

char* PropSet::ToString() const {
    std::size_t total = 0;
    for (const Property* bucket : buckets)
        for (const Property* p = bucket; p; p = p->next)
            total += std::strlen(p->key) + std::strlen(p->val) + 2;
    char* text = new (std::nothrow) char[total ? total : 1];
    if (!text)
        return nullptr;
    char* w = text;
    for (const Property* bucket : buckets) {
        for (const Property* p = bucket; p; p = p->next) {
            const std::size_t keyLen = std::strlen(p->key), valLen = std::strlen(p->val);
            std::memcpy(w, p->key, keyLen);
            w += keyLen;
            *w++ = '=';
            std::memcpy(w, p->val, valLen);
            w += valLen;
            *w++ = '\n';
        }
    }
    text[total ? total - 1 : 0] = '\0';   // replaces the final LF
    return text;
}

bool PropSet::GetFirst(char** key, char** val) {
    for (int b = 0; b < hashRoots; ++b) {
        if (Property* p = buckets[b]) {
            if (key)
                *key = p->key;
            if (val)
                *val = p->val;
            enumNode = p->next;
            enumBucket = b;
            return true;
        }
    }
    return false;
}

bool PropSet::GetNext(char** key, char** val) {
    for (int b = enumBucket; b < hashRoots; ++b) {
        Property* p = b == enumBucket ? enumNode : buckets[b];
        if (p) {
            if (key)
                *key = p->key;
            if (val)
                *val = p->val;
            enumNode = p->next;
            enumBucket = b;
            return true;
        }
    }
    return false;
}

bool PropSet::IncludesVar(const char* value, const char* key) {
    if (!value || !key)
        return false;
    const std::size_t keyLen = std::strlen(key);
    for (const char* ref = std::strstr(value, "$("); ref;) {
        if (std::strncmp(ref + 2, key, keyLen) == 0 && ref[2 + keyLen] == ')')
            return true;
        const char* close = std::strchr(ref + 2, ')');
        if (!close)
            return false;
        ref = std::strstr(close + 1, "$(");
    }
    return false;
}
