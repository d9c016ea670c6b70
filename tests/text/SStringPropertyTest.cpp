// Seeded random edits on an SString mirrored on a std::string: texts and searches agree at every step.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "SString.h"

namespace {

const char* const pieces[] = {"a", "b", "A", "ab", "é", "SELECT", " ", "aa"};

std::string changedCase(std::string s, std::size_t pos, std::size_t len, bool upper) {
    for (std::size_t i = pos; i < s.size() && i - pos < len; ++i) {
        if (const char from = upper ? 'a' : 'A'; s[i] >= from && s[i] <= from + 25)
            s[i] = char(s[i] + (upper ? 'A' - 'a' : 'a' - 'A'));
    }
    return s;
}

int substituted(std::string& s, const std::string& pattern, const std::string& replacement) {
    int count = 0;
    for (std::size_t pos = s.find(pattern); pos != std::string::npos;) {
        s.replace(pos, pattern.size(), replacement);
        ++count;
        const std::size_t next = pos + replacement.size();
        pos = next >= s.size() ? std::string::npos : s.find(pattern, next);
    }
    return count;
}

}   // namespace

TEST(SStringProperty, RandomEditsMatchStdString) {
    std::mt19937 rng(20240611);
    auto below = [&](std::size_t n) { return unsigned(std::uniform_int_distribution<std::size_t>(0, n - 1)(rng)); };
    auto piece = [&] { return std::string(pieces[below(std::size(pieces))]); };

    SString s;
    std::string ref;
    for (int step = 0; step < 5000; ++step) {
        const unsigned int size = unsigned(ref.size());
        const unsigned int pos = below(size + 2), len = below(6);
        const std::string p = piece(), q = below(4) ? piece() : std::string();
        switch (below(11)) {
        case 0: {
            const char sep = below(2) ? ',' : '\0';
            s.append(p.c_str(), SString::measureLength, sep);
            ref += (sep && !ref.empty() ? "," : "") + p;
            break;
        }
        case 1:
            s.insert(pos, p.c_str());
            if (pos <= size) ref.insert(pos, p);
            break;
        case 2:
            s.remove(pos, len);
            if (pos < size && (len == 0 || pos + len >= size))
                ref.resize(pos);   // a zero length cuts, as a range past the end does
            else if (pos < size)
                ref.erase(pos, len);
            break;
        case 3: {
            const int expected = int(std::count(ref.begin(), ref.end(), 'a'));
            std::replace(ref.begin(), ref.end(), 'a', 'B');
            ASSERT_EQ(expected, s.substitute('a', 'B'));
            break;
        }
        case 4:
            if (!ref.empty()) {
                ASSERT_EQ(substituted(ref, p, q), s.substitute(p.c_str(), q.c_str())) << "step " << step;
            }
            break;
        case 5: {
            const bool upper = below(2);
            upper ? s.uppercase(pos, len) : s.lowercase(pos, len);
            if (pos < size) ref = changedCase(ref, pos, len, upper);
            break;
        }
        case 6:   // a piece of the string's own text, appended or assigned
            if (pos <= size) {
                const unsigned int n = below(size - pos + 1);
                if (below(2)) {
                    s.append(s.c_str() + pos, n);
                    ref += ref.substr(pos, n);
                } else {
                    s = s.c_str() + pos;
                    ref.erase(0, pos);
                }
            }
            break;
        case 7:
            s.change(pos, 'z');
            if (pos < size) ref[pos] = 'z';
            break;
        case 8:
            s = s.substr(pos, len);
            ref = pos < size ? ref.substr(pos, len) : std::string();
            break;
        case 9: s += 'x'; ref += 'x'; break;
        default:
            if (below(8) == 0 || size > 4000) s.clear(), ref.clear();
        }
        ASSERT_EQ(ref, std::string(s.c_str(), s.length())) << "step " << step;
        ASSERT_EQ('\0', s.c_str()[s.length()]);
        ASSERT_LE(s.length(), s.size());
        ASSERT_EQ(!ref.empty() && ref.find(p) != std::string::npos, s.contains(p.c_str()));
        ASSERT_EQ(pos < ref.size() && ref.find(p, pos) != std::string::npos ? int(ref.find(p, pos)) : -1,
                  s.search(p.c_str(), pos));
        ASSERT_EQ(ref.starts_with(p), s.startswith(p.c_str()));
        ASSERT_EQ(ref.ends_with(p), s.endswith(p.c_str()));
    }
}
