// SPDX-License-Identifier: LGPL-2.1-or-later
#include "sqlgrammar.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView starts[] = {
    ""_L1,
    "x"_L1,
    "CONT-4"_L1,
    "DIECUT"_L1,
    "RIB-TWO"_L1,
    "12"_L1,
    "gap"_L1,
    "0"_L1,
    "-1"_L1,
    "1e999"_L1,
    "STRIPED"_L1,
    "UnknownSupply"_L1,
    "4B000912C10404900400"_L1,
    "%1"_L1,
    "%2"_L1,
    "%3%2%1"_L1,
    "%%"_L1,
};

constexpr QLatin1StringView closings[] = {
    "'"_L1, "')"_L1, "'))"_L1, "''"_L1, "'''"_L1, "\""_L1, "`"_L1, "]"_L1, ""_L1, "\\'"_L1, "'/**/"_L1, "' "_L1,
};

constexpr QLatin1StringView endings[] = {
    "--"_L1,
    "-- "_L1,
    "--\n"_L1,
    "/*"_L1,
    ";"_L1,
    ";--"_L1,
    " OR '"_L1,
    " AND 'a'='a"_L1,
    ""_L1,
    "'"_L1,
    "/* */ --"_L1,
    " LIMIT 1 --"_L1,
    " ORDER BY 1 --"_L1,
    " ORDER BY 1 DESC --"_L1,
    " GROUP BY 1 --"_L1,
    " LIMIT 1 OFFSET 3 --"_L1,
    " COLLATE NOCASE --"_L1,
    " WINDOW w AS (ORDER BY 1) --"_L1,
};

constexpr QLatin1StringView expressions[] = {
    "1"_L1,
    "NULL"_L1,
    "1=1"_L1,
    "'a'"_L1,
    "x'00FF'"_L1,
    "9223372036854775807"_L1,
    "-9223372036854775808"_L1,
    "1e308*10"_L1,
    "0x7fffffff+1"_L1,
    "abs(-9223372036854775807-1)"_L1,
    "sql"_L1,
    "name"_L1,
    "itemNum"_L1,
    "rowid"_L1,
    "rgbValue"_L1,
    "randomblob(512)"_L1,
    "zeroblob(1500)"_L1,
    "hex(randomblob(64))"_L1,
    "quote(zeroblob(100))"_L1,
    "printf('%1000d',7)"_L1,
    "printf('%s%n%2%1','a')"_L1,
    "char(0,55296,57343,65534,1114111)"_L1,
    "replace(hex(zeroblob(200)),'0','00')"_L1,
    "load_extension('hostile')"_L1,
    "load_extension('./hostile.so','entry')"_L1,
    "writefile('hostile.out','x')"_L1,
    "readfile('/etc/hostname')"_L1,
    "edit('x')"_L1,
    "fts3_tokenizer('simple')"_L1,
    "fts3_tokenizer('simple',x'4141414141414141')"_L1,
    "sqlite_version()"_L1,
    "sqlite_compileoption_get(3)"_L1,
    "last_insert_rowid()"_L1,
    "changes()+total_changes()"_L1,
    "json_extract('[1,2]','$[1]')"_L1,
    "json('[[[[[[')"_L1,
    "likelihood(1,0.5)"_L1,
    "instr('aaaa','a')"_L1,
    "'a' LIKE '%_%a'"_L1,
    "'a' GLOB '*[^'"_L1,
    "'a' REGEXP '('"_L1,
    "'a' MATCH 'b'"_L1,
    "CAST('1' AS BLOB)"_L1,
    "CASE WHEN 1 THEN 2 ELSE 3 END"_L1,
    "RAISE(ABORT,'no')"_L1,
    "count(*)"_L1,
    "max(1,2)"_L1,
    "group_concat(name)"_L1,
    "row_number() OVER (ORDER BY 1)"_L1,
    "(SELECT count(*) FROM sqlite_master)"_L1,
    "(SELECT group_concat(sql) FROM sqlite_master)"_L1,
    "(SELECT file FROM pragma_database_list)"_L1,
    "(SELECT itemNum FROM roll LIMIT 1)"_L1,
    "EXISTS(SELECT 1 FROM ribbon)"_L1,
    "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<500) SELECT max(i) FROM n)"_L1,
    "(WITH RECURSIVE n(i) AS (SELECT 1 UNION SELECT i+1 FROM n LIMIT 300) SELECT group_concat(i) FROM n)"_L1,
};

