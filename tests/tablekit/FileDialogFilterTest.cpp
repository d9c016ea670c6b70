// Pipe-form filters into Qt name filters, well-formed and not.
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QFileSystemModel>

#include "CFileDialogEx.h"

namespace {
const char* const kSqlFilter = "SQL Files (*.sql)|*.sql|Text files (*.txt)|*.txt|All Files (*.*)|*.*||";

QStringList convert(const char* filter) { return CFileDialogEx::ConvertFilter(filter); }
}  // namespace

TEST(FileDialogFilter, WellFormedFiltersKeepLabelsAndPatterns) {
    EXPECT_EQ(convert(kSqlFilter),
              QStringList({"SQL Files (*.sql)", "Text files (*.txt)", "All Files (*)"}));
    // Several patterns, a label without parentheses, parentheses that are not patterns.
    EXPECT_EQ(convert("Scripts|*.sql; *.ddl|Logs (SQL)|*.log||"),
              QStringList({"Scripts (*.sql *.ddl)", "Logs (SQL) (*.log)"}));
    // The real patterns win over the ones a label shows.
    EXPECT_EQ(convert("Scripts (*.sql)|*.sql;*.ddl||"), QStringList({"Scripts (*.sql *.ddl)"}));
}

TEST(FileDialogFilter, MalformedFiltersStillGiveUsableEntries) {
    const QStringList all{"All Files (*)"};
    EXPECT_EQ(convert(nullptr), all);
    EXPECT_EQ(convert(""), all);
    EXPECT_EQ(convert("||||"), all);
    EXPECT_EQ(convert("|*.sql|Text|*.txt||"), all);  // an empty label ends the list at once
    // A missing pattern list comes from the label's parentheses, else shows every file.
    EXPECT_EQ(convert("SQL Files (*.sql)||Text|*.txt||"), QStringList({"SQL Files (*.sql)", "Text (*.txt)"}));
    EXPECT_EQ(convert("SQL|*.sql|Text"), QStringList({"SQL (*.sql)", "Text (*)"}));  // odd count
    EXPECT_EQ(convert("SQL|;;"), QStringList({"SQL (*)"}));
    EXPECT_EQ(convert("(*.sql)|"), QStringList({"*.sql (*.sql)"}));
    // Patterns Qt could not read are dropped; a space inside one becomes a wildcard.
    EXPECT_EQ(convert("Data|*.donn\xC3\xA9" "es;*.dat|Mine|my file.*||"),
              QStringList({"Data (*.dat)", "Mine (my?file.*)"}));
}

TEST(FileDialogFilter, QtFiltersTheFolderByTheConvertedPatterns) {
    CFileDialogEx dialog(0, "sql", "", 0, "Scripts (*.sql)|*.sql;*.ddl|Everything|*.*||", nullptr);
    QFileDialog* qt = dialog.fileDialog();
    ASSERT_NE(qt, nullptr);
    auto* model = qt->findChild<QFileSystemModel*>();
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->nameFilters(), QStringList({"*.sql", "*.ddl"}));
    qt->selectNameFilter(qt->nameFilters().at(1));
    EXPECT_EQ(model->nameFilters(), QStringList({"*"}));
}
