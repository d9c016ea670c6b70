// Arbitrary bytes through the SQL window's code-language logic: both bind scanners, looped the
// way copy and paste loop them; every language's copy template; the three paste routines; and
// copy then paste, whose result must survive a second round where the round trip promises it.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "BindScanner.h"
#include "CodeLanguages.h"
#include "CopyAsCode.h"
#include "PasteFromCode.h"

namespace {

void check(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "fuzz_sqlcode: %s\n", what);
    std::abort();
}

int textLength(const CString& text) { return int(std::strlen(text.c_str())); }

// Replaces each named bind by a number, calling again directly behind the replacement.
void numberBinds(CString text, int from) {
    int start = from, end = 0, counter = 0;
    while (FindBindPosition(text, start, end)) {
        check(start >= from && start < end && end <= textLength(text), "bind outside the text or behind the scan");
        CString number;
        number.Format(":%d", ++counter);
        text = text.Left(start) + number + text.Mid(end);
        from = start = start + number.GetLength();
    }
    check(start == from, "a failed bind scan moved its start");
}

// Replaces each placeholder by a named bind, calling again directly behind the replacement.
void nameParameters(CString text, int from) {
    int position = from;
    while (FindBindReplacePosition(text, position)) {
        check(position >= from && position < textLength(text) && text[position] == '?', "placeholder misplaced");
        text = text.Left(position) + ":Bind1" + text.Mid(position + 1);
        from = position = position + 6;
    }
    check(position == from, "a failed placeholder scan moved its position");
}

// True when every CR starts a CR LF and every LF ends one.
bool crlfOnly(const std::string& s) {
    for (size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '\r' && (i + 1 == s.size() || s[i + 1] != '\n')) return false;
        if (s[i] == '\n' && (i == 0 || s[i - 1] != '\r')) return false;
    }
    return true;
}

bool keepsBinds(int language) {
    return language != LangPerl && language != LangPHP && language != LangJava && language != LangCs;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const CString text(std::string(reinterpret_cast<const char*>(data), size));
    const int from = size >= 2 ? int(int8_t(data[0])) % (int(size) + 2) : 0;   // may be negative or past the end
    numberBinds(text, 0);
    numberBinds(text, from);
    nameParameters(text, 0);
    nameParameters(text, from);

    const bool noBindBytes = std::strpbrk(text.c_str(), ":&?") == nullptr;
    for (int language = -1; language <= 9; ++language) {
        const CString code = MakeCode(language, text);
        check(crlfOnly(code.str()), "code line ends other than CR LF");
        CString back;
        if (!PasteFromCode(language, text, back)) {
            check(code.IsEmpty() && (language < 0 || language > 8), "unknown language made code");
            continue;
        }
        PasteFromCode(language, code, back);
        // A result in normal form comes back unchanged from a second round.
        std::string body = back.str();
        if (language == LangJava || language == LangCs) body.erase(0, body.find('\n') + 1);
        if (body.ends_with(" \r\n") && (keepsBinds(language) || noBindBytes)) {
            CString again;
            PasteFromCode(language, MakeCode(language, body), again);
            check(again == back, "normal form changed in a second round");
        }
    }
    PasteFromLanguageCode(char(size ? data[size - 1] : 0), text);
    PasteFromCCode(text);
    PasteFromJavaCode(text);
    return 0;
}
