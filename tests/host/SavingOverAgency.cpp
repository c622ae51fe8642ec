#include "tests/host/SavingOverAgency.h"

namespace ovalia::host {

SavingOverAgency::SavingOverAgency() : other(engines::open(fromUtf8(workplace.agency.file.string()))) {
  here.platform.clock = &clock_;
  const auto full = [this] {
    AnnotationList& advertisements = list(u"grdAnuncio");
    for (std::int32_t row = 0; row < advertisements.count(); ++row) {
      advertisements.recordset()->setAbsolutePosition(row);
      card->followAdvertisement();
      if (list(u"grdLlamada").count() > 0)
        return list(u"grdNota").count() > 0 && list(u"grdVisita").count() > 0;
    }
    return false;
  };
  for (std::int32_t record = 1;; ++record) {
    open(u"FichaInm", record);
    if (full()) break;
  }
}

void SavingOverAgency::TearDown() {
  other.reset();
  CardsOverAgency::TearDown();
}

Date SavingOverAgency::WritingClock::now() {
  if (action && test_.instance && test_.pending()) std::exchange(action, nullptr)();
  return test_.here.clock.now();
}

void SavingOverAgency::onCard(const KindOfList& kind, const std::function<void()>& script) {
  kind_ = kind;
  AnnotationList& annotations = list(kind.grid);
  key_ = annotations.currentKey();
  instance.emplace(annotations.nota());
  bool ran = false;
  desk.whileShown([&] {
    ran = true;
    user.enters(u"txtNotas");
    instance->EstadoFicha = limpia;
    script();
    instance->EstadoFicha = limpia;
  });
  AbreNota(*instance);
  EXPECT_TRUE(ran);
  Class_Terminate(*instance);
  instance.reset();
  here.screen.pointer = 0;
}

void SavingOverAgency::put(TextView name, const Variant& value) {
  const std::int32_t before = std::exchange(instance->EstadoFicha, cargando);
  forms::CardForm& form = instance->card();
  form.setFilling(true);
  form.control(name)->setValue(value);
  form.setFilling(false);
  instance->EstadoFicha = before;
}

void SavingOverAgency::change(std::initializer_list<std::pair<TextView, Variant>> values) {
  for (const auto& [name, value] : values) put(name, value);
  instance->EstadoFicha = modificada;
}

void SavingOverAgency::typeOn(TextView name, const Text& text) {
  EXPECT_TRUE(user.enters(name)) << toUtf8(name);
  change({{name, text}});
}

Text SavingOverAgency::rowOfTheirs(TextView columns) const {
  return join(u"SELECT ", columns, u" FROM ", kind_.table, u" WHERE ",
              kindKey(annotationTable(kind_.table).kind), u" = ", key_);
}

Variant SavingOverAgency::theirs(TextView column) { return theirOne(rowOfTheirs(column)); }

std::vector<Text> SavingOverAgency::theirRow() {
  const auto row = other->OpenRecordset(rowOfTheirs(u"*"), dao::dbOpenSnapshot);
  std::vector<Text> values;
  for (std::size_t i = 0; i < row->fields().count(); ++i) {
    const Variant value = row->fields().at(i)->Value();
    values.push_back(value.isNull() ? Text(u"(Null)") : value.text());
  }
  return values;
}

Variant SavingOverAgency::theirOne(TextView sql) {
  return other->OpenRecordset(sql, dao::dbOpenSnapshot)->fields().at(0)->Value();
}

}  // namespace ovalia::host
