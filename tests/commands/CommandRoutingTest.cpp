#include "commands/CommandRouting.h"

#include <gtest/gtest.h>

#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

using kit::allKinds;

class CommandRouting : public kit::OpenCardTest {
 protected:
  void SetUp() override {
    OpenCardTest::SetUp();
    here.objects.add(u"Mosken.CMosken", [this] { return dialog; });
    dialog->giving(u"Mostrar", {});
  }

  forms::ListView& attachments() { return *form().as<forms::ListView>(u"LsvDocu"); }

  // Nothing that the card, the row or the host would show.
  void expectNoEffect() {
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(crs().updates, 0);
    EXPECT_EQ(crs().deletes, 0);
    EXPECT_TRUE(host.events.empty());
    EXPECT_TRUE(host.dlgfrmbase->journal.empty());
    EXPECT_TRUE(dialog->journal.empty());
    EXPECT_TRUE(form().Visible());
    EXPECT_TRUE(here.screen.pointers.empty());
  }

  std::shared_ptr<kit::FakeObject> dialog = std::make_shared<kit::FakeObject>();
};

constexpr TextView recordGroups[] = {u"Fichas", u"Ver", u"Ayuda"};

TEST_F(CommandRouting, an_unknown_group_or_id_does_nothing) {
  const std::pair<TextView, TextView> unknown[] = {
      {u"", u""},
      {u"Fichas", u""},
      {u"", u"ID_Guardar"},
      {u"fichas", u"ID_Guardar"},
      {u"Fichas", u"id_guardar"},
      {u"Fichas", u"ID_Guardar "},
      {u"Archivo", u"ID_Guardar"},
      {u"Documentos", u"ID_Guardar"},
      {u"Navegacion", u"ID_Guardar"},
      {u"ListView", u"ID_Siguiente"},
      {u"Fichas", u"ID_Siguiente"},
      {u"Orden", u"ID_Salir"},
      {u"Navegacion", u"ID_mnuOrden"},
  };
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      for (const auto& [group, id] : unknown) command(group, id);
      expectNoEffect();
    });
  }
}

TEST_F(CommandRouting, the_commands_that_are_known_and_empty_do_nothing) {
  std::vector<std::pair<TextView, TextView>> empty = {
      {u"Archivo", u"ID_DocumentosInexistentes"},
      {u"Archivo", u"ID_DocumentossinrelacionconExpedientes"},
      {u"Documentos", u"ID_ImprimirLsv"},
  };
  for (const TextView group : recordGroups)
    for (const TextView id : {u"ID_mnuFichas", u"ID_Seleccionar", u"ID_Contenido", u"ID_AcercadelPrograma"})
      empty.emplace_back(group, id);
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      for (const auto& [group, id] : empty) command(group, id);
      expectNoEffect();
    });
  }
}

TEST_F(CommandRouting, a_failing_command_is_reported_by_the_routing) {
  openOn(u"Nota", [&] {
    host.answers.ImportarCorreos = [] { throw Failure(failure::typeMismatch); };
    expectReport(u"dNota_Menu de CNota", failure::typeMismatch);
    command(u"Archivo", u"ID_ImportarCorreos");
  });
}

// "Archivo".

TEST_F(CommandRouting, mails_are_imported_by_the_host) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      command(u"Archivo", u"ID_ImportarCorreos");
      EXPECT_EQ(host.events, std::vector<Text>{u"ImportarCorreos()"});
    });
  }
}

TEST_F(CommandRouting, a_mail_and_the_exports_go_to_the_host) {
  const std::pair<TextView, TextView> commands[] = {{u"ID_EMail", u"PasaDatosEMail()"},
                                                    {u"ID_ExportarNotas", u"ExportarNotas(502)"},
                                                    {u"ID_ExportarVisita", u"ExportarVisitas(502)"}};
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      for (const auto& [id, event] : commands) {
        host.events.clear();
        command(u"Archivo", id);
        EXPECT_EQ(host.events, std::vector<Text>{Text(event)});
      }
    });
  }
}

