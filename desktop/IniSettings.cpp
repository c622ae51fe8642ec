#include "desktop/IniSettings.h"

#include <QStandardPaths>

#include "desktop/QtText.h"

namespace ovalia::desktop {

namespace {

// Names of the store: the separators of its levels, the escape sign and the empty name are written otherwise.
constexpr char16_t escape = u'%';
constexpr TextView special = u"%/\\";
constexpr TextView hexDigits = u"0123456789ABCDEF";

QString stored(TextView name) {
  if (name.empty()) return QStringLiteral("%");
  Text written;
  for (const char16_t c : name) {
    if (special.find(c) == TextView::npos) {
      written += c;
    } else {
      written += escape;
      written += hexDigits[c >> 4 & 15];
      written += hexDigits[c & 15];
    }
  }
  return toQt(written);
}

Text named(const QString& written) {
  const Text text = fromQt(written);
  if (text == u"%") return {};
  Text name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto high = text[i] == escape && i + 2 < text.size() ? hexDigits.find(text[i + 1]) : Text::npos;
    const auto low = high == Text::npos ? Text::npos : hexDigits.find(text[i + 2]);
    if (low == Text::npos) {
      name += text[i];
    } else {
      name += static_cast<char16_t>(high << 4 | low);
      i += 2;
    }
  }
  return name;
}

QString group(TextView application, TextView section) { return stored(application) + u'/' + stored(section); }

// A line that someone wrote by hand with a comma in it reads as a list.
std::optional<Text> textOf(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList)
    return fromQt(value.toStringList().join(QStringLiteral(", ")));
  if (!value.canConvert<QString>()) return {};
  return fromQt(value.toString());
}

QString usersFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/ovalia/ovalia.ini");
}

}  // namespace

IniSettings::IniSettings() : IniSettings(usersFile()) {}
IniSettings::IniSettings(const QString& file) : store_(file, QSettings::IniFormat) {}

Text IniSettings::get(TextView application, TextView section, TextView key, TextView fallback) {
  store_.sync();
  const QVariant value = store_.value(group(application, section) + u'/' + stored(key));
  if (!value.isValid()) return Text(fallback);
  return textOf(value).value_or(Text(fallback));
}

void IniSettings::save(TextView application, TextView section, TextView key, TextView value) {
  store_.setValue(group(application, section) + u'/' + stored(key), toQt(value));
  store_.sync();
}

std::vector<std::pair<Text, Text>> IniSettings::all(TextView application, TextView section) {
  store_.sync();
  std::vector<std::pair<Text, Text>> pairs;
  store_.beginGroup(group(application, section));
  for (const QString& key : store_.childKeys())
    if (const auto text = textOf(store_.value(key))) pairs.emplace_back(named(key), *text);
  store_.endGroup();
  return pairs;
}

}  // namespace ovalia::desktop
