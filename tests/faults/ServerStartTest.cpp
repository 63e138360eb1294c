// What is told at the start when the server does not let the program in, and at each operation that the
// server's tables or rights refuse.
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/login/LoginWindow.h"
#include "platform/quorvane32/session/Administration.h"
#include "tests/faults/ServerProgram.h"
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <iostream>

namespace dalvora::test {

namespace {

class ServerStart : public ServerProgram {
protected:
    /// The start ends with its one message; returns that.
    QString refused(const QString& connectString) {
        company.writeProfile(connectString);
        EXPECT_FALSE(program.start());
        QString text = toldStarting(u"Error al iniciar aplicación\n"_s);
        EXPECT_FALSE(program.context().Table) << "no record is begun";
        std::cout << "  told: " << text.toStdString() << '\n';
        return text;
    }
    void expectRefused(const QString& connectString, const QString& words) {
        const QString text = refused(connectString);
        EXPECT_TRUE(text.contains(words)) << qPrintable(text);
    }
    /// A role of the server that may log in; `rights` are statements for it.
    void makeRole(const QString& name, const QString& rights = {}) {
        asOwner(u"CREATE ROLE %1 LOGIN PASSWORD 'buena'; %2"_s.arg(name, rights));
        role = name;
    }
    QString asRole(const QString& password = u"buena"_s) const {
        auto options = quorvane::ConnectString::parse(with(u"host"_s, relay.host()));
        options.setValue(u"user"_s, role);
        options.setValue(u"password"_s, password);
        return options.toString();
    }
    void asOwner(const QString& statements) const { company.execute(statements); }
    void TearDown() override {
        mend();
        if (!role.isEmpty())
            asOwner(u"DROP OWNED BY %1; DROP ROLE %1"_s.arg(role));
    }

    QString role;
};

} // namespace

TEST_F(ServerStart, TheServerIsNotThere) {
    strike(Blow::ServerStopped);
    expectRefused(with(u"host"_s, cluster.host()), u"\n3709 - No se puede conectar con la base de datos"_s);
}

TEST_F(ServerStart, TheDatabaseIsMissing) {
    expectRefused(with(u"database"_s, u"nohay"_s),
                  u"\n4060 - El servidor no tiene la base de datos del perfil: «nohay»"_s);
}

TEST_F(ServerStart, ThePasswordIsWrong) {
    makeRole(u"empleado"_s);
    const QString text = refused(asRole(u"mala"_s));
    EXPECT_TRUE(text.contains(u"\n18456 - El servidor no acepta el usuario o la contraseña del perfil"_s))
        << qPrintable(text);
    EXPECT_FALSE(text.contains(u"mala"_s));
}

TEST_F(ServerStart, TheServerIsTooOld) {
    quorvane::Connection connection;
    connection.open(company.connectString());
    const QString number =
        connection.openRecordset(u"SELECT current_setting('server_version_num')"_s).value(0).toText({});
    const QByteArray major = number.left(2).toLatin1();
    // As an old server would say it: the number and the text of its version.
    relay.replaceInAnswers(number.toLatin1(), "120022");
    relay.replaceInAnswers(major + '.', "12.");
    expectRefused(with(u"host"_s, relay.host()), u"\n3343 - El servidor PostgreSQL es demasiado antiguo ("_s);
}

TEST_F(ServerStart, TheDatabaseHasNoTables) {
    const TestDatabase empty(TestEngine::PostgreSql, TestDatabase::Tables::None);
    expectRefused(empty.connectString(), u" no es una base de datos de Quorvane ERP ["_s);
}

TEST_F(ServerStart, TheTablesAreOfAnotherVersion) {
    asOwner(u"UPDATE ses_esquema SET Version = 0"_s);
    expectRefused(with(u"host"_s, relay.host()), u" tiene una versión anterior (0)"_s);
}

TEST_F(ServerStart, ATableOfTheSessionIsMissing) {
    asOwner(u"DROP TABLE ses_empresa"_s);
    expectRefused(with(u"host"_s, relay.host()), u"\n208 - Falta una tabla en la base de datos"_s);
}

TEST_F(ServerStart, ATableOfTheConfigurationIsMissing) {
    asOwner(u"DROP TABLE gen_tabcod"_s);
    EXPECT_FALSE(program.start());
    const QString text =
        toldStarting(u"Error al inicializar la aplicación\n208 -Falta una tabla en la base de datos"_s);
    std::cout << "  told: " << text.toStdString() << '\n';
}

TEST_F(ServerStart, TheUserOfTheServerHasNoRightOnAnyTable) {
    makeRole(u"ajeno"_s);
    expectRefused(asRole(), u"\n70 - No tiene permiso sobre una tabla de la base de datos"_s);
}

TEST_F(ServerStart, TheUserOfTheServerMayNotEnterTheDatabase) {
    makeRole(u"ajeno"_s);
    asOwner(u"REVOKE CONNECT ON DATABASE %1 FROM PUBLIC"_s.arg(databaseName()));
    expectRefused(asRole(), u"\n70 - El servidor no deja entrar en la base de datos del perfil"_s);
}

TEST_F(ServerStart, TheServerHasNoRoomForAnotherUser) {
    makeRole(u"lleno"_s, u"ALTER ROLE lleno CONNECTION LIMIT 0"_s);
    expectRefused(asRole(), u"\n3709 - El servidor no admite más conexiones por ahora"_s);
}

TEST_F(ServerStart, AServerThatComesBackLetsTheSameProfileIn) {
    strike(Blow::ServerStopped);
    refused(with(u"host"_s, relay.host()));
    mend();
    EXPECT_TRUE(program.start());
    expectSilence();
}

// The login window stays: the person tries again.
TEST_F(ServerStart, TheServerStopsWhileThePersonTypesThePassword) {
    {
        quorvane::Connection connection;
        connection.open(company.connectString());
        quorvane::Administration(connection).setPassword(u"ana"_s, u"Una-buena-1"_s);
    }
    company.writeProfile(with(u"host"_s, relay.host()), false);
    QString shown;
    const auto tryIt = [](QWidget& window) {
        auto* password = window.findChild<QLineEdit*>(u"txtClave"_s);
        password->setText(u"Una-buena-1"_s);
        QTest::mouseClick(window.findChild<QPushButton*>(u"coAceptar"_s), Qt::LeftButton);
    };
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [&] {
        auto* window = qobject_cast<quorvane::LoginWindow*>(QApplication::activeModalWidget());
        if (!window)
            return;
        person.stop();
        strike(Blow::ServerStopped);
        tryIt(*window);
        shown = window->findChild<QLabel*>(u"lblMensaje"_s)->text();
        EXPECT_TRUE(window->isVisible());
        mend();
        tryIt(*window);
        EXPECT_FALSE(window->isVisible());
        if (window->isVisible())
            window->reject(); // it would keep the test
    });
    person.start(20);
    EXPECT_TRUE(program.start());
    EXPECT_TRUE(shown.startsWith(u"3709 - "_s)) << qPrintable(shown);
    std::cout << "  shown in the window: " << shown.toStdString() << '\n';
    expectSilence();
}