TEST_F(CommandRouting, printing_looks_for_the_templates_of_the_kind_and_attaching_for_all) {
  for (const TextView kind : allKinds) {
    for (const bool printing : {true, false}) {
      openOn(kind, [&] {
        nota.AppDirUser = join(u"\\Datos\\", kind, printing);
        here.files.putFile(
            join(nota.AppDirUser, u"\\Plantillas\\", printing ? join(kind, u"\\") : Text(), u"Ficha.dot"));
        expectReport(printing ? u"ImprimirNota de CNota" : u"AdjuntarPlantilla de CNota",
                     failure::classCannotBeCreated);
        command(u"Archivo", printing ? u"ID_Imprimir" : u"");
        command(u"Documentos", printing ? u"" : u"ID_Plantilla");
      });
    }
  }
}

TEST_F(CommandRouting, the_printer_is_chosen_in_the_hosts_dialog) {
  openOn(u"Nota", [&] {
    command(u"Archivo", u"ID_Impresora");
    EXPECT_EQ(host.dlgfrmbase->journal, std::vector<Text>{u"ShowPrinter()"});
  });
}

TEST_F(CommandRouting, a_cancelled_printer_dialog_is_reported) {
  openOn(u"Nota", [&] {
    host.dlgfrmbase->failing(u"ShowPrinter", failure::dialogCancelled);
    expectReport(u"dNota_Menu de CNota", failure::dialogCancelled);
    command(u"Archivo", u"ID_Impresora");
  });
}

TEST_F(CommandRouting, without_a_main_form_there_is_no_printer_dialog) {
  openOn(u"Nota", [&] {
    const auto held = std::exchange(nota.frmBase, nullptr);
    expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
    command(u"Archivo", u"ID_Impresora");
    nota.frmBase = held;
  });
}

TEST_F(CommandRouting, what_needs_the_screens_form_is_reported_without_one) {
  openOn(u"Nota", [&] {
    here.screen.activeFormOf = [] { return ObjectRef(); };
    const std::pair<TextView, TextView> commands[] = {{u"Archivo", u"ID_Salir"},
                                                      {u"Documentos", u"ID_CrearModelo"},
                                                      {u"ListView", u"ID_IconosGrandes"},
                                                      {u"ListView", u"ID_IconosPequenios"},
                                                      {u"ListView", u"ID_Lista"}};
    for (const auto& [group, id] : commands) {
      expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
      command(group, id);
      EXPECT_TRUE(form().Visible());
    }
  });
}

TEST_F(CommandRouting, what_needs_a_card_is_reported_without_one) {
  const std::pair<TextView, TextView> commands[] = {{u"Documentos", u"ID_Quitar"},
                                                    {u"ListView", u"ID_mnuLsv"}};
  for (const auto& [group, id] : commands) {
    expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
    dNota_Menu(instance, group, id);
  }
}

// "Fichas", "Ver", "Ayuda".

TEST_F(CommandRouting, saving_asks_no_question) {
  for (const TextView kind : allKinds) {
    for (const TextView group : recordGroups) {
      openOn(kind, [&] {
        change({{u"txtNotas", u"Nuevo texto"}});
        command(group, u"ID_Guardar");
        EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
        EXPECT_EQ(state(), limpia);
      });
    }
  }
}

TEST_F(CommandRouting, undoing_shows_the_record_again) {
  for (const TextView group : recordGroups) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      command(group, u"ID_DeshacerCambios");
      EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(CommandRouting, searching_opens_the_dialog) {
  for (const TextView group : recordGroups) {
    openOn(u"Nota", [&] {
      dialog->journal.clear();
      command(group, u"ID_Buscar");
      EXPECT_EQ(host.calls(*dialog, u"Mostrar"), 1);
    });
  }
}

TEST_F(CommandRouting, adding_asks_about_changes_first) {
  for (const TextView group : recordGroups) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", cancel);
      command(group, u"ID_Aniadir");
      EXPECT_EQ(state(), modificada);
      EXPECT_TRUE(database->executed.empty());
    });
  }
}

