// quillbox: a host program of the Quillbox editor windows.
//   quillbox edit FILE [--db DB]        open FILE in an editor window; names complete from DB
//                                       (default: the sample database beside the program)
//   quillbox shot FILE -o OUT.png       render the window offscreen and save a picture of it
//   quillbox code --lang LANGUAGE FILE  print the script as source code of LANGUAGE
//   quillbox uncode --lang LANGUAGE FILE print the SQL that pasting FILE's code would give
//   quillbox binds FILE                 list each bind variable with its line and column
//   quillbox print FILE -o OUT.pdf      print the script, with header and footer, to a PDF file
//   quillbox format [--align 0|1] [--comma 0|1] [--case 0..3] [--multiline 0|1] FILE
//                                       write the script laid out by Format SQL to standard output
// The batch commands run a hidden SQL edit window and use its own commands.
// With no display the program runs on the offscreen platform, says so, and writes a picture
// of the window instead of showing it.
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QPixmap>
#include <QTranslator>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "BindScanner.h"
#include "CDC.h"
#include "CKTSQLEditWnd.h"
#include "CKTTextFile.h"
#include "CSQLFormatter.h"
#include "EditorHost.h"
#include "Settings.h"

namespace {
int usage(std::FILE* out, int status) {
    std::fprintf(out,
                 "usage: quillbox edit FILE [--db FILE.sqlite]\n"
                 "       quillbox shot FILE -o OUT.png [--db FILE.sqlite]\n"
                 "       quillbox code --lang LANGUAGE FILE\n"
                 "       quillbox uncode --lang LANGUAGE FILE\n"
                 "       quillbox binds FILE\n"
                 "       quillbox print FILE -o OUT.pdf\n"
                 "       quillbox format [--align 0|1] [--comma 0|1] [--case 0..3] [--multiline 0|1] FILE\n"
                 "       quillbox --help\n"
                 "LANGUAGE is one of:");
    for (const CodeLanguage& language : CodeLanguages()) std::fprintf(out, " \"%s\"", language.storedName);
    std::fprintf(out, "\n");
    return status;
}
int usage() { return usage(stderr, 2); }

// A language name that is none of the nine: says so, suggests the name that differs only in
// case, and lists the valid names.
int unknownLanguage(const char* name) {
    std::fprintf(stderr, "quillbox: unknown language \"%s\"", name);
    for (const CodeLanguage& language : CodeLanguages())
        if (QString::fromUtf8(name).compare(QString::fromUtf8(language.storedName), Qt::CaseInsensitive) == 0)
            std::fprintf(stderr, "; did you mean \"%s\"?", language.storedName);
    std::fprintf(stderr, "\nthe languages are:");
    for (const CodeLanguage& language : CodeLanguages()) std::fprintf(stderr, " \"%s\"", language.storedName);
    std::fprintf(stderr, "\n");
    return 2;
}

int fileError(const char* path, const CString& error) {
    std::fprintf(stderr, "quillbox: %s\n", FileErrorText(path, error).c_str());
    return 1;
}

// Why `path` cannot serve as the completion catalog, or an empty text when it can: it must be
// a readable SQLite database file.
CString databaseProblem(const char* path) {
    const QFileInfo info(QString::fromLocal8Bit(path));
    if (!info.exists()) return "no such file";
    if (!info.isFile()) return "not a file";
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly)) return CString::fromQString(file.errorString());
    static constexpr char kHeader[] = "SQLite format 3";  // with its NUL: 16 bytes
    if (file.read(sizeof kHeader) != QByteArray(kHeader, sizeof kHeader)) return "not an SQLite database";
    return CString();
}

void printBytes(const QByteArray& bytes) { std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout); }

