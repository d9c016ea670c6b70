// Editing comforts of the application editor window: zoom by keys and wheel (kept in the
// settings), several carets and the way back to one, and annotations a host shows in the text.
#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "ColourTheme.h"
#include "CommandIds.h"
#include "KeyCodes.h"
#include "MessageHandlers.h"
#include "Settings.h"
#include "QuillEngine.h"
#include "TextAnnotations.h"

std::vector<MessageMapEntry> CKTScinWnd::ComfortCommandEntries() {
    using C = CKTScinWnd;
    return {
        {WM_COMMAND, cmd::ZoomIn, OnMessage<&C::OnZoomIn>},
        {WM_COMMAND, cmd::ZoomOut, OnMessage<&C::OnZoomOut>},
        {WM_COMMAND, cmd::ZoomReset, OnMessage<&C::OnZoomReset>},
    };
}

void CKTScinWnd::applyComfortOptions(const CKTRegistry& setting) {
    const int theme = settings::ColorTheme.Read(setting);
    if (theme != colourTheme) {
        // The dark theme changed colours the light one does not set: start from the property
        // file's again.
        const bool wasDark = ColourTheme::ForSetting(colourTheme).dark;
        colourTheme = theme;
        if (wasDark) initScintilla();
    }
    SendEditor(SCI_SETZOOM, WPARAM(settings::EditorZoom.Read(setting)));
    const int multiple = settings::MultipleSelection.Read(setting);
    SendEditor(SCI_SETMULTIPLESELECTION, WPARAM(multiple));
    SendEditor(SCI_SETMULTIPASTE, multiple ? SC_MULTIPASTE_EACH : SC_MULTIPASTE_ONCE);
}

void CKTScinWnd::OnZoomIn() { SendEditor(SCI_ZOOMIN); }
void CKTScinWnd::OnZoomOut() { SendEditor(SCI_ZOOMOUT); }
void CKTScinWnd::OnZoomReset() { SendEditor(SCI_SETZOOM, 0); }

void CKTScinWnd::storeZoom() {
    const int zoom = int(SendEditor(SCI_GETZOOM));
    CKTMgrSetting setting(0);
    if (setting.GetKey() && settings::EditorZoom.Read(setting) != zoom) settings::EditorZoom.Write(setting, zoom);
    SetMarginWidth();  // the line numbers grow and shrink with the text
}

UINT CKTScinWnd::comfortCommand(const MSG* msg) const {
    if (!IsKeyMessage(msg) || !comfortAccelerators) return 0;
    const UINT command = FindAccelerator(comfortAccelerators, msg);
    return command != 0 && HasCommandHandler(command) ? command : 0;
}

bool CKTScinWnd::isEscapeToOneCaret(const MSG* msg) const {
    if (!IsKeyMessage(msg) || msg->message != WM_KEYDOWN || msg->wParam != VK_ESCAPE || KeyModifierFlags(msg) != 0)
        return false;
    QuillEngine* e = engine();
    return e && e->send(SCI_GETSELECTIONS) > 1 && !e->send(SCI_AUTOCACTIVE) && !e->send(SCI_CALLTIPACTIVE);
}

void CKTScinWnd::returnToOneCaret() { SendEditor(SCI_SETEMPTYSELECTION, WPARAM(SendEditor(SCI_GETCURRENTPOS))); }

int CKTScinWnd::AddAnnotation(long start, long end, CString message) { return annotations->Add(start, end, message); }
bool CKTScinWnd::RemoveAnnotation(int id) { return annotations->Remove(id); }
void CKTScinWnd::ClearAnnotations() { annotations->Clear(); }
int CKTScinWnd::GetAnnotationCount() const { return annotations->Count(); }
