#include "platform/quorvane32/lookup/LookupRows.h"
#include "tests/quorvane32_lookup/RowsOf.h"
#include <gtest/gtest.h>

using namespace quorvane;

namespace {

QueryDefinition definition() {
    QueryDefinition query;
    query.columns = {{"Código", "Codigo", 10, ColumnAlignment::Left, ColumnFormat::Text, -1},
                     {"Fecha", "Fecha", 10, ColumnAlignment::Centre, ColumnFormat::Date, -1},
                     {"Monto", "Monto", 10, ColumnAlignment::Right, ColumnFormat::Number, 2}};
    query.returned = {"codigo", "Nota", "Fecha", "Monto"};
    return query;
}

const QStringList fields{"Nota", "CODIGO", "fecha", "Monto"};

struct Line {
    QString code;
    Value date;
    Value amount;
};

class LookupRowsTest : public testing::Test {
protected:
    void fill(std::vector<Line> lines) {
        const auto count = static_cast<int>(lines.size());
        Recordset recordset = rows::made(fields, count, [lines](int row, int column) {
            const Line& line = lines[static_cast<size_t>(row)];
            return std::vector<Value>{QString("nota"), line.code, line.date,
                                      line.amount}[static_cast<size_t>(column)];
        });
        list.bind(recordset);
        for (; !recordset.eof(); recordset.moveNext())
            list.append(recordset);
    }

    void fill(const QStringList& codes) {
        std::vector<Line> lines;
        for (const QString& code : codes)
            lines.push_back({code, Date(), 0.0});
        fill(lines);
    }

    QStringList visibleCodes() const {
        QStringList codes;
        for (int i = 0; i < list.visibleCount(); ++i)
            codes += list.text(list.rowAt(i), 0);
        return codes;
    }

    LookupRows list{definition(), {}};
};

} // namespace

TEST_F(LookupRowsTest, ShowsDatesAndNumbersByTheRegionalSettings) {
    fill({{"a", Date::fromYmd(2006, 3, 5), 1234.5}});
    EXPECT_EQ(list.text(0, 1), "05/03/2006");
    EXPECT_EQ(list.text(0, 2), "1.234,50");
}

TEST_F(LookupRowsTest, ReturnsPlainTextsOfFieldsThatNeedNotBeShown) {
    fill({{"a", Date::fromYmd(2006, 3, 5), 1234.5}});
    EXPECT_EQ(list.returnedValues(0), (QStringList{"a", "nota", "05/03/2006", "1234,5"}));
}

TEST_F(LookupRowsTest, NullAndTheDatabasesEmptyDateAreEmptyTexts) {
    fill({{"a", Date::fromYmd(1900, 1, 1), Value::Null()}});
    EXPECT_EQ(list.text(0, 1), "");
    EXPECT_EQ(list.text(0, 2), "");
    EXPECT_EQ(list.returnedValues(0), (QStringList{"a", "nota", "", ""}));
}

TEST_F(LookupRowsTest, AMissingFieldIsError3265) {
    Recordset recordset = rows::of({"Codigo"}, {});
    EXPECT_EQ(rows::errorOf([&] { list.bind(recordset); }), ErrorItemNotFound);
}

TEST_F(LookupRowsTest, FiltersWithoutCaseAndAccents) {
    fill({"NÚÑEZ", "Nunez", "nada", "Ñandú"});
    list.setFilter(0, "nuñ");
    EXPECT_EQ(visibleCodes(), (QStringList{"NÚÑEZ", "Nunez"}));
    list.setFilter(0, "NANDU");
    EXPECT_EQ(visibleCodes(), QStringList{"Ñandú"});
    list.setFilter(0, "");
    EXPECT_EQ(list.visibleCount(), 4);
    EXPECT_FALSE(list.isFiltered());
}

TEST_F(LookupRowsTest, EveryWordMustOccurInAnyOrder) {
    fill({"queso de cabra", "cabra", "leche de cabra"});
    list.setFilter(0, " cab  de ");
    EXPECT_EQ(visibleCodes(), (QStringList{"queso de cabra", "leche de cabra"}));
}

TEST_F(LookupRowsTest, FiltersOfSeveralColumnsAddUp) {
    fill({{"a", Date::fromYmd(2006, 3, 5), 1.0}, {"b", Date::fromYmd(2006, 3, 6), 1.0}, {"ab", Date(), 1.0}});
    list.setFilter(0, "a");
    list.setFilter(1, "05/");
    EXPECT_EQ(visibleCodes(), QStringList{"a"});
    list.setFilter(0, "");
    list.setFilter(1, "/2006");
    EXPECT_EQ(visibleCodes(), (QStringList{"a", "b"}));
}

TEST_F(LookupRowsTest, NumbersAreFilteredAsTheyAreShown) {
    fill({{"a", Date(), 1234.5}, {"b", Date(), 12345.0}});
    list.setFilter(2, "1.234,5");
    EXPECT_EQ(visibleCodes(), QStringList{"a"});
}

TEST_F(LookupRowsTest, ARowThatArrivesIsFilteredToo) {
    Recordset recordset = rows::of(fields, {{"", "uno", "", ""}, {"", "dos", "", ""}});
    list.bind(recordset);
    list.setFilter(0, "dos");
    EXPECT_FALSE(list.append(recordset));
    recordset.moveNext();
    EXPECT_TRUE(list.append(recordset));
    EXPECT_EQ(visibleCodes(), QStringList{"dos"});
}

TEST_F(LookupRowsTest, OrdersTextsAsASpanishList) {
    fill({"ñu", "nube", "Árbol", "oso", "arco", "nzx"});
    list.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(visibleCodes(), (QStringList{"Árbol", "arco", "nube", "nzx", "ñu", "oso"}));
    list.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(visibleCodes(), (QStringList{"oso", "ñu", "nzx", "nube", "arco", "Árbol"}));
    list.sort(-1, Qt::AscendingOrder);
    EXPECT_EQ(visibleCodes(), (QStringList{"ñu", "nube", "Árbol", "oso", "arco", "nzx"}));
}

TEST_F(LookupRowsTest, OrdersDatesAndNumbersByValue) {
    fill({{"a", Date::fromYmd(2006, 12, 1), 9.0},
          {"b", Date::fromYmd(2007, 1, 31), 10.0},
          {"c", Date(), Decimal(25, 1)},
          {"d", Value::Null(), Value::Null()}});
    list.sort(1, Qt::DescendingOrder);
    EXPECT_EQ(visibleCodes(), (QStringList{"b", "a", "c", "d"}));
    list.sort(2, Qt::AscendingOrder);
    EXPECT_EQ(visibleCodes(), (QStringList{"d", "c", "a", "b"}));
}

TEST_F(LookupRowsTest, EqualRowsKeepTheOrderOfTheQuery) {
    fill({{"a", Date(), 1.0}, {"b", Date(), 0.0}, {"c", Date(), 1.0}});
    list.sort(2, Qt::DescendingOrder);
    EXPECT_EQ(visibleCodes(), (QStringList{"a", "c", "b"}));
}

TEST_F(LookupRowsTest, KeepsTheOrderWhileFiltering) {
    fill({"b1", "a", "b0"});
    list.sort(0, Qt::AscendingOrder);
    list.setFilter(0, "b");
    EXPECT_EQ(visibleCodes(), (QStringList{"b0", "b1"}));
    EXPECT_EQ(list.visiblePosition(0), 1);
    EXPECT_EQ(list.visiblePosition(1), -1);
}
