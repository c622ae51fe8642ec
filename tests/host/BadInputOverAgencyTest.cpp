// Texts of every kind in every control, and names that several rows have, checked and saved over the agency's
// database.

#include <algorithm>

#include "cards/Validation.h"
#include "tests/host/SavingOverAgency.h"

namespace ovalia::host {
namespace {

namespace f = dao::failure;

Text allControlCharacters() {
  Text text = u"a";
  for (char16_t c = 0; c < 0x20; ++c) text += c;
  return text + u"\u007F\u0085\u00A0\u200B\u2028\uFEFFz";
}

Text repeated(TextView piece, std::size_t length) {
  Text text;
  while (text.size() < length) text += piece;
  text.resize(length);
  return text;
}

// Short enough for every column.
const Text shortTexts[] = {
    u"'; DROP TABLE Usuario; --",
    u"x' OR '1'='1",
    u"') UNION SELECT Nombre FROM Usuario --",
    u"''''\"\"``´´«»",
    u"||' + chr(124) + '|",
    u"'|'",
    u"#03/07/05 09:05:00# [Nombre] ?1 :a @b $c %n %s \\",
    u"*?#[!a]_%",
    u"🏠👩‍👩‍👧‍👦🇪🇸𝒳 ñÑçÇ ẞß İı",
    u" con blancos ",
    u"\r\n\t",
    allControlCharacters(),
};

// The texts that a card of the kind writes as they are, and their columns.
struct PlainText {
  TextView grid, control, column;
};
constexpr PlainText plainTexts[] = {
    {u"grdNota", u"txtAsunto", u"Asunto"},     {u"grdNota", u"txtCategorias", u"Categorias"},
    {u"grdNota", u"txtNotas", u"Notas"},       {u"grdVisita", u"txtAsunto", u"Asunto"},
    {u"grdVisita", u"txtUbicacion", u"Donde"}, {u"grdVisita", u"txtCategorias", u"Categorias"},
    {u"grdVisita", u"txtNotas", u"Notas"},     {u"grdAnuncio", u"txtDonde", u"Donde"},
    {u"grdAnuncio", u"txtNotas", u"Notas"},    {u"grdAnuncio", u"txtCategorias", u"Categorias"},
    {u"grdLlamada", u"txtNotas", u"Notas"},
};

// The names that are written as keys: Null for one that nobody has.
struct Name {
  TextView grid, control, column;
};
constexpr Name names[] = {
    {u"grdNota", u"cboAcceso", u"IdTipoAccNota"},        {u"grdVisita", u"cboAcceso", u"IdTipoAccNota"},
    {u"grdAnuncio", u"cboAcceso", u"IdTipoAccNota"},     {u"grdVisita", u"txtCliente", u"IdCliente"},
    {u"grdVisita", u"txtOtraAgencia", u"IdOtraAgencia"}, {u"grdVisita", u"cboComercial", u"IdComercial"},
    {u"grdVisita", u"cboComercial2", u"IdComercial2"},
};

// The controls whose check knows names.
struct CheckedName {
  TextView grid, control;
};
constexpr CheckedName checkedNames[] = {
    {u"grdNota", u"txtCategorias"}, {u"grdNota", u"cboAcceso"},        {u"grdAnuncio", u"txtDonde"},
    {u"grdVisita", u"txtCliente"},  {u"grdVisita", u"txtOtraAgencia"}, {u"grdVisita", u"cboComercial"},
};

class BadInputOverAgency : public SavingOverAgency {
 protected:
  // Puts the text in every control of the card that takes any.
  void fillWith(const KindOfList& kind, const Text& text) {
    for (const PlainText& row : plainTexts)
      if (row.grid == kind.grid) put(row.control, text);
    for (const Name& row : names)
      if (row.grid == kind.grid) put(row.control, text);
    instance->EstadoFicha = modificada;
  }

  void expectNamesNull(const KindOfList& kind) {
    for (const Name& row : names)
      if (row.grid == kind.grid) {
        EXPECT_TRUE(theirs(row.column).isNull()) << toUtf8(row.column);
      }
  }

  std::vector<Text> countsOfTables() {
    std::vector<Text> counts;
    for (const TextView table : {u"Usuario", u"Cliente", u"Agencia", u"TipoAccNota", u"NotaIP", u"VisitaIP"})
      counts.push_back(theirOne(u"SELECT Count(*) FROM " + Text(table)).text());
    return counts;
  }

