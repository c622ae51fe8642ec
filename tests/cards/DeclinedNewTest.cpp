#include <gtest/gtest.h>

#include "cards/Navigation.h"
#include "cards/NewAnnotation.h"
#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

// A new annotation that its user does not want to keep, in whichever way its card is left.
class DeclinedNew : public kit::NewRows {
 protected:
  static constexpr int no = 7;

  void expectQuestion() { expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", no); }

  // Opens a card on a row of a list of such a length and counts it as a new annotation's.
  void onNew(int rows, int row, const std::function<void()>& script) {
    givenList(u"Nota", std::vector<kit::Fields>(static_cast<std::size_t>(rows)));
    standOn(row);
    openCard([&] {
      ASSERT_TRUE(user.enters(u"txtNotas"));
      instance.EstadoFicha = nueva;
      script();
    });
  }
  // A list that takes new rows and finds them by their moment, others by their key.
  void givenNewAndOldRows() {
    givenNewRows(u"Nota");
    auto& rows = dynamic_cast<kit::FakeRecordset&>(*nota.crs);
    rows.matcher = [byMoment = rows.matcher](TextView criterion, const kit::FakeRow& row) {
      if (!criterion.starts_with(u"IdAnota = ")) return byMoment(criterion, row);
      return row.values[0].text() == criterion.substr(TextView(u"IdAnota = ").size());
    };
  }
  std::int32_t standsOn() const { return nota.crs->value(u"IdAnota").toLong(); }
};

TEST_F(DeclinedNew, a_move_goes_on_from_the_neighbour_and_skips_one) {
  struct {
    void (*move)(Instance&);
    std::int32_t target;
  } const moves[] = {{Primero, 501}, {Anterior, 502}, {Siguiente, 505}, {Ultimo, 505}};
  for (const auto& expected : moves) {
    onNew(5, 3, [&] {
      expectQuestion();
      expected.move(instance);
      EXPECT_EQ(list->rows.size(), 4u);
      EXPECT_EQ(standsOn(), expected.target);
      EXPECT_EQ(state(), limpia);
      EXPECT_TRUE(form().Visible());
    });
  }
}

TEST_F(DeclinedNew, a_move_on_a_list_that_is_empty_then_is_reported_on_the_hidden_card) {
  const std::pair<TextView, void (*)(Instance&)> moves[] = {{u"Primero de CNota", Primero},
                                                            {u"Anterior de CNota", Anterior},
                                                            {u"Siguiente de CNota", Siguiente},
                                                            {u"Ultimo de CNota", Ultimo}};
  for (const auto& [name, move] : moves) {
    onNew(1, 1, [&, move = move, name = name] {
      expectQuestion();
      expectReport(Text(name), dao::failure::noCurrentRecord);
      move(instance);
      EXPECT_TRUE(list->rows.empty());
      EXPECT_FALSE(form().Visible());
      here.screen.pointer = 0;
    });
  }
}

TEST_F(DeclinedNew, another_new_annotation_takes_its_place) {
  givenNewAndOldRows();
  openCard([&] {
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(list->rows.size(), 2u);
    expectQuestion();
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(list->rows.size(), 2u) << "one went, one came";
    EXPECT_EQ(state(), nueva);
    EXPECT_TRUE(form().Visible());
    putAway();
  });
}

TEST_F(DeclinedNew, another_new_annotation_of_an_empty_list_is_on_no_screen) {
  givenNewAndOldRows();
  openCard([&] {
    instance.EstadoFicha = nueva;
    expectQuestion();
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(list->rows.size(), 1u);
    EXPECT_EQ(state(), nueva);
    EXPECT_FALSE(form().Visible());
    instance.EstadoFicha = limpia;
  });
}

TEST_F(DeclinedNew, every_way_of_closing_takes_the_row_and_never_hides_the_hosts_form) {
  host.FichaInm->giving(u"Hide", {});
  const std::function<void()> ways[] = {[&] { user.clicks(u"ID_Salir"); },
                                        [&] { user.presses(kit::User::escape); }, [&] { user.closes(); }};
  for (const auto& close : ways) {
    for (const int rows : {1, 3}) {
      onNew(rows, rows, [&] {
        expectQuestion();
        close();
        EXPECT_FALSE(form().Visible());
        EXPECT_EQ(list->rows.size(), static_cast<std::size_t>(rows - 1));
        EXPECT_EQ(state(), limpia);
        EXPECT_EQ(nota.crs->AbsolutePosition(), rows > 1 ? 0 : -1);
      });
    }
  }
  EXPECT_EQ(host.calls(*host.FichaInm, u"Hide"), 0);
}

TEST_F(DeclinedNew, with_documents_that_are_to_stay_the_annotation_stays_and_the_card_closes) {
  const auto documents =
      database->answers(u"SELECT * FROM DocuNotaIP WHERE IdNota = 501", {{u"NombreOrg"}, {u"NombreArch"}},
                        {{u"plano.pdf", u"120F00.pdf"}});
  givenList(u"Nota", {{{u"NArchivos", 1}}});
  openCard([&] {
    instance.EstadoFicha = nueva;
    expectQuestion();
    expectBox(u"El documento adjunto se borrará.\r\n\r\n¿Desea continuar?", 36, u"Borrar", no);
    EXPECT_TRUE(user.closes());
  });
  EXPECT_EQ(list->rows.size(), 1u);
  EXPECT_EQ(state(), limpia);
}

}  // namespace
}  // namespace ovalia
