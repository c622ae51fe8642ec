#pragma once

#include <array>
#include <map>

#include "platform/Platform.h"

namespace ovalia::host {

// Settings that are empty at first and gone with the object; while it lives the thread's platform uses them
// in place of its user's.
class PassingSettings : public Settings {
 public:
  PassingSettings() { Platform::current().settings = this; }
  ~PassingSettings() override { Platform::current().settings = before_; }
  PassingSettings(const PassingSettings&) = delete;
  PassingSettings& operator=(const PassingSettings&) = delete;

  Text get(TextView application, TextView section, TextView key, TextView fallback) override {
    const auto found = values_.find({Text(application), Text(section), Text(key)});
    return found == values_.end() ? Text(fallback) : found->second;
  }
  void save(TextView application, TextView section, TextView key, TextView value) override {
    values_[{Text(application), Text(section), Text(key)}] = value;
  }
  std::vector<std::pair<Text, Text>> all(TextView application, TextView section) override {
    std::vector<std::pair<Text, Text>> pairs;
    for (const auto& [name, value] : values_)
      if (name[0] == application && name[1] == section) pairs.emplace_back(name[2], value);
    return pairs;
  }

 private:
  Settings* before_ = Platform::current().settings;
  std::map<std::array<Text, 3>, Text> values_;
};

}  // namespace ovalia::host
