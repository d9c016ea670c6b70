#pragma once
// Case files: inputs and expected results kept byte for byte under tests/data/<area>/, so that
// a case is added or changed without touching code. Nothing in them is converted: line ends,
// NUL bytes and a missing final line end are part of the case.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// The files of tests/data/<area> whose names end in `extension`, in name order.
inline std::vector<std::filesystem::path> CaseFiles(const char* area, const char* extension) {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(QUILLBOX_TEST_DATA) / area))
        if (entry.path().extension() == extension) found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

inline std::string ReadCase(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
