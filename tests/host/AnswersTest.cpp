#include "host/Answers.h"

#include "host/AnnotationList.h"
#include "host/Contract.h"
#include "tests/host/WordProcessing.h"
#include "tests/kit/FakeObject.h"

namespace ovalia::host {

class Answers : public HostTest {
 protected:
  Answers() { list.open(1); }

  CNota& nota() { return list.nota(); }
  Text chosen(const Event<const Text&, Text&>& event, const Text& old) {
    Text answer;
    event(old, answer);
    return answer;
  }
  bool checked(const Event<const Text&, Text&, bool&>& event, const Text& name, Text& proposal) {
    bool ok = false;
    event(name, proposal, ok);
    return ok;
  }
  // What the check of several values makes of a control's text.
  bool checkedValues(Text& text, const Text& table, const Text& title) {
    auto control = std::make_shared<kit::FakeObject>();
    control->with(u"Text", text);
    bool ok = false;
    nota().ChkListadoMx(ok, control, table, title);
    text = control->property(u"Text").toText();
    return ok;
  }

  AnnotationList list{host::list(u"FichaInm", u"grdVisita"), workplace};
};

TEST_F(Answers, every_event_has_one) {
  const CNota& n = nota();
  const bool answered[] = {
      n.AbrirDoc.connected(),       n.NuevoDoc.connected(),        n.ImportarCorreos.connected(),
      n.ExportarNotas.connected(),  n.ExportarVisitas.connected(), n.PasaDatosaDoc.connected(),
      n.PasaDatosEMail.connected(), n.CargaRegistros.connected(),  n.CompletarNueva.connected(),
      n.VerAgencias.connected(),    n.ChkAgencias.connected(),     n.VerClientes.connected(),
      n.ChkClientes.connected(),    n.ChkListadoMx.connected(),    n.VerListadoMx.connected(),
      n.ChkTipoAccNota.connected(), n.VerMateria.connected(),      n.VerTMateria.connected(),
      n.VerUsuarios.connected()};
  EXPECT_EQ(std::size(answered), 19u);
  for (std::size_t i = 0; i < std::size(answered); ++i) EXPECT_TRUE(answered[i]) << "event " << i + 1;
}

TEST_F(Answers, properties_are_those_of_the_list) {
  const CNota& n = nota();
  EXPECT_EQ(n.Tipo, u"Visita");
  EXPECT_EQ(n.Nota, u"VisitaIP");
  EXPECT_EQ(n.IdPr, u"IdInm");
  EXPECT_EQ(n.DocuAsoc, u"DocuVisitaIP");
  EXPECT_EQ(n.TipoAccNota, u"TipoAccNota");
  EXPECT_EQ(n.Cabecera, u"Inmueble: ");
  EXPECT_EQ(n.cUsuario, u"Administrador");
  EXPECT_EQ(n.AppDirUser, fromUtf8(workplace.agency.documents.string()));
  EXPECT_TRUE(n.bPermitirCreacion);
  EXPECT_EQ(n.crs, list.recordset());
}

TEST_F(Answers, a_chosen_name_is_given_and_a_cancelled_choice_keeps_the_old_one) {
  dialogs.picks = {u"Castaño Ibáñez, Fermín"};
  EXPECT_EQ(chosen(nota().VerClientes, u"antes"), u"Castaño Ibáñez, Fermín");
  EXPECT_EQ(dialogs.offered.size(), 40u);
  EXPECT_EQ(dialogs.current, u"antes");
  EXPECT_EQ(chosen(nota().VerClientes, u"antes"), u"antes");
  dialogs.picks = {u"Fincas D'Ors"};
  EXPECT_EQ(chosen(nota().VerAgencias, u""), u"Fincas D'Ors");
  EXPECT_EQ(chosen(nota().VerAgencias, u"antes"), u"antes");
  dialogs.picks = {u"Óscar Güell"};
  EXPECT_EQ(chosen(nota().VerUsuarios, u""), u"Óscar Güell");
  EXPECT_EQ(chosen(nota().VerUsuarios, u"antes"), u"antes");
}

TEST_F(Answers, a_known_name_passes_in_any_case_and_with_its_quotes) {
  Text proposal;
  EXPECT_TRUE(checked(nota().ChkClientes, u"o'donnell, PATRICIA", proposal));
  EXPECT_TRUE(checked(nota().ChkAgencias, u"Levante | Hogar", proposal));
  EXPECT_TRUE(checked(nota().ChkClientes, u"", proposal));
  EXPECT_EQ(proposal, u"");
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(Answers, an_unknown_name_is_refused_with_the_nearest_one) {
  Text proposal;
  EXPECT_FALSE(checked(nota().ChkClientes, u"Odonell, Patricia", proposal));
  EXPECT_EQ(proposal, u"O'Donnell, Patricia");
  EXPECT_FALSE(checked(nota().ChkAgencias, u"inmobiliaria peniscola", proposal));
  EXPECT_EQ(proposal, u"Inmobiliaria Peñíscola");
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(Answers, a_name_like_no_other_is_refused_with_a_word_of_help) {
  Text proposal;
  EXPECT_FALSE(checked(nota().ChkClientes, u"Zzzz Xxxx Wwww Yyyy", proposal));
  EXPECT_EQ(proposal, u"");
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_NE(dialogs.told[0].find(u"«Zzzz Xxxx Wwww Yyyy» no está en la lista"), Text::npos);
}

TEST_F(Answers, several_values_are_chosen_at_once) {
  Text answer;
  dialogs.manyPicks = {{u"Llaves", u"Urgente"}};
  nota().VerListadoMx(answer, u"Precio", u"TipoCatNota", u"Categorías");
  EXPECT_EQ(answer, u"Llaves, Urgente");
  EXPECT_EQ(dialogs.offered.size(), 10u);
  nota().VerListadoMx(answer, u"Precio", u"TipoCatNota", u"Categorías");
  EXPECT_EQ(answer, u"Precio");
}

TEST_F(Answers, several_values_are_checked_and_rewritten_in_the_tables_spelling) {
  Text text = u" llaves ,URGENTE,, ";
  EXPECT_TRUE(checkedValues(text, u"TipoCatNota", u"Categorías"));
  EXPECT_EQ(text, u"Llaves, Urgente");
  text = u"";
  EXPECT_TRUE(checkedValues(text, u"TipoCatNota", u"Categorías"));
  EXPECT_EQ(text, u"");
}

TEST_F(Answers, an_unknown_value_is_replaced_by_the_nearest_or_named) {
  Text text = u"Llaves, Urjente";
  EXPECT_FALSE(checkedValues(text, u"TipoCatNota", u"Categorías"));
  EXPECT_EQ(text, u"Llaves, Urgente");
  EXPECT_TRUE(dialogs.told.empty());
  text = u"Portal web, Xyzzyxyzzy";
  EXPECT_FALSE(checkedValues(text, u"TipoMedioPubli", u"Medios de publicidad"));
  EXPECT_EQ(text, u"Portal web, Xyzzyxyzzy");
  EXPECT_EQ(dialogs.told.size(), 1u);
}

TEST_F(Answers, a_new_access_type_may_be_created) {
  bool ok = false;
  Text answer;
  dialogs.confirms = true;
  nota().ChkTipoAccNota(ok, u"Sólo peritos", answer);
  EXPECT_TRUE(ok);
  EXPECT_EQ(answer, u"Sólo peritos");
  EXPECT_EQ(one(u"SELECT Count(*) FROM TipoAccNota WHERE Nombre = 'Sólo peritos'").toLong(), 1);
}

TEST_F(Answers, an_access_type_may_be_chosen_instead_or_left_as_it_was) {
  bool ok = true;
  Text answer;
  nota().ChkTipoAccNota(ok, u"Publco", answer);
  EXPECT_FALSE(ok);
  EXPECT_EQ(answer, u"Publco");
  EXPECT_EQ(dialogs.current, u"Público");
  dialogs.picks = {u"Privado"};
  nota().ChkTipoAccNota(ok, u"Publco", answer);
  EXPECT_TRUE(ok);
  EXPECT_EQ(answer, u"Privado");
  EXPECT_EQ(one(u"SELECT Count(*) FROM TipoAccNota").toLong(), 5);
}

TEST_F(Answers, subjects_and_their_parts_are_chosen) {
  bool ok = false;
  Text answer;
  dialogs.picks = {u"Fiscal"};
  nota().VerMateria(ok, u"", answer);
  EXPECT_TRUE(ok);
  EXPECT_EQ(answer, u"Fiscal");
  dialogs.picks = {u"IVA"};
  nota().VerTMateria(ok, u"fiscal", u"", answer);
  EXPECT_TRUE(ok);
  EXPECT_EQ(dialogs.offered.size(), 3u);
  nota().VerTMateria(ok, u"", u"Herencias", answer);
  EXPECT_FALSE(ok);
  EXPECT_EQ(answer, u"Herencias");
  EXPECT_EQ(dialogs.offered.size(), 12u);
  nota().VerMateria(ok, u"Civil", answer);
  EXPECT_FALSE(ok);
  EXPECT_EQ(answer, u"Civil");
}

TEST_F(Answers, a_reload_brings_the_new_row_and_stays_where_it_was) {
  list.recordset()->MoveLast();
  const std::int32_t key = list.currentKey(), before = list.count();
  int changes = 0;
  list.changed = [&] { ++changes; };
  database().Execute(u"INSERT INTO VisitaIP (IdInm, IdUsuario) VALUES (1, 1)");
  Text kind = u"Visita", table = u"VisitaIP";
  nota().CargaRegistros(kind, table);
  EXPECT_EQ(list.count(), before + 1);
  EXPECT_EQ(list.currentKey(), key);
  EXPECT_EQ(changes, 1);
}

TEST_F(Answers, a_new_visit_takes_place_where_the_property_is) {
  list.visitPlace = [] { return Text(u"Calle Colón"); };
  Text kind = u"Visita";
  nota().CompletarNueva(kind, nota().crs);
  EXPECT_EQ(list.recordset()->value(u"Donde").toText(), u"Calle Colón");
  EXPECT_FALSE(list.recordset()->editing());
}

TEST_F(Answers, a_document_opens_in_the_systems_form_of_its_path) {
  Text document = u"\\srv\\agencia\\Doc0\\\\1F00.txt";
  nota().AbrirDoc(document);
  EXPECT_EQ(dialogs.opened, (std::vector<Text>{nativePath(document)}));
}

TEST_F(Answers, a_document_opens_as_what_the_card_calls_it_and_without_a_program_the_user_is_told) {
  database().Execute(
      u"INSERT INTO DocuVisitaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) "
      u"SELECT 1, 1, Max(IdVisita), 'Plano d''obra.jpeg', '1F900.doc' FROM VisitaIP");
  Text document = u"\\srv\\agencia\\Doc0\\1F900.doc", other = u"\\srv\\Plantillas\\carta.dot";
  nota().AbrirDoc(document);
  EXPECT_EQ(dialogs.openedAs, u"Plano d'obra.jpeg");
  nota().AbrirDoc(other);
  EXPECT_EQ(dialogs.openedAs, u"carta.dot");
  dialogs.opens = false;
  nota().AbrirDoc(document);
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_EQ(
      dialogs.told[0],
      u"Documento: No hay ningún programa para abrir «Plano d'obra.jpeg»: instale uno para esa clase de "
      u"documentos.\nEl fichero está en /srv/agencia/Doc0/1F900.doc.");
}

TEST_F(Answers, a_document_is_made_from_a_template_and_takes_the_marks) {
  folder.putFile("Plantillas/Carta.dot", "{\\rtf1 {\\*\\bkmkstart Asunto}x{\\*\\bkmkend Asunto}}");
  folder.putFolder("Doc0");
  Text document = folder.logic(u"Doc0\\1F00.doc"), model = folder.logic(u"Plantillas\\Carta.dot");
  ObjectRef word;
  nota().NuevoDoc(document, model, word);
  ASSERT_TRUE(word);
  const GivenMarks given{{0, {u"Asunto", u"Llaves"}}};
  Variant marks = given.names(), values = given.texts();
  nota().PasaDatosaDoc(marks, values, word);
  EXPECT_EQ(folder.content("Doc0/1F00.doc"),
            "{\\rtf1 {\\*\\bkmkstart Asunto}{\\uc1 Llaves}{\\*\\bkmkend Asunto}}");
  EXPECT_EQ(dialogs.opened.size(), 1u);
}

TEST_F(Answers, a_visit_is_exported_as_a_calendar_and_a_note_as_text) {
  dialogs.files = {{folder.logic(u"v.ics")}, {folder.logic(u"n.txt")}};
  nota().ExportarVisitas(list.currentKey());
  EXPECT_EQ(dialogs.question.name, u"visita.ics");
  EXPECT_TRUE(folder.content("v.ics").starts_with("BEGIN:VCALENDAR\r\n"));
  AnnotationList notes(host::list(u"FichaInm", u"grdNota"), workplace);
  notes.open(1);
  notes.nota().ExportarNotas(notes.currentKey());
  EXPECT_EQ(dialogs.question.name, u"nota.txt");
  EXPECT_TRUE(folder.content("n.txt").starts_with("Asunto: "));
}

TEST_F(Answers, nothing_is_exported_when_the_user_cancels) {
  nota().ExportarVisitas(list.currentKey());
  EXPECT_EQ(dialogs.question.title, u"Exportar visita");
}

TEST_F(Answers, a_mail_goes_out_with_the_marks_of_the_annotation) {
  const auto array = [](std::vector<Text> texts) {
    texts.resize(61);
    auto object = std::make_shared<MemberTable>();
    object->property(u"", [texts](Arguments a) -> Variant { return texts.at(std::size_t(a[0].toLong())); });
    return Variant(object);
  };
  Variant marks = array({u"Notas", u"Asunto"}), values = array({u"Se las llevo.", u"Llaves"});
  nota().PasaDatosEMail(marks, values);
  ASSERT_EQ(dialogs.mails.size(), 1u);
  EXPECT_EQ(dialogs.mails[0].subject, u"Llaves");
  EXPECT_EQ(dialogs.mails[0].body, u"Se las llevo.");
}

TEST_F(Answers, mails_are_no_visits) {
  nota().ImportarCorreos();
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_NE(dialogs.told[0].find(u"Los correos se importan como notas"), Text::npos);
}

}  // namespace ovalia::host
