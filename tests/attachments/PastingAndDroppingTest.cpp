#include "attachments/AddingAttachments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "routines/Collection.h"
#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Pasting : public kit::AttachmentsTest {
 protected:
  void copied(std::initializer_list<TextView> names) {
    here.clipboard.holdsFiles = true;
    for (const TextView name : names) here.clipboard.fileList.push_back(source(name));
  }
};

TEST_F(Pasting, adds_the_files_on_the_clipboard) {
  copied({u"plano.pdf", u"carta.doc"});
  PegarDePortapapeles(instance);
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf", u"2: 120 1 501 carta.doc < 120F01.doc"));
}

TEST_F(Pasting, goes_into_the_folder_of_the_record_shown) {
  host.vClase().with(u"IdRegistro", 4073).with(u"cEstado", 1).with(u"NumNuevo", 9);
  copied({u"plano.pdf"});
  PegarDePortapapeles(instance);
  EXPECT_THAT(tree(), ElementsAre(u"Doc4\\Doc0\\Doc7\\Doc0\\4073F00.pdf"));
}

TEST_F(Pasting, without_files_does_nothing) {
  PegarDePortapapeles(instance);
  copied({u"plano.pdf"});
  here.clipboard.refusesToOpen = true;
  PegarDePortapapeles(instance);
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(Pasting, one_that_fails_does_not_hinder_the_others) {
  copied({u"plano.pdf", u"carta.doc"});
  here.files.remove(u"\\home\\ana\\plano.pdf");
  expectReport(u"AdjuntarFichero de CNota, ruta:\\home\\ana\\plano.pdf", failure::fileNotFound);
  PegarDePortapapeles(instance);
  EXPECT_EQ(rows().size(), 1u);
}

TEST_F(Pasting, on_a_list_without_attachments_is_refused_without_a_word) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  host.shows(nullptr);
  copied({u"plano.pdf"});
  PegarDePortapapeles(instance);
  EXPECT_THAT(here.clipboard.steps, IsEmpty());
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(Pasting, without_a_host_form_is_reported) {
  host.shows(nullptr);
  copied({u"plano.pdf"});
  expectReport(u"PegarDePortapapeles de CNota", failure::objectNotSet);
  PegarDePortapapeles(instance);
}

TEST_F(Pasting, a_clipboard_that_cannot_be_read_is_reported_and_adds_nothing) {
  copied({u"plano.pdf"});
  here.faults.failNext("Clipboard.close", 51);
  expectReport(u"ClipboardPasteFiles() de RutinasErr", 51);
  PegarDePortapapeles(instance);
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(Pasting, is_reached_by_tool_and_by_key) {
  copied({u"plano.pdf"});
  openCard([&] {
    user.clicks(u"ID_Pegar");
    EXPECT_EQ(rows().size(), 1u);
    putAway();
  });
}

class Dropping : public kit::AttachmentsTest {
 protected:
  static ObjectRef dragged(std::vector<Variant> paths) {
    auto files = std::make_shared<Collection>();
    for (Variant& path : paths) files->add(std::move(path));
    auto data = std::make_shared<kit::FakeObject>();
    data->answering(u"GetFormat", [any = !paths.empty()](Arguments format) -> Variant {
      return any && format[0].toLong() == 15;
    });
    data->answering(u"Files", [files](Arguments place) -> Variant {
      return place.empty() ? Variant(files) : files->get(u"", place);
    });
    return data;
  }
  std::int32_t effectOf(const ObjectRef& data) {
    std::int32_t effect = 99;
    dNota_OLEDragOver(instance, data, effect);
    return effect;
  }
};

TEST_F(Dropping, files_over_the_card_would_be_copied_and_nothing_else_is_taken) {
  EXPECT_EQ(effectOf(dragged({u"\\home\\ana\\plano.pdf"})), 1);
  EXPECT_EQ(effectOf(dragged({})), 0);
}

TEST_F(Dropping, over_a_list_without_attachments_nothing_is_taken) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  EXPECT_EQ(effectOf(dragged({u"\\home\\ana\\plano.pdf"})), 0);
}

TEST_F(Dropping, a_failure_while_dragging_is_silent_and_leaves_the_effect) {
  EXPECT_EQ(effectOf(nullptr), 99);
  nota.crs.reset();
  EXPECT_EQ(effectOf(dragged({u"\\home\\ana\\plano.pdf"})), 99);
}

TEST_F(Dropping, adds_the_files) {
  dNota_OLEDragDrop(instance, dragged({source(u"plano.pdf"), source(u"carta.doc")}));
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf", u"2: 120 1 501 carta.doc < 120F01.doc"));
}

TEST_F(Dropping, goes_into_the_folder_of_the_record_shown) {
  host.vClase().with(u"IdRegistro", 7);
  dNota_OLEDragDrop(instance, dragged({source(u"plano.pdf")}));
  EXPECT_THAT(tree(), ElementsAre(u"Doc0\\7F00.pdf"));
}

TEST_F(Dropping, on_a_list_without_attachments_does_nothing_without_a_word) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  dNota_OLEDragDrop(instance, dragged({source(u"plano.pdf")}));
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(Dropping, passes_over_what_cannot_be_read_and_goes_on_with_the_next) {
  dNota_OLEDragDrop(instance, dragged({source(u"plano.pdf"), Null, source(u"carta.doc")}));
  EXPECT_EQ(rows().size(), 2u);
}

TEST_F(Dropping, a_file_that_cannot_be_copied_is_reported_and_the_next_goes_on) {
  expectReport(u"AdjuntarFichero de CNota, ruta:\\home\\ana\\nada.pdf", failure::fileNotFound);
  source(u"otro.pdf");
  dNota_OLEDragDrop(instance, dragged({u"\\home\\ana\\nada.pdf", source(u"carta.doc")}));
  EXPECT_EQ(rows().size(), 1u);
}

TEST_F(Dropping, without_a_host_form_a_list_or_data_adds_nothing_and_says_nothing) {
  const ObjectRef data = dragged({source(u"plano.pdf")});
  dNota_OLEDragDrop(instance, nullptr);
  host.shows(nullptr);
  dNota_OLEDragDrop(instance, data);
  nota.crs.reset();
  dNota_OLEDragDrop(instance, data);
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(Dropping, reaches_the_card_on_its_list) {
  openCard([&] {
    const ObjectRef data = dragged({source(u"plano.pdf")});
    std::int32_t effect = 0;
    form().userDragsOver(control(u"LsvDocu"), data, effect);
    EXPECT_EQ(effect, 1);
    form().userDrops(control(u"LsvDocu"), data);
    EXPECT_EQ(rows().size(), 1u);
    putAway();
  });
}

}  // namespace
}  // namespace ovalia
