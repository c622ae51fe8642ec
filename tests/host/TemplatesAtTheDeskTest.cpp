// Documents from templates out of the card of each kind, in the real windows: chosen, filled, attached or
// shown, and what the user is told where a template is no good.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QComboBox>

#include "tests/host/TemplatesAtTheDesk.h"

namespace ovalia::host {

namespace fs = std::filesystem;

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::tab;
using deskkit::types;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Gives all that another one gives, but for one property.
class AllBut : public Object {
 public:
  AllBut(ObjectRef whole, TextView member, Variant instead)
      : whole_(std::move(whole)), member_(member), instead_(std::move(instead)) {}

  Variant get(TextView member, Arguments arguments) override {
    return sameName(member, member_) ? instead_ : whole_->get(member, arguments);
  }
  void put(TextView member, const Variant& value, Arguments arguments) override {
    whole_->put(member, value, arguments);
  }
  Variant call(TextView member, Arguments arguments) override { return whole_->call(member, arguments); }

 private:
  const ObjectRef whole_;
  const Text member_;
  const Variant instead_;
};

TEST_F(TemplatesAtTheDesk, a_card_of_each_kind_is_printed_with_what_stands_on_it_line_ends_and_accents) {
  struct Row {
    const char* model;
    std::vector<std::pair<const char*, TextView>> marks;
  };
  const Row printed[] = {
      {"Nota interna",
       {{"Asunto", u"Llaves de l'ático «B»"}, {"Categorias", u"Llaves"}, {"Referencia2", u"V-PEÑA"}}},
      {"Hoja de visita",
       {{"Cliente", u"O'Donnell «Pat», Señora"},
        {"Cliente2", u"O'Donnell «Pat», Señora"},
        {"Tfno1", u"963 555 777"},
        {"Tfno2", u"600 555 777"},
        {"Comienzo", u"09/03/26 - 17:00"},
        {"Fin", u"09/03/26 - 17:30"},
        {"Ubicaci\\'f3n", u"C/ Colón, 4"},
        {"Numero", u"12 - 3º B"},
        {"Precio", u"150.000"},
        {"Confirmada", u"Sí"}}},
      {"Orden de anuncio",
       {{"Asunto", u"Anuncio en Revista D'Hogar"},
        {"FechaInicio", u"10/03/26"},
        {"Dias", u"15"},
        {"Enviar", u"Sí"}}},
      {"Parte de llamada", {{"Asunto", u"Llamada por el anuncio"}, {"Fecha", u"08/03/26 - 10:30"}}}};
  for (std::size_t i = 0; i < std::size(kindsAtTheDesk); ++i) {
    const KindAtTheDesk& kind = kindsAtTheDesk[i];
    onKind(kind, {}, [&] {
      printing(kind, choosing(printed[i].model));
      EXPECT_EQ(keyed.openedAs, fromUtf8(printed[i].model) + u".rtf");
      for (const auto& [mark, text] : printed[i].marks) EXPECT_EQ(at(mark), filledWith(text)) << mark;
      EXPECT_EQ(at("Notas"), filledWith(notes));
      EXPECT_THAT(opened(), HasSubstr("\\line L'Eixample, 3.000 \\u8364?"));
      EXPECT_THAT(opened(), Not(HasSubstr("["))) << "every mark of the template was filled or emptied";
      EXPECT_FALSE(enabled(u"ID_Guardar"));
    });
  }
  EXPECT_EQ(keyed.opened.size(), 4u);
  for (const Text& path : keyed.opened)
    EXPECT_TRUE(path.starts_with(fromUtf8((folder.path() / "tmp").string()))) << toUtf8(path);
  EXPECT_THAT(filesIn(workplace.agency.documents / "Doc0"), testing::Each(Not(HasSubstr("Impreso"))));
}

TEST_F(TemplatesAtTheDesk, a_letter_is_attached_to_each_kind_that_keeps_documents_as_row_file_and_entry) {
  for (const KindAtTheDesk& kind : kindsAtTheDesk) {
    onKind(kind, {}, [&] {
      if (kind.documents.empty()) {
        EXPECT_FALSE(card().toolbars().tool(u"ID_mnuDocumentos")->Visible());
        return;
      }
      attaching(choosing("Carta al propietario"));
      EXPECT_THAT(listed(), ElementsAre("Carta al propietario.doc"));
      EXPECT_EQ(at("Propietario"), filledWith(u"Castaño Ibáñez, Fermín"));
      EXPECT_EQ(at("PropietarioTfno1"), filledWith(u"963 555 121"));
      EXPECT_EQ(at("PropietarioTfno2"), filledWith(u"600 555 121"));
      EXPECT_EQ(at("Precio"), filledWith(u"150.000"));
      EXPECT_EQ(at("PrecioPts"), filledWith(u"24.957.900"));
      EXPECT_EQ(at("Notas"), "") << "notes are for prints";
      const auto row = database().OpenRecordset(
          join(u"SELECT * FROM ", kind.documents, u" WHERE IdNota = ", keyOf(kind)), dao::dbOpenSnapshot);
      ASSERT_EQ(row->RecordCount(), 1);
      EXPECT_EQ(row->value(u"NombreOrg").text(), u"Carta al propietario.doc");
      EXPECT_EQ(row->value(u"Id").toLong(), property);
      EXPECT_TRUE(keyed.opened.back().ends_with(u"/" + row->value(u"NombreArch").text()));
      EXPECT_EQ(stored(kind.table, u"NArchivos", keyOf(kind)).toLong(), 1);
      tabTo(u"LsvDocu");
      press(Qt::Key_Down);
      const std::size_t before = keyed.opened.size();
      enter();
      EXPECT_EQ(keyed.opened.size(), before + 1) << "and it opens from the card";
    });
  }
}

TEST_F(TemplatesAtTheDesk, a_chooser_that_is_cancelled_makes_nothing) {
  onKind(noteKind, {}, [&] {
    attaching([] { escape(); });
    printing(noteKind, [] {
      types("nada de eso");
      auto& names = *QApplication::activeModalWidget()->findChild<QListWidget*>("lista");
      EXPECT_EQ(names.count(), 0);
      enter();
      EXPECT_TRUE(QApplication::activeModalWidget()->isVisible()) << "there is nothing to accept";
      letters("C");
      EXPECT_TRUE(
          deskkit::eventually([] { return QApplication::activeModalWidget() == deskkit::windowOf(card()); }));
    });
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_EQ(QApplication::activeModalWidget(), deskkit::windowOf(card()));
  });
  EXPECT_EQ(documentsOf(noteKind), 0);
  EXPECT_TRUE(keyed.opened.empty());
}

TEST_F(TemplatesAtTheDesk, without_templates_the_user_is_told_and_no_chooser_comes) {
  for (const auto& entry : fs::directory_iterator(place()))
    if (entry.path().extension() == ".dot") fs::remove(entry.path());
  fs::remove_all(place() / "Visita");
  onKind(noteKind, {}, [&] {
    asked(u"Plantillas inexistentes.", 64, u"Plantillas", 1, [] { enter(); });
    letters("DDP");
    printing(noteKind, [] { escape(); });
  });
  onKind(visitKind, {}, [&] {
    asked(u"Plantillas inexistentes.", 64, u"Plantillas", 1, [] { enter(); });
    letters(visitKind.print);
  });
}

TEST_F(TemplatesAtTheDesk, unsaved_texts_are_in_the_document_and_stay_unsaved_on_the_card) {
  onKind(noteKind, {}, [&] {
    write(u"txtAsunto", "Ahora: «Peña» {1} \\ 2");
    write(u"txtNotas", "uno\n\n\tdos");
    printing(noteKind, choosing("Nota interna"));
    EXPECT_EQ(at("Asunto"), filledWith(u"Ahora: «Peña» {1} \\ 2"));
    EXPECT_EQ(at("Notas"), filledWith(u"uno\r\n\r\n\tdos"));
    EXPECT_EQ(shown(u"txtAsunto"), "Ahora: «Peña» {1} \\ 2");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
  });
  EXPECT_EQ(stored(u"NotaIP", u"Asunto", keyOf(noteKind)).text(), u"Llaves de l'ático «B»");
}

TEST_F(TemplatesAtTheDesk, a_price_stands_grouped_whatever_it_is_and_one_that_is_missing_leaves_nothing) {
  const struct {
    TextView price, shown, pesetas;
  } prices[] = {{u"Null", u"", u""},
                {u"0", u"0", u"0"},
                {u"0.006", u"0", u"0"},
                {u"-1500.75", u"-1.501", u"-249.703"},
                {u"1000", u"1.000", u"166.386"},
                {u"900000000000", u"900.000.000.000", u"149.747.400.000.000"}};
  for (const auto& row : prices) {
    SCOPED_TRACE(toUtf8(row.price));
    database().Execute(join(u"UPDATE Inmueble SET Precio = ", row.price, u" WHERE IdInm = ", property));
    onKind(noteKind, {}, [&] {
      attaching(choosing("Hoja del inmueble"));
      EXPECT_EQ(at("Precio"), filledWith(row.shown));
      EXPECT_EQ(at("PrecioPts"), filledWith(row.pesetas));
      EXPECT_EQ(at("Referencia2"), filledWith(u"V-PEÑA"));
    });
  }
}

TEST_F(TemplatesAtTheDesk, a_property_without_owner_floor_or_number_leaves_their_marks_empty) {
  database().Execute(
      u"UPDATE Inmueble SET IdPropietario = Null, Numero = Null, Notas = Null, GastosComu = "
      u"Null WHERE IdInm = " +
      toText(property));
  onKind(noteKind, {}, [&] {
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(at("Numero"), filledWith(u" - 3º B"));
    for (const char* mark : {"Propietario", "PropietarioTfno1", "NotasInm", "Gastos"})
      EXPECT_EQ(at(mark), "") << mark;
  });
}

TEST_F(TemplatesAtTheDesk, an_owner_who_is_no_more_is_told_twice_and_the_document_is_made) {
  database().Execute(u"PRAGMA foreign_keys = 0");
  database().Execute(u"UPDATE Inmueble SET IdPropietario = 999999 WHERE IdInm = " + toText(property));
  onKind(noteKind, {}, [&] {
    asked(u"Error al buscar el cliente.", 0, u"", 1, [] { enter(); });
    asked(u"Error al buscar el Propietario.", 0, u"", 1, [] { enter(); });
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(at("Precio"), filledWith(u"150.000"));
    EXPECT_EQ(at("Propietario"), "");
    EXPECT_EQ(listed().size(), 1);
  });
}

TEST_F(TemplatesAtTheDesk, a_table_that_the_host_names_and_has_not_is_reported_and_the_rest_is_filled) {
  ListPane& visits = pane(u"grdVisita", property);
  const ObjectRef form = getMember(desk.frmBase, u"ActiveForm").toObject();
  const ObjectRef controller = getMember(form, u"vClase").toObject();
  const auto astray = std::make_shared<AllBut>(controller, u"tabla", u"NoExiste");
  const auto changed = std::make_shared<AllBut>(form, u"vClase", ObjectRef(astray));
  const ObjectRef frame =
      std::exchange(desk.frmBase, std::make_shared<AllBut>(desk.frmBase, u"ActiveForm", ObjectRef(changed)));
  onRow(visits, {}, [&] {
    expectReport(u"CompletarDatosAdicionales de CNota", dao::failure::unknownTable);
    prepared.add([] { letters("N"); });
    printing(visitKind, choosing("Hoja de visita"));
    EXPECT_EQ(at("Cliente"), filledWith(u"O'Donnell «Pat», Señora"));
    EXPECT_EQ(at("Tfno1"), filledWith(u"963 555 777"));
    EXPECT_EQ(at("Precio"), "");
    EXPECT_EQ(at("Referencia2"), "");
    cardStillWorks(u"VisitaIP", keyOf(visitKind));
  });
  desk.frmBase = frame;
}

TEST_F(TemplatesAtTheDesk, templates_without_marks_or_with_unknown_ones_are_taken_as_they_are) {
  putTemplate("Sin marcas.dot", rtf("Hola"));
  putTemplate("Ajena.dot", rtf(bookmark("Firma") + " de " + bookmark("Autor") + bookmark("_Toc1")));
  onKind(noteKind, {}, [&] {
    attaching(choosing("Sin marcas"));
    EXPECT_EQ(opened(), rtf("Hola"));
    attaching(choosing("Ajena"));
    EXPECT_EQ(at("Firma"), "[Firma]");
    EXPECT_EQ(at("_Toc1"), "[_Toc1]");
    EXPECT_EQ(at("Autor"), filledWith(desktop::fromQt(shown(u"cboUsuario"))));
    EXPECT_THAT(listed(), ElementsAre("Sin marcas.doc", "Ajena.doc"));
  });
}

TEST_F(TemplatesAtTheDesk, a_template_that_is_no_good_is_told_leaves_no_file_and_the_card_goes_on) {
  const std::pair<const char*, TextView> bad[] = {
      {"", u"La plantilla no es un documento RTF"},
      {"Querido cliente:", u"La plantilla no es un documento RTF"},
      {"{\\rtf1 {hola}", u"La plantilla está dañada: le falta el final"},
      {"{\\rtf1 {\\*\\bkmkstart Asunto}}", u"El marcador «Asunto» de la plantilla no tiene final"}};
  onKind(noteKind, {}, [&] {
    for (const auto& [content, message] : bad) {
      putTemplate("Mala.dot", content);
      putTemplate("Nota/Mala.dot", content);
      told(Text(message), u"Plantilla");
      attaching(choosing("Mala"));
      told(Text(message), u"Imprimir");
      printing(noteKind, choosing("Mala"));
    }
    EXPECT_TRUE(keyed.opened.empty());
    EXPECT_EQ(list().count(), 4) << "the row is written before there is a document";
    tabTo(u"LsvDocu");
    press(Qt::Key_Down);
    asked(u"El documento que intenta abrir no existe.", 64, u"Documento", 1, [] { enter(); });
    enter();
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(at("Precio"), filledWith(u"150.000"));
    EXPECT_EQ(list().count(), 5);
    cardStillWorks(u"NotaIP", keyOf(noteKind));
  });
  EXPECT_THAT(filesIn(folder.path() / "tmp"), IsEmpty());
}

TEST_F(TemplatesAtTheDesk,
       a_template_that_may_only_be_read_or_is_open_elsewhere_gives_a_document_to_write_in) {
  const fs::path model = place() / "Hoja del inmueble.dot";
  fs::permissions(model, fs::perms::owner_read);
  std::ofstream(place() / ".~lock.Hoja del inmueble.dot#") << "otro";
  const int open = ::open(model.c_str(), O_RDONLY);
  ASSERT_EQ(flock(open, LOCK_EX), 0);
  onKind(noteKind, {}, [&] {
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(at("Precio"), filledWith(u"150.000"));
    EXPECT_NE(fs::status(toUtf8(keyed.opened.back())).permissions() & fs::perms::owner_write,
              fs::perms::none);
  });
  ::close(open);
}

TEST_F(TemplatesAtTheDesk, a_desktop_without_a_program_for_it_is_told_where_the_document_is) {
  keyed.opens = false;
  onKind(noteKind, {}, [&] {
    told(u"El documento está hecho, pero no hay ningún programa para abrir ", u"Plantilla");
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(at("Precio"), filledWith(u"150.000"));
    told(u"No hay ningún programa para abrir ", u"Imprimir");
    printing(noteKind, choosing("Nota interna"));
  });
}

TEST_F(TemplatesAtTheDesk, the_chooser_is_walked_through_with_the_keyboard_and_remembers_the_last_choice) {
  onKind(noteKind, {}, [&] {
    printing(noteKind, [] {
      QWidget& dialog = *QApplication::activeModalWidget();
      EXPECT_EQ(dialog.focusWidget()->objectName(), "buscar");
      types("INTER");
      press(Qt::Key_A, Qt::ControlModifier);
      press(Qt::Key_Delete);
      auto& names = *dialog.findChild<QListWidget*>("lista");
      ASSERT_EQ(names.count(), 2);
      press(Qt::Key_Down);
      EXPECT_EQ(names.currentItem()->text(), "Nota interna");
      tab();
      EXPECT_EQ(dialog.focusWidget()->objectName(), "lista");
      letters("D");
      auto& where = dynamic_cast<QComboBox&>(*dialog.focusWidget());
      EXPECT_EQ(where.objectName(), "destino");
      EXPECT_EQ(where.currentText(), "Documento nuevo en pantalla");
      letters("I");
      EXPECT_TRUE(deskkit::eventually([&] { return QApplication::activeModalWidget() != &dialog; }));
    });
    ASSERT_EQ(keyed.opened.size(), 1u);
    printing(noteKind, [] {
      EXPECT_EQ(QApplication::activeModalWidget()->findChild<QListWidget*>("lista")->currentItem()->text(),
                "Nota interna");
      escape();
    });
    EXPECT_EQ(focused(), u"txtAsunto");
  });
}

}  // namespace ovalia::host
