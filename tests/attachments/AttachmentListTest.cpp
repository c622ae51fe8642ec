#include "attachments/AttachmentList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "tests/cardkit/Attachments.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AttachmentList : public kit::AttachmentsTest {
 protected:
  forms::ListView& documentList() const { return *form().as<forms::ListView>(u"LsvDocu"); }
  forms::Splitter& splitter() const { return *form().as<forms::Splitter>(u"splitDocumentos"); }

  // "120F00.pdf: plano.pdf [win]"
  std::vector<Text> shown() const {
    std::vector<Text> lines;
    for (const forms::ListItem& item : documentList().items())
      lines.push_back(join(item.key, u": ", item.text, u" [", item.icon, u"]"));
    return lines;
  }

  bool paneIsOpen() const { return documentList().Visible() && splitter().PaneWidth() > 0; }
  bool paneIsClosed() const { return !documentList().Visible() && splitter().PaneWidth() == 0; }

  kit::FakeRecordset& crs() const { return dynamic_cast<kit::FakeRecordset&>(*nota.crs); }
  void counts(const Variant& value) { list->at(0, u"NArchivos") = value; }
  void row(Variant shownName, Variant storedName, std::int32_t annotation = 501) {
    const auto key = static_cast<std::int32_t>(documents->rows.size()) + 1;
    documents->add({key, 120, 1, annotation, std::move(shownName), std::move(storedName)});
  }
  void pendingEdit() {
    crs().Edit();
    crs().setValue(u"Asunto", u"a medias");
  }
};

TEST_F(AttachmentList, shows_each_attachment_by_its_stored_name_the_name_it_is_shown_by_and_a_picture) {
  attached(u"120F00.doc", u"Contrato de arras.docx");
  attached(u"120F01.doc", u"nota simple.doc");
  openCard([&] {
    EXPECT_THAT(shown(), ElementsAre(u"120F00.doc: Contrato de arras.docx [win]",
                                     u"120F01.doc: nota simple.doc [doc]"));
    EXPECT_TRUE(paneIsOpen());
    EXPECT_EQ(documentList().selectedIndex(), 0);
    EXPECT_EQ(state(), limpia);
  });
  EXPECT_THAT(database->opened, testing::Contains(u"SELECT * FROM DocuNotaIP WHERE IdNota = 501"));
}

struct Picture {
  TextView shownName, picture;
};

constexpr Picture pictures[] = {
    {u"a.doc", u"doc"},     {u"a.txt", u"txt"}, {u"a.not", u"not"},
    {u"a.xls", u"xls"},     {u"a.ppt", u"ppt"}, {u"a.jpg", u"jpg"},
    {u"a.zip", u"zip"},     {u"a.DOC", u"win"},  // capitals are another ending
    {u"a.Doc", u"win"},     {u"a.pdf", u"win"}, {u"a.docx", u"win"},
    {u"a.jpeg", u"win"},    {u"doc", u"doc"},  // the last three characters, whatever stands before them
    {u"ladoc", u"doc"},     {u"oc", u"win"},    {u"", u"win"},
    {u"plano.ñññ", u"win"},
};

TEST_F(AttachmentList, the_picture_goes_by_the_last_three_characters_of_the_name_shown) {
  for (const Picture& expected : pictures) row(expected.shownName, toText(documents->rows.size()) + u".pdf");
  counts(1);
  openCard([&] {
    ASSERT_EQ(documentList().items().size(), std::size(pictures));
    for (std::size_t i = 0; i < std::size(pictures); ++i)
      EXPECT_EQ(documentList().items()[i].icon, pictures[i].picture) << toUtf8(pictures[i].shownName);
  });
}

TEST_F(AttachmentList, an_attachment_without_a_name_to_show_is_listed_all_the_same) {
  row(Null, u"120F00.doc");
  counts(1);
  openCard([&] { EXPECT_THAT(shown(), ElementsAre(u"120F00.doc:  [win]")); });
}

TEST_F(AttachmentList, keeps_to_the_current_annotation) {
  givenList(u"Nota", {{{u"NArchivos", 1}}, {{u"NArchivos", 2}}});
  row(u"uno.doc", u"120F00.doc", 501);
  row(u"dos.doc", u"120F01.doc", 502);
  row(u"ajeno.doc", u"120F02.doc", 777);
  standOn(2);
  openCard([&] {
    EXPECT_THAT(shown(), ElementsAre(u"120F01.doc: dos.doc [doc]"));
    standOn(1);
    RefrescoDocs(instance);
    EXPECT_THAT(shown(), ElementsAre(u"120F00.doc: uno.doc [doc]"));
    standOn(2);
  });
}

