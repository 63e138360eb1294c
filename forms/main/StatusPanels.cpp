#include "forms/main/StatusPanels.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QPainter>
#include <QStyle>

namespace dalvora {

namespace {

struct PanelDesign {
    QStringView key;
    QStringView accessibleName;
    QStringView toolTip;
    /// A text that shall fit; "" takes the rest of the bar.
    QStringView widest;
};

constexpr PanelDesign panelDesigns[] = {
    {panelMensaje, u"Mensaje", u"", u""},
    {panelPeriodo, u"Periodo de proceso", u"Periodo de proceso", u"00/00/0000 - 00/00/0000"},
    {panelEmpresa, u"Empresa", u"Empresa del usuario conectado", u"Comercial de Nombre Bastante Largo S.A."},
};

const PanelDesign& designOf(QStringView key) {
    for (const PanelDesign& design : panelDesigns)
        if (design.key == key)
            return design;
    quorvane::raise(quorvane::ErrorSubscript);
}

} // namespace

StatusPanel::StatusPanel(QStringView key, QWidget* parent) : QLabel(parent) {
    setObjectName(key.toString());
    setTextFormat(Qt::PlainText);
    setFrameShape(QFrame::NoFrame);
    setMargin(3);
}

QSize StatusPanel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void StatusPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect line = contentsRect().adjusted(margin(), 0, -margin(), 0);
    const QString shown = fontMetrics().elidedText(text().simplified(), Qt::ElideRight, line.width());
    style()->drawItemText(&painter, line, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                          foregroundRole());
}

StatusPanels::StatusPanels(QWidget* parent, const std::vector<QStringView>& keys) : QStatusBar(parent) {
    setObjectName(QStringLiteral("StatusBar"));
    setSizeGripEnabled(true);
    for (const QStringView key : keys) {
        const PanelDesign& design = designOf(key);
        auto* panel = new StatusPanel(design.key, this);
        panel->setAccessibleName(design.accessibleName.toString());
        panel->setToolTip(design.toolTip.toString());
        addPermanentWidget(panel, design.widest.isEmpty() ? 1 : 0);
        m_panels.push_back(panel);
    }
}

void StatusPanels::sizePanels() {
    for (StatusPanel* panel : m_panels) {
        const QStringView widest = designOf(panel->objectName()).widest;
        if (!widest.isEmpty())
            panel->setFixedWidth(panel->fontMetrics().horizontalAdvance(widest.toString()) +
                                 4 * panel->margin());
    }
}

void StatusPanels::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::FontChange && isVisible())
        sizePanels();
}

void StatusPanels::showEvent(QShowEvent* event) {
    sizePanels();
    QStatusBar::showEvent(event);
}

StatusPanel& StatusPanels::panel(QStringView key) const {
    for (StatusPanel* panel : m_panels)
        if (panel->objectName() == key)
            return *panel;
    quorvane::raise(quorvane::ErrorSubscript);
}

QString StatusPanels::text(QStringView key) const {
    return panel(key).text();
}

void StatusPanels::setText(QStringView key, const QString& text) {
    StatusPanel& shown = panel(key);
    if (shown.text() == text)
        return;
    shown.setText(text);
    // Progress shows before the work begins; what else changes can wait for the next painting.
    if (key == panelMensaje && !text.isEmpty() && shown.isVisible())
        shown.repaint();
}

BusyStatus::BusyStatus(StatusPanels& panels, const QString& text) : m_panels(panels) {
    m_panels.setText(panelMensaje, text);
}

BusyStatus::~BusyStatus() {
    m_panels.setText(panelMensaje, {});
}

} // namespace dalvora
