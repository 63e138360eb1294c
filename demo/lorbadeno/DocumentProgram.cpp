#include "demo/lorbadeno/DocumentProgram.h"
#include "demo/lorbadeno/DocumentRequest.h"
#include "platform/dde/SystemRequestAnswerer.h"

namespace dalvora::lorbadeno {

DocumentProgram::DocumentProgram(const QString& profileFolder)
    : m_reader(profileFolder), m_window(m_regional) {}

bool DocumentProgram::start() {
    m_answerer = quorvane::makeRequestAnswerer(QStringLiteral("Emisión de Documentos|Lorbadeno"),
                                               [this](const QString& command) { return show(command); });
    if (!m_answerer->listen())
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
