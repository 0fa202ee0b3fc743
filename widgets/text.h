// Between the core's UTF-8 and the toolkit's strings.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kelvar {

inline QString to_qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string to_utf8(const QString& text) {
    return text.toStdString();
}

}  // namespace kelvar
