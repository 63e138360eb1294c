#include "platform/quorvane32/lookup/windows/RegisteredComponents.h"
#include "common/ComponentServices.h"
#include "common/QueryLookup.h"
#include "common/ShowAbout.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include "tests/common/FakeComponents.h"
#include "tests/support/FakeEngine.h"
#include "tests/support/MessageRecorder.h"
#include "tests/windows/components/ComponentServer.h"
#include <gtest/gtest.h>
#include <optional>

using namespace Qt::StringLiterals;
using namespace dalvora::test;

namespace {

const QString lookupId = u"Quorvane32.QuorQuery"_s;
const QString aboutId = u"Quorvane32.QuorAbout"_s;

class RegisteredComponentsTest : public testing::Test {
protected:
    RegisteredComponentsTest() {
        auto own = std::make_unique<FakeComponents>();
        ours = own.get();
        ours->show = [] { return u"NUESTRO"_s; };
        components.emplace(std::move(own));
        connection.open(u"driver=sqlite;database=C:\\datos\\año.db"_s);
    }

    bool lookup() {
        return dalvora::QueryLookup({connection, *components, application}, u"CodigosComision"_s,
                                    u"C:\\c\\DALVORA.qry"_s, u"01"_s, values);
    }
    void about() { dalvora::ShowAbout({connection, *components, application}, u"Veltrano"_s, u"Dalvora"_s); }

    /// The methods give this text.
    static ScriptedComponent::Method answer(const QString& text) {
        return [text](VARIANT* result, EXCEPINFO*) {
            result->vt = VT_BSTR;
            result->bstrVal = SysAllocString(reinterpret_cast<const OLECHAR*>(text.utf16()));
            return S_OK;
        };
    }
    /// The methods end with an error of the component.
    static ScriptedComponent::Method fail(WORD number, SCODE code, const wchar_t* description) {
        return [=](VARIANT*, EXCEPINFO* error) {
            *error = {};
            error->wCode = number;
            error->scode = code;
            error->bstrDescription = SysAllocString(description);
            return DISP_E_EXCEPTION;
        };
    }
    QString onlyMessage() {
        const auto told = messages.take();
        EXPECT_EQ(told.size(), 1U);
        if (told.empty())
            return {};
        EXPECT_EQ(told.front().style, 16);
        EXPECT_EQ(told.front().title, u"Quorvane ERP"_s);
        return told.front().text;
    }

    FakeDatabase database;
    quorvane::Connection connection{
        [this](const QString&) { return std::make_unique<FakeEngine>(database); }};
    quorvane::ApplicationInfo application{u"C:\\programa"_s, {}, 7, 13, 1203};
    FakeComponents* ours = nullptr;
    std::optional<quorvane::RegisteredComponents> components;
    MessageRecorder messages;
    QStringList values;
};

const QString failedQuery = u"Error al procesar consulta CodigosComision@C:\\c\\DALVORA.qry\n\n"_s;

} // namespace

TEST_F(RegisteredComponentsTest, OursServeWhereNoneIsRegistered) {
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, QStringList{u"NUESTRO"_s});
    about();
    EXPECT_TRUE(ours->calls.contains(u"ApTitulo=Veltrano"_s));
}

