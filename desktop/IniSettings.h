#pragma once

#include <QSettings>

#include "platform/Platform.h"

namespace ovalia::desktop {

// Settings in a text file of the user's configuration folder, "ovalia/ovalia.ini". Other programs of the user
// may write it meanwhile; lines that make no sense read as missing.
class IniSettings : public Settings {
 public:
  IniSettings();
  explicit IniSettings(const QString& file);

  Text get(TextView application, TextView section, TextView key, TextView fallback) override;
  void save(TextView application, TextView section, TextView key, TextView value) override;
  std::vector<std::pair<Text, Text>> all(TextView application, TextView section) override;  // by key

 private:
  QSettings store_;
};

}  // namespace ovalia::desktop
