// Style strings of any bytes: parse, layer a second string, convert the colours.
#include <cstddef>
#include <cstdint>
#include <string>

#include "StyleDefinition.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    StyleDefinition sd(text.c_str());
    // The part behind the first NUL, if any, is layered on top as a second string.
    const std::size_t nul = text.find('\0');
    if (nul != std::string::npos)
        sd.ParseStyleDefinition(text.c_str() + nul + 1);
    const StyleDefinition copy(sd);
    const long fore = copy.ForeAsLong(), back = copy.BackAsLong();
    if (fore < 0 || fore > 0xFFFFFF || back < 0 || back > 0xFFFFFF || (copy.specified & ~0x7FF))
        __builtin_trap();
    if (copy.caseMode < 0 || copy.caseMode > 2)
        __builtin_trap();
    return 0;
}
