#include "tests/tds/Requests.h"

namespace dalvora::test::tds {

namespace {

enum PreLoginOption : quint8 { Version = 0, EncryptionOption = 1, Instance = 2, Mars = 4, Terminator = 0xFF };

constexpr quint16 transactionHeader = 2;

/// The transaction of the headers in front of a request; the reader stands behind them then.
quint64 readHeaders(ByteReader& in) {
    const quint32 total = in.u32();
    if (total < 4 || total - 4 > in.left())
        throw ProtocolError("headers without an end");
    ByteReader headers(in.bytes(total - 4));
    quint64 transaction = 0;
    while (headers.left() > 0) {
        const quint32 length = headers.u32();
        if (length < 6)
            throw ProtocolError("a header without a type");
        ByteReader header(headers.bytes(length - 4));
        if (header.u16() == transactionHeader)
            transaction = header.u64();
    }
    return transaction;
}

/// A text that the login's table of places tells.
QString readPlaced(ByteReader& table, QByteArrayView payload) {
    const quint16 place = table.u16();
    const quint16 units = table.u16();
    ByteReader in(payload);
    if (units == 0)
        return {};
    in.seek(place);
    return in.text(units);
}

/// Passwords travel with their nibbles exchanged and the bits of A5 turned.
QString readPassword(ByteReader& table, QByteArrayView payload) {
    QString text = readPlaced(table, payload);
    const auto plain = [](quint8 byte) {
        byte ^= 0xA5;
        return static_cast<quint8>(byte << 4 | byte >> 4);
    };
    for (QChar& unit : text)
        unit = QChar(plain(unit.cell()) | plain(unit.row()) << 8);
    return text;
}

} // namespace

Encryption readPreLogin(QByteArrayView payload) {
    ByteReader options(payload);
    auto wish = Encryption::Off;
    for (quint8 option = options.u8(); option != Terminator; option = options.u8()) {
        const quint16 place = options.u16BigEndian();
        const quint16 length = options.u16BigEndian();
        ByteReader value(payload);
        value.seek(place);
        if (length > value.left())
            throw ProtocolError("an option outside its message");
        if (option == EncryptionOption && length > 0)
            wish = static_cast<Encryption>(value.u8());
    }
    return wish;
}

QByteArray preLoginAnswer(int majorVersion) {
    ByteWriter out;
    constexpr quint16 values = 4 * 5 + 1; // four entries and the terminator
    const auto entry = [&](quint8 option, quint16 place, quint16 length) {
        out.u8(option);
        out.u16BigEndian(place);
        out.u16BigEndian(length);
    };
    entry(Version, values, 6);
    entry(EncryptionOption, values + 6, 1);
    entry(Instance, values + 7, 1);
    entry(Mars, values + 8, 1);
    out.u8(Terminator);
    out.u8(static_cast<quint8>(majorVersion));
    out.u8(0);
    out.u16BigEndian(2000);
    out.u16BigEndian(0);
    out.u8(static_cast<quint8>(Encryption::NotSupported));
    out.u8(0); // the instance is right
    out.u8(0); // one result at a time
    return out.data();
}

LoginRequest readLogin(QByteArrayView payload) {
    constexpr qsizetype tableOfPlaces = 36;
    ByteReader in(payload);
    if (in.u32() != payload.size())
        throw ProtocolError("a login of another length");
    LoginRequest login;
    login.version = in.u32();
    login.packetSize = in.u32();
    in.seek(tableOfPlaces);
    login.host = readPlaced(in, payload);
    login.user = readPlaced(in, payload);
    login.password = readPassword(in, payload);
    login.program = readPlaced(in, payload);
    readPlaced(in, payload); // the server's name
    in.u32();                // extensions: none are offered
    login.library = readPlaced(in, payload);
    login.language = readPlaced(in, payload);
    login.database = readPlaced(in, payload);
    return login;
}

BatchRequest readBatch(QByteArrayView payload) {
    ByteReader in(payload);
    BatchRequest request;
    request.transaction = readHeaders(in);
    request.sql = in.restAsText();
    return request;
}

TransactionRequest readTransaction(QByteArrayView payload) {
    ByteReader in(payload);
    TransactionRequest request;
    request.transaction = readHeaders(in);
    request.kind = in.u16();
    if (request.kind == TransactionRequest::Begin)
        in.u8();      // isolation: there is one only
    in.text(in.u8()); // the name counts for nothing but a savepoint
    if (request.kind == TransactionRequest::Commit || request.kind == TransactionRequest::Rollback)
        request.beginsNext = (in.u8() & 1) != 0;
    return request;
}

} // namespace dalvora::test::tds
