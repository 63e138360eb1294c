#include "platform/quorvane32/lookup/windows/ComObject.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <oleauto.h>

namespace quorvane {

using namespace Qt::StringLiterals;

namespace {

/// The texts of a component's error, which is ours to free.
struct Exception : EXCEPINFO {
    Exception() : EXCEPINFO{} {}
    ~Exception() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;

    QString description() const {
        return QString::fromWCharArray(bstrDescription, SysStringLen(bstrDescription));
    }
};

/// "(0x800706BA: what the system says of it)".
QString reason(HRESULT result) {
    return u"(0x%1: %2)"_s.arg(
        QString::number(static_cast<uint>(result), 16).toUpper().rightJustified(8, u'0'),
        qt_error_string(result));
}

/// Run-time errors travel inside result codes of a facility of their own.
int numberOf(HRESULT result) {
    switch (result) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
        return ErrorNoSuchProperty;
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
        return ErrorTypeMismatch;
    case DISP_E_OVERFLOW:
        return ErrorOverflow;
    default:
        return HRESULT_FACILITY(result) == FACILITY_CONTROL ? HRESULT_CODE(result) : static_cast<int>(result);
    }
}

[[noreturn]] void raiseFailed(const char16_t* member, HRESULT result) {
    throw RunTimeError(numberOf(result), u"El componente no pudo realizar «%1» %2"_s.arg(
                                             QString::fromUtf16(member), reason(result)));
}

[[noreturn]] void raiseException(const char16_t* member, Exception& exception) {
    if (exception.pfnDeferredFillIn)
        exception.pfnDeferredFillIn(&exception);
    const QString description = exception.description();
    if (exception.wCode == 0 && description.isEmpty())
        raiseFailed(member, exception.scode);
    throw RunTimeError(exception.wCode ? exception.wCode : numberOf(exception.scode),
                       description.isEmpty() ? u"El componente no pudo realizar «%1»"_s.arg(member)
                                             : description);
}

} // namespace

ComVariant::ComVariant(const QString& text) {
    VariantInit(&m_value);
    m_value.vt = VT_BSTR;
    m_value.bstrVal =
        SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.utf16()), static_cast<UINT>(text.size()));
    if (!m_value.bstrVal)
        raise(ErrorOutOfMemory);
}

ComVariant::ComVariant(int number) {
    VariantInit(&m_value);
    m_value.vt = VT_I4;
    m_value.lVal = number;
}

QString ComVariant::text() const {
    if (m_value.vt == VT_EMPTY || m_value.vt == VT_NULL)
        return {};
    ComVariant text;
    const HRESULT result = VariantChangeType(&text, const_cast<VARIANT*>(&m_value), 0, VT_BSTR);
    if (FAILED(result))
        raise(ErrorTypeMismatch);
    return QString::fromWCharArray(text.m_value.bstrVal, SysStringLen(text.m_value.bstrVal));
}

std::unique_ptr<ComObject> ComObject::create(const QString& programId) {
    CLSID identifier;
    if (FAILED(CLSIDFromProgID(reinterpret_cast<LPCOLESTR>(programId.utf16()), &identifier)))
        return nullptr;
    // Identifiers are common to programs of every width, libraries are not: one that is there for others only
    // counts as not registered. Asked for both at once, the system would not tell that from a broken library.
    IDispatch* object = nullptr;
    HRESULT result = REGDB_E_CLASSNOTREG;
    for (const CLSCTX place : {CLSCTX_INPROC_SERVER, CLSCTX_LOCAL_SERVER})
        if (result == REGDB_E_CLASSNOTREG)
            result = CoCreateInstance(identifier, nullptr, place, IID_IDispatch,
                                      reinterpret_cast<void**>(&object));
    if (result == REGDB_E_CLASSNOTREG)
        return nullptr;
    if (FAILED(result))
        throw RunTimeError(ErrorCannotCreateObject,
                           u"El componente no puede crear el objeto "_s + reason(result));
    return std::unique_ptr<ComObject>(new ComObject(object));
}

DISPID ComObject::memberNumber(const char16_t* name) {
    auto* text = const_cast<OLECHAR*>(reinterpret_cast<const OLECHAR*>(name));
    DISPID number = DISPID_UNKNOWN;
    const HRESULT result = m_object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &number);
    if (FAILED(result))
        raiseFailed(name, result);
    return number;
}

void ComObject::invoke(const char16_t* name, WORD kind, DISPPARAMS& arguments, VARIANT* result) {
    Exception exception;
    const HRESULT done = m_object->Invoke(memberNumber(name), IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments,
                                          result, &exception, nullptr);
    if (done == DISP_E_EXCEPTION)
        raiseException(name, exception);
    if (FAILED(done))
        raiseFailed(name, done);
}

void ComObject::put(const char16_t* property, const ComVariant& value) {
    DISPID assigned = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{const_cast<VARIANT*>(&value.value()), &assigned, 1, 1};
    invoke(property, DISPATCH_PROPERTYPUT, arguments, nullptr);
}

QString ComObject::call(const char16_t* method) {
    DISPPARAMS arguments{};
    ComVariant result;
    invoke(method, DISPATCH_METHOD, arguments, &result);
    return result.text();
}

} // namespace quorvane
