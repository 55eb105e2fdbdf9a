// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the user guide from Markdown into the HTML the help window shows and the installation
// keeps, at build time, with its pictures scaled beside it:
//   paginox-guide-render GUIDE.md OUT.html

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QTextBlock>
#include <QTextDocument>
#include <cstdio>
#include <cstdlib>

// Screenshots are shown no wider than the help window. They are scaled here, smoothly, into
// the guide's folder: the help window scales pictures by dropping pixels, which loses lines.
constexpr int kMaxPictureWidth = 760;

bool FitPictures(const QTextDocument& document, const QString& from, const QString& to) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            QTextImageFormat picture = it.fragment().charFormat().toImageFormat();
            if (!picture.isValid()) continue;
            QImage image(from + "/" + picture.name());
            if (image.isNull()) {
                std::fprintf(stderr, "paginox-guide-render: cannot read %s\n",
                             qPrintable(picture.name()));
                return false;
            }
            if (image.width() <= kMaxPictureWidth) continue;
            image = image.scaledToWidth(kMaxPictureWidth, Qt::SmoothTransformation);
            int quality = picture.name().endsWith(".jpg") ? 92 : -1;
            if (!image.save(to + "/" + picture.name(), nullptr, quality)) return false;
        }
    }
    return true;
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
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[2])).absolutePath();
    if (!FitPictures(document, QFileInfo(in).absolutePath(), folder)) return 1;
    document.setMetaInformation(QTextDocument::DocumentTitle, "Paginox User Guide");
    QFile out(QString::fromLocal8Bit(argv[2]));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        out.write(document.toHtml().toUtf8()) < 0) {
        std::fprintf(stderr, "paginox-guide-render: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
