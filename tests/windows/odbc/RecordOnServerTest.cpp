#include "tests/data/StoredFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

/// The record on the demonstration company of a server whose connect string is in the environment.
class RecordOnServer : public testing::Test {
protected:
    RecordOnServer() {
        for (Program* program : {&one, &other})
            program->session.company = program->table.SysEmpresa = u"001"_s;
    }
    static QString address() { return qEnvironmentVariable("QUORVANE_TEST_ADDRESS"); }

    MessageRecorder recorder;
    Program one{address()};
    Program other{address()};
};

} // namespace

TEST_F(RecordOnServer, AChangedSchemeIsReadByTheNextProgram) {
    ASSERT_TRUE(one.read(u"campaña"_s, u"01/01/1995"_s, u"31/03/1995"_s));
    ASSERT_TRUE(one.table.SysRecordFound);
    EXPECT_EQ(one.table.TextValue(3), u"Campaña de verano (anterior a las ventas)"_s);
    one.table.setTextValue(3, u"Campaña de año nuevo"_s);
    one.addDetail(u"ñandú"_s, 0.125, 1234567.891, 12.34);
    ASSERT_TRUE(one.table.DBWrite(true));

    ASSERT_TRUE(other.read(u"CAMPAÑA"_s, u"01/01/1995"_s, u"31/03/1995"_s));
    EXPECT_EQ(other.table.TextValue(3), u"Campaña de año nuevo"_s);
    // The last line is the empty one for new input.
    const DetailValues added{u"Producto"_s, u"ñandú"_s, u"Texto ñandú"_s, 0.125,
                             1234567.891,   12.34,      u"Neto"_s};
    bool found = false;
    for (int line = 1; line < other.table.DetailsCount(); ++line)
        found = found || other.table.Details(line).values() == added;
    EXPECT_TRUE(found);
    EXPECT_TRUE(recorder.take().empty());
}

TEST_F(RecordOnServer, ASchemeThatAnotherProgramStoredFirstIsTold) {
    ASSERT_TRUE(one.read(u"NUEVO"_s, u"01/01/2031"_s, u"31/12/2031"_s));
    ASSERT_TRUE(other.read(u"NUEVO"_s, u"01/01/2031"_s, u"31/12/2031"_s));
    for (Program* program : {&one, &other}) {
        program->table.setTextValue(3, u"Esquema"_s);
        program->table.setTextValue(4, u"10"_s);
        program->addDetail(u"A1"_s);
    }
    EXPECT_TRUE(one.table.DBWrite(true));
    EXPECT_TRUE(recorder.take().empty());
    EXPECT_FALSE(other.table.DBWrite(true));
    EXPECT_EQ(recorder.take().size(), 1U);
    ASSERT_TRUE(one.read(u"NUEVO"_s, u"01/01/2031"_s, u"31/12/2031"_s));
    EXPECT_TRUE(one.table.DBDelete());
}
