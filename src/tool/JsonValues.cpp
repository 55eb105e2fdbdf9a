#include "tool/JsonValues.h"

#include <QString>
#include <string>

#include "core/AnsiText.h"
#include "core/NumberFormat.h"

namespace paginox {

QJsonValue JsonText(const std::string& ansi) {
    return QString::fromStdString(Cp1252ToUtf8(ansi));
}

// The double nearest the single's shortest decimal prints as that decimal again.
QJsonValue JsonSingle(float v) { return std::stod(ShortestDecimal(v)); }

}  // namespace paginox
