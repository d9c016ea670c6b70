// quillbox: a host program of the Quillbox editor windows.
//   quillbox edit FILE            open FILE in an editor window
//   quillbox shot FILE -o OUT.png render the window offscreen and save a picture of it
// With no display the program runs on the offscreen platform, says so, and writes a picture
// of the window instead of showing it.
#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QLocale>
#include <QPixmap>
#include <QTranslator>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "CKTScinWnd.h"

namespace {
int usage() {
    std::fprintf(stderr,
                 "usage: quillbox edit FILE\n"
                 "       quillbox shot FILE -o OUT.png\n");
    return 2;
}

bool hasDisplay() {
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    if (platform && *platform) return true;  // the user chose a platform
    return (std::getenv("DISPLAY") && *std::getenv("DISPLAY")) ||
           (std::getenv("WAYLAND_DISPLAY") && *std::getenv("WAYLAND_DISPLAY"));
}

// The editor window the program hosts: an application editor window in the main window.
class EditorHost {
public:
    EditorHost() {
        window_.resize(900, 600);
        frame_ = CWnd::FromWidget(&window_);
    }

    bool open(const char* path) {
        RECT rect{0, 0, window_.width(), window_.height()};
        if (!editor_.Create("editor", WS_CHILD | WS_VISIBLE, rect, frame_, 100)) {
            std::fprintf(stderr, "quillbox: the editor window could not be made\n");
            return false;
        }
        window_.setCentralWidget(editor_.GetSafeHwnd());
        window_.setWindowTitle(QCoreApplication::translate("QuillboxApp", "Quillbox - %1").arg(QString::fromLocal8Bit(path)));
        if (!editor_.LoadFile(path)) {
            std::fprintf(stderr, "quillbox: cannot open %s: %s\n", path, editor_.GetLastFileError().c_str());
            return false;
        }
        return true;
    }

    QMainWindow& window() { return window_; }

private:
    QMainWindow window_;
    CWnd* frame_ = nullptr;
    CKTScinWnd editor_;
};

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
    if (argc < 3) return usage();
    const std::string command = argv[1];
    const char* file = argv[2];
    const char* picture = nullptr;
    for (int i = 3; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], "-o") == 0) picture = argv[i + 1];

    bool offscreen = command == "shot";
    if (!offscreen && !hasDisplay()) {
        std::printf("quillbox: no display found; running on the offscreen platform\n");
        offscreen = true;
        if (!picture) picture = "quillbox-window.png";
    }
    if (offscreen) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (command != "edit" && command != "shot") return usage();
    if (command == "shot" && !picture) return usage();

    QApplication app(argc, argv);
    // The program's own strings, in the language the library's start chose.
    QTranslator programStrings;
    const QString language = QLocale().name().replace('_', '-');
    if (programStrings.load(QCoreApplication::applicationDirPath() + "/" + language + "/quillbox.qm"))
        QCoreApplication::installTranslator(&programStrings);
    EditorHost host;
    if (!host.open(file)) return 1;
    if (offscreen) return savePicture(host.window(), picture) ? 0 : 1;
    host.window().show();
    return app.exec();
}
