// Turns the user guide from Markdown into the HTML the help window shows and the installation
// keeps, at build time:
//   paginox-guide-render GUIDE.md OUT.html

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <cstdio>
#include <cstdlib>

// Screenshots are shown no wider than the help window, in their proportions.
constexpr int kMaxPictureWidth = 760;

void FitPictures(QTextDocument& document, const QString& folder) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            QTextFragment fragment = it.fragment();
            QTextImageFormat picture = fragment.charFormat().toImageFormat();
            if (!picture.isValid()) continue;
            QSize size = QImageReader(folder + "/" + picture.name()).size();
            if (size.width() <= kMaxPictureWidth) continue;
            picture.setWidth(kMaxPictureWidth);
            picture.setHeight(double(size.height()) * kMaxPictureWidth / size.width());
            QTextCursor cursor(&document);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(picture);
        }
    }
}

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
    FitPictures(document, QFileInfo(in).absolutePath());
    document.setMetaInformation(QTextDocument::DocumentTitle, "Paginox User Guide");
    QFile out(QString::fromLocal8Bit(argv[2]));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        out.write(document.toHtml().toUtf8()) < 0) {
        std::fprintf(stderr, "paginox-guide-render: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
