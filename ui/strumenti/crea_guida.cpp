// Turns the user guide (Markdown) into guida.pdf at build time, with Qt's own
// text layout, so no document tool is needed on the build machine.
#include <QFile>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>

#include <cstdio>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "uso: crea-guida guida.md guida.pdf\n");
        return 2;
    }
    QFile in(QString::fromLocal8Bit(argv[1]));
    if (!in.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "impossibile leggere %s\n", argv[1]);
        return 1;
    }
    QTextDocument doc;
    doc.setDefaultFont(QFont("Liberation Sans", 11));
    doc.setMarkdown(QString::fromUtf8(in.readAll()));
    QPdfWriter pdf(QString::fromLocal8Bit(argv[2]));
    pdf.setTitle("Zefiranto 2.0 - Guida");
    pdf.setCreator("Zefiranto 2.0");
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
    doc.print(&pdf);
    return 0;
}
