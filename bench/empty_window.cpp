// The least a window can cost: an empty one of the program's size, ended after its first paint.
#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.resize(869, 680);
    window.show();
    QTimer::singleShot(0, &application, &QCoreApplication::quit);
    return QApplication::exec();
}
