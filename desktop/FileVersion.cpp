#include "desktop/FileVersion.h"

#include <QFile>
#include <QtEndian>

namespace ovalia::desktop {

namespace {

constexpr qint64 largest = 256 << 20;

// The fixed block of version data: a signature, its own version 1.0, then two words each of major and minor,
// of build and revision.
constexpr char signature[] = "\xBD\x04\xEF\xFE\x00\x00\x01\x00";
constexpr qsizetype signatureSize = sizeof signature - 1;

}  // namespace

std::optional<Shell::FileVersion> readFileVersion(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly) || file.size() > largest || file.peek(2) != "MZ") return {};
  const QByteArray bytes = file.readAll();
  const qsizetype at = bytes.indexOf(QByteArrayView(signature, signatureSize));
  if (at < 0 || at + signatureSize + 8 > bytes.size()) return {};
  const auto word = [&](qsizetype offset) {
    return qFromLittleEndian<quint16>(bytes.constData() + at + signatureSize + offset);
  };
  return Shell::FileVersion{word(2), word(0), word(4)};
}

}  // namespace ovalia::desktop
