#include "ColourTheme.h"

#include <algorithm>
#include <cmath>

namespace {
const ColourTheme kLight{
    false,
    {0x000000, 0x0000FF, 0x000080, 0xFF0000, 0x800080, 0x009100},
    ColourTheme::kEngineDefault,  // the system's window colour
    0xC0C0C0,
    0xFFD6AD,
    0xD7D7D7,
    0x000000,
    0x7F7F7F,
    0xF3EDE6,
    0x000000,
    0xC0C0C0,
    ColourTheme::kEngineDefault,
    0xFFFFFF,
    0x808080,
    0x0000E1,
    0xD7D7D7,
    0x0000FF,
    0x00E0E0,
    0x0080FF,
    110,
    0x06009C,
    0xE8E8FF,
    0x0000E0,
};

const ColourTheme kDark{
    true,
    {0xD4D4D4, 0xA8CEB5, 0x7891CE, 0xD69C56, 0xAADCDC, 0x55996A},
    0x1E1E1E,
    0x303030,
    0x784F26,
    0x4F4A45,
    0xADAFAE,
    0x909090,
    0x2E2D2A,
    0x909090,
    0x262525,
    0x262525,
    0x262525,
    0x9A9A9A,
    0x00D7FF,
    0x4A4A4A,
    0x4747F4,
    0x1F6060,
    0x1E8AE0,
    100,
    0xB4B4FF,
    0x1E1E4B,
    0x4747F4,
};

double channel(unsigned value) {
    const double c = value / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF colour) {
    return 0.2126 * channel(colour & 0xFF) + 0.7152 * channel((colour >> 8) & 0xFF) +
           0.0722 * channel((colour >> 16) & 0xFF);
}

COLORREF mix(COLORREF from, COLORREF to, double share) {
    COLORREF result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const double a = (from >> shift) & 0xFF, b = (to >> shift) & 0xFF;
        result |= COLORREF(std::lround(a + (b - a) * share)) << shift;
    }
    return result;
}
}  // namespace

const ColourTheme& ColourTheme::ForSetting(int theme) { return theme == 1 ? kDark : kLight; }

double ContrastRatio(COLORREF a, COLORREF b) {
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

COLORREF WithContrast(COLORREF fore, COLORREF back, double ratio) {
    if (ContrastRatio(fore, back) >= ratio) return fore;
    const COLORREF target = luminance(back) < 0.5 ? 0xFFFFFF : 0x000000;
    for (int step = 1; step <= 10; ++step) {
        const COLORREF moved = mix(fore, target, step / 10.0);
        if (ContrastRatio(moved, back) >= ratio) return moved;
    }
    return target;
}
