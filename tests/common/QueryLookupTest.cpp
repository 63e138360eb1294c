#include "common/QueryLookup.h"
#include "common/ComponentServices.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include "tests/common/FakeComponents.h"
#include "tests/support/MessageRecorder.h"
#include <QDir>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using dalvora::test::FakeComponents;
using dalvora::test::Message;
using dalvora::test::MessageRecorder;

namespace {

class QueryLookupTest : public testing::Test {
protected:
    bool lookup(const QString& file = u"DALVORA.qry"_s, const QString& parameters = u"01"_s) {
        return QueryLookup({connection, components, application}, u"CodigosComision"_s, file, parameters,
                           values);
    }
    void answer(const QString& row) {
        components.show = [row] { return row; };
    }
    void fail(int number, const QString& description) {
        components.show = [number, description]() -> QString {
            throw quorvane::RunTimeError(number, description);
        };
    }
    /// The file of the program's folder, as it is handed on.
    QString beside(const QString& name) const { return application.path + QDir::separator() + name; }

    quorvane::Connection connection;
    FakeComponents components;
    quorvane::ApplicationInfo application{u"/programa"_s, {}, 1, 0, 203};
    MessageRecorder messages;
    QStringList values{u"viejo"_s};
};

} // namespace

TEST_F(QueryLookupTest, DrivesTheComponentInOrder) {
    answer(u"A"_s);
    EXPECT_TRUE(lookup());
    EXPECT_EQ(components.calls,
              (QStringList{u"Quorvane32.QuorQuery"_s, u"Conexion"_s,
                           u"ArchivoQuery=CodigosComision@"_s + beside(u"DALVORA.qry"_s) + u"#01"_s,
                           u"Muestra"_s}));
    EXPECT_EQ(components.connection, &connection);
}

TEST_F(QueryLookupTest, SplitsTheRowAtEverySeparator) {
    answer(u"A#B#"_s);
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, (QStringList{u"A"_s, u"B"_s, u""_s}));
}

TEST_F(QueryLookupTest, ARowOfOneValueGivesThatValue) {
    answer(u"A"_s);
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, QStringList{u"A"_s});
}

TEST_F(QueryLookupTest, ASeparatorAloneGivesTwoEmptyValues) {
    answer(u"#"_s);
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, (QStringList{u""_s, u""_s}));
}

TEST_F(QueryLookupTest, TrimsTheBlanksAroundTheRowOnly) {
    answer(u"  A # B\t #C  "_s);
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, (QStringList{u"A "_s, u" B\t "_s, u"C"_s}));
}

TEST_F(QueryLookupTest, TakesMoreThanFiftyValues) {
    QStringList row;
    for (int i = 1; i <= 120; ++i)
        row += QString::number(i);
    answer(row.join(u'#'));
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, row);
}

TEST_F(QueryLookupTest, NothingChosenIsFalseAndEmptiesTheValues) {
    for (const QString& nothing : {u""_s, u"   "_s}) {
        values = {u"viejo"_s};
        answer(nothing);
        EXPECT_FALSE(lookup());
        EXPECT_TRUE(values.isEmpty());
    }
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(QueryLookupTest, AFileWithAFolderIsUsedAsItIs) {
    lookup(u"C:\\dir\\DALVORA.qry"_s);
    EXPECT_TRUE(components.calls.contains(u"ArchivoQuery=CodigosComision@C:\\dir\\DALVORA.qry#01"_s));
    const QString native = u"otra"_s + QDir::separator() + u"x.qry"_s;
    lookup(native);
    EXPECT_TRUE(components.calls.contains(u"ArchivoQuery=CodigosComision@"_s + native + u"#01"_s));
}

TEST_F(QueryLookupTest, PassesParametersAsTheyAre) {
    lookup(u"DALVORA.QRY"_s, u"FAMILIA#01#  "_s);
    EXPECT_TRUE(components.calls.contains(u"ArchivoQuery=CodigosComision@"_s + beside(u"DALVORA.QRY"_s) +
                                          u"#FAMILIA#01#  "_s));
}

TEST_F(QueryLookupTest, AMissingComponentIsTold) {
    components.installed = false;
    EXPECT_FALSE(lookup());
    EXPECT_TRUE(values.isEmpty());
    EXPECT_EQ(messages.take(),
              (std::vector<Message>{
                  {u"Error al instanciar componente de consulta a base de datos (Quorvane32.QuorQuery)\n"
                   "posiblemente debe reinstalar los componentes cliente de Quorvane ERP\n"
                   "\n"
                   "429 - El componente no puede crear el objeto"_s,
                   16, u"Quorvane ERP"_s}}));
}

TEST_F(QueryLookupTest, AnErrorOfTheQueryIsTold) {
    fail(53, u"No se encontró el archivo"_s);
    EXPECT_FALSE(lookup());
    EXPECT_TRUE(values.isEmpty());
    EXPECT_EQ(messages.take(),
              (std::vector<Message>{{u"Error al procesar consulta CodigosComision@"_s +
                                         beside(u"DALVORA.qry"_s) + u"\n\n53 - No se encontró el archivo"_s,
                                     16, u"Quorvane ERP"_s}}));
}
