#include "platform/quorvane32/lookup/QuorAbout.h"
#include "platform/quorvane32/lookup/AboutWindow.h"
#include <QApplication>

namespace quorvane {

void QuorAbout::Mostrar() {
    const QString version = QStringLiteral("%1.%2.%3").arg(m_major).arg(m_minor).arg(m_revision);
    AboutWindow window({m_title, m_description, version}, QApplication::activeWindow());
    window.exec();
}

} // namespace quorvane
