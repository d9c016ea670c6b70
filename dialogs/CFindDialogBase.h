#pragma once
// What the find and the replace dialog share: the window's look, the "Find what" row, the three
// search options and a framed pair of choices beside them, and the rule that a regular
// expression excludes whole-word matching.
#include "CDialog.h"
#include "CMemComboBox.h"
#include "Controls.h"

class CScintillaWnd;

class QUILLBOX_EXPORT CFindDialogBase : public CDialog {
public:
    static constexpr int IDC_WHOLE_WORD = 1004;
    static constexpr int IDC_MATCH_CASE = 1005;
    static constexpr int IDC_FIND_TEXT = 1006;
    static constexpr int IDC_REGULAR_EXPRESSION = 1007;

    CFindDialogBase(UINT templateId, CScintillaWnd* owner);

    // The user edited or picked a find text.
    virtual void OnFindTextChange();
    void OnRegularExpression();

    CScintillaWnd* owner;
    CMemComboBox findCombo;
    CButton wholeWordButton;
    int matchCase = 0;
    CString findText;
    int wholeWord = 0;
    int regExp = 0;

protected:
    // One of a framed pair of radio buttons; x and width in dialog units.
    struct Choice {
        int id;
        const char* text;  // untranslated, marked with QT_TRANSLATE_NOOP("Quillbox", ...)
        int x, width;
    };
    // Font, title and a fixed size of 237 dialog units by `height`.
    void setUpWindow(QDialog* dialog, const QString& title, int height);
    // "Find what:" and its history combo at the top; the label is `labelWidth` units wide.
    void addFindRow(QDialog* dialog, int labelWidth);
    // Whole word, match case and regular expression from `top` down, 15 units apart.
    void addOptionRows(QDialog* dialog, int top);
    // A group box beside the options from `top`, with its two choices 15 and 30 units below.
    void addChoiceGroup(const QString& title, int top, const Choice (&choices)[2]);
    // Whole word and regular expression exclude each other; an expression always has its
    // escapes decoded. `exchange` reads the controls first and writes them back after.
    void applyRegExpState(bool exchange);
};