  std::int32_t add(TextView table, TextView column, TextView name) {
    database().Execute(join(u"INSERT INTO ", table, u" (", column, u") VALUES (", literal(name), u")"));
    return one(join(u"SELECT Max(Id", table, u") FROM ", table)).toLong();
  }
};

TEST_F(BadInputOverAgency, in_every_control_is_saved_to_the_letter_or_as_a_name_that_nobody_has) {
  const std::vector<Text> counts = countsOfTables();
  for (const KindOfList& kind : kindsOfLists) {
    list(kind.grid).nota().DosComerciales = true;
    for (const Text& text : shortTexts) {
      SCOPED_TRACE(toUtf8(kind.table) + ": " + toUtf8(text));
      onCard(kind, [&] {
        fillWith(kind, text);
        put(u"txtNotas", text + u" y más");
        save();
        EXPECT_EQ(state(), limpia);
        DeshacerCambios(*instance);
        for (const PlainText& row : plainTexts) {
          if (row.grid != kind.grid) continue;
          // The text box that has the focus is trimmed first.
          const Text wanted = row.control == u"txtNotas" ? trimBlanks(text + u" y más") : text;
          EXPECT_EQ(theirs(row.column).text(), wanted) << toUtf8(row.column);
          EXPECT_EQ(shown(row.control), wanted) << toUtf8(row.control);
        }
        expectNamesNull(kind);
      });
    }
  }
  EXPECT_EQ(countsOfTables(), counts);
}

TEST_F(BadInputOverAgency, of_a_hundred_thousand_letters_is_refused_by_the_column_and_kept_on_the_card) {
  for (const PlainText& row : plainTexts) {
    if (row.column == u"Notas") continue;
    SCOPED_TRACE(toUtf8(row.grid) + "." + toUtf8(row.control));
    onCard(*std::ranges::find(kindsOfLists, row.grid, &KindOfList::grid), [&] {
      const std::vector<Text> before = theirRow();
      const Text text = repeated(u"'ñ|🏠", 100'000);
      change({{row.control, text}, {u"txtNotas", u"Nuevo texto"}});
      expectReport(u"GrabaRegistro de CNota", f::tooLong);
      save();
      EXPECT_EQ(theirRow(), before);
      EXPECT_EQ(state(), modificada);
      EXPECT_TRUE(shown(row.control) == text);
      put(row.control, text.substr(0, 8));
      save();
      EXPECT_EQ(theirs(row.column).text(), text.substr(0, 8));
      EXPECT_EQ(theirs(u"Notas").text(), u"Nuevo texto");
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(BadInputOverAgency, that_fills_a_column_to_its_end_is_saved_and_one_letter_more_is_not) {
  onCard(kindsOfLists[0], [&] {
    const Text full = repeated(u"ñ🏠", 100);
    change({{u"txtAsunto", full}});
    save();
    EXPECT_EQ(theirs(u"Asunto").text(), full);
    change({{u"txtAsunto", full + u"x"}});
    expectReport(u"GrabaRegistro de CNota", f::tooLong);
    save();
    EXPECT_EQ(theirs(u"Asunto").text(), full);
  });
}

TEST_F(BadInputOverAgency, of_a_hundred_thousand_letters_in_names_and_the_large_text_is_taken) {
  for (const TextView piece : {u"'", u"una celda más|", u"ñandú 🏠 ", u"una línea\r\n'|\"", u"x"}) {
    const Text text = repeated(piece, 100'000);
    for (const KindOfList& kind : kindsOfLists) {
      SCOPED_TRACE(toUtf8(kind.table) + " " + toUtf8(piece));
      list(kind.grid).nota().DosComerciales = true;
      onCard(kind, [&] {
        for (const Name& row : names)
          if (row.grid == kind.grid) put(row.control, text);
        change({{u"txtNotas", text}});
        save();
        EXPECT_EQ(state(), limpia);
        EXPECT_TRUE(theirs(u"Notas").text() == trimBlanks(text));
        expectNamesNull(kind);
      });
    }
  }
}

TEST_F(BadInputOverAgency, is_refused_by_the_check_of_every_control_that_holds_a_name) {
  std::vector<Text> texts(std::begin(shortTexts), std::end(shortTexts));
  std::erase(texts, Text(u" con blancos "));  // trimmed by the host's own check
  texts.push_back(repeated(u"ñandú 🏠'|\"", 100'000));
  const std::vector<Text> counts = countsOfTables();
  for (const auto& [grid, control] : checkedNames) {
    for (const Text& text : texts) {
      SCOPED_TRACE(toUtf8(control) + ": " + toUtf8(text.substr(0, 100)));
      onCard(*std::ranges::find(kindsOfLists, grid, &KindOfList::grid), [&, control = control] {
        const std::vector<Text> before = theirRow();
        typeOn(control, text);
        if (control == u"cboComercial") expectBox(u"Introduzca una persona de la lista.", 64, u"Comercial");
        save();
        EXPECT_TRUE(shown(control) == text);
        EXPECT_EQ(theirRow(), before);
        EXPECT_EQ(state(), modificada);
      });
    }
  }
  EXPECT_EQ(countsOfTables(), counts);
}

// Names that exist.

TEST_F(BadInputOverAgency, names_with_quotes_bars_and_rare_letters_are_found_whatever_their_case) {
  const struct {
    TextView table, column, control, stored;
  } cases[] = {{u"TipoAccNota", u"Nombre", u"cboAcceso", u"IdTipoAccNota"},
               {u"Cliente", u"Alias", u"txtCliente", u"IdCliente"},
               {u"Agencia", u"Alias", u"txtOtraAgencia", u"IdOtraAgencia"},
               {u"Usuario", u"Nombre", u"cboComercial", u"IdComercial"}};
  for (const auto& row : cases) {
    for (const TextView name :
         {u"L'Óscar | \"Ñandú\" 🏠", u"'|'", u"||||", u"%_*?[a]", u"; -- # $", u"\tÇa\r\n"}) {
      SCOPED_TRACE(toUtf8(row.table) + ": " + toUtf8(name));
      const std::int32_t key = add(row.table, row.column, name);
      onCard(kindsOfLists[1], [&] {
        typeOn(row.control, lowerCase(name));
        save();
        EXPECT_EQ(state(), limpia);
        EXPECT_EQ(theirs(row.stored).toLong(), key);
        EXPECT_EQ(shown(row.control), row.control == u"cboComercial" ? Text(name) : lowerCase(name));
      });
    }
  }
}

TEST_F(BadInputOverAgency, of_two_rows_of_one_name_the_first_is_taken) {
  const std::int32_t client = add(u"Cliente", u"Alias", u"Doble, Ana");
  add(u"Cliente", u"Alias", u"DOBLE, ANA");
  database().Execute(u"UPDATE Cliente SET Tfno1 = 'uno' WHERE IdCliente = " + toText(client));
  const std::int32_t user = add(u"Usuario", u"Nombre", u"Doble Ana");
  add(u"Usuario", u"Nombre", u"DOBLE ANA");
  const std::int32_t access = add(u"TipoAccNota", u"Nombre", u"Doble");
  add(u"TipoAccNota", u"Nombre", u"DOBLE");
  const std::int32_t agency = add(u"Agencia", u"Alias", u"Doble");
  add(u"Agencia", u"Alias", u"DOBLE");
  onCard(kindsOfLists[1], [&] {
    typeOn(u"txtCliente", u"dOBLE, aNA");
    save();
    EXPECT_EQ(shown(u"txtTfnoCliente"), u"uno");
    typeOn(u"cboComercial", u"dOBLE aNA");
    change({{u"cboAcceso", u"dOBLE"}, {u"txtOtraAgencia", u"dOBLE"}});
    save();
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(shown(u"cboComercial"), u"Doble Ana");
    EXPECT_EQ(theirs(u"IdCliente").toLong(), client);
    EXPECT_EQ(theirs(u"IdComercial").toLong(), user);
    EXPECT_EQ(theirs(u"IdTipoAccNota").toLong(), access);
    EXPECT_EQ(theirs(u"IdOtraAgencia").toLong(), agency);
  });
}

TEST_F(BadInputOverAgency, a_number_of_days_that_the_column_does_not_hold_keeps_the_card_unsaved) {
  for (const TextView typed : {u"99999999999", u"1e400"}) {
    onCard(kindsOfLists[2], [&] {
      const std::vector<Text> before = theirRow();
      typeOn(u"txtNDias", Text(typed));
      expectReport(u"ComprobarByte() de RutinasErr", failure::overflow);
      expectReport(u"GrabaRegistro de CNota", f::conversion);
      save();
      EXPECT_EQ(theirRow(), before);
      EXPECT_EQ(state(), modificada);
      put(u"txtNDias", u"1e2");
      save();
      EXPECT_EQ(theirs(u"NDias").toLong(), 100);
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(BadInputOverAgency, dates_at_the_ends_of_the_calendar_come_back_as_they_were) {
  for (const DateParts& parts : {DateParts{100, 1, 1}, DateParts{9999, 12, 31}, DateParts{1899, 12, 29}})
    onCard(kindsOfLists[2], [&] {
      const Date day = dateFrom(parts).value();
      change({{u"dtpFechaInicio", day}, {u"dtpFechaAlta", day}, {u"dtpHoraAlta", u"23:59:59"}});
      save();
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(theirs(u"FechaInicio").toDate(), day);
      EXPECT_EQ(partsOf(theirs(u"FechaAlta").toDate()),
                (DateParts{parts.year, parts.month, parts.day, 23, 59, 59}));
    });
}

}  // namespace
}  // namespace ovalia::host
