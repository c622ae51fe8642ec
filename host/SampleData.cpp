#include "host/SampleData.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "host/SampleParts.h"
#include "host/SampleTemplates.h"

namespace ovalia::host {

using namespace sample;

namespace {

constexpr double oldDay = 36524;  // 30 December 1999, which is not "no date" though it prints like it
constexpr double second = 1.0 / 86400;

std::int32_t parentCount(TextView parentTable, std::int32_t advertisements) {
  if (parentTable == u"Inmueble") return sampleProperties;
  if (parentTable == u"ExpVivo") return caseCount;
  if (parentTable == u"Proyecto") return projectCount;
  return advertisements;
}

// ---- attachments ----

struct Attachment {
  TextView table;  // of the annotation
  std::int32_t annotation, parent;
  TextView shown, stored;
  const char* content;
};
constexpr Attachment attachments[] = {
    {u"NotaIP", 1, 1, u"Nota simple.txt", u"1F00.txt", "Nota simple informativa de la finca.\r\n"},
    {u"NotaIP", 1, 1, u"Plano del ático.txt", u"1F01.txt",
     "Plano: salón, cocina, dos habitaciones, baño.\r\n"},
    {u"VisitaIP", 1, 1, u"Parte de visita.txt", u"1F02.txt", "Parte de visita firmado por el cliente.\r\n"},
    {u"AnuncioIP", 1, 1, u"Texto del anuncio.txt", u"1F03.txt",
     "Ático luminoso, vistas al río. ¡Llámenos!\r\n"},
    {u"NotaExp", 1, 1, u"Poder notarial.txt", u"1F04.txt", "Copia simple del poder.\r\n"},
};
std::int16_t attachmentCount(TextView table, std::int32_t annotation) {
  return static_cast<std::int16_t>(std::ranges::count_if(
      attachments, [&](const Attachment& a) { return a.table == table && a.annotation == annotation; }));
}

// ---- annotations ----

// What the columns of one annotation are made from.
struct Making {
  const AnnotationTable& table;
  Dice& dice;
  std::int32_t number = 0;
  std::int32_t parent = 0;  // 0 is none
  std::int32_t user = 0;
  double created = 0;

