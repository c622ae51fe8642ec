#pragma once

#include <initializer_list>
#include <optional>
#include <utility>

#include "cards/Saving.h"
#include "component/OpenAndClose.h"
#include "engines/Open.h"
#include "instance/Instance.h"
#include "tests/host/CardsOverAgency.h"

namespace ovalia::host {

// A list of each kind at a property, and the table behind it.
struct KindOfList {
  TextView grid, table;
};
inline constexpr KindOfList kindsOfLists[] = {{u"grdNota", u"NotaIP"},
                                              {u"grdVisita", u"VisitaIP"},
                                              {u"grdAnuncio", u"AnuncioIP"},
                                              {u"grdLlamada", u"LlamadaAIP"}};

// Cards of the first property that has annotations of all kinds, their state in sight, and somebody else at
// the same file.
class SavingOverAgency : public CardsOverAgency {
 protected:
  SavingOverAgency();
  void TearDown() override;

  // Opens the list's current row on a card, the focus on `txtNotas`, and runs the test's part. A card that is
  // left with unsaved changes is put away without a question.
  void onCard(const KindOfList& kind, const std::function<void()>& script);

  // Puts values on the card as a fill would, and makes it count as changed.
  void put(TextView name, const Variant& value);
  void change(std::initializer_list<std::pair<TextView, Variant>> values);

  // Puts the focus on a control with a text that was typed into it.
  void typeOn(TextView name, const Text& text);

  // What happens between the Edit and the Update of the next save.
  void whileWriting(std::function<void()> action) { clock_.action = std::move(action); }

  void save() { Guardar(*instance, u"NoPreguntar"); }
  std::int32_t state() const { return instance->EstadoFicha; }
  bool pending() const { return instance->crs().editing(); }

  // The card's row as the other one reads it: a column, and all of them.
  Variant theirs(TextView column);
  std::vector<Text> theirRow();
  Variant theirOne(TextView sql);

  std::optional<Instance> instance;
  dao::DatabaseRef other;

 private:
  class WritingClock : public Clock {
   public:
    explicit WritingClock(SavingOverAgency& test) : test_(test) {}
    std::function<void()> action;
    Date now() override;

   private:
    SavingOverAgency& test_;
  };

  Text rowOfTheirs(TextView columns) const;

  WritingClock clock_{*this};
  KindOfList kind_;
  std::int32_t key_ = 0;
};

}  // namespace ovalia::host
