#include <gtest/gtest.h>

#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

class DraggingOut : public kit::AttachmentsTest {
 protected:
  Text draggedOut(int item) { return form().as<forms::ListView>(u"LsvDocu")->userDragsOut(item); }
};

TEST_F(DraggingOut, gives_the_stored_file_of_the_item_that_is_taken) {
  attached(u"120F00.doc", u"Contrato de arras.docx");
  attached(u"120F01.pdf", u"plano.pdf");
  openCard([&] {
    EXPECT_EQ(draggedOut(2), leaf + u"120F01.pdf");
    EXPECT_EQ(form().as<forms::ListView>(u"LsvDocu")->selectedIndex(), 2);
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(DraggingOut, gives_nothing_and_says_nothing_where_there_is_no_such_file) {
  attached(u"120F00.doc", u"Contrato.doc");
  attached(u"120F01.doc", u"otro.doc");
  documents->rows[1]->values[5] = u"..\\120F00.doc";
  here.files.remove(leaf + u"120F00.doc");
  here.files.putFile(leaf + u"120F00.DOC", u"de otro");
  openCard([&] {
    EXPECT_EQ(draggedOut(1), u"") << "one that differs in case is missing";
    EXPECT_EQ(draggedOut(2), u"") << "and a name that leads elsewhere is none";
  });
}

TEST_F(DraggingOut, makes_no_folder) {
  attached(u"120F00.doc", u"Contrato.doc");
  openCard([&] {
    here.files.remove(leaf + u"120F00.doc");
    nota.AppDirUser = u"\\Datos\\Otra";
    EXPECT_EQ(draggedOut(1), u"");
    EXPECT_FALSE(here.files.exists(u"\\Datos\\Otra"));
  });
}

}  // namespace
}  // namespace ovalia
