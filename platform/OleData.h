#pragma once
// Clipboard formats and the data of a drop. A registered format name maps to a MIME type, so
// the private formats of the host's other windows travel through Qt's drag and drop.
#include <QByteArray>
#include <QPoint>
#include <cstdint>
#include <optional>

#include "CString.h"
#include "WinTypes.h"

class QMimeData;

using CLIPFORMAT = unsigned int;
constexpr CLIPFORMAT CF_TEXT = 1;

// The id of a format registered by name (the same name gives the same id); 0 for no name.
QUILLBOX_EXPORT CLIPFORMAT RegisterClipboardFormat(const char* name);
// The MIME type a format travels as: "text/plain" for CF_TEXT, and for a registered name
// the type Qt uses for a Windows format of that name.
QUILLBOX_EXPORT QString ClipboardFormatMimeType(CLIPFORMAT format);

// The data object of a drop, read without taking ownership.
class QUILLBOX_EXPORT COleDataObject {
public:
    void Attach(const QMimeData* data, BOOL autoRelease = FALSE);
    void Release() { data_ = nullptr; }
    bool IsDataAvailable(CLIPFORMAT format) const;
    // The bytes in that format, or nothing.
    std::optional<QByteArray> GetGlobalData(CLIPFORMAT format) const;
    const QMimeData* mimeData() const { return data_; }

private:
    const QMimeData* data_ = nullptr;
};

// What a drop message carries: the data object and the drop point in window coordinates.
struct DropRecord {
    const void* dataObject = nullptr;
    std::int32_t unused = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
};

// The mouse position on the screen. While a drop is being delivered it is the drop's own
// position, which is where the mouse is even on platforms that do not report the cursor.
QUILLBOX_EXPORT void GetCursorPos(POINT* point);
QUILLBOX_EXPORT void SetDropCursorPos(std::optional<QPoint> screenPosition);
