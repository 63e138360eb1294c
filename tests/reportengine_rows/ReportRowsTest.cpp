#include "platform/reportengine/rows/ReportRows.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/ListRows.h"
#include "tests/support/ReportParts.h"
#include "tests/support/SmallDisk.h"
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::report;
using quorvane::test::ListRows;
using quorvane::test::numberColumn;
using quorvane::test::RowValues;
using quorvane::test::textColumn;

namespace {

const QStringList columns = {QStringLiteral("Nombre"), QStringLiteral("Numero")};

Definition definitionOf(std::vector<SortKey> sort) {
    Definition definition;
    definition.columns = {textColumn(QStringLiteral("nombre")), numberColumn(QStringLiteral("NUMERO"))};
    definition.sort = std::move(sort);
    definition.sortedBySource = definition.sort.empty();
    return definition;
}

/// Names and numbers that come in no order, many names twice.
RowValues scattered(qint64 row) {
    return {QStringLiteral("cliente %1").arg(row * 7919 % 1000), static_cast<qint32>(row)};
}

/// Small enough that a few thousand rows make many runs and most of them go to the file.
RowLimits smallLimits(const QString& folder) {
    return {20000, 10000, 300, folder};
}

std::vector<qint32> numbersOf(ReportRows& rows) {
    std::vector<qint32> numbers;
    RowReader reader(2);
    for (ReportRows::Next next = rows.next(); next != ReportRows::Next::End; next = rows.next())
        if (next == ReportRows::Next::Row) {
            reader.load(rows.current());
            numbers.push_back(*reader.value(1).get<qint32>());
        }
    return numbers;
}

void expectReadable(const ReportRows& rows, const std::vector<qint32>& numbers) {
    ASSERT_EQ(rows.count(), std::ssize(numbers));
    ByteBuffer scratch;
    RowReader reader(2);
    for (qint64 i = rows.count() - 1; i >= 0; --i) { // not in the order in which they were written
        reader.load(rows.row(i, scratch));
        ASSERT_EQ(*reader.value(1).get<qint32>(), numbers[i]);
    }
}

} // namespace

TEST(ReportRows, ComeInTheOrderOfTheSourceWhenItSorts) {
    const Definition definition = definitionOf({});
    ReportRows rows(definition, std::make_unique<ListRows>(columns, 5000, scattered), smallLimits({}));
    const std::vector<qint32> numbers = numbersOf(rows);
    for (qint32 i = 0; i < 5000; ++i)
        ASSERT_EQ(numbers[i], i);
    EXPECT_EQ(rows.fetched(), 5000);
    expectReadable(rows, numbers);
}

TEST(ReportRows, AreSortedAcrossRunsAndKeepTheirOrderWhenEqual) {
    const Definition definition = definitionOf({{0, false}});
    ReportRows rows(definition, std::make_unique<ListRows>(columns, 5000, scattered), smallLimits({}));
    const std::vector<qint32> numbers = numbersOf(rows);
    std::vector<qint32> wanted(5000);
    for (qint32 i = 0; i < 5000; ++i)
        wanted[i] = i;
    std::stable_sort(wanted.begin(), wanted.end(), [](qint32 a, qint32 b) {
        return *scattered(a)[0].get<QString>() < *scattered(b)[0].get<QString>();
    });
    EXPECT_EQ(numbers, wanted);
    expectReadable(rows, numbers);
}

TEST(ReportRows, SortDownwardsAndByASecondColumn) {
    const Definition definition = definitionOf({{0, true}, {1, true}});
    ReportRows rows(definition, std::make_unique<ListRows>(columns, 2000, scattered), smallLimits({}));
    const std::vector<qint32> numbers = numbersOf(rows);
    const auto place = [](qint32 i) { return std::pair(*scattered(i)[0].get<QString>(), i); };
    ASSERT_EQ(numbers.size(), 2000U);
    for (std::size_t i = 1; i < numbers.size(); ++i)
        ASSERT_GT(place(numbers[i - 1]), place(numbers[i]));
}

TEST(ReportRows, LongRowsSurviveTheFile) {
    const Definition definition = definitionOf({{0, false}});
    const auto make = [](qint64 row) -> RowValues {
        return {QString(300, u'x') + QString::number(1000 + row * 37 % 400) + QString(90000, u'y'),
                qint32(row)};
    };
    ReportRows rows(definition, std::make_unique<ListRows>(columns, 400, make), smallLimits({}));
    const std::vector<qint32> numbers = numbersOf(rows);
    for (std::size_t i = 1; i < numbers.size(); ++i)
        ASSERT_LT(numbers[i - 1] * 37 % 400, numbers[i] * 37 % 400);
    expectReadable(rows, numbers);
}

