#pragma once
// Text transforms the engine layer performs itself, on UTF-8 text.
#include <string>
#include <string_view>

#include "WinTypes.h"

// The text with its case changed: SCI_CASE_UPPER and kCaseLower change every letter,
// SCI_CASE_INVERT swaps the case of every letter,
// SCI_CASE_SENTENCE lowers everything and raises the first letter of each sentence,
// SCI_CASE_CAPITALISE raises the first letter of each word and lowers the rest. Letters
// beyond ASCII change too; bytes that are not valid UTF-8 are kept as they are.
// Lower-casing, which has no SCI_UPPERCASE mode of its own (SCI_LOWERCASE asks for it).
constexpr int kCaseLower = 4;

QUILLBOX_EXPORT std::string ChangeCaseUtf8(std::string_view text, int mode);
