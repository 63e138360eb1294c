#pragma once

#include <QDialog>

namespace quorvane {

/// What the about box tells.
struct AboutText {
    QString title;
    QString description;
    /// "major.minor.revision".
    QString version;
};

/// The about box of the ERP's programs.
class AboutWindow : public QDialog {
    Q_OBJECT
public:
    explicit AboutWindow(const AboutText& text, QWidget* parent = nullptr);

private:
    QWidget* banner(const AboutText& text);
    QWidget* facts(const AboutText& text);
};

} // namespace quorvane
