#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/output/Output.h"
#include "tests/report_output/SampleReport.h"
#include "tests/support/SmallDisk.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace quorvane::report::test {

/// Reports to be written to files: the sample, short and with many rows.
class ExportFixture : public testing::Test {
protected:
    void open(std::vector<Sale> sales) {
        m_layout = std::make_unique<Layout>(definition, rowsOf(std::move(sales)));
        source = {m_layout.get(), sampleContext(definition, 0)};
    }
    void openLong(int count) {
        std::vector<Sale> sales;
        for (int number = 0; number < count; ++number)
            sales.push_back({QStringLiteral("Vendedor %1").arg(number / 100), Date::fromYmd(1997, 7, 1),
                             QStringLiteral("FACTURA"), QStringLiteral("%1").arg(number, 6, 10, QChar(u'0')),
                             QStringLiteral("Cliente %1").arg(number * 7919 % 9973), Value(number * 1.25)});
        open(std::move(sales));
    }
    QString path(const QString& name) const { return folder.filePath(name); }

    static RunTimeError errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error;
        }
        return RunTimeError(0, QString());
    }
    static void writeOld(const QString& file) {
        QFile old(file);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("antes");
    }
    static QByteArray contentOf(const QString& file) {
        QFile read(file);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly));
        return read.readAll();
    }
    static QStringList filesIn(const QString& path) { return QDir(path).entryList(QDir::Files); }
    static int openFiles() {
        return static_cast<int>(QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries).size());
    }

    QTemporaryDir folder;
    Definition definition = sampleDefinition();
    OutputSource source;

private:
    std::unique_ptr<Layout> m_layout;
};

} // namespace quorvane::report::test
