#include "host/Contract.h"
#include "host/HostCard.h"
#include "tests/cardkit/Desk.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

// The component at work for this host: its cards over the agency's own lists, database and contract.
class CardsOverAgency : public HostTest {
 protected:
  class Frame : public MainFrame {
   public:
    ObjectRef form;
    ObjectRef activeForm() override { return form; }
    Text statusText() override { return {}; }
    void setStatusText(TextView) override {}
  };

  CardsOverAgency() {
    workplace.frmBase = mainFormContract(frame, dialogs);
    CNota::cgDB(workplace.agency.database);
    here.clock.time = {2026, 3, 9, 10, 20, 30};
  }
  void TearDown() override {
    card.reset();
    desk.verify();
    HostTest::TearDown();
  }

  void open(TextView form, std::int32_t record = 1) {
    card.reset();
    card = std::make_shared<HostCard>(hostForm(form), workplace, record);
    frame->form = here.screen.form = cardContract(card);
  }
  AnnotationList& list(TextView grid) { return *card->list(grid); }

  std::shared_ptr<Frame> frame = std::make_shared<Frame>();
  kit::Desk desk{here.screen};
  std::shared_ptr<HostCard> card;
};

TEST_F(CardsOverAgency, every_annotation_of_the_first_records_opens_without_a_report) {
  int opened = 0;
  for (const HostForm& form : hostForms())
    for (std::int32_t record = 1; record <= 3; ++record) {
      open(form.form, record);
      for (const auto& list : card->lists())
        for (std::int32_t row = 0; row < std::min(list->count(), 25); ++row) {
          list->recordset()->setAbsolutePosition(row);
          const Text kind(kindName(list->annotations().kind));
          desk.whileShown([&] {
            EXPECT_EQ(desk.top().Name(), u"frm" + kind);
            EXPECT_TRUE(desk.top().Caption().ends_with(toText(row + 1) + u"/" + toText(list->count())));
            ++opened;
          });
          list->openCard();
        }
    }
  EXPECT_GT(opened, 100);
}

TEST_F(CardsOverAgency, another_list_of_the_same_parent_opens_while_the_first_keeps_its_place) {
  open(u"FichaInm");
  list(u"grdNota").recordset()->MoveLast();
  const std::int32_t key = list(u"grdNota").currentKey();
  desk.whileShown([] {});
  list(u"grdAnuncio").openCard();
  EXPECT_EQ(list(u"grdNota").currentKey(), key);
}

}  // namespace ovalia::host
