#include "OleData.h"

#include <QCursor>
#include <QMimeData>
#include <string>
#include <vector>

namespace {
constexpr CLIPFORMAT kFirstRegisteredFormat = 0xC000;

std::vector<std::string>& registeredNames() {
    static std::vector<std::string> names;
    return names;
}

std::optional<QPoint> dropCursor;
}  // namespace

CLIPFORMAT RegisterClipboardFormat(const char* name) {
    if (!name || !*name) return 0;
    auto& names = registeredNames();
    for (size_t i = 0; i < names.size(); ++i)
        if (CString(names[i].c_str()).CompareNoCase(name) == 0) return kFirstRegisteredFormat + CLIPFORMAT(i);
    names.emplace_back(name);
    return kFirstRegisteredFormat + CLIPFORMAT(names.size() - 1);
}

QString ClipboardFormatMimeType(CLIPFORMAT format) {
    if (format == CF_TEXT) return QStringLiteral("text/plain");
    const auto& names = registeredNames();
    if (format < kFirstRegisteredFormat || format - kFirstRegisteredFormat >= names.size()) return QString();
    return QStringLiteral("application/x-qt-windows-mime;value=\"%1\"")
        .arg(QString::fromUtf8(names[format - kFirstRegisteredFormat].c_str()));
}

void COleDataObject::Attach(const QMimeData* data, BOOL) { data_ = data; }

bool COleDataObject::IsDataAvailable(CLIPFORMAT format) const {
    const QString type = ClipboardFormatMimeType(format);
    return data_ && !type.isEmpty() && data_->hasFormat(type);
}

std::optional<QByteArray> COleDataObject::GetGlobalData(CLIPFORMAT format) const {
    if (!IsDataAvailable(format)) return std::nullopt;
    if (format == CF_TEXT) return data_->text().toUtf8();
    return data_->data(ClipboardFormatMimeType(format));
}

void GetCursorPos(POINT* point) {
    if (!point) return;
    const QPoint p = dropCursor ? *dropCursor : QCursor::pos();
    point->x = p.x();
    point->y = p.y();
}

void SetDropCursorPos(std::optional<QPoint> screenPosition) { dropCursor = screenPosition; }
