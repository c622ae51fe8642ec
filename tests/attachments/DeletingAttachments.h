#pragma once

#include "attachments/DeletingAttachments.h"

#include "tests/cardkit/Attachments.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia {

// The note has two documents, "120F00.pdf", of which the tests speak, and "120F01.pdf", which stays.
class DeletingAttachments : public kit::AttachmentsTest {
 public:
  using AttachmentsTest::expectBox;
  using AttachmentsTest::expectReport;
  using AttachmentsTest::here;

  const Text name = u"120F00.pdf";
  const Text path = leaf + name;

  void expectInUse() {
    expectBox(
        u"El documento adjunto (" + path + u") está abierto en Word;\r\nciérrelo y vuelva a intentarlo.", 48,
        u"Borrar");
  }
  void expectGone(const Text& shownPath) {
    expectBox(u"El documento adjunto (" + shownPath + u") no existe.", 48, u"Borrar");
  }
  void expectGone() { expectGone(path); }

  // The bin leaves the file where it is.
  void binRefuses() {
    here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5};
    expectBox(u"Error devuelto: 5, 5");
  }

 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    attached(name, u"plano.pdf");
    attached(u"120F01.pdf", u"otro.pdf");
  }

  kit::FakeScreen::Expectation& expectQuestion(int answer) {
    return expectBox(u"El documento adjunto a la nota se borrará.\r\n\r\n¿Desea continuar?", 68, u"Borrar",
                     answer);
  }

  void onCard(const std::function<void()>& script) { openCard(script); }

  bool remove(TextView stored, bool ask = false) { return BorrarDocNota(instance, stored, ask); }

  std::vector<Text> shown() const {
    std::vector<Text> keys;
    for (const forms::ListItem& item : form().as<forms::ListView>(u"LsvDocu")->items())
      keys.push_back(item.key);
    return keys;
  }
  bool hasRow() const { return rows().size() == 2; }
  kit::FakeRecordset& crs() const { return dynamic_cast<kit::FakeRecordset&>(*nota.crs); }

  void expectNothingTouched() {
    EXPECT_TRUE(here.files.exists(path));
    EXPECT_TRUE(here.shell.recycled.empty());
    EXPECT_EQ(counter(), 2);
    EXPECT_TRUE(hasRow());
  }
};

}  // namespace ovalia