TEST_F(AttachmentList, serves_every_kind_that_keeps_attachments) {
  for (const TextView kind : {u"Nota", u"Visita", u"Anuncio"}) {
    const Text table = u"Docu" + Text(kind) + u"IP";
    givenList(kind, {{{u"NArchivos", 1}}});
    kit::attachmentTable(*database, table)->add({1, 120, 1, 501, u"plano.zip", u"120F00.zip"});
    openCard([&] {
      EXPECT_THAT(shown(), ElementsAre(u"120F00.zip: plano.zip [zip]")) << toUtf8(kind);
      EXPECT_TRUE(paneIsOpen());
    });
  }
}

// The counter.

TEST_F(AttachmentList, a_counter_without_a_row_is_put_back_to_0_and_the_pane_closed) {
  counts(2);
  const Variant stamp = stored(u"FechaActualizacion");
  openCard([&] {
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(paneIsClosed());
  });
  EXPECT_EQ(counter(), 0);
  EXPECT_EQ(crs().updates, 1);
  EXPECT_EQ(stored(u"FechaActualizacion").text(), stamp.text()) << "no other user's save is announced";
}

TEST_F(AttachmentList, a_counter_of_0_leaves_rows_unseen_until_it_is_raised) {
  attached(u"120F00.doc", u"plano.doc");
  counts(0);
  openCard([&] {
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(paneIsClosed());
    counts(1);
    RefrescoDocs(instance);
    EXPECT_THAT(shown(), ElementsAre(u"120F00.doc: plano.doc [doc]"));
    EXPECT_TRUE(paneIsOpen());
  });
  EXPECT_EQ(crs().updates, 0);
}

TEST_F(AttachmentList, without_attachments_the_table_is_not_asked) {
  openCard([&] {
    database->opened.clear();
    RefrescoDocs(instance);
    EXPECT_THAT(database->opened, IsEmpty());
  });
}

TEST_F(AttachmentList, a_counter_below_0_closes_the_pane_and_is_not_corrected) {
  attached(u"120F00.doc", u"plano.doc");
  counts(-1);
  openCard([&] { EXPECT_TRUE(paneIsClosed()); });
  EXPECT_EQ(counter(), -1);
}

TEST_F(AttachmentList, a_counter_that_is_too_low_or_too_high_is_not_corrected) {
  attached(u"120F00.doc", u"plano.doc");
  attached(u"120F01.doc", u"contrato.doc");
  for (const std::int32_t wrong : {1, 9}) {
    counts(wrong);
    openCard([&] { EXPECT_EQ(documentList().items().size(), 2u); });
    EXPECT_EQ(counter(), wrong);
  }
}

TEST_F(AttachmentList, a_counter_that_is_null_lists_the_rows_or_becomes_0) {
  row(u"plano.doc", u"120F00.doc");
  counts(Null);
  openCard([&] {
    EXPECT_THAT(shown(), ElementsAre(u"120F00.doc: plano.doc [doc]"));
    EXPECT_TRUE(stored(u"NArchivos").isNull());
    documents->rows.clear();
    RefrescoDocs(instance);
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(paneIsClosed());
    EXPECT_EQ(counter(), 0);
  });
}

TEST_F(AttachmentList, putting_the_counter_right_drops_an_edit_that_is_pending) {
  openCard([&] {
    counts(1);
    pendingEdit();
    RefrescoDocs(instance);
    EXPECT_EQ(counter(), 0);
    EXPECT_FALSE(crs().editing());
    EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
  });
}

TEST_F(AttachmentList, listing_leaves_an_edit_that_is_pending_alone) {
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    pendingEdit();
    RefrescoDocs(instance);
    EXPECT_TRUE(crs().editing());
    EXPECT_EQ(crs().value(u"Asunto").text(), u"a medias");
  });
}

TEST_F(AttachmentList, changes_neither_the_state_nor_what_was_typed) {
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    for (const std::int32_t any : {nueva, modificada, cargando}) {
      instance.EstadoFicha = any;
      RefrescoDocs(instance);
      EXPECT_EQ(state(), any);
      EXPECT_EQ(card(u"txtAsunto"), u"Llaves del ático");
    }
    putAway();
  });
}

// Where there is nothing to list.

