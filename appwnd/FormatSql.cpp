// The Format SQL command: the selection, or the whole text, through the SQL formatter of the
// utility library, with the format options as the settings hold them at that moment.
#include "CKTScinWnd.h"
#include "CKTRegistry.h"
#include "Settings.h"
#include "CSQLFormatter.h"
#include "System.h"

namespace {
// Reserved words of the SQL dialect, upper case; the formatter gives them the keyword case.
const char* const kSQLKeywords[] = {
    "ACCESS", "ADD", "ALL", "ALTER", "ANALYZE", "AND", "ANY", "ARRAY", "AS", "ASC", "ASSOCIATE",
    "AT", "AUDIT", "AVG", "BEGIN", "BETWEEN", "BINARY_INTEGER", "BITMAP", "BODY", "BOOLEAN", "BULK",
    "BY", "CALL", "CASCADE", "CASE", "CHAR", "CHAR_BASE", "CHECK", "CLASS", "CLOSE", "CLUSTER",
    "COALESCE", "COLLECT", "COLUMN", "COMMENT", "COMMIT", "COMPILE", "COMPRESS", "CONNECT",
    "CONSTANT", "CONSTRAINT", "CONSTRAINTS", "CONTEXT", "CONTROLFILE", "COST", "CREATE", "CURRENT",
    "CURRVAL", "CURSOR", "DATABASE", "DATE", "DAY", "DECIMAL", "DECLARE", "DEFAULT", "DELETE",
    "DESC", "DIMENSION", "DIRECTORY", "DISASSOCIATE", "DISTINCT", "DO", "DROP", "ELSE", "ELSIF",
    "END", "EXCEPTION", "EXCLUSIVE", "EXECUTE", "EXISTS", "EXIT", "EXPLAIN", "EXTENDS", "EXTRACT",
    "FALSE", "FETCH", "FILE", "FLOAT", "FLUSH", "FOR", "FORALL", "FOREIGN", "FROM", "FUNCTION",
    "GLOBAL", "GOTO", "GRANT", "GROUP", "HASH", "HAVING", "HEAP", "HOUR", "IDENTIFIED", "IF",
    "IMMEDIATE", "IN", "INCREMENT", "INDEX", "INDEXTYPE", "INDICATOR", "INITIAL", "INITRANS",
    "INSERT", "INTEGER", "INTERFACE", "INTERSECT", "INTERVAL", "INTO", "IS", "ISOLATION", "JAVA",
    "KEY", "LESS", "LEVEL", "LIBRARY", "LIKE", "LIMITED", "LINK", "LOCK", "LOG", "LONG", "LOOP",
    "MATERIALIZED", "MAX", "MAXEXTENTS", "MAXTRANS", "MIN", "MINEXTENTS", "MINUS", "MINUTE",
    "MLSLABEL", "MOD", "MODE", "MODIFY", "MONTH", "NATURAL", "NATURALN", "NEW", "NEXT", "NEXTVAL",
    "NOAUDIT", "NOCOMPRESS", "NOCOPY", "NOFORCE", "NOT", "NOWAIT", "NULL", "NULLIF", "NUMBER",
    "NUMBER_BASE", "OCIROWID", "OF", "OFFLINE", "ON", "ONLINE", "OPAQUE", "OPEN", "OPERATOR",
    "OPTION", "OR", "ORDER", "ORGANIZATION", "OTHERS", "OUT", "OUTLINE", "PACKAGE", "PARTITION",
    "PCTFREE", "PCTINCREASE", "PCTUSED", "PLAN", "PLS_INTEGER", "POSITIVE", "POSITIVEN", "PRAGMA",
    "PRIMARY", "PRIOR", "PRIVATE", "PRIVILEGES", "PROCEDURE", "PROFILE", "PUBLIC", "RAISE", "RANGE",
    "RAW", "REAL", "RECORD", "REF", "REFERENCES", "RELEASE", "RENAME", "REPLACE", "RESOLVE",
    "RESOURCE", "RETURN", "REVERSE", "REVOKE", "ROLE", "ROLLBACK", "ROW", "ROWID", "ROWNUM", "ROWS",
    "ROWTYPE", "SAVEPOINT", "SCHEMA", "SECOND", "SEGMENT", "SELECT", "SEPARATE", "SEQUENCE",
    "SESSION", "SET", "SHARE", "SHARED", "SIZE", "SMALLINT", "SNAPSHOT", "SOURCE", "SPACE", "SQL",
    "SQLCODE", "SQLERRM", "START", "STATISTICS", "STDDEV", "STORAGE", "SUBPARTITION", "SUBTYPE",
    "SUCCESSFUL", "SUM", "SYNONYM", "SYSDATE", "SYSTEM", "TABLE", "TABLESPACE", "TEMPORARY", "THAN",
    "THEN", "TIME", "TIMESTAMP", "TIMEZONE_ABBR", "TIMEZONE_HOUR", "TIMEZONE_MINUTE",
    "TIMEZONE_REGION", "TO", "TRANSACTION", "TRIGGER", "TRUE", "TRUNCATE", "TYPE", "UID", "UNION",
    "UNIQUE", "UPDATE", "USE", "USER", "USING", "VALIDATE", "VALUES", "VARCHAR", "VARCHAR2",
    "VARIANCE", "VIEW", "WHEN", "WHENEVER", "WHERE", "WHILE", "WITH", "WORK", "WRITE", "YEAR",
    "ZONE", nullptr,
};

// Function names; the formatter sets them against their parenthesis. ROUND, TRANSLATE and
// TRUNC stand twice, once for each of their overloads.
const char* const kSQLFunctions[] = {
    "ABS", "ACOS", "ADD_MONTHS", "ASCII", "ASCIISTR", "ASIN", "ATAN", "ATAN2", "AVG", "BFILENAME",
    "BIN_TO_NUM", "BITAND", "CAST", "CEIL", "CHARTOROWID", "CHR", "COALESCE", "COMPOSE", "CONCAT",
    "CONVERT", "CORR", "COS", "COSH", "COUNT", "COVAR_POP", "COVAR_SAMP", "CUME_DIST",
    "CURRENT_DATE", "CURRENT_TIMESTAMP", "DBTIMEZONE", "DECODE", "DECOMPOSE", "DENSE_RANK", "DEPTH",
    "DEREF", "DUMP", "EMPTY_BLOB", "EMPTY_CLOB", "EXISTSNODE", "EXP", "EXTRACT", "EXTRACTVALUE",
    "FIRST", "FIRST_VALUE", "FLOOR", "FROM_TZ", "GREATEST", "GROUPING", "GROUPING_ID", "GROUP_ID",
    "HEXTORAW", "INITCAP", "INSTR", "LAG", "LAST", "LAST_DAY", "LAST_VALUE", "LEAD", "LEAST",
    "LENGTH", "LN", "LOCALTIMESTAMP", "LOG", "LOWER", "LPAD", "LTRIM", "MAKE_REF", "MAX", "MIN",
    "MOD", "MONTHS_BETWEEN", "NCHR", "NEW_TIME", "NEXT_DAY", "NLSSORT", "NLS_CHARSET_DECL_LEN",
    "NLS_CHARSET_ID", "NLS_CHARSET_NAME", "NLS_INITCAP", "NLS_LOWER", "NLS_UPPER", "NTILE",
    "NULLIF", "NUMTODSINTERVAL", "NUMTOYMINTERVAL", "NVL", "NVL2", "PATH", "PERCENTILE_CONT",
    "PERCENTILE_DISC", "PERCENT_RANK", "POWER", "RANK", "RATIO_TO_REPORT", "RAWTOHEX", "RAWTONHEX",
    "REF", "REFTOHEX", "REGR_AVGX", "REGR_AVGY", "REGR_COUNT", "REGR_INTERCEPT", "REGR_R2",
    "REGR_SLOPE", "REGR_SXX", "REGR_SXY", "REGR_SYY", "REPLACE", "ROUND", "ROUND", "ROWIDTOCHAR",
    "ROWIDTONCHAR", "ROW_NUMBER", "RPAD", "RTRIM", "SESSIONTIMEZONE", "SIGN", "SIN", "SINH",
    "SOUNDEX", "SQRT", "STDDEV", "STDDEV_POP", "STDDEV_SAMP", "SUBSTR", "SUM", "SYSDATE",
    "SYSTIMESTAMP", "SYS_CONNECT_BY_PATH", "SYS_CONTEXT", "SYS_DBURIGEN", "SYS_EXTRACT_UTC",
    "SYS_GUID", "SYS_TYPEID", "SYS_XMLAGG", "SYS_XMLGEN", "TAN", "TANH", "TO_CHAR", "TO_CLOB",
    "TO_DATE", "TO_DSINTERVAL", "TO_LOB", "TO_MULTI_BYTE", "TO_NCHAR", "TO_NCLOB", "TO_NUMBER",
    "TO_SINGLE_BYTE", "TO_TIMESTAMP", "TO_TIMESTAMP_TZ", "TO_YMINTERVAL", "TRANSLATE", "TRANSLATE",
    "TREAT", "TRIM", "TRUNC", "TRUNC", "TZ_OFFSET", "UID", "UNISTR", "UPDATEXML", "UPPER", "USER",
    "USERENV", "VALUE", "VARIANCE", "VAR_POP", "VAR_SAMP", "VSIZE", "WIDTH_BUCKET", "XMLAGG",
    "XMLCOLATTVAL", "XMLCONCAT", "XMLELEMENT", "XMLFOREST", "XMLSEQUENCE", "XMLTRANSFORM", nullptr,
};

char foldCase(char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; }

// Whether the first `length` bytes of `word` are one entry of `table`, in any letter case.
// The entry must end exactly there, so a longer word matches on its first `length` bytes.
// Bytes outside ASCII compare as they are, so a multi-byte character never matches a letter.
int inTable(const char* const* table, const char* word, int length) {
    if (!word || length <= 0) return 0;
    for (const char* const* entry = table; *entry; ++entry) {
        const char* e = *entry;
        int k = 0;
        while (k < length && e[k] != '\0' && word[k] != '\0' && foldCase(word[k]) == e[k]) ++k;
        if (k == length && e[k] == '\0') return 1;
    }
    return 0;
}
}  // namespace

