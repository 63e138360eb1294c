// Requests of other programs, through the channel, to the real form over the embedded database.
#include "app/HostRequests.h"
#include "app/HostChannel.h"
#include "platform/dde/SystemRequestLink.h"
#include "tests/forms/MainFormTest.h"
#include "tests/host/Channel.h"
#include <QDialog>
#include <QMenu>

using namespace dalvora;
using namespace dalvora::test;

namespace {

const QString busyText =
    u"Dalvora está ocupado: hay una operación en curso o una ventana que espera respuesta"_s;

class HostRequestsTest : public MainFormTest {
protected:
    HostRequestsTest() { channel.begin({topic}); }

    /// Sends a command as another program does; whether it was accepted.
    bool ask(const QString& command) {
        quorvane::SystemRequestLink link;
        link.setLinkTimeout(100);
        link.setLinkTopic(topic);
        link.setLinkMode(quorvane::LinkManual);
        try {
            link.LinkExecute(command);
        } catch (const quorvane::RunTimeError& error) {
            EXPECT_EQ(error.number(), quorvane::ErrorLinkRefused) << qPrintable(error.description());
            return false;
        }
        QCoreApplication::processEvents(); // a command that was accepted runs behind its answer
        return true;
    }
    /// Why a command is refused; "" when it is not.
    QString refusal(const QString& command) {
        try {
            requests.execute(command);
        } catch (const quorvane::RunTimeError& error) {
            return error.description();
        }
        return {};
    }
    void typeIntoCell() {
        controls().XGrid->setFocus();
        controls().XGrid->setRow(1);
        controls().XGrid->setCol(6);
        type(u"7"_s);
    }

    ChannelFolder channelFolder;
    const QString topic = u"Dalvora|prueba "_s + channelFolder.path();
    HostRequests requests{*form, context};
    HostChannel channel{[this](const QString& command) { return requests.execute(command); }};
};

} // namespace

TEST_P(HostRequestsTest, OpensTheRecordOfAKey) {
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=c1"_s));
    EXPECT_TRUE(table().SysRecordFound);
    EXPECT_EQ(controls().TxtCodigo->text(), u"C1"_s);
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2006"_s);
    EXPECT_EQ(controls().XGrid->text(1, 2), u"P1"_s);
    EXPECT_FALSE(controls().TxtCodigo->isEnabled());
    EXPECT_TRUE(form->isEnabled());
    EXPECT_EQ(session->audits, (std::vector<std::pair<int, QString>>{{7, u"01:COMISION:C1"_s}}));
    expectSilence();
}

TEST_P(HostRequestsTest, AddsARecord) {
    readC1();
    ASSERT_TRUE(ask(u"accion=nuevo"_s));
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
    EXPECT_TRUE(controls().TxtCodigo->isEnabled());
    EXPECT_FALSE(table().SysRecordEnabled);
    expectSilence();
}

TEST_P(HostRequestsTest, AMissingRecordIsTold) {
    readC1();
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=NADA"_s));
    expectTold({{u"Registro no existe"_s, 64}});
    EXPECT_EQ(controls().TxtCodigo->text(), u"NADA"_s);
    EXPECT_EQ(controls().FecIni->text(), QString());
    EXPECT_FALSE(controls().TxtCodigo->isEnabled());
    EXPECT_EQ(table().DetailsCount(), 1);
}

TEST_P(HostRequestsTest, APeriodIsFoundByItsDatesAndTheFirstOneWithout) {
    execute(u"INSERT INTO Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal, Porcentaje, "
            "Acumulable) VALUES ('01', 'C1', 'Otro', '01/01/2007', '31/12/2007', 0, 'N')"_s);
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=C1;FECHAINICIO=01/03/2007;FECHAFINAL=31/03/2007"_s));
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2007"_s);
    EXPECT_EQ(controls().TxtGlosa->text(), u"Otro"_s);
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=C1"_s));
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2006"_s);
    expectSilence();
}

