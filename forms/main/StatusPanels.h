#pragma once

#include "forms/HourGlass.h"
#include <QLabel>
#include <QStatusBar>
#include <QStringView>
#include <vector>

namespace dalvora {

/// A panel of the status bar: one line of plain text, cut with "…" where it does not fit.
class StatusPanel : public QLabel {
    Q_OBJECT
public:
    explicit StatusPanel(QStringView key, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

inline constexpr QStringView panelMensaje = u"MENSAJE";
inline constexpr QStringView panelPeriodo = u"PERIODO";
inline constexpr QStringView panelEmpresa = u"EMPRESA";

/// The status bar of a form: the panels "MENSAJE", "PERIODO" and "EMPRESA", or those of them that it has.
class StatusPanels : public QStatusBar {
    Q_OBJECT
public:
    explicit StatusPanels(QWidget* parent = nullptr,
                          const std::vector<QStringView>& keys = {panelMensaje, panelPeriodo, panelEmpresa});

    QString text(QStringView key) const;
    /// A text in panel "MENSAJE" shows at once, also while a long operation keeps the event loop from
    /// painting. Error 9 for an unknown panel.
    void setText(QStringView key, const QString& text);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// The panels of known content are as wide as that content in the font at hand.
    void sizePanels();
    StatusPanel& panel(QStringView key) const;

    std::vector<StatusPanel*> m_panels;
};

/// A command at work: its text in panel "MENSAJE" and the hourglass, both gone at the end.
class BusyStatus {
public:
    BusyStatus(StatusPanels& panels, const QString& text);
    ~BusyStatus();
    BusyStatus(const BusyStatus&) = delete;
    BusyStatus& operator=(const BusyStatus&) = delete;

private:
    StatusPanels& m_panels;
    HourGlass m_pointer;
};

} // namespace dalvora
