// Between the system's UTF-8 and the widgets' text.
#pragma once

#include <QString>

#include <string>

namespace quillon::desktop {

inline QString Text(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string Text(const QString& text) {
    return text.toStdString();
}

} // namespace quillon::desktop
