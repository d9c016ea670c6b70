#pragma once
// Text files of the utility library. CKTTextFileRead checks a whole file, finds its encoding and
// hands the text over as UTF-8; CKTTextFileWrite takes UTF-8 text and stores it in a chosen
// encoding. Neither ever substitutes a character: bytes that do not decode, and characters that
// the chosen encoding cannot hold, make the operation fail with an error code and a text.
//
// Saving goes to a temporary file in the target's folder, which replaces the target only when
// Close has written and synced everything, so a failed or abandoned save leaves the old file as
// it was.
//
// Encodings arrive as plain numbers from settings and callers; the enumeration has a fixed
// underlying type so that any int is a valid value to hold and to test.
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "CString.h"
#include "WinTypes.h"

// Values are stored in settings and passed by callers as plain numbers; they must not change.
// Any other value, -1 above all, means that the file on disk decides (see the constructors).
enum TEXTENCODING : int {
    TEXTENCODING_ANSI = 0,       // the legacy code page of the system language, or one given
    TEXTENCODING_UTF8 = 1,       // UTF-8 without byte order mark; the fallback
    TEXTENCODING_UTF8_BOM = 2,   // UTF-8 with byte order mark
    TEXTENCODING_UTF16LE = 3,    // UTF-16 little endian with byte order mark
    TEXTENCODING_UTF16BE = 4,    // UTF-16 big endian with byte order mark
};

enum TEXTFILEERROR {
    TEXTFILEERROR_NONE = 0,
    TEXTFILEERROR_INVALID_ARGUMENT,  // no path
    TEXTFILEERROR_NOT_FOUND,         // the file, or the folder of a new file, does not exist
    TEXTFILEERROR_PERMISSION,        // access denied, read-only file, folder or file system
    TEXTFILEERROR_NOT_A_FILE,        // a folder, device or other non-regular file
    TEXTFILEERROR_TOO_LARGE,         // beyond what a CString or the memory can hold
    TEXTFILEERROR_UNSUPPORTED,       // a UTF-32 file, or a code page the library does not know
    TEXTFILEERROR_UNDECODABLE,       // bytes that are not valid in the file's encoding
    TEXTFILEERROR_BINARY,            // the text holds a NUL character
    TEXTFILEERROR_UNREPRESENTABLE,   // a character the target encoding has no code for
    TEXTFILEERROR_INVALID_TEXT,      // Write was given bytes that are not UTF-8
    TEXTFILEERROR_READ_FAILED,       // the system failed a read
    TEXTFILEERROR_WRITE_FAILED,      // the system failed a write, sync, link or rename
    TEXTFILEERROR_NOT_OPEN,          // the operation needs an open file
};

class QUILLBOX_EXPORT CKTTextFileBase {
public:
    virtual ~CKTTextFileBase();
    CKTTextFileBase(const CKTTextFileBase&) = delete;
    CKTTextFileBase& operator=(const CKTTextFileBase&) = delete;

    bool IsOpen() const { return open_; }
    // Ends the work with the file: a reader closes it, a writer commits its file exactly as
    // CKTTextFileWrite::Close does.
    void Close() { CloseFile(); }

    // The encoding that was detected or chosen. It stays valid after Close.
    TEXTENCODING GetEncoding() const { return encoding_; }
    // The code page number of that encoding: 949, 932, 936 or 950 for TEXTENCODING_ANSI,
    // 65001 for both UTF-8 forms, 1200 for UTF-16LE and 1201 for UTF-16BE.
    int GetCodePage() const { return codePage_; }
    const CString& GetPath() const { return path_; }

    // The first failure of this object; TEXTFILEERROR_NONE while all went well. A failure also
    // sets the thread's last error (SetLastError) to an errno value and the same text.
    TEXTFILEERROR GetError() const { return error_; }
    const CString& GetErrorText() const { return errorText_; }

