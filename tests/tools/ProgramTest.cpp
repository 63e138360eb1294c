// The program itself, as a shell starts it.
#include "tests/tools/AdminProcess.h"

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

TEST_F(AdminProcess, ReadsThePasswordFromItsInput) {
    EXPECT_EQ(run({u"alta"_s, u"eva"_s, u"Eva Núñez"_s}, "Contraseña-de-eva\n"), ExitSuccess);
    EXPECT_EQ(told(), QByteArray("Usuario «eva» creado, todavía sin derechos.\n"));
    EXPECT_EQ(complained(), QByteArray());
    EXPECT_EQ(refusal(u"Contraseña-de-eva"_s), QString());
}

TEST_F(AdminProcess, WithoutAPasswordNobodyIsAdded) {
    EXPECT_EQ(run({u"alta"_s, u"eva"_s}), ExitFailure);
    EXPECT_EQ(complained(), QByteArray("Error: No se recibió ninguna contraseña (5)\n"));
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_usuario"_s), u"0"_s);
}

TEST_F(AdminProcess, TellsHowItEndedToTheShell) {
    EXPECT_EQ(run({}), ExitUsage);
    EXPECT_EQ(run({u"baja"_s, u"nadie"_s}), ExitFailure);
    EXPECT_EQ(run({u"revisar"_s}), ExitFindings);
    EXPECT_EQ(run({u"usuarios"_s}), ExitSuccess);
}

} // namespace
