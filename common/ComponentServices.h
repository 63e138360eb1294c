#pragma once

namespace quorvane {
class ComponentFactory;
class Connection;
struct ApplicationInfo;
} // namespace quorvane

namespace dalvora {

/// What the helpers that drive the ERP's components work with. Start-up makes one; everything in it outlives
/// it.
struct ComponentServices {
    quorvane::Connection& connection;
    quorvane::ComponentFactory& components;
    /// Folder of the program and its version.
    const quorvane::ApplicationInfo& application;
};

} // namespace dalvora
