#include "cards/RecordToCard.h"

#include <gtest/gtest.h>

#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using kit::Fields;
using kit::on;
using Names = std::vector<Text>;

class RecordToCard : public kit::CardTest {
 protected:
  // Rows for the moves of the tests below.
  void move(int row) {
    standOn(row);
    RefrescoFicha(instance, u"");
  }
};

TEST_F(RecordToCard, a_note_shows_each_field_in_its_control) {
  openCard(u"Nota", {}, [&] {
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(card(u"txtCategorias"), u"Llaves; Urgente");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"02/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:15:00");
    EXPECT_EQ(card(u"chkAvisoNota"), u"1");
    EXPECT_TRUE(enabled(u"dtpFechaAviso"));
    EXPECT_TRUE(enabled(u"lblA"));
    EXPECT_TRUE(enabled(u"cboUsuarioAviso"));
    EXPECT_EQ(card(u"dtpFechaAviso"), u"12/03/26");
    EXPECT_EQ(card(u"cboUsuarioAviso"), u"Benito Gil");
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
    EXPECT_EQ(state(), limpia);
    EXPECT_TRUE(form().KeyPreview());
  });
}

TEST_F(RecordToCard, a_visit_shows_each_field_in_its_control) {
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(card(u"txtCategorias"), u"Llaves; Urgente");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"10/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"09:30:00");
    EXPECT_EQ(card(u"txtUbicacion"), u"Calle Mayor, 3");
    EXPECT_EQ(card(u"dtpFechaFin"), u"10/03/26");
    EXPECT_EQ(card(u"dtpHoraFin"), u"10:45:00");
    EXPECT_EQ(card(u"txtCliente"), u"Luis Pérez");
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
    EXPECT_EQ(card(u"cboComercial"), u"Benito Gil");
    EXPECT_EQ(card(u"txtOtraAgencia"), u"Casas del Sur");
    EXPECT_EQ(card(u"chkAviso"), u"1");
    EXPECT_TRUE(enabled(u"cboTiempoAviso"));
    EXPECT_EQ(card(u"cboTiempoAviso"), u"15 minutos");
    EXPECT_EQ(card(u"chkConfirmada"), u"1");
    EXPECT_EQ(card(u"chkRealizada"), u"0");
    EXPECT_EQ(card(u"chkAnulada"), u"0");
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
  });
}

TEST_F(RecordToCard, an_advertisement_shows_each_field_in_its_control) {
  openCard(u"Anuncio", {}, [&] {
    EXPECT_EQ(card(u"txtDonde"), u"Calle Mayor, 3");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(card(u"txtCategorias"), u"Llaves; Urgente");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"02/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:15:00");
    EXPECT_EQ(card(u"dtpFechaInicio"), u"06/03/26");
    EXPECT_EQ(card(u"txtNDias"), u"15");
    EXPECT_EQ(card(u"dtpFechaEnvio"), u"04/03/26");
    EXPECT_EQ(card(u"dtpHoraEnvio"), u"12:00:30");
    EXPECT_TRUE(enabled(u"dtpHoraEnvio"));
    EXPECT_EQ(card(u"chkEnviar"), u"1");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
  });
}

TEST_F(RecordToCard, a_call_shows_its_moment_and_the_common_fields) {
  openCard(u"Llamada", {}, [&] {
    EXPECT_EQ(card(u"dtpFechaAlta"), u"02/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:15:00");
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
  });
}

}  // namespace
}  // namespace ovalia
