#include "forms/ModelForms.h"

#include <gmock/gmock.h>

#include <set>

#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

using testing::ElementsAre;
using enum ControlType;

struct Expected {
  TextView name;
  ControlType type;
  TextView caption = {};
};

constexpr Expected making[] = {
    {u"fraTotal", Frame},
    {u"lblNombre", Label, u"Nombre"},
    {u"txtNombre", TextBox},
    {u"lblNotas", Label, u"Notas"},
    {u"txtNotas", TextBox},
    {u"cmdMateria", CommandButton, u"&Materia"},
    {u"txtMateria", TextBox},
    {u"cmdSubMateria", CommandButton, u"&Sub Materia"},
    {u"txtSubMateria", TextBox},
    {u"cmdAceptar", CommandButton, u"&Aceptar"},
    {u"cmdCancelar", CommandButton, u"&Cancelar"},
};

constexpr Expected choosing[] = {
    {u"datPlantilla", Data},
    {u"fraTotal", Frame},
    {u"grdPlantilla", ControlType::Grid, u"Modelos"},
    {u"cmdMateria", CommandButton, u"&Materia"},
    {u"txtMateria", TextBox},
    {u"cmdSubMateria", CommandButton, u"&Sub Materia"},
    {u"txtTMateria", TextBox},
    {u"lblAsunto", Label, u"Notas"},
    {u"txtNotas", TextBox},
    {u"cmdSel", CommandButton, u"Seleccionar"},
    {u"cmdAceptar", CommandButton, u"Aceptar"},
    {u"cmdCancelar", CommandButton, u"Cancelar"},
};

struct FormExpected {
  const FormDesign& (*design)();
  TextView name, caption;
  std::span<const Expected> controls;
  std::vector<Text> tabOrder;
};

// A form that stretches as the two do.
class Stretching : public Form {
 public:
  using Form::Form;
  using Form::stretch;
};

class ModelDesign : public FormTest {
 protected:
  const std::vector<FormExpected> forms = {
      {frmModelo,
       u"frmModelo",
       u"Crear Modelo",
       making,
       {u"txtNombre", u"txtNotas", u"cmdMateria", u"txtMateria", u"cmdSubMateria", u"txtSubMateria",
        u"cmdAceptar", u"cmdCancelar"}},
      {ListaModelos,
       u"ListaModelos",
       u"Adjuntar Modelo",
       choosing,
       {u"grdPlantilla", u"cmdMateria", u"txtMateria", u"cmdSubMateria", u"txtTMateria", u"txtNotas",
        u"cmdSel", u"cmdAceptar", u"cmdCancelar"}},
  };

  struct Box {
    double left, top, right, bottom;
    bool meets(const Box& other) const {
      return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool holds(const Box& other) const {
      return left <= other.left && top <= other.top && other.right <= right && other.bottom <= bottom;
    }
  };
  static Box boxOf(const Control& c) {
    return {c.Left(), c.Top(), c.Left() + c.Width(), c.Top() + c.Height()};
  }

