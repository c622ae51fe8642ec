#include <algorithm>

#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

struct Moved {
  TextView control;
  bool left;  // else the width
  int constant;
  int index = -1;
};

struct Layout {
  const FormDesign& (*design)();
  std::vector<Moved> rows;
};

const std::vector<Layout>& layouts() {
  static const std::vector<Layout> all = {
      {frmNota,
       {{u"txtCategorias", false, 2535},
        {u"txtAsunto", false, 5655},
        {u"lblUsuario", true, 4620},
        {u"cboUsuario", true, 5040},
        {u"splitDocumentos", false, 6375},
        {u"fralinea1", false, 6375, 0},
        {u"fralinea1", false, 6375, 1},
        {u"fralinea1", false, 6375, 2}}},
      {frmVisita,
       {{u"txtCategorias", false, 2535},
        {u"txtAsunto", false, 5475},
        {u"txtUbicacion", false, 5475},
        {u"lblUsuario", true, 4800},
        {u"lblAgencia", true, 3000},
        {u"cboUsuario", true, 4920},
        {u"splitDocumentos", false, 6375},
        {u"fralinea1", false, 6375, 0},
        {u"fralinea1", false, 6375, 1},
        {u"chkConfirmada", true, 3000},
        {u"chkRealizada", true, 4380},
        {u"chkAnulada", true, 5640},
        {u"cboComercial2", true, 4140},
        {u"fraAsistentes", false, 6375},
        {u"lblComercial", true, 3000},
        {u"cboComercial", true, 4140},
        {u"lblAgencia", true, 3000},
        {u"txtOtraAgencia", true, 4140}}},
      {frmAnuncio,
       {{u"txtCategorias", false, 2535},
        {u"txtDonde", false, 5295},
        {u"lblUsuario", true, 4740},
        {u"cboUsuario", true, 5100},
        {u"fralinea1", false, 6375, 0},
        {u"fralinea1", false, 6375, 1},
        {u"chkEnviar", true, 5100},
        {u"txtNDias", true, 4140},
        {u"lblNDias", true, 3360},
        {u"splitDocumentos", false, 6375}}},
      {frmLlamada,
       {{u"lblUsuario", true, 4620},
        {u"cboUsuario", true, 5040},
        {u"splitDocumentos", false, 6375},
        {u"fralinea1", false, 6375, 1}}},
  };
  return all;
}

class Resizing : public FormTest {
 protected:
  static double of(Card& card, const Moved& row) {
    const Control& control = *card.control(row.control, row.index);
    return row.left ? control.Left() : control.Width();
  }
};

TEST_F(Resizing, the_constants_are_the_design_at_the_smallest_size) {
  for (const Layout& layout : layouts())
    for (const Moved& row : layout.rows)
      EXPECT_EQ(of(*made(layout.design()), row), row.constant) << toUtf8(row.control);
}

TEST_F(Resizing, moves_or_stretches_each_control_by_what_the_form_has_grown) {
  for (const Layout& layout : layouts()) {
    const auto card = made(layout.design());
    for (const int grown : {1, 500, 12000}) {
      card->setWidth(layout.design().minimumWidth + grown);
      for (const Moved& row : layout.rows)
        EXPECT_EQ(of(*card, row), row.constant + grown) << toUtf8(row.control);
    }
  }
}

TEST_F(Resizing, goes_in_the_order_of_the_table_with_the_agency_label_twice) {
  for (const Layout& layout : layouts()) {
    const auto card = made(layout.design());
    card->setWidth(layout.design().minimumWidth + 50);
    desk.changes.clear();
    card->setWidth(layout.design().minimumWidth + 100);
    Names order, expected;
    for (const auto& [name, what] : desk.changes) order.push_back(name);
    for (const Moved& row : layout.rows)
      if (row.control != u"lblAgencia" || std::ranges::count(expected, u"lblAgencia") == 0)
        expected.emplace_back(row.control);
    EXPECT_EQ(order, expected) << "the second time changes nothing";
    EXPECT_EQ(layout.rows.size(), layout.design().resizes.size());
    for (std::size_t i = 0; i < layout.rows.size(); ++i)
      EXPECT_EQ(layout.design().resizes[i].control, layout.rows[i].control);
  }
}

