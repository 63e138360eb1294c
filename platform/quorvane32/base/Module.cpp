#include "platform/quorvane32/base/Module.h"

namespace quorvane {

// A loader that found no file names none. What the system says of one that it cannot load may be in its own
// language.
void raiseNoModule(const QString& module, const QString& purpose, const QPluginLoader& loader) {
    const QString reason =
        loader.fileName().isEmpty()
            ? QStringLiteral("falta el módulo %1 en la carpeta \"quorvane\" del programa").arg(module)
            : QStringLiteral("el módulo %1 está dañado o falta algo que necesita [%2]")
                  .arg(module, loader.errorString());
    throw RunTimeError(ErrorCannotCreateObject,
                       QStringLiteral("No se puede cargar %1: %2").arg(purpose, reason));
}

} // namespace quorvane