  // Controls of one container keep apart and inside it.
  static void expectTidy(Form& form) {
    for (const ControlRef& control : form.controls()) {
      if (control->type() == Data) continue;
      const TextView holder = control->design().container;
      const Box room = holder.empty()
                           ? Box{0, 0, form.ScaleWidth(), form.ScaleHeight()}
                           : Box{0, 0, form.control(holder)->Width(), form.control(holder)->Height()};
      EXPECT_TRUE(room.holds(boxOf(*control))) << toUtf8(control->Name());
      for (const ControlRef& other : form.controls()) {
        if (other == control || other->type() == Data || other->design().container != holder) continue;
        EXPECT_FALSE(boxOf(*control).meets(boxOf(*other)))
            << toUtf8(control->Name()) << " lies over " << toUtf8(other->Name());
      }
    }
  }
};

TEST_F(ModelDesign, has_name_caption_and_every_control_and_no_other) {
  for (const FormExpected& expected : forms) {
    const auto form = std::make_shared<Form>(expected.design());
    EXPECT_EQ(form->Name(), expected.name);
    EXPECT_EQ(form->Caption(), expected.caption);
    for (const Expected& row : expected.controls) {
      ASSERT_TRUE(form->hasControl(row.name)) << toUtf8(row.name);
      EXPECT_EQ(form->control(row.name)->type(), row.type) << toUtf8(row.name);
      EXPECT_EQ(form->control(row.name)->Caption(), row.caption) << toUtf8(row.name);
    }
    EXPECT_EQ(form->controls().size(), expected.controls.size());
  }
}

TEST_F(ModelDesign, every_control_that_is_used_is_reached_by_tab_and_has_a_name) {
  for (const FormExpected& expected : forms) {
    const auto form = std::make_shared<Form>(expected.design());
    desk.whileShown([&] {
      std::vector<Text> reached;
      do {
        reached.push_back(form->ActiveControl()->Name());
        user.tabs();
      } while (form->ActiveControl()->Name() != reached.front());
      EXPECT_EQ(reached, expected.tabOrder);
    });
    form->Show();
    for (const ControlDesign& control : expected.design().controls) {
      if (control.tab < 0) continue;
      const Text spoken =
          control.label.empty() ? Text(control.caption) : form->control(control.label)->Caption();
      EXPECT_NE(spoken, u"") << toUtf8(control.name);
    }
  }
}

TEST_F(ModelDesign, no_two_captions_share_a_mnemonic) {
  for (const FormExpected& expected : forms) {
    std::set<char16_t> letters;
    for (const ControlDesign& control : expected.design().controls) {
      const auto mark = control.caption.find(u'&');
      if (mark == TextView::npos) continue;
      EXPECT_TRUE(letters.insert(control.caption.at(mark + 1)).second) << toUtf8(control.name);
    }
  }
}

TEST_F(ModelDesign, lies_tidily_at_its_smallest_and_when_it_has_grown) {
  for (const FormExpected& expected : forms) {
    const FormDesign& design = expected.design();
    const auto form = std::make_shared<Stretching>(design);
    form->setWidth(design.minimumWidth);
    form->setHeight(design.minimumHeight);
    expectTidy(*form);
    form->setWidth(design.minimumWidth + 3000);
    form->setHeight(design.minimumHeight + 2000);
    form->stretch(3000, 2000);
    expectTidy(*form);
  }
}

TEST_F(ModelDesign, the_grid_and_the_notes_take_the_room_that_a_form_gains) {
  const auto list = std::make_shared<Stretching>(ListaModelos());
  const auto model = std::make_shared<Stretching>(frmModelo());
  const double width = list->control(u"grdPlantilla")->Width(),
               height = list->control(u"grdPlantilla")->Height();
  list->stretch(1500, 900);
  EXPECT_EQ(list->control(u"grdPlantilla")->Width(), width + 1500);
  EXPECT_EQ(list->control(u"grdPlantilla")->Height(), height + 900);
  model->stretch(1500, 900);
  EXPECT_EQ(model->control(u"txtNotas")->Height(), 1800);
  list->stretch(0, 0);
  EXPECT_EQ(list->control(u"grdPlantilla")->Width(), width);
}

TEST_F(ModelDesign, a_form_without_bars_has_more_room_for_controls) {
  const auto form = std::make_shared<Form>(frmModelo());
  EXPECT_EQ(form->ScaleHeight(), form->Height() - frameHeightWithoutBars);
}

TEST_F(ModelDesign, the_grid_has_its_columns) {
  const auto form = std::make_shared<Form>(ListaModelos());
  const auto grid = form->as<ovalia::forms::Grid>(u"grdPlantilla");
  std::vector<Text> names, headings;
  for (const ColumnDesign& column : grid->columns()) {
    names.emplace_back(column.name);
    headings.emplace_back(column.heading);
    EXPECT_EQ(column.hidden, column.name == u"IdPlantilla");
  }
  EXPECT_THAT(names, ElementsAre(u"IdPlantilla", u"Nombre", u"Notas", u"Materia", u"TipoMateria"));
  EXPECT_THAT(headings, ElementsAre(u"", u"Nombre", u"Notas", u"Materia", u"Sub Materia"));
}

}  // namespace
}  // namespace ovalia::forms
