// What only a server says about a text.
#include "tests/data/StoredFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class StoredOnServer : public StoredTest {
protected:
    Program program{database};
    DBTable& table = program.table;
};

} // namespace

TEST_P(StoredOnServer, ATextThatItCannotHoldIsToldAndNothingIsStored) {
    program.begin(u"C1"_s);
    table.setTextValue(3, u"a"_s + QChar(0) + u"b"_s);
    EXPECT_FALSE(table.DBWrite(true));
    expectTold(
        {{u"Error al grabar registro\n5 - La base de datos no guarda textos con el carácter nulo"_s, 16}});
    EXPECT_EQ(stored(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Engines, StoredOnServer, testing::Values(TestEngine::PostgreSql), engineName);
