// With what a stored document is opened: a fake desktop, and a script as the program.
#include "desktop/DesktopPrograms.h"

#include <gmock/gmock.h>

#include <filesystem>

#include <QDir>
#include <QFile>
#include <QMimeDatabase>

#include "desktop/DocumentType.h"
#include "desktop/QtText.h"
#include "tests/deskkit/Keyboard.h"
#include "tests/kit/TemporaryFolder.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::desktop {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string picture("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
const std::string oldOffice("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8);

// An archive of one empty file.
std::string archiveOf(const std::string& part) {
  const std::string size{char(part.size()), 0}, local("PK\3\4\x14\0\0\0\0\0\0\0\0\0", 14);
  const std::string nothing(12, '\0');
  const std::string file = local + nothing + size + std::string(2, '\0') + part;
  const std::string entry =
      std::string("PK\1\2\x14\0\x14\0\0\0\0\0\0\0\0\0", 16) + nothing + size + std::string(16, '\0') + part;
  return file + entry + std::string("PK\5\6\0\0\0\0\1\0\1\0", 12) + char(entry.size()) +
         std::string(3, '\0') + char(file.size()) + std::string(5, '\0');
}

}  // namespace

class Documents : public kit::LogicTest {
 protected:
  Documents() {
    folder.putFile("visor.sh",
                   "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"${0%/*}/abierto.tmp\"\n"
                   "mv \"${0%/*}/abierto.tmp\" \"${0%/*}/abierto\"\n");
    std::filesystem::permissions(folder.path() / "visor.sh", std::filesystem::perms::owner_all);
  }

  QString path(const std::string& name) const { return QString::fromStdString(folder.path() / name); }
  std::string type(const std::string& content, const std::string& stored, const std::string& shown) {
    folder.putFile(stored, content);
    return documentType(path(stored), QString::fromStdString(shown)).name().toStdString();
  }

  // An entry of the desktop whose program is the script; `rest` are further lines.
  void entry(const std::string& name, const std::string& types, const std::string& arguments = "%f",
             const std::string& rest = "", const std::string& data = "datos") {
    folder.putFile(data + "/applications/" + name, "[Desktop Entry]\nType=Application\nName=Visor\nExec=\"" +
                                                       (folder.path() / "visor.sh").string() + "\" " + name +
                                                       " " + arguments + "\nMimeType=" + types + "\n" + rest +
                                                       "\n");
  }
  DesktopPrograms programs() const {
    return {{path("ajustes")}, {path("datos"), path("sistema")}, {QStringLiteral("Prueba")}};
  }
  // The entries that would open a file of the type, in their order.
  std::vector<std::string> openers(const char* type) const {
    std::vector<std::string> names;
    for (const Launch& launch : programs().openers(QMimeDatabase().mimeTypeForName(type), "/x y"))
      names.push_back(launch.arguments.front().toStdString());
    return names;
  }
  std::vector<std::string> arguments(const char* file) const {
    std::vector<std::string> words;
    const auto found = programs().openers(QMimeDatabase().mimeTypeForName("image/png"), file);
    if (found.size() == 1)
      for (const QString& word : found.front().arguments) words.push_back(word.toStdString());
    return words;
  }

  kit::TemporaryFolder folder;
};

// ---- what a file holds ----

TEST_F(Documents, are_what_they_hold_whatever_their_stored_ending_says) {
  EXPECT_EQ(type(picture, "1F00.doc", "Fachada.jpeg"), "image/png");
  EXPECT_EQ(type("%PDF-1.4\n", "1F01.doc", "Contrato"), "application/pdf");
  EXPECT_EQ(type(archiveOf("word/document.xml"), "1F02.doc", "Contrato"),
            "application/vnd.openxmlformats-officedocument.wordprocessingml.document");
  EXPECT_EQ(type(archiveOf("xl/workbook.xml"), "1F03.doc", "Cuentas.xlsx"),
            "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet");
  EXPECT_EQ(type(archiveOf("ppt/presentation.xml"), "1F04.doc", "Contrato.docx"),
            "application/vnd.openxmlformats-officedocument.presentationml.presentation");
}

TEST_F(Documents, are_told_apart_by_their_name_where_the_content_leaves_it_open) {
  EXPECT_EQ(type("a;b\n1;2\n", "1F00.doc", "Cuentas.csv"), "text/csv");
  EXPECT_EQ(type("hola\n", "1F01.doc", "Carta"), "text/plain") << "text is no word processor's document";
  EXPECT_EQ(type(archiveOf("foto"), "1F02.zip", "Cuentas.csv"), "application/zip");
  EXPECT_EQ(type(oldOffice, "1F03.doc", "Cuentas.xls"), "application/vnd.ms-excel");
  EXPECT_EQ(type(oldOffice, "1F04.doc", "Contrato"), "application/msword");
  EXPECT_EQ(type("", "1F05.doc", "Vacía.txt"), "text/plain");
  EXPECT_EQ(type(std::string("\1\2\0\xff", 4), "1F06.xyz", "Nada"), "application/octet-stream");
}

// ---- which programs there are ----

TEST_F(Documents, open_with_the_program_that_the_user_has_chosen_before_those_that_offer_themselves) {
  entry("a.desktop", "image/png;image/jpeg;");
  entry("b.desktop", "image/png");
  entry("c.desktop", "text/html");
  EXPECT_THAT(openers("image/png"), ElementsAre("a.desktop", "b.desktop"));
  folder.putFile("datos/applications/mimeapps.list", "[Default Applications]\nimage/png=b.desktop;\n");
  EXPECT_THAT(openers("image/png"), ElementsAre("b.desktop", "a.desktop"));
  folder.putFile("ajustes/mimeapps.list",
                 "[Added Associations]\nimage/png=c.desktop\n[Removed Associations]\nimage/png=a.desktop;\n");
  EXPECT_THAT(openers("image/png"), ElementsAre("b.desktop", "c.desktop"));
  folder.putFile("ajustes/prueba-mimeapps.list",
                 "[Default Applications]\nimage/png=no-hay.desktop;c.desktop\n");
  EXPECT_THAT(openers("image/png"), ElementsAre("c.desktop", "b.desktop"));
}

TEST_F(Documents, do_not_open_with_programs_that_are_hidden_missing_or_need_a_terminal) {
  entry("a.desktop", "image/png", "%f", "Terminal=true");
  entry("b.desktop", "image/png", "%f", "TryExec=/no/hay");
  entry("c.desktop", "image/png", "%f", "Hidden=true");
  entry("c.desktop", "image/png", "%f", "", "sistema");
  folder.putFile("datos/applications/d.desktop", "[Desktop Entry]\nExec=/no/hay %f\nMimeType=image/png\n");
  folder.putFile("datos/applications/e.desktop", "[Desktop Entry]\nMimeType=image/png\n[Otra]\nExec=sh\n");
  EXPECT_THAT(openers("image/png"), IsEmpty());
  entry("otra/visor.desktop", "image/png", "%f", "", "sistema");
  EXPECT_THAT(openers("image/png"), ElementsAre("otra/visor.desktop"));
}

TEST_F(Documents, open_with_a_program_for_the_kind_of_which_theirs_is_a_case) {
  entry("texto.desktop", "text/plain");
  EXPECT_THAT(openers("text/csv"), ElementsAre("texto.desktop"));
  entry("hoja.desktop", "text/csv");
  EXPECT_THAT(openers("text/csv"), ElementsAre("hoja.desktop"));
  entry("todo.desktop", "application/octet-stream");
  EXPECT_THAT(openers("image/png"), IsEmpty()) << "bytes are no kind";
}

TEST_F(Documents, are_handed_over_where_the_entry_wants_them) {
  const auto with = [&](const std::string& wanted) {
    entry("a.desktop", "image/png", wanted, "Icon=visor");
    return arguments("/árbol y \"señal\" 100%.doc");
  };
  const std::string file = "/árbol y \"señal\" 100%.doc";
  EXPECT_THAT(with("%f"), ElementsAre("a.desktop", file));
  EXPECT_THAT(with("%F --nuevo"), ElementsAre("a.desktop", file, "--nuevo"));
  EXPECT_THAT(with("%u"), ElementsAre("a.desktop", "file:///%C3%A1rbol%20y%20%22se%C3%B1al%22%20100%25.doc"));
  EXPECT_THAT(with("--de=%c %i 100%% %m"),
              ElementsAre("a.desktop", "--de=Visor", "--icon", "visor", "100%", file));
  EXPECT_THAT(with("\"con \\\\\"comillas\\\\\"\" \"\" %f"),
              ElementsAre("a.desktop", "con \"comillas\"", "", file));
}

// ---- opened ----

class OpenedDocuments : public Documents {
 protected:
  OpenedDocuments() {
    for (const char* name : variables) before_.push_back(qgetenv(name));
    set("XDG_DATA_HOME", "datos");
    set("XDG_DATA_DIRS", "sistema");
    set("XDG_CONFIG_HOME", "ajustes");
    set("XDG_CONFIG_DIRS", "ajustes");
    // What files hold is still told by the system's own table.
    std::filesystem::create_directory_symlink("/usr/share/mime", folder.path() / "sistema" / "mime");
  }
  ~OpenedDocuments() override {
    for (std::size_t i = 0; i < std::size(variables); ++i)
      before_[i].isNull() ? qunsetenv(variables[i]) : qputenv(variables[i], before_[i]);
  }

  bool open(const std::string& name, TextView shown) { return openDocument(path(name), toQt(shown)); }
  std::string opened() {
    EXPECT_TRUE(deskkit::eventually([&] { return folder.has("abierto"); }));
    return folder.content("abierto");
  }

 private:
  static constexpr const char* variables[] = {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME",
                                              "XDG_CONFIG_DIRS"};
  void set(const char* variable, const char* name) {
    folder.putFolder(name);
    qputenv(variable, path(name).toUtf8());
  }
  std::vector<QByteArray> before_;
};

TEST_F(OpenedDocuments, are_the_stored_files_themselves_in_the_program_for_what_they_hold) {
  entry("escritor.desktop", "application/msword;");
  entry("visor.desktop", "image/png;");
  folder.putFile("1F00.doc", picture);
  EXPECT_TRUE(open("1F00.doc", u"Fachada.jpeg"));
  EXPECT_EQ(opened(), "visor.desktop\n" + (folder.path() / "1F00.doc").string() + "\n");
}

TEST_F(OpenedDocuments, that_no_program_is_for_are_told_of_and_begin_nothing) {
  entry("escritor.desktop", "application/msword;");
  folder.putFile("1F00.doc", picture);
  EXPECT_FALSE(open("1F00.doc", u"Fachada.jpeg"));
  EXPECT_FALSE(folder.has("abierto"));
}

TEST_F(OpenedDocuments, are_left_to_the_toolkit_where_no_program_is_to_be_seen) {
  folder.putFile("1F00.doc", picture);
  EXPECT_FALSE(open("1F00.doc", u"Fachada.jpeg")) << "which has none without a screen";
}

}  // namespace ovalia::desktop
