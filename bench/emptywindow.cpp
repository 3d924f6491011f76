// The least that a program with this toolkit can be: an empty main window that ends once it has been painted.
#include <QApplication>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1180, 760);
    window.show();
    QTimer::singleShot(0, &application, [] { QTimer::singleShot(0, qApp, &QApplication::quit); });
    return QApplication::exec();
}
