// Moving the document between the engine and a disk file.
#include <climits>
#include <cstdio>
#include <new>

#include "CKTTextFile.h"
#include "CScintillaWnd.h"
#include "Files.h"
#include "LineEnds.h"

bool CScintillaWnd::readFileText(const char* path, CString& text) {
    CKTTextFileRead reader(path, true, true, ansiCodePage);
    if (!reader.IsOpen() || !reader.Read(text, "\r\n")) {
        lastFileError = reader.GetErrorText();
        return false;
    }
    fileEolMode = lineends::EolModeOf(reader.GetLineEnd());
    reader.Close();
    return true;
}

int CScintillaWnd::LoadFile(const char* path) {
    if (!path || !*path) return 1;
    CKTTextFileRead reader(path, true, true, ansiCodePage);
    if (!reader.IsOpen()) {
        lastFileError = reader.GetErrorText();
        return 0;
    }
    // The decoded text goes into the engine piece by piece, already in its line end mode, so
    // no second copy of a large file is ever held. It is added behind the old document, which
    // is removed only once the whole file is in: a failure on the way takes the new part out
    // again and leaves the document, its undo history and save point as they were.
    const std::string_view eol = lineends::EolOf(int(SendEditor(SCI_GETEOLMODE)));
    const size_t length = reader.GetTextLength(eol.size());
    if (length > 0) {
        const long oldLength = SendEditor(SCI_GETLENGTH);
        const bool collecting = SendEditor(SCI_GETUNDOCOLLECTION) != 0;
        auto fail = [&](const CString& why) {
            SendEditor(SCI_DELETERANGE, WPARAM(oldLength), SendEditor(SCI_GETLENGTH) - oldLength);
            SendEditor(SCI_SETUNDOCOLLECTION, collecting);
            SendEditor(SCI_SETSTATUS, SC_STATUS_OK);
            lastFileError = why;
            return 0;
        };
        const size_t needed = size_t(oldLength) + length + 1;
        CString noRoom, tooLarge;
        noRoom.Format("'%s' needs %zu MiB of memory to be opened, more than is free; the "
                      "document was left as it was", path, length >> 20);
        tooLarge.Format("'%s' is too large to be opened: %zu MiB of text, more than the 2 GiB "
                        "a document may have", path, length >> 20);
        if (needed > size_t(INT_MAX)) return fail(tooLarge);
        SendEditor(SCI_SETUNDOCOLLECTION, 0);
        SendEditor(SCI_SETSTATUS, SC_STATUS_OK);
        try {
            SendEditor(SCI_ALLOCATE, WPARAM(needed));
        } catch (const std::bad_alloc&) {
            return fail(noRoom);
        }
        if (SendEditor(SCI_GETSTATUS) != SC_STATUS_OK) return fail(noRoom);
        bool full = false;
        const bool read = reader.ReadPieces(CString(std::string(eol)), [&](const char* piece, size_t n) {
            SendEditor(SCI_APPENDTEXT, WPARAM(n), reinterpret_cast<LPARAM>(piece));
            full = SendEditor(SCI_GETSTATUS) != SC_STATUS_OK;
            return !full;
        });
        if (full) return fail(noRoom);
        if (!read) return fail(reader.GetErrorText());
        if (SendEditor(SCI_GETLENGTH) != long(oldLength + long(length))) {
            CString refused;
            refused.Format("The document did not take the text of '%s'", path);
            return fail(refused);
        }
        SendEditor(SCI_DELETERANGE, 0, oldLength);
        SendEditor(SCI_EMPTYUNDOBUFFER);
        SendEditor(SCI_SETUNDOCOLLECTION, collecting);
        SendEditor(SCI_SETSAVEPOINT);
    } else {
        SendEditor(SCI_CLEARALL);  // an empty file gives an empty, unmodified document
        SendEditor(SCI_SETSAVEPOINT);
    }
    fileEolMode = lineends::EolModeOf(reader.GetLineEnd());
    reader.Close();
    lastFileError.Empty();
    if (noFocusOnSetText == 0) SetFocus();
    SendEditor(SCI_EMPTYUNDOBUFFER);
    GotoPosition(0);
    return 1;
}

int CScintillaWnd::SaveFile(const char* path) {
    // The raw bytes of the document with CR LF line ends, through the same atomic replacement
    // as every other save; the file is replaced only once the whole text is on disk.
    if (!path || !*path) {
        lastFileError = "no file name";
        return 0;
    }
    CKTTextFileWrite writer(path, TEXTENCODING_UTF8);
    const CString text = transformLineEnds(GetText(), savedEolMode());
    if (!writer.IsOpen() || !writer.WriteRaw(text.c_str(), size_t(text.GetLength())) ||
        !writer.Close()) {
        lastFileError = writer.GetErrorText();
        return 0;
    }
    lastFileError.Empty();
    SendEditor(SCI_CONVERTEOLS, SC_EOL_CRLF);
    SendEditor(SCI_SETSAVEPOINT);
    return 1;
}

int CScintillaWnd::SaveFile(const char* path, int encoding, bool backup) {
    if (!writeDocument(path, encoding, backup)) return 0;
    // The document takes CR LF line ends only once the file is safely written.
    SendEditor(SCI_CONVERTEOLS, SC_EOL_CRLF);
    SendEditor(SCI_SETSAVEPOINT);
    return 1;
}

bool CScintillaWnd::writeDocument(const char* path, int encoding, bool backup) {
    if (!path || !*path) {
        lastFileError = "no file name";
        return false;
    }
    int codePage = ansiCodePage;
    if (encoding < TEXTENCODING_ANSI || encoding > TEXTENCODING_UTF16BE) {
        // The file on disk decides, and a legacy file keeps its own code page. It is asked
        // here because a backup would move it away before the writer could look.
        CKTTextFileRead existing(path, true, true, ansiCodePage);
        encoding = existing.IsOpen() ? int(existing.GetEncoding()) : int(TEXTENCODING_UTF8);
        if (existing.IsOpen() && encoding == TEXTENCODING_ANSI) codePage = existing.GetCodePage();
    }
    if (backup) makeBackupFile(path);  // a failed backup does not stop the save
    CKTTextFileWrite writer(path, TEXTENCODING(encoding), codePage);
    if (!writer.IsOpen()) {
        lastFileError = writer.GetErrorText();
        return false;
    }
    const CString text = transformLineEnds(GetText(), savedEolMode());
    if (!writer.Write(text) || !writer.Close()) {
        lastFileError = writer.GetErrorText();
        return false;
    }
    lastFileError.Empty();
    return true;
}

bool CScintillaWnd::makeBackupFile(CString path) {
    const CString backupPath = path + ".bak";
    RemoveFile(backupPath);
    return std::rename(path, backupPath) == 0;
}

int CScintillaWnd::GetFormatFromExtension(const char*) { return 1; }
