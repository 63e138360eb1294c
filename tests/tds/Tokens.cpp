#include "tests/tds/Tokens.h"

#include <algorithm>

namespace dalvora::test::tds {

namespace {

enum Token : quint8 {
    ColumnsToken = 0x81,
    ErrorToken = 0xAA,
    NewsToken = 0xAB,
    LoginToken = 0xAD,
    RowToken = 0xD1,
    SparingRowToken = 0xD2,
    ChangeToken = 0xE3,
    DoneToken = 0xFD,
};

constexpr int leastErrorClass = 11;

/// A token with its length in front of what `write` adds.
template<class Write> void withLength(ByteWriter& out, Token token, Write write) {
    out.u8(token);
    const qsizetype place = out.size();
    out.u16(0);
    write();
    out.patchLength(place);
}

} // namespace

void writeMessage(ByteWriter& out, const ServerMessage& message) {
    withLength(out, message.severity >= leastErrorClass ? ErrorToken : NewsToken, [&] {
        out.u32(static_cast<quint32>(message.number));
        out.u8(static_cast<quint8>(message.state));
        out.u8(static_cast<quint8>(message.severity));
        out.longText(message.text);
        out.shortText(QStringLiteral("PRUEBA"));
        out.shortText({});
        out.u32(static_cast<quint32>(message.line));
    });
}

void writeLoginAcknowledged(ByteWriter& out, int majorVersion) {
    withLength(out, LoginToken, [&] {
        constexpr quint16 version[] = {0x7400, 0x0004}; // 7.4
        out.u8(1);                                      // Transact-SQL
        for (const quint16 half : version)
            out.u16BigEndian(half);
        out.shortText(QStringLiteral("Microsoft SQL Server"));
        out.u8(static_cast<quint8>(majorVersion));
        out.u8(0);
        out.u16BigEndian(2000);
    });
}

void writeChange(ByteWriter& out, Change change, const QString& now, const QString& before) {
    withLength(out, ChangeToken, [&] {
        out.u8(static_cast<quint8>(change));
        out.shortText(now);
        out.shortText(before);
    });
}

void writeTransactionChange(ByteWriter& out, Change change, quint64 now, quint64 before) {
    const auto number = [&](quint64 transaction) {
        out.u8(transaction != 0 ? 8 : 0);
        if (transaction != 0)
            out.u64(transaction);
    };
    withLength(out, ChangeToken, [&] {
        out.u8(static_cast<quint8>(change));
        number(now);
        number(before);
    });
}

void writeCollation(ByteWriter& out) {
    withLength(out, ChangeToken, [&] {
        constexpr char collation[] = {5, 0x0A, 0x0C, static_cast<char>(0xD0), 0x00, 0x00};
        out.u8(static_cast<quint8>(Change::Collation));
        out.bytes({collation, sizeof collation});
        out.u8(0);
    });
}

void writeColumns(ByteWriter& out, const std::vector<Column>& columns) {
    constexpr quint16 mayBeNull = 1;
    out.u8(ColumnsToken);
    out.u16(static_cast<quint16>(columns.size()));
    for (const Column& column : columns) {
        out.u32(0); // no type of a user's own
        out.u16(mayBeNull);
        writeType(out, column.type);
        out.shortText(column.name);
    }
}

void writeRow(ByteWriter& out, const std::vector<Column>& columns,
              const std::vector<quorvane::Value>& values) {
    const auto nulls = static_cast<std::size_t>(std::ranges::count_if(values, &quorvane::Value::isNull));
    const bool spares = 2 * nulls > values.size();
    ByteWriter row; // of its own: a value that does not fit leaves nothing behind
    row.u8(spares ? SparingRowToken : RowToken);
    for (std::size_t i = 0; spares && i < values.size(); i += 8) {
        quint8 bits = 0;
        for (std::size_t bit = 0; bit < 8 && i + bit < values.size(); ++bit)
            if (values[i + bit].isNull())
                bits |= static_cast<quint8>(1U << bit);
        row.u8(bits);
    }
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!spares || !values[i].isNull())
            writeValue(row, columns[i].type, values[i]);
    out.bytes(row.data());
}

void writeDone(ByteWriter& out, int status, quint64 rows) {
    out.u8(DoneToken);
    out.u16(static_cast<quint16>(status));
    out.u16(0); // the kind of statement: nobody asks for it here
    out.u64(rows);
}

} // namespace dalvora::test::tds
