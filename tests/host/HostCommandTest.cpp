#include "app/HostCommand.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using Action = HostCommand::Action;
using quorvane::Date;

namespace {

/// Why a command is refused; "" when it is not.
QString refusal(const QString& command) {
    try {
        readHostCommand(command);
    } catch (const quorvane::RunTimeError& error) {
        return error.description();
    }
    return {};
}

} // namespace

TEST(HostCommand, PairsAreReadInAnyCaseAndOrder) {
    const HostCommand command = readHostCommand(
        u"clave= a 1 ;HABILITADO=n;Accion=Abrir;FechaInicio=01/02/2006;FECHAFINAL=28/02/2006;empresa=001;"_s);
    EXPECT_EQ(command.action, Action::Open);
    EXPECT_EQ(command.key, u"a 1"_s);
    EXPECT_EQ(command.company, u"001"_s);
    EXPECT_EQ(command.start, Date::fromYmd(2006, 2, 1));
    EXPECT_EQ(command.end, Date::fromYmd(2006, 2, 28));
    EXPECT_FALSE(command.enabled);
}

TEST(HostCommand, WhatIsNotSaidHasItsUsualValue) {
    const HostCommand command = readHostCommand(u"ACCION=ABRIR;CLAVE=C1;HABILITADO="_s);
    EXPECT_TRUE(command.enabled);
    EXPECT_TRUE(command.company.isEmpty());
    EXPECT_TRUE(command.start.isEmpty());
    EXPECT_TRUE(command.end.isEmpty());
    EXPECT_EQ(readHostCommand(u"ACCION=NUEVO"_s).action, Action::Add);
    EXPECT_EQ(readHostCommand(u"ACCION=MOSTRAR"_s).action, Action::Show);
}

TEST(HostCommand, AKeyWithSemicolonNeverNamesAnotherRecord) {
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=A;B"_s), u"No se entiende «B» en el requerimiento"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=A;B=1"_s), u"No se entiende «B=1» en el requerimiento"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=A;clave=B"_s), u"No se entiende «clave=B» en el requerimiento"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=A;HABILITADO"_s),
              u"No se entiende «HABILITADO» en el requerimiento"_s);
}

TEST(HostCommand, OtherCharactersOfAKeyStay) {
    EXPECT_EQ(readHostCommand(u"ACCION=ABRIR;CLAVE=50% Ñandú='x'"_s).key, u"50% Ñandú='x'"_s);
}

TEST(HostCommand, AKeyIsNeverCut) {
    EXPECT_EQ(readHostCommand(u"ACCION=ABRIR;CLAVE=  12345678901234567890  "_s).key,
              u"12345678901234567890"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=123456789012345678901"_s),
              u"La clave «123456789012345678901» tiene más de 20 caracteres"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=%1 de %2 y bastante más"_s),
              u"La clave «%1 de %2 y bastante más» tiene más de 20 caracteres"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE= "_s),
              u"El requerimiento no indica la clave del registro (CLAVE)"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR"_s), u"El requerimiento no indica la clave del registro (CLAVE)"_s);
}

TEST(HostCommand, WhatIsUnknownIsRefusedWithItsReason) {
    EXPECT_EQ(refusal(QString()), u"El requerimiento no dice qué hacer (ACCION)"_s);
    EXPECT_EQ(refusal(u"CLAVE=C1"_s), u"El requerimiento no dice qué hacer (ACCION)"_s);
    EXPECT_EQ(refusal(u"ACCION=BORRAR"_s), u"Dalvora no conoce la acción «BORRAR»"_s);
    EXPECT_EQ(refusal(u"ACCION=ABRIR;CLAVE=C1;HABILITADO=SI"_s), u"HABILITADO debe ser S o N"_s);
    EXPECT_EQ(refusal(u"ACCION="_s + QString(100, u'x')),
              u"Dalvora no conoce la acción «"_s + QString(40, u'x') + u"…»"_s);
    EXPECT_EQ(refusal(u"ACCION=NUEVO;"_s + QString(32768, u'x')), u"Desbordamiento"_s);
}

TEST(HostCommand, APeriodHasTwoDatesInTheirOrder) {
    const QString open = u"ACCION=ABRIR;CLAVE=C1;"_s;
    const QString both = u"El requerimiento debe indicar ambas fechas o ninguna"_s;
    EXPECT_EQ(refusal(open + u"FECHAINICIO=01/01/2006"_s), both);
    EXPECT_EQ(refusal(open + u"FECHAFINAL=01/01/2006"_s), both);
    EXPECT_EQ(refusal(open + u"FECHAINICIO=02/01/2006;FECHAFINAL=01/01/2006"_s),
              u"La fecha final del requerimiento es anterior a la inicial"_s);
    EXPECT_EQ(refusal(open + u"FECHAINICIO=2006-01-01;FECHAFINAL=01/01/2006"_s),
              u"«2006-01-01» no es una fecha dd/mm/aaaa"_s);
    EXPECT_EQ(refusal(open + u"FECHAINICIO=31/02/2006;FECHAFINAL=01/03/2006"_s),
              u"«31/02/2006» no es una fecha dd/mm/aaaa"_s);
}
