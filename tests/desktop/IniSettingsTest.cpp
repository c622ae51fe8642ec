#include "desktop/IniSettings.h"

#include <QFile>
#include <QTemporaryDir>

#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::Pair;

class Ini : public testing::Test {
 protected:
  QString file() const { return folder.filePath("sub/ajustes.ini"); }
  void write(const QByteArray& bytes) {
    QDir(folder.path()).mkpath("sub");
    QFile out(file());
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
  }
  QTemporaryDir folder;
};

TEST_F(Ini, a_missing_value_is_the_fallback_and_a_saved_one_is_there_for_the_next_start) {
  {
    IniSettings settings(file());
    EXPECT_EQ(settings.get(u"Agencia", u"frmNota", u"Top", u"12"), u"12");
    settings.save(u"Agencia", u"frmNota", u"Top", u"1815");
    settings.save(u"Agencia", u"frmNota", u"Vacío", u"");
  }
  IniSettings again(file());
  EXPECT_EQ(again.get(u"Agencia", u"frmNota", u"Top", u"12"), u"1815");
  EXPECT_EQ(again.get(u"Agencia", u"frmNota", u"Vacío", u"x"), u"");
  EXPECT_EQ(again.get(u"Agencia", u"frmVisita", u"Top", u"-"), u"-");
}

TEST_F(Ini, names_and_values_of_any_characters_come_back) {
  const Text odd[] = {u"a/b\\c",       u"",   u"%2F",   u"ñ € [x]=;#", u" blanco ", u"General",
                      u"línea\r\ndos", u"\"", u"@Byte", u"a,b, c"};
  for (const Text& name : odd) {
    IniSettings settings(file());
    settings.save(name, name, name, name);
    settings.save(name, u"otra", name, u"no");
  }
  IniSettings again(file());
  for (const Text& name : odd) {
    EXPECT_EQ(again.get(name, name, name, u"?"), name) << toUtf8(name);
    EXPECT_THAT(again.all(name, name), ElementsAre(Pair(name, name))) << toUtf8(name);
  }
}

TEST_F(Ini, all_gives_the_pairs_of_its_section_alone) {
  IniSettings settings(file());
  settings.save(u"A", u"Settings", u"uno", u"1");
  settings.save(u"A", u"Settings", u"dos", u"2");
  settings.save(u"A", u"Settings/sub", u"tres", u"3");
  settings.save(u"B", u"Settings", u"uno", u"9");
  EXPECT_THAT(settings.all(u"A", u"Settings"),
              testing::UnorderedElementsAre(Pair(u"uno", u"1"), Pair(u"dos", u"2")));
  EXPECT_TRUE(settings.all(u"A", u"Nada").empty());
}

TEST_F(Ini, nonsense_in_the_file_does_not_hurt) {
  QByteArray nonsense(
      "[A]\nSettings\\bien=hola\nSettings\\lista=a, b\nSettings\\raro=@Variant(\\0\\0\\0\\x7f\\xff)\n");
  nonsense += "sin igual\n=sin nombre\n[[[\n\xff\xfe\x00\x01\n[A\n";
  nonsense += QByteArray(3000, '\\');
  write(nonsense);
  IniSettings settings(file());
  EXPECT_EQ(settings.get(u"A", u"Settings", u"bien", u"-"), u"hola");
  EXPECT_EQ(settings.get(u"A", u"Settings", u"lista", u"-"), u"a, b");
  settings.get(u"A", u"Settings", u"raro", u"-");
  settings.all(u"A", u"Settings");
  settings.save(u"A", u"Settings", u"nuevo", u"1");
  EXPECT_EQ(IniSettings(file()).get(u"A", u"Settings", u"nuevo", u"-"), u"1");
  EXPECT_EQ(IniSettings(file()).get(u"A", u"Settings", u"bien", u"-"), u"hola");
}

TEST_F(Ini, may_be_written_by_hand) {
  write("[Agencia]\nSettings\\Usuario=Lucía Ferrándiz\nCorreo\\Servidor=smtp://u:c@correo.ejemplo.es:587\n");
  IniSettings settings(file());
  EXPECT_EQ(settings.get(u"Agencia", u"Settings", u"Usuario", u""), u"Lucía Ferrándiz");
  EXPECT_EQ(settings.get(u"Agencia", u"Correo", u"Servidor", u""), u"smtp://u:c@correo.ejemplo.es:587");
}

TEST_F(Ini, what_another_program_saves_meanwhile_is_seen) {
  IniSettings one(file()), other(file() + "");
  one.save(u"A", u"S", u"k", u"1");
  EXPECT_EQ(other.get(u"A", u"S", u"k", u"-"), u"1");
}

TEST_F(Ini, a_file_that_cannot_be_written_loses_the_value_and_nothing_else) {
  write("x");
  IniSettings settings(file() + "/debajo.ini");
  settings.save(u"A", u"S", u"k", u"1");
  EXPECT_EQ(settings.get(u"A", u"S", u"otra", u"-"), u"-");
}

}  // namespace

}  // namespace ovalia::desktop
