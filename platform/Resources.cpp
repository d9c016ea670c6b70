#include "Resources.h"

#include <QCoreApplication>
#include <map>
#include <mutex>
#include <string>

namespace {
struct StringTable {
    std::mutex lock;
    std::map<unsigned int, std::string> source;      // untranslated texts
    std::map<unsigned int, std::string> translated;  // last translation handed out, per id
};

StringTable& table() {
    static StringTable* t = [] {
        auto* t = new StringTable;
        // The library's own strings. Translations key on these texts (context "Quillbox").
        t->source = {
            {1016, QT_TRANSLATE_NOOP("Quillbox", "Failed to save file")},
            {1017, QT_TRANSLATE_NOOP("Quillbox", "SQL Files (*.sql)|*.sql|Text files (*.txt)|*.txt|All Files (*.*)|*.*||")},
            {1018, QT_TRANSLATE_NOOP("Quillbox", "ANSI")},
            {1019, QT_TRANSLATE_NOOP("Quillbox", "Unicode")},
            {8200, QT_TRANSLATE_NOOP("Quillbox", "Can not start printer document.")},
            {8201, QT_TRANSLATE_NOOP("Quillbox", "Cannot transform text line end due to lack of memory")},
            {8202, QT_TRANSLATE_NOOP("Quillbox", "Cannot transform text line end")},
            {2300, QT_TRANSLATE_NOOP("Quillbox", "Error")},
            {2301, QT_TRANSLATE_NOOP("Quillbox", "Cannot Load Menu")},
        };
        return t;
    }();
    return *t;
}
}  // namespace

const char* LoadResourceString(unsigned int id) {
    StringTable& t = table();
    std::lock_guard<std::mutex> guard(t.lock);
    auto it = t.source.find(id);
    if (it == t.source.end()) return nullptr;
    std::string text = it->second;
    if (QCoreApplication::instance())
        text = QCoreApplication::translate("Quillbox", it->second.c_str()).toUtf8().toStdString();
    std::string& slot = t.translated[id];
    slot = std::move(text);
    return slot.c_str();
}

void RegisterResourceString(unsigned int id, const char* text) {
    StringTable& t = table();
    std::lock_guard<std::mutex> guard(t.lock);
    t.source[id] = text ? text : "";
}
