// The property file reaches the engine: lexer properties as written, keyword lists and
// styles expanded, read afresh at every start-up sequence.
#include <QDir>
#include <QFile>

#include "EditorFixture.h"
#include "System.h"

namespace {
// Styles of the SQL lexer.
constexpr int SCE_SQL_WORD = 5;
constexpr int SCE_SQL_IDENTIFIER = 11;
constexpr int SCE_SQL_WORD2 = 16;

// Writes the property file beside this test program, and removes it at the end.
class PropertyFile {
public:
    explicit PropertyFile(const char* text) { write(text); }
    ~PropertyFile() { QFile::remove(path()); }
    void write(const char* text) {
        QDir().mkpath(CScintillaWndFolder());
        QFile f(path());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(text);
    }
    static QString CScintillaWndFolder() { return CScintillaWnd::PropertiesFolder().toQString(); }
    static QString path() { return CScintillaWndFolder() + "/SciTEGlobal.properties"; }
};

class LanguageTest : public EditorTest {
protected:
    CString property(const char* key) {
        char value[256] = {};
        send(SCI_GETPROPERTY, reinterpret_cast<WPARAM>(key), reinterpret_cast<LPARAM>(value));
        return CString(value);
    }
    // The lexer's style at the start of each word of a one-line text.
    int styleOf(const char* text, int position) {
        editor->SetText(text, 0);
        send(SCI_COLOURISE, 0, -1);
        return int(send(SCI_GETSTYLEAT, WPARAM(position)));
    }
};
}  // namespace

TEST_F(LanguageTest, PropertiesGoToTheLexerAsWrittenAndKeywordListsExpanded) {
    PropertyFile file(
        "file.patterns.sql=*.sql;*.pls\n"
        "fold=1\n"
        "lexer.sql.backticks.identifier=$(fold)\n"
        "keywords.*.sql=select from\n"
        "keywords2.$(file.patterns.sql)=orders\n"
        "braces.sql.style=10\n");
    editor->initScintilla();
    EXPECT_EQ(property("fold"), "1");
    EXPECT_EQ(property("lexer.sql.backticks.identifier"), "$(fold)");  // forwarded without expansion
    EXPECT_EQ(property("fold.compact"), "");          // a name the file lacks goes out empty
    EXPECT_EQ(send(SCI_GETLEXER), SCLEX_SQL);
    EXPECT_EQ(styleOf("select a from orders", 0), SCE_SQL_WORD);
    EXPECT_EQ(styleOf("select a from orders", 14), SCE_SQL_WORD2);
    EXPECT_EQ(styleOf("select a from orders", 7), SCE_SQL_IDENTIFIER);
}

TEST_F(LanguageTest, EachStartUpReadsTheFileAfresh) {
    PropertyFile file("keywords.*.sql=select\n");
    editor->initScintilla();
    EXPECT_EQ(styleOf("select", 0), SCE_SQL_WORD);
    file.write("keywords2.*.sql=select\n");  // list 0 is gone from the file
    editor->initScintilla();
    EXPECT_EQ(styleOf("select", 0), SCE_SQL_WORD2);
}

TEST_F(LanguageTest, MonospaceFontReachesEveryStyleButTheLineNumbers) {
    PropertyFile file(
        "font.monospace=font:DejaVu Sans Mono,size:13\n"
        "style.sql.32=size:11\n");
    editor->ApplyProFile();  // the rest of the start-up sequence sets the window's own font
    EXPECT_EQ(send(SCI_STYLEGETSIZE, 0), 13);
    EXPECT_EQ(send(SCI_STYLEGETSIZE, 200), 13);
    EXPECT_EQ(send(SCI_STYLEGETSIZE, STYLE_DEFAULT), 13);
    EXPECT_NE(send(SCI_STYLEGETSIZE, STYLE_LINENUMBER), 13);
}

TEST_F(LanguageTest, AnEmptyStyleSendsOnlyTheCharacterSet) {
    PropertyFile file("");
    editor->initScintilla();
    QuillEngine* engine = editor->engine();
    engine->resetCounters();
    StyleDefinition empty("");
    editor->SetOneStyleForTest(5, empty);
    EXPECT_EQ(engine->counters().messages, 1u);
}

TEST_F(LanguageTest, WithoutAFileTheWindowStillWorks) {
    QFile::remove(PropertyFile::path());
    editor->initScintilla();
    EXPECT_EQ(send(SCI_GETLEXER), SCLEX_SQL);
    EXPECT_EQ(styleOf("select 1", 0), SCE_SQL_IDENTIFIER);  // no keywords at all
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0xFF0000);         // the window's own colours
}
