#pragma once

#include "data/DBDetail.h"
#include "data/DBMonto.h"
#include "data/DBPrecio.h"
#include <QStringView>

namespace dalvora {

class SqlStatement;

/// The statements that keep the rows of one kind of lines. Old rows are named by the lines' saved copies.
template<class Values> struct LineStatements;

template<> struct LineStatements<DetailValues> {
    static const QStringView remove;
    static const QStringView update;
    static const QStringView insert;
    /// The code that tells the row: a line whose code changed is deleted and inserted anew.
    static const QString& code(const DetailValues& values) { return values.Producto; }
    static void fillRemove(SqlStatement& statement, const DetailValues& saved);
    static void fillUpdate(SqlStatement& statement, const DetailValues& now, const DetailValues& saved);
    static void fillInsert(SqlStatement& statement, const DetailValues& now);
};

template<> struct LineStatements<MontoValues> {
    static const QStringView remove;
    static const QStringView update;
    static const QStringView insert;
    static const QString& code(const MontoValues& values) { return values.Documento; }
    static void fillRemove(SqlStatement& statement, const MontoValues& saved);
    static void fillUpdate(SqlStatement& statement, const MontoValues& now, const MontoValues& saved);
    static void fillInsert(SqlStatement& statement, const MontoValues& now);
};

template<> struct LineStatements<PrecioValues> {
    static const QStringView remove;
    static const QStringView update;
    static const QStringView insert;
    static const QString& code(const PrecioValues& values) { return values.ListaPrecio; }
    static void fillRemove(SqlStatement& statement, const PrecioValues& saved);
    static void fillUpdate(SqlStatement& statement, const PrecioValues& now, const PrecioValues& saved);
    static void fillInsert(SqlStatement& statement, const PrecioValues& now);
};

} // namespace dalvora
