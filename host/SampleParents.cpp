#include "host/SampleParts.h"

namespace ovalia::host::sample {

namespace {

Text phone(Dice& dice, TextView prefix) {
  Text number(prefix);
  for (int i = 0; i < 6; ++i) {
    if (i % 3 == 0) number += u' ';
    number += static_cast<char16_t>(u'0' + dice.below(10));
  }
  return number;
}

Currency euros(std::int64_t amount) { return Currency{amount * 10000}; }
using RowMaker = Row (*)(Dice&, std::size_t index);

template <std::size_t size>
Row named(const TextView (&list)[size], std::size_t index) {
  return {number(index + 1), list[index]};
}

Row user(Dice& dice, std::size_t i) {
  return {number(i + 1),
          words::users[i],
          words::posts[i],
          phone(dice, u"600"),
          Text(u"usuario") + toText(std::int64_t(i) + 1) + u"@agencia.example",
          Date{baseDay - 900 + double(i) * 30},
          Null};
}

Row client(Dice& dice, std::size_t i) {
  constexpr std::size_t others = std::size(words::otherClients);
  Text alias;
  if (i >= sampleClients - others)
    alias = words::otherClients[i - (sampleClients - others)];
  else  // no two alike: 20 surnames each with two given names
    alias = Text(words::surnames[i % 20]) + u" " + Text(words::surnames[(i * 7 + 3) % 20]) + u", " +
            Text(words::givenNames[(i / 20 + i) % 20]);
  return {number(i + 1),
          alias,
          dice.oneIn(9) ? Variant(Null) : Variant(phone(dice, u"961")),
          dice.oneIn(3) ? Variant(Null) : Variant(phone(dice, u"655")),
          Text(u"cliente") + toText(std::int64_t(i) + 1) + u"@correo.example",
          dice.oneIn(2) ? Variant(Null) : Variant(dice.of(words::sentences))};
}

Row agency(Dice& dice, std::size_t i) {
  return {number(i + 1), words::agencies[i], phone(dice, u"963"),
          words::towns[i % std::size(words::towns)].name};
}

Row subject(Dice&, std::size_t i) { return {number(i + 1), words::subjects[i].name}; }
Row subjectPart(Dice&, std::size_t i) {
  return {number(i + 1), words::subjects[i / 3].parts[i % 3], number(i / 3 + 1)};
}

Variant keyOrNull(int key) { return key ? Variant(std::int32_t(key)) : Variant(Null); }
Row model(Dice&, std::size_t i) {
  return {number(i + 1), models[i].name, models[i].notes, keyOrNull(models[i].subject),
          keyOrNull(models[i].part)};
}

Row property(Dice& dice, std::size_t i) {
  const words::Town& town = words::towns[dice.below(std::size(words::towns))];
  const auto drawn = dice.below(std::size(words::homes));
  const words::Home& home = words::homes[i == 0 ? 1 : drawn];  // the notes of the first speak of a penthouse
  Text reference = toText(std::int64_t(i) + 1001);
  return {
      number(i + 1),
      u"V-" + reference.substr(reference.size() - 4),
      home.name,
      dice.of(words::streets),
      dice.oneIn(40) ? Variant(Null) : Variant(toText(1 + dice.below(180))),
      home.floors.empty() || dice.oneIn(8) ? Variant(Null) : Variant(dice.of(home.floors)),
      town.postCode,
      town.name,
      static_cast<std::int16_t>(home.squareMetres + dice.below(std::size_t(home.squareMetres) * 2)),
      dice.oneIn(25) ? Variant(Null)
                     : Variant(euros(1000 * home.thousands +
                                     500 * std::int64_t(dice.below(std::size_t(home.more) * 2)))),
      dice.oneIn(6) ? Variant(Null) : Variant(Currency{10000 * std::int64_t(20 + dice.below(160)) + 5000}),
      dice.oneIn(20) ? Variant(Null) : number(1 + dice.below(sampleClients)),
      number(1 + dice.below(userCount)),
      Date{baseDay - 1200 + dice.below(1500)},
      dice.oneIn(4) || !home.livedIn ? Variant(Null) : Variant(sentencesText(dice, 2))};
}

Row caseFile(Dice& dice, std::size_t i) {
  const auto part = dice.below(std::size(words::subjects) * 3);
  const TextView title = dice.of(words::caseTitles), family = dice.of(words::surnames);
  return {number(i + 1),
          u"EXP-" + toText(std::int64_t(i) + 101),
          Text(title) + u", " + Text(family),
          number(1 + dice.below(sampleClients)),
          dice.oneIn(8) ? Variant(Null) : number(part / 3 + 1),
          dice.oneIn(6) ? Variant(Null) : number(part + 1),
          number(1 + dice.below(userCount)),
          Date{baseDay - 600 + dice.below(900)},
          sentencesText(dice, 3)};
}

Row project(Dice& dice, std::size_t i) {
  return {number(i + 1), words::projects[i], words::towns[i].name, Date{baseDay - dice.below(300)}, Null};
}

struct TableMaker {
  TextView table;
  std::size_t count;
  RowMaker make;
};
constexpr TableMaker tableMakers[] = {
    {u"Usuario", userCount, user},
    {u"Cliente", sampleClients, client},
    {u"Agencia", agencyCount, agency},
    {u"TipoAccNota", accessCount, [](Dice&, std::size_t i) { return named(words::accesses, i); }},
    {u"TipoCatNota", std::size(words::categories),
     [](Dice&, std::size_t i) { return named(words::categories, i); }},
    {u"TipoMedioPubli", std::size(words::media), [](Dice&, std::size_t i) { return named(words::media, i); }},
    {u"Materia", std::size(words::subjects), subject},
    {u"TipoMateria", std::size(words::subjects) * 3, subjectPart},
    {u"Plantilla", std::size(models), model},
    {u"Inmueble", sampleProperties, property},
    {u"ExpVivo", caseCount, caseFile},
    {u"Proyecto", projectCount, project},
};

}  // namespace

Text sentencesText(Dice& dice, int count) {
  constexpr std::size_t all = std::size(words::sentences);
  Text text;
  std::size_t last = all;
  for (int i = 0; i < count; ++i) {
    if (i) text.append(i % 3 == 2 ? CRLF : TextView(u" "));
    std::size_t next = dice.below(all);
    if (next == last) next = (next + 1) % all;
    text.append(words::sentences[last = next]);
  }
  return text;
}

void makeParents(RowSink& sink) {
  for (const TableMaker& maker : tableMakers) {
    Dice dice(0x0fa11 + std::uint64_t(&maker - tableMakers));
    sink.begin(table(maker.table));
    for (std::size_t i = 0; i < maker.count; ++i) sink.add(maker.make(dice, i));
  }
}

}  // namespace ovalia::host::sample
