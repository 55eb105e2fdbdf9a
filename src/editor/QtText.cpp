// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/QtText.h"

#include "core/AnsiText.h"

namespace paginox {

QString FromAnsi(const std::string& ansi) {
    return QString::fromStdString(Cp1252ToUtf8(ansi));
}

std::string ToAnsi(const QString& text) {
    return Utf8ToCp1252(text.toStdString());
}

QString FromAnsiMessage(const std::string& ansi) {
    QString text = FromAnsi(ansi);
    text.replace("\r\n", "\n");
    return text;
}

QString FromPath(const std::string& path) {
    return QString::fromStdString(path);
}

std::string ToPath(const QString& path) {
    return path.toStdString();
}

}  // namespace paginox
