// Moving the document between the engine and a disk file.
#include <QSaveFile>
#include <cstdio>
#include <unistd.h>

#include "CKTTextFile.h"
#include "CScintillaWnd.h"

bool CScintillaWnd::readFileText(const char* path, CString& text) {
    CKTTextFileRead reader(path, true, true, ansiCodePage);
    if (!reader.IsOpen() || !reader.Read(text, "\r\n")) {
        lastFileError = reader.GetErrorText();
        return false;
    }
    reader.Close();
    return true;
}

int CScintillaWnd::LoadFile(const char* path) {
    if (!path || !*path) return 1;
    CString text;
    if (!readFileText(path, text)) return 0;
    lastFileError.Empty();
    SetText(std::move(text), 0);
    SendEditor(SCI_EMPTYUNDOBUFFER);
    GotoPosition(0);
    return 1;
}

int CScintillaWnd::SaveFile(const char* path) {
    // The raw bytes of the document with CR LF line ends; the file is replaced only once the
    // whole text is on disk.
    QSaveFile file(QString::fromUtf8(path ? path : ""));
    if (!path || !*path || !file.open(QIODevice::WriteOnly)) {
        lastFileError = CString::fromQString(file.errorString());
        return 0;
    }
    const CString text = transformLineEnds(GetText(), SC_EOL_CRLF);
    if (file.write(text.c_str(), text.GetLength()) != text.GetLength() || !file.commit()) {
        lastFileError = CString::fromQString(file.errorString());
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
    int codePage = encoding == TEXTENCODING_ANSI ? ansiCodePage : 0;
    if (encoding < TEXTENCODING_ANSI || encoding > TEXTENCODING_UTF16BE) {
        // The file on disk decides, and a legacy file keeps its own code page.
        CKTTextFileRead existing(path, true, true, ansiCodePage);
        encoding = existing.IsOpen() ? existing.GetEncoding() : TEXTENCODING_UTF8;
        codePage = existing.IsOpen() && encoding == TEXTENCODING_ANSI ? existing.GetCodePage() : ansiCodePage;
    }
    if (backup) makeBackupFile(path);  // a failed backup does not stop the save
    CKTTextFileWrite writer(path, TEXTENCODING(encoding), codePage);
    if (!writer.IsOpen()) {
        lastFileError = writer.GetErrorText();
        return false;
    }
    const CString text = transformLineEnds(GetText(), SC_EOL_CRLF);
    if (!writer.Write(text) || !writer.Close()) {
        lastFileError = writer.GetErrorText();
        return false;
    }
    lastFileError.Empty();
    return true;
}

bool CScintillaWnd::makeBackupFile(CString path) {
    const CString backupPath = path + ".bak";
    ::unlink(backupPath);
    return std::rename(path, backupPath) == 0;
}

int CScintillaWnd::GetFormatFromExtension(const char*) { return 1; }
