#include "platform/quorvane32/base/Module.h"
#include "tests/support/QtPrinters.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString refusal(const QString& module) {
    try {
        quorvane::moduleFactory<QObject>(module, QStringLiteral("el canal de pruebas"));
    } catch (const quorvane::RunTimeError& error) {
        EXPECT_EQ(error.number(), 429);
        return error.description();
    }
    return {};
}

} // namespace

TEST(ModuleTest, AMissingModuleIsNamed) {
    EXPECT_EQ(refusal(QStringLiteral("quorvane_nada")),
              "No se puede cargar el canal de pruebas: falta el módulo quorvane_nada en la carpeta "
              "\"quorvane\" del programa");
}

TEST(ModuleTest, ADamagedModuleIsNamedWithTheSystemsReason) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("quorvane"));
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("quorvane/quorvane_roto.dll");
#else
    const QString name = QStringLiteral("quorvane/quorvane_roto.so");
#endif
    QFile module(folder.filePath(name));
    ASSERT_TRUE(module.open(QIODevice::WriteOnly));
    module.write("no es un módulo");
    module.close();
    QCoreApplication::addLibraryPath(folder.path());
    const QString told = refusal(QStringLiteral("quorvane_roto"));
    QCoreApplication::removeLibraryPath(folder.path());
    EXPECT_TRUE(
        told.startsWith(QStringLiteral("No se puede cargar el canal de pruebas: el módulo quorvane_roto está "
                                       "dañado o falta algo que necesita [")))
        << told.toStdString();
}