// A hidden SQL edit window for the batch commands.
class BatchWindow {
public:
    BatchWindow() {
        frame_.CreateEx(0, "QuillboxFrame", "batch", 0, RECT{0, 0, 800, 600}, nullptr, 0);
        ok_ = window_.Create("batch", WS_CHILD, RECT{0, 0, 800, 600}, &frame_, 1) != 0;
    }
    bool ok() const { return ok_; }
    CKTSQLEditWnd& window() { return window_; }

private:
    CWnd frame_;
    CKTSQLEditWnd window_;
    bool ok_ = false;
};

int runCode(const char* language, const char* file, bool toCode) {
    BatchWindow batch;
    CKTSQLEditWnd& w = batch.window();
    if (!batch.ok()) return 1;
    if (!w.SelectCodeLanguage(language)) return unknownLanguage(language);
    if (toCode) {
        if (!w.LoadFile(file)) return fileError(file, w.GetLastFileError());
        w.SendMessage(SCI_SELECTALL);
        QGuiApplication::clipboard()->clear();
        w.OnMakeCode();
        printBytes(QGuiApplication::clipboard()->text().toUtf8());
        return 0;
    }
    CKTTextFileRead reader(file);
    CString source;
    if (!reader.IsOpen() || !reader.Read(source, "\r\n")) return fileError(file, reader.GetErrorText());
    QGuiApplication::clipboard()->setText(source.toQString());
    w.OnStripCode();
    printBytes(QByteArray(w.GetText().c_str()));
    return 0;
}

int runBinds(const char* file) {
    BatchWindow batch;
    CKTSQLEditWnd& w = batch.window();
    if (!batch.ok()) return 1;
    if (!w.LoadFile(file)) return fileError(file, w.GetLastFileError());
    // Line by line, as the copy does: a literal or comment never spans the scan of a line.
    for (int line = 0; line < w.GetLineCount(); ++line) {
        const CString text = w.GetLineChars(line);
        int start = 0, end = 0;
        for (int from = 0; start = from, FindBindPosition(text, start, end); from = std::max(end, start + 1))
            std::printf("%d:%d\t%s\n", line + 1, start + 1, text.Mid(start, end - start).c_str());
    }
    return 0;
}

int runPrint(const char* file, const char* pdf) {
    BatchWindow batch;
    CKTSQLEditWnd& w = batch.window();
    if (!batch.ok()) return 1;
    if (!w.LoadFile(file)) return fileError(file, w.GetLastFileError());
    w.SetFilePath(file);
    SetDefaultPrintOutput(pdf);
    w.Print(false);
    SetDefaultPrintOutput(nullptr);
    if (!QFileInfo::exists(QString::fromLocal8Bit(pdf))) {
        std::fprintf(stderr, "quillbox: nothing was printed to %s\n", pdf);
        return 1;
    }
    std::printf("quillbox: printed %s to %s\n", file, pdf);
    return 0;
}

// The keyword tests Format SQL hands the formatter.
class FormatKeywords : public CKTScinWnd {
public:
    using CKTScinWnd::isSQLKeyword;
    using CKTScinWnd::isSQLKeyword2;
};

