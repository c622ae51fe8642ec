#include "commands/ToolState.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

using kit::allKinds;
using Ids = std::vector<Text>;

const Ids moveTools = {u"ID_Primero", u"ID_Anterior", u"ID_Siguiente", u"ID_Ultimo"};
const Ids savingTools = {u"ID_Guardar", u"ID_DeshacerCambios"};
const Ids attachmentTools = {u"ID_Abrir", u"ID_Quitar", u"ID_CrearModelo", u"ID_Copiar"};
const Ids recordTools = {u"ID_Imprimir",        u"ID_Aniadir", u"ID_Borrar",  u"ID_Guardar",
                         u"ID_DeshacerCambios", u"ID_Buscar",  u"ID_Primero", u"ID_Anterior",
                         u"ID_Siguiente",       u"ID_Ultimo"};

class ToolState : public kit::OpenCardTest {
 protected:
  void setAll(bool on) {
    for (const auto& tool : form().toolbars().tools()) tool->setEnabled(on);
  }

  // The tools that stand other than all were set to.
  Ids changedFrom(bool on) {
    Ids ids;
    for (const auto& tool : form().toolbars().tools())
      if (tool->Enabled() != on) ids.push_back(tool->id);
    std::ranges::sort(ids);
    return ids;
  }

  static Ids sorted(Ids ids) {
    std::ranges::sort(ids);
    return ids;
  }

  Ids enabledMoves() {
    Ids ids;
    for (const Text& id : moveTools)
      if (enabled(id)) ids.push_back(id);
    return ids;
  }

  static Ids without(Ids ids, const Ids& unwanted) {
    std::erase_if(ids, [&](const Text& id) { return std::ranges::find(unwanted, id) != unwanted.end(); });
    return ids;
  }
};

// The record tools.

TEST_F(ToolState, saved_data_enable_the_record_tools_and_disable_saving) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      setAll(false);
      DatosGuardados(instance, true);
      EXPECT_EQ(changedFrom(false), sorted(without(recordTools, savingTools)));
      setAll(true);
      DatosGuardados(instance, true);
      EXPECT_EQ(changedFrom(true), sorted(savingTools));
    });
  }
}

TEST_F(ToolState, without_saved_data_every_record_tool_is_disabled) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      setAll(true);
      DatosGuardados(instance, false);
      EXPECT_EQ(changedFrom(true), sorted(recordTools));
      setAll(false);
      DatosGuardados(instance, false);
      EXPECT_TRUE(changedFrom(false).empty());
    });
  }
}

TEST_F(ToolState, the_record_tools_are_set_in_their_order) {
  openOn(u"Nota", [&] {
    setAll(true);
    desk.tools.clear();
    DatosGuardados(instance, false);
    EXPECT_EQ(desk.tools, recordTools);
  });
}

TEST_F(ToolState, while_creation_is_forbidden_the_new_annotation_tool_keeps_its_state) {
  openOn(u"Nota", [&] {
    nota.bPermitirCreacion = false;
    for (const bool before : {false, true}) {
      for (const bool active : {false, true}) {
        form().toolbars().tool(u"ID_Aniadir")->setEnabled(before);
        DatosGuardados(instance, active);
        EXPECT_EQ(enabled(u"ID_Aniadir"), before);
      }
    }
  });
}

TEST_F(ToolState, without_a_card_each_is_reported) {
  expectReport(u"DatosGuardados de CNota", failure::objectNotSet);
  DatosGuardados(instance, true);
  expectReport(u"CambiarMenuNotas de CNota", failure::objectNotSet);
  CambiarMenuNotas(instance);
  expectReport(u"CambiarMenu de CNota", failure::objectNotSet);
  CambiarMenu(instance, u"", 0, u"");
  expectReport(u"DatosGuardados de CNota", failure::objectNotSet);
  expectReport(u"CambiarMenu de CNota", failure::objectNotSet);
  CambiarMenu(instance, u"Guardar", 0, u"");
}

// After an action.

TEST_F(ToolState, an_action_on_saved_data_enables_the_record_tools) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      for (const TextView action :
           {u"OrdenAscendente", u"OrdenDescendente", u"Guardar", u"Borrar", u"Lista"}) {
        setAll(false);
        CambiarMenu(instance, action, limpia, u"");
        EXPECT_EQ(changedFrom(false), sorted(without(recordTools, savingTools))) << toUtf8(action);
      }
    });
  }
}

