// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the hand-drawn application icon into the hicolor PNG sizes at build time:
//   paginox-icon-render ICON.svg OUT SIZE...
// writes OUT/<size>x<size>/apps/<icon name>.png for each size.

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: paginox-icon-render ICON.svg OUT SIZE...\n");
        return 2;
    }
    const QString svg = QString::fromLocal8Bit(argv[1]);
    QSvgRenderer renderer(svg);
    if (!renderer.isValid()) {
        std::fprintf(stderr, "paginox-icon-render: cannot read %s\n", argv[1]);
        return 1;
    }
    const QString name = QFileInfo(svg).completeBaseName();
    for (int i = 3; i < argc; ++i) {
        const int size = QString::fromLocal8Bit(argv[i]).toInt();
        if (size < 1) {
            std::fprintf(stderr, "paginox-icon-render: bad size %s\n", argv[i]);
            return 2;
        }
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            renderer.render(&painter);
        }
        const QString folder =
            QString("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(size);
        if (!QDir().mkpath(folder) || !image.save(folder + "/" + name + ".png")) {
            std::fprintf(stderr, "paginox-icon-render: cannot write %s\n", qPrintable(folder));
            return 1;
        }
    }
    return 0;
}