TEST_P(HostRequestsTest, WhatWasEnteredIsKeptWhenTheUserSaysSo) {
    readC1();
    enterCell(*controls().XGrid, 1, 6, u"7"_s);
    recorder.answer(ButtonNo);
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=NADA"_s));
    expectTold({{u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    recorder.answer(ButtonNo);
    ASSERT_TRUE(ask(u"ACCION=NUEVO"_s));
    expectTold({{u"¿ Seguro de iniciar otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(table().Codigo(), u"C1"_s);
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
    EXPECT_TRUE(controls().XGrid->hasFocus());
    ASSERT_TRUE(ask(u"ACCION=NUEVO"_s));
    expectTold({{u"¿ Seguro de iniciar otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
}

TEST_P(HostRequestsTest, AnEntryThatIsStillTypedCountsToo) {
    readC1();
    typeIntoCell();
    recorder.answer(ButtonNo);
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=NADA"_s));
    expectTold({{u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
    EXPECT_FALSE(controls().XGrid->isEditing());
}

TEST_P(HostRequestsTest, AHeaderThatIsStillTypedCountsToo) {
    controls().TxtGlosa->setFocus();
    type(u"x"_s);
    recorder.answer(ButtonNo);
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=C1"_s));
    expectTold({{u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(controls().TxtGlosa->text(), u"x"_s);
    EXPECT_TRUE(controls().TxtGlosa->hasFocus());
}

TEST_P(HostRequestsTest, NothingRunsBesideAWindowThatWaitsForAnAnswer) {
    readC1();
    QDialog question(form.get());
    bool accepted = true;
    bool shown = false;
    QTimer::singleShot(0, &question, [&] {
        accepted = ask(u"ACCION=NUEVO"_s);
        shown = ask(u"ACCION=MOSTRAR"_s);
        question.reject();
    });
    question.exec();
    EXPECT_FALSE(accepted);
    EXPECT_TRUE(shown) << "the window comes to the front with its question";
    settle();
    EXPECT_EQ(table().Codigo(), u"C1"_s);
    QMenu menu;
    menu.popup(QPoint());
    EXPECT_EQ(refusal(u"ACCION=NUEVO"_s), busyText);
}

TEST_P(HostRequestsTest, NothingRunsInsideACommand) {
    readC1();
    bool accepted = true;
    context.Connection->setStatementObserver([&](const QString&) {
        accepted = ask(u"ACCION=NUEVO"_s);
        context.Connection->setStatementObserver({});
    });
    click(u"leer"_s);
    EXPECT_FALSE(accepted);
    EXPECT_EQ(controls().TxtCodigo->text(), u"C1"_s);
    controls().button(u"ayuda").trigger(); // waits for its turn
    EXPECT_EQ(refusal(u"ACCION=NUEVO"_s), busyText);
    settle();
    EXPECT_EQ(refusal(u"ACCION=NUEVO"_s), QString());
    EXPECT_EQ(refusal(u"ACCION=NUEVO"_s), busyText) << "the one before has not run yet";
}

TEST_P(HostRequestsTest, ACommandWaitsWhenTheUserWasQuicker) {
    readC1();
    EXPECT_EQ(refusal(u"ACCION=NUEVO"_s), QString());
    QDialog question(form.get());
    QTimer::singleShot(300, &question, [&] {
        EXPECT_EQ(table().Codigo(), u"C1"_s);
        question.reject();
    });
    question.exec();
    EXPECT_TRUE(QTest::qWaitFor([this] { return table().Codigo().isEmpty(); }));
}

TEST_P(HostRequestsTest, TheFormIsDisabledMeanwhileOnlyWhenTold) {
    std::vector<bool> enabled;
    context.Connection->setStatementObserver([&](const QString& sql) {
        if (sql.contains(u" Comisiones "_s))
            enabled.push_back(form->isEnabled());
    });
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=C1;HABILITADO=S"_s));
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=C1;HABILITADO=N"_s));
    EXPECT_EQ(enabled, (std::vector{true, false}));
    EXPECT_TRUE(form->isEnabled());
    EXPECT_TRUE(controls().XGrid->hasFocus()) << "the keyboard works on";
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=NADA;HABILITADO=N"_s));
    expectTold({{u"Registro no existe"_s, 64}});
    EXPECT_TRUE(form->isEnabled());
}

TEST_P(HostRequestsTest, WithoutTheRightToReadTheFormIsEmptyAndEnabled) {
    session->rights = u"----"_s;
    ASSERT_TRUE(ask(u"ACCION=ABRIR;CLAVE=C1;HABILITADO=N"_s));
    expectTold({{u"Usuario no tiene permiso de lectura"_s, 48}});
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
    EXPECT_TRUE(controls().TxtCodigo->hasFocus());
    EXPECT_TRUE(form->isEnabled());
}

TEST_P(HostRequestsTest, WhatIsRefusedChangesNothing) {
    readC1();
    EXPECT_FALSE(ask(u"ACCION=BORRAR;CLAVE=C1"_s));
    EXPECT_FALSE(ask(u"ACCION=ABRIR;CLAVE=C1;EMPRESA=02"_s));
    EXPECT_EQ(refusal(u"ACCION=NUEVO;EMPRESA=02"_s), u"Dalvora trabaja con la empresa 01"_s);
    EXPECT_EQ(table().Codigo(), u"C1"_s);
    EXPECT_TRUE(ask(u"ACCION=NUEVO;EMPRESA=01"_s));
    expectSilence();
}

TEST_P(HostRequestsTest, ShowingRestoresTheWindowAndEndsNoEntry) {
    readC1();
    typeIntoCell();
    form->showMinimized();
    ASSERT_TRUE(ask(u"ACCION=MOSTRAR"_s));
    EXPECT_FALSE(form->isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    EXPECT_TRUE(controls().XGrid->isEditing());
    form->showMaximized();
    form->showMinimized();
    ASSERT_TRUE(ask(u"ACCION=MOSTRAR"_s));
    EXPECT_TRUE(form->isMaximized()) << "as it was before";
}

TEST_P(HostRequestsTest, AProgramThatEndsTakesNothingMore) {
    EXPECT_EQ(refusal(u"ACCION=NUEVO"_s), QString());
    form->unload();
    context.Table.reset();
    QCoreApplication::processEvents(); // the command from before finds no record
    EXPECT_EQ(refusal(u"ACCION=MOSTRAR"_s), u"Dalvora está terminando"_s);
    channel.close();
    EXPECT_EQ(errorOfAsking(topic), quorvane::ErrorLinkNoAnswer);
}

INSTANTIATE_TEST_SUITE_P(Engines, HostRequestsTest, testing::Values(TestEngine::Sqlite), engineName);
