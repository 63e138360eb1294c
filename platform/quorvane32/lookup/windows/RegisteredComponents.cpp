#include "platform/quorvane32/lookup/windows/RegisteredComponents.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/lookup/windows/ComObject.h"
#include "platform/quorvane32/lookup/windows/DisabledWindows.h"

namespace quorvane {

namespace {

class RegisteredLookup final : public LookupComponent {
public:
    explicit RegisteredLookup(std::unique_ptr<ComObject> object) : m_object(std::move(object)) {}
    void setConexion(Connection& connection) override {
        m_object->put(u"Conexion", ComVariant(connection.connectString()));
    }
    void setArchivoQuery(const QString& argument) override {
        m_object->put(u"ArchivoQuery", ComVariant(argument));
    }
    QString Muestra() override {
        const DisabledWindows modal;
        return m_object->call(u"Muestra");
    }

private:
    std::unique_ptr<ComObject> m_object;
};

class RegisteredAbout final : public AboutComponent {
public:
    explicit RegisteredAbout(std::unique_ptr<ComObject> object) : m_object(std::move(object)) {}
    void setApTitulo(const QString& title) override { m_object->put(u"ApTitulo", ComVariant(title)); }
    void setApDescripcion(const QString& description) override {
        m_object->put(u"ApDescripcion", ComVariant(description));
    }
    void setApVerMayor(int major) override { m_object->put(u"ApVerMayor", ComVariant(major)); }
    void setApVerMenor(int minor) override { m_object->put(u"ApVerMenor", ComVariant(minor)); }
    void setApRevision(int revision) override { m_object->put(u"ApRevision", ComVariant(revision)); }
    void Mostrar() override {
        const DisabledWindows modal;
        m_object->call(u"Mostrar");
    }

private:
    std::unique_ptr<ComObject> m_object;
};

} // namespace

RegisteredComponents::RegisteredComponents(std::unique_ptr<ComponentFactory> own)
    : m_com(std::make_unique<ComUse>()), m_own(std::move(own)) {}

RegisteredComponents::~RegisteredComponents() = default;

std::unique_ptr<LookupComponent> RegisteredComponents::createLookup(const QString& programId) {
    if (auto object = ComObject::create(programId))
        return std::make_unique<RegisteredLookup>(std::move(object));
    return m_own->createLookup(programId);
}

std::unique_ptr<AboutComponent> RegisteredComponents::createAbout(const QString& programId) {
    if (auto object = ComObject::create(programId))
        return std::make_unique<RegisteredAbout>(std::move(object));
    return m_own->createAbout(programId);
}

} // namespace quorvane
