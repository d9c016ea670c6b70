#include "CKTUtilTrace.h"

#include <QDir>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>

#include "CKTRegistry.h"
#include "Settings.h"

int CKTUtilTrace::GetDebugLogLevel() {
    if (const char* level = std::getenv("QUILLBOX_LOG_LEVEL")) {
        char* end = nullptr;
        long v = std::strtol(level, &end, 10);
        if (end != level) return int(v);
    }
    CKTMgrSetting setting(0);
    return settings::DebugLogLevel.Read(setting);
}

CString CKTUtilTrace::GetLogFilePath() {
    if (const char* path = std::getenv("QUILLBOX_LOG_FILE"); path && *path) return CString(path);
    return CString::fromQString(QDir::tempPath()) + "/quillbox.log";
}

void CKTUtilTrace::WriteLogFileInTemp(const char* format, ...) {
    if (!format) return;
    CString line;
    va_list args;
    va_start(args, format);
    line.FormatV(format, args);
    va_end(args);
    static std::mutex lock;
    std::lock_guard<std::mutex> guard(lock);
    if (FILE* f = std::fopen(GetLogFilePath(), "a")) {
        std::fprintf(f, "%s\n", line.c_str());
        std::fclose(f);
    }
}

CKTLogTag::~CKTLogTag() = default;
