#include "desktop/Icons.h"

#include <QImage>

#include "forms/CardForm.h"
#include "forms/Toolbars.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

int inked(const QImage& picture) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) count += qAlpha(picture.pixel(x, y)) > 0;
  return count;
}

TEST(Icons, every_tool_of_a_toolbar_every_ornament_and_every_kind_of_document_has_its_own) {
  QStringList names;
  for (const forms::MenuRow& row : forms::menuRows())
    if (row.menu == u"Herramientas" && !row.id.empty()) names << toQt(row.id);
  for (const forms::FormDesign* design : {&forms::frmNota(), &forms::frmVisita(), &forms::frmAnuncio()})
    for (const forms::ControlDesign& control : design->controls)
      if (control.type == forms::ControlType::Image) names << toQt(control.name);
  for (const char* kind : {"doc", "txt", "not", "xls", "ppt", "jpg", "zip", "win"}) names << kind;
  names.removeDuplicates();

  QList<QImage> seen;
  for (const QString& name : names) {
    const QIcon drawn = icon(fromQt(name));
    ASSERT_FALSE(drawn.isNull()) << name.toStdString();
    const QImage picture = drawn.pixmap(24, 24).toImage();
    EXPECT_GT(inked(picture), 40) << name.toStdString();
    EXPECT_FALSE(seen.contains(picture)) << name.toStdString();
    seen << picture;
  }
}

TEST(Icons, are_drawn_anew_at_each_size) {
  const QImage small = icon(u"ID_Guardar").pixmap(16, 16).toImage();
  const QImage large = icon(u"ID_Guardar").pixmap(64, 64).toImage();
  EXPECT_EQ(large.width(), 64);
  EXPECT_NE(large, small.scaled(64, 64));
}

TEST(Icons, of_a_disabled_tool_are_pale) {
  const QImage normal = icon(u"ID_Guardar").pixmap(QSize(24, 24), QIcon::Normal).toImage();
  const QImage pale = icon(u"ID_Guardar").pixmap(QSize(24, 24), QIcon::Disabled).toImage();
  EXPECT_LT(qAlpha(pale.pixel(12, 17)), qAlpha(normal.pixel(12, 17)));
}

TEST(Icons, of_an_unknown_name_are_none) { EXPECT_TRUE(icon(u"ID_Nada").isNull()); }

}  // namespace

}  // namespace ovalia::desktop
