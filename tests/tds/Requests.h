#pragma once

#include "tests/tds/Bytes.h"

namespace dalvora::test::tds {

/// What a client says about encryption before it signs in.
enum class Encryption : quint8 { Off = 0, On = 1, NotSupported = 2, Required = 3 };

/// The client's wish; ProtocolError for a message that is none.
Encryption readPreLogin(QByteArrayView payload);
/// This server's answer: no encryption, one result at a time.
QByteArray preLoginAnswer(int majorVersion);

/// Who wants in, and where.
struct LoginRequest {
    quint32 version = 0;
    quint32 packetSize = 0;
    QString host, user, password, program, library, language, database;
};
LoginRequest readLogin(QByteArrayView payload);

/// A batch or a transaction request: the transaction that the client takes itself to be in.
struct BatchRequest {
    quint64 transaction = 0;
    QString sql;
};
BatchRequest readBatch(QByteArrayView payload);

struct TransactionRequest {
    enum Kind : quint16 { Begin = 5, Commit = 7, Rollback = 8, Save = 9 };
    quint64 transaction = 0;
    quint16 kind = Begin;
    /// A commit or rollback that begins the next transaction.
    bool beginsNext = false;
};
TransactionRequest readTransaction(QByteArrayView payload);

} // namespace dalvora::test::tds
