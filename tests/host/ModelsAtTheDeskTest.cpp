// A document of a card that becomes a model, in the real windows.
#include <gmock/gmock.h>

#include <QLineEdit>

#include "tests/host/ModelsAtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::tab;
using deskkit::types;
using testing::ElementsAre;

class MakingModels : public ModelsAtTheDesk {
 protected:
  // On the first of those documents of a note.
  void onDocument(const QList<QUrl>& documents, const Keys& doing) {
    onNote(documents, [&] {
      select();
      doing();
    });
  }
  // Back from the first control, past no date: that would count as a change.
  static void select() {
    if (focused() != u"LsvDocu") tab(false);
    ASSERT_EQ(focused(), u"LsvDocu");
    press(Qt::Key_Down);
  }
  // In the form that makes a model of it.
  static void making(const Keys& keys) {
    onForm(u"frmModelo", keys, [] { letters("DC"); });
  }
  // A button by its letter does what it says after it was seen to go down.
  static void clicks(const char* letter, const std::function<bool()>& done) {
    letters(letter);
    EXPECT_TRUE(deskkit::eventually(done)) << letter;
  }
  static void accepts() {
    clicks("A", [] { return !isUp(u"frmModelo"); });
  }

  // Opens the agency's list for that box and plays in it.
  void fromList(TextView box, const char* title, const Keys& keys) {
    tabTo(box);
    prepared.add([=] {
      EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), title);
      keys();
    });
    enter(Qt::ShiftModifier);
    EXPECT_EQ(focused(), box);
  }
};

TEST_F(MakingModels, a_document_becomes_a_model_with_what_its_user_says_of_it) {
  onDocument({file("Contrato de Íñigo.doc", "contrato"), file("plano.pdf", "plano")}, [&] {
    setStatus(u"Otra cosa");
    making([&] {
      EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Crear Modelo");
      EXPECT_EQ(focused(), u"txtNombre");
      EXPECT_EQ(shown(u"txtNombre"), "Contrato de Íñigo.doc");
      types("Arras «Peña».doc");
      EXPECT_EQ(shown(u"txtNombre"), "Arras «Peña».doc") << "the name was selected";
      write(u"txtNotas", "Con señal.\nPara L'Eixample.");
      fromList(u"txtMateria", "Materia", [] { types("Civ"), enter(); });
      EXPECT_EQ(shown(u"txtMateria"), "Civil");
      bool offered = false;
      prepared.add([&] {
        auto* names = QApplication::activeModalWidget()->findChild<QListWidget*>();
        ASSERT_TRUE(names);
        EXPECT_EQ(names->count(), 3) << "those of the subject";
        types("Her"), enter();
        offered = true;
      });
      clicks("S", [&] { return offered; });
      EXPECT_EQ(shown(u"txtSubMateria"), "Herencias");
      accepts();
    });
    EXPECT_EQ(status(), u"Listo");
    EXPECT_EQ(QApplication::activeModalWidget(), deskkit::windowOf(card()));
    EXPECT_THAT(listed(), ElementsAre("Contrato de Íñigo.doc", "plano.pdf"));
    EXPECT_FALSE(enabled(u"ID_Guardar")) << "the card is as it was";
  });
  constexpr TextView name = u"Arras «Peña».doc";
  EXPECT_EQ(models(), 5);
  EXPECT_EQ(ofModel(name, u"Notas").text(), u"Con señal.\r\nPara L'Eixample.");
  EXPECT_EQ(one(u"SELECT Nombre FROM Materia WHERE IdMateria = " + ofModel(name, u"IdMateria").text()).text(),
            u"Civil");
  EXPECT_EQ(
      one(u"SELECT Nombre FROM TipoMateria WHERE IdTipoMateria = " + ofModel(name, u"IdTipoMateria").text())
          .text(),
      u"Herencias");
  EXPECT_EQ(content(name), "contrato");
  EXPECT_EQ(rows(), 2);
}

