#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using quorvane::RunTimeError;

namespace {

QString standardText(int number) {
    try {
        quorvane::raise(number);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), number);
        return error.description();
    }
}

} // namespace

TEST(RunTimeError, HasANumberAndADescription) {
    const RunTimeError error(13, u"No es una fecha: ñ"_s);
    EXPECT_EQ(error.number(), 13);
    EXPECT_EQ(error.description(), u"No es una fecha: ñ"_s);
    EXPECT_STREQ(error.what(), "No es una fecha: ñ");
}

TEST(RunTimeError, IsRaisedWithItsStandardDescription) {
    EXPECT_EQ(standardText(6), u"Desbordamiento"_s);
    EXPECT_EQ(standardText(9), u"Subíndice fuera del intervalo"_s);
    EXPECT_EQ(standardText(13), u"No coinciden los tipos"_s);
    EXPECT_EQ(standardText(94), u"Uso no válido de Null"_s);
    EXPECT_EQ(standardText(quorvane::ErrorNoCurrentRecord),
              u"El valor de BOF o EOF es True, o el registro actual se eliminó; la operación solicitada "
              u"requiere un registro actual"_s);
    EXPECT_EQ(standardText(quorvane::ErrorObjectClosed),
              u"La operación solicitada no está permitida si el objeto está cerrado"_s);
}

TEST(RunTimeError, AnUnknownNumberHasAGeneralDescription) {
    EXPECT_EQ(standardText(31999), u"Error definido por la aplicación o el objeto"_s);
}
