#pragma once
// StyleDefinition: one parsed style string of a property file, such as
// "fore:#FF0000,back:#FFFFFF,bold,font:Courier,size:10". Items are separated by ','; an item
// is a name or "name:value" (split at the first ':'). Names are exact and case-sensitive.
// `specified` records which attributes a string has named, so that only those reach the
// engine.
#include "QuillboxExport.h"
#include "SString.h"

class QUILLBOX_EXPORT StyleDefinition {
public:
    // Bits of `specified`.
    enum Flags {
        sdNone = 0x000,
        sdFont = 0x001,
        sdSize = 0x002,
        sdFore = 0x004,
        sdBack = 0x008,
        sdBold = 0x010,
        sdItalics = 0x020,
        sdEOLFilled = 0x040,
        sdUnderlined = 0x080,
        sdCaseForce = 0x100,
        sdVisible = 0x200,
        sdChangeable = 0x400,
    };

    SString font;               // font name, or a comma list of names; null when unnamed
    int size = 0;               // points
    SString fore = "#000000";   // colour texts "#RRGGBB"
    SString back = "#FFFFFF";
    bool bold = false;
    bool italics = false;
    bool eolfilled = false;
    bool underlined = false;
    int caseMode = 0;           // 0 as written, 1 upper, 2 lower (SC_CASE_MIXED/UPPER/LOWER)
    bool visible = true;
    bool changeable = true;
    int specified = sdNone;

    StyleDefinition(const char* definition = nullptr);
    StyleDefinition(const StyleDefinition& source) = default;
    StyleDefinition& operator=(const StyleDefinition& source) = default;
    ~StyleDefinition() = default;

    // Applies the string's items, left to right, on top of what the record holds. False, with
    // nothing changed, for a null or empty string.
    bool ParseStyleDefinition(const char* definition);

    // The colour as the engine takes it, 0xBBGGRR. The text's first character (the '#') is
    // skipped; each pair of the next six characters is one channel; a character that is not a
    // hexadecimal digit, or is missing, counts 0.
    long ForeAsLong() const { return ColourFromText(fore); }
    long BackAsLong() const { return ColourFromText(back); }

private:
    static long ColourFromText(const SString& colour);
};