TEST(ReportRows, WorkOutColumnsFromOthers) {
    Definition definition;
    definition.columns = {numberColumn(QStringLiteral("a")), numberColumn(QStringLiteral("b")),
                          textColumn(QStringLiteral("clase")), numberColumn(QStringLiteral("suma")),
                          numberColumn(QStringLiteral("notas"))};
    definition.columns[3].origin = Column::Origin::SumOf;
    definition.columns[3].operands = {0, 1};
    definition.columns[4].origin = Column::Origin::CountOf;
    definition.columns[4].operands = {2};
    definition.columns[4].wanted = QStringLiteral("ncr");
    auto source = std::make_unique<ListRows>(
        QStringList{QStringLiteral("clase"), QStringLiteral("b"), QStringLiteral("a")},
        std::vector<RowValues>{{QStringLiteral("NCR "), Decimal(25, 1), qint32(1)},
                               {Value::Null{}, Value::Null{}, Decimal(25, 1)}});
    ReportRows rows(definition, std::move(source), {});
    RowReader reader(5);
    ASSERT_EQ(rows.next(), ReportRows::Next::Row);
    reader.load(rows.current());
    EXPECT_EQ(reader.number(3), 3.5);
    EXPECT_EQ(reader.number(4), 1);
    ASSERT_EQ(rows.next(), ReportRows::Next::Row);
    reader.load(rows.current());
    EXPECT_EQ(reader.number(3), 2.5);
    EXPECT_EQ(reader.number(4), 0);
}

TEST(ReportRows, AMissingColumnIsToldByItsName) {
    const Definition definition = definitionOf({});
    try {
        ReportRows rows(definition, std::make_unique<ListRows>(QStringList{columns[0]}, 1, scattered), {});
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorItemNotFound);
        EXPECT_EQ(error.description(), QStringLiteral("Las filas del informe no tienen la columna NUMERO"));
    }
}

TEST(ReportRows, TheSourceIsLetGoOnceItHasGivenAll) {
    for (const bool sorts : {false, true}) {
        const Definition definition = sorts ? definitionOf({{0, false}}) : definitionOf({});
        int gone = 0;
        auto source = std::make_unique<ListRows>(columns, 10, scattered);
        source->setGone(&gone);
        ReportRows rows(definition, std::move(source), {});
        EXPECT_EQ(gone, 0);
        numbersOf(rows);
        EXPECT_EQ(gone, 1);
    }
}

TEST(ReportRows, LeaveNothingInTheTemporaryFolder) {
    const QTemporaryDir folder;
    const Definition definition = definitionOf({{0, false}});
    {
        ReportRows rows(definition, std::make_unique<ListRows>(columns, 5000, scattered),
                        smallLimits(folder.path()));
        EXPECT_EQ(numbersOf(rows).size(), 5000U);
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(ReportRows, AFolderThatCannotBeWrittenIsError75) {
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("no/hay"));
    for (const bool sorts : {false, true}) {
        const Definition definition = sorts ? definitionOf({{0, false}}) : definitionOf({});
        ReportRows rows(definition, std::make_unique<ListRows>(columns, 5000, scattered),
                        smallLimits(missing));
        try {
            numbersOf(rows);
            FAIL();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorPathAccess);
            EXPECT_TRUE(error.description().startsWith(
                QStringLiteral("No se puede crear el archivo temporal del informe en la carpeta ") + missing))
                << qPrintable(error.description());
        }
    }
}

TEST(ReportRows, AFullDiskIsError61AndLeavesNothing) {
    const dalvora::test::SmallDisk disk(64);
    if (!disk.isMounted())
        GTEST_SKIP() << "a file system cannot be mounted here";
    const Definition definition = definitionOf({{0, false}});
    {
        ReportRows rows(definition, std::make_unique<ListRows>(columns, 50000, scattered),
                        smallLimits(disk.path()));
        try {
            numbersOf(rows);
            FAIL();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorDiskFull);
            EXPECT_EQ(error.description(),
                      QStringLiteral(
                          "No queda espacio en el disco para las filas del informe (carpeta temporal %1)")
                          .arg(disk.path()));
        }
    }
    EXPECT_TRUE(QDir(disk.path()).isEmpty());
}
