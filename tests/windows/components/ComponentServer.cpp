#include "tests/windows/components/ComponentServer.h"
#include <QSettings>
#include <gtest/gtest.h>
#include <objbase.h>
#include <stdexcept>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

/// The members of the ERP's lookup and about components; a member's number is its place here.
const QStringList& members() {
    static const QStringList names{u"Conexion"_s,   u"ArchivoQuery"_s,  u"Muestra"_s,
                                   u"ApTitulo"_s,   u"ApDescripcion"_s, u"ApVerMayor"_s,
                                   u"ApVerMenor"_s, u"ApRevision"_s,    u"Mostrar"_s};
    return names;
}

QString described(const VARIANT& value) {
    switch (value.vt) {
    case VT_BSTR:
        return u"text "_s + QString::fromWCharArray(value.bstrVal, SysStringLen(value.bstrVal));
    case VT_I4:
        return u"number %1"_s.arg(value.lVal);
    default:
        return u"kind %1"_s.arg(value.vt);
    }
}

LPCWSTR wide(const QString& text) {
    return reinterpret_cast<LPCWSTR>(text.utf16());
}

QString classesKey(const QString& name) {
    return u"Software\\Classes\\"_s + name;
}

} // namespace

HRESULT ScriptedComponent::QueryInterface(REFIID wanted, void** object) {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known)
        AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT ScriptedComponent::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT ScriptedComponent::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) {
    const QString name = QString::fromWCharArray(names[0]);
    const auto place = members().indexOf(name);
    *numbers = static_cast<DISPID>(place);
    return count == 1 && place >= 0 && !missing.contains(name) ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ScriptedComponent::Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* arguments,
                                  VARIANT* result, EXCEPINFO* error, UINT*) {
    const QString name = members().at(member);
    if (kind == DISPATCH_PROPERTYPUT && arguments->cArgs == 1 && arguments->cNamedArgs == 1 &&
        arguments->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT) {
        calls += name + u'=' + described(arguments->rgvarg[0]);
        return S_OK;
    }
    if (!(kind & DISPATCH_METHOD) || arguments->cArgs != 0)
        return DISP_E_MEMBERNOTFOUND;
    calls += name + u"()"_s;
    return method(result, error);
}

RegisteredIdentifier::RegisteredIdentifier(const QString& programId, const QString& classId)
    : m_programId(programId), m_classId(classId) {
    QSettings key(u"HKEY_LOCAL_MACHINE\\"_s + classesKey(programId), QSettings::NativeFormat);
    if (!key.allKeys().isEmpty())
        throw std::logic_error("this machine has a component of the ERP; the test leaves it alone");
    key.setValue(u"CLSID/."_s, classId);
}

RegisteredIdentifier::~RegisteredIdentifier() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, wide(classesKey(m_programId)));
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, wide(classesKey(u"CLSID\\"_s + m_classId)));
}

void RegisteredIdentifier::setLibrary(const QString& file) {
    QSettings key(u"HKEY_LOCAL_MACHINE\\"_s + classesKey(u"CLSID\\"_s + m_classId), QSettings::NativeFormat);
    key.setValue(u"InprocServer32/."_s, file);
    key.setValue(u"InprocServer32/ThreadingModel"_s, u"Apartment"_s);
}

ComponentServer::ComponentServer(const QString& programId) : m_identifier(programId, testClass()) {
    CLSID identifier;
    CLSIDFromString(wide(testClass()), &identifier);
    EXPECT_EQ(
        CoRegisterClassObject(identifier, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_registration),
        S_OK);
}

ComponentServer::~ComponentServer() {
    EXPECT_EQ(component.references, 0U) << "the component was not released";
    CoRevokeClassObject(m_registration);
}

HRESULT ComponentServer::QueryInterface(REFIID wanted, void** object) {
    const bool known = wanted == IID_IUnknown || wanted == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT ComponentServer::CreateInstance(IUnknown*, REFIID wanted, void** object) {
    *object = nullptr;
    return FAILED(creation) ? creation : component.QueryInterface(wanted, object);
}

} // namespace dalvora::test
