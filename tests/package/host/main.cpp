// A host program outside the tree: it creates an editor window on a Qt widget, puts text in
// and reads it back through the installed headers and library.
#include <quillbox/Quillbox.h>

#include <QApplication>
#include <QWidget>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    CScintillaWnd editor;
    if (!editor.Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 400, 300}, CWnd::FromWidget(&window), 1)) return 1;
    editor.SetText("select 1\nfrom dual\n", 0);
    SString copy(editor.GetText().c_str());
    std::printf("host: %d lines, %u bytes\n", editor.GetLineCount(), copy.length());
    return editor.GetLineCount() == 3 ? 0 : 1;
}
