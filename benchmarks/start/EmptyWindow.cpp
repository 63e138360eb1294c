// The floor of the start: an empty window of the same toolkit, shown and painted once.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.show();
    QCoreApplication::processEvents();
    return 0;
}
