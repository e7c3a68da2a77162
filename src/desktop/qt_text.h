#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "base/text.h"

namespace feltmaster {

// The game's texts are single bytes, in UTF-8 or, from old files, in Latin-1.
inline QString ToQt(std::string_view text) {
  if (text.find('\n') == std::string_view::npos) {
    const std::string utf8 = AsUtf8(text);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  }
  const std::size_t end = text.find('\n');
  return ToQt(text.substr(0, end)) + QChar('\n') + ToQt(text.substr(end + 1));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// For a caption that is no mnemonic: a '&' is shown as such.
inline QString Verbatim(std::string_view text) {
  return ToQt(text).replace(QChar('&'), QStringLiteral("&&"));
}

}  // namespace feltmaster