TEST_F(RegisteredComponentsTest, ARegisteredLookupIsGivenItsPropertiesAndItsRowComesBack) {
    ComponentServer server(lookupId);
    server.component.method = answer(u" VERANO#Campaña de año#"_s);
    EXPECT_TRUE(lookup());
    EXPECT_EQ(server.component.calls,
              (QStringList{u"Conexion=text driver=sqlite;database=C:\\datos\\año.db"_s,
                           u"ArchivoQuery=text CodigosComision@C:\\c\\DALVORA.qry#01"_s, u"Muestra()"_s}));
    EXPECT_EQ(values, (QStringList{u"VERANO"_s, u"Campaña de año"_s, QString()}));
    EXPECT_EQ(ours->calls, QStringList());
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(RegisteredComponentsTest, ALookupThatGivesNothingIsNoChoice) {
    ComponentServer server(lookupId);
    EXPECT_FALSE(lookup());
    server.component.method = answer(u"  "_s);
    EXPECT_FALSE(lookup());
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(RegisteredComponentsTest, ARegisteredAboutBoxIsGivenTheVersion) {
    ComponentServer server(aboutId);
    about();
    EXPECT_EQ(
        server.component.calls,
        (QStringList{u"ApTitulo=text Veltrano"_s, u"ApDescripcion=text Dalvora"_s, u"ApVerMayor=number 7"_s,
                     u"ApVerMenor=number 13"_s, u"ApRevision=number 1203"_s, u"Mostrar()"_s}));
    EXPECT_EQ(ours->calls, QStringList());
}

TEST_F(RegisteredComponentsTest, AComponentThatCannotBeMadeIsTold) {
    ComponentServer server(lookupId);
    server.creation = E_OUTOFMEMORY;
    EXPECT_FALSE(lookup());
    EXPECT_TRUE(onlyMessage().startsWith(
        u"Error al instanciar componente de consulta a base de datos (Quorvane32.QuorQuery)\n"
        "posiblemente debe reinstalar los componentes cliente de Quorvane ERP\n\n"
        "429 - El componente no puede crear el objeto (0x8007000E: "_s));
    EXPECT_EQ(ours->calls, QStringList());
}

TEST_F(RegisteredComponentsTest, ARegisteredComponentWhoseLibraryIsGoneIsTold) {
    RegisteredIdentifier identifier(aboutId, testClass());
    identifier.setLibrary(u"C:\\no\\hay.dll"_s);
    about();
    EXPECT_TRUE(onlyMessage().startsWith(
        u"Error al instanciar componente AcercaDe para Quorvane (Quorvane32.QuorAbout)\n"
        "posiblemente debe reinstalar los componentes cliente de Quorvane ERP\n\n"
        "429 - El componente no puede crear el objeto (0x"_s));
    EXPECT_EQ(ours->calls, QStringList());
}

TEST_F(RegisteredComponentsTest, AnIdentifierWithoutAClassForThisKindOfProgramLeavesItToOurs) {
    const RegisteredIdentifier identifier(lookupId, testClass());
    EXPECT_TRUE(lookup());
    EXPECT_EQ(values, QStringList{u"NUESTRO"_s});
}

TEST_F(RegisteredComponentsTest, AnErrorOfAMethodComesWithItsNumberAndDescription) {
    ComponentServer server(lookupId);
    server.component.method = fail(1004, 0, L"Falló la conexión");
    EXPECT_FALSE(lookup());
    EXPECT_EQ(onlyMessage(), failedQuery + u"1004 - Falló la conexión"_s);
    EXPECT_EQ(values, QStringList());
}

TEST_F(RegisteredComponentsTest, ARunTimeErrorInsideAResultCodeIsUnpacked) {
    ComponentServer server(lookupId);
    server.component.method = fail(0, static_cast<SCODE>(0x800A000D), L"No coinciden los tipos");
    EXPECT_FALSE(lookup());
    EXPECT_EQ(onlyMessage(), failedQuery + u"13 - No coinciden los tipos"_s);

    server.component.method = fail(0, static_cast<SCODE>(0x80040E14), L"Sintaxis");
    EXPECT_FALSE(lookup());
    EXPECT_EQ(onlyMessage(), failedQuery + u"-2147217900 - Sintaxis"_s);
}

TEST_F(RegisteredComponentsTest, AnErrorThatIsDescribedOnRequestIsAskedFor) {
    ComponentServer server(lookupId);
    server.component.method = [](VARIANT*, EXCEPINFO* error) {
        *error = {};
        error->pfnDeferredFillIn = [](EXCEPINFO* described) -> HRESULT {
            described->wCode = 91;
            described->bstrDescription = SysAllocString(L"Variable de objeto no establecida");
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    };
    EXPECT_FALSE(lookup());
    EXPECT_EQ(onlyMessage(), failedQuery + u"91 - Variable de objeto no establecida"_s);
}

TEST_F(RegisteredComponentsTest, AnErrorWithoutDescriptionNamesTheMethod) {
    ComponentServer server(lookupId);
    server.component.method = [](VARIANT*, EXCEPINFO*) { return E_FAIL; };
    EXPECT_FALSE(lookup());
    EXPECT_TRUE(onlyMessage().startsWith(
        failedQuery + u"-2147467259 - El componente no pudo realizar «Muestra» (0x80004005: "_s));
}

TEST_F(RegisteredComponentsTest, AMemberThatTheComponentHasNotIsTold) {
    ComponentServer server(lookupId);
    server.component.missing = {u"ArchivoQuery"_s};
    EXPECT_FALSE(lookup());
    EXPECT_TRUE(
        onlyMessage().startsWith(failedQuery + u"438 - El componente no pudo realizar «ArchivoQuery» "_s));
}

TEST_F(RegisteredComponentsTest, TheProgramsWindowsTakeNoInputWhileAComponentShowsItsOwn) {
    ComponentServer server(lookupId);
    const HWND window = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                      nullptr, nullptr, nullptr);
    const HWND disabledBefore = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_DISABLED,
                                              0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    bool tookInput = true;
    server.component.method = [&](VARIANT*, EXCEPINFO*) {
        tookInput = IsWindowEnabled(window);
        return S_OK;
    };
    lookup();
    EXPECT_FALSE(tookInput);
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_FALSE(IsWindowEnabled(disabledBefore));
    DestroyWindow(disabledBefore);
    DestroyWindow(window);
}
