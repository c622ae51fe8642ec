#pragma once

#include <functional>

#include "component/OpenAndClose.h"
#include "engines/Open.h"
#include "host/Contract.h"
#include "host/HostCard.h"
#include "instance/Instance.h"
#include "tests/cardkit/CardWalker.h"
#include "tests/cardkit/Desk.h"
#include "tests/cardkit/User.h"
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
  Text shown(TextView control) { return kit::onCard(*desk.top().control(control)); }
  Variant stored(TextView table, TextView column, std::int32_t key) {
    return one(u"SELECT " + Text(column) + u" FROM " + Text(table) + u" WHERE " +
               Text(kindKey(annotationTable(table).kind)) + u" = " + toText(key));
  }
  std::int32_t newest(TextView table) {
    return one(u"SELECT Max(" + Text(kindKey(annotationTable(table).kind)) + u") FROM " + Text(table))
        .toLong();
  }

  std::shared_ptr<Frame> frame = std::make_shared<Frame>();
  kit::Desk desk{here.screen};
  kit::User user{desk};
  std::shared_ptr<HostCard> card;
};

}  // namespace ovalia::host