TEST_F(MakingModels, a_model_without_a_subject_or_of_an_unknown_one_has_none) {
  onDocument({file("uno.doc", "uno")}, [&] {
    making([] {
      types("Sin materia.doc");
      accepts();
    });
    making([] {
      types("Desconocida.doc");
      write(u"txtMateria", "L'Hospital");
      write(u"txtSubMateria", "IVA");
      accepts();
    });
  });
  EXPECT_TRUE(ofModel(u"Sin materia.doc", u"IdMateria").isNull());
  EXPECT_TRUE(ofModel(u"Sin materia.doc", u"IdTipoMateria").isNull());
  EXPECT_EQ(ofModel(u"Sin materia.doc", u"Notas").text(), u"");
  EXPECT_TRUE(ofModel(u"Desconocida.doc", u"IdMateria").isNull());
  EXPECT_EQ(ofModel(u"Desconocida.doc", u"IdTipoMateria").toLong(), 6) << "a part is looked for everywhere";
}

TEST_F(MakingModels, a_case_file_proposes_its_subject_and_its_part) {
  const std::int32_t key =
      one(u"SELECT Min(IdExpVivo) FROM ExpVivo WHERE IdMateria > 0 AND IdTipoMateria > 0").toLong();
  ListPane& notes = pane(u"grdNota", key, u"FichaExpV");
  database().Execute(u"INSERT INTO NotaExp (IdExpVivo, IdUsuario, Asunto, FechaAlta) VALUES (" + toText(key) +
                     u", 1, 'Nueva', #05/05/2031#)");
  notes.list().reload();
  notes.list().goTo(one(u"SELECT Max(IdNota) FROM NotaExp").toLong());
  notes.followList();
  onRow(notes, {file("poder.doc", "poder")}, [&] {
    select();
    making([&] {
      const Text from = u" FROM ExpVivo WHERE IdExpVivo = " + toText(key);
      EXPECT_NE(shown(u"txtMateria"), "");
      EXPECT_NE(shown(u"txtSubMateria"), "");
      accepts();
      EXPECT_EQ(ofModel(u"poder.doc", u"IdMateria").text(), one(u"SELECT IdMateria" + from).text());
      EXPECT_EQ(ofModel(u"poder.doc", u"IdTipoMateria").text(), one(u"SELECT IdTipoMateria" + from).text());
    });
  });
}

TEST_F(MakingModels, a_list_that_is_left_by_escape_changes_no_box) {
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      write(u"txtMateria", "algo");
      fromList(u"txtMateria", "Materia", [] { types("Civ"), escape(); });
      EXPECT_EQ(shown(u"txtMateria"), "algo");
      write(u"txtSubMateria", "Licencias");
      fromList(u"txtSubMateria", "Sub Materia", [] {
        EXPECT_EQ(QApplication::activeModalWidget()->findChild<QListWidget*>()->count(), 12)
            << "of all subjects, for the one in the box is none";
        escape();
      });
      EXPECT_EQ(shown(u"txtSubMateria"), "Licencias");
      escape();
    });
  });
  EXPECT_EQ(models(), 4);
}

TEST_F(MakingModels, a_form_that_is_cancelled_in_any_way_writes_nothing) {
  onDocument({file("uno.doc", "uno")}, [&] {
    const Keys ways[] = {[] { escape(); }, [] { clicks("C", [] { return !isUp(u"frmModelo"); }); },
                         [] {
                           tabTo(u"cmdCancelar");
                           press(Qt::Key_Space, Qt::NoModifier, " ");
                         },
                         [] { QApplication::activeModalWidget()->close(); }};
    for (const Keys& cancels : ways) {
      setStatus(u"Otra cosa");
      making([&] {
        types("Otro.doc");
        write(u"txtNotas", "Unas notas");
        cancels();
        EXPECT_TRUE(deskkit::eventually([] { return !isUp(u"frmModelo"); }));
      });
      EXPECT_EQ(status(), u"Listo");
      EXPECT_EQ(focused(), u"LsvDocu");
    }
    making([] {
      EXPECT_EQ(shown(u"txtNombre"), "uno.doc") << "nothing of the last time is left";
      EXPECT_EQ(shown(u"txtNotas"), "");
      escape();
    });
  });
  EXPECT_EQ(models(), 4);
  EXPECT_FALSE(isThere(u"Otro.doc"));
  EXPECT_FALSE(isThere(u"uno.doc"));
}

