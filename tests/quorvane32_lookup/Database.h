#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "tests/support/TestDatabase.h"

/// A database of an engine with the ERP's tables, and a connection to it.
struct Database {
    explicit Database(dalvora::test::TestEngine engine) : stored(engine) {
        connection.open(stored.connectString());
    }

    dalvora::test::TestDatabase stored;
    quorvane::Connection connection;
};
