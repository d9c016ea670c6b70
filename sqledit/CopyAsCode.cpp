#include "CopyAsCode.h"

#include <string>
#include <string_view>
#include <vector>

#include "BindScanner.h"

namespace {

enum class Binds { Keep, Number, Placeholder };

// The rows of the languages written as one literal joined over lines. Perl and PHP go through
// CopyToPerlCode, which numbers binds and fixes no wraps, " = " and alignment; their rows hold
// the same values.
struct LiteralRow {
    EM_LangCode code;
    const char *variable, *quote, *openWrap, *closeWrap, *escape, *continuation, *lineTail, *terminator,
        *assign;
    bool alignToVariable, numberBinds;
};

constexpr LiteralRow kLiteralRows[] = {
    {LangVb, "SQL", "\"", "", "", "\"", "SQL = SQL + ", "", "", "=", false, false},
    {LangC, "pszSQL", "\"", "", "", "\\", "", "", ";", "=", true, false},
    {LangPb, "SQL", "\"", "", "", "~", "+", "&", "", "=", true, false},
    {LangDelphi, "sSQL", "'", "", "", "'", "+", "", ";", ":=", true, false},
    {LangMfc, "CString sQuery", "\"", "_T(", ")", "\\", "", "", ";", "=", true, false},
    {LangPerl, "my $stmt", "'", "", "", "\\", ".", "", ";", "=", true, true},
    {LangPHP, "$query", "\"", "", "", "\\", ".", "", ";", "=", true, true},
};

// The rows of the languages that build the text with a string builder.
struct BuilderRow {
    EM_LangCode code;
    const char *variable, *builderType, *appendMethod;
};

constexpr BuilderRow kBuilderRows[] = {
    {LangJava, "strSQL", "StringBuffer", "append"},
    {LangCs, "SB", "StringBuilder", "AppendLine"},
};

struct Pieces {
    std::vector<CString> kept;
    bool single = false;   // the range had no line end, and `kept` holds its one piece, maybe empty
};

// The engine's lines of the range, each with its line end.
std::vector<std::string_view> rangeLines(std::string_view text) {
    std::vector<std::string_view> lines;
    size_t begin = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        if (text[i] == '\r' || text[i] == '\n') {
            lines.push_back(text.substr(begin, i + 1 - begin));
            begin = i + 1;
        }
    }
    lines.push_back(text.substr(begin));
    return lines;
}

// Each bind replaced, the scan going on directly behind the replacement. The scanner knows
// nothing before its start, so that is the same as scanning the original from the bind's end.
CString rewriteBinds(std::string_view piece, Binds binds, int& counter) {
    if (binds == Binds::Keep) return CString(piece);
    std::string out;
    int from = 0, start = 0, end = 0;
    while (FindBindIn(piece, from, start, end)) {
        out.append(piece.substr(size_t(from), size_t(start - from)));
        out += binds == Binds::Placeholder ? std::string("?") : ":" + std::to_string(++counter);
        from = end;
    }
    out.append(piece.substr(size_t(from)));
    return CString(std::move(out));
}

// The pieces that reach the output, each treated in order: binds, escapes, trailing white space,
// and on the last line of the range the statement end.
Pieces piecesOf(const CString& sql, const CString& quote, const CString& escape, Binds binds) {
    const std::vector<std::string_view> lines = rangeLines(std::string_view(sql.c_str()));
    Pieces pieces;
    pieces.single = lines.size() == 1;
    int counter = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].empty() && !pieces.single) continue;
        CString piece = rewriteBinds(lines[i], binds, counter);
        piece.Replace(quote, escape + quote);
        piece.TrimRight();
        if (i + 1 == lines.size()) {
            for (int n = piece.GetLength(); n > 0 && (piece[n - 1] == ';' || piece[n - 1] == '/');
                 n = piece.GetLength()) {
                piece.Delete(n - 1);
                piece.TrimRight();
            }
        }
        if (!piece.IsEmpty() || pieces.single) pieces.kept.push_back(piece);
    }
    return pieces;
}

CString literalCode(const Pieces& pieces, const CString& variable, const CString& quote, const CString& openWrap,
                    const CString& closeWrap, const CString& continuation, const CString& lineTail,
                    const CString& terminator, CString assign, bool alignToVariable) {
    const CString open = openWrap + quote, close = quote + closeWrap;
    assign.Trim();
    const CString assignment = " " + (assign.IsEmpty() ? CString("=") : assign) + " ";
    CString prefix;
    if (alignToVariable) prefix.Format("%*c", variable.GetLength(), ' ');
    if (continuation.IsEmpty())
        prefix += "   ";
    else
        prefix += (alignToVariable ? " " : "") + continuation + " ";

    CString code;
    for (size_t i = 0; i < pieces.kept.size(); ++i) {
        const CString& piece = pieces.kept[i];
        if (pieces.single)
            code = variable + assignment + open + piece + close;
        else if (i == 0)
            code = variable + assignment + open + piece + " " + close;
        else
            code += " " + lineTail + "\r\n" + prefix + open + piece + " " + close;
    }
    if (!code.IsEmpty() && !terminator.IsEmpty()) code += " " + terminator;
    return code;
}

}  // namespace

CString CopyToLanguageCodeEx2(const CString& sql, const CString& variable, const CString& quote,
                              const CString& openWrap, const CString& closeWrap, const CString& escape,
                              const CString& continuation, const CString& lineTail, const CString& terminator,
                              const CString& assign, bool alignToVariable) {
    return literalCode(piecesOf(sql, quote, escape, Binds::Keep), variable, quote, openWrap, closeWrap,
                       continuation, lineTail, terminator, assign, alignToVariable);
}

CString CopyToPerlCode(const CString& sql, const CString& variable, const CString& quote, const CString& escape,
                       const CString& continuation, const CString& lineTail, const CString& terminator) {
    return literalCode(piecesOf(sql, quote, escape, Binds::Number), variable, quote, "", "", continuation,
                       lineTail, terminator, "=", true);
}

CString CopyToJavaCode(const CString& sql, const CString& variable, const CString& builderType,
                       const CString& appendMethod) {
    CString code;
    for (const CString& piece : piecesOf(sql, "\"", "\\", Binds::Placeholder).kept) {
        if (piece.IsEmpty()) continue;
        if (code.IsEmpty()) code = builderType + " " + variable + " = new " + builderType + "();\r\n";
        code += variable + "." + appendMethod + "(\"" + piece + " \");\r\n";
    }
    return code;
}

CString MakeCode(int code, const CString& sql) {
    for (const LiteralRow& r : kLiteralRows) {
        if (r.code != code) continue;
        if (r.numberBinds)
            return CopyToPerlCode(sql, r.variable, r.quote, r.escape, r.continuation, r.lineTail, r.terminator);
        return CopyToLanguageCodeEx2(sql, r.variable, r.quote, r.openWrap, r.closeWrap, r.escape, r.continuation,
                                     r.lineTail, r.terminator, r.assign, r.alignToVariable);
    }
    for (const BuilderRow& r : kBuilderRows)
        if (r.code == code) return CopyToJavaCode(sql, r.variable, r.builderType, r.appendMethod);
    return CString();
}
