#include "sql/TableLayouts.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace dalvora {

namespace {

/// The words and symbols of a statement, read one after the other.
class Words {
public:
    explicit Words(QStringView sql) : m_sql(sql) {
        std::vector<quorvane::SqlToken> tokens;
        quorvane::tokenize(sql, tokens);
        for (const quorvane::SqlToken& token : tokens)
            if (token.significant())
                m_words.push_back(token.text(sql));
    }

    bool atEnd() const { return m_next >= m_words.size(); }
    QStringView peek() const { return atEnd() ? QStringView() : m_words[m_next]; }
    QStringView take() { return atEnd() ? QStringView() : m_words[m_next++]; }
    /// Takes these words when they come next.
    bool takeIf(std::initializer_list<QStringView> words) {
        if (m_words.size() - m_next < words.size())
            return false;
        auto at = m_words.begin() + static_cast<std::ptrdiff_t>(m_next);
        for (const QStringView word : words)
            if (at++->compare(word, Qt::CaseInsensitive) != 0)
                return false;
        m_next += words.size();
        return true;
    }
    /// The names between the next pair of parentheses.
    QStringList takeNames() {
        QStringList names;
        while (!atEnd() && take() != u"(") {
        }
        while (!atEnd() && peek() != u")") {
            const QStringView word = take();
            if (word != u"," && word.compare(u"desc"_s, Qt::CaseInsensitive) != 0)
                names.append(word.toString());
        }
        take();
        return names;
    }
    /// Everything up to the "," or ")" that ends this part.
    void skipPart() {
        for (int depth = 0; !atEnd(); take()) {
            const QStringView word = peek();
            if (depth == 0 && (word == u"," || word == u")"))
                return;
            depth += word == u"(" ? 1 : 0;
            depth -= word == u")" ? 1 : 0;
        }
    }

private:
    QStringView m_sql;
    std::vector<QStringView> m_words;
    std::size_t m_next = 0;
};

QString takeType(Words& words) {
    QString type = words.take().toString();
    if (words.peek() == u"(") {
        while (!words.atEnd() && words.peek() != u")")
            type += words.take();
        type += words.take();
    }
    return type.toLower();
}

void readColumn(Words& words, TableLayout& table) {
    ColumnLayout column;
    column.name = words.take().toString();
    column.type = takeType(words);
    for (int depth = 0; !words.atEnd(); words.take()) {
        if (depth == 0 && (words.peek() == u"," || words.peek() == u")"))
            break;
        if (depth == 0 && words.takeIf({u"primary", u"key"})) {
            table.key = {column.name};
            break;
        }
        depth += words.peek() == u"(" ? 1 : 0;
        depth -= words.peek() == u")" ? 1 : 0;
    }
    words.skipPart();
    table.columns.push_back(column);
}

TableLayout readTable(Words& words) {
    TableLayout table;
    table.name = words.take().toString();
    words.take(); // the parenthesis
    while (!words.atEnd()) {
        if (words.takeIf({u"constraint"}))
            words.take();
        if (words.takeIf({u"primary", u"key"})) {
            table.key = words.takeNames();
            words.skipPart();
        } else {
            readColumn(words, table);
        }
        if (words.take() == u")")
            break;
    }
    return table;
}

TableLayout* tableNamed(SchemaLayout& layout, QStringView name) {
    const auto found = std::ranges::find_if(layout.tables, [&](const TableLayout& table) {
        return name.compare(table.name, Qt::CaseInsensitive) == 0;
    });
    return found == layout.tables.end() ? nullptr : &*found;
}

void readStatement(SchemaLayout& layout, const QString& statement) {
    Words words(statement);
    TableLayout* table = nullptr;
    if (words.takeIf({u"create", u"table"})) {
        layout.tables.push_back(readTable(words));
        table = &layout.tables.back();
    } else if (const IndexLayout index = readIndex(statement); !index.name.isEmpty()) {
        table = tableNamed(layout, index.table);
        if (table)
            table->indexes.push_back(index);
    } else if (words.takeIf({u"insert", u"into"})) {
        table = tableNamed(layout, words.take());
    }
    (table ? table->statements : layout.preliminaries).append(statement);
}

} // namespace

bool TableLayout::hasColumn(QStringView column) const {
    return std::ranges::any_of(columns, [&](const ColumnLayout& candidate) {
        return column.compare(candidate.name, Qt::CaseInsensitive) == 0;
    });
}

SchemaLayout readLayout(const QByteArray& script) {
    SchemaLayout layout;
    for (const QString& statement : quorvane::statementsOf(QString::fromUtf8(script)))
        readStatement(layout, statement);
    return layout;
}

IndexLayout readIndex(const QString& statement) {
    Words words(statement);
    IndexLayout index;
    if (!words.takeIf({u"create", u"index"}) && !words.takeIf({u"create", u"unique", u"index"}))
        return index;
    index.name = words.take().toString();
    words.take(); // ON
    index.table = words.take().toString();
    index.columns = words.takeNames();
    index.statement = statement;
    return index;
}

SchemaEngine schemaEngineOf(const quorvane::Connection& connection) {
    const QString driver = quorvane::ConnectString::parse(connection.connectString()).value(u"driver"_s);
    // A server that is reached through its ODBC driver is the same server.
    const QString server = driver.section(u"odbc-"_s, -1);
    if (const std::optional<SchemaEngine> engine = schemaEngine(server))
        return *engine;
    throw quorvane::RunTimeError(quorvane::ErrorCannotCreateObject,
                                 u"No hay tablas para la base de datos '%1'"_s.arg(driver));
}

} // namespace dalvora