    // The legacy code page of a Windows language id: 950 for 1028, 932 for 1041, 936 for 2052
    // and 949 for every other language.
    static int CodePageForLanguage(LANGID language);
    // CodePageForLanguage of GetSystemDefaultLangID().
    static int GetSystemCodePage();
    // Whether a legacy code page can be read and written (949, 932, 936 and 950).
    static bool IsSupportedCodePage(int codePage);

protected:
    explicit CKTTextFileBase(const char* path);
    virtual bool CloseFile() = 0;
    // Records the failure unless an earlier one is recorded; always returns false.
    bool Fail(TEXTFILEERROR error, int systemError, const CString& text);
    // Fail for a failed system call: the errno value decides the error where it is telling
    // (missing, denied, a folder), else `otherwise`; the text is the path, `what` and the
    // system's words.
    bool FailSystem(int systemError, TEXTFILEERROR otherwise, const char* what);
    void SetEncoding(TEXTENCODING encoding, int codePage);

    CString path_;
    bool open_ = false;

private:
    TEXTENCODING encoding_ = TEXTENCODING_UTF8;
    int codePage_ = 65001;
    TEXTFILEERROR error_ = TEXTFILEERROR_NONE;
    int systemError_ = 0;
    CString errorText_;
};

// Checks the whole file when constructed; IsOpen says whether its text can be decoded. The
// file stays open and its text is decoded again, piece by piece, when it is read: a reader
// never holds a copy of the file, so a text as large as the memory left beside it loads.
//
// Detection, in this order: a UTF-32 byte order mark fails as unsupported; a UTF-8, UTF-16LE or
// UTF-16BE byte order mark decides; a file that is valid UTF-8 (plain ASCII and empty files
// included) is UTF-8 without mark; anything else is decoded in the legacy code page, and fails
// when any byte sequence is not valid there. A file that is mostly valid UTF-8 with a few broken
// sequences fails as well rather than being read as a code page. UTF-16 without a byte order
// mark is not recognised (it holds NUL bytes, so it fails as binary).
//
// A NUL character anywhere fails the file as binary: the editor passes text on as C text, so a
// NUL would cut it short and a later save would lose the rest of the file.
//
// Decoding through a legacy code page and encoding back gives the original bytes, except for
// the few codes that a code page defines twice (in 932 the NEC-selected IBM extensions at
// 0xED/0xEE map to the same characters as 0xFA..0xFC, which is what is written back).
//
// Opening a file also removes stale temporary files that an interrupted save of it left in its
// folder (see CKTTextFileWrite).
class QUILLBOX_EXPORT CKTTextFileRead : public CKTTextFileBase {
public:
    // With `detect`, detection as above, using `codePage` as the legacy code page (0: the
    // system's). Without `detect`, only a byte order mark decides and other files must be
    // UTF-8. `reserved` has no effect.
    explicit CKTTextFileRead(const char* path, bool detect = true, bool reserved = true,
                             int codePage = 0);
    // Reads the file in the given encoding with no detection. For TEXTENCODING_ANSI `codePage`
    // names the code page (0: the system's). A byte order mark of the given form is skipped;
    // both UTF-8 values read UTF-8 with or without mark and GetEncoding reports which it was.
    // Any value other than 0 to 4 lets the file decide, as the first constructor does.
    CKTTextFileRead(const char* path, TEXTENCODING encoding, int codePage = 0);
    ~CKTTextFileRead() override;

    // The whole text as UTF-8 with every line end (CR LF, lone CR, lone LF) replaced by
    // `lineEnd`. False, with `text` untouched, when the file is not open, when the text does
    // not fit in memory or a CString, or when the file changed since it was checked.
    bool Read(CString& text, const CString& lineEnd);
    // The same text handed to `sink` in pieces of a few MiB, for a caller that stores it
    // itself; `sink` returns false to stop. False when the file is not open, the sink stopped,
    // or the file no longer decodes as it did when checked: the caller must then drop what it
    // was given.
    bool ReadPieces(const CString& lineEnd, const std::function<bool(const char*, size_t)>& sink);
    // The length in bytes of that text when each line end takes `lineEndLength` bytes.
    size_t GetTextLength(size_t lineEndLength) const;
    // The line end the file uses most: "\r\n", "\n" or "\r"; "\r\n" for a file without one.
    const char* GetLineEnd() const;

    // After a file failed to decode in the legacy code page: another supported code page in
    // which every byte decodes, picked with ICU's charset detector; 0 when there is none. It is
    // only a proposal for the host to offer; the file is never read in it unasked.
    int GetSuggestedCodePage() const { return suggestedCodePage_; }

protected:
    bool CloseFile() override;

private:
    struct Counts;
    void Load(bool detect, int encoding, int codePage);
    bool Check(TEXTENCODING encoding, int codePage, size_t skip);
    // Takes the counts of a text that decoded whole; a NUL character fails it as binary.
    bool Adopt(const Counts& counts, size_t skip);
    bool Decode(TEXTENCODING encoding, int codePage, size_t skip,
                const std::function<bool(std::string_view)>& sink, Counts& counts);
    bool FailUndecodable(size_t offset, const char* what);
    int LineAt(size_t offset);