TEST_F(CommandRouting, a_tool_that_is_disabled_is_not_stopped_here) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    form().toolbars().tool(u"ID_Guardar")->setEnabled(false);
    command(u"Fichas", u"ID_Guardar");
    EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
  });
}

// "Navegacion", "Orden".

TEST_F(CommandRouting, the_moves_are_reached_through_both_groups) {
  struct {
    TextView id;
    std::int32_t target;
  } const moves[] = {
      {u"ID_Primero", 501}, {u"ID_Anterior", 502}, {u"ID_Siguiente", 504}, {u"ID_Ultimo", 505}};
  for (const TextView kind : allKinds) {
    for (const TextView group : {u"Navegacion", u"Orden"}) {
      for (const auto& move : moves) {
        listOf(kind, 5);
        open(3, [&] {
          command(group, move.id);
          EXPECT_EQ(standsOn(), move.target);
        });
      }
    }
  }
}

// "Documentos".

TEST_F(CommandRouting, opening_the_document_menus_refreshes_their_tools) {
  const struct {
    TextView group, id;
  } menus[] = {{u"Documentos", u"ID_mnuDocumentos"}, {u"ListView", u"ID_mnuLsvEnDoc"}};
  for (const TextView kind : allKinds) {
    for (const auto& menu : menus) {
      openOn(kind, [&] {
        attachments().Add({u"120F00.doc", u"Contrato.doc", u"doc"});
        attachments().select(1);
        attachments().setVisible(true);
        ASSERT_TRUE(user.enters(u"LsvDocu"));
        for (const TextView tool : {u"ID_Abrir", u"ID_Pegar"})
          form().toolbars().tool(tool)->setEnabled(false);
        here.clipboard.holdsFiles = true;
        command(menu.group, menu.id);
        EXPECT_TRUE(enabled(u"ID_Abrir"));
        EXPECT_TRUE(enabled(u"ID_Pegar"));
      });
    }
  }
}

TEST_F(CommandRouting, deleting_or_modelling_an_attachment_without_a_selection_is_reported) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      attachments().Add({u"120F00.doc", u"Contrato.doc", u"doc"});
      for (const TextView id : {u"ID_Quitar", u"ID_CrearModelo"}) {
        expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
        command(u"Documentos", id);
      }
    });
  }
}

TEST_F(CommandRouting, a_model_is_made_of_the_list_of_the_screens_form_and_a_deletion_of_the_cards) {
  openOn(u"Nota", [&] {
    const auto other = kit::named(u"Otra");
    here.screen.activeFormOf = [&]() -> ObjectRef { return other; };
    here.files.putFolder(u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0");
    attachments().Add({u"120F00.doc", u"Contrato.doc", u"doc"});
    attachments().select(1);
    command(u"Documentos", u"ID_Quitar");
    EXPECT_TRUE(other->reads.empty());
    expectReport(u"dNota_Menu de CNota", failure::noSuchMember);
    command(u"Documentos", u"ID_CrearModelo");
    EXPECT_EQ(other->reads.front(), u"LsvDocu");
  });
}

TEST_F(CommandRouting, a_model_is_made_of_the_attachment_selected_on_the_screens_form) {
  for (const TextView kind : {u"Nota", u"Visita", u"Anuncio"}) {  // a call keeps no documents here
    openOn(kind, [&] {
      here.files.putFolder(u"\\Datos\\Agencia");
      at(2, u"NArchivos") = 2;
      attachments().Add({u"120F00.doc", u"Contrato.doc", u"doc"});
      attachments().Add({u"120F01.pdf", u"Plano.pdf", u"win"});
      attachments().select(2);
      expectBox(u"El documento adjunto (Plano.pdf) no existe.", 48, u"Modelo");
      command(u"Documentos", u"ID_CrearModelo");

      const auto other = kit::named(u"Otra"), itsList = kit::named(u"LsvDocu"), itsItem = kit::named(u"");
      itsItem->with(u"Key", u"77F00.doc").with(u"Text", u"Otro.doc");
      itsList->with(u"SelectedItem", itsItem);
      other->with(u"LsvDocu", itsList);
      const auto shown = std::exchange(here.screen.activeFormOf, [&]() -> ObjectRef { return other; });
      expectBox(u"El documento adjunto (Otro.doc) no existe.", 48, u"Modelo");
      command(u"Documentos", u"ID_CrearModelo");
      here.screen.activeFormOf = shown;
    });
  }
}

// "ListView".

TEST_F(CommandRouting, the_view_of_the_list_is_chosen) {
  struct {
    TextView id;
    int view;
  } const views[] = {{u"ID_IconosPequenios", 1}, {u"ID_Lista", 2}, {u"ID_IconosGrandes", 0}};
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      for (const auto& expected : views) {
        command(u"ListView", expected.id);
        EXPECT_EQ(attachments().View(), expected.view);
      }
    });
  }
}

