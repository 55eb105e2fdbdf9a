#pragma once

// Model values as JSON values: texts from Windows-1252 to UTF-8, singles as the shortest
// decimal that reads back as the same single.

#include <QJsonValue>
#include <string>

namespace paginox {

QJsonValue JsonText(const std::string& ansi);
QJsonValue JsonSingle(float v);

}  // namespace paginox
