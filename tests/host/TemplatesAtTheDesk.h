#pragma once

#include <gmock/gmock.h>

#include <fstream>

#include "desktop/TemplatePicking.h"
#include "host/BulkFile.h"
#include "host/DocumentMarks.h"
#include "host/RtfTemplate.h"
#include "tests/host/KindsAtTheDesk.h"
#include "tests/host/WordProcessing.h"

namespace ovalia::host {

// The templates of the sample over a property with an annotation of each kind; no printers.
class TemplatesAtTheDesk : public KindsAtTheDesk {
 protected:
  TemplatesAtTheDesk() {
    desktop::TemplatePicking::current() = {};
    desktop::TemplatePicking::current().printers = [] { return std::vector<Text>(); };
    makeSampleDocuments(workplace.agency.documents);
  }
  ~TemplatesAtTheDesk() override { desktop::TemplatePicking::current() = {}; }

  std::filesystem::path place() const { return workplace.agency.documents / "Plantillas"; }
  void putTemplate(const std::string& name, const std::string& content) {
    std::ofstream(place() / name, std::ios::binary) << content;
  }
  static std::string rtf(const std::string& body) { return "{\\rtf1\\ansi " + body + "}"; }
  static std::string bookmark(const std::string& name) {
    return "{\\*\\bkmkstart " + name + "}[" + name + "]{\\*\\bkmkend " + name + "}";
  }

  // In the chooser, from the menu of the card that is up.
  static void attaching(const Keys& keys) {
    onDialog("Elegir una plantilla", keys, [] { fromDocuments("DP"); });
  }
  static void printing(const KindAtTheDesk& kind, const Keys& keys) {
    onDialog("Imprimir con una plantilla", keys, [&] { deskkit::letters(kind.print); });
  }
  static Keys choosing(const char* name) {
    return [=] {
      deskkit::types(name);
      auto* names = QApplication::activeModalWidget()->findChild<QListWidget*>("lista");
      ASSERT_TRUE(names && names->currentItem()) << name;
      EXPECT_EQ(names->currentItem()->text(), name);
      deskkit::enter();
    };
  }
  // Told in a box, by its beginning.
  void told(Text beginning, Text title) {
    here.screen.expectBoxLike(std::move(beginning), u".", 48, std::move(title), 1);
    prepared.add([] { deskkit::enter(); });
  }

  std::string opened() const {
    EXPECT_FALSE(keyed.opened.empty());
    if (keyed.opened.empty()) return {};
    std::ifstream file(toUtf8(keyed.opened.back()), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // What stands in the place of a mark of the document that was opened last.
  std::string at(const std::string& mark) const {
    const std::string text = opened(), start = "{\\*\\bkmkstart " + mark + "}";
    const auto from = text.find(start);
    if (from == std::string::npos) return "(no está)";
    return text.substr(from + start.size(), text.find("{\\*\\bkmkend " + mark + "}") - from - start.size());
  }
  static std::string filledWith(TextView text) { return text.empty() ? "" : "{\\uc1 " + rtfText(text) + "}"; }
  std::int32_t documentsOf(const KindAtTheDesk& kind) {
    return one(join(u"SELECT COUNT(*) FROM ", kind.documents, u" WHERE IdNota = ", keyOf(kind))).toLong();
  }
  std::vector<std::string> filesIn(const std::filesystem::path& folder) const {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, none))
      if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
    return names;
  }
  // The card can be changed, saved and read again.
  void cardStillWorks(TextView table, std::int32_t key) {
    write(u"txtNotas", "Sigue viva");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    deskkit::letters("FG");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_EQ(stored(table, u"Notas", key).text(), u"Sigue viva");
  }
};

}  // namespace ovalia::host
