#include "host/DocumentMarks.h"

#include <algorithm>

#include "host/Marks.h"

namespace ovalia::host {

namespace {

constexpr MarkSource card = MarkSource::card, list = MarkSource::list, both = MarkSource::both;

constexpr DocumentMark marks[] = {
    {u"Id", u"", both, u"Número del inmueble, usuario o expediente; en una llamada, el suyo", u"120"},
    {u"Asunto", u"", both, u"Asunto; en un anuncio, «Anuncio en» y el medio", u"Visita con la familia Peña"},
    {u"Categorias", u"", both, u"Categorías, separadas por comas", u"Llaves, Urgente"},
    {u"Autor", u"", both, u"Quien escribió la anotación", u"Óscar Güell"},
    {u"Autor2", u"Autor", list, u"Lo mismo, para un segundo sitio", u"Óscar Güell"},
    {u"Fecha", u"", both, u"Día y hora en que se escribió", u"08/03/26 - 10:30"},
    {u"Acceso", u"", both, u"Quién puede verla", u"Público"},
    {u"Adjunto", u"", both, u"Nombres de los documentos adjuntos", u"plano.pdf , fotos.zip."},
    {u"AdjuntoEMail", u"", both, u"Dónde están los documentos adjuntos", u"\\datos\\Doc0\\1F00.pdf"},
    {u"Notas", u"", both, u"El texto de la anotación, solo al imprimir", u"Le interesa la terraza."},
    {u"Notas2", u"Notas", list, u"Lo mismo, para un segundo sitio", u"Le interesa la terraza."},
    {u"Comienzo", u"", both,
     u"Día y hora en que empieza la visita, o en que se escribió el anuncio o la llamada",
     u"09/03/26 - 17:00"},
    {u"Comienzo2", u"Comienzo", list, u"Lo mismo, para un segundo sitio", u"09/03/26 - 17:00"},
    {u"Fin", u"", both, u"Día y hora en que termina", u"09/03/26 - 17:30"},
    {u"Ubicación", u"Donde", card, u"Lugar de la visita", u"Calle Colón, 4"},
    {u"Donde", u"Ubicación", list, u"Lugar de la visita, medio del anuncio", u"Calle Colón, 4"},
    {u"Cliente", u"", both, u"Visitante", u"O'Donnell, Patricia"},
    {u"Cliente2", u"Cliente", list, u"Lo mismo, para un segundo sitio", u"O'Donnell, Patricia"},
    {u"Comercial", u"", both, u"Quien atiende la visita", u"Óscar Güell"},
    {u"Comercial2", u"", both, u"Lo mismo, para un segundo sitio", u"Óscar Güell"},
    {u"Agencia", u"", both, u"La otra agencia", u"Levante | Hogar"},
    {u"Aviso", u"", both, u"«Sí» y con cuánto tiempo, o «No»", u"Sí - 15 minutos"},
    {u"Confirmada", u"", both, u"«Sí» o «No»", u"Sí"},
    {u"Realizada", u"", both, u"«Sí» o «No»", u"No"},
    {u"FechaInicio", u"", both, u"Primer día del anuncio", u"10/03/26"},
    {u"Dias", u"", both, u"Cuántos días sale el anuncio", u"15"},
    {u"Enviar", u"", both, u"Si hay que enviarlo: «Sí» o «No»", u"Sí"},
    {u"Enviada", u"", both, u"Día y hora en que se envió", u"09/03/26 - 12:00"},
    {u"Referencia", u"", both, u"Referencia del inmueble", u"V-0120"},
    {u"Referencia2", u"", both, u"Lo mismo, para un segundo sitio", u"V-0120"},
    {u"Gastos", u"", both, u"Gastos de comunidad", u"45"},
    {u"Gastos2", u"", both, u"Lo mismo, para un segundo sitio", u"45"},
    {u"NotasInm", u"", both, u"Notas del inmueble", u"Todo exterior."},
    {u"NotasInm2", u"", both, u"Lo mismo, para un segundo sitio", u"Todo exterior."},
    {u"Precio", u"", both, u"Precio en euros", u"150.000"},
    {u"Precio2", u"", both, u"Lo mismo, para un segundo sitio", u"150.000"},
    {u"PrecioPts", u"", both, u"Precio en pesetas", u"24.957.900"},
    {u"PrecioPts2", u"", both, u"Lo mismo, para un segundo sitio", u"24.957.900"},
    {u"Numero", u"", both, u"Número de la calle y piso", u"12 - 3º B"},
    {u"Numero2", u"", both, u"Lo mismo, para un segundo sitio", u"12 - 3º B"},
    {u"Tfno1", u"", both, u"Primer teléfono del cliente", u"963 555 121"},
    {u"Tfno2", u"", both, u"Segundo teléfono del cliente", u"600 555 121"},
    {u"Tfno22", u"", both, u"El segundo teléfono, para otro sitio", u"600 555 121"},
    {u"Propietario", u"", both, u"Propietario del inmueble", u"Castaño Ibáñez, Fermín"},
    {u"PropietarioTfno1", u"", both, u"Su primer teléfono", u"963 555 122"},
    {u"PropietarioTfno2", u"", both, u"Su segundo teléfono", u"600 555 122"},
};

Text element(const Variant& collection, std::int32_t index) {
  return getMember(collection.toObject(), u"", {index}).text();
}

}  // namespace

std::span<const DocumentMark> documentMarks() { return marks; }

const DocumentMark* documentMark(TextView name) {
  const auto found = std::ranges::find_if(marks, [&](const auto& mark) { return sameName(mark.name, name); });
  return found == std::end(marks) ? nullptr : found;
}

MarkTexts::MarkTexts(const Variant& names, const Variant& texts) {
  for (std::int32_t i = 0; i <= lastMark; ++i)
    if (const Text name = element(names, i); !name.empty())
      if (Text& text = texts_[name]; text.empty()) text = element(texts, i);
}

const Text* MarkTexts::given(TextView name) const {
  const auto found = texts_.find(name);
  return found == texts_.end() ? nullptr : &found->second;
}

std::optional<Text> MarkTexts::operator()(TextView bookmark) const {
  if (const Text* text = given(bookmark)) return *text;
  const DocumentMark* mark = documentMark(bookmark);
  if (!mark) return {};
  const Text* text = given(mark->same);
  return text ? *text : Text();
}

}  // namespace ovalia::host