/// Without the one that asks for an analysis, and is refused it: that has a test of its own.
constexpr QLatin1StringView sources[] = {
    ""_L1,
    " FROM roll"_L1,
    " FROM ribbon, roll"_L1,
    " FROM color NATURAL JOIN ribbon_color"_L1,
    " FROM sqlite_master"_L1,
    " FROM sqlite_schema AS s LEFT JOIN color"_L1,
    " FROM sqlite_temp_master"_L1,
    " FROM main.roll"_L1,
    " FROM temp.roll"_L1,
    " FROM other.roll"_L1,
    " FROM (SELECT 1 UNION SELECT 2)"_L1,
    " FROM (VALUES (1),(2),(3))"_L1,
    " FROM json_each('[1,2,3]')"_L1,
    " FROM pragma_table_info('roll')"_L1,
    " FROM pragma_database_list"_L1,
    " FROM pragma_integrity_check"_L1,
    " FROM pragma_wal_checkpoint"_L1,
    " FROM pragma_journal_mode"_L1,
    " FROM pragma_function_list"_L1,
    " FROM pragma_compile_options"_L1,
    " FROM dbstat"_L1,
    " FROM sqlite_dbpage"_L1,
    " FROM generate_series(1,9)"_L1,
    " FROM readfile('/etc/hostname')"_L1,
    " FROM fsdir('.')"_L1,
    " FROM roll INDEXED BY nothing"_L1,
    " FROM roll NOT INDEXED"_L1,
};

/// What a statement of its own would do; after a first statement it is never run.
constexpr QLatin1StringView statements[] = {
    "DELETE FROM roll"_L1,
    "UPDATE ribbon SET sku='x'"_L1,
    "INSERT INTO color VALUES (99,99,99,'x')"_L1,
    "REPLACE INTO format(id) VALUES (1)"_L1,
    "DROP TABLE roll"_L1,
    "CREATE TABLE hostile(x)"_L1,
    "CREATE TEMP TABLE hostile(x)"_L1,
    "CREATE TRIGGER hostile INSERT ON roll BEGIN SELECT 1; END"_L1,
    "CREATE VIRTUAL TABLE hostile USING fts3(x)"_L1,
    "ALTER TABLE roll RENAME TO hostile"_L1,
    "ATTACH 'hostile.sqlite' AS other"_L1,
    "ATTACH ':memory:' AS other"_L1,
    "ATTACH 'file:hostile.sqlite?mode=rwc' AS other"_L1,
    "DETACH main"_L1,
    "VACUUM"_L1,
    "VACUUM INTO 'hostile.sqlite'"_L1,
    "REINDEX"_L1,
    "ANALYZE"_L1,
    "BEGIN EXCLUSIVE"_L1,
    "SAVEPOINT hostile"_L1,
    "COMMIT"_L1,
    "PRAGMA journal_mode=WAL"_L1,
    "PRAGMA writable_schema=ON"_L1,
    "PRAGMA user_version=99"_L1,
    "PRAGMA temp_store_directory='.'"_L1,
    "PRAGMA query_only=OFF"_L1,
    "EXPLAIN DELETE FROM roll"_L1,
    "SELECT load_extension('hostile')"_L1,
    "SELECT 1"_L1,
    ".shell touch hostile"_L1,
    ".output hostile"_L1,
};

constexpr QLatin1StringView words[] = {
    "SELECT"_L1,    "FROM"_L1,      "WHERE"_L1,    "UNION"_L1,    "ALL"_L1,         "EXCEPT"_L1,
    "INTERSECT"_L1, "VALUES"_L1,    "DISTINCT"_L1, "ORDER BY"_L1, "GROUP BY"_L1,    "HAVING"_L1,
    "LIMIT"_L1,     "OFFSET"_L1,    "AND"_L1,      "OR"_L1,       "NOT"_L1,         "IN"_L1,
    "BETWEEN"_L1,   "IS"_L1,        "NULL"_L1,     "ISNULL"_L1,   "LIKE"_L1,        "GLOB"_L1,
    "ESCAPE"_L1,    "CASE"_L1,      "WHEN"_L1,     "THEN"_L1,     "END"_L1,         "AS"_L1,
    "COLLATE"_L1,   "CAST"_L1,      "EXISTS"_L1,   "INTO"_L1,     "OVER"_L1,        "PARTITION BY"_L1,
    "FILTER"_L1,    "RETURNING"_L1, "ATTACH"_L1,   "PRAGMA"_L1,   "VACUUM INTO"_L1, "DELETE"_L1,
    "UPDATE"_L1,    "INSERT"_L1,    "DROP"_L1,     "CREATE"_L1,   "("_L1,           ")"_L1,
    ","_L1,         "."_L1,         "*"_L1,        "="_L1,        "<>"_L1,          "||"_L1,
    "->>"_L1,       "<<"_L1,        "~"_L1,        "+"_L1,        "-"_L1,           "/"_L1,
    "%"_L1,         "'"_L1,         "''"_L1,       "\""_L1,       "`"_L1,           "["_L1,
    "]"_L1,         ";"_L1,         "--"_L1,       "/*"_L1,       "*/"_L1,          "?"_L1,
    "?1"_L1,        ":a"_L1,        "@b"_L1,       "$c"_L1,       "#"_L1,           "\\"_L1,
    "0"_L1,         "1"_L1,         "1.5"_L1,      "1e5"_L1,      "0x1F"_L1,        "x'41'"_L1,
    "'x'"_L1,       "sku"_L1,       "id"_L1,       "rowid"_L1,    "languageId"_L1,  "%1"_L1,
    "%2"_L1,        "%3"_L1,        "%L1"_L1,      "%99"_L1,      "\n"_L1,          "\t"_L1,
    "\r"_L1,
};

