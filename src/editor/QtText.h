// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Where model text (Windows-1252 bytes) meets Qt's Unicode strings.

#include <QString>
#include <string>

namespace paginox {

QString FromAnsi(const std::string& ansi);
std::string ToAnsi(const QString& text);
// A message text: its CR LF line breaks become plain line breaks.
QString FromAnsiMessage(const std::string& ansi);
// Native paths are UTF-8.
QString FromPath(const std::string& path);
std::string ToPath(const QString& path);

}  // namespace paginox