TEST_F(MakingModels, a_name_that_is_taken_is_refused_with_either_answer_until_another_is_given) {
  const std::string before = content(u"Encargo de venta.rtf");
  const auto refused = [&](int answer, const char* letter) {
    asked(join(u"Existe un modelo con dicho nombre.", CRLF, CRLF, u"Introduzca otro nombre."), 68, u"Modelo",
          answer, [=] { letters(letter); });
    enter();
    EXPECT_TRUE(isUp(u"frmModelo"));
    EXPECT_EQ(focused(), u"txtNombre");
  };
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      types("Encargo de venta.rtf");
      refused(6, "S");
      refused(7, "N");
      EXPECT_EQ(shown(u"txtNombre"), "Encargo de venta.rtf");
      EXPECT_EQ(models(), 4);
      write(u"txtNombre", "Encargo de compra.txt");
      enter();
      EXPECT_FALSE(isUp(u"frmModelo"));
    });
  });
  EXPECT_EQ(models(), 5);
  EXPECT_EQ(content(u"Encargo de venta.rtf"), before);
  EXPECT_EQ(content(u"Encargo de compra.txt"), "uno");
}

TEST_F(MakingModels, a_name_that_differs_in_case_alone_replaces_no_model) {
  const std::string before = content(u"Encargo de venta.rtf");
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      types("ENCARGO DE VENTA.RTF");
      expectReport(u"dlgModelo_Aceptar de CNota", failure::fileAlreadyExists);
      prepared.add([] { letters("N"); });
      enter();
      EXPECT_TRUE(isUp(u"frmModelo"));
      escape();
    });
  });
  EXPECT_EQ(models(), 4);
  EXPECT_EQ(content(u"Encargo de venta.rtf"), before);
}

TEST_F(MakingModels, signs_that_no_file_can_have_are_left_out_of_row_and_file_alike) {
  onDocument({file("uno.doc", "uno")}, [&] {
    making([] {
      types("¿A/B: \"L'Hospital\" <1>*?|\\.doc");
      accepts();
    });
  });
  EXPECT_EQ(modelsCalled(u"¿AB LHospital 1.doc"), 1);
  EXPECT_EQ(content(u"¿AB LHospital 1.doc"), "uno");
}

TEST_F(MakingModels, without_a_name_no_model_is_made_and_the_form_stays) {
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      types("???");
      expectReport(u"dlgModelo_Aceptar de CNota", failure::pathNotFound);
      prepared.add([] { letters("N"); });
      enter();
      EXPECT_TRUE(isUp(u"frmModelo"));
      write(u"txtNombre", "Con nombre.doc");
      accepts();
    });
  });
  EXPECT_EQ(models(), 5);
  EXPECT_EQ(content(u"Con nombre.doc"), "uno");
}

TEST_F(MakingModels, a_document_whose_file_is_gone_becomes_none) {
  onDocument({file("carta.doc", "uno")}, [&] {
    const Text name = one(u"SELECT NombreArch FROM DocuNotaIP WHERE IdNota = " + toText(note)).text();
    for (const auto& path : filesBelow(workplace.agency.documents))
      if (path.filename() == toUtf8(name)) std::filesystem::remove(path);
    setStatus(u"Otra cosa");
    asked(u"El documento adjunto (carta.doc) no existe.", 48, u"Modelo", 1, [] { enter(); });
    letters("DC");
    EXPECT_FALSE(isUp(u"frmModelo"));
    EXPECT_EQ(status(), u"Otra cosa");
    EXPECT_EQ(focused(), u"LsvDocu");
  });
  EXPECT_EQ(models(), 4);
}

