#include "tools/quorvane-admin/HealthCheck.h"

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/session/Accounts.h"
#include "sql/Catalogue.h"
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

enum class ColumnKind { CaselessText, Text, Exact, Float, Whole, Date, Other };

struct TypeWord {
    const char16_t* word; ///< in the name of a type
    ColumnKind kind;
};

/// The first that fits counts. A company's own tables may use another type of the same kind.
constexpr TypeWord typeWords[] = {
    {u"citext", ColumnKind::CaselessText}, {u"char", ColumnKind::Text},     {u"text", ColumnKind::Text},
    {u"dec", ColumnKind::Exact},           {u"numeric", ColumnKind::Exact}, {u"money", ColumnKind::Exact},
    {u"real", ColumnKind::Float},          {u"float", ColumnKind::Float},   {u"double", ColumnKind::Float},
    {u"date", ColumnKind::Date},           {u"time", ColumnKind::Date},     {u"int", ColumnKind::Whole},
};

ColumnKind kindOf(const QString& type) {
    for (const TypeWord& known : typeWords)
        if (type.contains(QStringView(known.word)))
            return known.kind;
    return ColumnKind::Other;
}

QSet<QString> folded(const QStringList& columns) {
    QSet<QString> names;
    for (const QString& column : columns)
        names.insert(column.toLower());
    return names;
}

bool hasKey(const dalvora::CatalogueTable& table, const QStringList& key) {
    return std::ranges::any_of(table.indexes, [&](const dalvora::CatalogueIndex& index) {
        return index.unique && index.valid && folded(index.columns) == folded(key);
    });
}

/// True when an index begins with these columns.
bool hasIndexOn(const dalvora::CatalogueTable& table, const QStringList& columns) {
    return std::ranges::any_of(table.indexes, [&](const dalvora::CatalogueIndex& index) {
        return index.valid && index.columns.mid(0, columns.size())
                                      .join(u',')
                                      .compare(columns.join(u','), Qt::CaseInsensitive) == 0;
    });
}

void checkTable(HealthCheck& check, const dalvora::TableLayout& wanted,
                const dalvora::CatalogueTable& table) {
    for (const dalvora::ColumnLayout& column : wanted.columns) {
        const dalvora::ColumnLayout* found = table.column(column.name);
        if (!found)
            check.finding(u"Tabla %1: falta la columna %2 (%3)"_s.arg(wanted.name, column.name, column.type));
        else if (kindOf(found->type) != kindOf(column.type))
            check.finding(u"Tabla %1: la columna %2 es %3 y no %4"_s.arg(wanted.name, column.name,
                                                                         found->type, column.type));
    }
    if (!wanted.key.isEmpty() && !hasKey(table, wanted.key))
        check.finding(u"Tabla %1: falta la clave única (%2)"_s.arg(wanted.name, wanted.key.join(u", "_s)));
    for (const dalvora::IndexLayout& index : wanted.indexes)
        if (!hasIndexOn(table, index.columns))
            check.finding(
                u"Tabla %1: falta un índice por (%2)"_s.arg(wanted.name, index.columns.join(u", "_s)));
    for (const dalvora::CatalogueIndex& index : table.indexes)
        if (!index.valid)
            check.finding(u"Tabla %1: el motor no usa el índice %2, quedó a medio hacer"_s.arg(wanted.name,
                                                                                               index.name));
}

void checkLayout(HealthCheck& check) {
    const QString name = ConnectString::parse(check.connection.connectString()).value(u"database"_s);
    const qint64 version = Accounts(check.connection).layout(name);
    if (version == Accounts::layoutVersion)
        check.good(u"Versión %1 de las tablas"_s.arg(version));
    else if (version < Accounts::layoutVersion)
        check.finding(u"Versión %1 de las tablas; la actual es la %2: «quorvane-admin tablas» las actualiza"_s
                          .arg(version)
                          .arg(Accounts::layoutVersion));
    else
        check.finding(u"Versión %1 de las tablas, posterior a la de este programa (%2)"_s.arg(version).arg(
            Accounts::layoutVersion));
}

} // namespace

void checkTables(HealthCheck& check) {
    const dalvora::SchemaEngine engine = dalvora::schemaEngineOf(check.connection);
    const dalvora::Catalogue catalogue = dalvora::Catalogue::read(check.connection);
    const std::size_t before = check.lines.size();
    qsizetype count = 0;
    for (const QByteArray& script : {dalvora::erpTables(engine), dalvora::sessionTables(engine)}) {
        for (const dalvora::TableLayout& wanted : dalvora::readLayout(script).tables) {
            ++count;
            if (const dalvora::CatalogueTable* table = catalogue.table(wanted.name))
                checkTable(check, wanted, *table);
            else
                check.finding(u"Falta la tabla %1"_s.arg(wanted.name));
        }
    }
    if (check.lines.size() == before)
        check.good(u"%1 tablas con sus columnas, claves e índices"_s.arg(count));
    checkLayout(check);
}

} // namespace quorvane::admin
