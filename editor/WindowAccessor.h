#pragma once
// WindowAccessor: an Accessor over the document of an editor window. Text is read with
// SCI_GETTEXTRANGE into the read-ahead buffer, 4000 bytes at a time; styles written with
// ColourTo collect in a buffer of their own and reach the engine at Flush (the destructor
// does not flush). It belongs to the one call that made it: the document must not change
// while it is in use, or Flush must come first.
#include "Accessor.h"

class CScintillaWnd;
class PropSet;

class QUILLBOX_EXPORT WindowAccessor : public Accessor {
public:
    WindowAccessor(CScintillaWnd* window, PropSet& props);
    ~WindowAccessor() override = default;

    bool InternalIsLeadByte(char ch) override;
    void Fill(int position) override;
    bool Match(int pos, const char* s) override;
    char StyleAt(int position) override;
    int GetLine(int position) override;
    int LineStart(int line) override;
    int LevelAt(int line) override;
    int Length() override;
    void Flush() override;
    int GetLineState(int line) override;
    int SetLineState(int line, int state) override;
    int GetPropertyInt(const char* key, int defaultValue = 0) override;
    char* GetProperties() override;

    void StartAt(unsigned int start, char chMask = 31) override;
    void SetFlags(char chFlags_, char chWhile_) override {
        chFlags = chFlags_;
        chWhile = chWhile_;
    }
    unsigned int GetStartSegment() override { return startSeg; }
    void StartSegment(unsigned int pos) override { startSeg = pos; }
    void ColourTo(unsigned int pos, int attr) override;
    void SetLevel(int line, int level) override;
    int IndentAmount(int line, int* flags, bool (*isCommentLeader)(Accessor&, int, int) = nullptr) override;

private:
    CScintillaWnd* window;  // not owned
    PropSet& props;         // not owned
    int lenDoc = -1;        // cached document length; -1 when not known
    char styleBuf[bufferSize] = {};
    int validLen = 0;       // bytes used in styleBuf
    char chFlags = 0;       // style bits ColourTo adds ...
    char chWhile = 0;       // ... to this style only
    unsigned int startSeg = 0;
};
