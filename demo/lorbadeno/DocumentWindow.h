#pragma once

#include "demo/lorbadeno/StoredDocument.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include <QWidget>

class QLabel;
class QScrollArea;

namespace dalvora::lorbadeno {

/// The window of the document program: one document as on paper, or a word on how to see one.
class DocumentWindow : public QWidget {
public:
    explicit DocumentWindow(quorvane::RegionalSettings regional);

    /// Shows the document in place of the one before and brings the window to the front.
    void showDocument(const StoredDocument& document);

private:
    void comeToFront();

    quorvane::RegionalSettings m_regional;
    QScrollArea* m_desk;
};

} // namespace dalvora::lorbadeno