TEST_F(AttachmentList, is_left_alone_where_annotations_keep_no_attachments) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  openCard([&] {
    EXPECT_TRUE(documentList().Visible());
    EXPECT_EQ(splitter().PaneWidth(), 2200);
    documentList().Add({u"clave", u"texto", u"win"});
    const double height = splitter().Height();
    splitter().setHeight(10);
    RefrescoDocs(instance);
    EXPECT_THAT(shown(), ElementsAre(u"clave: texto [win]"));
    EXPECT_EQ(splitter().Height(), 10);
    splitter().setHeight(height);
  });
  for (const Text& sql : database->opened) EXPECT_EQ(sql.find(u"DocuNotaIP"), Text::npos) << toUtf8(sql);
}

TEST_F(AttachmentList, at_the_end_of_the_list_of_annotations_is_emptied_and_the_pane_stays) {
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    crs().MoveNext();
    splitter().setHeight(10);
    RefrescoDocs(instance);
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(paneIsOpen());
    EXPECT_EQ(splitter().Height(), 10) << "the form is not arranged either";
    crs().MoveFirst();
  });
}

TEST_F(AttachmentList, the_form_is_arranged_again_whether_the_pane_opens_or_closes) {
  openCard([&] {
    const double height = splitter().Height();
    for (const std::int32_t any : {0, 3}) {
      counts(any);
      splitter().setHeight(10);
      RefrescoDocs(instance);
      EXPECT_EQ(splitter().Height(), height) << any;
    }
  });
}

// The pane and its width.

TEST_F(AttachmentList, a_pane_dragged_to_a_width_returns_at_it) {
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    user.dragsPane(1500);
    counts(0);
    RefrescoDocs(instance);
    EXPECT_TRUE(paneIsClosed());
    EXPECT_EQ(tag(u"splitDocumentos"), u"1500");
    RefrescoDocs(instance);
    EXPECT_EQ(tag(u"splitDocumentos"), u"1500") << "closed twice";
    counts(1);
    RefrescoDocs(instance);
    EXPECT_EQ(splitter().PaneWidth(), 1500);
    EXPECT_TRUE(documentList().Visible());
  });
  EXPECT_EQ(here.settings.stored(u"Agencia", u"frmNota", u"DocsWidth"), u"1500");
}

TEST_F(AttachmentList, opens_at_the_stored_width) {
  here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", u"3100");
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] { EXPECT_EQ(splitter().PaneWidth(), 3100); });
  EXPECT_EQ(here.settings.stored(u"Agencia", u"frmNota", u"DocsWidth"), u"3100");
}

TEST_F(AttachmentList, opens_at_the_width_to_which_the_pane_was_dragged_on_a_card_of_the_first_size) {
  attached(u"120F00.doc", u"plano.doc");
  for (int opening = 1; opening <= 2; ++opening)
    openCard([&] {
      if (opening == 1) user.dragsPane(7000);
      EXPECT_EQ(splitter().PaneWidth(), 7000);
    });
}

TEST_F(AttachmentList, opens_at_2200_where_an_empty_width_is_stored) {
  here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", u"");
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    EXPECT_EQ(splitter().PaneWidth(), 2200);
    EXPECT_EQ(tag(u"splitDocumentos"), u"2200");
  });
}

TEST_F(AttachmentList, what_the_pane_really_took_is_remembered) {
  here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", u"99999");
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    EXPECT_EQ(splitter().PaneWidth(), 7880) << "as wide as both panes together";
    EXPECT_EQ(tag(u"splitDocumentos"), u"7880");
  });
}

TEST_F(AttachmentList, the_stored_width_is_read_up_to_what_is_no_number) {
  struct {
    TextView stored;
    double width;
  } const cases[] = {
      {u"1500 twips", 1500}, {u"1500,5", 1500}, {u"1500.5", 1500.5}, {u"ancho", 0}, {u"-20", 0}};
  attached(u"120F00.doc", u"plano.doc");
  for (const auto& expected : cases) {
    here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", expected.stored);
    openCard([&] { EXPECT_EQ(splitter().PaneWidth(), expected.width) << toUtf8(expected.stored); });
  }
}

// The pane of a card that has just come up counts as visible before anybody has seen it.
TEST_F(AttachmentList, a_card_that_comes_up_without_attachments_takes_the_designed_width_for_the_last_one) {
  here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", u"3100");
  openCard([&] {
    EXPECT_TRUE(paneIsClosed());
    EXPECT_EQ(tag(u"splitDocumentos"), u"2200");
  });
}

TEST_F(AttachmentList, a_form_without_the_controls_is_reported) {
  static forms::FormDesign bare = forms::frmNota();
  bare.controls = {};
  const auto other = std::make_shared<forms::CardForm>(bare);
  for (const bool any : {true, false}) {
    expectReport(u"CambiarVisibilidadLsvDocumentos de CNota", failure::noSuchControl);
    CambiarVisibilidadLsvDocumentos(*other, any);
  }
}

