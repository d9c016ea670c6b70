// StyleDefinition: items and their bits, layering of strings, malformed strings, colour texts.
#include <gtest/gtest.h>

#include <string>

#include "StyleDefinition.h"

namespace {
std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }
}   // namespace

TEST(StyleDefinition, FullStringSetsEveryAttributeAndBit) {
    const StyleDefinition sd("fore:#FF0000,back:#0000ff,bold,font:Arial|Courier New,size:10,"
                             "italics,eolfilled,underlined,case:upper,notvisible,notchangeable");
    EXPECT_EQ(0x7FF, sd.specified);
    EXPECT_EQ(0x0000FFL, sd.ForeAsLong());
    EXPECT_EQ(0xFF0000L, sd.BackAsLong());
    EXPECT_EQ("Arial,Courier New", text(sd.font));
    EXPECT_EQ(10, sd.size);
    EXPECT_TRUE(sd.bold && sd.italics && sd.eolfilled && sd.underlined);
    EXPECT_EQ(1, sd.caseMode);
    EXPECT_FALSE(sd.visible || sd.changeable);
}

TEST(StyleDefinition, EmptyAndNullStringsChangeNothing) {
    StyleDefinition sd("");
    EXPECT_EQ(0, sd.specified);
    EXPECT_TRUE(sd.font == static_cast<const char*>(nullptr));   // null until named
    EXPECT_EQ("#000000", text(sd.fore));
    EXPECT_EQ(0xFFFFFFL, sd.BackAsLong());
    EXPECT_TRUE(sd.visible && sd.changeable);
    EXPECT_FALSE(sd.ParseStyleDefinition(""));
    EXPECT_FALSE(sd.ParseStyleDefinition(nullptr));
    EXPECT_EQ(0, sd.specified);
}

TEST(StyleDefinition, LaterItemsAndLaterStringsWin) {
    StyleDefinition sd("bold,notbold,case:l");
    EXPECT_FALSE(sd.bold);
    EXPECT_EQ(StyleDefinition::sdBold | StyleDefinition::sdCaseForce, sd.specified);
    EXPECT_EQ(2, sd.caseMode);
    EXPECT_TRUE(sd.ParseStyleDefinition("italics,case:x"));
    EXPECT_TRUE(sd.italics && !sd.bold);   // bold kept from the first string
    EXPECT_EQ(0, sd.caseMode);
    EXPECT_EQ(StyleDefinition::sdBold | StyleDefinition::sdCaseForce | StyleDefinition::sdItalics, sd.specified);
    sd.ParseStyleDefinition("case");
    EXPECT_EQ(0, sd.caseMode);
    // A string taken from the record's own field is read before it changes.
    sd.ParseStyleDefinition("font:size:7");
    sd.ParseStyleDefinition(sd.font.c_str());
    EXPECT_EQ(7, sd.size);
}

TEST(StyleDefinition, MalformedItemsAreIgnoredOrReadAsFarAsTheyGo) {
    StyleDefinition sd(",,: , bold,Bold,BOLD,bold ,unknown:1,font:a:b,size:abc,fore,back:");
    EXPECT_FALSE(sd.bold);   // names are exact: no blank, no other case
    EXPECT_EQ("a:b", text(sd.font));
    EXPECT_EQ(0, sd.size);
    EXPECT_EQ("", text(sd.fore));   // named without value: empty, colour 0
    EXPECT_EQ(0L, sd.ForeAsLong());
    EXPECT_EQ(0L, sd.BackAsLong());
    EXPECT_EQ(StyleDefinition::sdFont | StyleDefinition::sdSize | StyleDefinition::sdFore | StyleDefinition::sdBack,
              sd.specified);

    StyleDefinition numbers("size:99999999999999,bold:ignored-value");
    EXPECT_EQ(2147483647, numbers.size);   // clamped, not undefined
    EXPECT_TRUE(numbers.bold);
    numbers.ParseStyleDefinition("size: -3pt");
    EXPECT_EQ(-3, numbers.size);

    // Colour texts: the first character is skipped untested, non-digits and missing ones count 0.
    const std::pair<const char*, long> colours[] = {
        {"fore:x123456", 0x563412L}, {"fore:#abc", 0x00C0ABL}, {"fore:#FG-zzzz", 0x0000F0L},
        {"back:#", 0x000000L}, {"back:#010203ffffff", 0x030201L}};
    for (const auto& [style, colour] : colours) {
        const StyleDefinition def(style);
        EXPECT_EQ(colour, style[0] == 'f' ? def.ForeAsLong() : def.BackAsLong()) << style;
    }
}

TEST(StyleDefinition, CopiesAreIndependent) {
    StyleDefinition a("font:Mono,fore:#102030,size:9");
    StyleDefinition b(a);
    a.ParseStyleDefinition("font:Other,fore:#000000");
    EXPECT_EQ("Mono", text(b.font));
    EXPECT_EQ(0x302010L, b.ForeAsLong());
    b = a;
    b = *&b;
    EXPECT_EQ("Other", text(b.font));
    EXPECT_EQ(a.specified, b.specified);
}
