#include "host/Exports.h"
#include "host/HostForms.h"
#include "host/Marks.h"
#include "host/Names.h"
#include "host/QtDialogs.h"
#include "host/Queries.h"
#include "tests/host/HostTest.h"
#include "tests/kit/FakeObject.h"

namespace ovalia::host {

TEST(Nearest, forgives_case_accents_and_a_few_letters) {
  const std::vector<Text> names = {u"Núñez Ibáñez, Ana", u"Castaño, Luis", u"Levante | Hogar"};
  EXPECT_EQ(nearest(names, u"NUNEZ IBANEZ, ANA"), u"Núñez Ibáñez, Ana");
  EXPECT_EQ(nearest(names, u"Castanyo, Luis"), u"Castaño, Luis");
  EXPECT_EQ(nearest(names, u"levante"), u"Levante | Hogar");
}

TEST(Nearest, is_nothing_when_none_is_near) {
  const std::vector<Text> names = {u"Núñez, Ana", u"Castaño, Luis"};
  EXPECT_EQ(nearest(names, u"Zubizarreta"), std::nullopt);
  EXPECT_EQ(nearest(names, u""), std::nullopt);
  EXPECT_EQ(nearest({}, u"Ana"), std::nullopt);
}

TEST(Nearest, prefers_the_whole_name_to_one_that_begins_with_it) {
  const std::vector<Text> names = {u"Peña Hermanos", u"Peña"};
  EXPECT_EQ(nearest(names, u"pena"), u"Peña");
}

TEST(Values, are_parted_by_commas) {
  EXPECT_EQ(splitValues(u" a ,b,, c"), (std::vector<Text>{u"a", u"b", u"c"}));
  EXPECT_TRUE(splitValues(u" , ").empty());
  EXPECT_EQ(joinValues(splitValues(u"a,b")), u"a, b");
}

TEST(Marks, are_found_by_name_wherever_they_stand) {
  const auto array = [](std::vector<Text> texts) {
    texts.resize(61);
    auto object = std::make_shared<MemberTable>();
    object->property(u"", [texts](Arguments a) -> Variant { return texts.at(std::size_t(a[0].toLong())); });
    return Variant(object);
  };
  const Variant marks = array({u"Asunto", u"Notas", u"Autor"}),
                values = array({u"Llaves & más", u"Año\r\nnuevo", u"Lucía"});
  EXPECT_EQ(markText(marks, values, u"Autor"), u"Lucía");
  EXPECT_EQ(markText(marks, values, u"NoHay"), u"");
  EXPECT_EQ(mailAddress(marks, values), u"mailto:?subject=Llaves%20%26%20m%C3%A1s&body=A%C3%B1o%0D%0Anuevo");
}

TEST(Filters, are_written_as_the_toolkit_wants_them) {
  EXPECT_EQ(toolkitFilter(u"Documentos (*.*)|*.*"), u"Documentos (*)");
  EXPECT_EQ(toolkitFilter(u"Texto (*.txt;*.md)|*.txt;*.md|Todo|*.*"), u"Texto (*.txt *.md);;Todo (*)");
}

class ExportedTexts : public HostTest {
 protected:
  dao::RecordsetRef rows(TextView grid) {
    return database().OpenRecordset(listQuery(list(u"FichaInm", grid), 1));
  }
};

TEST_F(ExportedTexts, a_note_leaves_out_what_it_has_not) {
  const auto notes = rows(u"grdNota");
  notes->Edit();
  notes->setValue(u"Asunto", u"Llaves");
  notes->setValue(u"Categorias", Null);
  notes->Update();
  const Text text = noteText(*notes);
  EXPECT_TRUE(text.starts_with(u"Asunto: Llaves\r\nAutor: "));
  EXPECT_EQ(text.find(u"Categorías"), Text::npos);
}

TEST_F(ExportedTexts, a_visit_is_one_event_of_a_calendar) {
  const auto visits = rows(u"grdVisita");
  visits->Edit();
  visits->setValue(u"FechaComienzo", Date{45292.5});
  visits->setValue(u"FechaFin", Date{45292.5625});
  visits->setValue(u"Asunto", u"Firma; arras, y llaves");
  visits->setValue(u"Anulada", true);
  visits->Update();
  const Text calendar = visitCalendar(*visits);
  EXPECT_TRUE(calendar.starts_with(u"BEGIN:VCALENDAR\r\n"));
  EXPECT_TRUE(calendar.ends_with(u"END:VCALENDAR\r\n"));
  for (TextView line :
       {u"DTSTART:20240101T120000\r\n", u"DTEND:20240101T133000\r\n", u"STATUS:CANCELLED\r\n"})
    EXPECT_NE(calendar.find(line), Text::npos) << toUtf8(calendar);
  EXPECT_NE(replaceAll(calendar, u"\r\n ", u"").find(u"SUMMARY:Firma\\; arras\\, y llaves\r\n"), Text::npos);
}

TEST_F(ExportedTexts, a_visit_without_an_end_lasts_an_hour_and_one_without_a_start_has_no_time) {
  const auto visits = rows(u"grdVisita");
  visits->Edit();
  visits->setValue(u"FechaComienzo", Date{45292.5});
  visits->setValue(u"FechaFin", Date{});
  visits->Update();
  EXPECT_NE(visitCalendar(*visits).find(u"DTEND:20240101T130000"), Text::npos);
  visits->Edit();
  visits->setValue(u"FechaComienzo", Null);
  visits->Update();
  EXPECT_EQ(visitCalendar(*visits).find(u"DTSTART"), Text::npos);
}

TEST_F(ExportedTexts, no_line_of_a_calendar_is_longer_than_75_bytes) {
  const auto visits = rows(u"grdVisita");
  visits->Edit();
  visits->setValue(u"Notas", Text(400, u'ñ') + u"\r\n" + Text(u"🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠🏠"));
  visits->Update();
  const std::string calendar = toUtf8(visitCalendar(*visits));
  EXPECT_EQ(calendar.find("\xEF\xBF\xBD"), std::string::npos);
  for (std::size_t from = 0, end; (end = calendar.find("\r\n", from)) != std::string::npos; from = end + 2)
    EXPECT_LE(end - from, 75u);
}

class Forms : public HostTest {};

TEST_F(Forms, show_fields_that_their_query_has) {
  for (const HostForm& form : hostForms()) {
    const auto card = database().OpenRecordset(cardQuery(form, 1));
    ASSERT_FALSE(card->isEOF());
    EXPECT_EQ(card->fields().at(0)->Name(), u"Id");
    for (const FieldDesign& field : form.fields)
      EXPECT_TRUE(card->fields().contains(field.field)) << toUtf8(field.field);
    for (const ListColumn& column : form.columns)
      EXPECT_TRUE(card->fields().contains(column.field)) << toUtf8(column.field);
  }
}

TEST_F(Forms, are_found_by_any_part_of_their_texts) {
  const HostForm& properties = hostForm(u"FichaInm");
  const auto found = [&](TextView wanted) {
    return database().OpenRecordset(searchQuery(properties, wanted))->RecordCount();
  };
  EXPECT_EQ(found(u""), 300);
  EXPECT_EQ(found(u"  "), 300);
  EXPECT_EQ(found(u"v-1001"), 1);
  EXPECT_GT(found(u"peñíscola"), 0);
  EXPECT_EQ(found(u"peniscola"), 0);
  EXPECT_GT(found(u"O'Donnell"), 0);
  EXPECT_EQ(found(u"*"), 0);
}

TEST_F(Forms, every_listing_form_has_its_lists_and_every_list_its_form) {
  for (const ListDesign& design : lists()) EXPECT_NO_THROW(hostForm(design.form)) << toUtf8(design.form);
}

TEST(Mnemonics, no_two_on_a_card_share_a_letter) {
  for (const HostForm& form : hostForms()) {
    // Menus and buttons that stand on every card.
    std::vector<Text> captions = {u"Arch&ivo", u"&Fichas",  u"A&yuda",           u"A&brir",
                                  u"Añadi&r",  u"&Guardar", u"Deshacer &cambios"};
    for (const FieldDesign& field : form.fields) captions.emplace_back(field.label);
    for (const ListDesign& design : lists())
      if (design.form == form.form) captions.emplace_back(design.caption);
    std::map<char16_t, Text> letters;
    for (const Text& caption : captions) {
      const auto mark = caption.find(u'&');
      if (mark == Text::npos) continue;
      const char16_t letter = lowerCase(caption.substr(mark + 1, 1))[0];
      EXPECT_TRUE(letters.emplace(letter, caption).second)
          << toUtf8(form.form) << ": " << toUtf8(caption) << " and " << toUtf8(letters[letter]);
    }
  }
}

}  // namespace ovalia::host
