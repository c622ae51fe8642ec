#pragma once

#include <QString>

#include "platform/Text.h"

namespace ovalia::desktop {

// Both texts are UTF-16; every unit is kept, a lone surrogate and a leading U+FEFF included.
inline QString toQt(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline Text fromQt(const QString& text) {
  return Text(reinterpret_cast<const char16_t*>(text.constData()), static_cast<std::size_t>(text.size()));
}

// A caption as it is read aloud: without its mnemonic mark and closing colon.
QString spoken(TextView caption);

}  // namespace ovalia::desktop
