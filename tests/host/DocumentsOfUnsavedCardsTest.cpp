// Templates and models on cards that are new, changed or walked to, in the real windows.
#include "tests/host/TemplatesAtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::letters;
using deskkit::press;
using deskkit::types;
using testing::ElementsAre;
using testing::IsEmpty;

class DocumentsOfUnsavedCards : public TemplatesAtTheDesk {
 protected:
  std::int32_t notesOfProperty() {
    return one(u"SELECT COUNT(*) FROM NotaIP WHERE IdInm = " + toText(property)).toLong();
  }
  std::int32_t documentsOfAll() { return one(u"SELECT COUNT(*) FROM DocuNotaIP").toLong(); }
};

TEST_F(DocumentsOfUnsavedCards, a_changed_card_gets_its_document_at_once_and_saves_its_changes_after) {
  onKind(noteKind, {}, [&] {
    write(u"txtNotas", "Cambiado");
    attaching(choosing("Hoja del inmueble"));
    attachingModel();
    EXPECT_EQ(list().count(), 2);
    EXPECT_EQ(shown(u"txtNotas"), "Cambiado");
    EXPECT_EQ(stored(u"NotaIP", u"NArchivos", keyOf(noteKind)).toLong(), 2);
    EXPECT_EQ(stored(u"NotaIP", u"Notas", keyOf(noteKind)).text(), notes);
    letters("FG");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_EQ(list().count(), 2);
  });
  EXPECT_EQ(stored(u"NotaIP", u"Notas", keyOf(noteKind)).text(), u"Cambiado");
  EXPECT_EQ(stored(u"NotaIP", u"NArchivos", keyOf(noteKind)).toLong(), 2);
}

TEST_F(DocumentsOfUnsavedCards, undoing_the_changes_of_a_card_keeps_the_document_that_came_meanwhile) {
  onKind(noteKind, {}, [&] {
    write(u"txtNotas", "Cambiado");
    attaching(choosing("Hoja del inmueble"));
    letters("FD");
    EXPECT_EQ(shown(u"txtNotas"), desktop::toQt(notes).remove('\r'));
    EXPECT_THAT(listed(), ElementsAre("Hoja del inmueble.doc"));
  });
  EXPECT_EQ(documentsOf(noteKind), 1);
  EXPECT_EQ(stored(u"NotaIP", u"NArchivos", keyOf(noteKind)).toLong(), 1);
}

TEST_F(DocumentsOfUnsavedCards, a_new_card_has_documents_of_its_own_before_it_was_ever_saved) {
  const std::int32_t before = keyOf(noteKind);
  onKind(noteKind, {}, [&] {
    letters("FN");
    write(u"txtAsunto", "Recién empezada");
    attaching(choosing("Carta al propietario"));
    EXPECT_EQ(at("Asunto"), filledWith(u"Recién empezada"));
    attachingModel();
    EXPECT_EQ(list().count(), 2);
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    letters("FG");
    EXPECT_EQ(list().count(), 2);
  });
  ASSERT_NE(keyOf(noteKind), before);
  EXPECT_EQ(documentsOf(noteKind), 2);
  EXPECT_EQ(stored(u"NotaIP", u"NArchivos", keyOf(noteKind)).toLong(), 2);
  EXPECT_EQ(stored(u"NotaIP", u"NArchivos", before).toLong(), 0);
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM DocuNotaIP WHERE IdNota = " + toText(before)).toLong(), 0);
}

TEST_F(DocumentsOfUnsavedCards, a_new_card_that_is_undone_takes_its_document_along_after_a_question) {
  const std::int32_t before = documentsOfAll();
  onKind(noteKind, {}, [&] {
    letters("FN");
    write(u"txtAsunto", "Recién empezada");
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(notesOfProperty(), 2);
    asked(u"El documento adjunto se borrará.\r\n\r\n¿Desea continuar?", 36, u"Borrar", 6,
          [] { letters("S"); });
    letters("FD");
    EXPECT_EQ(shown(u"txtAsunto"), "Llaves de l'ático «B»");
    EXPECT_THAT(listed(), IsEmpty());
  });
  EXPECT_EQ(notesOfProperty(), 1);
  EXPECT_EQ(documentsOfAll(), before);
  EXPECT_EQ(QDir(home() + "/data/Trash/files").entryList(QDir::Files).size(), 1);
}

TEST_F(DocumentsOfUnsavedCards, what_is_printed_mailed_and_attached_is_of_the_card_that_was_walked_to) {
  database().Execute(u"INSERT INTO NotaIP (IdInm, IdUsuario, FechaAlta, Asunto) VALUES (" + toText(property) +
                     u", 1, #01/01/2020 10:00:00#, 'La otra')");
  const std::int32_t other = keyOf(noteKind);
  onKind(noteKind, {file("uno.pdf", "uno")}, [&] {
    letters("V");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    enter();
    ASSERT_EQ(shown(u"txtAsunto"), "La otra");
    printing(noteKind, choosing("Nota interna"));
    EXPECT_EQ(at("Asunto"), filledWith(u"La otra"));
    EXPECT_EQ(at("Adjunto"), "");
    letters("AE");
    EXPECT_EQ(keyed.mails.back().subject, u"La otra");
    EXPECT_TRUE(keyed.mails.back().attachments.empty());
    attachingModel();
    EXPECT_EQ(list().count(), 1);
  });
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM DocuNotaIP WHERE IdNota = " + toText(other)).toLong(), 1);
}

TEST_F(DocumentsOfUnsavedCards, a_template_that_goes_while_it_is_chosen_is_told_and_the_card_goes_on) {
  onKind(noteKind, {}, [&] {
    told(u"No existe la plantilla ", u"Plantilla");
    attaching([&] {
      std::filesystem::remove(place() / "Hoja del inmueble.dot");
      types("Hoja del inmueble");
      enter();
    });
    EXPECT_TRUE(keyed.opened.empty());
    attaching(choosing("Carta al propietario"));
    EXPECT_EQ(keyed.opened.size(), 1u);
    cardStillWorks(u"NotaIP", keyOf(noteKind));
  });
}

}  // namespace ovalia::host