TEST_F(ToolState, nothing_left_disables_the_record_tools) {
  openOn(u"Nota", [&] {
    setAll(true);
    CambiarMenu(instance, u"Nada", limpia, u"");
    EXPECT_EQ(changedFrom(true), sorted(without(recordTools, moveTools)));
  });
}

TEST_F(ToolState, any_other_action_leaves_the_record_tools) {
  openOn(u"Nota", [&] {
    for (const TextView action : {u"", u"NuevoDato", u"guardar", u"Orden"}) {
      setAll(true);
      CambiarMenu(instance, action, limpia, u"");
      EXPECT_EQ(changedFrom(true), sorted(savingTools)) << toUtf8(action);
    }
  });
}

TEST_F(ToolState, a_card_has_no_order_menu_so_that_action_is_reported_and_ends_there) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      for (const std::int32_t estado : {limpia, modificada}) {
        setAll(false);
        form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
        expectReport(u"CambiarMenu de CNota", failure::elementNotFound);
        CambiarMenu(instance, u"Ficha", estado, u"");
        EXPECT_EQ(changedFrom(false), sorted(without(recordTools, savingTools)));
      }
    });
  }
}

// By the state of the card.

TEST_F(ToolState, the_saving_tools_follow_the_state) {
  struct {
    std::int32_t estado;
    bool before, after;
  } const cases[] = {
      {0, true, false}, {0, false, false}, {1, false, true},  {1, true, true}, {2, false, true},
      {2, true, true},  {3, true, true},   {3, false, false}, {4, true, true}, {-1, false, false},
  };
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      for (const auto& expected : cases) {
        setAll(expected.before);
        CambiarMenu(instance, u"", expected.estado, u"");
        for (const Text& id : savingTools) EXPECT_EQ(enabled(id), expected.after) << expected.estado;
      }
    });
  }
}

TEST_F(ToolState, unsaved_data_keep_the_saving_tools_on_whatever_the_action_turned_off) {
  openOn(u"Nota", [&] {
    for (const std::int32_t estado : {nueva, modificada}) {
      for (const TextView action : {u"Guardar", u"Nada"}) {
        setAll(true);
        CambiarMenu(instance, action, estado, u"");
        for (const Text& id : savingTools) EXPECT_TRUE(enabled(id));
      }
    }
  });
}

TEST_F(ToolState, with_nothing_left_and_unsaved_data_only_saving_is_on_of_that_block) {
  listOf(u"Nota", 1);
  open(1, [&] {
    setAll(true);
    CambiarMenu(instance, u"Nada", modificada, u"");
    EXPECT_EQ(changedFrom(true), sorted(without(recordTools, savingTools)));
  });
}

// By the place in the list.

TEST_F(ToolState, the_moves_follow_the_place_in_the_list) {
  const Ids back = {u"ID_Primero", u"ID_Anterior"}, forward = {u"ID_Siguiente", u"ID_Ultimo"};
  struct {
    int count, row;
    Ids on;
  } const cases[] = {{1, 1, {}},      {2, 1, forward},   {2, 2, back},
                     {3, 1, forward}, {3, 2, moveTools}, {3, 3, back}};
  for (const TextView kind : allKinds) {
    for (const auto& expected : cases) {
      listOf(kind, expected.count);
      open(expected.row, [&] {
        for (const bool before : {false, true}) {
          setAll(before);
          CambiarMenu(instance, u"", limpia, u"");
          EXPECT_EQ(enabledMoves(), expected.on) << expected.row << " of " << expected.count;
        }
      });
    }
  }
}

TEST_F(ToolState, without_a_current_row_no_move_is_possible) {
  openOn(u"Nota", [&] {
    const std::function<void()> losses[] = {
        [&] { crs().MoveLast(), crs().MoveNext(); },
        [&] { crs().MoveFirst(), crs().MovePrevious(); },
        [&] { crs().MoveFirst(), crs().Delete(); },
        [&] { list->rows.clear(), crs().Requery(); },
    };
    for (const auto& lose : losses) {
      lose();
      setAll(true);
      CambiarMenu(instance, u"Guardar", limpia, u"");
      EXPECT_TRUE(enabledMoves().empty());
      EXPECT_TRUE(enabled(u"ID_Imprimir"));
    }
  });
}

