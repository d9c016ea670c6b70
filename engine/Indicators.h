#pragma once
// The indicators the library draws over the text, each one number of the range the engine
// leaves to its container.
// Regenerate with scripts/gen-scintilla-constants.py when the engine changes.

// clang-format off
namespace indicator {
// Every visible occurrence of the selected word.
constexpr int WordHighlight = 29;
// The match Find Next selected, drawn above the word highlight.
constexpr int CurrentMatch = 30;
// A host's annotated range; its value is the annotation's id.
constexpr int Annotation = 31;
}  // namespace indicator
// clang-format on
