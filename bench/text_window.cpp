// The least a window that says something can cost: one of the program's size with a line of text, ended
// after its first paint.
#include <QApplication>
#include <QPainter>

#include "bench/first_paint.h"

namespace {

class Window : public QWidget {
    void paintEvent(QPaintEvent*) override {
        QPainter(this).drawText(rect(), Qt::AlignCenter, QStringLiteral("One line of text"));
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Window window;
    const kelvar::EndAfterFirstPaint end(window);
    window.resize(869, 680);
    window.show();
    return QApplication::exec();
}