int CKTScinWnd::isSQLKeyword(const char* word, int length) { return inTable(kSQLKeywords, word, length); }

int CKTScinWnd::isSQLKeyword2(const char* word, int length) { return inTable(kSQLFunctions, word, length); }

void CKTScinWnd::refreshOptionFormatSQL() {
    CKTMgrSetting setting(0);
    if (!setting.GetKey()) return;
    keywordAlign = settings::KeywordAlign.Read(setting, keywordAlign) != 0;
    commaInList = settings::CommaInList.Read(setting, commaInList) != 0;
    keywordCase = settings::KeywordCase.Read(setting, keywordCase);
    multiline = settings::Multiline.Read(setting, multiline) != 0;
}

void CKTScinWnd::FormatSql() {
    traceEntry("CKTScinWnd::FormatSql", __LINE__);
    // A read-only window (the output viewer) is never rewritten, even by its own command.
    if (SendEditor(SCI_GETREADONLY)) {
        MessageBeep(MB_ICONHAND);
        return;
    }
    // Selection or whole text is decided once: the result goes back the same way.
    const bool selection = IsSelection() != 0;
    CString input;
    if (selection) {
        CPoint from, to;
        GetSelection(from, to);
        if (from == to) {
            MessageBeep(MB_ICONHAND);
            return;
        }
        input = GetSelectedText();
    } else {
        input = GetText();
    }
    if (input.IsEmpty()) {
        MessageBeep(MB_ICONHAND);
        return;
    }
    refreshOptionFormatSQL();

    CString result;
    {
        CSQLFormatter formatter;
        formatter.isKeywordFunc = isKeywordFunc;
        formatter.isListKeywordFunc = isListKeywordFunc;
        result = formatter.Format(input, keywordAlign, commaInList, keywordCase, multiline, formatFlag, 80);
    }
    if (selection) ReplaceSelection(result, 0);
    else SetText(result, 1);  // kept on the undo stack, as one step
    SendEditor(SCI_SETXOFFSET, 0);
}

void CKTScinWnd::OnFormatSql() { FormatSql(); }

void CKTScinWnd::OnUpdateFormatSql(CCmdUI* ui) {
    if (ui) ui->Enable(SendEditor(SCI_GETLENGTH) >= 1 && !SendEditor(SCI_GETREADONLY) ? TRUE : FALSE);
}