    int fd_ = -1;
    size_t skip_ = 0;            // the byte order mark's length
    size_t textBytes_ = 0;       // the decoded text's length, line ends as in the file
    size_t crLfs_ = 0, crs_ = 0, lfs_ = 0;   // CR LF pairs, lone CRs and lone LFs
    int suggestedCodePage_ = 0;
};

// Creates a temporary file in the target's folder when constructed (IsOpen says whether that
// worked) and writes the byte order mark of the encoding. Write converts and appends; Close
// syncs the temporary file and renames it over the target. The temporary file has no name
// until Close where the file system allows it: then Close gives it a name and renames that
// over the target at once. Only a crash in that moment, or in any moment of a save on a file
// system without unnamed files, leaves a named temporary file (".NAME.XXXXXXXX.tmp", locked
// while its save runs); the next save or load of the same target removes it. The target holds
// its old or its new text, never a mix. A replaced file keeps its permission bits (and, where
// allowed, its owner); a new file gets 0666 less the umask. A symbolic link is followed and
// the file it points to is replaced (a link to a missing file is itself replaced). A read-only
// target fails with TEXTFILEERROR_PERMISSION.
class QUILLBOX_EXPORT CKTTextFileWrite : public CKTTextFileBase {
public:
    // `codePage` names the legacy code page for TEXTENCODING_ANSI (0: the system's) and is
    // ignored for the other encodings. Any value other than 0 to 4 lets the file on disk
    // decide: its detected encoding (a legacy file keeps its code page, detection trying
    // `codePage`), or UTF-8 when there is no file or it does not decode.
    CKTTextFileWrite(const char* path, TEXTENCODING encoding, int codePage = 0);
    // Without a successful Close the temporary file is discarded and the target is unchanged.
    ~CKTTextFileWrite() override;

    // Appends UTF-8 text; a null pointer appends nothing. A character may be split across
    // calls. After any failure the save is abandoned: the temporary file is removed, this and
    // every later call return false, and the target stays as it was.
    bool Write(const char* utf8Text);
    // Appends bytes as they are, with no check and no conversion, for a caller that stores a
    // document's own bytes. Fails, abandoning the save, inside a character left open by Write.
    bool WriteRaw(const char* bytes, size_t size);
    // Commits the file: true when the target now holds exactly the text written. Calling it
    // again gives the same answer.
    bool Close();

protected:
    bool CloseFile() override;

private:
    struct Impl;
    bool OpenTemp();
    bool Abandon(TEXTFILEERROR error, int systemError, const CString& text);
    bool AbandonSystem(int systemError, const char* what);
    bool Emit(const char* data, size_t size);
    bool WriteBytes(const char* data, size_t size);

    std::unique_ptr<Impl> impl_;
    bool committed_ = false;
};

// Test support, not exported from the library: makes one step of the next saves fail as the
// system call would, with `systemError` (an errno value), or kills the process there, when the
// step is reached for the `nth` time from now (1: the next time).
enum TEXTFILEFAULT {
    TEXTFILEFAULT_WRITE,         // writing bytes to the temporary file
    TEXTFILEFAULT_SYNC,          // syncing the temporary file in Close
    TEXTFILEFAULT_LINK,          // giving the unnamed temporary file its name in Close
    TEXTFILEFAULT_RENAME,        // renaming the temporary file over the target in Close
    TEXTFILEFAULT_SYNC_FOLDER,   // syncing the folder after the rename
    TEXTFILEFAULT_COUNT
};

class CKTTextFileFaults {
public:
    static void Set(TEXTFILEFAULT step, int nth, int systemError);
    // SIGKILL at the step, before its system call: a crash at a known point of a save.
    static void Crash(TEXTFILEFAULT step, int nth);
    // With false, saves use a named temporary file from the start, as on a file system that
    // has no unnamed temporary files.
    static void AllowUnnamedTemp(bool allow);
    static void Reset();
};
