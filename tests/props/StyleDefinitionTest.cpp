// StyleDefinition: items and their bits, layering of strings, malformed strings, colour texts.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "StyleDefinition.h"

namespace {
std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }

// Every field of a definition in one line; flags are named when they differ from the default.
std::string describe(const StyleDefinition& sd) {
    char numbers[96];
    std::snprintf(numbers, sizeof numbers, "spec=%x fore=%06lx back=%06lx size=%d case=%d", unsigned(sd.specified),
                  sd.ForeAsLong(), sd.BackAsLong(), sd.size, sd.caseMode);
    std::string all = numbers;
    all += sd.font == static_cast<const char*>(nullptr) ? std::string(" font=null") : " font=" + text(sd.font);
    for (const auto& [on, name] : {std::pair{sd.bold, " bold"}, std::pair{sd.italics, " italics"},
                                   std::pair{sd.eolfilled, " eolfilled"}, std::pair{sd.underlined, " underlined"},
                                   std::pair{!sd.visible, " hidden"}, std::pair{!sd.changeable, " fixed"}})
        if (on) all += name;
    return all;
}
}  // namespace

// Each row's strings (one a line) are parsed in turn into one definition.
TEST(StyleDefinition, StringsSetTheirItemsAndLaterOnesWin) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "spec=0 fore=000000 back=ffffff size=0 case=0 font=null"},
        {"fore:#FF0000,back:#0000ff,bold,font:Arial|Courier New,size:10,italics,eolfilled,underlined,case:upper,"
         "notvisible,notchangeable",
         "spec=7ff fore=0000ff back=ff0000 size=10 case=1 font=Arial,Courier New bold italics eolfilled underlined "
         "hidden fixed"},
        {"bold,notbold,case:l", "spec=110 fore=000000 back=ffffff size=0 case=2 font=null"},
        {"bold,notbold,case:l\nitalics,case:x", "spec=130 fore=000000 back=ffffff size=0 case=0 font=null italics"},
        {"bold\ncase:lower\ncase", "spec=110 fore=000000 back=ffffff size=0 case=0 font=null bold"},
        // Names are exact (no blank, no other case); items without a value read as empty.
        {",,: , bold,Bold,BOLD,bold ,unknown:1,font:a:b,size:abc,fore,back:",
         "spec=f fore=000000 back=000000 size=0 case=0 font=a:b"},
        {"size:99999999999999,bold:ignored-value", "spec=12 fore=000000 back=ffffff size=2147483647 case=0 font=null bold"},
        {"size: -3pt", "spec=2 fore=000000 back=ffffff size=-3 case=0 font=null"},
        // Colours: the first character is skipped untested, non-digits and missing ones count 0.
        {"fore:x123456,back:#010203ffffff", "spec=c fore=563412 back=030201 size=0 case=0 font=null"},
        {"fore:#abc,back:#", "spec=c fore=00c0ab back=000000 size=0 case=0 font=null"},
        {"fore:#FG-zzzz", "spec=4 fore=0000f0 back=ffffff size=0 case=0 font=null"},
    };
    for (const auto& [strings, expected] : rows) {
        StyleDefinition sd("");
        const std::string all = strings;
        for (size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
            end = all.find('\n', start);
            sd.ParseStyleDefinition(all.substr(start, end - start).c_str());
        }
        EXPECT_EQ(describe(sd), expected) << strings;
    }
}

TEST(StyleDefinition, EmptyStringsChangeNothingAndCopiesAreIndependent) {
    StyleDefinition sd("bold");
    EXPECT_FALSE(sd.ParseStyleDefinition(""));
    EXPECT_FALSE(sd.ParseStyleDefinition(nullptr));
    EXPECT_EQ(StyleDefinition::sdBold, sd.specified);
    EXPECT_EQ("#000000", text(sd.fore));
    // A string taken from the record's own field is read before it changes.
    sd.ParseStyleDefinition("font:size:7");
    sd.ParseStyleDefinition(sd.font.c_str());
    EXPECT_EQ(7, sd.size);

    StyleDefinition a("font:Mono,fore:#102030,size:9");
    StyleDefinition b(a);
    a.ParseStyleDefinition("font:Other,fore:#000000");
    EXPECT_EQ(describe(b), "spec=7 fore=302010 back=ffffff size=9 case=0 font=Mono");
    b = a;
    b = *&b;
    EXPECT_EQ(describe(b), describe(a));
}
