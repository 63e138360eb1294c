#pragma once

#include "demo/lorbadeno/StoredDocument.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include <QWidget>

class QLabel;
class QLayout;

namespace dalvora::lorbadeno {

/// A document on paper: who sold it, what it is, to whom, what was sold, what it costs.
class DocumentSheet : public QWidget {
public:
    DocumentSheet(const StoredDocument& document, const quorvane::RegionalSettings& regional);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLayout* letterHead(const StoredDocument& document);
    QWidget* title(const StoredDocument& document);
    QLayout* facts(const StoredDocument& document);
    QWidget* lines(const StoredDocument& document);
    QLayout* totals(const StoredDocument& document);
    QLabel* label(const QString& name, const QString& text);

    const quorvane::RegionalSettings& m_regional;
};

} // namespace dalvora::lorbadeno