TEST_F(ToolState, without_a_list_the_place_is_reported_after_the_other_two_steps) {
  openOn(u"Nota", [&] {
    const auto held = std::exchange(nota.crs, nullptr);
    setAll(false);
    expectReport(u"CambiarMenu de CNota", failure::objectNotSet);
    CambiarMenu(instance, u"Guardar", modificada, u"");
    EXPECT_EQ(changedFrom(false), sorted(recordTools));
    nota.crs = held;
  });
}

TEST_F(ToolState, a_place_that_cannot_be_told_leaves_the_moves_as_the_action_set_them) {
  for (const char* operation : {"Recordset.AbsolutePosition", "Recordset.RecordCount"}) {
    for (const TextView action : {u"Guardar", u"Nada", u""}) {
      listOf(u"Nota", 1);
      open(1, [&] {
        setAll(true);
        here.faults.failNext(operation, dao::failure::locked);
        expectReport(u"CambiarMenu de CNota", dao::failure::locked);
        CambiarMenu(instance, action, modificada, u"");
        EXPECT_EQ(enabledMoves(), action == u"Nada" ? Ids{} : moveTools) << operation;
        for (const Text& id : savingTools) EXPECT_TRUE(enabled(id));
      });
    }
  }
}

TEST_F(ToolState, the_last_argument_is_not_read) {
  openOn(u"Nota", [&] {
    setAll(true);
    CambiarMenu(instance, u"", limpia, u"Nada");
    EXPECT_EQ(changedFrom(true), sorted(savingTools));
  });
}

TEST_F(ToolState, an_opened_card_has_its_tools_by_its_place_and_creation_as_allowed) {
  for (const bool allowed : {false, true}) {
    nota.bPermitirCreacion = allowed;
    openOn(u"Nota", [&] {
      EXPECT_EQ(enabledMoves(), moveTools);
      for (const Text& id : savingTools) EXPECT_FALSE(enabled(id));
      EXPECT_EQ(enabled(u"ID_Aniadir"), allowed);
    });
  }
}

// The document tools.

class DocumentTools : public ToolState {
 protected:
  void fillList() {
    const auto attachments = form().as<forms::ListView>(u"LsvDocu");
    attachments->Add({u"120F00.doc", u"Contrato.doc", u"doc"});
    attachments->Add({u"120F01.pdf", u"Plano.pdf", u"win"});
  }

  void enterList() {
    control(u"LsvDocu").setVisible(true);
    ASSERT_TRUE(user.enters(u"LsvDocu"));
  }
};

TEST_F(DocumentTools, follow_the_selection_while_the_list_has_the_focus) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      fillList();
      form().as<forms::ListView>(u"LsvDocu")->select(2);
      enterList();
      setAll(false);
      CambiarMenuNotas(instance);
      EXPECT_EQ(changedFrom(false), sorted(attachmentTools));
    });
  }
}

TEST_F(DocumentTools, are_off_while_the_list_does_not_have_the_focus) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      fillList();
      form().as<forms::ListView>(u"LsvDocu")->select(1);
      setAll(true);
      here.clipboard.holdsFiles = true;
      CambiarMenuNotas(instance);
      EXPECT_EQ(changedFrom(true), sorted(attachmentTools));
    });
  }
}

TEST_F(DocumentTools, are_off_while_nothing_is_selected) {
  openOn(u"Nota", [&] {
    for (const bool filled : {false, true}) {
      if (filled) fillList();
      enterList();
      setAll(true);
      here.clipboard.holdsFiles = true;
      CambiarMenuNotas(instance);
      EXPECT_EQ(changedFrom(true), sorted(attachmentTools));
    }
  });
}

TEST_F(DocumentTools, pasting_follows_the_clipboard_whatever_is_selected) {
  openOn(u"Nota", [&] {
    for (const bool files : {true, false}) {
      here.clipboard.holdsFiles = files;
      here.clipboard.holdsBitmap = !files;
      CambiarMenuNotas(instance);
      EXPECT_EQ(enabled(u"ID_Pegar"), files);
    }
  });
}

TEST_F(DocumentTools, a_clipboard_that_fails_is_reported_after_the_others) {
  openOn(u"Nota", [&] {
    setAll(true);
    here.faults.failNext("Clipboard.has", failure::internalError);
    expectReport(u"CambiarMenuNotas de CNota", failure::internalError);
    CambiarMenuNotas(instance);
    EXPECT_EQ(changedFrom(true), sorted(attachmentTools));
  });
}

}  // namespace
}  // namespace ovalia
