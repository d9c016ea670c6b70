#pragma once
// The library's string table. Texts are UTF-8; the user-interface language's translation is
// applied when a string is loaded. A host may add strings of its own (for example id 277).
#include "QuillboxExport.h"

// The text of string `id`, translated, or null when no such string exists. The pointer stays
// valid until the same id is loaded again.
QUILLBOX_EXPORT const char* LoadResourceString(unsigned int id);

// Adds or replaces a string of the table (a host's own resources).
QUILLBOX_EXPORT void RegisterResourceString(unsigned int id, const char* text);
