// Literal names in the error report of the forms about models, where it takes more than one failure to meet
// them: most handlers call procedures that report for themselves.
#include "models/ModelForm.h"
#include "tests/models/ModelList.h"

namespace ovalia {
namespace {

class ModelReportNames : public kit::ModelListTest {
 protected:
  // A view that fails where it is told to hide.
  class FailingView : public forms::FormView {
   public:
    void show() override {}
    void runModal() override {}
    void hide() override { throw Failure(failure::badArgument); }
    void activate() override {}
    void formChanged(forms::FormProperty) override {}
    void controlChanged(forms::Control&, forms::Property) override {}
    void toolChanged(forms::ActiveToolBars&, TextView) override {}
    void focusChanged() override {}
    void popupMenu(forms::ActiveToolBars&, TextView, const std::optional<forms::Point>&) override {}
  };

  static void failToHide() {
    forms::Runtime::current().setViewFactory([](forms::Form&) { return std::make_shared<FailingView>(); });
  }

  // 3167 asks the form on top to load its records; where it cannot, the failure is that of the next procedure
  // out.
  void expectGone(TextView nextOut) {
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(Text(nextOut), failure::noSuchMember);
  }
};

TEST_F(ModelReportNames, of_a_cancel_that_fails) {
  failToHide();
  const auto model = std::make_shared<ModelForm>();
  const auto list = std::make_shared<ModelListForm>();
  const std::pair<std::shared_ptr<SubjectForm>, TextView> cancels[] = {
      {model, u"cmdCancelar_Click de frmModelo"}, {list, u"cmdCancelar_Click de ListaModelos"}};
  for (const auto& [form, name] : cancels) {
    form->load();
    expectReport(Text(name), failure::badArgument);
    form->as<forms::CommandButton>(u"cmdCancelar")->userClicks();
  }
}

TEST_F(ModelReportNames, of_a_list_that_cannot_be_read_as_it_opens) {
  host.shows(nullptr);
  here.faults.failNext("Database.OpenRecordset", dao::failure::recordDeleted);
  expectGone(u"Form_Load de ListaModelos");
  choose([&] { EXPECT_EQ(grid().Rows(), 0); });
}

TEST_F(ModelReportNames, of_a_heading_whose_order_fails) {
  choose([&] {
    here.faults.failNext("Recordset.RecordCount", dao::failure::recordDeleted);
    expectGone(u"grdPlantilla_HeadClick de ListaModelos");
    user.clicksHeading(2);
  });
}

TEST_F(ModelReportNames, of_a_deletion_that_can_ask_and_tell_nothing) {
  choose([&] {
    user.clicksRow(1);
    for (const int box : {1, 2, 3}) here.faults.failNth("Screen.messageBox", box, failure::internalError);
    expectReport(u"grdPlantilla_BeforeDelete de ListaModelos", failure::internalError);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
  });
}

}  // namespace
}  // namespace ovalia
