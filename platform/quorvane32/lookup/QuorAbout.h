#pragma once

#include "platform/quorvane32/core/Components.h"

namespace quorvane {

/// The about component "Quorvane32.QuorAbout".
class QuorAbout : public AboutComponent {
public:
    void setApTitulo(const QString& title) override { m_title = title; }
    void setApDescripcion(const QString& description) override { m_description = description; }
    void setApVerMayor(int major) override { m_major = major; }
    void setApVerMenor(int minor) override { m_minor = minor; }
    void setApRevision(int revision) override { m_revision = revision; }
    /// Shows the about box and waits until the user has closed it.
    void Mostrar() override;

private:
    QString m_title;
    QString m_description;
    int m_major = 0;
    int m_minor = 0;
    int m_revision = 0;
};

} // namespace quorvane