constexpr QLatin1StringView tables[] = {"roll"_L1,   "ribbon"_L1,        "color"_L1,
                                        "format"_L1, "sqlite_master"_L1, "json_each"_L1};

constexpr char16_t oddCharacters[] = {0,      1,      u'\'',  0x7F,   0x80,   0xA0,   0xDC,   0x2018, 0x2019,
                                      0x02BC, 0xFF07, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFEFF, 0xFFFE, 0xFFFF};

QString columns(ChoiceSource &choices)
{
    QString list = choices.oneOf(expressions);
    // Every lookup has one column, so that a second one is refused; the shared-id query has one, too.
    for (int more = choices.chance(85) ? 0 : 1 + choices.below(3); more > 0; --more)
        list += u',' + choices.oneOf(expressions);
    return list;
}

QString joinedSelect(ChoiceSource &choices)
{
    static constexpr QLatin1StringView joins[] = {
        " UNION SELECT "_L1,     " UNION ALL SELECT "_L1, " EXCEPT SELECT "_L1,        "/**/UNION/**/SELECT/**/"_L1,
        " INTERSECT SELECT "_L1, "\nuNiOn\tsElEcT\n"_L1,  " UNION SELECT DISTINCT "_L1};
    return choices.oneOf(joins) + columns(choices) + choices.oneOf(sources);
}

QString condition(ChoiceSource &choices)
{
    static constexpr QLatin1StringView operators[] = {
        " OR "_L1,    " AND "_L1, "||"_L1, "="_L1, " IN (1) OR "_L1, " LIKE "_L1, " COLLATE BINARY OR "_L1,
        " IS NOT "_L1};
    return choices.oneOf(operators) + choices.oneOf(expressions);
}

QString injection(ChoiceSource &choices)
{
    QString text = QString(choices.oneOf(starts)) + choices.oneOf(closings);
    for (int parts = choices.below(3); parts >= 0; --parts) {
        const int kind = choices.below(10);
        text += kind < 5 ? joinedSelect(choices) : kind < 8 ? condition(choices) : u';' + choices.oneOf(statements);
    }
    return text + choices.oneOf(endings);
}

QString soup(ChoiceSource &choices)
{
    QString text = choices.oneOf(closings);
    int tablesLeft = 2;
    for (int count = choices.below(30); count > 0; --count) {
        if (choices.chance(8) && tablesLeft-- > 0)
            text += choices.oneOf(tables);
        else
            text += choices.chance(10) ? choices.oneOf(expressions) : choices.oneOf(words);
        if (choices.chance(80))
            text += u' ';
    }
    return text;
}

QString garbage(ChoiceSource &choices)
{
    QString text;
    for (int count = choices.below(60); count > 0; --count) {
        if (choices.chance(30))
            text += QChar(choices.oneOf(oddCharacters));
        else if (choices.chance(20))
            text += QChar(char16_t(choices.below(0x10000)));
        else
            text += choices.oneOf(words);
    }
    return text;
}

/// Deep, wide or long, up to where SQLite refuses it.
QString extreme(ChoiceSource &choices)
{
    const int size = 1 << choices.below(13);
    switch (choices.below(6)) {
    case 0:
        return u"' OR "_s + QString(size, u'(') + u'1' + QString(size, u')') + u"--"_s;
    case 1:
        return u"'"_s + u" UNION ALL SELECT 1"_s.repeated(size / 4) + u"--"_s;
    case 2:
        return u"' OR 1"_s + u"+1"_s.repeated(size) + u"--"_s;
    case 3:
        return u"' OR 1 IN ("_s + u"1,"_s.repeated(size) + u"1)--"_s;
    case 4:
        return QString(size * 16, choices.chance(50) ? u'\'' : u'A');
    default:
        return u"' OR "_s + u"NOT "_s.repeated(size) + u"1--"_s;
    }
}

} // namespace

namespace sqlgrammar {

QString hostileText(ChoiceSource &choices)
{
    const int kind = choices.below(1000);
    QString text = kind < 550   ? injection(choices)
                   : kind < 800 ? soup(choices)
                   : kind < 998 ? garbage(choices)
                                : extreme(choices);
    if (choices.chance(5))
        text.insert(choices.below(int(text.size()) + 1), QChar(choices.oneOf(oddCharacters)));
    return text;
}

QStringList knownTexts()
{
    QStringList texts;
    for (const QLatin1StringView expression : expressions)
        texts.append(u"x' UNION SELECT "_s + expression + u" --"_s);
    for (const QLatin1StringView source : sources)
        texts.append(u"x' UNION SELECT 1"_s + source + u" --"_s);
    for (const QLatin1StringView start : starts) {
        for (const QLatin1StringView closing : closings)
            texts.append(QString(start) + closing);
    }
    return texts + stackedStatements();
}

QStringList stackedStatements()
{
    QStringList texts;
    for (const QLatin1StringView statement : statements)
        texts.append({u"x'; "_s + statement + u"; --"_s, u"CONT-4'; "_s + statement + u"; SELECT '"_s,
                      u"RIB-TWO';"_s + statement});
    return texts;
}

} // namespace sqlgrammar
