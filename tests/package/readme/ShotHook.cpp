// Linked into the README's host program, unchanged, by the package test: once the program's
// event loop runs, it saves a picture of the shown window to $QUILLBOX_SHOT and quits, with
// status 0 when the picture holds coloured text and 3 when every pixel is grey.
#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace {
int colouredPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (std::abs(c.red() - c.green()) > 60 || std::abs(c.green() - c.blue()) > 60 ||
                std::abs(c.red() - c.blue()) > 60)
                ++count;
        }
    return count;
}

void armShot() {
    QTimer::singleShot(300, [] {
        QApplication::processEvents();
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (!w->isVisible()) continue;
            const QImage image = w->grab().toImage();
            const char* out = std::getenv("QUILLBOX_SHOT");
            if (out && !image.save(QString::fromLocal8Bit(out))) std::printf("shot: cannot write %s\n", out);
            const int coloured = colouredPixels(image);
            std::printf("shot: %d coloured pixels\n", coloured);
            QCoreApplication::exit(coloured > 50 ? 0 : 3);
            return;
        }
        std::printf("shot: no window is shown\n");
        QCoreApplication::exit(4);
    });
}
}  // namespace

Q_COREAPP_STARTUP_FUNCTION(armShot)
