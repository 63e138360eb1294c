#pragma once

#include "demo/lorbadeno/DocumentReader.h"
#include "demo/lorbadeno/DocumentWindow.h"
#include "platform/dde/RequestServer.h"

namespace dalvora::lorbadeno {

/// The stand-in for the ERP's document program: answers its topic and shows the documents asked for in one
/// window.
class DocumentProgram {
public:
    /// `profileFolder` holds quorvane.ini.
    explicit DocumentProgram(const QString& profileFolder);

    /// Shows the window and begins to answer. False when another one answers already.
    bool start();
    DocumentWindow& window() { return m_window; }

private:
    quorvane::ChannelAnswer show(const QString& command);

    quorvane::RegionalSettings m_regional;
    DocumentReader m_reader;
    DocumentWindow m_window;
    quorvane::RequestServer m_server;
};

} // namespace dalvora::lorbadeno
