#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

// Literal names in the error report, some of them another form's: they are meant so. A view that fails makes
// each procedure fail.

struct Reported {
  const FormDesign& (*design)();
  Text resize, tool, search, cancel;
};

const std::vector<Reported>& reportNames() {
  static const std::vector<Reported> all = {
      {frmNota, u"Form_Resize de frmNota", u"SSAtb_ToolClick de frmNota", u"BuscarElemento de frmNota",
       u"cmdCancelar_Click de frmNota"},
      {frmVisita, u"Resize en frmVisita", u"SSAtb_ToolClick de frmNota", u"BuscarElemento de frmVisita",
       u"cmdCancelar_Click de frmNuevaNota"},
      {frmAnuncio, u"Resize en frmAnuncio", u"SSAtb_ToolClick de frmNota", u"BuscarElemento de frmVisita",
       u"cmdCancelar_Click de frmNuevaNota"},
      {frmLlamada, u"Resize en frmllamada", u"SSAtb_ToolClick de frmNota", u"BuscarElemento de frmVisita",
       u"cmdCancelar_Click de frmNuevaNota"},
  };
  return all;
}

class ReportNames : public FormTest {
 protected:
  // A view that fails with 5 where it is asked to draw a place, to pop up a menu or to hide.
  class FailingView : public FormView {
   public:
    void show() override {}
    void runModal() override {}
    void hide() override { fail(); }
    void activate() override {}
    void formChanged(FormProperty) override {}
    void controlChanged(Control&, Property) override { fail(); }
    void toolChanged(ActiveToolBars&, TextView) override {}
    void focusChanged() override {}
    void popupMenu(ActiveToolBars&, TextView, const std::optional<Point>&) override { fail(); }

   private:
    [[noreturn]] void fail() { throw Failure(failure::badArgument); }
  };

  void SetUp() override {
    Runtime::current().setViewFactory([](Form&) { return std::make_shared<FailingView>(); });
  }
};

TEST_F(ReportNames, of_a_layout_that_fails) {
  for (const Reported& row : reportNames()) {
    const auto card = made(row.design());
    card->Caption();
    expectReport(row.resize, failure::badArgument);
    card->setWidth(9000);
  }
}

TEST_F(ReportNames, of_a_layout_that_finds_no_line_of_its_index) {
  static constexpr ResizeRow missing[] = {{u"fralinea1", MovedProperty::Width, 6375, 3}};
  for (const Reported& row : reportNames()) {
    FormDesign design = row.design();
    design.resizes = missing;
    Runtime::current().setViewFactory({});
    const auto card = made(design);
    expectReport(row.resize, failure::noSuchControl);
    card->setWidth(9000);
  }
}

TEST_F(ReportNames, of_a_tool_with_a_position_that_fails) {
  for (const Reported& row : reportNames()) {
    const auto card = made(row.design());
    expectReport(row.tool, failure::badArgument);
    card->toolbars().userPressesArrow(u"ID_BAdjuntar", {});
  }
}

TEST_F(ReportNames, of_a_search_that_fails_and_finds_nothing) {
  for (const Reported& row : reportNames()) {
    const auto card = made(row.design());
    card->BuscaElemento.connect([](std::int16_t&, Text&, bool&) { throw Failure(failure::objectNotSet); });
    expectReport(row.search, failure::objectNotSet);
    EXPECT_FALSE(card->BuscarElemento(1, u"Id = 1"));
  }
}

TEST_F(ReportNames, of_a_search_that_fails_after_it_found_take_the_find_back) {
  const auto card = made(frmNota());
  card->BuscaElemento.connect([](std::int16_t&, Text&, bool& found) {
    found = true;
    throw Failure(failure::objectNotSet);
  });
  expectReport(u"BuscarElemento de frmNota", failure::objectNotSet);
  EXPECT_FALSE(card->BuscarElemento(1, u"Id = 1"));
}

TEST_F(ReportNames, of_a_cancel_that_fails) {
  for (const Reported& row : reportNames()) {
    const auto card = made(row.design());
    card->Caption();
    expectReport(row.cancel, failure::badArgument);
    card->cmdCancelar_Click();
  }
}

TEST_F(FormTest, the_cancel_procedure_that_nothing_calls_unloads_the_card) {
  const auto card = made(frmNota());
  card->Caption();
  card->cmdCancelar_Click();
  EXPECT_FALSE(card->loaded());
  EXPECT_EQ(card->journal.back(), u"UnLoad");
}

}  // namespace
}  // namespace ovalia::forms
