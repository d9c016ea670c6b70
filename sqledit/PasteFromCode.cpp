#include "PasteFromCode.h"

#include <string>
#include <string_view>

#include "BindScanner.h"
#include "CodeLanguages.h"

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";
constexpr size_t npos = std::string_view::npos;

std::string_view trimmedRight(std::string_view s) {
    const size_t last = s.find_last_not_of(kWhiteSpace);
    return s.substr(0, last == npos ? 0 : last + 1);
}

// Calls `visit` with each line of `text`, up to and including its LF.
template <class Visit>
void forEachLine(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const size_t lf = text.find('\n');
        const size_t length = lf == npos ? text.size() : lf + 1;
        visit(text.substr(0, length));
        text.remove_prefix(length);
    }
}

// Every escape pair (the escape character, then the quote) replaced by the quote, left to right.
std::string unescaped(std::string_view content, char escape, char quote) {
    std::string out;
    for (size_t i = 0; i < content.size(); ++i) {
        if (content[i] == escape && i + 1 < content.size() && content[i + 1] == quote) ++i;
        out += content[i];
    }
    return out;
}

std::string numberedPlaceholders(const std::string& content, int& counter) {
    std::string out;
    int from = 0;
    for (int at; (at = FindPlaceholderIn(content, from)) >= 0; from = at + 1) {
        out.append(content, size_t(from), size_t(at - from));
        out += ":Bind" + std::to_string(++counter);
    }
    out.append(content, size_t(from));
    return out;
}

// The general routine, and with `numberPlaceholders` the one for Java and C#. A line whose first
// quote is its last character, or has no partner behind it, passes raw like a line without one.
CString readLiterals(std::string_view text, char escape, bool numberPlaceholders) {
    std::string out;
    int counter = 0;
    forEachLine(text, [&](std::string_view raw) {
        const std::string_view line = trimmedRight(raw);
        if (line.empty()) return;
        const size_t first = line.find_first_of("\"'");
        const std::string_view after = first == npos ? std::string_view() : line.substr(first + 1);
        const size_t close = after.empty() ? npos : after.rfind(line[first]);
        if (close == npos) {
            out += raw;
            return;
        }
        std::string content = unescaped(after.substr(0, close), escape, line[first]);
        if (numberPlaceholders) content = numberedPlaceholders(content, counter);
        out += content;
        out += "\r\n";
    });
    // A final ';' does not come back, and the line end goes with it.
    std::string_view end = trimmedRight(out);
    if (!end.empty() && end.back() == ';') {
        while (!end.empty() && end.back() == ';') end = trimmedRight(end.substr(0, end.size() - 1));
        out.resize(end.size());
    }
    return CString(std::move(out));
}

}  // namespace

CString PasteFromLanguageCode(char escape, const CString& text) {
    return readLiterals(std::string_view(text.c_str()), escape, false);
}

CString PasteFromJavaCode(const CString& text) { return readLiterals(std::string_view(text.c_str()), '\\', true); }

CString PasteFromCCode(const CString& text) {
    const std::string_view source(text.c_str());
    if (source.find('\\') == npos) return PasteFromLanguageCode('\\', text);
    std::string rewritten;
    bool continued = false;   // the line before ended in a backslash, inside a literal
    forEachLine(source, [&](std::string_view raw) {
        const std::string_view line = trimmedRight(raw);
        if (line.empty()) return;
        std::string_view cut = line;
        const size_t first = line.find_first_of("\"'");
        if (first != npos && first + 1 < line.size()) {
            const std::string_view after = line.substr(first + 1);
            const size_t quote = after.rfind(line[first]), backslash = after.rfind('\\');
            if (quote != npos)
                cut = after.substr(0, quote);
            else if (backslash != npos)
                cut = after.substr(0, backslash);
            else if (continued && line[first] == '"')
                cut = line.substr(0, first);
            else
                cut = after;
        } else if (const size_t backslash = line.rfind('\\'); backslash != npos) {
            cut = line.substr(0, backslash);
        } else if (const size_t quote = line.rfind('"'); quote != npos) {
            cut = line.substr(0, quote);
        }
        rewritten += '"';
        rewritten += cut;
        rewritten += "\"\r\n";
        continued = line.back() == '\\';
    });
    return readLiterals(rewritten, '\\', false);
}

bool PasteFromCode(int code, const CString& text, CString& sql) {
    const CodeLanguage* language = FindCodeLanguage(code);
    if (!language) return false;
    switch (language->paste) {
    case PasteRoutine::Language: sql = PasteFromLanguageCode(language->pasteEscape, text); break;
    case PasteRoutine::CFamily: sql = PasteFromCCode(text); break;
    case PasteRoutine::Java: sql = PasteFromJavaCode(text); break;
    }
    return true;
}
