// The fuzzed code's trace lines are dropped: a fuzz run must not grow a log file, and the
// targets then need none of the settings code behind the real trace.
#include "CKTUtilTrace.h"

void CKTUtilTrace::WriteLogFileInTemp(const char*, ...) {}