  bool every(std::int32_t n, std::int32_t offset) const { return number % n == offset; }
};

Variant subjectOf(Making& m) {
  if (m.every(27, 11)) return Null;
  if (m.every(23, 4)) return u"";
  return m.table.kind == Kind::Visita ? m.dice.of(words::visitSubjects) : m.dice.of(words::noteSubjects);
}
Variant placeOf(Making& m) {
  if (m.every(19, 6)) return Null;
  return m.table.kind == Kind::Anuncio ? m.dice.of(words::media) : m.dice.of(words::places);
}
Variant categoriesOf(Making& m) {
  if (m.every(5, 2)) return Null;
  Text list(m.dice.of(words::categories));
  const TextView other = m.dice.of(words::categories);
  if (m.every(3, 0) && other != list) (list += u", ").append(other);
  return list;
}
Variant accessOf(Making& m) { return m.every(6, 5) ? Variant(Null) : number(1 + m.dice.below(accessCount)); }
// Two days later, at a whole or half hour from nine to half past six.
double startOf(const Making& m) {
  if (m.every(41, 7)) return oldDay + 10.0 / 24;
  return double(std::int64_t(m.created)) + 2 + (18 + m.number % 20) / 48.0;
}
Variant beginning(Making& m) { return m.every(43, 9) ? Variant(Null) : Variant(Date{startOf(m)}); }
Variant ending(Making& m) {
  if (m.every(29, 3)) return Null;
  if (m.every(31, 5)) return Date{};
  return Date{startOf(m) + (1 + m.number % 4) / 48.0};
}
Variant firstDay(Making& m) {
  return m.every(17, 8) ? Variant(Null) : Variant(Date{double(std::int64_t(m.created)) + 3});
}
Variant days(Making& m) {
  return m.every(13, 12) ? Variant(Null) : Variant(static_cast<std::uint8_t>(1 + m.dice.below(60)));
}
Variant sent(Making& m) { return m.every(3, 2) ? Variant(Null) : Variant(Date{m.created + 1}); }
Variant reminder(Making& m) { return m.every(4, 1); }
Variant reminderDay(Making& m) {
  if (m.every(41, 8)) return Date{oldDay};
  return m.every(4, 1) || m.every(7, 0) ? Variant(Date{double(std::int64_t(m.created)) + 14}) : Variant(Null);
}
Variant reminderUser(Making& m) {
  return m.every(4, 1) ? number(1 + m.dice.below(userCount)) : Variant(Null);
}
Variant leadTime(Making& m) {
  constexpr int minutes[] = {15, 30, 60, 5, 180, 1440, 0};
  return m.every(4, 1) ? Variant(Date{minutes[m.number / 4 % 7] / 1440.0}) : Variant(Null);
}
Variant visitor(Making& m) { return m.every(9, 5) ? Variant(Null) : number(1 + m.dice.below(sampleClients)); }
Variant noClient(Making&) { return Null; }
Variant salesperson(Making& m) {
  if (m.every(37, 10)) return std::int32_t(deletedSalesperson);
  return m.every(15, 14) ? Variant(Null) : number(1 + m.dice.below(userCount));
}
Variant secondSalesperson(Making& m) {
  return m.every(8, 3) ? number(1 + m.dice.below(userCount)) : Variant(Null);
}
Variant otherAgency(Making& m) {
  return m.every(7, 2) ? number(1 + m.dice.below(agencyCount)) : Variant(Null);
}
Variant confirmed(Making& m) { return m.every(2, 0); }
Variant done(Making& m) { return m.created < baseDay && !m.every(11, 6); }
Variant cancelled(Making& m) { return m.every(11, 6); }
Variant toSend(Making& m) { return m.every(3, 2); }
Variant ownAgency(Making&) { return std::int32_t(1); }
Variant author(Making& m) { return m.user; }
Variant created(Making& m) { return m.every(47, 13) ? Variant(Null) : Variant(Date{m.created}); }
Variant written(Making& m) {
  return m.every(10, 9) ? Variant(Null) : Variant(Date{m.created + 3600 * second});
}
Variant notes(Making& m) {
  if (m.table.kind == Kind::Llamada) return m.dice.of(words::callSentences);
  if (m.every(12, 7)) return Null;
  return sentencesText(m.dice, m.every(53, 20) ? 90 : 1 + int(m.dice.below(4)));
}
Variant attached(Making& m) { return attachmentCount(m.table.name, m.number); }
Variant ownKey(Making& m) { return m.number; }
Variant parent(Making& m) { return m.parent ? Variant(m.parent) : Variant(Null); }
Variant diary(Making& m) { return m.parent || m.every(12, 6) ? Variant(Null) : Variant(m.user); }

using Maker = Variant (*)(Making&);
struct MakerRow {
  TextView column;
  Maker make;
};
constexpr MakerRow makers[] = {
    {u"IdUsu", diary},
    {u"Asunto", subjectOf},
    {u"Donde", placeOf},
    {u"IdTipoAccNota", accessOf},
    {u"Categorias", categoriesOf},
    {u"FechaComienzo", beginning},
    {u"FechaFin", ending},
    {u"FechaInicio", firstDay},
    {u"NDias", days},
    {u"FechaEnvio", sent},
    {u"Enviar", toSend},
    {u"Aviso", reminder},
    {u"FechaAviso", reminderDay},
    {u"IdUsuarioAviso", reminderUser},
    {u"TiempoAviso", leadTime},
    {u"IdComercial", salesperson},
    {u"IdComercial2", secondSalesperson},
    {u"IdOtraAgencia", otherAgency},
    {u"Confirmada", confirmed},
    {u"Realizada", done},
    {u"Anulada", cancelled},
    {u"IdAgencia", ownAgency},
    {u"NAgencia", ownAgency},
    {u"IdUsuario", author},
    {u"FechaAlta", created},
    {u"FechaActualizacion", written},
    {u"Notas", notes},
    {u"NArchivos", attached},
};

Maker makerOf(const AnnotationTable& annotation, const Column& column) {
  if (column.type == ColumnType::Key) return ownKey;
  if (column.name == annotation.parentColumn) return parent;
  if (column.name == u"IdCliente") return annotation.kind == Kind::Visita ? visitor : noClient;
  return std::ranges::find(makers, column.name, &MakerRow::column)->make;
}

// Of each thousand annotations; what is left over goes to the first table.
struct Share {
  TextView table;
  int perThousand;
};
constexpr Share shares[] = {{u"NotaIP", 0},       {u"VisitaIP", 220},  {u"AnuncioIP", 140},
                            {u"LlamadaAIP", 140}, {u"NotaIArch", 40},  {u"AnuncioIArch", 20},
                            {u"NotaExp", 50},     {u"VisitaExp", 20},  {u"NotaExpArch", 10},
                            {u"NotaProy", 8},     {u"NotaProyArch", 4}};

std::int32_t countOf(TextView table, int annotations) {
  std::int64_t rest = annotations;
  for (const Share& share : shares) {
    const auto count = std::int64_t(annotations) * share.perThousand / 1000;
    if (share.table == table && share.perThousand) return static_cast<std::int32_t>(count);
    rest -= count;
  }
  return static_cast<std::int32_t>(rest);
}

// The first few stand on the first parent; of the visits some on none.
std::int32_t parentOf(Making& m, std::int32_t parents) {
  if (m.number <= 6) return 1;
  if (m.table.name == u"VisitaIP" && m.every(10, 8)) return 0;
  return static_cast<std::int32_t>(1 + m.dice.below(std::size_t(parents)));
}

void makeAnnotations(RowSink& sink, const AnnotationTable& annotation, int annotations) {
  const Table& design = table(annotation.name);
  const std::int32_t parents = parentCount(annotation.parentTable, countOf(u"AnuncioIP", annotations));
  Dice dice(0x0a11a0 + std::uint64_t(&annotation - annotationTables().data()));
  std::vector<Maker> columns;
  for (const Column& column : design.columns) columns.push_back(makerOf(annotation, column));

  sink.begin(design);
  Row row(columns.size());
  Making making{annotation, dice};
  for (std::int32_t count = countOf(annotation.name, annotations), i = 1; i <= count; ++i) {
    making.number = i;
    making.parent = parentOf(making, parents);
    making.user = static_cast<std::int32_t>(1 + dice.below(userCount));
    // The first is the newest, so that it heads its list.
    const double drawn = baseDay - 700 + dice.below(1000);
    const double day = i == 1 ? baseDay + 400 : drawn;
    making.created = day + (8 * 3600 + dice.below(11 * 3600)) * second;
    std::ranges::transform(columns, row.begin(), [&](Maker make) { return make(making); });
    sink.add(row);
  }
}

void makeAttachments(RowSink& sink, const AnnotationTable& annotation, int annotations) {
  sink.begin(table(annotation.attachments));
  std::int32_t key = 0;
  for (const Attachment& a : attachments)
    if (a.table == annotation.name && a.annotation <= countOf(annotation.name, annotations))
      sink.add(Row{++key, a.parent, std::int32_t(1), a.annotation, a.shown, a.stored});
}

}  // namespace

void makeSample(RowSink& sink, int annotations) {
  makeParents(sink);
  for (const AnnotationTable& annotation : annotationTables()) makeAnnotations(sink, annotation, annotations);
  for (const AnnotationTable& annotation : annotationTables())
    if (!annotation.attachments.empty()) makeAttachments(sink, annotation, annotations);
}

std::vector<SampleFile> sampleFiles() {
  std::vector<SampleFile> files;
  for (const Attachment& a : attachments)  // a number of one digit has its documents in "Doc0\"
    files.push_back({u"Doc0\\" + Text(a.stored), a.content});
  for (const Model& m : models)
    files.push_back({u"Plantillas\\" + Text(m.name), sampleDocument(m.title, m.text, {})});
  std::ranges::move(sampleTemplates(), std::back_inserter(files));
  return files;
}

}  // namespace ovalia::host
