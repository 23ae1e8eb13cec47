// Zefiranto 2.0: the program.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QLabel l("Zefiranto 2.0");
    l.show();
    return app.exec();
}
