#pragma once
// Accessor: buffered reading of a document and batched writing of its styles, in the shape of
// the accessor that Scintilla's lexers use. Code that scans text makes a WindowAccessor on the
// stack for one job and reads it byte by byte through operator[]; the buffer holds a window of
// the document round the last position asked for, so forward and backward scans mostly stay
// in it.
#include "QuillboxExport.h"

class QUILLBOX_EXPORT Accessor {
public:
    static constexpr int extremePosition = 0x7FFFFFFF;  // start of an empty buffer
    static constexpr int bufferSize = 4000;             // bytes of text, and of styles, buffered
    static constexpr int slopSize = bufferSize / 8;     // kept in front of the position asked for

    // What IndentAmount reports about a line's indentation.
    enum { wsSpace = 1, wsTab = 2, wsSpaceTab = 4, wsInconsistent = 8 };

    Accessor() = default;
    virtual ~Accessor();
    Accessor(const Accessor&) = delete;
    Accessor& operator=(const Accessor&) = delete;

    // Whether ch starts a double-byte character in codePage (never in UTF-8).
    virtual bool InternalIsLeadByte(char ch) = 0;
    // Loads the buffer round position.
    virtual void Fill(int position) = 0;
    // True when the document at pos holds s; past the end each byte reads as a blank.
    virtual bool Match(int pos, const char* s) = 0;
    virtual char StyleAt(int position) = 0;
    virtual int GetLine(int position) = 0;
    virtual int LineStart(int line) = 0;
    virtual int LevelAt(int line) = 0;
    virtual int Length() = 0;
    // Sends the styles not yet sent and forgets the buffered text.
    virtual void Flush() = 0;
    virtual int GetLineState(int line) = 0;
    virtual int SetLineState(int line, int state) = 0;
    virtual int GetPropertyInt(const char* key, int defaultValue = 0) = 0;
    // All properties as "key=value" lines; the caller frees the text with delete[].
    virtual char* GetProperties() = 0;

    virtual void StartAt(unsigned int start, char chMask = 31) = 0;
    virtual void SetFlags(char chFlags, char chWhile) = 0;
    virtual unsigned int GetStartSegment() = 0;
    virtual void StartSegment(unsigned int pos) = 0;
    // Styles the segment from the start segment up to pos inclusive with attr.
    virtual void ColourTo(unsigned int pos, int attr) = 0;
    virtual void SetLevel(int line, int level) = 0;
    // The indentation of a line as a fold level (SC_FOLDLEVELBASE plus columns, tabs to the
    // next multiple of 8), with SC_FOLDLEVELWHITEFLAG for a blank line or, when
    // isCommentLeader says so, a comment line; flags get the ws... bits.
    virtual int IndentAmount(int line, int* flags, bool (*isCommentLeader)(Accessor&, int, int) = nullptr) = 0;

    // The byte at position; a position outside the document reads as a blank.
    char operator[](int position) { return SafeGetCharAt(position, ' '); }
    // The byte at position, or chDefault for a position outside the document.
    char SafeGetCharAt(int position, char chDefault = ' ') {
        if (position < startPos || position >= endPos) {
            Fill(position);
            if (position < startPos || position >= endPos) return chDefault;
        }
        return buf[position - startPos];
    }
    bool IsLeadByte(char ch) { return codePage != 0 && InternalIsLeadByte(ch); }

protected:
    char buf[bufferSize + 1] = {};
    int startPos = extremePosition;  // document position of buf[0]
    int endPos = 0;                  // position behind the buffered text
    int codePage = 0;
};
