#pragma once

#include <QString>
#include <memory>

namespace quorvane {

class Connection;

/// The lookup component: shows the rows of a named query and returns the chosen one.
class LookupComponent {
public:
    virtual ~LookupComponent() = default;
    virtual void setConexion(Connection& connection) = 0;
    /// Query name + "@" + query file + "#" + parameters, the parameters themselves separated by "#".
    virtual void setArchivoQuery(const QString& argument) = 0;
    /// Shows the window; the chosen row's values joined by "#", or "" when the user chose nothing.
    virtual QString Muestra() = 0;
};

/// The about box component.
class AboutComponent {
public:
    virtual ~AboutComponent() = default;
    virtual void setApTitulo(const QString& title) = 0;
    virtual void setApDescripcion(const QString& description) = 0;
    virtual void setApVerMayor(int major) = 0;
    virtual void setApVerMenor(int minor) = 0;
    virtual void setApRevision(int revision) = 0;
    virtual void Mostrar() = 0;
};

/// Makes components by their programmatic identifier ("Quorvane32.QuorQuery", "Quorvane32.QuorAbout"); error
/// 429 for one that cannot be made.
class ComponentFactory {
public:
    virtual ~ComponentFactory() = default;
    virtual std::unique_ptr<LookupComponent> createLookup(const QString& programId) = 0;
    virtual std::unique_ptr<AboutComponent> createAbout(const QString& programId) = 0;
};

} // namespace quorvane
