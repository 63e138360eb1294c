#include "demo/lorbadeno/DocumentProgram.h"
#include "demo/lorbadeno/DocumentRequest.h"

namespace dalvora::lorbadeno {

DocumentProgram::DocumentProgram(const QString& profileFolder)
    : m_reader(profileFolder)
    , m_window(m_regional)
    , m_server(QStringLiteral("Emisión de Documentos|Lorbadeno"),
               [this](const QString& command) { return show(command); }) {}

bool DocumentProgram::start() {
    if (!m_server.listen())
        return false;
    m_window.show();
    return true;
}

// What is not understood or does not exist is an error, which refuses the command with its description; the
// document before stays on the screen.
quorvane::ChannelAnswer DocumentProgram::show(const QString& command) {
    m_window.showDocument(m_reader.read(readRequest(command)));
    return {true, {}};
}

} // namespace dalvora::lorbadeno
