// The floor of the start: an empty window of the same toolkit with the same plugins, shown and painted once.
// With the argument "fonts" the platform plugin has loaded its font database, without which no window shows a
// word.
#include <QApplication>
#include <QFontMetrics>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 1)
        window.setMinimumWidth(window.fontMetrics().horizontalAdvance(QStringLiteral("Dalvora")));
    window.show();
    QCoreApplication::processEvents();
    return 0;
}