// Formats FILE as the editor's Format SQL does, the options at their settings' defaults unless
// given, and writes the result to standard output. The bytes go through unchanged in encoding.
int runFormat(int argc, char** argv) {
    bool align = settings::KeywordAlign.defaultValue != 0, comma = settings::CommaInList.defaultValue != 0,
         multiline = settings::Multiline.defaultValue != 0;
    int keywordCase = settings::KeywordCase.defaultValue;
    const char* file = nullptr;
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg.rfind("--", 0) != 0) {
            if (file) return usage();
            file = argv[i];
            continue;
        }
        if (i + 1 >= argc) return usage();
        char* end = nullptr;
        const long value = std::strtol(argv[++i], &end, 10);
        if (!end || *end != '\0' || end == argv[i]) return usage();
        if (arg == "--align" && (value == 0 || value == 1)) align = value == 1;
        else if (arg == "--comma" && (value == 0 || value == 1)) comma = value == 1;
        else if (arg == "--multiline" && (value == 0 || value == 1)) multiline = value == 1;
        else if (arg == "--case" && value >= 0 && value <= 3) keywordCase = int(value);
        else return usage();
    }
    if (!file) return usage();
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "quillbox: cannot open %s: %s\n", file, std::strerror(errno));
        return 1;
    }
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    CSQLFormatter formatter;
    formatter.isKeywordFunc = &FormatKeywords::isSQLKeyword;
    formatter.isListKeywordFunc = &FormatKeywords::isSQLKeyword2;
    const CString out = formatter.Format(CString(text), align, comma, keywordCase, multiline, true, 80);
    std::fwrite(out.view().data(), 1, out.view().size(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}

bool hasDisplay() {
    // A platform the user chose counts, unless it is one that shows nothing.
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    if (platform && *platform)
        return std::strncmp(platform, "offscreen", 9) != 0 && std::strncmp(platform, "minimal", 7) != 0;
    return (std::getenv("DISPLAY") && *std::getenv("DISPLAY")) ||
           (std::getenv("WAYLAND_DISPLAY") && *std::getenv("WAYLAND_DISPLAY"));
}

bool savePicture(QWidget& window, const char* out) {
    window.show();
    QApplication::processEvents();
    if (!window.grab().save(QString::fromLocal8Bit(out))) {
        std::fprintf(stderr, "quillbox: cannot write %s\n", out);
        return false;
    }
    std::printf("quillbox: wrote a picture of the window to %s\n", out);
    return true;
}
}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) return usage(stdout, 0);
    if (argc < 3) return usage();
    const std::string command = argv[1];
    if (command == "format") return runFormat(argc, argv);
    if (command == "code" || command == "uncode" || command == "binds" || command == "print") {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);  // batch commands show nothing
        QApplication app(argc, argv);
        if (command == "binds") return runBinds(argv[2]);
        if (command == "print") {
            if (argc < 5 || std::strcmp(argv[3], "-o") != 0) return usage();
            return runPrint(argv[2], argv[4]);
        }
        if (argc < 5 || std::strcmp(argv[2], "--lang") != 0) return usage();
        return runCode(argv[3], argv[4], command == "code");
    }
    const char* file = argv[2];
    const char* picture = nullptr;
    const char* database = nullptr;
    for (int i = 3; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], "-o") == 0) picture = argv[i + 1];
        if (std::strcmp(argv[i], "--db") == 0) database = argv[i + 1];
    }

    bool offscreen = command == "shot";
    if (!offscreen && !hasDisplay()) {
        std::printf("quillbox: no display found; running on the offscreen platform\n");
        std::fflush(stdout);
        offscreen = true;
        if (!picture) picture = "quillbox-window.png";
    }
    if (offscreen) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (command != "edit" && command != "shot") return usage();
    if (command == "shot" && !picture) return usage();
    if (database) {
        const CString problem = databaseProblem(database);
        if (!problem.IsEmpty()) {
            std::fprintf(stderr, "quillbox: cannot use %s as the database: %s\n", database, problem.c_str());
            return 1;
        }
    }

    QApplication app(argc, argv);
    // The program's own strings, in the language the library's start chose.
    QTranslator programStrings;
    const QString language = QLocale().name().replace('_', '-');
    if (programStrings.load(QCoreApplication::applicationDirPath() + "/" + language + "/quillbox.qm"))
        QCoreApplication::installTranslator(&programStrings);
    // The catalog: the database given, else the sample database beside the program.
    const CString catalog = database ? CString(database)
                                     : CString::fromQString(QCoreApplication::applicationDirPath() + "/sample.sqlite");
    EditorHost host(catalog);
    if (!host.create()) {
        std::fprintf(stderr, "quillbox: the editor window could not be made\n");
        return 1;
    }
    CString error;
    if (!host.open(file, &error)) {
        std::fprintf(stderr, "quillbox: %s\n", error.c_str());
        return 1;
    }
    if (offscreen) return savePicture(host.window(), picture) ? 0 : 1;
    host.window().show();
    return app.exec();
}
