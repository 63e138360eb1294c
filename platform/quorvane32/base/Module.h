#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include <QPluginLoader>

namespace quorvane {

/// Error 429 that tells why the loader gave no module.
[[noreturn]] void raiseNoModule(const QString& module, const QString& purpose, const QPluginLoader& loader);

/// Parts of the program that few days need live in modules of their own, in the folder "quorvane" beside the
/// program: what a module needs of the system is loaded with its first use and not with every start.
///
/// The factory that a module offers; a module once loaded stays. Error 429 when there is no such module, it
/// needs what this machine has not, or it offers something else; `purpose` ("el canal de requerimientos")
/// tells what cannot be had then.
template<class Factory> Factory& moduleFactory(const QString& module, const QString& purpose) {
    QPluginLoader loader(QStringLiteral("quorvane/") + module);
    auto* factory = qobject_cast<Factory*>(loader.instance());
    if (!factory)
        raiseNoModule(module, purpose, loader);
    return *factory;
}

} // namespace quorvane
