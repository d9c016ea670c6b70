// The property file reaches the engine: lexer properties as written, keyword lists and
// styles expanded, read afresh at every start-up sequence.
#include <QDir>
#include <QFile>

#include "EditorFixture.h"
#include "System.h"

namespace {
constexpr int SCE_SQL_WORD = 5, SCE_SQL_IDENTIFIER = 11, SCE_SQL_WORD2 = 16;  // styles of the SQL lexer

class LanguageTest : public EditorTest {
protected:
    void TearDown() override {
        QFile::remove(path());
        EditorTest::TearDown();
    }
    // Writes the property file beside this test program.
    static QString path() { return CScintillaWnd::PropertiesFolder().toQString() + "/SciTEGlobal.properties"; }
    void writeProperties(const char* text) {
        QDir().mkpath(CScintillaWnd::PropertiesFolder().toQString());
        QFile f(path());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(text) == qint64(strlen(text)));
    }
    CString property(const char* key) {
        char value[256] = {};
        send(SCI_GETPROPERTY, reinterpret_cast<WPARAM>(key), reinterpret_cast<LPARAM>(value));
        return CString(value);
    }
    // The lexer's style at a position of a one-line text.
    int styleOf(const char* text, int position) {
        editor->SetText(text, 0);
        send(SCI_COLOURISE, 0, -1);
        return int(send(SCI_GETSTYLEAT, WPARAM(position)));
    }
};
}  // namespace

TEST_F(LanguageTest, PropertiesGoToTheLexerAsWrittenAndKeywordListsExpanded) {
    writeProperties(
        "file.patterns.sql=*.sql;*.pls\n"
        "fold=1\n"
        "lexer.sql.backticks.identifier=$(fold)\n"
        "keywords.*.sql=select from\n"
        "keywords2.$(file.patterns.sql)=orders\n");
    editor->initScintilla();
    EXPECT_EQ(property("fold"), "1");
    EXPECT_EQ(property("lexer.sql.backticks.identifier"), "$(fold)");  // forwarded without expansion
    EXPECT_EQ(property("fold.compact"), "");  // a name the file lacks goes out empty
    EXPECT_EQ(send(SCI_GETLEXER), SCLEX_SQL);
    for (auto [position, style] : {std::pair{0, SCE_SQL_WORD}, {14, SCE_SQL_WORD2}, {7, SCE_SQL_IDENTIFIER}})
        EXPECT_EQ(styleOf("select a from orders", position), style) << position;

    writeProperties("keywords2.*.sql=select\n");  // each start-up reads the file afresh: list 0 is gone
    editor->initScintilla();
    EXPECT_EQ(styleOf("select", 0), SCE_SQL_WORD2);

    QFile::remove(path());  // without a file the window still works, with no keywords at all
    editor->initScintilla();
    EXPECT_EQ(send(SCI_GETLEXER), SCLEX_SQL);
    EXPECT_EQ(styleOf("select 1", 0), SCE_SQL_IDENTIFIER);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 5), 0xFF0000);  // the window's own colours
}

TEST_F(LanguageTest, MonospaceFontReachesEveryStyleButTheLineNumbers) {
    writeProperties("font.monospace=font:DejaVu Sans Mono,size:13\nstyle.sql.32=size:11\n");
    editor->ApplyProFile();  // the rest of the start-up sequence sets the window's own font
    for (int style : {0, 200, int(STYLE_DEFAULT)}) EXPECT_EQ(send(SCI_STYLEGETSIZE, WPARAM(style)), 13) << style;
    EXPECT_NE(send(SCI_STYLEGETSIZE, STYLE_LINENUMBER), 13);

    writeProperties("");  // an empty style sends only the character set
    editor->initScintilla();
    editor->engine()->resetCounters();
    editor->SetOneStyleForTest(5, StyleDefinition(""));
    EXPECT_EQ(editor->engine()->counters().messages, 1u);
}
