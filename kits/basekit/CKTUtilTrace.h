#pragma once
// Trace lines of the library, appended to "quillbox.log" in the temporary folder. Writing
// never fails visibly: a trace that cannot be written is dropped.
#include "CString.h"

class QUILLBOX_EXPORT CKTUtilTrace {
public:
    // The trace level: QUILLBOX_LOG_LEVEL when set to a number, else the setting
    // "Debug Log Level", else 0. Level 9 and above asks for entry traces.
    static int GetDebugLogLevel();
    static void WriteLogFileInTemp(const char* format, ...) __attribute__((format(printf, 1, 2)));
    // The file the lines go to; QUILLBOX_LOG_FILE overrides the default.
    static CString GetLogFilePath();
};

// Kept for callers that make one on the stack to mark a scope; it does nothing.
class QUILLBOX_EXPORT CKTLogTag {
public:
    CKTLogTag() = default;
    ~CKTLogTag();
};
