#include "platform/quorvane32/session/Accounts.h"
#include "tests/tools/AdminSupport.h"

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

class UserOrders : public EveryEngine {
protected:
    QString refusal(const QString& password) const {
        Connection connection;
        connection.open(desk.database.connectString());
        return Accounts(connection).refusal(u"eva"_s, password, QDateTime::currentDateTime());
    }
};

TEST_P(UserOrders, KeepAUserFromHireToRetire) {
    EXPECT_EQ(desk.run(QStringList{u"alta"_s, u"eva"_s, u"Eva Núñez"_s}), ExitSuccess);
    EXPECT_EQ(desk.out, u"Usuario «eva» creado, todavía sin derechos.\n"_s);
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.contains(u"sin derechos"));
    EXPECT_EQ(desk.run(u"derechos eva veltrano rw-d"_s), ExitSuccess);
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.contains(u"Eva Núñez")) << qPrintable(desk.out);
    EXPECT_TRUE(desk.out.contains(u"VELTRANO RW-D"));
    desk.password = u"Otra-larga-2"_s;
    EXPECT_EQ(desk.run(u"clave eva"_s), ExitSuccess);
    EXPECT_EQ(refusal(desk.password), QString());
    EXPECT_EQ(desk.run(u"baja eva"_s), ExitSuccess);
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitSuccess);
    EXPECT_EQ(desk.out, QString());
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_derecho"_s), u"0"_s);
}

TEST_P(UserOrders, TellAndEndALockByWrongPasswords) {
    desk.run(u"alta eva"_s);
    for (int i = 0; i < Accounts::mostFailures; ++i)
        refusal(u"mala"_s);
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.contains(u"bloqueado hasta ")) << qPrintable(desk.out);
    EXPECT_EQ(desk.run(u"desbloquear eva"_s), ExitSuccess);
    EXPECT_EQ(refusal(desk.password), QString());
}

TEST_P(UserOrders, LockAUserUntilHeIsUnlocked) {
    desk.run(u"alta eva"_s);
    EXPECT_EQ(desk.run(u"bloquear eva"_s), ExitSuccess);
    EXPECT_EQ(desk.out, u"Usuario «eva» bloqueado hasta que lo desbloquee.\n"_s);
    EXPECT_TRUE(refusal(desk.password).contains(u"bloqueado por el administrador"));
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.contains(u"bloqueado por el administrador")) << qPrintable(desk.out);
    EXPECT_EQ(desk.run(u"clave eva"_s), ExitSuccess);
    EXPECT_TRUE(refusal(desk.password).contains(u"bloqueado por el administrador"));
    EXPECT_EQ(desk.run(u"desbloquear eva"_s), ExitSuccess);
    EXPECT_EQ(refusal(desk.password), QString());
}

TEST_P(UserOrders, LeaveAnEntryForEveryChangeAndNeverAPassword) {
    for (const auto* order : {u"alta eva", u"derechos eva VELTRANO R---", u"bloquear eva", u"desbloquear eva",
                              u"clave eva", u"baja eva"})
        ASSERT_EQ(desk.run(QString::fromUtf16(order)), ExitSuccess) << qPrintable(desk.errors);
    ASSERT_EQ(desk.run(u"auditoria"_s), ExitSuccess);
    QStringList texts;
    for (const QString& line : desk.out.split(u'\n', Qt::SkipEmptyParts))
        texts.append(line.section(u"QUORVANE-ADMIN"_s, 1).trimmed());
    EXPECT_EQ(texts, (QStringList{u"6  USUARIO:eva:ALTA"_s, u"5  USUARIO:eva:DERECHOS:VELTRANO:R---"_s,
                                  u"5  USUARIO:eva:BLOQUEAR"_s, u"5  USUARIO:eva:DESBLOQUEAR"_s,
                                  u"5  USUARIO:eva:CLAVE"_s, u"4  USUARIO:eva:BAJA"_s}));
    EXPECT_FALSE(desk.out.contains(desk.password));
}

TEST_P(UserOrders, TellAnUnknownUserBeforeTheyAskForAPassword) {
    for (const auto* order :
         {u"baja eva", u"clave eva", u"bloquear eva", u"desbloquear eva", u"derechos eva VELTRANO R---"}) {
        EXPECT_EQ(desk.run(QString::fromUtf16(order)), ExitFailure);
        EXPECT_EQ(desk.errors, u"Error: El usuario «eva» no existe (3265)\n"_s);
        EXPECT_EQ(desk.asked, 0);
    }
}

TEST_P(UserOrders, RefuseWhatIsNotAllowedAndChangeNothing) {
    desk.password = u"corta"_s;
    EXPECT_EQ(desk.run(u"alta eva"_s), ExitFailure);
    EXPECT_EQ(desk.errors, u"Error: La contraseña debe tener al menos 8 caracteres (5)\n"_s);
    desk.password = u"Una-larga-1"_s;
    EXPECT_EQ(desk.run(u"alta eva"_s), ExitSuccess);
    EXPECT_EQ(desk.run(u"alta EVA"_s), ExitFailure);
    EXPECT_TRUE(desk.errors.contains(u"(2627)")) << qPrintable(desk.errors);
    EXPECT_EQ(desk.run(u"derechos eva VELTRANO XWRD"_s), ExitFailure);
    EXPECT_TRUE(desk.errors.contains(u"Derechos inválidos «XWRD»")) << qPrintable(desk.errors);
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_usuario"_s), u"1"_s);
}

TEST_P(UserOrders, CompaniesAreAddedAndListed) {
    EXPECT_EQ(desk.run(QStringList{u"empresa"_s, u"010"_s, u"Comercial Ñandú"_s}), ExitSuccess);
    EXPECT_EQ(desk.run(u"empresas"_s), ExitSuccess);
    EXPECT_EQ(desk.out, u"010        Comercial Ñandú\n"_s);
    EXPECT_EQ(desk.run(u"empresa 010 Otra"_s), ExitFailure);
}

INSTANTIATE_TEST_SUITE_P(Engines, UserOrders, testing::ValuesIn(dalvora::test::allEngines),
                         dalvora::test::engineName);

} // namespace
