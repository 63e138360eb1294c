#include "platform/skin/UiFont.h"
#include "ui/toolbar/demo/DemoWindow.h"
#include <QApplication>
#include <cstdio>

// Shows the skinned toolbars: dalvora_toolbar_demo [--skin FILE] [--grab FILE.png]; with --grab it leaves a
// picture and ends.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Dalvora"));
    QApplication::setFont(skin::uiFont());
    const QStringList arguments = QApplication::arguments();
    const auto valueOf = [&](const QString& option) {
        return arguments.value(arguments.indexOf(option) + 1);
    };

    dalvora::toolbar::DemoWindow window(arguments.contains(QStringLiteral("--skin"))
                                            ? QImage(valueOf(QStringLiteral("--skin")))
                                            : dalvora::toolbar::shippedSkin());
    window.show();
    if (!arguments.contains(QStringLiteral("--grab")))
        return QApplication::exec();

    window.pointAtButton();
    QApplication::processEvents();
    const QString picture = valueOf(QStringLiteral("--grab"));
    if (!window.grab().save(picture)) {
        std::fprintf(stderr, "%s: no se pudo escribir\n", qPrintable(picture));
        return 1;
    }
    return 0;
}