namespace {

struct Refusal {
    const char* name;
    const char* statement; ///< what the server's administrator did; %1 is the program's role
    const char* told;
};

/// The program's role may do everything, until its administrator takes something away.
class ServerRefusal : public ServerStart, public testing::WithParamInterface<Refusal> {
protected:
    void SetUp() override {
        makeRole(u"empleado"_s, u"GRANT ALL ON ALL TABLES IN SCHEMA public TO empleado; GRANT ALL ON ALL "
                                u"SEQUENCES IN SCHEMA public TO empleado"_s);
        company.writeProfile(asRole());
        readC1();
        changeOneCell();
    }
    void refuse() { asOwner(QString::fromUtf8(GetParam().statement)); }
    void expectReason(const QString& start) {
        const QString text = toldStarting(start);
        EXPECT_TRUE(text.contains(QString::fromUtf8(GetParam().told))) << qPrintable(text);
        std::cout << "  told: " << text.toStdString() << '\n';
    }
};

constexpr const char* noRight = "70 - No tiene permiso sobre una tabla de la base de datos";
constexpr const char* noTable = "208 - Falta una tabla en la base de datos";

} // namespace

TEST_P(ServerRefusal, IsToldByTheSaveAndByTheReadAndNothingIsLost) {
    const QStringList before = program.screen();
    refuse();
    program.click(u"grabar"_s);
    expectReason(u"Error al grabar registro"_s);
    EXPECT_EQ(program.screen(), before);
    EXPECT_TRUE(program.table().hasUnsavedChanges());
    program.click(u"limpiar"_s);
    recorder.take();
    program.read(u"C1"_s);
    expectReason(u"Error al leer registro\n"_s);
}

TEST_P(ServerRefusal, IsToldByTheLookup) {
    refuse();
    program.click(u"limpiar"_s);
    recorder.take();
    program.controls().TxtCodigo->setFocus();
    program.press(Qt::Key_F8);
    expectReason(u"Error al procesar consulta CodigosComision@"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, ServerRefusal,
    testing::Values(Refusal{"NoRight", "REVOKE ALL ON Comisiones, ComisionesD FROM empleado", noRight},
                    Refusal{"NoTable",
                            "ALTER TABLE ComisionesD RENAME TO detalle; ALTER TABLE Comisiones RENAME TO "
                            "cabecera",
                            noTable}),
    [](const testing::TestParamInfo<Refusal>& reason) { return std::string(reason.param.name); });

} // namespace dalvora::test
