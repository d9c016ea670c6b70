#include "StyleDefinition.h"

#include <climits>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

SString toSString(std::string_view text) {
    return SString(text.data(), 0, unsigned(text.size()));
}

// The number at the text's start as atoi reads it, kept within int.
int leadingInt(std::string_view text) {
    const std::string number(text);
    const long value = std::strtol(number.c_str(), nullptr, 10);
    return value < INT_MIN ? INT_MIN : value > INT_MAX ? INT_MAX : int(value);
}

int hexDigit(char ch) {
    if (ch >= '0' && ch <= '9')
        return ch - '0';
    if (ch >= 'a' && ch <= 'f')
        return ch - 'a' + 10;
    if (ch >= 'A' && ch <= 'F')
        return ch - 'A' + 10;
    return 0;
}

}   // namespace

StyleDefinition::StyleDefinition(const char* definition) {
    ParseStyleDefinition(definition);
}

bool StyleDefinition::ParseStyleDefinition(const char* definition) {
    if (!definition || !*definition)
        return false;
    // A copy, so that a definition taken from this record's own strings stays intact.
    const std::string text(definition);
    std::string_view rest(text);
    for (;;) {
        const std::size_t comma = rest.find(',');
        const std::string_view item = rest.substr(0, comma);
        const std::size_t colon = item.find(':');
        const std::string_view name = item.substr(0, colon);
        const std::string_view value = colon == std::string_view::npos ? std::string_view("")
                                                                       : item.substr(colon + 1);
        struct Switch {
            const char* on;
            const char* off;
            bool StyleDefinition::*field;
            int flag;
        };
        static constexpr Switch switches[] = {
            {"italics", "notitalics", &StyleDefinition::italics, sdItalics},
            {"bold", "notbold", &StyleDefinition::bold, sdBold},
            {"eolfilled", "noteolfilled", &StyleDefinition::eolfilled, sdEOLFilled},
            {"underlined", "notunderlined", &StyleDefinition::underlined, sdUnderlined},
            {"visible", "notvisible", &StyleDefinition::visible, sdVisible},
            {"changeable", "notchangeable", &StyleDefinition::changeable, sdChangeable},
        };
        for (const Switch& s : switches) {
            if (name == s.on || name == s.off) {
                this->*s.field = name == s.on;
                specified |= s.flag;
            }
        }
        if (name == "font") {
            font = toSString(value);
            font.substitute('|', ',');   // a ',' can't stand in an item, so lists use '|'
            specified |= sdFont;
        } else if (name == "fore") {
            fore = toSString(value);
            specified |= sdFore;
        } else if (name == "back") {
            back = toSString(value);
            specified |= sdBack;
        } else if (name == "size") {
            size = leadingInt(value);
            specified |= sdSize;
        } else if (name == "case") {
            const char first = value.empty() ? '\0' : value.front();
            caseMode = first == 'u' ? 1 : first == 'l' ? 2 : 0;
            specified |= sdCaseForce;
        }
        if (comma == std::string_view::npos)
            break;
        rest.remove_prefix(comma + 1);
    }
    return true;
}

long StyleDefinition::ColourFromText(const SString& colour) {
    const auto digit = [&](unsigned int i) { return i < colour.length() ? hexDigit(colour.c_str()[i]) : 0; };
    const long red = digit(1) * 16 + digit(2);
    const long green = digit(3) * 16 + digit(4);
    const long blue = digit(5) * 16 + digit(6);
    return red | (green << 8) | (blue << 16);
}
