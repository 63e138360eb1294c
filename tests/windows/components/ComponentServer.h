#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <windows.h>
// Needs the line above.
#include <oaidl.h>

namespace dalvora::test {

/// A component as the ERP's client library has them, made up: the members of both of its components, late
/// bound. It notes what is done with it and answers its methods from a script.
class ScriptedComponent final : public IDispatch {
public:
    /// What a method does: an HRESULT, and its result or its error.
    using Method = std::function<HRESULT(VARIANT* result, EXCEPINFO* error)>;

    HRESULT WINAPI QueryInterface(REFIID wanted, void** object) override;
    // Lives as long as its test.
    ULONG WINAPI AddRef() override { return ++references; }
    ULONG WINAPI Release() override { return --references; }
    HRESULT WINAPI GetTypeInfoCount(UINT* count) override;
    HRESULT WINAPI GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT WINAPI GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
    HRESULT WINAPI Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                          EXCEPINFO* error, UINT*) override;

    ULONG references = 0;
    QStringList calls;   ///< "ApTitulo=text Veltrano", "Muestra()"
    QStringList missing; ///< members that it does not have
    Method method = [](VARIANT*, EXCEPINFO*) { return S_OK; };
};

/// Class of the made-up component.
inline QString testClass() {
    return QStringLiteral("{6B1F2C0E-63D4-4C0B-9E0B-7C1C6F0A4D21}");
}

/// An identifier among the machine's registered classes (Wine looks at no user's own), gone at the end.
class RegisteredIdentifier {
public:
    RegisteredIdentifier(const QString& programId, const QString& classId);
    ~RegisteredIdentifier();
    RegisteredIdentifier(const RegisteredIdentifier&) = delete;
    RegisteredIdentifier& operator=(const RegisteredIdentifier&) = delete;

    /// The class is in this library.
    void setLibrary(const QString& file);

private:
    QString m_programId;
    QString m_classId;
};

/// Offers the component inside this process, registered under a programmatic identifier.
class ComponentServer final : public IClassFactory {
public:
    explicit ComponentServer(const QString& programId);
    virtual ~ComponentServer();
    ComponentServer(const ComponentServer&) = delete;
    ComponentServer& operator=(const ComponentServer&) = delete;

    HRESULT WINAPI QueryInterface(REFIID wanted, void** object) override;
    ULONG WINAPI AddRef() override { return 2; }
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI CreateInstance(IUnknown* outer, REFIID wanted, void** object) override;
    HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

    ScriptedComponent component;
    HRESULT creation = S_OK; ///< what making the component gives

private:
    RegisteredIdentifier m_identifier;
    DWORD m_registration = 0;
};

} // namespace dalvora::test
