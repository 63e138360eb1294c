#pragma once

#include "platform/quorvane32/core/Components.h"
#include <memory>

namespace quorvane {

class ComUse;

/// Makes the components that are registered on this machine under their programmatic identifiers, and those
/// of another factory where none is registered for programs like this one. They are driven late-bound, by the
/// names of their properties and methods. Their errors come as RunTimeError with the number and the
/// description that the component gives. One lives on the user-interface thread and outlives its components.
///
/// A lookup component is given the connect string for its connection: the connection itself is no object that
/// another component could use.
class RegisteredComponents : public ComponentFactory {
public:
    explicit RegisteredComponents(std::unique_ptr<ComponentFactory> own);
    ~RegisteredComponents() override;

    /// Error 429 with the system's reason when the component is registered and cannot be made.
    std::unique_ptr<LookupComponent> createLookup(const QString& programId) override;
    std::unique_ptr<AboutComponent> createAbout(const QString& programId) override;

private:
    std::unique_ptr<ComUse> m_com;
    std::unique_ptr<ComponentFactory> m_own;
};

} // namespace quorvane
