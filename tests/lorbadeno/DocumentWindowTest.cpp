#include "demo/lorbadeno/DocumentProgram.h"
#include "demo/lorbadeno/LineTable.h"
#include "platform/dde/SystemRequestLink.h"
#include "tests/lorbadeno/DemonstrationHome.h"
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace dalvora::lorbadeno;
using namespace dalvora::test;

namespace {

#ifdef Q_OS_WIN
constexpr bool overSockets = false;
#else
constexpr bool overSockets = true;
#endif

class Window : public DemonstrationHome {
protected:
    Window() : runtimeBefore(qgetenv("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
        program = std::make_unique<DocumentProgram>(s_home->path());
    }
    ~Window() override {
        program.reset();
        qputenv("XDG_RUNTIME_DIR", runtimeBefore);
    }

    /// Asks over the channel as the commission program does; what the refusal says, "" for none.
    QString ask(const QString& type, const QString& account, const QString& number) {
        quorvane::SystemRequestLink link;
        link.setLinkTopic(u"Emisión de Documentos|Lorbadeno"_s);
        return refusal([&] {
            link.setLinkMode(quorvane::LinkManual);
            link.LinkExecute(u"EMPRESA=001;TIPODOCTO=%1;CTACTE=%2;DOCTOINI=%3;DOCTOFIN=%3;EMISION=;ACCION=V;"
                             u"FORMATO=;EMITIDO=S;TIPOCTACTE=$TIPOCTACTE$"_s.arg(type, account, number));
        });
    }
    QString shown(const char* name) const {
        const auto* label = program->window().findChild<QLabel*>(QLatin1String(name));
        return label ? label->text() : u"(no está)"_s;
    }

    QTemporaryDir runtime;
    QByteArray runtimeBefore;
    std::unique_ptr<DocumentProgram> program;
};

} // namespace

TEST_F(Window, TellsHowToSeeADocumentUntilOneIsAskedFor) {
    ASSERT_TRUE(program->start());
    EXPECT_TRUE(program->window().isVisible());
    EXPECT_TRUE(shown("lblVacio").contains(u"informe por vendedor"));
}

TEST_F(Window, ShowsTheDocumentAskedFor) {
    ASSERT_TRUE(program->start());
    EXPECT_EQ(ask(u"FACTURA"_s, u"HANAR"_s, u"10250"_s), u""_s);
    EXPECT_EQ(program->window().windowTitle(), u"Factura de venta 10250 - Emisión de Documentos"_s);
    EXPECT_EQ(shown("lblEmpresa"), u"Comercial Viento Norte S.A."_s);
    EXPECT_EQ(shown("lblTipo"), u"FACTURA DE VENTA"_s);
    EXPECT_EQ(shown("lblNumero"), u"N° 10250"_s);
    EXPECT_EQ(shown("lblEstado"), u"Emitido"_s);
    EXPECT_EQ(shown("lblCliente"), u"HANAR - Hanari Carnes"_s);
    EXPECT_EQ(shown("lblFecha"), u"08/07/1996"_s);
    EXPECT_EQ(shown("lblNeto"), u"1.552,60"_s);
    EXPECT_EQ(shown("lblImpuesto"), u"295,00"_s);
    EXPECT_EQ(shown("lblFlete"), u"65,83"_s);
    EXPECT_EQ(shown("lblTotal"), u"1.913,43"_s);
    const auto* lines = program->window().findChild<LineTable*>();
    ASSERT_TRUE(lines);
    EXPECT_EQ(lines->rowCount(), 3);
    EXPECT_EQ(lines->item(1, 5)->text(), u"1.261,40"_s);
}

TEST_F(Window, TheNextDocumentTakesThePlaceOfTheOneBefore) {
    ASSERT_TRUE(program->start());
    EXPECT_EQ(ask(u"FACTURA"_s, u"HANAR"_s, u"10250"_s), u""_s);
    program->window().showMinimized();
    EXPECT_EQ(ask(u"FACEXP"_s, u"VINET"_s, u"10248"_s), u""_s);
    EXPECT_EQ(shown("lblTipo"), u"FACTURA DE EXPORTACIÓN"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(program->window().findChildren<LineTable*>().size(), 1);
    EXPECT_FALSE(program->window().isMinimized());
    EXPECT_TRUE(program->window().isActiveWindow());
}

TEST_F(Window, ARefusalLeavesTheDocumentBefore) {
    ASSERT_TRUE(program->start());
    EXPECT_EQ(ask(u"FACTURA"_s, u"HANAR"_s, u"10250"_s), u""_s);
    // DDE carries no reason.
    const QString reason = u": No existe el documento FACTURA 1 de la cuenta corriente «HANAR»"_s;
    const QString refused = ask(u"FACTURA"_s, u"HANAR"_s, u"1"_s);
    EXPECT_FALSE(refused.isEmpty());
    EXPECT_EQ(refused.endsWith(reason), overSockets);
    EXPECT_EQ(shown("lblNumero"), u"N° 10250"_s);
}

TEST_F(Window, EscapeClosesIt) {
    ASSERT_TRUE(program->start());
    program->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&program->window()));
    QTest::keyClick(&program->window(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program->window().isVisible(); }));
}

TEST_F(Window, ASecondProgramDoesNotStart) {
    ASSERT_TRUE(program->start());
    DocumentProgram second(s_home->path());
    EXPECT_FALSE(second.start());
    EXPECT_FALSE(second.window().isVisible());
}

TEST_F(Window, ADocumentOfStrangeTextsIsShownWhole) {
    StoredDocument document;
    document.type = {u"<b>F</b>"_s, QString(300, u'W')};
    document.number = u"<img src=x>"_s;
    document.customer = {u"A&B"_s, u"\u202e"_s + QString(300, u'ñ')};
    document.linesKept = true;
    document.lines.assign(200, {{u"P"_s, QString(300, u'x')}, 1e12, 1e12, 100, -1e15});
    document.total = 1e15;
    document.decimals = 0;
    program->window().showDocument(document);
    EXPECT_EQ(shown("lblNumero"), u"N° <img src=x>"_s);
    EXPECT_EQ(shown("lblTotal"), u"1.000.000.000.000.000"_s);
    const auto* lines = program->window().findChild<LineTable*>();
    ASSERT_TRUE(lines);
    QCoreApplication::processEvents();
    EXPECT_GE(lines->height(), 200 * lines->rowHeight(0));
}
