#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Components.h"
#include <QStringList>
#include <functional>

namespace dalvora::test {

/// Components that note what is done with them and answer from a script.
struct FakeComponents final : quorvane::ComponentFactory {
    class Lookup final : public quorvane::LookupComponent {
    public:
        explicit Lookup(FakeComponents& owner) : m_owner(owner) {}
        void setConexion(quorvane::Connection& connection) override {
            m_owner.connection = &connection;
            m_owner.calls += QStringLiteral("Conexion");
        }
        void setArchivoQuery(const QString& argument) override {
            m_owner.calls += QStringLiteral("ArchivoQuery=") + argument;
        }
        QString Muestra() override {
            m_owner.calls += QStringLiteral("Muestra");
            return m_owner.show();
        }

    private:
        FakeComponents& m_owner;
    };

    class About final : public quorvane::AboutComponent {
    public:
        explicit About(FakeComponents& owner) : m_owner(owner) {}
        void setApTitulo(const QString& title) override { note(QStringLiteral("ApTitulo=%1").arg(title)); }
        void setApDescripcion(const QString& text) override {
            note(QStringLiteral("ApDescripcion=%1").arg(text));
        }
        void setApVerMayor(int number) override { note(QStringLiteral("ApVerMayor=%1").arg(number)); }
        void setApVerMenor(int number) override { note(QStringLiteral("ApVerMenor=%1").arg(number)); }
        void setApRevision(int number) override { note(QStringLiteral("ApRevision=%1").arg(number)); }
        void Mostrar() override {
            note(QStringLiteral("Mostrar"));
            m_owner.show();
        }

    private:
        void note(const QString& call) { m_owner.calls += call; }
        FakeComponents& m_owner;
    };

    std::unique_ptr<quorvane::LookupComponent> createLookup(const QString& programId) override {
        noteCreation(programId);
        return std::make_unique<Lookup>(*this);
    }
    std::unique_ptr<quorvane::AboutComponent> createAbout(const QString& programId) override {
        noteCreation(programId);
        return std::make_unique<About>(*this);
    }

    void noteCreation(const QString& programId) {
        calls += programId;
        if (!installed)
            throw quorvane::RunTimeError(429, QStringLiteral("El componente no puede crear el objeto"));
    }

    bool installed = true;
    /// What showing a component's window gives.
    std::function<QString()> show = [] { return QString(); };
    QStringList calls;
    quorvane::Connection* connection = nullptr;
};

} // namespace dalvora::test
