#pragma once

#include "demo/lorbadeno/DocumentReader.h"
#include "demo/lorbadeno/DocumentWindow.h"
#include "platform/dde/RequestAnswerer.h"
#include <memory>

namespace dalvora::lorbadeno {

/// The stand-in for the ERP's document program: answers its topic and shows the documents asked for in one
/// window.
class DocumentProgram {
public:
    /// `profileFolder` holds quorvane.ini.
    explicit DocumentProgram(const QString& profileFolder);

    /// Shows the window and begins to answer. False when another one answers already. Error 429 when the
    /// request channel cannot be loaded.
    bool start();
    DocumentWindow& window() { return m_window; }

private:
    quorvane::ChannelAnswer show(const QString& command);

    quorvane::RegionalSettings m_regional;
    DocumentReader m_reader;
    DocumentWindow m_window;
    std::unique_ptr<quorvane::RequestAnswerer> m_answerer;
};

} // namespace dalvora::lorbadeno
