#pragma once
// CMemComboBox: a drop-down combo that remembers what was typed into it. Combos of one group
// share one history, newest first, kept for the whole process in `groups` and, through
// LoadSettings and SaveSettings (which the host calls), in the per-user registry under
// HKEY_CURRENT_USER "SOFTWARE\Lectern", one text value per group.
#include <map>

#include "Controls.h"

class QUILLBOX_EXPORT CMemComboBox : public CComboBox {
public:
    // Most items a list keeps; a new item beyond them pushes the oldest out.
    static constexpr int kMaxItems = 64;
    // The registry key of the histories, under HKEY_CURRENT_USER.
    static constexpr const char* kRegistryKey = "SOFTWARE\\Lectern";

    // Group name (compared exactly) to history text: the items, newest first, each followed
    // by one LF.
    using GroupMap = std::map<CString, CString>;

    CMemComboBox();
    ~CMemComboBox() override;

    // Puts `text` at the top of the list (moving it there if it stands lower, in the case now
    // given), selects it and stores the list as the group's history. Null or empty: nothing.
    void Fill(const char* text);
    // Fill with the combo's own edit text.
    void FillCurrent();
    // Reads the histories of the two groups "FindText" and "ReplaceText" from the registry;
    // a missing key or value leaves what stands in `groups`.
    static void LoadSettings();
    // Writes every group's history to the registry.
    static void SaveSettings();

    // Leaving the field keeps what was typed.
    void OnKillFocus(CWnd* newWindow);
    // Takes the group's history into the list, once in the combo's life; a later call, or a
    // combo without a group, does nothing.
    void OnSetfocus();
    // The window goes: what was typed is kept.
    void OnDestroy();

    int historyPending = 1;
    CString group;
    static GroupMap groups;

protected:
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    // Sizes the drop-down list to its items, keeping it 48 pixels inside the screen.
    void fitDroppedHeight();
    void fitDroppedWidth();
};