TEST_F(Resizing, touches_no_other_control) {
  for (const Layout& layout : layouts()) {
    const auto before = made(layout.design()), after = made(layout.design());
    after->setWidth(layout.design().minimumWidth + 700);
    for (std::size_t i = 0; i < before->controls().size(); ++i) {
      const Control& a = *before->controls()[i];
      const Control& b = *after->controls()[i];
      const bool moved = std::ranges::any_of(layout.rows, [&](const Moved& row) {
        return row.control == a.Name() && (row.index < 0 || row.index == a.design().index);
      });
      EXPECT_EQ(a.Left() != b.Left() || a.Width() != b.Width(), moved) << toUtf8(a.Name());
      EXPECT_EQ(a.Top(), b.Top());
    }
  }
}

TEST_F(Resizing, a_form_narrowed_below_its_smallest_width_keeps_its_last_layout) {
  for (const Layout& layout : layouts()) {
    const FormDesign& design = layout.design();
    const auto card = made(design);
    card->setWidth(design.minimumWidth + 300);
    for (const int width : {design.minimumWidth, design.minimumWidth - 1, 2000}) {
      card->setWidth(width);
      for (const Moved& row : layout.rows)
        EXPECT_EQ(of(*card, row), row.constant + 300) << toUtf8(row.control);
    }
  }
}

TEST_F(Resizing, the_splitter_takes_the_height_there_is_also_on_a_narrow_form) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    Control& splitter = *card->control(u"splitDocumentos");
    for (const int width : {2000, design->minimumWidth, design->minimumWidth + 800})
      for (const int grown : {1, 600, 9000}) {
        card->setWidth(width);
        card->setHeight(design->minimumHeight + grown);
        EXPECT_EQ(splitter.Height(), card->ScaleHeight() - (splitter.Top() + 130));
      }
  }
}

TEST_F(Resizing, at_the_smallest_height_or_below_the_splitter_stays_as_it_was) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    card->setHeight(design->minimumHeight + 500);
    const double last = card->control(u"splitDocumentos")->Height();
    for (const int height : {design->minimumHeight, design->minimumHeight - 1, 100}) {
      card->setHeight(height);
      EXPECT_EQ(card->control(u"splitDocumentos")->Height(), last);
    }
    card->setHeight(design->minimumHeight + 1);
    EXPECT_NE(card->control(u"splitDocumentos")->Height(), last) << "strictly greater";
  }
}

TEST_F(Resizing, a_minimised_form_is_left_alone) {
  for (const Layout& layout : layouts()) {
    const FormDesign& design = layout.design();
    const auto card = made(design);
    const double height = card->control(u"splitDocumentos")->Height();
    card->setWindowState(1);
    card->setWidth(design.minimumWidth + 900);
    card->setHeight(design.minimumHeight + 900);
    for (const Moved& row : layout.rows) EXPECT_EQ(of(*card, row), row.constant);
    EXPECT_EQ(card->control(u"splitDocumentos")->Height(), height);
    card->setWindowState(0);
    EXPECT_EQ(of(*card, layout.rows[0]), layout.rows[0].constant + 900) << "until it is restored";
  }
}

TEST_F(Resizing, by_the_user_is_the_same) {
  shown(frmNota(), [&](Card& card) {
    user.resizes(6745 + 250, 4140 + 400);
    EXPECT_EQ(card.control(u"txtAsunto")->Width(), 5655 + 250);
    EXPECT_EQ(card.control(u"splitDocumentos")->Height(),
              card.ScaleHeight() - (card.control(u"splitDocumentos")->Top() + 130));
  });
}

}  // namespace
}  // namespace ovalia::forms
