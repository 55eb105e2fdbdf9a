// Turns the user guide from Markdown into the HTML the help window shows and the installation
// keeps, at build time:
//   paginox-guide-render GUIDE.md OUT.html

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: paginox-guide-render GUIDE.md OUT.html\n");
        return 2;
    }
    // The document measures text with fonts, which need an application but no display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);
    QFile in(QString::fromLocal8Bit(argv[1]));
    if (!in.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "paginox-guide-render: cannot read %s\n", argv[1]);
        return 1;
    }
    QTextDocument document;
    document.setMarkdown(QString::fromUtf8(in.readAll()));
    document.setMetaInformation(QTextDocument::DocumentTitle, "Paginox User Guide");
    QFile out(QString::fromLocal8Bit(argv[2]));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        out.write(document.toHtml().toUtf8()) < 0) {
        std::fprintf(stderr, "paginox-guide-render: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