// Failures.

struct Failing {
  const char* operation;
  int nth;
  std::int32_t counter;
  std::vector<Text> shown;
};

TEST_F(AttachmentList, a_failure_at_any_step_is_reported_and_leaves_counter_and_state) {
  attached(u"120F00.doc", u"plano.doc");
  attached(u"120F01.doc", u"contrato.doc");
  const Text first = u"120F00.doc: plano.doc [doc]";
  const std::vector<Failing> listing = {
      {"Field.Value", 1, 2, {}},  // the counter
      {"Field.Value", 2, 2, {}},  // the annotation's key
      {"Database.OpenRecordset", 1, 2, {}},
      {"Recordset.MoveFirst", 1, 2, {}},
      {"Field.Value", 3, 2, {}},       // a name
      {"Field.Value", 5, 2, {first}},  // a name of the second row
      {"Recordset.MoveNext", 1, 2, {first}},
  };
  openCard([&] {
    instance.EstadoFicha = modificada;
    for (const Failing& row : listing) {
      here.faults.failNth(row.operation, row.nth, dao::failure::locked);
      expectReport(u"RefrescoDocs de CNota", dao::failure::locked);
      RefrescoDocs(instance);
      EXPECT_EQ(shown(), row.shown) << row.operation << row.nth;
      EXPECT_EQ(counter(), row.counter);
      EXPECT_EQ(state(), modificada);
    }
    putAway();
  });
}

TEST_F(AttachmentList, a_counter_that_cannot_be_put_right_stays_and_the_pane_stays_open) {
  attached(u"120F00.doc", u"plano.doc");
  openCard([&] {
    documents->rows.clear();
    for (const char* operation : {"Recordset.Edit", "Field.setValue", "Recordset.Update"}) {
      here.faults.failNext(operation, dao::failure::locked);
      expectReport(u"RefrescoDocs de CNota", dao::failure::locked);
      RefrescoDocs(instance);
      EXPECT_EQ(counter(), 1) << operation;
      EXPECT_THAT(shown(), IsEmpty());
      EXPECT_TRUE(paneIsOpen());
      EXPECT_EQ(state(), limpia);
    }
    crs().CancelUpdate();
    RefrescoDocs(instance);
    EXPECT_EQ(counter(), 0);
    EXPECT_TRUE(paneIsClosed());
  });
}

TEST_F(AttachmentList, a_row_without_a_stored_name_ends_the_list_there) {
  row(u"plano.doc", u"120F00.doc");
  row(u"sin fichero.doc", Null);
  row(u"contrato.doc", u"120F01.doc");
  counts(3);
  expectReport(u"RefrescoDocs de CNota", failure::invalidUseOfNull);
  openCard([&] { EXPECT_THAT(shown(), ElementsAre(u"120F00.doc: plano.doc [doc]")); });
}

TEST_F(AttachmentList, a_stored_name_that_two_rows_have_ends_the_list_at_the_second) {
  row(u"plano.doc", u"120F00.doc");
  row(u"otro plano.doc", u"120F00.doc");
  counts(2);
  expectReport(u"RefrescoDocs de CNota", failure::keyNotUnique);
  openCard([&] { EXPECT_THAT(shown(), ElementsAre(u"120F00.doc: plano.doc [doc]")); });
}

TEST_F(AttachmentList, an_annotation_without_a_key_is_a_statement_with_a_hole) {
  counts(1);
  openCard([&] {
    counts(1);
    list->at(0, u"IdAnota") = Null;
    expectReport(u"RefrescoDocs de CNota", dao::failure::syntax);
    RefrescoDocs(instance);
  });
}

TEST_F(AttachmentList, without_a_card_or_a_list_is_reported) {
  expectReport(u"RefrescoDocs de CNota", failure::objectNotSet);
  RefrescoDocs(instance);
  nota.crs.reset();
  expectReport(u"RefrescoDocs de CNota", failure::objectNotSet);
  RefrescoDocs(instance);
}

// The selection.

TEST_F(AttachmentList, tells_which_attachment_is_selected) {
  attached(u"120F00.doc", u"plano.doc");
  attached(u"120F01.doc", u"contrato.doc");
  openCard([&] {
    EXPECT_THROW(selectedAttachment(instance), Failure);
    user.clicksItem(2);
    EXPECT_EQ(selectedAttachment(instance).key, u"120F01.doc");
    EXPECT_EQ(selectedAttachment(instance).text, u"contrato.doc");
  });
}

}  // namespace
}  // namespace ovalia
