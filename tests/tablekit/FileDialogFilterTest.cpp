// Pipe-form filters into Qt name filters, well-formed and not.
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QFileSystemModel>

#include "CFileDialogEx.h"

TEST(FileDialogFilter, FiltersBecomeLabelsWithTheirPatterns) {
    const std::pair<const char*, QStringList> rows[] = {
        {"SQL Files (*.sql)|*.sql|Text files (*.txt)|*.txt|All Files (*.*)|*.*||",
         {"SQL Files (*.sql)", "Text files (*.txt)", "All Files (*)"}},
        // Several patterns, a label without parentheses, parentheses that are not patterns.
        {"Scripts|*.sql; *.ddl|Logs (SQL)|*.log||", {"Scripts (*.sql *.ddl)", "Logs (SQL) (*.log)"}},
        {"Scripts (*.sql)|*.sql;*.ddl||", {"Scripts (*.sql *.ddl)"}},  // the real patterns win
        // Malformed: nothing usable gives every file; an empty label ends the list at once.
        {nullptr, {"All Files (*)"}},
        {"", {"All Files (*)"}},
        {"||||", {"All Files (*)"}},
        {"|*.sql|Text|*.txt||", {"All Files (*)"}},
        // A missing pattern list comes from the label's parentheses, else shows every file.
        {"SQL Files (*.sql)||Text|*.txt||", {"SQL Files (*.sql)", "Text (*.txt)"}},
        {"SQL|*.sql|Text", {"SQL (*.sql)", "Text (*)"}},  // an odd count
        {"SQL|;;", {"SQL (*)"}},
        {"(*.sql)|", {"*.sql (*.sql)"}},
        // Patterns Qt could not read are dropped; a space inside one becomes a wildcard.
        {"Data|*.donn\xC3\xA9" "es;*.dat|Mine|my file.*||", {"Data (*.dat)", "Mine (my?file.*)"}},
    };
    for (const auto& [filter, expected] : rows)
        EXPECT_EQ(CFileDialogEx::ConvertFilter(filter), expected) << (filter ? filter : "null");
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
