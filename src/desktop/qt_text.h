#pragma once

#include <QString>
#include <algorithm>
#include <string>
#include <string_view>

#include "base/text.h"

namespace feltmaster {

// The game's texts are single bytes, in UTF-8 or, from old files, in Latin-1. Lines and the cells
// of tables stay apart.
inline QString ToQt(std::string_view text) {
  QString converted;
  while (true) {
    const std::size_t end = std::min(text.find_first_of("\r\n\t"), text.size());
    const std::string utf8 = AsUtf8(text.substr(0, end));
    converted += QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    if (end == text.size()) return converted;
    converted += QLatin1Char(text[end]);
    text.remove_prefix(end + 1);
  }
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// For a caption that is no mnemonic: a '&' is shown as such.
inline QString Verbatim(std::string_view text) {
  return ToQt(text).replace(QChar('&'), QStringLiteral("&&"));
}

}  // namespace feltmaster
