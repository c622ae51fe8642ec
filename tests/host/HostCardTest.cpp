#include "host/HostCard.h"

#include "host/Contract.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

class Card : public HostTest {
 protected:
  const FieldDesign& field(TextView name) {
    for (const FieldDesign& design : card.form().fields)
      if (design.field == name) return design;
    throw Failure(dao::failure::notInCollection);
  }
  Variant stored(TextView column) {
    return one(u"SELECT " + Text(column) + u" FROM Inmueble WHERE IdInm = 1");
  }

  HostCard card{hostForm(u"FichaInm"), workplace, 1};
};

TEST_F(Card, of_no_record_does_not_open) {
  try {
    HostCard(hostForm(u"FichaInm"), workplace, 99999);
    FAIL() << "opened";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), dao::failure::noCurrentRecord);
  }
}

TEST_F(Card, stores_what_was_typed) {
  card.userEdits(field(u"Piso"), u"9º Ñ");
  card.userEdits(field(u"Precio"), u"123.456,75");
  EXPECT_EQ(card.state(), HostCard::changedByUser);
  EXPECT_EQ(card.shown(field(u"Piso")), u"9º Ñ");
  EXPECT_TRUE(card.save());
  EXPECT_EQ(card.state(), HostCard::clean);
  EXPECT_EQ(stored(u"Piso").toText(), u"9º Ñ");
  EXPECT_EQ(stored(u"Precio").toCurrency(), Currency{1234567500});
}

TEST_F(Card, is_clean_again_when_the_old_text_is_back) {
  const Text before = card.shown(field(u"Piso"));
  card.userEdits(field(u"Piso"), u"otro");
  card.userEdits(field(u"Piso"), before);
  EXPECT_EQ(card.state(), HostCard::clean);
}

TEST_F(Card, keeps_a_number_that_is_none_from_being_stored) {
  const Text before = card.shown(field(u"Precio"));
  card.userEdits(field(u"Precio"), u"a convenir");
  EXPECT_FALSE(card.save());
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_NE(dialogs.told[0].find(u"«a convenir» no es un número: corrija la casilla Precio"), Text::npos);
  EXPECT_EQ(stored(u"Precio").text(), before);
  EXPECT_EQ(card.state(), HostCard::changedByUser);
}

TEST_F(Card, takes_an_emptied_number_for_none) {
  card.userEdits(field(u"Precio"), u" ");
  EXPECT_TRUE(card.save());
  EXPECT_TRUE(stored(u"Precio").isNull());
}

TEST_F(Card, tells_why_a_text_is_refused_by_the_database) {
  card.userEdits(field(u"Piso"), Text(500, u'x'));
  EXPECT_FALSE(card.save());
  EXPECT_EQ(dialogs.told.size(), 1u);
  EXPECT_FALSE(card.rows()->editing());
  EXPECT_EQ(card.state(), HostCard::changedByUser);
}

TEST_F(Card, settles_its_unsaved_work_as_its_user_wants) {
  EXPECT_TRUE(card.settle());
  EXPECT_TRUE(dialogs.asked.empty());
  card.userEdits(field(u"Piso"), u"cancelado");
  dialogs.yesNoCancelAnswer = 2;
  EXPECT_FALSE(card.settle());
  EXPECT_EQ(card.state(), HostCard::changedByUser);
  dialogs.yesNoCancelAnswer = 7;
  EXPECT_TRUE(card.settle());
  EXPECT_EQ(card.state(), HostCard::clean);
  EXPECT_NE(stored(u"Piso").text(), u"cancelado");
}

TEST_F(Card, has_its_lists_with_the_calls_of_the_current_advertisement) {
  AnnotationList& advertisements = *card.list(u"grdAnuncio");
  AnnotationList& calls = *card.list(u"grdLlamada");
  EXPECT_EQ(card.list(u"grdNota")->parent(), 1);
  EXPECT_EQ(calls.parent(), advertisements.currentKey());
  advertisements.recordset()->MoveNext();
  EXPECT_TRUE(card.followAdvertisement());
  EXPECT_EQ(calls.parent(), advertisements.currentKey());
  EXPECT_FALSE(card.followAdvertisement());
}

TEST_F(Card, without_advertisements_has_no_calls_and_cannot_add_any) {
  database().Execute(u"INSERT INTO Inmueble (Referencia) VALUES ('V-NUEVO')");
  HostCard fresh(hostForm(u"FichaInm"), workplace, one(u"SELECT Max(IdInm) FROM Inmueble").toLong());
  EXPECT_EQ(fresh.list(u"grdLlamada")->count(), 0);
  EXPECT_FALSE(fresh.list(u"grdLlamada")->mayCreate());
  EXPECT_TRUE(fresh.list(u"grdNota")->mayCreate());
}

TEST_F(Card, its_archive_is_closed_to_new_annotations) {
  EXPECT_FALSE(card.list(u"grdHistorico")->mayCreate());
}

TEST_F(Card, lists_go_back_to_their_row_when_read_again_or_to_the_first) {
  AnnotationList& notes = *card.list(u"grdNota");
  notes.recordset()->MoveLast();
  const auto key = notes.currentKey();
  notes.reload();
  EXPECT_EQ(notes.currentKey(), key);
  database().Execute(u"DELETE * FROM NotaIP WHERE IdNota = " + toText(key));
  notes.reload();
  EXPECT_EQ(notes.recordset()->AbsolutePosition(), 0);
}

TEST_F(Card, a_row_that_another_user_deleted_has_no_key) {
  AnnotationList& notes = *card.list(u"grdNota");
  notes.recordset()->MoveLast();
  database().Execute(u"DELETE * FROM NotaIP WHERE IdNota = " + toText(notes.currentKey()));
  EXPECT_EQ(notes.currentKey(), 0);
  EXPECT_FALSE(notes.goTo(-1));
}

}  // namespace ovalia::host
