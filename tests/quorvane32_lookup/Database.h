#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "sql/Schema.h"
#include <QTemporaryDir>

/// An embedded database with the ERP's tables in a folder of its own, and a connection to it.
struct Database {
    Database() {
        const QString path = folder.filePath("erp.db");
        const auto handle = quorvane::sqlite::open(path, quorvane::sqlite::Access::Create, 100);
        quorvane::sqlite::run(handle.get(), dalvora::erpTables());
        connection.open(QStringLiteral("Driver=sqlite;Database=%1").arg(path));
    }

    QTemporaryDir folder;
    quorvane::Connection connection;
};
