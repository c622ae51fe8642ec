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
}

TEST(Filters, are_written_as_the_toolkit_wants_them) {
  EXPECT_EQ(toolkitFilter(u"Documentos (*.*)|*.*"), u"Documentos (*)");
  EXPECT_EQ(toolkitFilter(u"Texto (*.txt;*.md)|*.txt;*.md|Todo|*.*"), u"Texto (*.txt *.md);;Todo (*)");
}

TEST(Filters, that_leave_one_extension_give_it_to_a_name_without) {
  EXPECT_EQ(onlyExtension(u"Texto (*.txt)|*.txt|Todo|*.*"), u"txt");
  EXPECT_EQ(onlyExtension(u"Texto|*.txt;*.md"), u"");
  EXPECT_EQ(onlyExtension(u"Documentos (*.*)|*.*"), u"");
  EXPECT_EQ(onlyExtension(u""), u"");
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
