#pragma once

#include <cstdlib>
#include <fstream>
#include <map>

#include "desktop/TemplatePicking.h"
#include "host/WordProcessor.h"
#include "routines/TextArray.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

// Marks and their texts, as the component hands them over: index for index, the rest empty.
class GivenMarks {
 public:
  GivenMarks(std::initializer_list<std::pair<std::size_t, std::pair<TextView, TextView>>> rows) {
    for (const auto& [index, mark] : rows) {
      names_->at({index}) = mark.first;
      texts_->at({index}) = mark.second;
    }
  }
  Variant names() const { return Variant(names_); }
  Variant texts() const { return Variant(texts_); }

 private:
  std::shared_ptr<TextArray> names_ = std::make_shared<TextArray>(std::initializer_list<std::size_t>{61});
  std::shared_ptr<TextArray> texts_ = std::make_shared<TextArray>(std::initializer_list<std::size_t>{61});
};

// A variable of the environment that is put back.
class Environment {
 public:
  Environment(const char* name, const std::string& value)
      : name_(name), before_(std::getenv(name) ? std::getenv(name) : "") {
    setenv(name, value.c_str(), 1);
  }
  ~Environment() { setenv(name_, before_.c_str(), 1); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  const std::string before_;
};

// A folder of programs, searched before all others, or alone.
class Programs {
 public:
  explicit Programs(bool alone)
      : path_("PATH", folder_.path().string() + (alone ? "" : ":" + std::string(std::getenv("PATH")))) {}
  void put(const std::string& name, const std::string& script) {
    folder_.putFile(name, "#!/bin/sh\n" + script);
    std::filesystem::permissions(folder_.path() / name, std::filesystem::perms::owner_all);
  }

 private:
  kit::TemporaryFolder folder_;
  Environment path_;
};

// Documents from templates in a folder of the disk: "Plantillas", "Doc0" and "tmp" in it.
class WordProcessing : public HostTest {
 protected:
  WordProcessing() {
    for (const char* name : {"Plantillas", "Doc0", "tmp"}) folder.putFolder(name);
    here.files.temporary = folder.logic(u"tmp\\");
    desktop::TemplatePicking::current() = {};
  }
  ~WordProcessing() override { desktop::TemplatePicking::current() = {}; }

  static std::string rtf(const std::string& body) { return "{\\rtf1\\ansi " + body + "}"; }
  static std::string bookmark(const std::string& name) {
    return "{\\*\\bkmkstart " + name + "}[" + name + "]{\\*\\bkmkend " + name + "}";
  }
  static std::string holding(const std::string& name, const std::string& text) {
    return "{\\*\\bkmkstart " + name + "}" + (text.empty() ? "" : "{\\uc1 " + text + "}") + "{\\*\\bkmkend " +
           name + "}";
  }

  void putTemplate(const std::string& content) { folder.putFile("Plantillas/Carta.dot", content); }
  ObjectRef newLetter(TextView document = u"Doc0\\1F00.doc") {
    return newDocument(workplace, document.empty() ? Text() : folder.logic(document),
                       folder.logic(u"Plantillas\\Carta.dot"));
  }
  void fill(const ObjectRef& document, const GivenMarks& marks) {
    fillDocument(marks.names(), marks.texts(), document);
  }
  std::string native(const char* name) const { return (folder.path() / name).string(); }
  std::vector<std::string> filesIn(const char* name) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path() / name))
      names.push_back(entry.path().filename().string());
    return names;
  }
  // The one thing that the user was told.
  std::string told() const {
    EXPECT_EQ(dialogs.told.size(), 1u);
    return dialogs.told.empty() ? "" : toUtf8(dialogs.told[0]);
  }
};

}  // namespace ovalia::host
