#pragma once
// The text of a completion request, read without a database: the dotted name typed at the
// caret, and the aliases that the statement around it binds.
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace namekit {

std::string LowerAscii(std::string_view s);
// A byte of a bare identifier: ASCII letters and digits, '_', '$' and every byte above 0x7F.
bool IsIdentByte(char c);

// One part of a dotted name: bare ("ord"), or quoted ("\"Order Lines\"", [x], `x`).
struct NamePart {
    std::string raw;    // as typed, quotes included
    std::string value;  // the name inside the quotes
    char quote = 0;     // the opening quote character, 0 for a bare part
};
// The parts between the dots that stand outside quotes; at least one, possibly empty. A quote
// doubled inside its quotes stands for itself; an unclosed quote runs to the end. The raw
// parts joined by '.' give the name back byte for byte.
std::vector<NamePart> SplitName(std::string_view name);

// An item the editor can insert as it stands: plain identifiers bare, others quoted the way
// the user started (double quotes unless a [ or ` was typed).
std::string ItemText(const std::string& name, char quote);

struct TableRef {
    std::string schemaKey;  // empty when unqualified
    std::string tableKey;
};
// The aliases a query binds, by lower-cased alias: `from t a`, `from t as a`, `join s.t a on
// ...`, comma lists and quoted identifiers. Strings and comments are skipped; sub-queries are
// scanned as well, since their own from clauses bind aliases the same way.
std::map<std::string, TableRef> ReadAliases(std::string_view query);

}  // namespace namekit
