#pragma once

// For the sources of this folder only: it brings the system's own names along.

#include <QString>
#include <memory>
#include <windows.h>
// Needs the line above.
#include <oaidl.h>

namespace quorvane {

/// The calling thread may use components while one lives.
class ComUse {
public:
    ComUse() : m_begun(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~ComUse() {
        if (SUCCEEDED(m_begun))
            CoUninitialize();
    }
    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;

private:
    HRESULT m_begun;
};

/// A value on its way to a component or from it.
class ComVariant {
public:
    ComVariant() { VariantInit(&m_value); }
    explicit ComVariant(const QString& text);
    explicit ComVariant(int number);
    ~ComVariant() { VariantClear(&m_value); }
    ComVariant(const ComVariant&) = delete;
    ComVariant& operator=(const ComVariant&) = delete;

    /// The value as text, nothing for an empty one. Error 13 when it has none.
    QString text() const;
    VARIANT* operator&() { return &m_value; }
    const VARIANT& value() const { return m_value; }

private:
    VARIANT m_value;
};

/// A component that is driven by the names of its members, known at run time only. Errors of the component
/// leave every call as RunTimeError with its number and description; 438 for a member that it has not.
class ComObject {
public:
    /// The component of a programmatic identifier; null when none is registered for this kind of program,
    /// error 429 when it is and cannot be made.
    static std::unique_ptr<ComObject> create(const QString& programId);
    ~ComObject() { m_object->Release(); }
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    void put(const char16_t* property, const ComVariant& value);
    /// Calls a method without arguments; its result as text.
    QString call(const char16_t* method);

private:
    explicit ComObject(IDispatch* object) : m_object(object) {}
    DISPID memberNumber(const char16_t* name);
    void invoke(const char16_t* name, WORD kind, DISPPARAMS& arguments, VARIANT* result);

    IDispatch* m_object;
};

} // namespace quorvane
