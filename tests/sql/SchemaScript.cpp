#include "tests/sql/SchemaScript.h"

#include "platform/quorvane32/core/SqlLexer.h"

namespace dalvora::test {

namespace {

/// The significant tokens of one statement, taken one after the other.
class Words {
public:
    explicit Words(const QString& statement) {
        std::vector<quorvane::SqlToken> tokens;
        quorvane::tokenize(statement, tokens);
        for (const auto& token : tokens)
            if (token.significant())
                m_words.append(token.text(statement).toString());
    }

    bool atEnd() const { return m_at >= m_words.size(); }
    QString peek() const { return m_words.value(m_at); }
    QString take() { return m_words.value(m_at++); }
    /// Takes these words, in any case, or none of them.
    bool take(const QStringList& expected) {
        for (qsizetype i = 0; i < expected.size(); ++i)
            if (m_words.value(m_at + i).compare(expected[i], Qt::CaseInsensitive) != 0)
                return false;
        m_at += expected.size();
        return true;
    }
    /// What stands between two parentheses, separated by commas.
    QStringList takeList() {
        QStringList items;
        if (take({"("}))
            for (items += take(); take({","});)
                items += take();
        return take({")"}) ? items : QStringList();
    }
    QString rest() const { return m_words.mid(m_at).join(u' '); }

private:
    QStringList m_words;
    qsizetype m_at = 0;
};

QString takeType(Words& words) {
    QString type = words.take().toLower();
    const QStringList size = words.takeList();
    return size.isEmpty() ? type : type + u'(' + size.join(u',') + u')';
}

/// Reads behind a column's type; false for a word that is not known.
bool takeProperty(Words& words, SchemaColumn& column, std::vector<SchemaKey>& keys) {
    if (words.take({"NOT", "NULL"}))
        column.nullable = false;
    else if (words.take({"NULL"}))
        column.nullable = true;
    else if (words.take({"DEFAULT"}))
        column.filler = words.take();
    else if (words.take({"COLLATE", "ERP_ES"}) || words.take({"COLLATE", "Modern_Spanish_CI_AS"}))
        column.ignoresCase = true;
    else if (words.take({"GENERATED", "ALWAYS", "AS", "IDENTITY"}) ||
             words.take({"IDENTITY", "(", "1", ",", "1", ")"}))
        column.numbered = true;
    else if (words.take({"PRIMARY", "KEY"}))
        keys.push_back({column.table, {}, {column.name}});
    else
        return false;
    return true;
}

bool takeTable(Words& words, SchemaScript& script) {
    const QString table = words.take();
    if (!words.take({"("}))
        return false;
    do {
        if (words.take({"PRIMARY", "KEY"})) {
            script.keys.push_back({table, {}, words.takeList()});
            continue;
        }
        SchemaColumn column;
        column.table = table;
        column.name = words.take();
        column.type = takeType(words);
        column.ignoresCase = column.type == u"citext";
        while (words.peek() != u"," && words.peek() != u")")
            if (!takeProperty(words, column, script.keys))
                return false;
        script.columns.push_back(column);
    } while (words.take({","}));
    return words.take({")"}) && (words.take({"WITHOUT", "ROWID"}) || words.atEnd());
}

bool takeIndex(Words& words, SchemaScript& script) {
    const QString name = words.take();
    if (!words.take({"ON"}))
        return false;
    const QString table = words.take();
    script.keys.push_back({table, name, words.takeList()});
    return words.atEnd();
}

bool takeStatement(Words& words, SchemaScript& script) {
    if (words.take({"CREATE", "TABLE"}))
        return takeTable(words, script);
    if (words.take({"CREATE", "INDEX"}))
        return takeIndex(words, script);
    if (words.peek() == u"INSERT") {
        script.inserts += words.rest();
        return true;
    }
    return words.take({"CREATE", "EXTENSION", "IF", "NOT", "EXISTS", "citext"}) && words.atEnd();
}

/// The embedded database numbers the rows of a table whose key is one whole number; such a key is never null.
void settleRowNumbers(SchemaScript& script) {
    for (const SchemaKey& key : script.keys)
        for (SchemaColumn& column : script.columns)
            if (key.name.isEmpty() && key.columns == QStringList{column.name} && key.table == column.table &&
                column.type == u"integer") {
                column.numbered = true;
                column.nullable = false;
            }
}

/// A primary key's columns take no null, said or not.
void settleKeys(SchemaScript& script) {
    for (const SchemaKey& key : script.keys)
        for (SchemaColumn& column : script.columns)
            if (key.name.isEmpty() && key.table == column.table && key.columns.contains(column.name))
                column.nullable = false;
}

} // namespace

SchemaScript::SchemaScript(SchemaEngine engine) {
    for (const QString& statement :
         quorvane::statementsOf(QString::fromUtf8(erpTables(engine) + sessionTables(engine)))) {
        Words words(statement);
        if (!takeStatement(words, *this))
            unread += words.rest();
    }
    settleKeys(*this);
    if (engine == SchemaEngine::Sqlite)
        settleRowNumbers(*this);
}

const SchemaColumn* SchemaScript::column(const QString& table, const QString& name) const {
    for (const SchemaColumn& column : columns)
        if (column.table == table && column.name == name)
            return &column;
    return nullptr;
}

} // namespace dalvora::test