TEST_F(MakingModels, the_command_waits_for_a_document_that_is_selected) {
  onNote({file("carta.doc", "uno")}, [&] {
    letters("D");
    EXPECT_FALSE(enabled(u"ID_CrearModelo"));
    letters("C");
    escape();
    escape();
    EXPECT_FALSE(isUp(u"frmModelo"));
    select();
    making([] { escape(); });
  });
}

TEST_F(MakingModels, the_place_of_the_models_is_made_after_a_question) {
  std::filesystem::remove_all(place());
  const Text folder = logicPath(fromUtf8(place().native())) + u"\\";
  const Text question = join(u"El directorio ", folder, u" no existe.", CRLF, CRLF, u"¿Desea crearlo?");
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      asked(question, 68, u"", 7, [] { letters("N"); });
      expectReport(u"dlgModelo_Aceptar de CNota", failure::pathNotFound);
      prepared.add([] { letters("N"); });
      enter();
      EXPECT_TRUE(isUp(u"frmModelo"));
      EXPECT_FALSE(std::filesystem::exists(place()));
      asked(question, 68, u"", 6, [] { letters("S"); });
      enter();
      EXPECT_FALSE(isUp(u"frmModelo"));
    });
  });
  EXPECT_EQ(models(), 5);
  EXPECT_EQ(content(u"uno.doc"), "uno");
}

TEST_F(MakingModels, a_row_that_cannot_be_written_leaves_the_form_open_the_file_there_and_its_name_taken) {
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      database().Execute(u"PRAGMA query_only = 1");
      expectReport(u"dlgModelo_Aceptar de CNota", dao::failure::readOnly);
      prepared.add([] { letters("N"); });
      enter();
      EXPECT_TRUE(isUp(u"frmModelo"));
      database().Execute(u"PRAGMA query_only = 0");
      EXPECT_EQ(content(u"uno.doc"), "uno");
      asked(join(u"Existe un modelo con dicho nombre.", CRLF, CRLF, u"Introduzca otro nombre."), 68,
            u"Modelo", 6, [] { enter(); });
      enter();
      types("Segundo intento.doc");
      accepts();
    });
  });
  EXPECT_EQ(modelsCalled(u"uno.doc"), 0);
  EXPECT_EQ(modelsCalled(u"Segundo intento.doc"), 1);
}

TEST_F(MakingModels, tab_goes_through_the_form_and_enter_in_the_notes_writes_a_line) {
  onDocument({file("uno.doc", "uno")}, [&] {
    making([&] {
      std::vector<std::string> order;
      for (int i = 0; i < 8; ++i, tab()) order.push_back(toUtf8(focused()));
      EXPECT_THAT(order, ElementsAre("txtNombre", "txtNotas", "cmdMateria", "txtMateria", "cmdSubMateria",
                                     "txtSubMateria", "cmdAceptar", "cmdCancelar"));
      EXPECT_EQ(focused(), u"txtNombre");
      auto* name = qobject_cast<QLineEdit*>(deskkit::inputOf(card(), u"txtNombre"));
      EXPECT_EQ(name->selectedText(), "uno.doc");
      tab();
      types("una\ndos");
      EXPECT_TRUE(isUp(u"frmModelo"));
      tab(false);
      enter();
      EXPECT_FALSE(isUp(u"frmModelo"));
    });
    EXPECT_EQ(focused(), u"LsvDocu");
  });
  EXPECT_EQ(ofModel(u"uno.doc", u"Notas").text(), u"una\r\ndos");
}

}  // namespace ovalia::host