TEST_F(CommandRouting, the_view_is_that_of_the_screens_form) {
  openOn(u"Nota", [&] {
    const auto other = kit::named(u"Otra"), itsList = kit::named(u"LsvDocu");
    other->with(u"LsvDocu", itsList);
    here.screen.activeFormOf = [&]() -> ObjectRef { return other; };
    command(u"ListView", u"ID_Lista");
    EXPECT_EQ(itsList->journal, std::vector<Text>{u"View = 2"});
    EXPECT_EQ(attachments().View(), 0);
  });
}

TEST_F(CommandRouting, the_lists_own_menu_refreshes_pasting_alone) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      form().toolbars().tool(u"ID_Abrir")->setEnabled(true);
      for (const bool files : {true, false}) {
        here.clipboard.holdsFiles = files;
        command(u"ListView", u"ID_mnuLsv");
        EXPECT_EQ(enabled(u"ID_Pegar"), files);
        EXPECT_TRUE(enabled(u"ID_Abrir"));
      }
    });
  }
}

TEST_F(CommandRouting, a_clipboard_that_fails_leaves_pasting_as_it_was) {
  openOn(u"Nota", [&] {
    for (const bool before : {true, false}) {
      form().toolbars().tool(u"ID_Pegar")->setEnabled(before);
      here.faults.failNext("Clipboard.has", failure::internalError);
      expectReport(u"dNota_Menu de CNota", failure::internalError);
      command(u"ListView", u"ID_mnuLsv");
      EXPECT_EQ(enabled(u"ID_Pegar"), before);
    }
  });
}

TEST_F(CommandRouting, a_right_click_beside_the_items_refreshes_pasting_before_its_menu_shows) {
  openOn(u"Nota", [&] {
    here.clipboard.holdsFiles = true;
    form().toolbars().tool(u"ID_Pegar")->setEnabled(false);
    attachments().setVisible(true);
    user.rightClicksItem(0);
    EXPECT_TRUE(enabled(u"ID_Pegar"));
    ASSERT_EQ(desk.popups.size(), 1u);
    EXPECT_EQ(desk.popups[0].menu, u"ID_mnuLsv");
  });
}

TEST_F(CommandRouting, a_right_click_on_an_item_enables_what_can_be_done_with_it) {
  openOn(u"Nota", [&] {
    attachments().Add({u"120F00.doc", u"Contrato.doc", u"doc"});
    form().toolbars().tool(u"ID_Abrir")->setEnabled(false);
    attachments().setVisible(true);
    user.rightClicksItem(1);
    EXPECT_TRUE(enabled(u"ID_Abrir"));
    ASSERT_EQ(desk.popups.size(), 1u);
    EXPECT_EQ(desk.popups[0].menu, u"ID_mnuLsvEnDoc");
  });
}

}  // namespace
}  // namespace ovalia
